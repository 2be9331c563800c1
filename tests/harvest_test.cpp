#include <rytree_Utils/transfer.h>

#include "call_arguments.h"

TEST(Harvest, ReadsValuesWithIds) {
  // The tree, how to read it, IDs and values, the message and the tree after it unless it stays. F is not
  // recursive, C changed only, B not all branches, N by the attribute "No"; a number is the repeat in force.
  for (const auto& [before, flags, id_list, value_list, message, after] : rows<6>(R"(
    // Repeats, values of branches, a decoration.
    <R><P #1>12</P><Q #2 ^128 Use='1'><R #3>5</R><S #4 Label=''><T #5 Auto='2' Label='t'>7</T></S></Q></R> | \
         | 1,2,0x800003,0x800004,0x800005 | 12,1,5,-1,::{Auto=2}7
    <R><a #0 Auto='x' DynaUseChck=''>v</a></R> |  | 0 | ::{Auto=x}::{DynaUseChck=}v
    // A bare branch has no entry, a decorated one has.
    <R><S #4>x<T #5>7</T></S></R> | B | 5 | 7
    <R><S #4 Auto=''/><S #5 Auto='x' Use='u'><T #6/></S><S #7 Auto=''><T #8/></S></R> | B | \
        4,5,6,7,8 | ::{Auto=},::{Auto=x}u,,::{Auto=}-1,
    <R><P #1>a</P><Q #2 Use=''><S #3>b</S></Q></R> | F | 1,2 | a,
    <R><a #-1>x</a><a #-2>x</a><B #-2><a #1>y</a></B><B><a #2>z</a></B></R> |  | -2,1,2 | -1,y,z | \
        Missing DataID for Node with Name = , Label =
    <R><a Name='n' Label='l'>x</a></R> |  |  |  | Missing DataID for Node with Name = n, Label = l
    <R><a No='7'>x</a><a #1>y</a></R> | N | 7 | x
    // A repeat in force is joined with those below it; an ID that is too wide is read plain.
    <R><a #7>x</a><a #65535/></R> | 3 | 0x30007,0x3FFFF | x,
    <R><B #1 ^4><a #2/></B></R> | 3 | 1,0x70002 | -1,
    <R><a #65536 Label='l'>x</a><a #1/></R> | 3 | 0x10000,0x30001 | x, | \
        DataID conflict with RepeatID for Node with Name = a, Label = l, Repeat ID = 65536
    // Repeats that overlap are not joined, and the last message stays.
    <R><a/><B #1 ^4 Label='l'><a #2/></B></R> | 6 | 1,0x60002 | -1, | \
        Repeat ID conflict for Node with Name = B, Label = l, Repeat ID = 6
    <R><B #1 ^32767><a #2/></B><B #3 ^32768><a #4/></B><B #5 ^-4><a #6/></B></R> | 1 | \
        1,0x10002,0x10003,0x10004,0x10005,0x10006 | -1,,-1,,-1, | \
        Repeat ID invalid for Node with Name = B, Label = , Repeat ID = 1
    // Bit 20: one value from Data. Only siblings that follow and what is below them lose all branches.
    <R><P #1><Q #2 ~20 Use='u' Data='d'><a #3/></Q><Q #4><Q #5><a #6/></Q></Q></P><P #7><a #8/></P></R> |  | \
        1,2,6,7,8 | -1,d,,-1,
    <R><P #1 ~20 Use='u'><a #2/></P><P #3 ~20 Auto='x'><a #4/></P><a #5 ~20 Data='d'>t</a></R> |  | \
        3,5 | ::{Auto=x}-1,t
    <R>text</R> |  |
    <R><a #1>x</a><a #2 OldValue='x'>x</a><a #3 OldValue='x'>X</a><a #4 OldValue='x' Auto='1'>x</a></R> | \
        C | 3,4 | X,::{Auto=1}x |  | <R><a #1>x</a><a #2 OldValue='x'>x</a><a #3 OldValue='X'>X</a>\
        <a #4 OldValue='::{Auto=1}x' Auto='1'>x</a></R>
    <R><B #5 OldValue='' Use='u'><a/></B><B #6 OldValue='-1'><a/></B><B #7 OldValue=''><a/></B></R> | CB | \
        5 | u | Missing DataID for Node with Name = , Label = | \
        <R><B #5 OldValue='u' Use='u'><a/></B><B #6 OldValue='-1'><a/></B><B #7 OldValue=''><a/></B></R>)")) {
    const int recursive = flags != "F";
    const int changed_only = flags.starts_with('C');
    const int all_branches = !flags.ends_with('B');
    const int repeat = std::atoi(flags.c_str());
    const char* const attribute = flags == "N" ? "No" : nullptr;
    RYXmlWrapperBase tree = parse_ids(before);
    Ints ids;
    Strings values;
    Strings labels;
    int count = rytree_get_values_with_ids(&tree, &ids, &values, &labels, recursive, changed_only, repeat,
                                           attribute, all_branches, nullptr);
    EXPECT_EQ(list_of(ids.array()), list_of(Ints(id_list).array()));
    EXPECT_EQ(list_of(values.array()), value_list);
    EXPECT_EQ(labels.array().GetSize(), count);
    // Again into arrays that hold something.
    tree = parse_ids(before);
    ids.array().Add(99);
    values.array().Add("former");
    CString error;
    count = vctree_get_values_with_ids(&tree, &ids.array(), &values.array(), recursive, changed_only, repeat,
                                       attribute, all_branches, &error);
    EXPECT_EQ(list_of(ids.array()), list_of(Ints(id_list).array()));
    EXPECT_EQ(list_of(values.array()), value_list);
    EXPECT_EQ(count, ids.array().GetSize());
    EXPECT_EQ(std::string(error.View()), message.ends_with('=') ? message + ' ' : message);
    EXPECT_EQ(text(tree), text(parse_ids(after.empty() ? before : after)));
  }
}

TEST(Harvest, LabelsAndTheErrorTextAreNotEmptied) {
  RYXmlWrapperBase tree = parse_ids("<R><a #1/><a/><B #2 Label=''><a #3 Label='l'/></B></R>");
  Ints ids;
  Strings values;
  Strings labels;
  CString error("former");
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(rytree_get_values_with_ids(&tree, &ids, &values, &labels, 1, 0, 0, nullptr, 1, &error), 3);
  }
  EXPECT_EQ(list_of(labels.array()), "a,,l,a,,l");
  EXPECT_EQ(error, "former");
}

TEST(Harvest, CombinesIdsAndRepeats) {
  using R = Row<int, int, int, int, int, int>;
  for (const auto& [own, given, repeat, code, id_after, repeat_after] :
       Rows{R{0, 7, 3, 3, 0x30007, -9}, R{0, 7, 0x10003, 3, 0x30007, -9}, R{0, -1, 3, 0, -1, -9},
            R{0, 7, 0, 0, 7, -9}, R{0, 7, -3, 0, 7, -9}, R{0, 0xFFFF, 1, 3, 0x1FFFF, -9},
            R{0, 0x10000, 1, -1, 0x10000, -9}, R{0, 5, 0xFFFF, 3, -65531, -9}, R{4, 7, 3, 2, 7, 7},
            R{4, 7, 0, 1, 7, 4}, R{4, 7, -1, 1, 7, 4}, R{4, 7, 6, -2, 7, -9}, R{32767, 7, 0, -3, 7, -9},
            R{32766, 7, 1, 2, 7, 32767}, R{32768, 7, 1, 3, 0x10007, -9}, R{-1, 7, 1, 3, 0x10007, -9}}) {
    RYXmlWrapperBase node = parse("<a/>");
    if (own != 0) node.SetPropertyValue("RepeatID", own);
    int id = given;
    int joined = -9;
    EXPECT_EQ(rytree_combine_treenode_id_with_repeat_id(&node, &id, &joined, repeat), code);
    EXPECT_EQ(id, id_after);
    EXPECT_EQ(joined, repeat_after);
    EXPECT_EQ(rytree_combine_treenode_id_with_repeat_id(&node, nullptr, nullptr, repeat),
              code == 3 || code == -1 ? 0 : code);
  }
  EXPECT_EQ(rytree_combine_treenode_id_with_repeat_id(nullptr, nullptr, nullptr, 1), 0);
}

TEST(Harvest, RefusesBadArguments) {
  RYXmlWrapperBase tree = parse_ids("<R><a #1>x</a></R>");
  Ints ids("5");
  Strings values("kept");
  EXPECT_EQ(rytree_get_values_with_ids(&tree, &ids, &values, &ids, 1, 0, 0, nullptr, 1, nullptr), -1);
  EXPECT_EQ(list_of(ids.array()), "5");
  EXPECT_EQ(list_of(values.array()), "kept");
  EXPECT_EQ(with_bad(rytree_get_values_with_ids, &tree, &ids, &values, &values, 1, 0, 0, "x", 1, nullptr),
            "-1 -1,-1 -1,-1 -1,0 -1,1,0");
  const auto typed = vctree_get_values_with_ids;
  EXPECT_EQ(with_bad(typed, &tree, &ids.array(), &values.array(), 1, 0, 0, "x", 1, nullptr),
            "-1 -1,-1,0,1,0");
  EXPECT_EQ(typed(&tree, &ids.array(), nullptr, 1, 0, 0, nullptr, 1, nullptr), 0);
  EXPECT_TRUE(ids.array().IsEmpty());
}
