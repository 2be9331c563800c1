#include <rytree_Utils.h>
#include <rytree_Utils/extras.h>

#include <array>

#include "tree_text.h"

namespace {

/// A difference on one line: "id changed @Name: old > new".
std::string shown(const rytree::Difference& one) {
  using Kind = rytree::DifferenceKind;
  const auto value = [](const std::optional<std::string>& text) { return text ? "'" + *text + "'" : "none"; };
  const std::string id = one.id == -1 ? "" : std::to_string(one.id) + " ";
  const std::string in = one.inside ? " inside" : "";
  if (one.kind == Kind::kAdded) return id + "+" + one.new_path + in + " " + value(one.new_value);
  if (one.kind == Kind::kRemoved) return id + "-" + one.old_path + in + " " + value(one.old_value);
  if (one.kind == Kind::kMoved)
    return id + one.old_path + "(" + std::to_string(one.old_place) + ") to " + one.new_path + "(" +
           std::to_string(one.new_place) + ")";
  const std::array<std::string, 4> parts = {"tag", "node ID", "text", "@" + one.attribute};
  return id + one.new_path + " " + parts[static_cast<std::size_t>(one.part)] + " " + value(one.old_value) +
         ">" + value(one.new_value);
}

std::string shown(const std::vector<rytree::Difference>& differences) {
  std::string all;
  for (const rytree::Difference& one : differences) all += (all.empty() ? "" : "; ") + shown(one);
  return all;
}

TEST(Extras, TellTheDifferencesOfTwoTrees) {
  for (const auto& [before, after, by_id, by_path] : rows<4>(R"(
<R/> | <R/> | |
<R a="1" b="2"/> | <R b="2" a="1"/> | |
<R a="1" b="2">x</R> | <S@7 c="3" b="4"/> | S tag 'R'>'S'; S node ID none>'7'; S text 'x'>''; S @c none>'3'; S @b '2'>'4'; S @a '1'>none | \
  S tag 'R'>'S'; S node ID none>'7'; S text 'x'>''; S @c none>'3'; S @b '2'>'4'; S @a '1'>none
<R><a/><b/><c/></R> | <R><c/><a/><b/></R> | R/c(2) to R/c(0) | R/c(2) to R/c(0)
<R><a>1</a><a>2</a></R> | <R><b><c>4</c></b><a>1</a></R> | -R/a[2] '2'; +R/b ''; +R/b/c inside '4' | \
  -R/a[2] '2'; +R/b ''; +R/b/c inside '4'
<R><a #1>1</a><a #2>2</a></R> | <R><a #2>2</a></R> | 1 -R/a '1' | -R/a[2] '2'; R/a text '1'>'2'; R/a @DataID '1'>'2'
<R><a #1><b #2/><c/></a><d/></R> | <R><a #1><c/></a><d><b #2>x</b></d></R> | \
  2 R/a/b(0) to R/d/b(0); 2 R/d/b text ''>'x' | -R/a/b ''; +R/d/b 'x'
<R><a #1><b #2><c #3/><x><y/></x></b></a></R> | <R><c #3 ><d/></c></R> | \
  1 -R/a ''; 2 -R/a/b inside ''; -R/a/b/x inside ''; -R/a/b/x/y inside ''; 3 R/a/b/c(0) to R/c(0); +R/c/d '' | \
  -R/a ''; -R/a/b inside ''; -R/a/b/c inside ''; -R/a/b/x inside ''; -R/a/b/x/y inside ''; +R/c ''; +R/c/d inside ''
<R><a #1>1</a><b #1>2</b><c #1>3</c></R> | <R><a #1>2</a><x #1>2</x></R> | \
  1 -R/c '3'; 1 R/a text '1'>'2'; 1 R/x tag 'b'>'x' | -R/b '2'; -R/c '3'; R/a text '1'>'2'; +R/x '2'
<R><a #1 ^2><b #7>1</b></a><a #2 ^4><b #7>2</b></a></R> | <R><a #2 ^4><b #7>1</b></a></R> | \
  1 -R/a ''; 131079 -R/a/b inside '1'; 262151 R/a/b text '2'>'1' | \
  -R/a[2] ''; -R/a[2]/b inside '2'; R/a @DataID '1'>'2'; R/a @RepeatID '2'>'4'
)")) {
    const RYXmlWrapperBase old_tree = parse_ids(before), new_tree = parse_ids(after);
    EXPECT_EQ(shown(rytree::differences_by_id(old_tree, new_tree)), by_id);
    EXPECT_EQ(shown(rytree::differences_by_path(old_tree, new_tree)), by_path);
    EXPECT_EQ(rytree::are_equal(old_tree, new_tree), by_path.empty());
  }
}

TEST(Extras, TakeAnInvalidHandleForNoTree) {
  const RYXmlWrapperBase tree = parse_ids("<R><a #5>1</a></R>");
  for (const RYXmlWrapperBase& none : {RYXmlWrapperBase(), dead_node()}) {
    EXPECT_EQ(shown(rytree::differences_by_id(none, tree)), "+R ''; 5 +R/a inside '1'");
    EXPECT_EQ(shown(rytree::differences_by_path(tree, none)), "-R ''; -R/a inside '1'");
    EXPECT_EQ(shown(rytree::differences_by_path(none, RYXmlWrapperBase())), "");
    EXPECT_TRUE(rytree::are_equal(none, RYXmlWrapperBase()));
    EXPECT_FALSE(rytree::are_equal(none, tree) || rytree::are_equal(tree, none));
    EXPECT_TRUE(rytree::NodesById(none).ids().empty());
    EXPECT_EQ(rytree::tag_of(none) + rytree::text_of(none), "");
    EXPECT_FALSE(rytree::attribute_of(none, "a") || rytree::int_attribute_of(none, nullptr));
    EXPECT_EQ(rytree::child_of(none, "a").IsNodeValid() + rytree::child_of(tree, nullptr).IsNodeValid(), 0);
    EXPECT_TRUE(rytree::attributes_of(none).empty());
  }
}

TEST(Extras, FindNodesByTheIdsOfAHarvest) {
  RYXmlWrapperBase tree =
      parse_ids("<R #9><a #9/><b #1 ^2><c #9/></b><b ^4><c #9/><d #-3/></b><e #9/><f/></R>");
  const rytree::NodesById nodes(tree);
  EXPECT_EQ(nodes.ids(), (std::vector<int>{-3, 1, 9, 0x20009, 0x40009}));
  EXPECT_TRUE(nodes.find(0x40009) == at(tree, {2, 0}));
  EXPECT_TRUE(nodes.find(9) == at(tree, {0}));
  EXPECT_TRUE(nodes.find_all(9) == (std::vector{at(tree, {0}), at(tree, {3})}));
  EXPECT_TRUE(nodes.contains(-3) && !nodes.contains(-1) && !nodes.contains(2));
  EXPECT_EQ(nodes.find(2).IsNodeValid(), 0);
  EXPECT_EQ(rytree::NodesById(at(tree, {1}), nullptr, 2).ids(), std::vector<int>{0x20009});
}

}  // namespace
