// Finding a child, and making it where it is missing.
#include "frame/check_get.h"

#include <rytree_Utils/lookup.h>
#include <rytree_host/ryUtils.h>

#include "frame/attributes.h"

namespace {

bool has_text(const char* text) { return text != nullptr && *text != '\0'; }

void set_attribute(RYXmlWrapperBase& node, const char* name, const char* value) {
  if (has_text(name) && has_text(value)) node.SetPropertyValue(name, value);
}

// `parent` may be the handle `out`. A child that cannot be made leaves `out` invalid.
bool add_child(RYXmlWrapperBase& out, const RYXmlWrapperBase& parent, const char* tag, int id) {
  RYXmlWrapperBase above(parent);
  out.ReleaseNode();
  above.AddNode(out, tag, id);
  return out.IsNodeValid() != 0;
}

}  // namespace

bool check_get_child(RYXmlWrapperBase& out, RYXmlWrapperBase& parent, const char* tag,
                     const ChildDetails& details) {
  constexpr int kFindFirst = 1;
  return rytree_tree_check_get_node(&out, &parent, tag, details.id, details.attribute, details.value,
                                    kFindFirst) != 0;
}

int rytree_tree_check_get_node(RYXmlWrapperBase* out, RYXmlWrapperBase* parent, const char* tag, int nodeId,
                               const char* attribute, const char* attributeValue, int find) {
  if (out == nullptr || parent == nullptr) return 0;
  RYXmlWrapperBase child;
  const bool found = parent->FindChild(tag, child, find) != 0 && child.IsNodeValid() != 0;
  if (found) {
    *out = child;
  } else if (!add_child(*out, *parent, tag, nodeId == 0 ? -1 : nodeId)) {
    return 0;
  }
  set_attribute(*out, attribute, attributeValue);
  return 1;
}

bool rytree_tree_check_get_node_by_attribute(RYXmlWrapperBase* out, RYXmlWrapperBase* parent,
                                             const char* attribute, const char* attributeValue, int find) {
  if (out == nullptr || parent == nullptr || attribute == nullptr || attributeValue == nullptr) return false;
  if (parent->FindNodeByAttribute(*out, attribute, attributeValue, 0, find) != 0) return true;
  CString tag(attributeValue);
  ryuMakeValidCName(&tag, 0);
  if (!add_child(*out, *parent, tag, -1)) return false;
  out->SetPropertyValue(attribute, attributeValue);
  return true;
}

bool rytree_check_get_node_by_dataid(RYXmlWrapperBase* parent, RYXmlWrapperBase* out, const char* tag,
                                     int dataId, const char* attribute, const char* attributeValue) {
  if (parent == nullptr || out == nullptr) return true;
  rytree_find_node(parent, out, kDataIdName, dataId, /*recursive=*/false, /*depth=*/0, /*repeatId=*/-1);
  if (out->IsNodeValid() != 0) return true;
  if (!add_child(*out, *parent, tag, -1)) return true;
  set_attribute(*out, attribute, attributeValue);
  if (dataId > 0) out->SetDataID(dataId);
  return true;
}
