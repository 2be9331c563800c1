#include <rytree_Utils/transfer.h>

#include <stdexcept>
#include <string>
#include <utility>

#include "transfer_model.h"

namespace {

using Node = RYXmlWrapperBase*;
using Copy = int (*)(Node source, Node destination);

const Copy copy_no = [](Node s, Node d) { return rytree_copy_values_by_id(s, d, 0, "No", "To", 0, 0, 0); };
const Copy copy_all = [](Node s, Node d) {
  return rytree_copy_values_by_id(s, d, 0, nullptr, nullptr, 1, 1, 0);
};
const Copy copy_filled = [](Node s, Node d) {
  return rytree_copy_values_by_id(s, d, 0, nullptr, nullptr, 1, 0, 1);
};
const Copy copy_two = [](Node s, Node d) {
  return rytree_copy_atts_by_id(s, d, "p", nullptr, nullptr, "q", 0);
};
const Copy copy_second = [](Node s, Node d) {
  return rytree_copy_atts_by_id(s, d, nullptr, "No", "To", "q", 0);
};
const Copy copy_renamed = [](Node s, Node d) {
  return rytree_copy_atts_by_id(s, d, "p", nullptr, nullptr, "q", 1);
};
const Copy copy_unnamed = [](Node s, Node d) {
  return rytree_copy_atts_by_id(s, d, "p", nullptr, nullptr, nullptr, -1) +
         rytree_copy_atts_by_id(s, d, "", nullptr, nullptr, nullptr, 0) +
         rytree_copy_atts_by_id(s, d, nullptr, nullptr, nullptr, "q", 2);
};
const Copy whole = rytree_whole_copy_values_by_id;
const Copy prune = [](Node s, Node d) { return rytree_remove_unchange_nodes_by_id(s, d, nullptr, nullptr); };
const Copy prune_no = [](Node s, Node d) { return rytree_remove_unchange_nodes_by_id(s, d, "No", "To"); };

const char* const kThree = "<R><a #1>x</a><B #2 Use='u'><a #3>y</a></B></R>";
const char* const kBranch = "<R><a #3>z</a><B #9><a #1>X</a><a #3>y</a></B></R>";
const char* const kTwins = "<R><a #6/><a #5 p='1'/><a #5 p='1'/></R>";

struct Row {
  Copy copy;
  const char* source;
  const char* destination;
  int result;
  const char* after = nullptr;  // null: unchanged
};
const Row kRows[] = {
    {copy_no, "<R><a No='1'>x</a><B No='2'><a/></B></R>", "<R><B To='2'><a To='1' No='3'/><a #1/></B></R>", 1,
     "<R><B To='2'><a To='1' No='3'>x</a><a #1/></B></R>"},
    {copy_all, "<R><a/></R>", kThree, 0},
    {copy_all, "<R><a #1>x</a></R>", "<R><a #1 ~18/></R>", 1, "<R><a #1 ~18>x</a></R>"},
    {copy_filled, "<R><a #1/></R>", kThree, -2},
    {copy_filled, "<R><a #4/><a #1>v</a><a #3/><a #2>w</a><a #5/></R>", kThree, 2,
     "<R><a #1>v</a><B #2 Use='w'><a #3>y</a></B></R>"},
    {copy_all, kTwins, kThree, -5},
    {copy_two, kTwins, kThree, -5},
    {prune, kTwins, kThree, -5},
    {copy_all, "<R><B #-7><a/></B><B #-7><a/></B></R>", kThree, -4},
    {prune, "<R><a #0/><a #0/></R>", kThree, -4},
    {prune, kThree, "<R><a #1>x</a><B ^32767/></R>", -5, "<R><B ^32767/></R>"},
    // Made directly below the destination, in the order of the source and its root first; a node ID counts as
    // well.
    {whole, "<S #8 Label='s'><B #2 Use='u'><c #3 Label='l'>y</c><d #4/></B></S>",
     "<R #3><B><a #2 _NodeID='4'/></B></R>", 2,
     "<R #3><B><a #2 _NodeID='4'>u</a></B><S Label='s' #8/><c Label='l' #3>y</c></R>"},
    // Plain IDs are made, composed ones looked for.
    {whole, "<R><B #2 ^1><a #3>v</a></B></R>", "<R/>", 1, "<R><B Label='' #2>-1</B><a Label='' #3/></R>"},
    {copy_two, "<R><a #1 p='1'/><B #2 q='2'><a #3 p='' q=''/></B></R>",
     "<R><a #1 q='0'/><a #2 p='0'/><a #3 p='0'/></R>", 0, "<R><a #1 p='1'/><a #2 q='2'/><a #3 p='0'/></R>"},
    {copy_second, "<R><a #5 No='1' p='1' q='2'/></R>", "<R><a To='1' p='0'>x</a><a #1 No='1'/></R>", 0,
     "<R><a To='1' p='0' q='2'>x</a><a #1 No='1'/></R>"},
    {copy_renamed, "<R><a #1 p='1' q='5'/><a #2 q='5'/></R>", "<R><a #1/><a #2/></R>", 0,
     "<R><a #1 q='1'/><a #2/></R>"},
    {copy_unnamed, "<R><a #1 p='1' q='5'/></R>", "<R><a #1/></R>", 0},
    {prune, "<R><a/></R>", kThree, 0},
    {prune_no, "<R><a #5 No='1'>x</a></R>", "<R><a To='1'>x</a><a #1 No='1'>x</a></R>", 1,
     "<R><a #1 No='1'>x</a></R>"},
    {prune, "<R><B #-2 Use='x'><a/></B></R>", "<R><a #-2>x</a></R>", 0},
    {prune, kThree, kBranch, 3, "<R><a #3>z</a></R>"},
    {prune, kThree, "<R><B #2 Use='u'><a #1>x</a><a #3>n</a><a>x</a></B></R>", 1,
     "<R><B #2 Use='u'><a #3>n</a><a>x</a></B></R>"},
    {prune, "<R><a #1 Auto='A'>x</a><a #2>x</a></R>", "<R><a #1 Auto='a'>X</a><a #2 Auto=''>x</a></R>", 1,
     "<R><a #2 Auto=''>x</a></R>"},
};

TEST(CopyById, tables) {
  for (const Row& row : kRows) {
    SCOPED_TRACE(&row - kRows);
    RYXmlWrapperBase source = parse_ids(row.source);
    RYXmlWrapperBase destination = parse_ids(row.destination);
    EXPECT_EQ(row.copy(&source, &destination), row.result);
    EXPECT_EQ(text(destination), text(parse_ids(row.after != nullptr ? row.after : row.destination)));
    EXPECT_EQ(text(source), text(parse_ids(row.source)));
    RYXmlWrapperBase dead = dead_node();
    for (const Node bad : {Node(nullptr), &dead}) {
      EXPECT_LE(row.copy(bad, &destination), 0);
      EXPECT_LE(row.copy(&source, bad), 0);
    }
  }
}

// A hook that marks what it is shown and notes it, and throws at a value that tells it to.
std::string shown;
int mark(_SETVALUESBYIDS* hook) {
  EXPECT_NE(hook->active, 0);
  shown.append(hook->value->View()).append(1, ';');
  if (*hook->value == "throw") throw std::runtime_error("by the callback");
  *hook->value += "!";
  return 0;
}

TEST(CopyById, a_hook_rewrites_values_at_and_below_its_node) {
  const struct {
    int id;
    const char* source;
    int result;  // 99: throws
    const char* after;
  } rows[] = {
      {2, kThree, 4, "<R><B #2 Use='u!'><a #2>u!</a><a #3>y!</a></B><a #1>x</a></R>"},
      {3, kThree, 4, "<R><B #2 Use='u'><a #2>u</a><a #3>y!</a></B><a #1>x</a></R>"},
      {2, "<R><a #1>x</a><a #3>throw</a></R>", 99, "<R><B #2><a #2/><a #3/></B><a #1/></R>"},
      {2, "<R><a #1>::{p=1}x</a><a #3>::{p=1}</a></R>", 2,
       "<R><B #2><a #2/><a #3 p='1'>!</a></B><a #1 p='1'>x</a></R>"},
  };
  for (const auto& row : rows) {
    RYXmlWrapperBase source = parse_ids(row.source);
    RYXmlWrapperBase destination = parse_ids("<R><B #2><a #2/><a #3/></B><a #1/></R>");
    _SETVALUESBYIDS hook = {mark, row.id, 1, nullptr};
    int result = 99;
    try {
      result = vctree_copy_values_by_id(&source, &destination, 0, nullptr, nullptr, 1, &hook, 0, 0);
    } catch (const std::runtime_error&) {
    }
    EXPECT_EQ(result, row.result);
    EXPECT_EQ(text(destination), text(parse_ids(row.after)));
    EXPECT_EQ(hook.active, 0);
    EXPECT_EQ(hook.value, nullptr);
  }
  RYXmlWrapperBase source = parse_ids(kThree);
  RYXmlWrapperBase conflict = parse_ids("<R><B #2><a ^32767/></B></R>");
  _SETVALUESBYIDS hook = {nullptr, 2, 1, nullptr};
  EXPECT_EQ(vctree_copy_values_by_id(&source, &conflict, 0, nullptr, nullptr, 1, &hook, 0, 0), -5);
  EXPECT_EQ(hook.active, 0);
}

// Each job against the slow one: results, both trees and the calls of the hook, on two trees or one.
TEST(CopyById, agrees_with_the_model_on_random_trees) {
  shown.clear();
  for (unsigned seed = 1; seed <= 600 && !testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE(seed);
    RandomTrees random(seed);
    RYXmlWrapperBase source = random.make(40, !random.one_in(8));
    RYXmlWrapperBase tree = random.make(40, random.one_in(2));
    if (random.one_in(6)) tree = at(source, {0});
    if (random.one_in(12)) source = tree;
    // The model works on a clone, in which the two nodes may again be one, or one below the other.
    RYXmlWrapperBase expected_source;
    RYXmlWrapperBase expected;
    source.Clone(expected_source, 1);
    if (tree == source) {
      expected = expected_source;
    } else if (tree == at(source, {0})) {
      expected = at(expected_source, {0});
    } else {
      tree.Clone(expected, 1);
    }
    const int job = random.below(3);
    const bool keep = random.one_in(2);
    const bool drop = random.one_in(2);
    _SETVALUESBYIDS hook = {mark, random.below(12), 0, nullptr};
    _SETVALUESBYIDS expected_hook = hook;

    if (job == 1) slow::make_missing(expected_source, expected);
    CArray<int, int> ids;
    CStringArray values;
    int result = 0;
    int duplicate = 0;
    if (vctree_get_values_with_ids(&expected_source, &ids, &values, 1, 0, 0, nullptr, 1, nullptr) > 0) {
      const int twice = slow::duplicate(ids);
      if (job == 2) {
        if (twice >= 0) duplicate = ids[twice];
        result = twice >= 0 ? -4 : slow::prune(expected, ids, values, 0);
      } else {
        for (int entry = ids.GetSize() - 1; job == 0 && drop && entry >= 0; --entry) {
          if (!values[entry].IsEmpty()) continue;
          ids.RemoveAt(entry);
          values.RemoveAt(entry);
        }
        slow::Apply slow{ids, values, "DataID", nullptr, &duplicate};
        if (job == 0) slow.hook = &expected_hook;
        slow.keep_bit_18_off = job == 0 && keep;
        result = slow.walk(expected, 0, 0);
      }
    }
    if (duplicate > 0) result = -duplicate;
    const std::string expected_shown = std::exchange(shown, "");

    EXPECT_EQ(job == 0   ? vctree_copy_values_by_id(&source, &tree, 0, nullptr, nullptr, 1, &hook, keep, drop)
              : job == 1 ? rytree_whole_copy_values_by_id(&source, &tree)
                         : prune(&source, &tree),
              result);
    EXPECT_EQ(text(tree), text(expected));
    EXPECT_EQ(text(source), text(expected_source));
    EXPECT_EQ(std::exchange(shown, ""), expected_shown);
  }
}

TEST(CopyById, deep_and_wide_trees) {
  on_small_stack([] {
    RYXmlWrapperBase source = deep_tree(1024);
    RYXmlWrapperBase destination = deep_tree(1024);
    RYXmlWrapperBase node(source);
    for (int id = 0; node.IsNodeValid() != 0; ++id, node.FirstChild(node)) node.SetDataID(id);
    EXPECT_EQ(rytree_whole_copy_values_by_id(&source, &destination), 1023);
    EXPECT_EQ(destination.GetNodeCount(), 1025);
    EXPECT_EQ(rytree_copy_values_by_id(&source, &source, 0, nullptr, nullptr, 1, 0, 0), 1023);
    EXPECT_EQ(rytree_remove_unchange_nodes_by_id(&source, &source, nullptr, nullptr), 1023);
  });
  RYXmlWrapperBase wide;
  RYXmlWrapperBase none;
  wide.CreateNew(0, nullptr);
  none.CreateNew(0, nullptr);
  for (int id = 0; id < 100000; ++id) {
    RYXmlWrapperBase made;
    wide.AddTextNode(made, id % 2 == 0 ? "" : "v", "a", -1, 0, nullptr);
    made.SetDataID(id);
  }
  EXPECT_EQ(rytree_whole_copy_values_by_id(&wide, &none), 100000);
  EXPECT_EQ(rytree_copy_values_by_id(&wide, &none, 0, nullptr, nullptr, 1, 0, 1), 50000);
  EXPECT_EQ(rytree_remove_unchange_nodes_by_id(&wide, &none, nullptr, nullptr), 100000);
}

}  // namespace
