#include "system/modules.h"

#include <dlfcn.h>
#include <link.h>

std::set<std::string> loaded_modules() {
  std::set<std::string> names;
  dl_iterate_phdr(
      [](dl_phdr_info* info, std::size_t, void* set) {
        static_cast<std::set<std::string>*>(set)->insert(info->dlpi_name);
        return 0;
      },
      &names);
  return names;
}

bool is_loaded(const std::string& path) {
  void* const module = dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD);
  return module != nullptr && dlclose(module) == 0;
}

// RTLD_NEXT gives what comes after the file of this function, which is the test program.
void* replaced_function(const std::string& /*library*/, const char* symbol) {
  return dlsym(RTLD_NEXT, symbol);
}
