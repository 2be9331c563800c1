#include <string>

#include "run_program.h"

namespace {

constexpr const char* kTree =
    R"(<Root><Plot Label="図 one" DataID="1"><Axis Order="3" Kind="x">12.5</Axis><Axis Order="1" Kind="y">für</Axis>)"
    R"(<Title Label=""/></Plot><Set DataID="1" Name="Alpha"><Item7/><item3>b</item3><Item>a
b</Item>)"
    R"(<Text DataID="5" Kind="x">Red</Text></Set><Empty><E/></Empty></Root>)";

class TreeTool : public ProgramTest {
 protected:
  TreeTool() { write("t.xml", kTree); }
};

TEST_F(TreeTool, looks) {
  const Rows<const char*, const char*> rows = {
      {"show t.xml", R"(row  level  node       label   value
  1      0  Root
  2      1    Plot     図 one
  3      2      Axis           12.5
  4      2      Axis           für
  5      2      Title
  6      1    Set
  7      2      Item7
  8      2      item3          b
  9      2      Item           a\nb
 10      2      Text           Red
 11      1    Empty
 12      2      E
)"},
      {"show --branches --level 1 t.xml", R"(row  level  node     label   value
  1      0  Root
  2      1    Plot   図 one
  3      1    Set
  4      1    Empty
)"},
      {"path t.xml root.set.text", "row    10\nlevel  2\npath   Root.Set.Text\nlabel  Text\nvalue  Red\n"},
      {"path t.xml 1", "row    1\nlevel  0\npath   Root\nlabel  Root\nvalue  \n"},
      {"path t.xml 2", "row    2\nlevel  1\npath   Root.Plot\nlabel  図 one\nvalue  \n"},
      {"find t.xml DataID=1", "2  Root.Plot  図 one\n6  Root.Set\n"},
      {"find t.xml Kind=x", " 3  Root.Plot.Axis  12.5\n10  Root.Set.Text   Red\n"},
      {"find t.xml Kind=X Order=3 --ignore-case", "3  Root.Plot.Axis  12.5\n"},
      {"pairs t.xml Root.Set", "Item7=,item3=b,Item=a\nb,Text=Red,\n"},
      {"pairs --key-separator : --pair-separator ';' t.xml Root.Empty", "E:;\n"}};
  for (const auto& [arguments, shown] : rows) {
    EXPECT_EQ(run(arguments), 0) << arguments << err;
    EXPECT_EQ(out, shown) << arguments;
  }
}

TEST_F(TreeTool, colours_and_fits_a_terminal_only) {
  write("t.xml", "<Root><A Label='" + std::string(90, 'l') + "'>" + std::string(90, 'v') + "</A></Root>");
  const auto on_terminal = [&](const char* setting) {
    shell(std::string("script -qec \"stty cols 60; ") + setting +
          " '$PROGRAM' show t.xml\" /dev/null </dev/null | tr -d '\\r' | tail -1");
    return out;
  };
  EXPECT_EQ(on_terminal("NO_COLOR=1"),
            "  2      1    A   " + std::string(14, 'l') + "…  " + std::string(24, 'v') + "…\n");
  EXPECT_EQ(on_terminal("NO_COLOR="), "  \033[2m2\033[0m      \033[2m1\033[0m  \033[1m  A\033[0m   \033[36m" +
                                          std::string(14, 'l') + "…\033[0m  \033[32m" + std::string(24, 'v') +
                                          "…\033[0m\n");
}

TEST_F(TreeTool, changes) {
  const std::string plot =
      R"(<Plot Label="図 one" DataID="1"><Axis Order="3" Kind="x">12.5</Axis><Axis Order="1" Kind="y">für</Axis>)"
      R"(<Title Label=""/></Plot>)";
  const std::string set =
      R"(<Set DataID="1" Name="Alpha"><Item7/><item3>b</item3><Item>a
b</Item><Text DataID="5" Kind="x">Red</Text></Set>)";
  const std::string empty = "<Empty><E/></Empty>";
  const Rows<const char*, const char*, std::string> rows = {
      {"filter t.xml --data-id 1 --attribute Name --text LPHA", "removed 4 of 12 nodes", set + empty},
      {"filter t.xml --data-id 1 --attribute Name --text Alp --start --case", "removed 4 of 12 nodes",
       set + empty},
      {"filter t.xml --data-id 1 --attribute Name --text lpha --start", "removed 9 of 12 nodes", empty},
      {"filter t.xml --data-id 1 --attribute Name --text alpha --case", "removed 9 of 12 nodes", empty},
      {"filter t.xml --data-id 1 --attribute Label --match '*ONE'", "removed 5 of 12 nodes", plot + empty},
      {"filter t.xml --data-id 1 --attribute Label --match '*ONE' --case", "removed 9 of 12 nodes", empty},
      {"filter t.xml --data-id 1 --include red --include blue --include-id 5", "removed 9 of 12 nodes",
       empty},
      {"filter t.xml --data-id 1 --include red --include blue --include-id 5 --include-mode any",
       "removed 4 of 12 nodes", set + empty},
      {"filter t.xml --data-id 1 --exclude red --exclude blue --exclude-id 5", "removed 5 of 12 nodes",
       plot + empty},
      {"filter t.xml --data-id 1 --exclude red --exclude blue --exclude-id 5 --exclude-mode all",
       "removed 0 of 12 nodes", plot + set + empty},
      {"filter t.xml --data-id 1 --include red --include-id 5 --include-mode any --exclude-mode only",
       "removed 4 of 12 nodes", set + empty},
      {"sort t.xml Root.Plot Order", "sorted 2 of 3 children of Root.Plot by Order",
       R"(<Plot Label="図 one" DataID="1"><Axis Order="1" Kind="y">für</Axis><Axis Order="3" Kind="x">12.5</Axis>)"
       R"(<Title Label=""/></Plot>)" +
           set + empty},
      {"sort t.xml Root.Plot Order --descending", "sorted 2 of 3 children of Root.Plot by Order",
       plot + set + empty},
      {"move t.xml 11 6", "moved row 11 to row 6", plot + empty + set},
      {"move t.xml --branches 2 3", "moved row 2 to row 3", set + plot + empty},
      {"move t.xml --level 1 4 2", "moved row 4 to row 2", empty + plot + set},
      {"move t.xml 2 end", "moved row 2 to the end", set + empty + plot},
      {"renumber t.xml Root.Set ITEM", "numbered 2 children of Root.Set from ITEM1 on",
       plot +
           R"(<Set DataID="1" Name="Alpha"><ITEM1/><ITEM2>b</ITEM2><Item>a
b</Item><Text DataID="5" Kind="x">Red</Text></Set>)" +
           empty},
      {"pairs t.xml 11 'a = 1=2; b=' --pair-separator ';'", "2 pairs put below Root.Empty",
       plot + set + "<Empty><a>1=2</a><b/></Empty>"},
      {"set t.xml Root.Empty A=1 B=c=d --value text", "set 2 attributes and the value of Root.Empty",
       plot + set + R"(<Empty A="1" B="c=d">text<E/></Empty>)"},
      {"set t.xml --value -- Root.Empty.E", "set 0 attributes and the value of Root.Empty.E",
       plot + set + "<Empty><E>--</E></Empty>"},
      {"prune-empty t.xml", "removed 4 of 12 nodes",
       R"(<Plot Label="図 one" DataID="1"><Axis Order="3" Kind="x">12.5</Axis><Axis Order="1" Kind="y">für</Axis></Plot>)"
       R"(<Set DataID="1" Name="Alpha"><item3>b</item3><Item>a
b</Item><Text DataID="5" Kind="x">Red</Text></Set>)"},
      {"prune-empty t.xml Root.Empty", "removed 1 of 12 nodes", plot + set + "<Empty/>"}};
  const auto before = files();
  for (const auto& [arguments, done, children] : rows) {
    EXPECT_EQ(run(arguments), 0) << arguments << err;
    EXPECT_EQ(out, std::string(done) + "\nnothing written: -o FILE or --in-place does that\n") << arguments;
    EXPECT_EQ(files(), before) << arguments;
    EXPECT_EQ(run(std::string(arguments) + " -o r.xml"), 0) << arguments << err;
    EXPECT_EQ(out, std::string(done) + "\nwritten to r.xml\n");
    EXPECT_EQ(tree("r.xml"), "<Root>" + children + "</Root>") << arguments;
    EXPECT_EQ(tree("t.xml"), kTree) << arguments;
    EXPECT_EQ(shell("rm r.xml"), 0);
  }
  EXPECT_EQ(run("set t.xml 1 A=1 --in-place"), 0);
  EXPECT_EQ(out, "set 1 attribute of Root\nwritten to t.xml\n");
  EXPECT_EQ(tree("t.xml"), R"(<Root A="1">)" + plot + set + empty + "</Root>");
}

TEST_F(TreeTool, failures_change_no_file) {
  write("bad.xml", "<S>\n <A></S>");
  const Rows<int, const char*, const char*> rows = {
      {1, "path t.xml Root.Lost", "t.xml: no node 'Root.Lost'"},
      {1, "path t.xml ''", "t.xml: no node ''"},
      {1, "path t.xml 13", "t.xml: no node '13'"},
      {1, "path t.xml 0", "t.xml: no node '0'"},
      {1, "find t.xml Kind=x Order=1", "t.xml: no node has these attributes"},
      {1, "find t.xml Kind=X", "t.xml: no node has these attributes"},
      {1, "sort t.xml Root.Plot Kind -o r.xml", "t.xml: no child of Root.Plot has an int attribute 'Kind'"},
      {1, "move t.xml 13 2 -o r.xml", "t.xml: no row 13"},
      {1, "move t.xml 5 2 --branches -o r.xml", "t.xml: no row 5"},
      {1, "renumber t.xml Root.Set Axis --in-place", "t.xml: no child of Root.Set is 'Axis' and a number"},
      {1, "pairs t.xml Root.Empty.E", "t.xml: no children below Root.Empty.E"},
      {2, "", "a COMMAND is needed, try tree_tool --help"},
      {2, "fix t.xml", "unknown command 'fix', try tree_tool --help"},
      {2, "find t.xml", "an argument is missing, try tree_tool find --help"},
      {2, "path t.xml 1 2", "unexpected argument '2', try tree_tool path --help"},
      {2, "show t.xml --in-place", "unknown option '--in-place', try tree_tool show --help"},
      {2, "sort t.xml 1 A -o", "-o needs a value, try tree_tool sort --help"},
      {2, "show ''", "a file name is empty"},
      {2, "set t.xml 1 A=1 -o ''", "a file name is empty"},
      {2, "show lost.xml", "lost.xml: cannot read: No such file or directory"},
      {2, "prune-empty bad.xml --in-place", "bad.xml:2:7: mismatched tag"},
      {2, "show t.xml --level 0", "--level is 1 to 256"},
      {2, "show t.xml --level 257", "--level is 1 to 256"},
      {2, "path t.xml 99999999999", "'99999999999' is no number"},
      {2, "find t.xml =x", "'=x' is not ATTRIBUTE=VALUE"},
      {2, "set t.xml 1 -o r.xml", "ATTRIBUTE=VALUE or --value is needed"},
      {2, "set t.xml 1 A=1 '1 B=2' --in-place", "'1 B' is no name for an attribute"},
      {2, "set t.xml 1 A=1 -o r.xml --in-place", "-o and --in-place exclude each other"},
      {2, "set t.xml 1 A=1 -o lost/r.xml", "lost/r.xml: cannot write: No such file or directory"},
      {2, "pairs t.xml Root.Set -o r.xml", "nothing changes, so there is nothing to write"},
      {2, "pairs t.xml Root.Set 'a, 1=2' --in-place", "no pair in 'a, 1=2'"},
      {2, "pairs t.xml Root.Set --key-separator ''", "--key-separator is one character of ASCII"},
      {2, "move t.xml 1 end --in-place", "row 1 is the root, which stays the first"},
      {2, "move t.xml 2 1 --in-place", "row 1 is the root, which stays the first"},
      {2, "move t.xml 2 3 --in-place",
       "t.xml: row 2 cannot go to row 3: that lies inside it, or too deep for it"},
      {2, "filter t.xml --attribute A --text x", "--data-id is needed"},
      {2, "filter t.xml --data-id x --attribute A --text x", "'x' is no number"},
      {2, "filter t.xml --data-id 1", "a filter has either --attribute, or --include and --exclude"},
      {2, "filter t.xml --data-id 1 --attribute A --include x",
       "a filter has either --attribute, or --include and --exclude"},
      {2, "filter t.xml --data-id 1 --attribute A", "--attribute goes with one of --text and --match"},
      {2, "filter t.xml --data-id 1 --attribute A --match x --start", "--start goes with --text"},
      {2, "filter t.xml --data-id 1 --exclude x", "--exclude-id is needed"},
      {2, "filter t.xml --data-id 1 --include x --include-id 5 --include-mode only",
       "--include-mode cannot be 'only'"}};
  const auto before = files();
  for (const auto& [status, arguments, reason] : rows) {
    EXPECT_EQ(run(arguments), status) << arguments;
    EXPECT_EQ(err, std::string("tree_tool: ") + reason + '\n') << arguments;
    EXPECT_EQ(out, "") << arguments;
    EXPECT_EQ(files(), before) << arguments;
  }
  write("t.xml", "<Root DataID='1'/>");
  EXPECT_EQ(run("filter t.xml --data-id 1 --attribute A --text x --in-place"), 2);
  EXPECT_EQ(err, "tree_tool: t.xml: the filter removes the root, and so all of the tree\n");
  EXPECT_EQ(tree("t.xml"), R"(<Root DataID="1"/>)");
}

TEST_F(TreeTool, in_place_keeps_the_old_file_when_the_new_one_does_not_fit) {
  const auto before = files();
  EXPECT_EQ(shell("ulimit -f 1; trap '' XFSZ; \"$PROGRAM\" set t.xml 1 A=" + std::string(5000, 'x') +
                  " --in-place"),
            2);
  EXPECT_EQ(err, "tree_tool: t.xml: cannot write: File too large\n");
  EXPECT_EQ(files(), before);
}

TEST_F(TreeTool, help_on_the_program_and_on_each_command) {
  ASSERT_EQ(run("--help"), 0);
  const std::string help = out;
  for (const std::string command :
       {"show", "path", "find", "filter", "sort", "move", "renumber", "pairs", "set", "prune-empty"}) {
    ASSERT_EQ(run(command + " --help"), 0);
    EXPECT_EQ(out.rfind("tree_tool " + command + " FILE", 0), 0U) << out;
    const std::string summary = out.substr(out.find("\n\n") + 2);
    EXPECT_NE(help.find(summary.substr(0, summary.find('\n') + 1)), std::string::npos) << command;
  }
}

}  // namespace
