// Sorting, moving, appending and renaming nodes.
#include <rytree_Utils/arrange.h>
#include <rytree_Utils/lookup.h>

#include <climits>
#include <random>
#include <utility>
#include <vector>

#include "tests/tree_text.h"

namespace {

// The exchanges as they are told: each place against each later one.
void exchange_sort(RYXmlWrapperBase& node, bool ascending) {
  for (int i = 0; i < node.GetNodeCount(); ++i) {
    for (int j = i + 1; j < node.GetNodeCount(); ++j) {
      RYXmlWrapperBase place = at(node, {i});
      RYXmlWrapperBase later = at(node, {j});
      int a = 0;
      int b = 0;
      if (place.GetPropertyValue("k", a) == 0 || later.GetPropertyValue("k", b) == 0) continue;
      if (!(ascending ? a > b : a < b)) continue;
      RYXmlWrapperBase kept;
      place.Clone(kept, 1);
      place.Replace(later, 1, 0, 0);
      later.Replace(kept, 1, 0, 0);
    }
  }
}

TEST(Sort, OrdersAsTheExchangesDo) {
  std::mt19937 random(5);
  for (int round = 0; round < 3000; ++round) {
    std::string xml = "<R>";
    const auto keys = static_cast<int>(1 + random() % 6);
    const int count = 2 + static_cast<int>(random() % 9);
    for (int i = 0; i < count; ++i) {
      const std::string name = "n" + std::to_string(i);
      const bool keyed = random() % 6 != 0;
      xml += "<" + name +
             (keyed ? " k=\"" + std::to_string(static_cast<int>(random()) % keys - 2) + "\"" : "") +
             (i % 2 == 0 ? "><c>t</c></" + name + ">" : "/>");
    }
    RYXmlWrapperBase ours = parse(xml + "</R>");
    RYXmlWrapperBase literal;
    ours.Clone(literal, 1);
    const int ascending = static_cast<int>(random() % 2);
    ASSERT_TRUE(rytree_sort_children_by_int_attribute(&ours, "k", ascending));
    exchange_sort(literal, ascending != 0);
    ASSERT_EQ(text(ours), text(literal)) << xml;
  }
}

TEST(Sort, LongListsComeOutAsTheExchangesLeaveThem) {
  std::mt19937 random(6);
  for (const bool ascending : {true, false}) {
    RYXmlWrapperBase tree = parse("<R/>");
    std::vector<std::pair<int, int>> literal;  // key and first place
    for (int i = 0; i < 1500; ++i) {
      const int key = i == 7   ? INT_MIN
                      : i == 9 ? INT_MAX
                               : (static_cast<int>(random() % 40) - 20) * 50'000'000;
      literal.emplace_back(key, i);
      RYXmlWrapperBase child;
      tree.AddNode(child, "n", i);
      child.SetPropertyValue("k", key);
    }
    for (auto place = literal.begin(); place != literal.end(); ++place) {
      for (auto later = place + 1; later != literal.end(); ++later) {
        if (ascending ? place->first > later->first : place->first < later->first) std::swap(*place, *later);
      }
    }
    ASSERT_TRUE(rytree_sort_children_by_int_attribute(&tree, "k", ascending ? 1 : 0));
    RYXmlWrapperBase child;
    tree.FirstChild(child);
    for (const auto& [key, first_place] : literal) {
      int id = -1;
      child.GetID(id);
      ASSERT_EQ(id, first_place) << key;
      child.NextSibling(child);
    }
  }
}

TEST(Sort, PlacesKeepTheirHandles) {
  RYXmlWrapperBase tree = parse("<R><a k=\"3\"/><x/><b k=\"1\"><c/></b><d k=\"2\"/></R>");
  RYXmlWrapperBase first = at(tree, {0});
  RYXmlWrapperBase below = at(tree, {2, 0});
  EXPECT_TRUE(rytree_sort_children_by_int_attribute(&tree, "k", 1));
  EXPECT_EQ(text(tree), "<R><b k=\"1\"><c/></b><x/><d k=\"2\"/><a k=\"3\"/></R>");
  EXPECT_EQ(tag(first), "b");
  below.GetParent(below);
  EXPECT_TRUE(below == first);

  RYXmlWrapperBase one = parse("<R><a k=\"3\"/></R>");
  RYXmlWrapperBase dead = dead_node();
  EXPECT_FALSE(rytree_sort_children_by_int_attribute(&one, "k", 1));
  EXPECT_FALSE(rytree_sort_children_by_int_attribute(&tree, "", 1));
  EXPECT_FALSE(rytree_sort_children_by_int_attribute(&tree, nullptr, 1));
  EXPECT_FALSE(rytree_sort_children_by_int_attribute(&dead, "k", 1));
  EXPECT_FALSE(rytree_sort_children_by_int_attribute(nullptr, "k", 1));
}

TEST(Append, NumbersOnFromTheTarget) {
  const Rows<const char*, const char*, const char*, int, const char*> rows = {
      {"<T><Ab _NodeID=\"4\"/><x _NodeID=\"9\"/><AB2 _NodeID=\"7\"/></T>",
       "<S><aB>1<c/></aB><y/><ab3 _NodeID=\"1\"/></S>", "ab", 10,
       "<T><Ab _NodeID=\"4\"/><x _NodeID=\"9\"/><AB2 _NodeID=\"7\"/><aB _NodeID=\"8\">1<c/></aB><ab3 "
       "_NodeID=\"9\"/></T>"},
      {"<T><x _NodeID=\"9\"/></T>", "<S><ab/><ab3 _NodeID=\"1\"/></S>", "ab", 0,
       "<T><x _NodeID=\"9\"/><ab/><ab3 _NodeID=\"1\"/></T>"},
      {"<T><ab _NodeID=\"0\"/></T>", "<S><ab/></S>", "AB", 2,
       "<T><ab _NodeID=\"0\"/><ab _NodeID=\"1\"/></T>"},
      {"<T><a/></T>", "<S><b/></S>", "", 0, "<T><a/><b/></T>"},
      {"<T><a _NodeID=\"2147483647\"/></T>", "<S><a _NodeID=\"3\"/></S>", "a", INT_MIN,
       "<T><a _NodeID=\"2147483647\"/><a _NodeID=\"3\"/></T>"},
      {"<T><é _NodeID=\"1\"/></T>", "<S><É1/></S>", "É", 3, "<T><é _NodeID=\"1\"/><É1 _NodeID=\"2\"/></T>"},
  };
  for (const auto& [to, from, prefix, result, after] : rows) {
    RYXmlWrapperBase target = parse(to);
    RYXmlWrapperBase source = parse(from);
    EXPECT_EQ(rytree_append_children(&target, &source, prefix), result) << after;
    EXPECT_EQ(text(target), after);
    EXPECT_EQ(text(source), from);
    EXPECT_EQ(rytree_append_children(&target, &source, nullptr), 0);
    EXPECT_EQ(rytree_append_children(&target, nullptr, ""), 0);
    EXPECT_EQ(rytree_append_children(nullptr, &source, ""), 0);
  }
  RYXmlWrapperBase self = parse("<T><a _NodeID=\"1\"/><a/></T>");
  EXPECT_EQ(rytree_append_children(&self, &self, "a"), 4);
  EXPECT_EQ(text(self), "<T><a _NodeID=\"1\"/><a/><a _NodeID=\"2\"/><a _NodeID=\"3\"/></T>");
  RYXmlWrapperBase source = parse("<S><a/><a><t/></a></S>");
  RYXmlWrapperBase inside = at(source, {1, 0});
  EXPECT_EQ(rytree_append_children(&inside, &source, "a"), 0);
  EXPECT_EQ(text(source), "<S><a/><a><t><a/><a><t/></a></t></a></S>");
}

TEST(Move, StandsBesideItsTarget) {
  const char* const tree = "<R><a/><b><c k=\"1\">t</c><d/></b><e/></R>";  // a 0, b 1, c 2, d 3, e 4
  struct Move {
    int from, to, flags;
    const char* attribute;
    int result;
    const char* after;
  };
  const Move moves[] = {
      {4, 0, 0, nullptr, 1, "<R><e/><a/><b><c k=\"1\">t</c><d/></b></R>"},
      {0, 2, 0, nullptr, 1, "<R><b><c k=\"1\">t</c><a/><d/></b><e/></R>"},
      {0, 3, 0, nullptr, 1, "<R><b><c k=\"1\">t</c><d/><a/></b><e/></R>"},
      {2, 0, 0, nullptr, 1, "<R><c k=\"1\">t</c><a/><b><d/></b><e/></R>"},
      {2, 4, 0, nullptr, 1, "<R><a/><b><d/></b><e/><c k=\"1\">t</c></R>"},
      {1, 1, 0, nullptr, 1, tree},
      {1, -1, 0, nullptr, 1, "<R><a/><e/><b><c k=\"1\">t</c><d/></b></R>"},
      {2, INT_MIN, 0, nullptr, 1, "<R><a/><b><d/></b><e/><c k=\"1\">t</c></R>"},
      {1, 3, 0, nullptr, 0, tree},  // into its own branch
      {1, 2, 0, nullptr, 0, tree},
      {0, 5, 0, nullptr, 0, tree},
      {5, 0, 0, nullptr, 0, tree},
      {-1, 0, 0, nullptr, 0, tree},
      {2, 1, 0x40000, nullptr, 1,
       "<R><a/><e/><b><c k=\"1\">t</c><d/></b></R>"},  // direct children only: e is 2
      {0, 4, 0x2, nullptr, 1,
       "<R><b><c k=\"1\">t</c><d/></b><e/><a/></R>"},  // the low byte alone does nothing
      {0, 1, 0x20000, nullptr, 0, tree},               // one branch only
      {0, -1, 0x10000, "k", 0, tree},                  // b hides c
  };
  for (const Move& move : moves) {
    RYXmlWrapperBase node = parse(tree);
    EXPECT_EQ(rytree_move_node(&node, move.from, move.to, move.flags, move.attribute), move.result)
        << move.from << " to " << move.to;
    EXPECT_EQ(text(node), move.after) << move.from << " to " << move.to;
  }
  RYXmlWrapperBase ids = parse("<R><a _NodeID=\"5\" DataID=\"6\"/><b/></R>");
  RYXmlWrapperBase old = at(ids, {0});
  EXPECT_EQ(rytree_move_node(&ids, 0, 1, 0, nullptr), 1);
  EXPECT_EQ(text(ids), "<R><b/><a _NodeID=\"5\" DataID=\"6\"/></R>");
  EXPECT_EQ(old.IsNodeValid(), 0);
  EXPECT_EQ(rytree_move_node(&old, 0, 1, 0, nullptr), 0);
  EXPECT_EQ(rytree_move_node(nullptr, 0, 1, 0, nullptr), 0);

  RYXmlWrapperBase deep = deep_tree(1024);
  RYXmlWrapperBase pair;
  deep.AddNode(pair, "P", -1);
  pair.AddNode(pair, "Q", -1);
  EXPECT_EQ(rytree_move_node(&deep, 1023, 1022, 0, nullptr), 0) << "too deep: nothing may be lost";
  EXPECT_EQ(tag(pair), "Q");
}

TEST(Ids, LieInARange) {
  const Rows<const char*, int, int, int, int> rows = {
      {"<a _NodeID=\"8\"/>", 2, 5, 3, 1},   {"<a _NodeID=\"9\"/>", 2, 5, 3, 0},
      {"<a _NodeID=\"2\"/>", 2, 5, 0, 1},   {"<a _NodeID=\"1\"/>", 2, 5, 0, 0},
      {"<a _NodeID=\"3\"/>", 5, 2, 9, 0},   {"<a/>", 0, 0, 0, 1},
      {"<a _NodeID=\"-3\"/>", -5, 2, 0, 0}, {"<a _NodeID=\"7\"/>", 1, INT_MAX, INT_MAX, 1},
      {"<a _NodeID=\"4\"/>", 2, 5, -1, 1},  {"<a _NodeID=\"5\"/>", 2, 5, -1, 0}};
  for (const auto& [xml, first, last, extra, wanted] : rows) {
    RYXmlWrapperBase node = parse(xml);
    EXPECT_EQ(rytree_is_in_ids_range(&node, first, last, extra), wanted) << xml << first << last << extra;
  }
  RYXmlWrapperBase none;
  EXPECT_EQ(rytree_is_in_ids_range(&none, 0, 5, 0), 0);
  EXPECT_EQ(rytree_is_in_ids_range(nullptr, 0, 5, 0), 0);
}

TEST(Tags, AreRenamedThroughTheText) {
  const Rows<const char*, const char*, bool, const char*> rows = {
      {"<a _NodeID=\"3\" k=\"a\"><a>a</a>x</a>", "Long", true,
       "<Long _NodeID=\"3\" k=\"a\">x<a>a</a></Long>"},
      {"<abc>t</abc>", "x", true, "<x>t</x>"},
      {"<a/>", "b", false, "<a/>"},
      {"<a k=\"1\"/>", "b", false, "<a k=\"1\"/>"},
      {"<a>t</a>", "1b", false, "<a>t</a>"},
      {"<a>t</a>", "", false, "<a>t</a>"},
      {"<a>t</a>", "b c=\"1\"", false, "<a>t</a>"},
      {"<é>t</é>", "ü", true, "<ü>t</ü>"},
  };
  for (const auto& [before, name, result, after] : rows) {
    RYXmlWrapperBase tree = parse("<R>" + std::string(before) + "</R>");
    RYXmlWrapperBase node = at(tree, {0});
    EXPECT_EQ(VCTreeSetTagName(&node, name), result) << before << name;
    EXPECT_EQ(text(node), after);
    EXPECT_FALSE(VCTreeSetTagName(&node, nullptr));
  }
  RYXmlWrapperBase dead = dead_node();
  EXPECT_FALSE(VCTreeSetTagName(&dead, "b"));
  EXPECT_FALSE(VCTreeSetTagName(nullptr, "b"));
}

TEST(Menu, StampsBranchesAndNewItems) {
  RYXmlWrapperBase tree =
      parse("<R><a/><b DataID=\"7\" _NodeID=\"2\"/><c><d DataID=\"0\"/></c><e DataID=\"x\"/></R>");
  DWORD next = 0xFFFFFFFEU;
  EXPECT_EQ(VCTreePrepareForMenu(&tree, next), 3);
  EXPECT_EQ(next, 1U);
  EXPECT_EQ(
      text(tree),
      "<R _NodeID=\"268435456\"><a _NodeID=\"11\" DataID=\"-2\"/><b _NodeID=\"2\" DataID=\"7\"/>"
      "<c _NodeID=\"268435456\"><d _NodeID=\"11\" DataID=\"-1\"/></c><e _NodeID=\"11\" DataID=\"0\"/></R>");
  EXPECT_EQ(VCTreePrepareForMenu(nullptr, next), 0);
}

}  // namespace
