// Composite ranges: building and renumbering them, and the values in them.
#include <rytree_Utils/composite_range.h>
#include <rytree_Utils/lookup.h>
#include <rytree_host/ryUtils.h>

#include <algorithm>
#include <array>

#include "frame/attributes.h"
#include "frame/check_get.h"
#include "frame/children.h"
#include "frame/node_text.h"
#include "ranges/range_names.h"

namespace {

constexpr int kMaxRangeCount = 1'000'000;
constexpr int kCompositeSubNodeId = 55;
constexpr int kSubNodeActionId = 1004;
constexpr int kFirstRepeatId = 128;
constexpr int kRepeatIdStep = 16;

constexpr unsigned kShowErrorOption = 32;
constexpr int kHandDownOption = 0x8000;
constexpr int kKeepTag = 1;  // of Replace

struct SubNodeLayout {
  const char* tag;  // null after the last one
  int data_id;
  int label_message;  // 0: the tag is the label
};

struct RangeLayout {
  int type;
  int composite_id;
  int action_id;
  const char* third_tag;  // of the sub-node with the third value; null: it is the one after "Y"
  std::array<SubNodeLayout, 4> sub_nodes;
};

constexpr SubNodeLayout kX = {"X", 51, 0};
constexpr SubNodeLayout kY = {"Y", 52, 0};
constexpr SubNodeLayout kError = {"ED", 53, 1625};
constexpr std::array<RangeLayout, 5> kLayouts = {{
    {2, 44, 1001, "ED", {{kX, kY, kError, {}}}},
    {3, 52, 1002, "Z", {{kX, kY, {"Z", 54, 0}, {}}}},
    {4, 58, 1003, nullptr, {{kX, kY, {"Y", 52, 1626}, {}}}},
    {7, -1, 1001, "Z", {{kX, kY, kError, {"EI", 56, 2539}}}},
    {-1, -1, 1000, "Z", {{kX, kY, {}, {}}}},  // any other type
}};

const RangeLayout& range_layout(int type) {
  return *std::find_if(kLayouts.begin(), kLayouts.end() - 1,
                       [type](const RangeLayout& layout) { return layout.type == type; });
}

/// The repeat number that a range takes from the sibling before it: 128 if there is none. What is not a valid
/// repeat number there is handed on, -1 for a missing one.
int next_repeat_id(const RYXmlWrapperBase& range) {
  int id = kFirstRepeatId;
  RYXmlWrapperBase previous;
  if (range.PrevSibling(previous) != 0 && VCTreeGetRepeatId(previous, id) != 0) id += kRepeatIdStep;
  return id;
}

/// Hides "ED" and hands options down, as the options of `parent`, or else those of `range`, say.
void apply_interactive_options(RYXmlWrapperBase& range, const RYXmlWrapperBase& parent) {
  int read = 0;
  if (parent.GetPropertyValue(kInteractiveOptionsName, read) == 0)
    range.GetPropertyValue(kInteractiveOptionsName, read);
  const auto options = static_cast<unsigned>(read);

  RYXmlWrapperBase error;
  if ((options & kShowErrorOption) == 0 && find_child(error, range, "ED")) error.SetShow(0);
  if ((options & kHandDownOption) == 0) return;
  range.SetPropertyValue(kInteractiveOptionsName, kHandDownOption);
  for (Children child(range); child; ++child)
    child->SetPropertyValue(kInteractiveOptionsName, kHandDownOption);
}

bool add_range(RYXmlWrapperBase& range, RYXmlWrapperBase& parent, int id) {
  const int number = parent.GetNodeCount() + 1;
  if (parent.AddChildNode(range_tag(number), range, id, nullptr) == 0) return false;
  range.SetLabel(range_label(number));
  range.SetPropertyValue(kBranchName, 0);
  return true;
}

void add_sub_node(RYXmlWrapperBase& range, const SubNodeLayout& layout, int id) {
  RYXmlWrapperBase node;
  if (range.AddChildNode(layout.tag, node, id, nullptr) == 0) return;
  CString label(layout.tag);
  if (layout.label_message != 0) ryu_load_err_msg_str(layout.label_message, &label, -1);
  node.SetLabel(label);
  node.SetDataID(layout.data_id);
  node.SetPropertyValue(kActionIdName, kSubNodeActionId);
}

void renumber_only(RYXmlWrapperBase& tree) {
  int number = 0;
  for (Children child(tree); child; ++child) {
    child->SetLabel(range_label(++number));
    VCTreeSetRepeatId(*child, next_repeat_id(*child));
  }
}

// Appends copies of the children of `source`, or none if memory runs out.
void append_copies(RYXmlWrapperBase& target, RYXmlWrapperBase& source) {
  const int former = target.GetNodeCount();
  try {
    for (Children child(source); child; ++child) target.AddNodeCopy(*child, 1);
  } catch (...) {
    target.SetSizeTrimFromEnd(former);
    throw;
  }
}

void renumber_and_rename(RYXmlWrapperBase& tree) {
  if (tree.IsNodeValid() == 0) return;
  RYXmlWrapperBase renamed;
  renamed.CreateNew(1, nullptr);
  int number = 0;
  for (Children child(tree); child; ++child) {
    RYXmlWrapperBase range;
    renamed.AddNode(range, range_tag(++number), -1);
    range.Replace(*child, 1, kKeepTag, 0);
    range.SetLabel(range_label(number));
    VCTreeSetRepeatId(range, next_repeat_id(range));
  }
  append_copies(tree, renamed);
  for (RYXmlWrapperBase child; number > 0; --number) {
    tree.FirstChild(child);
    child.RemoveNode();
  }
}

// Leads from the "Y" of a range to the node of its third value. A missing one is a failure only where it is
// looked for by tag.
bool find_third(RYXmlWrapperBase& range, RYXmlWrapperBase& y, const char* tag, RYXmlWrapperBase& third) {
  if (tag != nullptr) return find_child(third, range, tag);
  y.NextSibling(third);
  return true;
}

}  // namespace

int vctree_add_subrange_to_composite_range(RYXmlWrapperBase& range, RYXmlWrapperBase& parent, int rangeId,
                                           int subNodeId, int type) {
  if (range.IsNodeValid() == 0 && !add_range(range, parent, rangeId)) return 0;
  const RangeLayout& layout = range_layout(type);
  VCTreeSetRepeatId(range, next_repeat_id(range));
  range.SetPropertyValue(kActionIdName, layout.action_id);
  for (const SubNodeLayout& sub_node : layout.sub_nodes) {
    if (sub_node.tag != nullptr) add_sub_node(range, sub_node, subNodeId);
  }
  apply_interactive_options(range, parent);
  return 1;
}

int rytree_create_composite_range_node(RYXmlWrapperBase* out, RYXmlWrapperBase* parent, const char* tag,
                                       const char* label, int rangeCount, int type, const char* data) {
  if (out == nullptr || parent == nullptr || rangeCount > kMaxRangeCount) return 0;
  const int id = range_layout(type).composite_id;
  if (parent->AddChildNode(tag, *out, id, nullptr) == 0) return 0;
  out->SetLabel(label);
  if (rytree_host::lstrlenA(data) > 0) out->SetPropertyValue(kDataName, data);
  RYXmlWrapperBase range;
  for (int made = 0; made < rangeCount; ++made) {
    range.ReleaseNode();
    if (vctree_add_subrange_to_composite_range(range, *out, id, kCompositeSubNodeId, type) == 0) return 0;
  }
  return 1;
}

void vctree_reenum_subranges_in_range_tree(RYXmlWrapperBase& tree, int renameTags) {
  if (renameTags != 0) return renumber_and_rename(tree);
  renumber_only(tree);
}

int vctree_get_composite_subrange_values(RYXmlWrapperBase& range, CString& x, CString& y, CString& third,
                                         int type) {
  RYXmlWrapperBase node;
  if (!find_child(node, range, "X")) return 0;
  read_text(node, x);
  if (!find_child(node, range, "Y")) return 0;
  read_text(node, y);
  if (!find_third(range, node, range_layout(type).third_tag, node)) return 0;
  if (node.IsNodeValid() != 0) read_text(node, third);
  return 1;
}

int vctree_set_composite_subrange_values(RYXmlWrapperBase& range, const char* x, const char* y,
                                         const char* third, int subNodeId, int type, int combine, int reset) {
  if (range.IsNodeValid() == 0) return 0;
  if (reset != 0) range.ResetNode(1);
  RYXmlWrapperBase no_parent;
  vctree_add_subrange_to_composite_range(range, no_parent, -1, subNodeId, type);

  const char* const third_tag = range_layout(type).third_tag;
  RYXmlWrapperBase node;
  if (!find_child(node, range, "X")) return 0;
  write_text(node, x);
  if (!find_child(node, range, "Y")) return 0;
  if (third_tag == nullptr && combine != 0) {
    write_text(node, CString(y) + "," + third);
    return 1;
  }
  write_text(node, y);
  if (!find_third(range, node, third_tag, node)) return 0;
  write_text(node, third);
  return 1;
}

int rytree_set_composite_subrange_values(RYXmlWrapperBase* range, const char* x, const char* y,
                                         const char* third, int type) {
  if (range == nullptr) return 0;
  return vctree_set_composite_subrange_values(*range, x, y, third, kCompositeSubNodeId, type, /*combine=*/0,
                                              /*reset=*/1);
}
