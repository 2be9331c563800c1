#include <rytree_Utils/bulk.h>
#include <rytree_Utils/values.h>

#include "call_arguments.h"

namespace {

using Node = RYXmlWrapperBase;

const char* or_null(const std::string& cell) { return cell == "-" ? nullptr : cell.c_str(); }

TEST(Bulk, ListsAttributes) {
  Node tree = parse(
      "<R k='r'><a k='a'><b/><c k='c'/><d><e/></d></a><f/><g k=''/><h/><i k='i'><j/><k k='k'/></i></R>");
  using List = int (*)(Node*, CStringArray*, const char*, bool);
  using R = Row<List, Text, bool, Text>;
  for (const auto& [get, attribute, children_only, expected] :
       Rows{R{VCTreeGetAttributes, "k", false, "0,a,,c,,,,,,i,,k"},
            R{VCTreeGetAttributes, "k", true, "0,a,,,,i"},
            R{vctree_get_attributes, "k", false, "0,a,,c,c,,a,,,i,,k"},
            R{vctree_get_attributes, "k", true, "0,a,a,,,i"},
            R{vctree_get_attributes, nullptr, true, "0,,,,,"}}) {
    CStringArray values = items_of("0");
    EXPECT_EQ(get(&tree, &values, attribute, children_only), 0);
    EXPECT_EQ(list_of(values), expected);
  }
  Strings values;
  EXPECT_EQ(rytree_get_attributes(&tree, &values, "k", 2), 0);
  EXPECT_EQ(rytree_get_attributes(&tree, &values, "k", 0), 0);
  EXPECT_EQ(list_of(values.array()), "a,,,,i,a,,c,,,,,,i,,k");
  EXPECT_EQ(with_bad(rytree_get_attributes, &tree, &values, "k", 0), "-1 0,-1 -1,0");
}

TEST(Bulk, CollectsWritesAndRemovesInts) {
  const char* const xml = "<R k='1'><a k='2'><b/><c k='x'/></a><d k='-1'/></R>";
  // the value, whether there is an array, whether to remove and the top
  for (const auto& [value, collects, remove, top, after, collected] : rows<6>(R"(
      -1 | y | 1 | 0 | <R k='1'><a k='2'><b/><c k='x'/></a><d k='-1'/></R>                | 9,2,-1,-1,-1
      5  | y | 0 | 1 | <R k='1'><a k='2'><b/><c k='x'/></a><d k='-1'/></R>                | 9,1,2,-1,-1,-1
      -1 |   | 0 | 0 | <R k='1'><a k='-1'><b k='-1'/><c k='-1'/></a><d k='-1'/></R>       | 9
      -1 |   | 0 | 7 | <R k='-1'><a k='-1'><b k='-1'/><c k='-1'/></a><d k='-1'/></R>      | 9
      -1 |   | 1 | 1 | <R><a><b/><c/></a><d/></R>                                         | 9
      0  |   | 1 | 0 | <R k='1'><a k='0'><b k='0'/><c k='0'/></a><d k='0'/></R>           | 9)")) {
    Node tree = parse(xml);
    Ints found("9");
    EXPECT_EQ(VCTreeAttributeValues(&tree, "k", std::stoi(value), collects == "y" ? &found.array() : nullptr,
                                    std::stoi(remove), std::stoi(top)),
              0);
    EXPECT_EQ(text(tree), text(parse(after)));
    EXPECT_EQ(list_of(found.array()), collected);
  }
  Node tree = parse(xml);
  Strings no_ints;
  Ints found;
  EXPECT_EQ(rytree_attribute_values(&tree, "k", 5, &found, 0), 0);
  EXPECT_EQ(list_of(found.array()), "2,-1,-1,-1");
  EXPECT_EQ(rytree_attribute_values(&tree, "k", -5, &no_ints, 1), 0);
  EXPECT_EQ(text(tree), text(parse("<R k='1'><a><b/><c/></a><d/></R>")));
  EXPECT_EQ(rytree_attribute_values(nullptr, "k", -5, nullptr, 1), -1);
}

TEST(Bulk, WritesLeavesByNodeId) {
  const auto make = [] {
    return parse(R"(<R NodeID='1'><a NodeID='1'>t<b NodeID='2'/><c NodeID='1'>o</c></a><d NodeID='1'/><e/>
                    <f NodeID='x'/></R>)");
  };
  for (const auto& [id_list, texts, result, expected] : rows<4>(R"(
      1,2    | A,B   | 3  | ,,B,A,A,,
      2,1,2  | A,,C  | 3  | ,,A,,,,
      0,3,-1 | A,B,C | 0  | ,,,o,,,
             | A     | -2 | ,,,o,,,
      1      |       | -2 | ,,,o,,,
      1      | A,B   | -3 | ,,,o,,,)")) {
    Node tree = make();
    Ints ids(id_list);
    Strings values(texts);
    EXPECT_EQ(rytree_set_values_by_nodeids(&tree, &ids, &values), std::stoi(result));
    CStringArray after;
    VCTreeGetValues(&tree, &after, false);
    EXPECT_EQ(list_of(after), expected);
  }
  Node tree = make();
  Ints ids("1");
  Strings values("A");
  EXPECT_EQ(with_bad(rytree_set_values_by_nodeids, &tree, &ids, &values), "-1 -1,-2 -2,-1 -1");
  EXPECT_EQ(with_bad(vctree_set_values_by_nodeids, &tree, &ids.array(), &values.array()), "-1 -1,-2,-2");
}

TEST(Bulk, SetsAttributesByIds) {
  const auto set = rytree_set_attributes;
  for (const auto& [id_list, value, attribute, match, recursive, result, after] : rows<7>(R"(
      1     | v | -      | - | 1 | 1 | <R><a #1 Show='v'><b #2/></a><c DataID='02' k='2'/><d #1 Show='v'/></R>
      1,2,5 | - | w      | - | 1 | 0 | <R><a #1 w=''><b #2 w=''/></a><c DataID='02' k='2'/><d #1 w=''/></R>
      5,2   | v | w      | k | 0 | 1 | <R><a #1><b #2/></a><c DataID='02' k='2' w='v'/><d #1/></R>
      1,3   | 3 | DataID | - | 1 | 1 | <R><a #3><b #2/></a><c DataID='02' k='2'/><d #3/></R>
      1,3   | 3 | Show   | - | 1 | 0 | <R><a #1 Show='3'><b #2/></a><c DataID='02' k='2'/><d #1 Show='3'/></R>
      1,2   | v | w      |   | 1 | 0 | <R><a #1><b #2/></a><c DataID='02' k='2'/><d #1/></R>
            | v | -      | - | 1 | 0 | <R><a #1><b #2/></a><c DataID='02' k='2'/><d #1/></R>)")) {
    Node tree = parse_ids("<R><a #1><b #2/></a><c DataID='02' k='2'/><d #1/></R>");
    Ints ids(id_list);
    const bool deep = recursive == "1";
    EXPECT_EQ(set(&tree, &ids, or_null(value), or_null(attribute), or_null(match), deep), result == "1");
    EXPECT_EQ(text(tree), text(parse_ids(after)));
  }
  Node tree = parse_ids("<R><a #1/></R>");
  Ints ids("1");
  EXPECT_EQ(with_bad(set, &tree, &ids, "v", "w", "x", true), "0 0,0 0,0,0,1");
}

}  // namespace
