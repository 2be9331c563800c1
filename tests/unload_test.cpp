// The libraries can be unloaded and loaded again: nothing pins them, and nothing of their state stays.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <link.h>

#include <memory>
#include <set>
#include <string>

namespace {

struct Close {
  void operator()(void* library) const { dlclose(library); }
};
using Library = std::unique_ptr<void, Close>;

Library load(const char* path) {
  Library library(dlopen(path, RTLD_NOW | RTLD_LOCAL));
  if (!library) ADD_FAILURE() << dlerror();
  return library;
}

template <class Function>
Function* entry(const Library& library, const char* name) {
  return reinterpret_cast<Function*>(library ? dlsym(library.get(), name) : nullptr);
}

/// The files of all libraries in this process.
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

TEST(Unload, LibraryGoesAndComesAgain) {
  for (int round = 0; round < 3; ++round) {
    {
      const Library library = load(LIBRARY_PATH);
      auto* const set_page = entry<int(int)>(library, "rytree_set_default_code_page");
      ASSERT_NE(set_page, nullptr);
      EXPECT_NE(set_page(65001), 0);
      EXPECT_EQ(set_page(1), 0);
    }
    EXPECT_EQ(dlopen(LIBRARY_PATH, RTLD_NOW | RTLD_NOLOAD), nullptr) << "round " << round;
  }
}

TEST(Unload, CallerTakesLibraryHostAndStateAlong) {
  const std::set<std::string> before = loaded();
  for (int round = 0; round < 3; ++round) {
    {
      const Library module = load(MODULE_PATH);
      auto* const use_library = entry<int()>(module, "use_library");
      ASSERT_NE(use_library, nullptr);
      EXPECT_EQ(use_library(), 0) << "round " << round;
      EXPECT_EQ(use_library(), 1) << "round " << round;
    }
    EXPECT_EQ(loaded(), before) << "round " << round;
  }
}

}  // namespace
