#include <rytree_Utils/homologous.h>

#include <random>

#include "call_arguments.h"
#include "frame/children.h"

namespace {

using Node = RYXmlWrapperBase;
const auto matching = rytree_copy_values_to_attributes_by_attribute_matching;
const auto copy_homologous = vctree_copy_values_between_homologous_trees;

/// A copy by attribute matching done step by step, with every search made anew.
struct Matching {
  const char *attribute, *match, *extra;
  bool recursive, all, case_sensitive;

  int call(Node& source, Node& target) const {
    return matching(&source, &target, attribute, match, extra, recursive, all, case_sensitive);
  }
  int read(Node& node, CString& key) const {
    return node.GetPropertyValue(match != nullptr ? match : "DataID", key);
  }
  int set(Node& target, CString& value, const CString& wanted, const CString& extra_value) const {
    int result = 0;
    for (Children child(target); child && (all || result == 0); ++child) {
      CString key;
      if (read(*child, key) != 0 && (case_sensitive ? _mbscmp(key, wanted) : _mbsicmp(key, wanted)) == 0) {
        child->SetPropertyValue(attribute != nullptr ? attribute : "Show", value);
        if (extra != nullptr) child->SetPropertyValue(extra, extra_value);
        result = 1;
        if (!all) break;
      }
      if (recursive && child->GetNodeCount() > 0) result = set(*child, value, wanted, extra_value);
    }
    return result;
  }
  int copy(Node& source, Node& target) const {
    int result = 0;
    CString extra_value;
    for (Children child(source); child; ++child) {
      CString wanted;
      CString value;
      if (child->GetNodeCount() > 0) {
        if (recursive) result = copy(*child, target);
      } else if (read(*child, wanted) != 0) {
        child->NodeValue(value, 1, 1, nullptr);
        if (extra != nullptr) child->GetPropertyValue(extra, extra_value);
        result = set(target, value, wanted, extra_value);
      }
    }
    return result;
  }
};

/// Small trees whose tags and texts meet, also ignoring case.
class Trees {
 public:
  int below(std::size_t bound) { return static_cast<int>(random_() % bound); }
  template <class Items>
  auto one_of(const Items& items) {
    return items[static_cast<std::size_t>(below(std::size(items)))];
  }

  Node make() {
    // A comparison goes as far as a NUL; a copy takes the whole text.
    const std::vector<CString> texts = {"", "a", "A", CString("a\0b", 3), "\xC3\xA9", "\xC3\x89", "7", "07"};
    std::vector<Node> nodes{parse("<R/>")};
    for (int count = below(12); count > 0; --count) {
      Node node;
      one_of(nodes).AddNode(node, one_of(std::vector{"a", "A", "b", "\xC3\xA9", "\xC3\x89", "r"}), -1);
      CString value(one_of(texts));
      node.NodeValue(value, 0, 1, nullptr);
      for (const char* const name : {"Show", "DataID", "k", "x"}) {
        if (below(3) != 0) node.SetPropertyValue(name, one_of(texts));
      }
      nodes.push_back(node);
    }
    return nodes[0];
  }

 private:
  std::mt19937 random_{1};
};

/// The copy and the slow one give the same result and leave the same trees. The low bits of `form` tell whether
/// the nodes lie in one tree and whether each is the root or its first child.
void agree(const Node& first, const Node& second, int form, const Matching& rule) {
  const auto run = [&](bool slowly) {
    Node roots[2];
    first.Clone(roots[0], 0), second.Clone(roots[1], 0);
    if ((form & 1) != 0) roots[1] = roots[0];
    Node nodes[] = {roots[0], roots[1]};
    for (const int side : {0, 1}) {
      Node child;
      if ((form & 2 << side) != 0 && roots[side].FirstChild(child) != 0) nodes[side] = child;
    }
    const int result = slowly ? rule.copy(nodes[0], nodes[1]) : rule.call(nodes[0], nodes[1]);
    return std::to_string(result) + text(roots[0]) + text(roots[1]);
  };
  ASSERT_EQ(run(false), run(true)) << text(first) << text(second) << form;
}

TEST(Homologous, CopiesByAttributeAgreeWithTheSlowWay) {
  Trees trees;
  const std::vector<const char*> names = {nullptr, "Show", "DataID", "k", "x", "", "1x"};
  for (int round = 0; round < 6000 && !HasFailure(); ++round) {
    SCOPED_TRACE(round);
    const Node first = trees.make();
    const Node second = trees.make();
    const Matching rule{trees.one_of(names), trees.one_of(names), trees.one_of(names),
                        trees.below(3) != 0, trees.below(2) != 0, trees.below(2) != 0};
    agree(first, second, trees.below(8), rule);
  }
  // The last leaf has moved on to "e" by two writes; what it passes on is the extra text of the later one.
  const Node chain =
      parse("<R><a k='a' x='1'>b</a><a k='c' x='2'>d</a><a k='d' x='3'>e</a><a k='c' x='9'>f</a></R>");
  agree(chain, chain, 1, {"k", "k", "x", true, true, true});
}

TEST(Homologous, CopiesIdsByTag) {
  Node source = parse_ids("<S><a #1/><B #2><c #3/></B><a #4/><é/></S>");
  for (const auto& [leaves_only, before, result, after] : rows<4>(R"(
      0 | <R><A/><a/><b><a/></b><C/><É/></R> | 5 | <R><A #4/><a/><b #2><a/></b><C #3/><É #-1/></R>
      1 | <R><A/><a/><b><a/></b><C/><É/></R> | 4 | <R><A #4/><a/><b><a/></b><C #3/><É #-1/></R>
      1 | <R><a><A/></a></R>                 | 2 | <R><a><A #4/></a></R>
      0 | <a/>                               | 2 | <a #4/>)")) {
    Node dest = parse(before);
    EXPECT_EQ(rytree_copy_ids_by_tagname(&source, &dest, leaves_only == "1"), std::stoi(result));
    EXPECT_EQ(text(dest), text(parse_ids(after)));
  }
}

TEST(Homologous, CopiesAsFarAsTheShapesAgree) {
  const char* const source = "<R k='1'><a L='s'>1</a><b L='s'>2<c L='s'>3</c></b><d L='s'>4</d></R>";
  CStringArray keep = items_of("none,L,1x,L");
  for (const auto& [before, result, after] : rows<3>(R"(
      <R><a L=''/><b L='o'>o<c L='o'/></b><d/></R> | 0 | \
          <R k='1'><a L='s'>1</a><b L='o'>o<c L='o'>3</c></b><d L='s'>4</d></R>
      <R L='o'><a L='o'/><b L='o'><c/><e/></b><d/></R> | 1 | \
          <R L='o' k='1'><a L='o'>1</a><b L='s'><c L='s'>3</c><e/></b><d/></R>
      <R><a/><b L='o'/><d/></R> | 1 | <R k='1'><a L='s'>1</a><b L='s'/><d/></R>
      <R><a><x/></a></R> | 1 | <R k='1'><a L='s'><x/></a></R>
      <R><a/></R> | 1 | <R k='1'><a L='s'>1</a></R>)")) {
    Node dest = parse(before);
    Node from = parse(source);
    EXPECT_EQ(std::to_string(copy_homologous(dest, from, 1, &keep)), result);
    EXPECT_EQ(text(dest), text(parse(after)));
  }
  // The siblings that follow the start nodes take part; one invalid node is a difference, two are none.
  Node dest = parse("<R><a/><b><c/></b><d/></R>");
  Node from = parse(source);
  Node first = at(dest, {1});
  Node from_first = at(from, {1});
  EXPECT_EQ(rytree_copy_values_between_homologous_trees(&first, &from_first, 0), 0);
  EXPECT_EQ(text(dest), "<R><a/><b><c>3</c></b><d>4</d></R>");
  EXPECT_EQ(with_bad(rytree_copy_values_between_homologous_trees, &dest, &from, 1), "-1 1,-1 1");
  Node none;
  EXPECT_EQ(rytree_copy_values_between_homologous_trees(&none, &none, 1), 0);
}

TEST(Homologous, CopiesSingleAttributes) {
  Node source = parse("<R k='1'><a k='2'><b k=''/></a><c/></R>");
  for (const auto& [before, skip_top, result, after] : rows<4>(R"(
      <R k='o'><p><q/><z/></p></R>           | 0 | 3 | <R k='1'><p k='2'><q k=''/><z/></p></R>
      <R k='o'><p><q/></p><r k='o'/><s/></R> | 1 | 2 | <R k='o'><p k='2'><q k=''/></p><r k='o'/><s/></R>)")) {
    Node dest = parse(before);
    EXPECT_EQ(rytree_copy_atts(&source, &dest, "k", std::stoi(skip_top)), std::stoi(result));
    EXPECT_EQ(text(dest), text(parse(after)));
  }
  Node dest = parse("<R Branch='8'/>");
  EXPECT_EQ(rytree_node_copy_attribute(&source, &dest, "k"), 1);
  EXPECT_EQ(rytree_node_copy_attribute(&source, &dest, "none"), 0);
  EXPECT_EQ(vctree_copy_branch_options(&dest, &source, 7), 0);
  EXPECT_EQ(text(dest), text(parse("<R Branch='8' k='1'/>")));
  source.SetPropertyValue("Branch", -3);
  for (const auto& [mask, after] :
       Rows<unsigned long, int>{{7, 5}, {0, 0}, {static_cast<unsigned long>(0xFFFFFFFF0ULL), -16}}) {
    int branch = 1;
    EXPECT_EQ(vctree_copy_branch_options(&dest, &source, mask), 1);
    dest.GetPropertyValue("Branch", branch);
    EXPECT_EQ(branch, after);
  }
}

TEST(Homologous, BadNodesGiveNothing) {
  Node tree = parse("<R k='1'><a k='1' Branch='1'/></R>");
  EXPECT_EQ(with_bad(rytree_node_copy_attribute, &tree, &tree, "k"), "0 0,0 1,0");
  EXPECT_EQ(with_bad(rytree_copy_atts, &tree, &tree, "k", 0), "0 0,0 1,0");
  EXPECT_EQ(with_bad(matching, &tree, &tree, "w", "k", "x", 1, 1, 1), "0 0,0 0,1,0,1");
  EXPECT_EQ(with_bad(rytree_copy_ids_by_tagname, &tree, &tree, false), "0 0,0 0");
  EXPECT_EQ(with_bad(vctree_copy_branch_options, &tree, &tree, 1), "0 0,0 0");
}

}  // namespace
