#include <string>

#include "run_program.h"

namespace {

using TransferTool = ProgramTest;

TEST_F(TransferTool, ValuesThemeMarksAndReport) {
  write("source.xml",
        R"(<S><A DataID="1">für 日本</A>
<B DataID="2" Use="1"><C DataID="3" Auto="1|Auto|1" DynaUseChck="0">7</C></B>
<D DataID="1">no</D><E RepeatID="128"><F DataID="4">abcdefghijklmnopqrstuvwxyz</F><G DataID="5"/></E>
<H Name="n" Label="l">h</H><I DataID="9">9</I><J DataID="10">j\&#9;</J><L DataID="9x">b</L><M RepeatID="-3" DataID="-2"/></S>)");
  write("target.xml", R"(<T><A1 DataID="1" OldValue="o">alt</A1><X DataID="2"><C DataID="3" Auto="0">6</C></X>
<Y DataID="6" OldValue="o">y</Y><Z RepeatID="128"><F DataID="4">空</F><F DataID="5">a&#10;b</F></Z>
<K DataID="9" ThemeApplicability="65536">k</K></T>)");
  ASSERT_EQ(run("source.xml target.xml result.xml --report r.tsv"), 0) << err;
  EXPECT_EQ(err, "");
  EXPECT_EQ(out, R"(source    source.xml: 13 nodes, 8 values harvested
target    target.xml: 9 nodes, 6 of them with a value in the source
changed   4 texts (marked with OldValue), 3 attributes (never marked)
  node               ID              old value  new value
  T.A1               1               alt        für 日本
  T.X@Use            2               (none)     1
  T.X.C              3               6          7
  T.X.C@Auto         3               0          1|Auto|1
  T.X.C@DynaUseChck  3               (none)     0
  T.Z.F              4 (repeat 128)  空         abcdefghijklmnopqrstuvwxyz
  T.Z.F              5 (repeat 128)  a\nb       (empty)
kept      1 value of the target, by its theme rules
  T.K  9  k  9  ThemeApplicability
no node   1 ID of the source
  S.J  10  j\\t
no value  1 node of the target with an ID
  T.Y  6  y
duplicate 1 value left out, as the ID came before
  S.D  1  no  the first value of this ID is used
no ID     1 value of source.xml without an ID in DataID, not carried
  S.H  h
bad ID    2 IDs of no use in source.xml
  S.L  9x  b        source.xml: not a number from 0 to 2147483647
  S.M  -2  (empty)  source.xml: not a number from 0 to 2147483647
theme     result.theme.xml: 8 values, read back and equal
result    result.xml
report    r.tsv
)");
  EXPECT_EQ(content(work / "r.tsv"),
            "status\tID\tnode\told value\tnew value\tnote\n"
            "applied\t1\tT.A1\talt\tfür 日本\t\n"
            "applied\t2\tT.X@Use\t\t1\t\n"
            "applied\t3\tT.X.C\t6\t7\t\n"
            "applied\t3\tT.X.C@Auto\t0\t1|Auto|1\t\n"
            "applied\t3\tT.X.C@DynaUseChck\t\t0\t\n"
            "no-value\t6\tT.Y\ty\ty\t\n"
            "applied\t4 (repeat 128)\tT.Z.F\t空\tabcdefghijklmnopqrstuvwxyz\t\n"
            "applied\t5 (repeat 128)\tT.Z.F\ta\\nb\t\t\n"
            "kept\t9\tT.K\tk\t9\tThemeApplicability\n"
            "duplicate\t1\tS.D\t\tno\tthe first value of this ID is used\n"
            "no-node\t10\tS.J\t\tj\\\\\\t\t\n"
            "no-id\t\tS.H\t\th\t\n"
            "bad-id\t9x\tS.L\t\tb\tsource.xml: not a number from 0 to 2147483647\n"
            "bad-id\t-2\tS.M\t\t\tsource.xml: not a number from 0 to 2147483647\n");
  EXPECT_EQ(tree("result.xml") + '\n' + tree("result.theme.xml"),
            R"(<T><A1 DataID="1" OldValue="alt">für 日本</A1><X DataID="2" Use="1"><C DataID="3" )"
            R"(Auto="1|Auto|1" DynaUseChck="0" OldValue="6">7</C></X><Y DataID="6">y</Y>)"
            R"(<Z RepeatID="128"><F DataID="4" OldValue="空">abcdefghijklmnopqrstuvwxyz</F>)"
            R"(<F DataID="5" OldValue="a&#10;b"/></Z><K DataID="9" ThemeApplicability="65536">k</K></T>
<Settings _NodeID="0" Comment="Values of source.xml">Settings<node1>für 日本</node1><node2>1</node2>)"
            R"(<node3>::{Auto=1|Auto|1}::{DynaUseChck=0}7</node3><node1>no</node1>)"
            R"(<node8388612>abcdefghijklmnopqrstuvwxyz</node8388612><node8388613/><node9>9</node9>)"
            "<node10>j\\\t</node10></Settings>");
}

TEST_F(TransferTool, Options) {
  write("s.xml", "<S><A Id='1' DataID='2' n='x y'>new</A><B n='7'>b</B><B n=''>c</B></S>");
  write("t.xml", "<T><A Id='2' n='x y'>b</A><C><A Id='1' n='7'>a</A><A n='7' OldValue='o'>d</A></C></T>");
  for (const auto& [arguments, printed, result] : rows<3>(R"(
      --id-attribute Id s.xml t.xml r.xml | changed   1 text (marked with OldValue), 0 attributes | \
          <T><A Id="2" n="x y">b</A><C><A Id="1" n="7" OldValue="a">new</A><A n="7">d</A></C></T>
      --id-attribute Id --no-marks s.xml t.xml r.xml | changed   1 text, 0 attributes | \
          <T><A Id="2" n="x y">b</A><C><A Id="1" n="7">new</A><A n="7" OldValue="o">d</A></C></T>
      --id-attribute n s.xml t.xml r.xml | warning   1 ID is that of several nodes, which all get its value: 7 | \
          <T><A Id="2" n="x y" OldValue="b">new</A>\
          <C><A Id="1" n="7" OldValue="a">b</A><A n="7" OldValue="d">b</A></C></T>
      s.xml t.xml --id-attribute Id t.xml folder/theme.xml | theme     folder/theme.xml: 1 value, read back | -
      --allow-no-match s.xml s.xml r.xml | result    r.xml | -)")) {
    EXPECT_EQ(run(arguments), 0) << arguments << err;
    EXPECT_NE(out.find('\n' + printed), std::string::npos) << out;
    EXPECT_TRUE(result == "-" || tree("r.xml") == result) << arguments << tree("r.xml");
  }
  EXPECT_EQ(tree("t.xml"),
            R"(<T><A Id="2" n="x y">b</A><C><A Id="1" n="7" OldValue="a">new</A><A n="7">d</A></C></T>)");
  EXPECT_NE(tree("folder/theme.xml").find("<node1>new</node1>"), std::string::npos);
  ASSERT_EQ(run("--id-attribute n --report - s.xml t.xml r.xml"), 0) << err;
  EXPECT_NE(out.find("\napplied\t7\tT.C.A\tnew\tb\tseveral nodes have this ID\n"), std::string::npos) << out;
}

TEST_F(TransferTool, ThreeWays) {
  const auto leaves = [](const char* values) {
    std::string xml;
    for (int id = 1; const char value : std::string(values))
      xml += "<V DataID='" + std::to_string(id++) + "'>" + value + "</V>";
    return "<T>" + xml + "</T>";
  };
  write("base.xml", leaves("aaaaa"));
  write("empty.xml", "<T><V DataID='2'/></T>");
  write("w.xml", "<T><V DataID='3'>c</V></T>");
  write("s.xml", leaves("abbbac"));
  write("t.xml", leaves("bacbx"));
  write("u.xml", leaves("ab"));
  write("v.xml", "<T><V DataID='1'>a</V><V DataID='2'>a</V><V DataID='2'>c</V><V DataID='4'>a</V></T>");
  for (const auto& [arguments, status, values, conflicts] : rows<4>(R"(
      t.xml r.xml | 0 | bbbbx |   T.V  3  c  b  old default a; mine taken
      t.xml r.xml | 0 | bbbbx | changed   2 texts (marked with OldValue)
      t.xml r.xml --prefer mine --no-marks | 0 | bbbbx | 1 value changed by both sides, mine taken
      t.xml r.xml --prefer new --report - | 0 | bbcbx | old default a; new taken
      w.xml r.xml --prefer new | 0 | c | w.xml: 2 nodes, 1 of them with a value in the source
      t.xml r.xml --strict | 3 | - | 1 value changed by both sides, mine taken
      v.xml r.xml --prefer new | 0 | aacb | 2 values changed by both sides, the new one taken
      u.xml r.xml --report - | 0 | ab | no node of the target has this ID)")) {
    EXPECT_EQ(run("--base base.xml s.xml " + arguments), std::stoi(status)) << arguments << err;
    EXPECT_NE(out.find(conflicts), std::string::npos) << arguments << out;
    if (status != "0") continue;
    std::string found;
    const std::string xml = tree("r.xml");
    for (std::size_t at = 0; (at = xml.find("</V>", at + 1)) != std::string::npos;) found += xml[at - 1];
    EXPECT_EQ(found, values) << arguments;
  }
  EXPECT_EQ(run("--base empty.xml s.xml v.xml --dry-run --report -"), 0);
  const std::string conflict = "old default (empty); mine";
  const std::size_t first = out.find(conflict), second = out.find(conflict, first + 1);
  EXPECT_EQ(out.find(conflict, second + 1), std::string::npos);
  EXPECT_NE(second, std::string::npos) << out;
  EXPECT_EQ(run("--base s.xml s.xml t.xml all.xml"), 0) << err;
  EXPECT_EQ(tree("all.xml"), tree("t.xml"));
}

TEST_F(TransferTool, TellsOfTextsThatAreNotTaken) {
  write("s.xml", R"(<S>r<A DataID="1" Use="u">a<B/></A><C DataID="2">same<B/></C>
<D ThemeApplicability="1048576"><E DataID="3">e</E><F/></D><G DataID="4">g<B>b</B></G><H DataID="5"/></S>)");
  write(
      "t.xml",
      R"(<T><A DataID="1">a</A><C DataID="2">same<B/></C><E DataID="3">x</E><H DataID="5" ThemeApplicability="1048576" Data="d"><B/></H></T>)");
  ASSERT_EQ(run("s.xml t.xml r.xml --report r.html"), 0) << err;
  EXPECT_NE(out.find(R"(
not taken 4 texts of s.xml beside children, or without effect
  T.E  3  x       e        inside a branch that is one value
  T.H  5  d       (empty)  an empty value does not replace Data
  S       (none)  r        text of the root
  S.G  4  (none)  g        text beside children
no ID )"),
            std::string::npos)
      << out;
  EXPECT_NE(content(work / "r.html").find("of the source: e, inside a branch"), std::string::npos);
  EXPECT_EQ(run("s.xml t.xml --dry-run --strict"), 3);
  EXPECT_NE(err.find("--strict: 4 texts of s.xml not taken: 3, 5, S, 4; 1 value"), std::string::npos) << err;
}

TEST_F(TransferTool, PageHoldsItAllAndNothingFromElsewhere) {
  write("s.xml", "<S><A DataID='1'>&lt;new>&amp;&#x7f;</A><B DataID='2'>b</B></S>");
  write("t.xml", "<T><X><Y Label='&quot;'><A DataID='1'>old</A></Y><Z><A DataID='3'/></Z></X><W>w</W></T>");
  ASSERT_EQ(run("s.xml t.xml r.xml --report r.html"), 0) << err;
  const std::string page = content(work / "r.html");
  for (const char* const part :
       {"<title>s.xml → t.xml</title>", "<button aria-pressed=false data-s=applied><b>1</b> applied</button>",
        "<details class=n open><summary><span class=tag>Y</span> <span class=note>&quot;</span></summary>\n"
        "<div class=\"n line\" data-s=\"applied\"><span class=tag>A</span> <span class=id>1</span> "
        "<del>old</del> → <ins>&lt;new&gt;&amp;\\x7F</ins></div>\n</details>\n"
        "<details class=n><summary><span class=tag>Z</span></summary>\n",
        "<div class=\"n line\" data-s=no-node><span class=path>S.B</span> <span class=id>2</span> "
        "<span class=value>b</span></div>\n"})
    EXPECT_NE(page.find(part), std::string::npos) << part << page;
  EXPECT_EQ(page.find("://"), std::string::npos);
  std::string many;
  for (int i = 0; i < 20000; ++i) many += "<W>x</W>";
  write("big.xml", "<T><A DataID='1'/>" + many + "</T>");
  ASSERT_EQ(run("s.xml big.xml r.xml --report r.html"), 0) << err;
  EXPECT_NE(content(work / "r.html").find("<div class=\"line note\">… 20000 nodes not shown</div>"),
            std::string::npos);
}

TEST_F(TransferTool, FailuresChangeNoFile) {
  write("good.xml", "<S><A DataID='1'>new</A></S>");
  write("target.xml", "<S><A DataID='1'>old</A></S>");
  write("none.xml", "<S><A/></S>");
  write("open.xml", "<S><A>");
  write("conflict.xml", "<S><A DataID='1'/><B RepeatID='3'><C Label='c&#10;d' RepeatID='1'/></B></S>");
  write("theme.xml", "old theme");
  write("base.xml", "<S/>");
  for (const auto& [arguments, reason] : rows<2>(R"(
       | SOURCE, TARGET and RESULT are needed, try --help
      --id-attribute | --id-attribute needs a NAME
      good.xml target.xml r.xml t.xml more | unexpected argument 'more', try --help
      lost.xml target.xml r.xml | lost.xml: cannot read: No such file or directory
      none.xml target.xml r.xml | \
          none.xml: no value to take: below the root no leaf has an int attribute 'DataID', \
          nor has a branch with Use or Data (--id-attribute NAME takes another)
      good.xml conflict.xml r.xml | \
          conflict.xml: Repeat ID conflict for Node with Name = C, Label = c\nd, Repeat ID = 3
      good.xml target.xml r.xml folder/../good.xml | folder/../good.xml: THEME would overwrite good.xml
      good.xml target.xml ./base.xml --base base.xml | ./base.xml: RESULT would overwrite base.xml
      good.xml target.xml ./r.xml r.xml | r.xml: THEME would overwrite ./r.xml
      good.xml target.xml r.xml folder | folder: cannot write: Is a directory
      good.xml target.xml r.xml --prefer new | --prefer goes with --base
      good.xml target.xml r.xml --base good.xml --prefer old | --prefer is mine or new, not 'old'
      good.xml target.xml r.xml --base=good.xml --base=none.xml | --base is given twice
      good.xml target.xml r.xml --strict=yes | --strict takes no value
      good.xml target.xml r.xml --strict --allow-no-match | --strict and --allow-no-match exclude each other
      good.xml target.xml --dry-run --allow-loss | --allow-loss goes with a RESULT
      open.xml target.xml r.xml | \
          open.xml:1:7: the file ends too early: there is no element, or one is not closed
      - good.xml r.xml --base /dev/stdin | only one file can be standard input
      good.xml target.xml - - | only one file can be standard output
      good.xml target.xml r.xml --report ./target.xml | ./target.xml: --report would overwrite target.xml
      good.xml target.xml r.xml --report lost/r.tsv | lost/r.tsv: cannot write: No such file or directory
      good.xml target.xml r.xml lost/t.xml | lost/t.xml: cannot write: No such file or directory
      good.xml target.xml --dry-run --id-attribute _NodeID | _NodeID is the node ID, which is not an attribute
      good.xml target.xml lost/r.xml | lost/r.xml: cannot write: No such file or directory)")) {
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
  expect_refused("s.xml t.xml s.xml --dry-run", 2, s + all_the_same);
  EXPECT_EQ(run("s.xml t.xml r.xml"), 0);
  EXPECT_EQ(err, "rytree-transfer: " + t + '\n');
  write("u.xml", "<U><!-- c --></U>");
  EXPECT_EQ(run("s.xml u.xml r.xml"), 3);
  EXPECT_EQ(err.find("not kept"), std::string::npos) << err;
  EXPECT_EQ(run("--allow-loss s.xml t.xml s.xml"), 0);
  EXPECT_EQ(err, "rytree-transfer: " + s + "\nrytree-transfer: " + t + '\n');
  EXPECT_EQ(tree("s.xml"), "<T><A DataID=\"1\" Use=\"new\">oldx<B/></A></T>");
}

TEST_F(TransferTool, ExampleDataAndHelp) {
  const std::string data = std::filesystem::absolute(DATA_PATH).string();
  ASSERT_EQ(run("'" + data + "/settings_v1.xml' '" + data + "/settings_v2.xml' r.xml"), 0) << err;
  EXPECT_NE(out.find("\nchanged   118 texts (marked with OldValue), 23 attributes (never marked)\n"),
            std::string::npos)
      << out;
  ASSERT_EQ(run("--help"), 0);
  EXPECT_EQ(out.rfind("rytree-transfer ", 0), 0U);
  ASSERT_EQ(run("--version"), 0);
  EXPECT_EQ(out.rfind("rytree-transfer (rytree_Utils) ", 0), 0U);
}

}  // namespace
