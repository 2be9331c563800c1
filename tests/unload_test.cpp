// The libraries can be unloaded and loaded again: nothing pins them, and none of their state stays.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <link.h>

#include <set>
#include <string>

namespace {

// The files of all libraries in this process.
std::set<std::string> loaded() {
  std::set<std::string> names;
  dl_iterate_phdr(
      [](dl_phdr_info* info, std::size_t, void* set) {
        static_cast<std::set<std::string>*>(set)->insert(info->dlpi_name);
        return 0;
      },
      &names);
  return names;
}

TEST(Unload, TakesLibraryHostAndStateAlong) {
  const std::set<std::string> before = loaded();
  for (int round = 0; round < 3; ++round) {
    void* const module = dlopen(MODULE_PATH, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(module, nullptr) << dlerror();
    const auto use_library = reinterpret_cast<int (*)()>(dlsym(module, "use_library"));
    ASSERT_NE(use_library, nullptr);
    EXPECT_EQ(use_library(), 0) << "round " << round;
    EXPECT_EQ(use_library(), 1) << "round " << round;
    EXPECT_TRUE(loaded().contains(LOCALIZATION_PATH));
    dlclose(module);
    EXPECT_EQ(loaded(), before) << "round " << round;
  }
}

}  // namespace
