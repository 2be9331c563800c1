// Removing nodes by attribute or emptiness.
#include <rytree_Utils/edit.h>

#include "frame/children.h"
#include "frame/flag.h"

namespace {

struct MissingAttributeRemoval {
  const RYPropertyName attribute;
  const bool recursive;
  const bool remove_attribute;
  const bool keep_branches;

  int walk(RYXmlWrapperBase& parent) const {
    int count = 0;
    for (Children child(parent); child;) {
      RYXmlWrapperBase node = child.take();
      if (node.GetNodeCount() > 0) {
        if (!recursive) continue;
        count += walk(node);
        if (keep_branches || node.HasChildren(0) != 0) continue;
      }
      if (node.HasProperty(attribute) == 0) {
        parent.RemoveChild(node, nullptr);
        ++count;
      } else if (remove_attribute) {
        node.RemoveProperty(attribute);
      }
    }
    return count;
  }
};

struct AttributeRemoval {
  const RYPropertyName attribute;
  const int value;
  const bool recursive;

  int walk(RYXmlWrapperBase& parent, const RYPropertyName* exempt) const {
    int total = 0;
    for (Children child(parent); child;) {
      RYXmlWrapperBase node = child.take();
      int status = 0;
      if (!(exempt != nullptr && node.HasProperty(*exempt) != 0) && is_hit(node)) {
        parent.RemoveChild(node, &status);
        if (status >= 0) status = 1;
      } else if (recursive && node.GetNodeCount() > 0) {
        status = walk(node, nullptr);
      }
      if (total >= 0) total = status < 0 ? status : total + status;
    }
    return total;
  }

  bool is_hit(const RYXmlWrapperBase& node) const {
    int read = 0;
    return node.GetPropertyValue(attribute, read) != 0 && read == value;
  }
};

int remove_empty(RYXmlWrapperBase& parent, bool recursive) {
  int survivors = 0;
  for (Children child(parent); child;) {
    RYXmlWrapperBase node = child.take();
    int kept = 1;
    if (node.HasChildren(0) == 0) {
      kept = node.IsEmpty() != 0 ? 0 : 1;
    } else if (recursive) {
      kept = remove_empty(node, true);
    }
    if (kept == 0) parent.RemoveChild(node, nullptr);
    survivors += kept;
  }
  return survivors;
}

}  // namespace

int rytree_delete_nodes_by_missing_attribute(RYXmlWrapperBase* parent, const char* attribute, int recursive,
                                             int removeAttribute, int keepBranches) {
  if (parent == nullptr || attribute == nullptr) return 0;
  return MissingAttributeRemoval{RYPropertyName(attribute), recursive != 0, removeAttribute != 0,
                                 keepBranches != 0}
      .walk(*parent);
}

int rytree_delete_nodes_by_attribute(RYXmlWrapperBase* parent, const char* attribute, int value,
                                     int recursive, const char* exemptAttribute) {
  if (parent == nullptr) return 0;
  const RYPropertyName exempt(exemptAttribute);
  return AttributeRemoval{RYPropertyName(attribute), value, recursive != 0}.walk(*parent, &exempt);
}

extern "C" int flagged_rytree_remove_empty_child_nodes(RYXmlWrapperBase* parent, Flag recursive) {
  return parent != nullptr ? remove_empty(*parent, is_set(recursive)) : 0;
}
[[gnu::alias("flagged_rytree_remove_empty_child_nodes")]] decltype(rytree_remove_empty_child_nodes)
    rytree_remove_empty_child_nodes;

int rytree_remove_nodes_by_attribute(RYXmlWrapperBase* node, const char* attribute, int value) {
  if (node == nullptr || node->IsNodeValid() == 0) return -1;
  return AttributeRemoval{RYPropertyName(attribute), value, true}.walk(*node, nullptr);
}
