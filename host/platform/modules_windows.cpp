#include "platform/modules.h"

#include "platform/windows.h"

namespace platform {

const std::string_view kModuleEnding = ".dll";

// What a library needs is looked for beside it too, if its path is whole.
void* OpenModule(const std::string& path) {
  const DWORD flags = HasFolder(path) ? LOAD_WITH_ALTERED_SEARCH_PATH : 0;
  const std::wstring wide = HasFolder(path) ? FullPath(path) : Wide(path);
  return wide.empty() ? nullptr : LoadLibraryExW(wide.c_str(), nullptr, flags);
}

bool CloseModule(void* module) { return FreeLibrary(static_cast<HMODULE>(module)) != 0; }

ModuleEntry FindEntry(void* module, const char* name) {
  return reinterpret_cast<ModuleEntry>(GetProcAddress(static_cast<HMODULE>(module), name));
}

bool HasFolder(std::string_view name) { return name.find_first_of("/\\:") != std::string_view::npos; }

std::string OwnFolder() {
  HMODULE module = nullptr;
  constexpr DWORD kByAddress =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  if (GetModuleHandleExW(kByAddress, reinterpret_cast<LPCWSTR>(&OwnFolder), &module) == 0) return {};
  std::wstring file(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(module, file.data(), static_cast<DWORD>(file.size()));
    if (length < file.size()) {
      file.resize(length);
      break;
    }
    file.resize(2 * file.size());
  }
  return Narrow(file.substr(0, file.rfind(L'\\') + 1));
}

}  // namespace platform
