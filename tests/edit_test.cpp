// Bulk edits: removing nodes, attributes and values of a branch.
#include <rytree_Utils/edit.h>

#include <functional>
#include <map>
#include <random>

#include "tests/tree_text.h"

namespace {

using Edit = int (*)(RYXmlWrapperBase* node, bool a, bool b, bool c);
const std::map<std::string, Edit> kEdits = {
    {"missing", [](auto* node, bool a, bool b,
                   bool c) { return rytree_delete_nodes_by_missing_attribute(node, "k", a, b, c); }},
    {"by value", [](auto* node, bool a, bool b,
                    bool) { return rytree_delete_nodes_by_attribute(node, "v", 1, a, b ? "x" : nullptr); }},
    {"all hits", [](auto* node, bool, bool, bool) { return rytree_remove_nodes_by_attribute(node, "v", 1); }},
    {"empty", [](auto* node, bool a, bool, bool) { return rytree_remove_empty_child_nodes(node, a); }},
    {"hide", [](auto* node, bool a, bool b, bool) { return rytree_hide_empty_nodes(node, a, b); }},
    {"set", [](auto* node, bool a, bool b,
               bool c) { return rytree_set_attribute_to_all_nodes(node, "k", c ? nullptr : "1", a, b), 0; }},
    {"remove", [](auto* node, bool a, bool, bool) { return rytree_remove_attribute(node, "k", a); }},
    {"bits",
     [](auto* node, bool a, bool, bool) { return rytree_set_attribute_bit_if_not_empty(node, "k", 3, a); }},
    {"clear", [](auto* node, bool, bool, bool) { return rytree_clear_all_value(node), 0; }},
};

// No tree before: that of the row above; none after: it stays as it was.
TEST(Edit, ChangesTheBranch) {
  std::string tree;
  for (const auto& [edit, flags, before, result, after] : rows<5>(R"(
      missing  | 000 | <R><a/><b k="">t</b><c><d/><e/></c><f><g k="1"/><h/></f><i k="2"><j/></i></R> | 1 | <R><b k="">t</b><c><d/><e/></c><f><g k="1"/><h/></f><i k="2"><j/></i></R>
      missing  | 100 | | 6 | <R><b k="">t</b><f><g k="1"/></f><i k="2"/></R>
      missing  | 110 | | 6 | <R><b>t</b><f><g/></f><i/></R>
      missing  | 111 | | 5 | <R><b>t</b><c/><f><g/></f><i k="2"/></R>
      by value | 010 | <R><a v="1" x=""><b v="1" x="1"/><c v="2"/></a><d v="1"><e v="1"/></d><f><g v="1"/></f><h v="y"/></R> | 1 | <R><a v="1" x=""><b v="1" x="1"/><c v="2"/></a><f><g v="1"/></f><h v="y"/></R>
      by value | 110 | | 3 | <R><a v="1" x=""><c v="2"/></a><f/><h v="y"/></R>
      by value | 100 | | 3 | <R><f/><h v="y"/></R>
      all hits | 000 | | 3 | <R><f/><h v="y"/></R>
      empty    | 000 | <R><a/><b Show="0">t</b><c>u<d/><e/></c><f Show="0"><g>t</g><h Show="1"/><i Show="1">t</i></f></R> | 3 | <R><b Show="0">t</b><c>u<d/><e/></c><f Show="0"><g>t</g><h Show="1"/><i Show="1">t</i></f></R>
      empty    | 100 | | 3 | <R><b Show="0">t</b><f Show="0"><g>t</g><i Show="1">t</i></f></R>
      hide     | 010 | | 1 | <R><a Show="0"/><b>t</b><c>u<d/><e/></c><f Show="0"><g>t</g><h Show="1"/><i Show="1">t</i></f></R>
      hide     | 100 | | 4 | <R><a Show="0"/><b Show="0">t</b><c>u<d Show="0"/><e Show="0"/></c><f Show="0"><g>t</g><h Show="0"/><i Show="1">t</i></f></R>
      hide     | 110 | | 4 | <R><a Show="0"/><b>t</b><c>u<d Show="0"/><e Show="0"/></c><f Show="0"><g>t</g><h Show="0"/><i>t</i></f></R>
      empty    | 100 | <R><c>t<d/><e><f/></e></c></R> | 0 | <R/>
      set      | 000 | <R k="0"><a><b k=""/></a><c k="0"/></R> | 0 | <R k="1"><a k="1"><b k="1"/></a><c k="1"/></R>
      set      | 010 | | 0 | <R k="1"><a k="1"><b k=""/></a><c k="0"/></R>
      set      | 100 | | 0 | <R k="0"><a k="1"><b k=""/></a><c k="1"/></R>
      set      | 111 | | 0 | <R k="0"><a k=""><b k=""/></a><c k="0"/></R>
      remove   | 000 | | 2 | <R k="0"><a><b/></a><c/></R>
      remove   | 100 | | 3 | <R><a><b/></a><c/></R>
      bits     | 000 | <R k="5"><a>t</a></R> | 1 | <R k="7"><a>t</a></R>
      bits     | 000 | <R k="-8"><c/><b><a>t</a></b></R> | 0 |
      bits     | 100 | | 1 | <R k="-5"><c/><b><a>t</a></b></R>
      bits     | 100 | <R k="4"><b>t<a/></b></R> | 0 |
      bits     | 000 | <R><a>t</a></R> | 0 |
      clear    | 000 | <R>r<a k="1">1</a><b>2<c>3</c></b></R> | 0 | <R>r<a k="1"/><b>2<c/></b></R>)")) {
    SCOPED_TRACE(edit + flags + before);
    if (!before.empty()) tree = before;
    RYXmlWrapperBase node = parse(tree);
    EXPECT_EQ(kEdits.at(edit)(&node, flags[0] == '1', flags[1] == '1', flags[2] == '1'), std::stoi(result));
    EXPECT_EQ(text(node), after.empty() ? tree : after);
  }
}

TEST(Edit, BadArgumentsGiveNothing) {
  RYXmlWrapperBase dead = dead_node();
  for (const auto& [name, edit] : kEdits) {
    EXPECT_EQ(edit(nullptr, true, true, true), name == "all hits" ? -1 : 0) << name;
    EXPECT_EQ(edit(&dead, true, true, true), name == "all hits" ? -1 : 0) << name;
  }
  RYXmlWrapperBase tree = parse("<R><a/></R>");
  EXPECT_EQ(rytree_delete_nodes_by_missing_attribute(&tree, nullptr, 1, 1, 0), 0);
  EXPECT_EQ(text(tree), "<R><a/></R>");
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
    for (; literal.FindNodeByAttribute(found, "v", 1, 1) != 0; ++count) {
      RYXmlWrapperBase parent;
      found.GetParent(parent);
      parent.RemoveChild(found, nullptr);
    }
    ASSERT_EQ(rytree_remove_nodes_by_attribute(&ours, "v", 1), count);
    ASSERT_EQ(text(ours), text(literal));
  }
}

TEST(Edit, ModifiesFlagWords) {
  for (const auto& [before, clear, set, after] : rows<4>(R"(
      <R k="4"/>  | 2          | 3          | <R k="5"/>
      <R/>        | 1          | 0          | <R/>
      <R/>        | 1          | 3          | <R k="2"/>
      <R k="6"/>  | 2          | 0          | <R k="4"/>
      <R k="-1"/> | 0x80000000 | 0          | <R k="2147483647"/>
      <R k="0"/>  | 0          | 0x80000000 | <R k="-2147483648"/>
      <R k="x"/>  | 1          | 0          | <R k="x"/>)")) {
    RYXmlWrapperBase tree = parse(before);
    const auto word = [](const std::string& hex) { return static_cast<DWORD>(std::stoul(hex, nullptr, 0)); };
    vctree_modify_DWORD_attribute(tree, "k", word(clear), word(set));
    EXPECT_EQ(text(tree), after) << before << clear << set;
  }
}

}  // namespace
