#include "rytree_host/modules.h"

#include <string>
#include <string_view>

#include "platform/modules.h"
#include "rytree_host/multibyte.h"

namespace {

std::string LocalName(std::string_view name) {
  constexpr std::string_view kEnding = ".dll";
  const std::size_t stem = name.size() > kEnding.size() ? name.size() - kEnding.size() : name.size();
  // The view runs to the end of a C string, and so does each of its tails.
  if (_mbsicmp(name.data() + stem, kEnding.data()) == 0) name.remove_suffix(kEnding.size());
  return std::string(name).append(platform::kModuleEnding);
}

}  // namespace

namespace rytree_host {

HMODULE LoadLibraryA(const char* name) {
  if (!name || !*name) return nullptr;
  if (platform::HasFolder(name)) return platform::OpenModule(name);
  const std::string file = LocalName(name);
  const std::string folder = platform::OwnFolder();
  if (!folder.empty()) {
    if (HMODULE module = platform::OpenModule(folder + file)) return module;
  }
  return platform::OpenModule(file);
}

FARPROC GetProcAddress(HMODULE module, const char* name) {
  return module && name ? platform::FindEntry(module, name) : nullptr;
}

int FreeLibrary(HMODULE module) { return module && platform::CloseModule(module); }

}  // namespace rytree_host
