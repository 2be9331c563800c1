#include <rytree_Utils/transfer.h>

#include "transfer_model.h"

namespace {

struct Flags {
  int recursive = 1;
  int changed_only = 0;
  int repeat = 0;
  const char* id_attribute = nullptr;
  int all_branches = 1;
};

std::string entries(const CArray<int, int>& ids, const CStringArray& values) {
  CString all;
  for (int at = 0; at < ids.GetSize(); ++at) {
    all.AppendFormat(ids[at] < 0x10000 ? "%d=%s;" : "0x%X=%s;", static_cast<unsigned>(ids[at]),
                     values[at].GetString());
  }
  return std::string(all.View());
}

const char* const kMissing = "Missing DataID for Node with Name = , Label = ";

struct Harvest {
  const char* tree;
  const char* entries;
  Flags flags = {};
  const char* error = "";
  const char* after = nullptr;  // null: unchanged
};
const Harvest kHarvests[] = {
    // Repeats, values of branches, a decoration.
    {"<R><P #1>12</P><Q #2 ^128 Use='1'><R #3>5</R><S #4 Label=''><T #5 Auto='2' Label='t'>7</T></S></Q></R>",
     "1=12;2=1;0x800003=5;0x800004=-1;0x800005=::{Auto=2}7;"},
    {"<R><a #0 Auto='x' DynaUseChck=''>v</a></R>", "0=::{Auto=x}::{DynaUseChck=}v;"},
    // A bare branch has no entry, a decorated one has.
    {"<R><S #4>x<T #5>7</T></S></R>", "5=7;", {.all_branches = 0}},
    {"<R><S #4 Auto=''/><S #5 Auto='x' Use='u'><T #6/></S><S #7 Auto=''><T #8/></S></R>",
     "4=::{Auto=};5=::{Auto=x}u;6=;7=::{Auto=}-1;8=;",
     {.all_branches = 0}},
    {"<R><P #1>a</P><Q #2 Use=''><S #3>b</S></Q></R>", "1=a;2=;", {.recursive = 0}},
    {"<R><a #-1>x</a><a #-2>x</a><B #-2><a #1>y</a></B><B><a #2>z</a></B></R>",
     "-2=-1;1=y;2=z;",
     {},
     kMissing},
    {"<R><a Name='n' Label='l'>x</a></R>", "", {}, "Missing DataID for Node with Name = n, Label = l"},
    {"<R><a No='7'>x</a><a #1>y</a></R>", "7=x;", {.id_attribute = "No"}},
    // A repeat in force is joined with those below it; an ID that is too wide is read plain.
    {"<R><a #7>x</a><a #65535/></R>", "0x30007=x;0x3FFFF=;", {.repeat = 3}},
    {"<R><B #1 ^4><a #2/></B></R>", "1=-1;0x70002=;", {.repeat = 3}},
    {"<R><a #65536 Label='l'>x</a><a #1/></R>",
     "0x10000=x;0x30001=;",
     {.repeat = 3},
     "DataID conflict with RepeatID for Node with Name = a, Label = l, Repeat ID = 65536"},
    // Repeats that overlap are not joined, and the last message stays.
    {"<R><a/><B #1 ^4 Label='l'><a #2/></B></R>",
     "1=-1;0x60002=;",
     {.repeat = 6},
     "Repeat ID conflict for Node with Name = B, Label = l, Repeat ID = 6"},
    {"<R><B #1 ^32767><a #2/></B><B #3 ^32768><a #4/></B><B #5 ^-4><a #6/></B></R>",
     "1=-1;0x10002=;0x10003=-1;0x10004=;0x10005=-1;0x10006=;",
     {.repeat = 1},
     "Repeat ID invalid for Node with Name = B, Label = , Repeat ID = 1"},
    // Bit 20: one value from Data. Siblings that follow and what is below them lose all branches, no others
    // do.
    {"<R><P #1><Q #2 ~20 Use='u' Data='d'><a #3/></Q><Q #4><Q #5><a #6/></Q></Q></P><P #7><a #8/></P></R>",
     "1=-1;2=d;6=;7=-1;8=;"},
    {"<R><P #1 ~20 Use='u'><a #2/></P><P #3 ~20 Auto='x'><a #4/></P><a #5 ~20 Data='d'>t</a></R>",
     "3=::{Auto=x}-1;5=t;"},
    {"<R>text</R>", ""},
    {"<R><a #1>x</a><a #2 OldValue='x'>x</a><a #3 OldValue='x'>X</a><a #4 OldValue='x' Auto='1'>x</a></R>",
     "3=X;4=::{Auto=1}x;",
     {.changed_only = 1},
     "",
     "<R><a #1>x</a><a #2 OldValue='x'>x</a><a #3 OldValue='X'>X</a>"
     "<a #4 OldValue='::{Auto=1}x' Auto='1'>x</a></R>"},
    {"<R><B #5 OldValue='' Use='u'><a/></B><B #6 OldValue='-1'><a/></B><B #7 OldValue=''><a/></B></R>",
     "5=u;",
     {.changed_only = 1, .all_branches = 0},
     kMissing,
     "<R><B #5 OldValue='u' Use='u'><a/></B><B #6 OldValue='-1'><a/></B><B #7 OldValue=''><a/></B></R>"},
};

TEST(Harvest, reads_values_with_ids) {
  for (const Harvest& row : kHarvests) {
    SCOPED_TRACE(row.tree);
    const Flags& f = row.flags;
    const RYXmlWrapperBase after = parse_ids(row.after != nullptr ? row.after : row.tree);
    RYXmlWrapperBase tree = parse_ids(row.tree);
    CArray<int, int> ids;
    CStringArray values;
    CString error;
    ids.Add(99);
    values.Add("former");
    const int count = vctree_get_values_with_ids(&tree, &ids, &values, f.recursive, f.changed_only, f.repeat,
                                                 f.id_attribute, f.all_branches, &error);
    EXPECT_EQ(entries(ids, values), row.entries);
    EXPECT_EQ(count, ids.GetSize());
    EXPECT_EQ(error, row.error);
    EXPECT_EQ(text(tree), text(after));

    tree = parse_ids(row.tree);
    HostIntArray host_ids;
    HostStringArray host_values;
    HostStringArray labels;
    EXPECT_EQ(rytree_get_values_with_ids(&tree, &host_ids, &host_values, &labels, f.recursive, f.changed_only,
                                         f.repeat, f.id_attribute, f.all_branches, nullptr),
              count);
    EXPECT_EQ(entries(host_ids.array(), host_values.array()), row.entries);
    EXPECT_EQ(labels.array().GetSize(), count);
  }
}

TEST(Harvest, labels_and_the_error_text_are_not_emptied) {
  RYXmlWrapperBase tree = parse_ids("<R><a #1/><a/><B #2 Label=''><a #3 Label='l'/></B></R>");
  HostIntArray ids;
  HostStringArray values;
  HostStringArray labels;
  CString error("former");
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(rytree_get_values_with_ids(&tree, &ids, &values, &labels, 1, 0, 0, nullptr, 1, &error), 3);
  }
  const CStringArray& all = labels.array();
  ASSERT_EQ(all.GetSize(), 6);
  EXPECT_EQ(all[0] + "," + all[1] + "," + all[2] + "," + all[5], "a,,l,l");
  EXPECT_EQ(error, "former");
}

TEST(Harvest, combines_ids_and_repeats) {
  struct {
    int own, id, repeat, code, id_after, repeat_after;
  } const rows[] = {
      {0, 7, 3, 3, 0x30007, -9},
      {0, 7, 0x10003, 3, 0x30007, -9},
      {0, -1, 3, 0, -1, -9},
      {0, 7, 0, 0, 7, -9},
      {0, 7, -3, 0, 7, -9},
      {0, 0xFFFF, 1, 3, 0x1FFFF, -9},
      {0, 0x10000, 1, -1, 0x10000, -9},
      {0, 5, 0xFFFF, 3, -65531, -9},
      {4, 7, 3, 2, 7, 7},
      {4, 7, 0, 1, 7, 4},
      {4, 7, -1, 1, 7, 4},
      {4, 7, 6, -2, 7, -9},
      {32767, 7, 0, -3, 7, -9},
      {32766, 7, 1, 2, 7, 32767},
      {32768, 7, 1, 3, 0x10007, -9},
      {-1, 7, 1, 3, 0x10007, -9},
  };
  for (const auto& row : rows) {
    RYXmlWrapperBase node = parse("<a/>");
    if (row.own != 0) node.SetPropertyValue("RepeatID", row.own);
    int id = row.id;
    int repeat = -9;
    EXPECT_EQ(rytree_combine_treenode_id_with_repeat_id(&node, &id, &repeat, row.repeat), row.code);
    EXPECT_EQ(id, row.id_after) << row.own << ' ' << row.id << ' ' << row.repeat;
    EXPECT_EQ(repeat, row.repeat_after) << row.own << ' ' << row.id << ' ' << row.repeat;
    EXPECT_EQ(rytree_combine_treenode_id_with_repeat_id(&node, nullptr, nullptr, row.repeat),
              row.code == 3 || row.code == -1 ? 0 : row.code);
  }
  EXPECT_EQ(rytree_combine_treenode_id_with_repeat_id(nullptr, nullptr, nullptr, 1), 0);
}

TEST(Harvest, refuses_bad_arguments) {
  RYXmlWrapperBase tree = parse_ids("<R><a #1>x</a></R>");
  RYXmlWrapperBase none;
  RYXmlWrapperBase dead = dead_node();
  HostIntArray ids;
  HostStringArray values;
  ids.array().Add(5);
  values.array().Add("kept");
  const auto plain = [&](RYXmlWrapperBase* node, HostArrayObject* id_object, HostArrayObject* value_object,
                         HostArrayObject* labels) {
    return rytree_get_values_with_ids(node, id_object, value_object, labels, 1, 0, 0, nullptr, 1, nullptr);
  };
  EXPECT_EQ(plain(nullptr, &ids, &values, nullptr), -1);
  EXPECT_EQ(plain(&none, &ids, &values, nullptr), -1);
  EXPECT_EQ(plain(&dead, &ids, &values, nullptr), -1);
  EXPECT_EQ(plain(&tree, nullptr, &values, nullptr), -1);
  EXPECT_EQ(plain(&tree, &values, &values, nullptr), -1);
  EXPECT_EQ(plain(&tree, &ids, nullptr, nullptr), -1);
  EXPECT_EQ(plain(&tree, &ids, &ids, nullptr), -1);
  EXPECT_EQ(plain(&tree, &ids, &values, &ids), -1);
  EXPECT_EQ(vctree_get_values_with_ids(nullptr, &ids.array(), &values.array(), 1, 0, 0, nullptr, 1, nullptr),
            -1);
  EXPECT_EQ(vctree_get_values_with_ids(&tree, nullptr, &values.array(), 1, 0, 0, nullptr, 1, nullptr), -1);
  EXPECT_EQ(entries(ids.array(), values.array()), "5=kept;");
  EXPECT_EQ(vctree_get_values_with_ids(&tree, &ids.array(), nullptr, 1, 0, 0, nullptr, 1, nullptr), 0);
  EXPECT_TRUE(ids.array().IsEmpty());
}

}  // namespace
