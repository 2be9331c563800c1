#include "rytree_host/modules.h"

#include <dlfcn.h>

#include <string>
#include <string_view>

#include "rytree_host/multibyte.h"

namespace {

HMODULE Open(const std::string& path) { return dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL); }

std::string LocalName(std::string_view name) {
  constexpr std::string_view kEnding = ".dll";
  const std::size_t stem = name.size() > kEnding.size() ? name.size() - kEnding.size() : name.size();
  // The view runs to the end of a C string, and so does each of its tails.
  if (_mbsicmp(name.data() + stem, kEnding.data()) == 0) name.remove_suffix(kEnding.size());
  return std::string(name) + ".so";
}

// The folder of this library with its closing slash, or nothing.
std::string OwnFolder() {
  Dl_info info{};
  if (!dladdr(reinterpret_cast<const void*>(&LoadLibraryA), &info) || !info.dli_fname) return {};
  const std::string_view file = info.dli_fname;
  return std::string(file.substr(0, file.rfind('/') + 1));
}

}  // namespace

HMODULE LoadLibraryA(const char* name) {
  if (!name || !*name) return nullptr;
  if (std::string_view(name).find('/') != std::string_view::npos) return Open(name);
  const std::string file = LocalName(name);
  const std::string folder = OwnFolder();
  if (!folder.empty()) {
    if (HMODULE module = Open(folder + file)) return module;
  }
  return Open(file);
}

FARPROC GetProcAddress(HMODULE module, const char* name) {
  return module && name ? reinterpret_cast<FARPROC>(dlsym(module, name)) : nullptr;
}

int FreeLibrary(HMODULE module) { return module && dlclose(module) == 0; }
