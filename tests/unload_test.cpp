// The libraries can be unloaded and loaded again: nothing pins them, and none of their state stays.
#include <gtest/gtest.h>

#include "platform/modules.h"
#include "system/modules.h"

namespace {

TEST(Unload, TakesLibraryHostAndStateAlong) {
  const std::set<std::string> before = loaded_modules();
  for (int round = 0; round < 3; ++round) {
    void* const module = platform::OpenModule(MODULE_PATH);
    ASSERT_NE(module, nullptr);
    const auto use_library = reinterpret_cast<int (*)()>(platform::FindEntry(module, "use_library"));
    ASSERT_NE(use_library, nullptr);
    EXPECT_EQ(use_library(), 0) << "round " << round;
    EXPECT_EQ(use_library(), 1) << "round " << round;
    EXPECT_TRUE(is_loaded(LOCALIZATION_PATH));
    platform::CloseModule(module);
    EXPECT_EQ(loaded_modules(), before) << "round " << round;
  }
}

}  // namespace
