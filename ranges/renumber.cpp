// Numbering the ranges of a tree anew.
#include <rytree_Utils/lookup.h>
#include <rytree_Utils/composite_range.h>

#include "frame/children.h"
#include "ranges/composite_range.h"
#include "ranges/range_names.h"

namespace {

void renumber_only(RYXmlWrapperBase& tree) {
  int number = 0;
  for (Children child(tree); child; ++child) {
    child->SetLabel(range_label(++number));
    VCTreeSetRepeatId(*child, vctree_next_repeat_id(*child));
  }
}

void renumber_and_rename(RYXmlWrapperBase& tree) {
  RYXmlWrapperBase former;
  if (tree.Clone(former, 1) == 0) return;
  tree.RemoveAllChildren();
  int number = 0;
  for (Children child(former); child; ++child) {
    child->SetLabel(range_label(++number));
    RYXmlWrapperBase range;
    tree.AddNode(range, range_tag(number), -1);
    range.Replace(*child, 1, 1, 0);
    VCTreeSetRepeatId(range, vctree_next_repeat_id(range));
  }
}

}  // namespace

void vctree_reenum_subranges_in_range_tree(RYXmlWrapperBase& tree, int renameTags) {
  if (renameTags != 0) return renumber_and_rename(tree);
  renumber_only(tree);
}
