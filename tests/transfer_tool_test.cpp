#include <algorithm>
#include <chrono>
#include <string>

#include "run_program.h"

namespace {

using TransferTool = ProgramTest;

TEST_F(TransferTool, ValuesThemeMarksAndReport) {
  write("source.xml",
        R"(<S><A DataID="1">für 日本</A>
<B DataID="2" Use="1"><C DataID="3" Auto="1|Auto|1" DynaUseChck="0">7</C></B>
<D DataID="1">no</D><E RepeatID="128"><F DataID="4">abcdefghijklmnopqrstuvwxyz</F><G DataID="5"/></E>
<H Name="n" Label="l"/><I DataID="9">9</I></S>)");
  write("target.xml", R"(<T><A1 DataID="1" OldValue="o">alt</A1><X DataID="2"><C DataID="3" Auto="0">6</C></X>
<Y DataID="6" OldValue="o">y</Y><Z RepeatID="128"><F DataID="4">空</F><F DataID="5">a&#10;b</F></Z></T>)");
  ASSERT_EQ(run("source.xml target.xml result.xml"), 0) << err;
  EXPECT_EQ(err, "");
  EXPECT_EQ(out, R"(source    source.xml: 9 nodes, 7 values harvested
target    target.xml: 7 nodes, 5 matched
warning   Missing DataID for Node with Name = , Label = 
warning   1 value left out: the ID stood before in the source, and the first one is used
no node   1 ID: 9
changed   4 nodes (marked with OldValue), 3 attributes
  node               old value  new value
  T.A1               alt        für 日本
  T.X@Use            (none)     1
  T.X.C              6          7
  T.X.C@Auto         0          1|Auto|1
  T.X.C@DynaUseChck  (none)     0
  T.Z.F              空         abcdefghijklmnopqrstuvwx…
  T.Z.F              a\nb       (empty)
theme     result.theme.xml: 7 values, read back and equal
result    result.xml
)");
  EXPECT_EQ(
      tree("result.xml") + '\n' + tree("result.theme.xml"),
      R"(<T><A1 DataID="1" OldValue="alt">für 日本</A1><X DataID="2" Use="1"><C DataID="3" )"
      R"(Auto="1|Auto|1" DynaUseChck="0" OldValue="6">7</C></X><Y DataID="6">y</Y>)"
      R"(<Z RepeatID="128"><F DataID="4" OldValue="空">abcdefghijklmnopqrstuvwxyz</F>)"
      R"(<F DataID="5" OldValue="a&#10;b"/></Z></T>
<Settings _NodeID="0" Comment="Values of source.xml">Settings<node1>für 日本</node1><node2>1</node2>)"
      R"(<node3>::{Auto=1|Auto|1}::{DynaUseChck=0}7</node3><node1>no</node1>)"
      R"(<node8388612>abcdefghijklmnopqrstuvwxyz</node8388612><node8388613/><node9>9</node9></Settings>)");
}

TEST_F(TransferTool, OtherIdsOntoTheTargetItself) {
  write("source.xml", "<S><A Id='1' DataID='2'>new</A></S>");
  write("target.xml", "<S><A Id='2'>b</A><A Id='1'>a</A></S>");
  ASSERT_EQ(run("--id-attribute Id source.xml target.xml target.xml folder/theme.xml"), 0) << err;
  EXPECT_EQ(tree("target.xml"), R"(<S><A Id="2">b</A><A Id="1" OldValue="a">new</A></S>)");
  EXPECT_NE(tree("folder/theme.xml").find("<node1>new</node1>"), std::string::npos);
}

TEST_F(TransferTool, FailuresChangeNoFile) {
  write("good.xml", "<S><A DataID='1'>new</A></S>");
  write("target.xml", "<S><A DataID='1'>old</A></S>");
  write("none.xml", "<S><A/></S>");
  write("conflict.xml", "<S><A DataID='1'/><B RepeatID='3'><C Label='c&#10;d' RepeatID='1'/></B></S>");
  write("theme.xml", "old theme");
  for (const auto& [arguments, reason] : rows<2>(R"(
       | SOURCE, TARGET and RESULT are needed, try --help
      --id-attribute | --id-attribute needs a NAME
      good.xml target.xml r.xml t.xml more | unexpected argument 'more', try --help
      lost.xml target.xml r.xml | lost.xml: cannot read: No such file or directory
      none.xml target.xml r.xml | \
          none.xml: no value to take, as no node has an int attribute 'DataID' \
          (--id-attribute NAME takes another)
      good.xml conflict.xml r.xml | \
          conflict.xml: Repeat ID conflict for Node with Name = C, Label = c\nd, Repeat ID = 3
      good.xml target.xml r.xml folder/../good.xml | folder/../good.xml: THEME would overwrite good.xml
      good.xml target.xml ./r.xml r.xml | r.xml: THEME would overwrite ./r.xml
      good.xml target.xml r.xml folder | folder: not a regular file
      good.xml target.xml r.xml lost/t.xml | lost/t.xml: cannot write: No such file or directory
      good.xml target.xml lost/r.xml theme.xml | lost/r.xml: cannot write: No such file or directory)")) {
    expect_refused(arguments, 2, reason);
  }
}

TEST_F(TransferTool, TellsWhatIsNotKept) {
  write("s.xml", "<S><A DataID='1'>new</A><!-- c --></S>");
  write("t.xml", "<!DOCTYPE T [<!ENTITY e 'old'>]><T><?p?><A DataID='1'>&e;<B/>x</A></T>");
  const std::string t =
      "t.xml: 1 processing instruction, the DOCTYPE, 1 entity declaration and the place of text among the "
      "children of 1 node are not kept";
  const std::string s = "s.xml: 1 comment is not kept";
  const std::string all_the_same = "; --allow-loss writes over it all the same";
  expect_refused("s.xml t.xml ./t.xml", 2, t + all_the_same);
  expect_refused("s.xml t.xml s.xml", 2, s + all_the_same);
  EXPECT_EQ(run("s.xml t.xml r.xml"), 0);
  EXPECT_EQ(err, "rytree-transfer: " + t + '\n');
  EXPECT_EQ(run("--allow-loss s.xml t.xml s.xml"), 0);
  EXPECT_EQ(err, "rytree-transfer: " + s + "\nrytree-transfer: " + t + '\n');
  EXPECT_EQ(tree("s.xml"), "<T><A DataID=\"1\" Use=\"new\">oldx<B/></A></T>");
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
    shell("timeout -s " + std::string(i % 2 == 0 ? "INT " : "TERM ") + moment +
          " \"$PROGRAM\" s.xml t.xml r.xml");
    const auto now = files();
    EXPECT_TRUE(now == before || now == after) << moment << ' ' << now.size();
  }
}

TEST_F(TransferTool, ReportOnTheExampleDataFitsAScreen) {
  ASSERT_EQ(run("'" DATA_PATH "/settings_v1.xml' '" DATA_PATH "/settings_v2.xml' r.xml"), 0) << err;
  EXPECT_NE(out.find("\nchanged   118 nodes (marked with OldValue), 23 attributes\n"), std::string::npos)
      << out;
  EXPECT_NE(out.find("\n  … and 121 more\n"), std::string::npos) << out;
  EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 29);
  ASSERT_EQ(run("--help"), 0);
  EXPECT_EQ(out.rfind("rytree-transfer ", 0), 0U);
  expect_man_page();
  ASSERT_EQ(run("--version"), 0);
  EXPECT_EQ(out.rfind("rytree-transfer (rytree_Utils) ", 0), 0U);
}

}  // namespace
