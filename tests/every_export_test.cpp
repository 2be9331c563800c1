#include "every_export.h"

#include <algorithm>
#include <fstream>

namespace {

TEST(EveryExport, HasACallThatWorks) {
  std::vector<std::string> listed, called;
  std::ifstream list(EXPORTS_PATH);
  for (std::string line; std::getline(list, line);) listed.push_back(line);
  for (const ExportCall& row : every_export::table()) {
    SCOPED_TRACE(row.name);
    called.emplace_back(row.name);
    const std::string shown = run(row);
    EXPECT_EQ(shown.substr(0, shown.find('\n')), std::to_string(row.expected));
  }
  std::sort(called.begin(), called.end());
  std::sort(listed.begin(), listed.end());
  EXPECT_EQ(called, listed);
}

}  // namespace
