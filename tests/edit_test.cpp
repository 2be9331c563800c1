// Bulk edits: removing nodes, attributes and values of a branch.
#include <rytree_Utils/edit.h>

#include "call_arguments.h"

namespace {

using Node = RYXmlWrapperBase*;

/// The edits that the tables name, with up to three flags.
int edit(const std::string& name, Node n, bool a, bool b, bool c) {
  if (name == "lacking") return rytree_delete_nodes_by_missing_attribute(n, "k", a, b, c);
  if (name == "valued") return rytree_delete_nodes_by_attribute(n, "v", 1, a, b ? "x" : nullptr);
  if (name == "hits") return rytree_remove_nodes_by_attribute(n, "v", 1);
  if (name == "empty") return rytree_remove_empty_child_nodes(n, a);
  if (name == "hide") return rytree_hide_empty_nodes(n, a, b);
  if (name == "remove") return rytree_remove_attribute(n, "k", a);
  if (name == "bits") return rytree_set_attribute_bit_if_not_empty(n, "k", 3, a);
  if (name == "set") rytree_set_attribute_to_all_nodes(n, "k", c ? nullptr : "1", a, b);
  if (name == "clear") rytree_clear_all_value(n);
  return 0;
}

// Each edit starts with the tree above it; "=" leaves that as it was.
TEST(Edit, ChangesTheBranch) {
  std::string tree;
  for (const auto& [name, flags, result, after] : rows<4>(R"(
      <R><a/><b k="">t</b><c><d/><e/></c><f><g k="1"/><h/></f><i k="2"><j/></i><l/></R> |
      lacking | 000 | 2 | <R><b k="">t</b><c><d/><e/></c><f><g k="1"/><h/></f><i k="2"><j/></i></R>
      lacking | 100 | 7 | <R><b k="">t</b><f><g k="1"/></f><i k="2"/></R>
      lacking | 110 | 7 | <R><b>t</b><f><g/></f><i/></R>
      lacking | 111 | 6 | <R><b>t</b><c/><f><g/></f><i k="2"/></R>
      <R><a v="1" x=""><b v="1" x="1"/><c v="2"/></a><d v="1"><e v="1"/></d><f><g v="1"/></f><h v="y"/></R> |
      valued  | 010 | 1 | <R><a v="1" x=""><b v="1" x="1"/><c v="2"/></a><f><g v="1"/></f><h v="y"/></R>
      valued  | 110 | 3 | <R><a v="1" x=""><c v="2"/></a><f/><h v="y"/></R>
      valued  | 100 | 3 | <R><f/><h v="y"/></R>
      hits    | 000 | 3 | <R><f/><h v="y"/></R>
      <R><a Show="1"/><b Show="0">t</b><c Show="1">u<d/><e Show="1">t</e></c></R> |
      empty   | 000 | 2 | <R><b Show="0">t</b><c Show="1">u<d/><e Show="1">t</e></c></R>
      hide    | 010 | 1 | <R><a Show="0"/><b>t</b><c Show="1">u<d/><e Show="1">t</e></c></R>
      hide    | 100 | 2 | <R><a Show="0"/><b Show="0">t</b><c Show="1">u<d Show="0"/><e Show="1">t</e></c></R>
      hide    | 110 | 2 | <R><a Show="0"/><b>t</b><c Show="1">u<d Show="0"/><e>t</e></c></R>
      <R><c>t<d/><e><f/></e></c><g><h>t</h><i/><j>t</j></g></R> |
      empty   | 100 | 2 | <R><g><h>t</h><j>t</j></g></R>
      <R><c>t<d/></c></R> |
      empty   | 100 | 0 | <R/>
      <R k="0"><a><b k=""/></a><c k="0"/></R> |
      set     | 000 | 0 | <R k="1"><a k="1"><b k="1"/></a><c k="1"/></R>
      set     | 010 | 0 | <R k="1"><a k="1"><b k=""/></a><c k="0"/></R>
      set     | 100 | 0 | <R k="0"><a k="1"><b k=""/></a><c k="1"/></R>
      set     | 111 | 0 | <R k="0"><a k=""><b k=""/></a><c k="0"/></R>
      remove  | 000 | 2 | <R k="0"><a><b/></a><c/></R>
      remove  | 100 | 3 | <R><a><b/></a><c/></R>
      <R k="5"><a>t</a></R> |
      bits    | 000 | 1 | <R k="7"><a>t</a></R>
      <R k="-8"><c/><b><a>t</a></b></R> |
      bits    | 000 | 0 | =
      bits    | 100 | 1 | <R k="-5"><c/><b><a>t</a></b></R>
      <R k="4"><b>t<a/></b></R> |
      bits    | 100 | 0 | =
      <R><a>t</a></R> |
      bits    | 000 | 0 | =
      <R>r<a k="1">1</a><b>2<c>3</c></b></R> |
      clear   | 000 | 0 | <R>r<a k="1"/><b>2<c/></b></R>)")) {
    if (flags.empty()) {
      tree = name;
      continue;
    }
    RYXmlWrapperBase node = parse(tree);
    EXPECT_EQ(edit(name, &node, flags[0] == '1', flags[1] == '1', flags[2] == '1'), std::stoi(result));
    EXPECT_EQ(text(node), after == "=" ? tree : after);
  }
}

TEST(Edit, RefusesBadArguments) {
  RYXmlWrapperBase tree = parse("<R><a/></R>");
  EXPECT_EQ(with_bad(rytree_delete_nodes_by_missing_attribute, &tree, "a", 0, 1, 0), "0 0,0");
  EXPECT_EQ(with_bad(rytree_delete_nodes_by_attribute, &tree, "v", 1, 1, "x"), "0 0,0,0");
  EXPECT_EQ(with_bad(rytree_remove_nodes_by_attribute, &tree, "v", 1), "-1 -1,0");
  EXPECT_EQ(with_bad(rytree_remove_attribute, &tree, "k", 1), "0 0,0");
  EXPECT_EQ(with_bad(rytree_remove_empty_child_nodes, &tree, true), "0 0");
  EXPECT_EQ(with_bad(rytree_hide_empty_nodes, &tree, true, true), "0 0");
  EXPECT_EQ(with_bad(rytree_set_attribute_bit_if_not_empty, &tree, "k", 3, true), "0 0,0");
  with_bad(rytree_set_attribute_to_all_nodes, &tree, nullptr, nullptr, true, true);
  with_bad(rytree_clear_all_value, &tree);
  EXPECT_EQ(text(tree), "<R><a/></R>");
}

TEST(Edit, ModifiesFlagWords) {
  using R = Row<const char*, DWORD, DWORD, const char*>;
  for (const auto& [before, clear, set, after] :
       Rows{R{"<R k='4'/>", 2, 3, R"(<R k="5"/>)"}, R{"<R/>", 1, 0, "<R/>"}, R{"<R/>", 1, 3, R"(<R k="2"/>)"},
            R{"<R k='6'/>", 2, 0, R"(<R k="4"/>)"}, R{"<R k='-1'/>", 0x80000000, 0, R"(<R k="2147483647"/>)"},
            R{"<R k='0'/>", 0, 0x80000000, R"(<R k="-2147483648"/>)"},
            R{"<R k='x'/>", 1, 0, R"(<R k="x"/>)"}}) {
    RYXmlWrapperBase tree = parse(before);
    vctree_modify_DWORD_attribute(tree, "k", clear, set);
    EXPECT_EQ(text(tree), after);
  }
}

}  // namespace
