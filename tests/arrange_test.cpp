// Sorting, moving, appending and renaming nodes.
#include <rytree_Utils/arrange.h>

#include <climits>
#include <numeric>
#include <random>
#include <utility>
#include <vector>

#include "call_arguments.h"
#include "edit/exchange_order.h"

// Short lists of few keys in all orders, then long ones of far keys, against the exchanges as they are told.
TEST(Sort, OrdersAsTheExchangesDo) {
  std::mt19937 random(5);
  const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
  for (int round = 0; round < 3004; ++round) {
    const bool few = round < 3000;
    const bool ascending = round % 2 != 0;
    std::vector<int> keys(few ? random() % 10 : 1500);
    for (int& key : keys) key = few ? below(1 + round / 2 % 6) - 2 : (below(40) - 20) * 50'000'000;
    if (!few) std::tie(keys[7], keys[9]) = std::pair(INT_MIN, INT_MAX);
    std::vector<int> literal(keys.size());
    std::iota(literal.begin(), literal.end(), 0);
    const auto key = [&](int element) { return keys[static_cast<std::size_t>(element)]; };
    for (auto place = literal.begin(); place != literal.end(); ++place) {
      for (auto later = place + 1; later != literal.end(); ++later) {
        if (ascending ? key(*place) > key(*later) : key(*place) < key(*later)) std::swap(*place, *later);
      }
    }
    ASSERT_EQ(exchange_sort_order(keys, ascending), literal);
  }
}

TEST(Sort, MovesContentsAroundChildrenWithoutKeys) {
  RYXmlWrapperBase tree = parse(R"(<R><a k="3"/><x/><b k="-2">t<c/></b><y k="z"/><d k="1"/></R>)");
  const RYXmlWrapperBase first = at(tree, {0});
  RYXmlWrapperBase below = at(tree, {2, 0});
  EXPECT_TRUE(rytree_sort_children_by_int_attribute(&tree, "k", 2));
  EXPECT_EQ(text(tree), R"(<R><b k="-2">t<c/></b><x/><d k="1"/><y k="z"/><a k="3"/></R>)");
  EXPECT_EQ(tag(first), "b");
  EXPECT_TRUE(rytree_sort_children_by_int_attribute(&tree, "k", 0));
  EXPECT_EQ(text(tree), R"(<R><a k="3"/><x/><d k="1"/><y k="z"/><b k="-2">t<c/></b></R>)");
  below.GetParent(below);
  EXPECT_EQ(tag(below), "b");
  EXPECT_FALSE(rytree_sort_children_by_int_attribute(&below, "k", 1)) << "one child";
}

TEST(Append, NumbersOnFromTheTarget) {
  for (const auto& [target_children, source_children, prefix, result, appended] : rows<5>(R"(
      <Ab@4/><x@9/><AB2@7/> | <aB>1<c/></aB><y/><ab3@1/> | ab | 10          | <aB@8>1<c/></aB><ab3@9/>
      <x@9/>                | <ab/><ab3@1/>              | ab | 0           | <ab/><ab3@1/>
      <ab@0/>               | <ab/>                      | AB | 2           | <ab@1/>
      <a@2147483647/>       | <a@3/>                     |    | -2147483648 | <a@3/>
      <é@1/>                | <É1/>                      | É  | 3           | <É1@2/>)")) {
    RYXmlWrapperBase target = parse(with_ids("<T>" + target_children + "</T>"));
    RYXmlWrapperBase source = parse(with_ids("<S>" + source_children + "</S>"));
    EXPECT_EQ(rytree_append_children(&target, &source, prefix.c_str()), std::stoi(result));
    EXPECT_EQ(text(target), with_ids("<T>" + target_children + appended + "</T>"));
    EXPECT_EQ(text(source), with_ids("<S>" + source_children + "</S>"));
  }
  RYXmlWrapperBase self = parse(with_ids("<T><a@1/><a/></T>"));
  EXPECT_EQ(rytree_append_children(&self, &self, "a"), 4);
  EXPECT_EQ(text(self), with_ids("<T><a@1/><a/><a@2/><a@3/></T>"));
  RYXmlWrapperBase source = parse("<S><a/><a><t/></a></S>");
  RYXmlWrapperBase inside = at(source, {1, 0});
  EXPECT_EQ(rytree_append_children(&inside, &source, "a"), 0);
  EXPECT_EQ(text(source), "<S><a/><a><t><a/><a><t/></a></t></a></S>");
}

// Numbers of all: a 0, b 1, c 2, d 3, e 4. The last rows: children only, so e is 2; branches only, so there
// is one; b hides c.
TEST(Move, EndsBesideItsTarget) {
  const std::string tree = with_ids(R"(<R><a/><b><c@5 k="2">t</c><d/></b><e/></R>)");
  for (const auto& [from, to, flags, attribute, result, after] : rows<6>(R"(
      2 | 0  | 0       |   | 1 | <R><c@5 k="2">t</c><a/><b><d/></b><e/></R>
      0 | 2  | 0       |   | 1 | <R><b><c@5 k="2">t</c><a/><d/></b><e/></R>
      2 | 4  | 0       |   | 1 | <R><a/><b><d/></b><e/><c@5 k="2">t</c></R>
      1 | 1  | 0       |   | 1 | =
      1 | -1 | 0       |   | 1 | <R><a/><e/><b><c@5 k="2">t</c><d/></b></R>
      1 | 3  | 0       |   | 0 | =
      0 | 5  | 0       |   | 0 | =
      5 | 0  | 0       |   | 0 | =
      2 | 1  | 0x40000 |   | 1 | <R><a/><e/><b><c@5 k="2">t</c><d/></b></R>
      0 | 1  | 0x20000 |   | 0 | =
      0 | -1 | 0x10000 | k | 0 | =)")) {
    RYXmlWrapperBase node = parse(tree);
    const RYXmlWrapperBase old = at(node, {0});
    const char* const name = attribute.empty() ? nullptr : attribute.c_str();
    const int word = std::stoi(flags, nullptr, 0);
    EXPECT_EQ(rytree_move_node(&node, std::stoi(from), std::stoi(to), word, name), std::stoi(result));
    EXPECT_EQ(old.IsNodeValid(), from == "0" && result == "1" ? 0 : 1);
    EXPECT_EQ(text(node), after == "=" ? tree : with_ids(after));
  }
  RYXmlWrapperBase deep = deep_tree(1024);
  RYXmlWrapperBase pair;
  deep.AddNode(pair, "P", -1);
  pair.AddNode(pair, "Q", -1);
  const std::string before = text(deep);
  EXPECT_EQ(rytree_move_node(&deep, 1023, 1022, 0, nullptr), 0) << "too deep: nothing may be lost";
  EXPECT_EQ(text(deep), before);
}

TEST(Ids, LieInARange) {
  const Rows<const char*, int, int, int, int> cases = {
      {"@8", 2, 5, 3, 1}, {"@9", 2, 5, 3, 0}, {"@2", 2, 5, 0, 1},   {"@1", 2, 5, 0, 0},
      {"@6", 5, 2, 9, 0}, {"", 0, 0, 0, 1},   {"@-3", -5, 2, 0, 0}, {"@7", 1, INT_MAX, INT_MAX, 1}};
  for (const auto& [id, first, last, extra, wanted] : cases) {
    RYXmlWrapperBase node = parse(with_ids("<a" + std::string(id) + "/>"));
    EXPECT_EQ(rytree_is_in_ids_range(&node, first, last, extra), wanted);
  }
}

TEST(Tags, AreRenamedThroughTheText) {
  for (const auto& [before, name, result, after] : rows<4>(R"(
      <a@3 k="a"><a>a</a>x</a> | Long | 1 | <Long@3 k="a">x<a>a</a></Long>
      <abc>t</abc>             | x    | 1 | <x>t</x>
      <é>t</é>                 | ü    | 1 | <ü>t</ü>
      <a k="1"/>               | b    | 0 | <a k="1"/>
      <a>t</a>                 | 1b   | 0 | <a>t</a>)")) {
    RYXmlWrapperBase node = at(parse(with_ids("<R>" + before + "</R>")), {0});
    EXPECT_EQ(VCTreeSetTagName(&node, name.c_str()) ? "1" : "0", result);
    EXPECT_EQ(text(node), with_ids(after));
  }
}

TEST(Menu, StampsBranchesAndNewItems) {
  RYXmlWrapperBase tree =
      parse(with_ids("<R><a/><b@2 DataID='7'/><c><d DataID='0'/></c><e DataID='x'/></R>"));
  DWORD next = 0xFFFFFFFEU;
  EXPECT_EQ(VCTreePrepareForMenu(&tree, next), 3);
  EXPECT_EQ(next, 1U);
  EXPECT_EQ(text(tree), with_ids(R"(<R@268435456><a@11 DataID="-2"/><b@2 DataID="7"/>)"
                                 R"(<c@268435456><d@11 DataID="-1"/></c><e@11 DataID="0"/></R>)"));
}

TEST(Arrange, RefusesBadArguments) {
  RYXmlWrapperBase tree = parse("<R><a k='1'/><a k='2'/></R>");
  DWORD next = 7;
  EXPECT_EQ(with_bad(rytree_sort_children_by_int_attribute, &tree, "k", 1), "0 0,0");
  EXPECT_EQ(with_bad(rytree_append_children, &tree, &tree, "b"), "0 0,0 0,0");
  EXPECT_EQ(with_bad(rytree_move_node, &tree, 0, 0, 0, "k"), "0 0,1");
  EXPECT_EQ(with_bad(rytree_is_in_ids_range, &tree, 0, 0, 0), "0 0");
  EXPECT_EQ(with_bad(VCTreeSetTagName, &tree, "b"), "0 0,0");
  EXPECT_EQ(with_bad(VCTreePrepareForMenu, &tree, next), "0 0");
}
