#include <rytree_Utils/transfer.h>

#include <stdexcept>

#include "tree_text.h"

namespace {

using Node = RYXmlWrapperBase*;

/// `by` is what to copy and the arguments after the trees: "-" is null, "0" in place of a name "".
int copy(const std::string& by, Node s, Node d) {
  std::istringstream words(by);
  std::string word[6];
  for (std::string& one : word) words >> one;
  const auto name = [&](int at) {
    return word[at] == "-" ? nullptr : word[at] == "0" ? "" : word[at].c_str();
  };
  const auto flag = [&](int at) { return std::stoi(word[at]); };
  if (word[0] == "all") return rytree_copy_values_by_id(s, d, 0, name(1), name(2), flag(3), flag(4), flag(5));
  if (word[0] == "atts") return rytree_copy_atts_by_id(s, d, name(1), name(2), name(3), name(4), flag(5));
  if (word[0] == "prune") return rytree_remove_unchange_nodes_by_id(s, d, name(1), name(2));
  return rytree_whole_copy_values_by_id(s, d);
}

TEST(CopyById, CopiesAndPrunes) {
  // The copy, its source and destination, the result and the destination after it unless it stays.
  for (const auto& [by, from, to, result, after] : rows<5>(R"(
    all No To 0 0 0 | <R><a No='1'>x</a><B No='2'><a/></B></R> | \
        <R><B To='2'><a To='1' No='3'/><a #1/></B></R> | 1 | \
        <R><B To='2'><a To='1' No='3'>x</a><a #1/></B></R>
    all - - 1 1 0 | <R><a/></R> | <R><a #1>x</a></R> | 0
    all - - 1 1 0 | <R><a #1>x</a></R> | <R><a #1 ~18/></R> | 1 | <R><a #1 ~18>x</a></R>
    all - - 1 0 1 | <R><a #1/></R> | <R><a #1>x</a></R> | -2
    all - - 1 0 1 | <R><a #4/><a #1>v</a><a #3/><a #2>w</a><a #5/></R> | \
        <R><a #1>x</a><B #2 Use='u'><a #3>y</a></B></R> | 2 | <R><a #1>v</a><B #2 Use='w'><a #3>y</a></B></R>
    all - - 1 1 0 | <R><a #6/><a #5 p='1'/><a #5 p='1'/></R> | <R><a #5>x</a></R> | -5
    // In one tree all values are read before any is written.
    all No To 1 0 0 | <R><a No='1' To='2'>x</a><a No='2' To='1'>y</a></R> | = | 2 | \
        <R><a No='1' To='2'>y</a><a No='2' To='1'>x</a></R>
    atts p - - q 0 | <R><a #6/><a #5 p='1'/><a #5 p='1'/></R> | <R><a #5>x</a></R> | -5
    prune - - | <R><a #6/><a #5 p='1'/><a #5 p='1'/></R> | <R><a #5/></R> | -5
    all - - 1 1 0 | <R><B #-7><a/></B><B #-7><a/></B></R> | <R><a #1>x</a></R> | -4
    prune - - | <R><a #0/><a #0/></R> | <R><a #1>x</a></R> | -4
    prune - - | <R><a #1>x</a></R> | <R><a #1>x</a><B ^2><a #65536/></B></R> | -5 | \
        <R><B ^2><a #65536/></B></R>
    // Made directly below the destination, in the order of the source, its root first; a node ID counts too.
    whole | <S #8 Label='s'><B #2 Use='u'><c #3 Label='l'>y</c><d #4/></B></S> | \
        <R #3><B><a #2 _NodeID='4'/></B></R> | 2 | \
        <R #3><B><a #2 _NodeID='4'>u</a></B><S Label='s' #8/><c Label='l' #3>y</c></R>
    // Plain IDs are made, composed ones looked for.
    whole | <R><B #2 ^1><a #3>v</a></B></R> | <R/> | 1 | <R><B Label='' #2>-1</B><a Label='' #3/></R>
    whole | <R><a #5/><B #-1><a #5/></B></R> | <R><B><a #9/></B></R> | -5 | \
        <R><B><a #9/></B><a Label='' #5/><B Label='' #-1/></R>
    // The first is known also after many.
    whole | <R><a #1/><a #2/><a #3/><a #4/><a #5/><a #6/><a #7/><a #8/><a #9/><a #1/></R> | <R/> | -1 | \
        <R><a Label='' #1/><a Label='' #2/><a Label='' #3/><a Label='' #4/><a Label='' #5/><a Label='' #6/> \
        <a Label='' #7/><a Label='' #8/><a Label='' #9/></R>
    atts p - - q 0 | <R><a #1 p='1'/><B #2 q='2'><a #3 p='' q=''/></B></R> | \
        <R><a #1 q='0'/><a #2 p='0'/><a #3 p='0'/></R> | 0 | <R><a #1 p='1'/><a #2 q='2'/><a #3 p='0'/></R>
    atts - No To q 0 | <R><a #5 No='1' p='1' q='2'/></R> | <R><a To='1' p='0'>x</a><a #1 No='1'/></R> | 0 | \
        <R><a To='1' p='0' q='2'>x</a><a #1 No='1'/></R>
    atts p - - q 1 | <R><a #1 p='1' q='5'/><a #2 q='5'/></R> | <R><a #1/><a #2/></R> | 0 | \
        <R><a #1 q='1'/><a #2/></R>
    atts p - - - -1 | <R><a #1 p='1' q='5'/></R> | <R><a #1/></R> | 0
    atts 0 - - - 0 | <R><a #1 p='1' q='5'/></R> | <R><a #1/></R> | 0
    atts - - - q 2 | <R><a #1 p='1' q='5'/></R> | <R><a #1/></R> | 0
    prune - - | <R><a/></R> | <R><a #1>x</a></R> | 0
    prune No To | <R><a #5 No='1'>x</a></R> | <R><a To='1'>x</a><a #1 No='1'>x</a></R> | 1 | \
        <R><a #1 No='1'>x</a></R>
    prune - - | <R><B #-2 Use='x'><a/></B></R> | <R><a #-2>x</a></R> | 0
    prune - - | <R><a #1>x</a><B #2 Use='u'><a #3>y</a></B></R> | \
        <R><a #3>z</a><B #9><a #1>X</a><a #3>y</a></B></R> | 3 | <R><a #3>z</a></R>
    prune - - | <R><a #1>x</a><B #2 Use='u'><a #3>y</a></B></R> | \
        <R><B #2 Use='u'><a #1>x</a><a #3>n</a><a>x</a></B></R> | 1 | \
        <R><B #2 Use='u'><a #3>n</a><a>x</a></B></R>
    prune - - | <R><B ^2><a #1>x</a></B><a #1>y</a></R> | \
        <R><C ^2><a #1>y</a><a #1>x</a></C><a #1>x</a></R> | 1 | \
        <R><C ^2><a #1>y</a></C><a #1>x</a></R>
    prune - - | <R><a #1 Auto='A'>x</a><a #2>x</a></R> | <R><a #1 Auto='a'>X</a><a #2 Auto=''>x</a></R> | \
        1 | <R><a #2 Auto=''>x</a></R>)")) {
    RYXmlWrapperBase source = parse_ids(from);
    RYXmlWrapperBase destination = to == "=" ? source : parse_ids(to);
    EXPECT_EQ(copy(by, &source, &destination), std::stoi(result));
    EXPECT_EQ(text(destination), text(parse_ids(after.empty() ? to : after)));
    EXPECT_EQ(text(source), text(to == "=" ? destination : parse_ids(from)));
    RYXmlWrapperBase dead = dead_node();
    for (const Node bad : {Node(nullptr), &dead}) {
      EXPECT_LE(copy(by, bad, &destination), 0);
      EXPECT_LE(copy(by, &source, bad), 0);
    }
  }
}

// A hook that marks what it is shown, and throws or removes a node at a value that tells it to.
RYXmlWrapperBase removable;
int mark(_SETVALUESBYIDS* hook) {
  EXPECT_NE(hook->active, 0);
  if (*hook->value == "throw") throw std::runtime_error("by the callback");
  if (*hook->value == "remove") removable.RemoveNode();
  *hook->value += "!";
  return 0;
}

TEST(CopyById, AHookRewritesValuesAtAndBelowItsNode) {
  // the node of the hook, the source, the destination before and after, the result or "throws"
  for (const auto& [id, from, to, after, result] : rows<5>(R"(
      2 | <R><a #1>x</a><B #2 Use='u'><a #3>y</a></B></R> | <R><B #2><a #2/><a #3/></B><a #1/></R> | \
          <R><B #2 Use='u!'><a #2>u!</a><a #3>y!</a></B><a #1>x</a></R> | 4
      3 | <R><a #1>x</a><B #2 Use='u'><a #3>y</a></B></R> | <R><B #2><a #2/><a #3/></B><a #1/></R> | \
          <R><B #2 Use='u'><a #2>u</a><a #3>y!</a></B><a #1>x</a></R> | 4
      2 | <R><a #1>x</a><a #3>throw</a></R> | <R><B #2><a #3/></B><a #1/></R> | = | throws
      2 | <R><a #1>x</a><a #3>remove</a></R> | <R><B #2><a #2/><a #3/></B><a #1/></R> | <R><a #1/></R> | 1
      2 | <R><a #1>::{p=1}x</a><a #3>::{p=1}</a></R> | <R><B #2><a #3/></B><a #1/></R> | \
          <R><B #2><a #3 p='1'>!</a></B><a #1 p='1'>x</a></R> | 2
      // Its plain ID counts, the outermost of several nodes. It does not see what is not stored.
      2 | <R><B ^1><a #2>x</a></B></R> | <R><B ^1><a #2/></B></R> | <R><B ^1><a #2>x!</a></B></R> | 1
      2 | <R><a #1>x</a></R> | <R><B #2><B #2><a/></B><a #1/></B></R> | \
          <R><B #2><B #2><a/></B><a #1>x!</a></B></R> | 1
      2 | <R><a #1>throw</a><a #3>throw</a></R> | <R><B #2><a #1 ~16/><a #3 ~18/></B></R> | = | 2
      2 | <R><a #2/></R> | <R><B #2 ~20><a/></B></R> | <R><B #2 ~20 Data='!'><a/></B></R> | 1
      2 | <R><a #1>x</a></R> | <R><B #2><a ^32767/></B></R> | = | -5)")) {
    RYXmlWrapperBase source = parse_ids(from);
    RYXmlWrapperBase destination = parse_ids(to);
    removable = at(destination, {0});
    _SETVALUESBYIDS hook = {mark, std::stoi(id), 1, nullptr};
    std::string given = "throws";
    try {
      given = std::to_string(
          vctree_copy_values_by_id(&source, &destination, 0, nullptr, nullptr, 1, &hook, 0, 0));
    } catch (const std::runtime_error&) {
    }
    EXPECT_EQ(given, result);
    EXPECT_EQ(text(destination), text(parse_ids(after == "=" ? to : after)));
    EXPECT_EQ(hook.active, 0);
    EXPECT_EQ(hook.value, nullptr);
  }
}

}  // namespace
