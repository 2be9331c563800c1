#include <rytree_Utils/transfer.h>

#include <random>

#include "call_arguments.h"

TEST(Apply, WritesValuesByIds) {
  // The tree, the IDs and their values, the result, the tree after it, and: the repeat in force, "reset" for both options,
  // "No" for that ID attribute.
  for (const auto& [before, id_list, value_list, result, after, with] : rows<6>(R"(
    // Leaves and branches, an ID twice in the tree, one that is not there, an empty value.
    <R><a #1/><B #2>t<a #3>x</a><a #1/></B><B><a #4/></B></R> | 1,2,3,9,4 | v,u,,z,w | 5 | \
        <R><a #1>v</a><B #2 Use='u'>t<a #3/><a #1>v</a></B><B><a #4>w</a></B></R>
    <R><B #-2><a #0/></B></R> | -2,0 | u,v | 1 | <R><B #-2><a #0>v</a></B></R>
    <R>t</R> | 1 | v | 0 | <R>t</R>
    <R/> |  |  | -2 | <R/>
    // Composed IDs. Bit 21 makes a leaf a branch. An ID too wide ends the walk.
    <R><B #1 ^2><a #3/></B><a #3/></R> | 0x30003,0x10003 | v,w | 2 | \
        <R><B #1 ^2><a #3>v</a></B><a #3>w</a></R> | 1
    <R><B #4 ^32><a #3/></B><a #2097153/><a #1048577/></R> | 0x200003,0x200001,0x100001 | v,w,x | 3 | \
        <R><B #4 ^32><a #3 Use='v'/></B><a #2097153 Use='w'/><a #1048577>x</a></R>
    <R><a #1/><a #65536/><a #2/></R> | 0x10001,0x10002 | v,w | -5 | <R><a #1>v</a><a #65536/><a #2/></R> | 1
    // Decorations.
    <R><a #1/><a #2/><a #3/><a #4/><a #5/></R> | 1,2,3,4,5 | ::{a=1},::{a=b,p::{a=1}::{b=2=3}v,::{=1}::{b=}v,::{a=::{b=c}}v | 5 | \
        <R><a #1 a='1'/><a #2>::{a=b</a><a #3 a='1' b='2=3'>v</a>\
        <a #4>::{=1}::{b=}v</a><a #5 a='::{b=c' b='c'>}v</a></R>
    // Bit 16 keeps the value, bit 17 the attributes.
    <R ~16><a #1 ~16>x</a><a #2 ~17>x</a></R> | 1,2 | ::{a=1}v,::{a=1}v | 2 | \
        <R ~16><a #1 ~16 a='1'>x</a><a #2 ~17>v</a></R>
    // Bit 18 asks for a tag. The nearest attribute that is an int counts whole.
    <R><B ~18><a #1/><a #2/><a #3/><a #4/><B ~0><a #1/></B><a #5 ThemeApplicability='x'/><a #6/></B><a #1/>\
        </R> | 1,2,3,4,5,6 | v,<autoX>,a<autoX>b<c>,<><c>,<autoX,::{a=<b>}v | 8 | \
        <R><B ~18><a #1/><a #2/><a #3>a&lt;autoX>b&lt;c></a><a #4/><B ~0><a #1>v</a></B>\
        <a #5 ThemeApplicability='x'/><a #6 a='&lt;b>'/></B><a #1>v</a></R>
    // Bit 20 sends the value of a branch to "Data", but no empty one, and lets its subtree be walked.
    <R><B #1 ~20><a #2/><B #3 Data='d'><a/></B></B></R> | 1,2,3 | v,w, | 3 | \
        <R><B #1 ~20 Data='v'><a #2>w</a><B #3 Data='d'><a/></B></B></R>
    // The options reset what the value does not bring.
    <R><a #1 Auto='1|x|2' DynaUseChck='0'/><a #2 Auto='1|x|2' DynaUseChck='0'/>\
        <a #3 ThemeApplicability='196608' Auto='1' DynaUseChck='x'/><a #4/></R> | \
        1,2,3,4 | ::{auto=5}::{DynaUseChck=0},v,::{Auto=5}v,v | 4 | \
        <R><a #1 Auto='1|x|2' DynaUseChck='0' auto='5'/><a #2 Auto='0|x|2' DynaUseChck='1'>v</a>\
        <a #3 ThemeApplicability='196608' Auto='0|Auto|1' DynaUseChck='x'/><a #4>v</a></R> | reset
    <R><a #1 No='2'/><a #2/></R> | 2 | v | 1 | <R><a #1 No='2'>v</a><a #2/></R> | No)")) {
    const int repeat = std::atoi(with.c_str());
    const char* const attribute = with == "No" ? "No" : nullptr;
    RYXmlWrapperBase tree = parse_ids(before);
    Ints ids(id_list);
    Strings values(value_list);
    int duplicate = -9;
    CString error;
    EXPECT_EQ(rytree_set_values_by_ids(&tree, &ids, &values, repeat, &duplicate, 0, attribute, &error,
                                       with == "reset" ? 0x30000 : 0),
              std::stoi(result));
    EXPECT_EQ(text(tree), text(parse_ids(after)));
    EXPECT_EQ(duplicate, -9);
    EXPECT_EQ(error.IsEmpty(), result != "-5");
    if (with == "reset") continue;
    tree = parse_ids(before);
    EXPECT_EQ(vctree_set_values_by_ids(&tree, &ids.array(), &values.array(), repeat, nullptr, 0,
                                       attribute != nullptr ? attribute : "DataID", nullptr),
              std::stoi(result));
    EXPECT_EQ(text(tree), text(parse_ids(after)));
  }
}

TEST(Apply, TakesDecorationsOffOneByOne) {
  std::mt19937 random(5);
  Ints ids("1");
  const std::string pieces[] = {"::{", "::{", "a", "b", "cdefghij", "=", "=", "}", ":", "x"};
  for (int round = 0; round < 3000; ++round) {
    std::string value;
    // The more pieces, the more names, and the more of these are written again.
    for (auto left = random() % 200; left > 0; --left) {
      const std::string& piece = pieces[random() % std::size(pieces)];
      value += piece.size() == 8 ? piece.substr(random() % 8) : piece;
    }
    RYXmlWrapperBase expected = parse_ids("<R><a #1 b='0'/></R>");
    RYXmlWrapperBase node = at(expected, {0});
    std::string rest = value;
    for (std::size_t at = 0; value.size() >= 7 && (at = value.find("::{", at)) != std::string::npos; ++at) {
      const std::size_t name = at + 3;
      const std::size_t close = value.find('}', name);
      const std::size_t equals = value.find('=', name);
      if (close == std::string::npos || equals > close || equals == name || equals + 1 == close) continue;
      rest = value.substr(close + 1);
      node.SetPropertyValue(value.substr(name, equals - name).c_str(),
                            value.substr(equals + 1, close - equals - 1).c_str());
    }
    node.CheckSetValue(0, rest.c_str(), 0);
    RYXmlWrapperBase tree = parse_ids("<R><a #1 b='0'/></R>");
    CStringArray values;
    values.Add(value.c_str());
    vctree_set_values_by_ids(&tree, &ids.array(), &values, 0, nullptr, 0, nullptr, nullptr);
    ASSERT_EQ(text(tree), text(expected)) << value;
  }
}

TEST(Apply, AnIdTwiceIsADuplicateOnlyWhereAsked) {
  RYXmlWrapperBase tree = parse_ids("<R><a #5/></R>");
  CArray<int, int> ids = Ints("7,200,5,5,200").array();
  CStringArray values = items_of("a,x,first,second,y");
  CString error("former");
  int duplicate = -9;
  EXPECT_EQ(vctree_set_values_by_ids(&tree, &ids, &values, 3, &duplicate, 0, nullptr, &error), -4);
  EXPECT_EQ(duplicate, 200);
  EXPECT_EQ(error, "\n******  _tree_set_values_by_ids found dup id = 200, C8. RepeatID = 3\n");
  EXPECT_EQ(text(tree), "<R><a DataID=\"5\"/></R>");
  EXPECT_EQ(vctree_set_values_by_ids(&tree, &ids, &values, 0, nullptr, 0, nullptr, &error), 1);
  EXPECT_EQ(text(tree), "<R><a DataID=\"5\">first</a></R>");
}

TEST(Apply, RefusesBadArguments) {
  RYXmlWrapperBase tree = parse_ids("<R><a #1/></R>");
  Ints ids("1");
  Ints no_ids;
  Strings one("v");
  Strings two("v,w");
  const auto set = rytree_set_values_by_ids;
  EXPECT_EQ(with_bad(set, &tree, &ids, &one, 0, nullptr, 0, "x", nullptr, 0), "-1 -1,-1 -1,-1 -1,0,1,0");
  EXPECT_EQ(set(&tree, &no_ids, &one, 0, nullptr, 0, nullptr, nullptr, 0), -2);
  EXPECT_EQ(set(&tree, &ids, &no_ids, 0, nullptr, 0, nullptr, nullptr, 0), -1);
  EXPECT_EQ(set(&tree, &ids, &two, 0, nullptr, 0, nullptr, nullptr, 0), -3);
  EXPECT_EQ(
      with_bad(vctree_set_values_by_ids, &tree, &ids.array(), &one.array(), 0, nullptr, 0, "x", nullptr),
      "-1 -1,-1,-1,0,1,0");
}
