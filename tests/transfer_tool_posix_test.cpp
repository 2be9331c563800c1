// What the tool does with streams, signals and a terminal.
#include <algorithm>
#include <chrono>
#include <string>

#include "shell_test.h"

namespace {

using TransferTool = ShellTest;

TEST_F(TransferTool, StreamsAndTreesThatDoNotFit) {
  write("s.xml", "<S><A DataID='1'>new</A><B DataID='2'>b</B><B DataID='2'>c</B></S>");
  write("t.xml", "<T><A DataID='1'>old</A></T>");
  write("u.xml", "<T><A DataID='3'>old</A></T>");
  const auto before = files();
  const char* const value = R"(<A DataID="1" OldValue="old">new</A>)";
  const Rows<const char*, int, const char*, const char*> rows = {
      {"P - t.xml - <s.xml", 0, value, "result    standard output\n"},
      {"cat t.xml | P s.xml /dev/stdin /dev/stdout", 0, value, ""},
      {"echo kept >h; P s.xml t.xml /dev/fd/1 >>h; head -n 1 h; rm h", 0, "kept\n", ""},
      {"mkfifo f g; (cat s.xml >f & cat g & P f t.xml g >h; wait; rm f g h)", 0, value, ""},
      {"echo '<S' | P - t.xml -", 2, "", "standard input:1:1: unclosed token\n"},
      {"P s.xml t.xml - theme.xml >/dev/full", 2, "",
       "standard output: cannot write: No space left on device\n"},
      {"ln -s new l; P s.xml t.xml r.xml l && test -L l -a -s new; s=$?; rm l new r.xml; (exit $s)", 0, "",
       ""},
      {"P s.xml t.xml r.xml /dev/full", 2, "", "/dev/full: cannot write: No space left on device\n"},
      {"mkfifo f; timeout -s INT 0.3 $PROGRAM s.xml t.xml f theme.xml --report r.tsv; s=$?; rm f; (exit $s)",
       124, "", ""},
      {"P s.xml u.xml r.xml --report=/dev/full", 3, "result    not written\n",
       "/dev/full: cannot write: No space"},
      {"P s.xml t.xml r.xml --report /dev/full; s=$?; rm r.*; (exit $s)", 1, "",
       "/dev/full: cannot write: No space"},
      {"P s.xml t.xml r.xml >/dev/full; s=$?; rm r.*; (exit $s)", 1, "", "cannot write to standard output\n"},
      {"P s.xml t.xml --dry-run >/dev/full", 2, "", "cannot write to standard output\n"},
      {"P s.xml t.xml --dry-run", 0, "result    not written (--dry-run)\n", ""},
      {"P s.xml t.xml r.xml --strict", 3, "result    not written\n",
       "--strict: 1 ID of s.xml without a node in t.xml: 2; 1 value of s.xml with an ID that came before: "
       "2\n"},
      {"echo '<S>x<A DataID=\"1\"/><A/><C DataID=\"\">c</C><E RepeatID=\"x\">e</E></S>' | P - t.xml --strict "
       "--dry-run",
       3, "",
       "--strict: 1 text of standard input not taken: S; 1 value of standard input without an ID: S.E; 2 IDs "
       "of no use in standard input: S.C, "
       "S.E\n"},
      {"P s.xml u.xml r.xml", 3, "",
       "u.xml: no node has the ID of a value of s.xml (--allow-no-match takes that)\n"}};
  for (const auto& [command, status, printed, told] : rows) {
    EXPECT_EQ(shell(std::string("P() { \"$PROGRAM\" \"$@\"; }; ") + command), status) << command << err;
    EXPECT_NE(out.find(printed), std::string::npos) << command << out;
    EXPECT_NE(err.find(told), std::string::npos) << command << err;
    EXPECT_EQ(files(), before) << command;
  }
}

TEST_F(TransferTool, InterruptionsLeaveBothFilesOrNeither) {
  std::string items;
  for (int i = 0; i < 5000; ++i) items += "<A DataID='" + std::to_string(i) + "'>a value of the node</A>";
  write("s.xml", "<S>" + items + "</S>");
  write("t.xml", "<T>" + items + "</T>");
  const auto before = files();
  const auto start = std::chrono::steady_clock::now();
  ASSERT_EQ(run("s.xml t.xml r.xml"), 0) << err;
  const std::chrono::duration<double> whole = std::chrono::steady_clock::now() - start;
  const auto after = files();
  for (int i = 1; i <= 20; ++i) {
    shell("rm -f r.xml r.theme.xml");
    const std::string moment = std::to_string(whole.count() * i / 20);
    const int status = shell("timeout --preserve-status -s " + std::string(i % 2 == 0 ? "INT " : "TERM ") +
                             moment + " \"$PROGRAM\" s.xml t.xml r.xml");
    EXPECT_EQ(files(), status <= 1 ? after : before) << moment << ' ' << status;
  }
}

TEST_F(TransferTool, ReportOnTheExampleDataFitsAScreen) {
  expect_man_page();
  ASSERT_EQ(run("'" DATA_PATH "/settings_v1.xml' '" DATA_PATH "/settings_v2.xml' r.xml"), 0) << err;
  const std::string whole = out;
  if (shell("script -qec true /dev/null </dev/null") != 0)
    GTEST_SKIP() << "no terminal to be had here: " << err;
  const std::string start = "script -qec \"stty cols 90 rows 40; TERM=dumb '$PROGRAM' '" DATA_PATH
                            "/settings_v1.xml' '" DATA_PATH "/settings_v2.xml' r.xml";
  shell(start + "\" /dev/null </dev/null | tr -d '\\r'");
  EXPECT_NE(out.find("\n  … and 116 more\n"), std::string::npos) << out;
  EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 37);
  shell(start + " --all\" /dev/null </dev/null | tr -d '\\r'");
  EXPECT_EQ(out, whole);
}

}  // namespace
