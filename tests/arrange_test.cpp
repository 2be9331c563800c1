// Sorting, moving, appending and renaming nodes.
#include <rytree_Utils/arrange.h>
#include <rytree_Utils/lookup.h>

#include <climits>
#include <optional>
#include <random>
#include <utility>
#include <vector>

#include "tests/tree_text.h"

namespace {

// Short lists of few keys in all orders, then long ones of far keys, against the exchanges as they are told:
// the contents of each place against those of each later one.
TEST(Sort, OrdersAsTheExchangesDo) {
  using Content = std::pair<std::optional<int>, std::string>;  // the key, the XML text
  std::mt19937 random(5);
  const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
  for (int round = 0; round < 3004; ++round) {
    const bool few = round < 3000;
    const int ascending = round % 2;
    std::vector<Content> literal;
    const auto joined = [&] {
      std::string xml = "<R>";
      for (const Content& content : literal) xml += content.second;
      return xml + "</R>";
    };
    for (int i = few ? below(9) : 1500; i >= -1; --i) {
      const int far = i == 7 ? INT_MIN : i == 9 ? INT_MAX : (below(40) - 20) * 50'000'000;
      const int key = few ? below(1 + round / 2 % 6) - 2 : far;
      const bool keyed = below(few ? 6 : 99) != 0;
      const std::string name = "n" + std::to_string(i + 1);
      literal.emplace_back(keyed ? std::optional(key) : std::nullopt,
                           "<" + name + (keyed ? " k=\"" + std::to_string(key) + "\"" : "") +
                               (i % 2 == 0 ? "><c>t</c></" + name + ">" : "/>"));
    }
    RYXmlWrapperBase ours = parse(joined());
    for (auto place = literal.begin(); place != literal.end(); ++place) {
      for (auto later = place + 1; later != literal.end(); ++later) {
        if (!place->first || !later->first) continue;
        if (ascending != 0 ? place->first > later->first : place->first < later->first) place->swap(*later);
      }
    }
    ASSERT_TRUE(rytree_sort_children_by_int_attribute(&ours, "k", ascending));
    ASSERT_EQ(text(ours), joined());
  }
}

TEST(Sort, PlacesKeepTheirHandles) {
  RYXmlWrapperBase tree = parse("<R><a k=\"3\"/><x/><b k=\"1\"><c/></b><d k=\"2\"/></R>");
  RYXmlWrapperBase first = at(tree, {0});
  RYXmlWrapperBase below = at(tree, {2, 0});
  EXPECT_TRUE(rytree_sort_children_by_int_attribute(&tree, "k", 1));
  below.GetParent(below);
  EXPECT_TRUE(below == first);
  RYXmlWrapperBase one = parse("<R><a k=\"3\"/></R>");
  EXPECT_FALSE(rytree_sort_children_by_int_attribute(&one, "k", 1));
  EXPECT_FALSE(rytree_sort_children_by_int_attribute(&tree, nullptr, 1));
}

TEST(Append, NumbersOnFromTheTarget) {
  for (const auto& [to, from, prefix, result, after] : rows<5>(R"(
      <T><Ab _NodeID="4"/><x _NodeID="9"/><AB2 _NodeID="7"/></T> | <S><aB>1<c/></aB><y/><ab3 _NodeID="1"/></S> | ab | 10 | <T><Ab _NodeID="4"/><x _NodeID="9"/><AB2 _NodeID="7"/><aB _NodeID="8">1<c/></aB><ab3 _NodeID="9"/></T>
      <T><x _NodeID="9"/></T>          | <S><ab/><ab3 _NodeID="1"/></S> | ab | 0           | <T><x _NodeID="9"/><ab/><ab3 _NodeID="1"/></T>
      <T><ab _NodeID="0"/></T>         | <S><ab/></S>                   | AB | 2           | <T><ab _NodeID="0"/><ab _NodeID="1"/></T>
      <T><a _NodeID="2147483647"/></T> | <S><a _NodeID="3"/></S>        |    | -2147483648 | <T><a _NodeID="2147483647"/><a _NodeID="3"/></T>
      <T><é _NodeID="1"/></T>          | <S><É1/></S>                   | É  | 3           | <T><é _NodeID="1"/><É1 _NodeID="2"/></T>)")) {
    RYXmlWrapperBase target = parse(to);
    RYXmlWrapperBase source = parse(from);
    EXPECT_EQ(rytree_append_children(&target, &source, prefix.c_str()), std::stoi(result)) << after;
    EXPECT_EQ(text(target), after);
    EXPECT_EQ(text(source), from);
  }
  RYXmlWrapperBase self = parse("<T><a _NodeID=\"1\"/><a/></T>");
  EXPECT_EQ(rytree_append_children(&self, &self, "a"), 4);
  EXPECT_EQ(rytree_append_children(&self, nullptr, ""), 0);
  EXPECT_EQ(rytree_append_children(&self, &self, nullptr), 0);
  EXPECT_EQ(text(self), "<T><a _NodeID=\"1\"/><a/><a _NodeID=\"2\"/><a _NodeID=\"3\"/></T>");
  RYXmlWrapperBase source = parse("<S><a/><a><t/></a></S>");
  RYXmlWrapperBase inside = at(source, {1, 0});
  EXPECT_EQ(rytree_append_children(&inside, &source, "a"), 0);
  EXPECT_EQ(text(source), "<S><a/><a><t><a/><a><t/></a></t></a></S>");
}

// Numbers of all: a 0, b 1, c 2, d 3, e 4. The last rows: children only, so e is 2; branches only, so there
// is one; b hides c.
TEST(Move, StandsBesideItsTarget) {
  const std::string tree = "<R><a/><b><c _NodeID=\"5\" k=\"2\">t</c><d/></b><e/></R>";
  for (const auto& [from, to, flags, attribute, result, after] : rows<6>(R"(
      2 | 0  | 0       |   | 1 | <R><c _NodeID="5" k="2">t</c><a/><b><d/></b><e/></R>
      0 | 2  | 0       |   | 1 | <R><b><c _NodeID="5" k="2">t</c><a/><d/></b><e/></R>
      2 | 4  | 0       |   | 1 | <R><a/><b><d/></b><e/><c _NodeID="5" k="2">t</c></R>
      1 | 1  | 0       |   | 1 | =
      1 | -1 | 0       |   | 1 | <R><a/><e/><b><c _NodeID="5" k="2">t</c><d/></b></R>
      1 | 3  | 0       |   | 0 | =
      0 | 5  | 0       |   | 0 | =
      5 | 0  | 0       |   | 0 | =
      2 | 1  | 0x40000 |   | 1 | <R><a/><e/><b><c _NodeID="5" k="2">t</c><d/></b></R>
      0 | 1  | 0x20000 |   | 0 | =
      0 | -1 | 0x10000 | k | 0 | =)")) {
    RYXmlWrapperBase node = parse(tree);
    const RYXmlWrapperBase old = at(node, {0});
    EXPECT_EQ(rytree_move_node(&node, std::stoi(from), std::stoi(to), std::stoi(flags, nullptr, 0),
                               attribute.empty() ? nullptr : attribute.c_str()),
              std::stoi(result));
    EXPECT_EQ(old.IsNodeValid(), from == "0" && result == "1" ? 0 : 1);
    EXPECT_EQ(text(node), after == "=" ? tree : after) << from << " to " << to << " with " << flags;
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
      {"8", 2, 5, 3, 1}, {"9", 2, 5, 3, 0}, {"2", 2, 5, 0, 1},   {"1", 2, 5, 0, 0},
      {"6", 5, 2, 9, 0}, {"", 0, 0, 0, 1},  {"-3", -5, 2, 0, 0}, {"7", 1, INT_MAX, INT_MAX, 1}};
  for (const auto& [id, first, last, extra, wanted] : cases) {
    RYXmlWrapperBase node = parse("<a _NodeID=\"" + std::string(id) + "\"/>");
    EXPECT_EQ(rytree_is_in_ids_range(&node, first, last, extra), wanted) << id << first << last << extra;
  }
}

TEST(Tags, AreRenamedThroughTheText) {
  for (const auto& [before, name, result, after] : rows<4>(R"(
      <a _NodeID="3" k="a"><a>a</a>x</a> | Long | 1 | <Long _NodeID="3" k="a">x<a>a</a></Long>
      <abc>t</abc>                       | x    | 1 | <x>t</x>
      <é>t</é>                           | ü    | 1 | <ü>t</ü>
      <a k="1"/>                         | b    | 0 | <a k="1"/>
      <a>t</a>                           | 1b   | 0 | <a>t</a>)")) {
    RYXmlWrapperBase node = at(parse("<R>" + before + "</R>"), {0});
    EXPECT_EQ(VCTreeSetTagName(&node, name.c_str()) ? "1" : "0", result) << before << name;
    EXPECT_EQ(text(node), after);
    EXPECT_FALSE(VCTreeSetTagName(&node, nullptr));
  }
}

TEST(Menu, StampsBranchesAndNewItems) {
  RYXmlWrapperBase tree =
      parse(R"(<R><a/><b DataID="7" _NodeID="2"/><c><d DataID="0"/></c><e DataID="x"/></R>)");
  DWORD next = 0xFFFFFFFEU;
  EXPECT_EQ(VCTreePrepareForMenu(&tree, next), 3);
  EXPECT_EQ(next, 1U);
  EXPECT_EQ(
      text(tree),
      R"(<R _NodeID="268435456"><a _NodeID="11" DataID="-2"/><b _NodeID="2" DataID="7"/><c _NodeID="268435456"><d _NodeID="11" DataID="-1"/></c><e _NodeID="11" DataID="0"/></R>)");
}

TEST(Arrange, BadNodesGiveNothing) {
  RYXmlWrapperBase dead = dead_node();
  RYXmlWrapperBase tree = parse("<R><a/></R>");
  DWORD next = 7;
  for (RYXmlWrapperBase* const node : {static_cast<RYXmlWrapperBase*>(nullptr), &dead}) {
    EXPECT_FALSE(rytree_sort_children_by_int_attribute(node, "k", 1));
    EXPECT_EQ(rytree_append_children(node, &tree, ""), 0);
    EXPECT_EQ(rytree_move_node(node, 0, -1, 0, nullptr), 0);
    EXPECT_EQ(rytree_is_in_ids_range(node, 0, 5, 0), 0);
    EXPECT_FALSE(VCTreeSetTagName(node, "b"));
    EXPECT_EQ(VCTreePrepareForMenu(node, next), 0);
  }
}

}  // namespace
