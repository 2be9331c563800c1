#include "platform/modules.h"

#include <dlfcn.h>

namespace platform {

const std::string_view kModuleEnding = ".so";

void* OpenModule(const std::string& path) { return dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL); }

bool CloseModule(void* module) { return dlclose(module) == 0; }

ModuleEntry FindEntry(void* module, const char* name) {
  return reinterpret_cast<ModuleEntry>(dlsym(module, name));
}

bool HasFolder(std::string_view name) { return name.find('/') != std::string_view::npos; }

std::string OwnFolder() {
  Dl_info info{};
  if (!dladdr(reinterpret_cast<const void*>(&OwnFolder), &info) || !info.dli_fname) return {};
  const std::string_view file = info.dli_fname;
  return std::string(file.substr(0, file.rfind('/') + 1));
}

}  // namespace platform
