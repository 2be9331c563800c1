// Localization by modules of this test, each in a process of its own: the host's framework looks for the
// module beside itself, and the process loads the copy of it in the folder of the case. The program is there too, for
// systems where that decides which copy is loaded.
#include "reports/localization.h"

#include <rytree_Utils.h>

#include <cstdlib>
#include <filesystem>

#include "platform/modules.h"
#include "system/modules.h"
#include "system/process.h"
#include "tree_text.h"

namespace {

const std::string kFolder = FOLDER_PATH;

std::string module_of(const std::string& folder) {
  return kFolder + "/" + folder + "/ZANmsg" + std::string(platform::kModuleEnding);
}

/// Runs a check of the current test in a new process that loads the framework from a folder.
void check_in(const std::string& folder, void (*check)()) {
  const char* const checked = std::getenv("CHECKED_FOLDER");
  if (checked != nullptr && checked == folder) return check();  // this is that process
  set_environment("CHECKED_FOLDER", folder);
  set_environment("LD_LIBRARY_PATH", kFolder + "/" + folder);
  const std::string test = testing::UnitTest::GetInstance()->current_test_info()->name();
  EXPECT_EQ(run_program({kFolder + "/" + folder + "/" PROGRAM_NAME, {"--gtest_filter=*." + test}, kFolder}),
            0);
  set_environment("CHECKED_FOLDER", "");
}

TEST(Localization, FlagBlocksIt) {
  bool value = true;
  EXPECT_FALSE(VCTreeAccessBlockLocalization(&value, true));
  EXPECT_FALSE(value);
  value = true;
  EXPECT_TRUE(VCTreeAccessBlockLocalization(&value, false));
  value = false;
  EXPECT_TRUE(VCTreeAccessBlockLocalization(nullptr, false));
  EXPECT_TRUE(VCTreeAccessBlockLocalization(&value, true));
  EXPECT_TRUE(value);
}

TEST(Localization, ModuleIsKeptUntilTheRelease) {
  check_in("present", [] {
    const std::string data = "Data";
    bool block = true;
    VCTreeAccessBlockLocalization(&block, false);
    EXPECT_EQ(report_localized_text(data.c_str()), data.c_str());
    EXPECT_FALSE(is_loaded(module_of("present")));
    block = false;
    VCTreeAccessBlockLocalization(&block, false);
    EXPECT_STREQ(report_localized_text("Range"), "Range call 1, 32768, 0");
    EXPECT_STREQ(report_localized_text("nothing for this one"), "");
    EXPECT_EQ(report_localized_text("no end").GetLength(), 32767);
    report_release_localization();
    EXPECT_FALSE(is_loaded(module_of("present")));
    RYXmlWrapperBase table = parse("<T/>");
    RYXmlWrapperBase row =
        report_make_input_data_table_var_row(&table, 0, 0, 0, true, "y", 1, 0, 1, 0, 6, nullptr, 0, 0);
    EXPECT_EQ(text(at(row, {0})),
              "<C1 _NodeID=\"114688\" Label=\"Dep/Indep call 1, 32768, 0\">Dep call 2, 32768, 0</C1>");
    EXPECT_EQ(text(at(row, {4})), "<C6 _NodeID=\"131072\" Label=\"a\"/>");
  });
}

TEST(Localization, MissingModuleIsRemembered) {
  check_in("missing", [] {
    const std::filesystem::path late = module_of("missing");
    std::filesystem::remove(late);
    const std::string longest(32767, 'x');
    EXPECT_EQ(report_localized_text((longest + "y").c_str()), longest.c_str());
    std::filesystem::copy_file(module_of("present"), late);
    EXPECT_STREQ(report_localized_text("Data"), "Data");
    report_release_localization();
    EXPECT_STREQ(report_localized_text("Data"), "Data call 1, 32768, 0");
    report_release_localization();
    std::filesystem::remove(late);
  });
}

TEST(Localization, ModuleWithoutEntryIsLetGo) {
  check_in("without_entry", [] {
    EXPECT_STREQ(report_localized_text("Data"), "Data");
    EXPECT_FALSE(is_loaded(module_of("without_entry")));
  });
}

}  // namespace
