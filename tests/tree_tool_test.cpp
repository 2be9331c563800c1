#include <string>

#include "run_program.h"

namespace {

// The XML text of a tree, in which $NAME stands for one of these parts.
std::string filled(std::string xml) {
  for (const auto& [name, part] : rows<2>(R"(
      $Plot  | <Plot Label="図 one" DataID="1">$X$Y<Title Label=""/></Plot>
      $Set   | <Set DataID="1" Name="Alpha"><Item7/><item3>b</item3>$Rest</Set>
      $Empty | <Empty><E/></Empty>
      $X     | <Axis Order="3" Kind="x">12.5</Axis>
      $Y     | <Axis Order="1" Kind="y">für</Axis>
      $Rest  | <Item>a&#10;b</Item><Text DataID="5" Kind="x">Red</Text>)")) {
    if (const auto place = xml.find(name); place != std::string::npos) xml.replace(place, name.size(), part);
  }
  return text(parse("<Root>" + xml + "</Root>"));
}
const std::string kTree = filled("$Plot$Set$Empty");

class TreeTool : public ProgramTest {
 protected:
  TreeTool() {
    write("t.xml", kTree);
    write("n.xml", R"(<R><A _NodeID="4"/><B A="a" _NodeID="4"/></R>)");
  }
};

TEST_F(TreeTool, Looks) {
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
      {"path t.xml root.set.text",
       "row      10\nlevel    2\npath     Root.Set.Text\nlabel    Text\nvalue    Red\n@DataID  5\n@Kind    "
       "x\n"},
      {"path n.xml R.A", "row      2\nlevel    1\npath     R.A\nlabel    A\nvalue    (empty)\n_NodeID  4\n"},
      {"path t.xml Root.Plot[1].Axis[2]",
       "row     4\nlevel   2\npath    Root.Plot.Axis\nlabel   Axis\nvalue   für\n@Order  1\n@Kind   y\n"},
      {"path t.xml 1", "row    1\nlevel  0\npath   Root\nlabel  Root\nvalue  (empty)\n"},
      {"find t.xml Kind=x", " 3  Root.Plot.Axis  12.5\n10  Root.Set.Text   Red\n"},
      {"find n.xml _NodeID=4 A=a", "3  R.B\n"},
      {"find t.xml Kind=X Order=3 --ignore-case", "3  Root.Plot.Axis  12.5\n"},
      {"pairs t.xml Root.Set", "Item7=,item3=b,Item=a\nb,Text=Red,\n"},
      {"pairs --key-separator : --pair-separator ';' t.xml Root.Empty", "E:;\n"}};
  for (const auto& [arguments, shown] : rows) {
    EXPECT_EQ(run(arguments), 0) << arguments << err;
    EXPECT_EQ(out, shown) << arguments;
  }
}

TEST_F(TreeTool, Changes) {
  for (const auto& [arguments, done, left] : rows<3>(R"(
      filter t.xml --data-id 1 --attribute Name --text LPHA | removed 4 of 12 nodes | $Set$Empty
      filter t.xml --data-id 1 --attribute Name --text lpha --start | removed 9 of 12 nodes | $Empty
      filter t.xml --data-id 1 --attribute Name --text alpha --case | removed 9 of 12 nodes | $Empty
      filter t.xml --data-id 1 --attribute Label --match '*ONE' | removed 5 of 12 nodes | $Plot$Empty
      filter t.xml --data-id 1 --include red --include blue --include-id 5 | removed 9 of 12 nodes | $Empty
      filter t.xml --data-id 1 --exclude red --exclude blue --exclude-id 5 | removed 5 of 12 nodes | \
          $Plot$Empty
      filter t.xml --data-id 1 --exclude red --exclude blue --exclude-id 5 --exclude-mode all | \
          removed 0 of 12 nodes | $Plot$Set$Empty
      filter t.xml --data-id 1 --include red --include-id 5 --include-mode any --exclude-mode only | \
          removed 4 of 12 nodes | $Set$Empty
      sort t.xml Root.Plot Order | sorted 2 of 3 children of Root.Plot by Order | \
          <Plot Label="図 one" DataID="1">$Y$X<Title Label=""/></Plot>$Set$Empty
      sort t.xml Root.Plot Order --descending | sorted 2 of 3 children of Root.Plot by Order | $Plot$Set$Empty
      move t.xml 11 6 | moved row 11 to row 6 | $Plot$Empty$Set
      move t.xml --level 1 4 2 | moved row 4 to row 2 | $Empty$Plot$Set
      move t.xml 2 end | moved row 2 to the end | $Set$Empty$Plot
      renumber t.xml Root.Set ITEM | numbered 2 children of Root.Set from ITEM1 on | \
          $Plot<Set DataID="1" Name="Alpha"><ITEM1/><ITEM2>b</ITEM2>$Rest</Set>$Empty
      pairs t.xml 11 'a = 1=2; b=' --pair-separator ';' | 2 pairs put below Root.Empty | \
          $Plot$Set<Empty><a>1=2</a><b/></Empty>
      set t.xml Root.Empty A=1 B=c=d --value text | set 2 attributes and the value of Root.Empty | \
          $Plot$Set<Empty A="1" B="c=d">text<E/></Empty>
      set t.xml --value -- Root.Empty.E | set the value of Root.Empty.E | \
          $Plot$Set<Empty><E>--</E></Empty>
      prune-empty t.xml | removed 3 of 12 nodes | \
          $Plot<Set DataID="1" Name="Alpha"><item3>b</item3>$Rest</Set>
      prune-empty t.xml --with-attributes | removed 4 of 12 nodes | \
          <Plot Label="図 one" DataID="1">$X$Y</Plot><Set DataID="1" Name="Alpha"><item3>b</item3>$Rest</Set>
      prune-empty t.xml Root.Empty | removed 1 of 12 nodes | $Plot$Set<Empty/>)")) {
    EXPECT_EQ(run(arguments + " -o r.xml"), 0) << arguments << err;
    EXPECT_EQ(out, done + "\nwritten to r.xml\n") << arguments;
    EXPECT_EQ(tree("r.xml"), filled(left)) << arguments;
  }
  const auto before = files();
  EXPECT_EQ(run("set t.xml 11 A=1"), 0);
  EXPECT_EQ(out, "set 1 attribute of Root.Empty\nnothing written: -o FILE or --in-place does that\n");
  EXPECT_EQ(files(), before);
  EXPECT_EQ(tree("t.xml"), kTree);
  EXPECT_EQ(run("set t.xml 11 A=1 --in-place"), 0);
  EXPECT_EQ(out, "set 1 attribute of Root.Empty\nwritten to t.xml\n");
  EXPECT_EQ(tree("t.xml"), filled(R"($Plot$Set<Empty A="1"><E/></Empty>)"));
}

TEST_F(TreeTool, TellsWhatIsNotKept) {
  write("c.xml", "<Root><!-- a --><!-- b --></Root>");
  std::filesystem::create_hard_link(work / "c.xml", work / "same.xml");
  const std::string set = "set c.xml 1 A=1 ", told = "c.xml: 2 comments are not kept";
  for (const char* const where : {"-o same.xml", "--in-place"})
    expect_refused(set + where, 2, told + "; --allow-loss writes over it all the same");
  for (const char* const where : {"", "-o r.xml", "--in-place --allow-loss"}) {
    EXPECT_EQ(run(set + where), 0);
    EXPECT_EQ(err, "rytree-tree: " + told + '\n');
  }
  EXPECT_EQ(tree("c.xml"), "<Root A=\"1\"/>");
}

TEST_F(TreeTool, FailuresChangeNoFile) {
  write("bare.xml", "<Root DataID='1'/>");
  for (const auto& [status, arguments, reason] : rows<3>(R"(
      1 | path t.xml Root.Lost | t.xml: no node 'Root.Lost'
      1 | path t.xml Root.Plot.Axis[3] | t.xml: no node 'Root.Plot.Axis[3]'
      1 | path t.xml root.Plot.Axis[2] | t.xml: no node 'root.Plot.Axis[2]'
      1 | path t.xml Root.Plot.Axis[2 | t.xml: no node 'Root.Plot.Axis[2'
      1 | path t.xml Root[ | t.xml: no node 'Root['
      1 | path t.xml Root[0] | t.xml: no node 'Root[0]'
      1 | path t.xml 13 | t.xml: no node '13'
      1 | filter t.xml --data-id 7 --attribute A --text x | t.xml: no node has the DataID 7
      1 | filter t.xml --data-id 1 --include x --include-id 8 | t.xml: no node has the DataID 8
      1 | sort t.xml Root.Plot Kind -o r.xml | t.xml: no child of Root.Plot has an int attribute 'Kind'
      1 | move t.xml 13 2 -o r.xml | t.xml: no row 13
      1 | pairs t.xml Root.Empty.E | t.xml: no children below Root.Empty.E
      2 | | a COMMAND is needed, try rytree-tree --help
      2 | fix t.xml | unknown command 'fix', try rytree-tree --help
      2 | path t.xml 1 2 | unexpected argument '2', try rytree-tree path --help
      2 | show t.xml --in-place | unknown option '--in-place', try rytree-tree show --help
      2 | sort t.xml 1 A -o | -o needs a value, try rytree-tree sort --help
      2 | show '' | a file name is empty
      2 | show lost.xml | lost.xml: cannot read: No such file or directory
      2 | show t.xml --level 0 | --level is 1 to 256
      2 | path t.xml 99999999999 | '99999999999' is not a number
      2 | diff - /dev/stdin | only one file can be standard input
      2 | diff t.xml lost.xml | lost.xml: cannot read: No such file or directory
      2 | diff t.xml t.xml --by=tag | --by is id or path, not 'tag'
      2 | diff t.xml t.xml --by path --id-attribute Name | --id-attribute goes with --by id
      2 | diff t.xml t.xml --id-attribute n | t.xml and t.xml: no node has the attribute 'n'
      2 | show t.xml --level 1 --level=2 | --level is given twice
      2 | show t.xml --branches=1 | --branches takes no value, try rytree-tree show --help
      2 | show t.xml --level=x | --level: 'x' is not a number
      2 | set t.xml 1 A=1 --allow-loss | --allow-loss goes with -o or --in-place
      2 | set - 1 A=1 --in-place | --in-place needs a file
      2 | find t.xml =x | '=x' is not ATTRIBUTE=VALUE
      2 | set t.xml 1 A=1 '1 B=2' --in-place | '1 B' is not an attribute name
      2 | set t.xml 1 A=1 -o r.xml --in-place | -o and --in-place exclude each other
      2 | set t.xml 1 _NodeID=x --in-place | 'x' is not a number
      2 | set t.xml 1 _NodeEscape=1 --in-place | _NodeEscape is a mark of the file, not an attribute
      2 | filter t.xml --data-id 1 --attribute _NodeID --text 4 | _NodeID is the node ID, which is not an attribute
      2 | pairs t.xml Root.Set 'a=1, 1=2' --in-place | '1=2' is not a tag, '=' and a value
      2 | pairs t.xml Root.Set ' ' --in-place | no pair in ' '
      2 | pairs t.xml Root.Set --key-separator , | the two separators are the same
      2 | pairs t.xml Root.Set --key-separator '' | --key-separator is one character of ASCII, and not a double quote
      2 | move t.xml 2 1 --in-place | row 1 is the root, which stays the first
      2 | move t.xml 2 3 --in-place | t.xml: row 2 cannot go to row 3: that lies inside it, or too deep for it
      2 | filter t.xml --data-id 1 --attribute A --include x | \
          a filter has either --attribute, or --include and --exclude
      2 | filter t.xml --data-id 1 --attribute A | --attribute goes with one of --text and --match
      2 | filter t.xml --data-id 1 --attribute A --match x --start | --start goes with --text
      2 | filter t.xml --data-id 1 --include x --include-id 5 --include-mode only | \
          --include-mode is all or any, not 'only'
      2 | filter t.xml --data-id 1 --include x --include-id 5 --exclude-id 5 | --exclude-id goes with --exclude
      2 | filter t.xml --data-id 1 --exclude x --exclude-mode only | \
          --exclude-mode only goes with --include, and without --exclude
      2 | filter bare.xml --data-id 1 --attribute A --text x --in-place | \
          bare.xml: the filter removes the root, and so all of the tree)")) {
    expect_refused(arguments, std::stoi(status), reason);
  }
}

TEST_F(TreeTool, HelpOnTheProgramAndOnEachCommand) {
  ASSERT_EQ(run("--help"), 0);
  const std::string help = out;
  const std::string all = "show path find diff filter sort move renumber pairs set prune-empty";
  std::istringstream commands(all);
  for (std::string command; commands >> command;) {
    ASSERT_EQ(run(command + " --help"), 0);
    EXPECT_EQ(out.rfind("rytree-tree " + command + " FILE", 0), 0U) << out;
    EXPECT_NE(help.find("\n  " + command + ' '), std::string::npos) << command;
  }
}

}  // namespace
