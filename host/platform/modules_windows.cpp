#include "platform/modules.h"

#include <filesystem>

#include "platform/windows.h"

namespace platform {

const std::string_view kModuleEnding = ".dll";

namespace {

// While it lives, a file that cannot be loaded is reported by the result only, not by a box that waits for the user.
class NoErrorBoxes {
 public:
  NoErrorBoxes() { SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, &former_); }
  NoErrorBoxes(const NoErrorBoxes&) = delete;
  NoErrorBoxes& operator=(const NoErrorBoxes&) = delete;
  ~NoErrorBoxes() { SetThreadErrorMode(former_, nullptr); }

 private:
  DWORD former_ = 0;
};

// The path from its root on. The system recognises a library that is loaded already by its path, so the prefix of FullPath
// is for paths that are too long without it. Empty if the name is not UTF-8.
std::wstring WholePath(const std::string& name) {
  std::error_code error;
  const std::wstring wide = Wide(name);
  const std::wstring path = wide.empty() ? wide : std::filesystem::absolute(wide, error).wstring();
  return path.size() < MAX_PATH ? path : FullPath(name);
}

}  // namespace

// Neither the current folder nor PATH is looked at, where anybody may put a file of that name.
void* OpenModule(const std::string& path) {
  const bool has_folder = HasFolder(path);
  const std::wstring file = has_folder ? WholePath(path) : Wide(path);
  if (file.empty()) return nullptr;
  const NoErrorBoxes quiet;
  return LoadLibraryExW(
      file.c_str(), nullptr,
      LOAD_LIBRARY_SEARCH_DEFAULT_DIRS | (has_folder ? LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR : 0));
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
