// Bulk edits: pruning, attributes and values of a branch.
#include <rytree_Utils/edit.h>

#include <climits>
#include <functional>
#include <random>

#include "tests/tree_text.h"

namespace {

struct Edit {
  const char* what;
  const char* before;
  std::function<int(RYXmlWrapperBase&)> edit;
  int result;
  const char* after;
};

void check(std::initializer_list<Edit> edits) {
  for (const Edit& edit : edits) {
    SCOPED_TRACE(edit.what);
    RYXmlWrapperBase tree = parse(edit.before);
    EXPECT_EQ(edit.edit(tree), edit.result);
    EXPECT_EQ(text(tree), edit.after);
  }
}

auto missing(int recursive, int remove, int keep, const char* name = "k") {
  return [=](RYXmlWrapperBase& tree) {
    return rytree_delete_nodes_by_missing_attribute(&tree, name, recursive, remove, keep);
  };
}

TEST(Edit, PrunesWhatLacksAnAttribute) {
  const char* const tree =
      "<R><a/><b k=\"\">t</b><c><d/><e/></c><f><g k=\"1\"/><h/></f><i k=\"2\"><j/></i></R>";
  check({
      {"flat", tree, missing(0, 0, 0), 1,
       "<R><b k=\"\">t</b><c><d/><e/></c><f><g k=\"1\"/><h/></f><i k=\"2\"><j/></i></R>"},
      {"recursive", tree, missing(1, 0, 0), 6, "<R><b k=\"\">t</b><f><g k=\"1\"/></f><i k=\"2\"/></R>"},
      {"keeping branches", tree, missing(1, 0, 1), 5,
       "<R><b k=\"\">t</b><c/><f><g k=\"1\"/></f><i k=\"2\"/></R>"},
      {"removing the attribute", tree, missing(1, 1, 0), 6, "<R><b>t</b><f><g/></f><i/></R>"},
      {"kept branches keep theirs", "<R><a k=\"1\"><b k=\"2\"/></a></R>", missing(1, 1, 1), 0,
       "<R><a k=\"1\"><b/></a></R>"},
      {"a branch with children left is not judged", "<R><a><b k=\"2\"/></a></R>", missing(1, 0, 0), 0,
       "<R><a><b k=\"2\"/></a></R>"},
      {"no name", tree, missing(1, 1, 0, nullptr), 0, tree},
  });
}

TEST(Edit, PrunesByAttribute) {
  const char* const tree =
      "<R><a v=\"1\" x=\"\"><b v=\"1\" x=\"1\"/><c v=\"2\"/></a><d v=\"1\"><e v=\"1\"/></d><f><g "
      "v=\"1\"/></f><h v=\"y\"/></R>";
  const auto by = [](int recursive, const char* exempt) {
    return [=](RYXmlWrapperBase& node) {
      return rytree_delete_nodes_by_attribute(&node, "v", 1, recursive, exempt);
    };
  };
  check({
      {"flat", tree, by(0, nullptr), 2, "<R><f><g v=\"1\"/></f><h v=\"y\"/></R>"},
      {"flat with exemption", tree, by(0, "x"), 1,
       "<R><a v=\"1\" x=\"\"><b v=\"1\" x=\"1\"/><c v=\"2\"/></a><f><g v=\"1\"/></f><h v=\"y\"/></R>"},
      {"recursive with exemption", tree, by(1, "x"), 3,
       "<R><a v=\"1\" x=\"\"><c v=\"2\"/></a><f/><h v=\"y\"/></R>"},
      {"recursive", tree, by(1, nullptr), 3, "<R><f/><h v=\"y\"/></R>"},
      {"all hits", tree,
       [](RYXmlWrapperBase& node) { return rytree_remove_nodes_by_attribute(&node, "v", 1); }, 3,
       "<R><f/><h v=\"y\"/></R>"},
  });
  EXPECT_EQ(rytree_remove_nodes_by_attribute(nullptr, "v", 1), -1);
  RYXmlWrapperBase dead = dead_node();
  EXPECT_EQ(rytree_remove_nodes_by_attribute(&dead, "v", 1), -1);
}

TEST(Edit, OneWalkRemovesWhatRepeatedSearchesWould) {
  std::mt19937 random(11);
  const std::function<std::string(int)> branch = [&](int depth) {
    std::string xml = "<n v=\"" + std::to_string(random() % 3) + "\">";
    for (unsigned left = depth > 0 ? random() % 4 : 0; left > 0; --left) xml += branch(depth - 1);
    return xml + "</n>";
  };
  for (int round = 0; round < 200; ++round) {
    RYXmlWrapperBase ours = parse(branch(4));
    RYXmlWrapperBase literal;
    ours.Clone(literal, 1);
    int count = 0;
    RYXmlWrapperBase found;
    while (literal.FindNodeByAttribute(found, "v", 1, 1) != 0) {
      RYXmlWrapperBase parent;
      found.GetParent(parent);
      parent.RemoveChild(found, nullptr);
      ++count;
    }
    ASSERT_EQ(rytree_remove_nodes_by_attribute(&ours, "v", 1), count);
    ASSERT_EQ(text(ours), text(literal));
  }
}

TEST(Edit, RemovesAndHidesTheEmpty) {
  const char* const tree =
      "<R><a/><b>t</b><c><d/><e/></c><f><g>t</g><h Show=\"1\"/><i Show=\"1\">t</i></f></R>";
  const auto remove = [](bool recursive) {
    return [=](RYXmlWrapperBase& node) { return rytree_remove_empty_child_nodes(&node, recursive); };
  };
  const auto hide = [](bool recursive, bool show) {
    return [=](RYXmlWrapperBase& node) { return rytree_hide_empty_nodes(&node, recursive, show); };
  };
  check({
      {"flat", tree, remove(false), 3,
       "<R><b>t</b><c><d/><e/></c><f><g>t</g><h Show=\"1\"/><i Show=\"1\">t</i></f></R>"},
      {"recursive", tree, remove(true), 3, "<R><b>t</b><f><g>t</g><i Show=\"1\">t</i></f></R>"},
      {"nothing left but the text of a branch", "<R><c>t<d/><e><f/></e></c></R>", remove(true), 0, "<R/>"},
      {"hide flat", tree, hide(false, true), 1,
       "<R><a Show=\"0\"/><b>t</b><c><d/><e/></c><f><g>t</g><h Show=\"1\"/><i Show=\"1\">t</i></f></R>"},
      {"hide all", tree, hide(true, false), 4,
       "<R><a Show=\"0\"/><b>t</b><c><d Show=\"0\"/><e Show=\"0\"/></c><f><g>t</g><h Show=\"0\"/><i "
       "Show=\"1\">t</i></f></R>"},
      {"and show the others", "<R Show=\"0\"><a Show=\"0\">t</a><b Show=\"0\"><c/></b></R>", hide(true, true),
       1, "<R Show=\"0\"><a>t</a><b Show=\"0\"><c Show=\"0\"/></b></R>"},
  });
}

TEST(Edit, SetsAndRemovesAttributes) {
  const char* const tree = "<R k=\"0\"><a><b/></a><c k=\"0\"/></R>";
  const auto set = [](bool children, bool branches) {
    return [=](RYXmlWrapperBase& node) {
      rytree_set_attribute_to_all_nodes(&node, "k", "1", children, branches);
      return 0;
    };
  };
  const auto remove = [](int self) {
    return [=](RYXmlWrapperBase& node) { return rytree_remove_attribute(&node, "k", self); };
  };
  const auto bits = [](int word, bool recursive) {
    return [=](RYXmlWrapperBase& node) {
      return rytree_set_attribute_bit_if_not_empty(&node, "k", word, recursive);
    };
  };
  check({
      {"all", tree, set(false, false), 0, "<R k=\"1\"><a k=\"1\"><b k=\"1\"/></a><c k=\"1\"/></R>"},
      {"branches", tree, set(false, true), 0, "<R k=\"1\"><a k=\"1\"><b/></a><c k=\"0\"/></R>"},
      {"children", tree, set(true, false), 0, "<R k=\"0\"><a k=\"1\"><b/></a><c k=\"1\"/></R>"},
      {"branches among children", tree, set(true, true), 0, "<R k=\"0\"><a k=\"1\"><b/></a><c k=\"0\"/></R>"},
      {"a leaf is no branch", "<R/>", set(false, true), 0, "<R/>"},
      {"remove below", "<R k=\"0\"><a><b k=\"\"/></a><c k=\"0\"/></R>", remove(0), 2,
       "<R k=\"0\"><a><b/></a><c/></R>"},
      {"remove all", "<R k=\"0\"><a><b k=\"\"/></a><c k=\"0\"/></R>", remove(1), 3, "<R><a><b/></a><c/></R>"},
      {"bits", "<R k=\"4\"><a>t</a></R>", bits(3, false), 1, "<R k=\"7\"><a>t</a></R>"},
      {"bits above 31", "<R k=\"1\"><a>t</a></R>", bits(INT_MIN, false), 1,
       "<R k=\"-2147483647\"><a>t</a></R>"},
      {"only deep text", "<R k=\"4\"><b><a>t</a></b></R>", bits(3, false), 0,
       "<R k=\"4\"><b><a>t</a></b></R>"},
      {"deep text", "<R k=\"4\"><c/><b><a>t</a></b></R>", bits(3, true), 1,
       "<R k=\"7\"><c/><b><a>t</a></b></R>"},
      {"the text of a branch", "<R k=\"4\"><b>t<a/></b></R>", bits(3, true), 0,
       "<R k=\"4\"><b>t<a/></b></R>"},
      {"no attribute", "<R><a>t</a></R>", bits(3, false), 0, "<R><a>t</a></R>"},
      {"clear", "<R>r<a k=\"1\">1</a><b>2<c>3</c></b></R>",
       [](RYXmlWrapperBase& node) { return rytree_clear_all_value(&node), 0; }, 0,
       "<R>r<a k=\"1\"/><b>2<c/></b></R>"},
  });
}

TEST(Edit, ModifiesFlagWords) {
  const Rows<const char*, DWORD, DWORD, const char*> rows = {
      {"<R k=\"4\"/>", 2, 3, "<R k=\"5\"/>"},
      {"<R/>", 1, 0, "<R/>"},
      {"<R/>", 1, 3, "<R k=\"2\"/>"},
      {"<R k=\"6\"/>", 2, 0, "<R k=\"4\"/>"},
      {"<R k=\"-1\"/>", 0x80000000U, 0, "<R k=\"2147483647\"/>"},
      {"<R k=\"0\"/>", 0, 0x80000000U, "<R k=\"-2147483648\"/>"},
      {"<R k=\"x\"/>", 1, 0, "<R k=\"x\"/>"},
  };
  for (const auto& [before, clear, set, after] : rows) {
    RYXmlWrapperBase tree = parse(before);
    vctree_modify_DWORD_attribute(tree, "k", clear, set);
    EXPECT_EQ(text(tree), after) << before << clear << set;
  }
}

TEST(Edit, BadNodesGiveNothing) {
  RYXmlWrapperBase dead = dead_node();
  for (RYXmlWrapperBase* const node : {static_cast<RYXmlWrapperBase*>(nullptr), &dead}) {
    EXPECT_EQ(rytree_delete_nodes_by_missing_attribute(node, "k", 1, 1, 0), 0);
    EXPECT_EQ(rytree_delete_nodes_by_attribute(node, "k", 1, 1, "x"), 0);
    EXPECT_EQ(rytree_remove_empty_child_nodes(node, true), 0);
    EXPECT_EQ(rytree_hide_empty_nodes(node, true, true), 0);
    EXPECT_EQ(rytree_set_attribute_bit_if_not_empty(node, "k", 1, true), 0);
    EXPECT_EQ(rytree_remove_attribute(node, nullptr, 1), 0);
    rytree_set_attribute_to_all_nodes(node, "k", nullptr, false, false);
    rytree_clear_all_value(node);
  }
}

}  // namespace
