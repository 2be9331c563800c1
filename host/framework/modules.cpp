#include "rytree_host/modules.h"

#include <dlfcn.h>

#include <string>
#include <string_view>

#include "rytree_host/multibyte.h"

namespace {

HMODULE open(const std::string& path) { return dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL); }

std::string local_name(std::string_view name) {
  constexpr std::string_view ending = ".dll";
  const std::size_t stem = name.size() > ending.size() ? name.size() - ending.size() : name.size();
  // The view runs to the end of a C string, and so does each of its tails.
  if (_mbsicmp(name.data() + stem, ending.data()) == 0) name.remove_suffix(ending.size());
  return std::string(name) + ".so";
}

/// The folder of this library with its closing slash, or nothing.
std::string own_folder() {
  Dl_info info{};
  if (!dladdr(reinterpret_cast<const void*>(&LoadLibraryA), &info) || !info.dli_fname) return {};
  const std::string_view file = info.dli_fname;
  return std::string(file.substr(0, file.rfind('/') + 1));
}

}  // namespace

HMODULE LoadLibraryA(const char* name) {
  if (!name || !*name) return nullptr;
  if (std::string_view(name).find('/') != std::string_view::npos) return open(name);
  const std::string file = local_name(name);
  const std::string folder = own_folder();
  if (!folder.empty()) {
    if (HMODULE module = open(folder + file)) return module;
  }
  return open(file);
}

FARPROC GetProcAddress(HMODULE module, const char* name) {
  return module && name ? reinterpret_cast<FARPROC>(dlsym(module, name)) : nullptr;
}

int FreeLibrary(HMODULE module) { return module && dlclose(module) == 0; }
