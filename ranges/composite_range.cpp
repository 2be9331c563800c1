// Building composite ranges.
#include "ranges/composite_range.h"

#include <rytree_Utils/lookup.h>
#include <rytree_Utils/composite_range.h>
#include <rytree_host/ryUtils.h>

#include <algorithm>

#include "frame/children.h"
#include "ranges/range_names.h"

namespace {

constexpr int kMaxRangeCount = 1'000'000;
constexpr int kSubNodeActionId = 1004;
constexpr int kFirstRepeatId = 128;
constexpr int kRepeatIdStep = 16;

constexpr const char* kOptionsName = "InteractiveOptions";
constexpr unsigned kShowErrorOption = 32;
constexpr int kHandDownOption = 0x8000;

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

bool add_range(RYXmlWrapperBase& range, RYXmlWrapperBase& parent, int id) {
  const int number = parent.GetNodeCount() + 1;
  if (parent.AddChildNode(range_tag(number), range, id, nullptr) == 0) return false;
  range.SetLabel(range_label(number));
  range.SetPropertyValue("Branch", 0);
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

}  // namespace

const RangeLayout& vctree_subrange_layout(int type) {
  return *std::find_if(kLayouts.begin(), kLayouts.end() - 1,
                       [type](const RangeLayout& layout) { return layout.type == type; });
}

int vctree_next_repeat_id(const RYXmlWrapperBase& range) {
  int id = kFirstRepeatId;
  RYXmlWrapperBase previous;
  if (range.PrevSibling(previous) != 0 && VCTreeGetRepeatId(previous, id) != 0) id += kRepeatIdStep;
  return id;
}

void vctree_apply_interactive_options(RYXmlWrapperBase& range, const RYXmlWrapperBase& parent) {
  int read = 0;
  if (parent.GetPropertyValue(kOptionsName, read) == 0) range.GetPropertyValue(kOptionsName, read);
  const auto options = static_cast<unsigned>(read);

  RYXmlWrapperBase error;
  if ((options & kShowErrorOption) == 0 && range.FindChild("ED", error, 1) != 0) error.SetShow(0);
  if ((options & kHandDownOption) == 0) return;
  range.SetPropertyValue(kOptionsName, kHandDownOption);
  for (Children child(range); child; ++child) child->SetPropertyValue(kOptionsName, kHandDownOption);
}

int vctree_add_subrange_to_composite_range(RYXmlWrapperBase& range, RYXmlWrapperBase& parent, int rangeId,
                                           int subNodeId, int type) {
  if (range.IsNodeValid() == 0 && !add_range(range, parent, rangeId)) return 0;
  const RangeLayout& layout = vctree_subrange_layout(type);
  VCTreeSetRepeatId(range, vctree_next_repeat_id(range));
  range.SetPropertyValue(kActionIdName, layout.action_id);
  for (const SubNodeLayout& sub_node : layout.sub_nodes) {
    if (sub_node.tag != nullptr) add_sub_node(range, sub_node, subNodeId);
  }
  vctree_apply_interactive_options(range, parent);
  return 1;
}

int rytree_create_composite_range_node(RYXmlWrapperBase* out, RYXmlWrapperBase* parent, const char* tag,
                                       const char* label, int rangeCount, int type, const char* data) {
  if (out == nullptr || parent == nullptr || rangeCount > kMaxRangeCount) return 0;
  const int id = vctree_subrange_layout(type).composite_id;
  if (parent->AddChildNode(tag, *out, id, nullptr) == 0) return 0;
  out->SetLabel(label);
  if (lstrlenA(data) > 0) out->SetPropertyValue("Data", data);
  RYXmlWrapperBase range;
  for (int made = 0; made < rangeCount; ++made) {
    range.ReleaseNode();
    if (vctree_add_subrange_to_composite_range(range, *out, id, kCompositeSubNodeId, type) == 0) return 0;
  }
  return 1;
}
