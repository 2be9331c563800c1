#include "system/modules.h"

#include "host/platform/windows.h"

// After windows.h, which it needs.
#include <psapi.h>

#include <array>
#include <cwchar>
#include <filesystem>

std::set<std::string> loaded_modules() {
  std::array<HMODULE, 1000> modules{};
  DWORD bytes = 0;
  K32EnumProcessModules(GetCurrentProcess(), modules.data(), sizeof modules, &bytes);
  std::array<wchar_t, MAX_PATH> system{};
  GetSystemDirectoryW(system.data(), static_cast<UINT>(system.size()));
  std::set<std::string> names;
  for (std::size_t i = 0; i < bytes / sizeof(HMODULE); ++i) {
    std::array<wchar_t, MAX_PATH> name{};
    GetModuleFileNameW(modules.at(i), name.data(), static_cast<DWORD>(name.size()));
    if (_wcsnicmp(name.data(), system.data(), std::wcslen(system.data())) != 0)
      names.insert(platform::Narrow(name.data()));
  }
  return names;
}

bool is_loaded(const std::string& path) {
  return GetModuleHandleW(std::filesystem::absolute(platform::Wide(path)).c_str()) != nullptr;
}

void* replaced_function(const std::string& library, const char* symbol) {
  return reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA(library.c_str()), symbol));
}
