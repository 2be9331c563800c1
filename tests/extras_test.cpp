#include <rytree_Utils.h>
#include <rytree_Utils/extras.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <random>

#include "failure.h"
#include "scratch_folder.h"
#include "tree_text.h"

namespace {

using namespace rytree;
using Node = RYXmlWrapperBase;

std::string shown(const Difference& one) {
  const auto value = [](const std::optional<std::string>& text) { return text ? "'" + *text + "'" : "none"; };
  const std::string id = one.id == -1 ? "" : std::to_string(one.id) + " ", in = one.inside ? " inside " : " ";
  const std::array<std::string, 4> parts = {" tag ", " node ID ", " text ", " @" + one.attribute + " "};
  switch (one.kind) {
    case DifferenceKind::kAdded:
      return id + "+" + one.new_path + in + value(one.new_value);
    case DifferenceKind::kRemoved:
      return id + "-" + one.old_path + in + value(one.old_value);
    case DifferenceKind::kMoved:
      return id + one.old_path + "(" + std::to_string(one.old_place) + ") to " + one.new_path + "(" +
             std::to_string(one.new_place) + ")";
    default:
      return id + one.new_path + parts[static_cast<std::size_t>(one.part)] + value(one.old_value) + ">" +
             value(one.new_value);
  }
}
std::string shown(const std::vector<Difference>& differences) {
  std::string all;
  for (const Difference& one : differences) all += (all.empty() ? "" : "; ") + shown(one);
  return all;
}

// The last column is "=" where it is the third again.
TEST(Extras, TellTheDifferencesOfTwoTrees) {
  for (const auto& [before, after, by_id, by_path] : rows<4>(R"(
<R/> | <R/> | | =
<R a="1" b="2"/> | <R b="2" a="1"/> | | =
<R><a@1/></R> | <R><a@2/></R> | R/a node ID '1'>'2' | =
<R a="1" b="2">x</R> | <S@7 c="3" b="4"/> | \
  S tag 'R'>'S'; S node ID none>'7'; S text 'x'>''; S @c none>'3'; S @b '2'>'4'; S @a '1'>none | =
<R><c/><a/><d/><b/><e/></R> | <R><a/><b/><c/><d/><e/></R> | R/a(1) to R/a(0); R/b(3) to R/b(1) | =
<R><a>1</a><a>2</a></R> | <R><b><c>4</c></b><a>1</a></R> | -R/a[2] '2'; +R/b ''; +R/b/c inside '4' | =
<R><a #1>1</a><a #2>2</a></R> | <R><a #2>2</a></R> | \
  1 -R/a '1' | -R/a[2] '2'; R/a text '1'>'2'; R/a @DataID '1'>'2'
<R><a #1><b #2/><c/></a><d/></R> | <R><a #1><c/></a><d><b #2>x</b></d></R> | \
  2 R/a/b(0) to R/d/b(0); 2 R/d/b text ''>'x' | -R/a/b ''; +R/d/b 'x'
<R><a #1><b #2><c #3/><x><y/></x></b></a></R> | <R><c #3><d/></c></R> | \
  1 -R/a ''; 2 -R/a/b inside ''; -R/a/b/x inside ''; -R/a/b/x/y inside ''; 3 R/a/b/c(0) to R/c(0); +R/c/d '' | \
  -R/a ''; -R/a/b inside ''; -R/a/b/c inside ''; -R/a/b/x inside ''; -R/a/b/x/y inside ''; +R/c ''; +R/c/d inside ''
<R><a #1>1</a><b #1>2</b><c #1>3</c></R> | <R><a #1>2</a><x #1>2</x></R> | \
  1 -R/c '3'; 1 R/a text '1'>'2'; 1 R/x tag 'b'>'x' | -R/b '2'; -R/c '3'; R/a text '1'>'2'; +R/x '2'
<R><a ^2><b #7>1</b></a><a ^4><b #7>2</b></a></R> | <R><b #7>3</b><a ^4><b #7/></a></R> | \
  -R/a[2] ''; 7 +R/b '3'; R/a @RepeatID '2'>'4'; 131079 -R/a/b '1'; 262151 R/a[2]/b(0) to R/a/b(0); \
  262151 R/a/b text '2'>'' | \
  -R/a[2] ''; -R/a[2]/b inside '2'; +R/b '3'; R/a @RepeatID '2'>'4'; R/a/b text '1'>''
)")) {
    const Node old_tree = parse_ids(before), new_tree = parse_ids(after);
    EXPECT_EQ(shown(differences_by_id(old_tree, new_tree)), by_id);
    EXPECT_EQ(shown(differences_by_path(old_tree, new_tree)), by_path == "=" ? by_id : by_path);
    EXPECT_EQ(are_equal(old_tree, new_tree), by_id.empty());
  }
}

TEST(Extras, TakeAnInvalidHandleForNoTree) {
  Node tree = parse_ids("<R><a #5>1</a></R>");
  for (Node none : {Node(), dead_node()}) {
    EXPECT_EQ(shown(differences_by_id(none, tree)), "+R ''; 5 +R/a inside '1'");
    EXPECT_EQ(shown(differences_by_path(tree, none)), "-R ''; -R/a inside '1'");
    EXPECT_EQ(
        differences_by_path(none, Node()).size() + attributes_of(none).size() + NodesById(none).ids().size(),
        0);
    EXPECT_TRUE(are_equal(none, Node()) && !are_equal(none, tree) && !are_equal(tree, none));
    EXPECT_EQ(tag_of(none) + text_of(none), "");
    EXPECT_FALSE(attribute_of(none, "a") || int_attribute_of(none, "a") ||
                 double_attribute_of(tree, nullptr));
    EXPECT_FALSE(restore(tree, none) || restore(none, tree));
    EXPECT_EQ(child_of(none, "a").IsNodeValid() + child_of(tree, nullptr).IsNodeValid() + undo_changes(none),
              0);
    EXPECT_EQ(apply_values(none, {}).matched + copy_values(none, tree).matched, -1);
  }
}

TEST(Extras, FindNodesByTheIdsOfAHarvest) {
  const Node tree = parse_ids("<R #9><a #9/><b #1 ^2><c #9/></b><b ^4><c #9/><d #-3/></b><e #9/><f/></R>");
  const NodesById nodes(tree);
  EXPECT_EQ(nodes.ids(), (std::vector{-3, 1, 9, 0x20009, 0x40009}));
  EXPECT_TRUE(nodes.find(0x40009) == at(tree, {2, 0}) && nodes.find(9) == at(tree, {0}));
  EXPECT_TRUE(nodes.find_all(9) == (std::vector{at(tree, {0}), at(tree, {3})}));
  EXPECT_TRUE(nodes.contains(-3) && !nodes.contains(-1) && nodes.find(2) == Node() &&
              nodes.find_all(-1).empty());
  EXPECT_EQ(NodesById(at(tree, {1}), nullptr, 2).ids(), std::vector{0x20009});
}

/// The node of the other tree that corresponds, looked up word for word as the header says it.
Node plain_partner(const Node& node, const Node& top, const Node& other_top, bool by_id) {
  if (node == top || node.IsNodeValid() == 0) return node == top ? other_top : Node();
  const auto id_of = [&](const Node& one) {
    return by_id ? int_attribute_of(one, "DataID").value_or(-1) : -1;
  };
  Node parent, partner;
  node.GetParent(parent);
  if (id_of(node) == -1) partner = plain_partner(parent, top, other_top, by_id);
  const auto is_like = [&](const Node& one, const Node& wanted_parent) {
    Node above;
    one.GetParent(above);
    return id_of(one) == id_of(node) &&
           (id_of(one) != -1 || (above == wanted_parent && tag(one) == tag(node)));
  };
  int place = 0;
  Node at;
  for (top.FirstChild(at); !(at == node); at.NextBelow(at, top)) place += is_like(at, parent);
  for (other_top.FirstChild(at); at.IsNodeValid() != 0; at.NextBelow(at, other_top))
    if (is_like(at, partner) && place-- == 0) break;
  return at;
}

void edit(Node& tree, std::mt19937& random) {
  const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
  Node node(tree), other(tree), copy;
  for (int steps = below(tree.GetTreeSize()); steps > 0; --steps) node.NextBelow(node, tree);
  for (int steps = below(tree.GetTreeSize()); steps > 0; --steps) other.NextBelow(other, tree);
  const std::string letter(1, static_cast<char>('a' + below(3)));
  const int what = below(9);
  if (what < 3) node.AddNode(other, letter.c_str(), -1);
  if (what < 5) other.SetDataID(below(9) - 1);
  if (what == 5) node.CheckSetValue(0, letter.c_str(), 0);
  if (what == 6) node.SetPropertyValue(letter.c_str(), below(2));
  if (what == 7) node.RemoveProperty(letter == "a" ? "DataID" : "b");
  if (what != 8 || node == tree || node.Clone(copy, 1) == 0) return;
  node.RemoveNode();
  other.AddNodeCopy(copy, 1);
}

TEST(Extras, AgreeWithPlainSearchesAboutRandomTrees) {
  std::mt19937 random(1);
  for (int round = 0; round < 2000; ++round) {
    Node before = parse("<R/>"), after, old_node;
    for (auto i = random() % 25; i > 0; --i) edit(before, random);
    before.Clone(after, 1);
    for (auto i = random() % 12; i > 0; --i) edit(after, random);
    SCOPED_TRACE(text(before) + "\n" + text(after));
    for (const bool by_id : {true, false}) {
      const auto found = by_id ? differences_by_id(before, after) : differences_by_path(before, after);
      EXPECT_EQ(found.empty(), are_equal(before, after));
      int alone = 0;
      for (const Difference& one : found) {
        alone += one.kind == DifferenceKind::kAdded || one.kind == DifferenceKind::kRemoved;
        const Node partner = plain_partner(one.new_node, after, before, by_id);
        EXPECT_TRUE(one.new_path.empty() || one.old_node == partner) << shown(one);
      }
      for (Node at(after); at.IsNodeValid() != 0; at.NextBelow(at, after))
        alone -= plain_partner(at, after, before, by_id).IsNodeValid() == 0;
      for (Node at(before); at.IsNodeValid() != 0; at.NextBelow(at, before))
        alone -= plain_partner(at, before, after, by_id).IsNodeValid() == 0;
      ASSERT_EQ(alone, 0) << shown(found);
    }
    ASSERT_TRUE(restore(before, after));
    ASSERT_EQ(text(before), text(after));
  }
}

TEST(Extras, RestoreInPlace) {
  for (const auto& [target, source, kept] : rows<3>(R"(
<R b="1" a="2" c="3">x<c/></R> | <R@3 a="2" b="4">y</R> | R
<R><a #1/><a #2/><b/></R> | <R><a #2 x="1"/><b>t</b></R> | R a2 b
<R><a>1</a><b><c/></b><a>2</a></R> | <R><b><c/><d/></b><a>1</a><a>2</a></R> | R b c a
<R><a/></R> | <S><a/></S> | S
)")) {
    Node tree = parse_ids(target);
    std::vector<Node> nodes;
    for (Node node(tree); node.IsNodeValid() != 0; node.NextBelow(node, tree)) nodes.push_back(node);
    EXPECT_TRUE(restore(tree, parse_ids(source)));
    EXPECT_EQ(text(tree), text(parse_ids(source)));
    std::string alive;
    for (const Node& node : nodes)
      if (node.IsNodeValid() != 0) alive += " " + tag(node) + attribute_of(node, "DataID").value_or("");
    EXPECT_EQ(alive, " " + kept);
  }
  Node tree = parse("<R><a/><R><b/><R>x</R></R></R>"), branch = at(tree, {1});
  EXPECT_TRUE(restore(tree, branch) && restore(tree, tree) && restore(branch = at(tree, {1}), tree));
  EXPECT_EQ(text(tree), "<R><b/><R><b/><R>x</R></R></R>");
  Node deepest = deep_tree(1024), other = deep_tree(1023);
  on_small_stack([&] {
    EXPECT_EQ(differences_by_id(other, deepest).size(), 2);
    EXPECT_TRUE(restore(deepest, other) && are_equal(deepest, other));
  });
  while (deepest.FirstChild(branch) != 0) deepest = branch;
  deepest.AddNode(branch, "z", -1);
  EXPECT_FALSE(restore(deepest, parse("<L>text<y><too><deep/></too></y><z/></L>")));
  EXPECT_EQ(text(deepest), "<L>text<z/></L>");
}

TEST(Extras, UndoMarkedChanges) {
  for (const auto& [form, count, undone] : Rows<OldValues, int, Text>{
           {OldValues::kTexts, 2,
            "<R OldValue='0'><a DynaUseChck='1'>::{Auto=1}7</a><b>9</b><c OldValue='-1' Auto='1'><d/></c>"
            "<e OldValue='3' ThemeApplicability='1048576'><f/></e></R>"},
           {OldValues::kDecorated, 4,
            "<R OldValue='0'><a Auto='1'>7</a><b>9</b><c><d/></c>"
            "<e ThemeApplicability='1048576' Data='3'><f/></e></R>"}}) {
    Node tree = parse(
        "<R OldValue='0'><a OldValue='::{Auto=1}7' OldName='n' DynaUseChck='1'>8</a><b>9</b>"
        "<c OldValue='-1' Auto='1'><d OldValue=''>5</d></c>"
        "<e OldValue='3' ThemeApplicability='1048576'><f/></e></R>");
    EXPECT_EQ(undo_changes(tree, form), count);
    EXPECT_EQ(text(tree), text(parse(undone)));
  }
}

TEST(Extras, CompareAndApplyLists) {
  const auto list_of = [](const char* xml) {
    Node tree = parse_ids(xml);
    ValueList list;
    vctree_get_values_with_ids(&tree, &list.ids, &list.values, 1, 0, 0, nullptr, 1, nullptr);
    return list;
  };
  const ValueList one = list_of("<R><a #1>1</a><a #2>2</a><a #2>3</a><a #4>4</a></R>");
  const ValueList two = list_of("<R><a #1>1</a><a #7/><a #2>2</a><a #2>x</a><a #2>y</a></R>");
  std::string differences;
  for (const auto& [kind, id, before, after] : differences_of_values(one, two))
    differences += std::to_string(id) + ":" + before.value_or("none") + ">" + after.value_or("none") + " ";
  EXPECT_EQ(differences, "7:none> 2:3>x 2:none>y 4:4>none ");

  Node tree = parse_ids("<R><b #2/><c ^8><d #2/></c><e #-3/></R>");
  Node source = parse_ids("<R><x #5/><c ^8><d #2>z</d><d #3>y</d></c><e #-3 Use='1'><f/></e></R>");
  const Applied refused = apply_values(tree, one);
  EXPECT_TRUE(refused.matched == -4 && refused.unmatched.empty() && !refused.message.empty());
  for (const auto& [applied, matched, unmatched] : Rows<Applied, int, std::vector<int>>{
           {apply_values(tree, one, {.first_counts = true}), 1, {1, 4}},
           {apply_values(tree, two, {.repeat = 2, .first_counts = true}), 0, {1, 7, 2}},
           {copy_values(source, tree), 1, {5, 0x80003, -3}},
           {copy_values(source, tree, {.drop_empty = true}), 1, {0x80003, -3}}})
    EXPECT_TRUE(applied.matched == matched && applied.unmatched == unmatched);
  EXPECT_EQ(text(tree), text(parse_ids("<R><b #2>2</b><c ^8><d #2>z</d></c><e #-3/></R>")));
}

using SavedValuesFile = FolderTest;
TEST_F(SavedValuesFile, IsKnown) {
  const std::filesystem::path path = folder / u8"é.xml";
  const std::u8string name = path.u8string();
  const std::string file(name.begin(), name.end()),
      settings = "<Settings>Settings<node51>1</node51><node-3/></Settings>";
  for (const auto& [contents, holds] :
       Rows<std::string, bool>{{settings, true},
                               {"\xEF\xBB\xBF<?xml version='1.0'?>\n<!-- <R> --><?p?>" + settings, true},
                               {"<?p " + std::string(5000, ' ') + "?>" + settings, true},
                               {"<!DOCTYPE Settings>" + settings, true},
                               {"<!DOCTYPE R><R><node5/></R>", false},
                               {"<Settings/>", false},
                               {"<Settings><node/></Settings>", false},
                               {"<Settings><node5x/></Settings>", false},
                               {"<Settings><node5><a/></node5></Settings>", false},
                               {"<Settings2><node5/></Settings2>", false},
                               {"<Settings><node5/>", false}}) {
    std::ofstream(path, std::ios::binary) << contents;
    EXPECT_EQ(holds_saved_values(file.c_str()), holds);
  }
  parse("<a/>");
  std::ofstream(path, std::ios::binary) << "\xEF\xBB\xBF<!-- --><Other>no end";
  EXPECT_FALSE(holds_saved_values(nullptr) || holds_saved_values(file.c_str()));
  EXPECT_EQ(failure(), " 0:0 -1") << "the file was loaded";
  EXPECT_FALSE(holds_saved_values(folder.string().c_str()));
}

}  // namespace
