// Reading and writing the attributes and values of many nodes at once.
#include <rytree_Utils/bulk.h>
#include <rytree_host/Kelp60.h>

#include <utility>

#include "frame/aliasing.h"
#include "frame/children.h"
#include "frame/flag.h"
#include "frame/host_arrays.h"
#include "frame/id_index.h"
#include "frame/node_text.h"
#include "transfer/attribute_matching.h"

namespace {

/// What is listed for a node without the attribute: an empty text, or that of the sibling before.
enum class Missing { kEmpty, kCarried };

/// Lists one attribute of the nodes below a node.
struct AttributeList {
  const RYPropertyName attribute;
  CStringArray& values;
  const bool children_only;
  const Missing missing;

  void append_below(const RYXmlWrapperBase& node) const {
    int former = -1;
    for (Children child(node); child; ++child) {
      CString text;
      if (child->GetPropertyValue(attribute, text) == 0 && missing == Missing::kCarried) {
        text = values[former];  // empty before the first
      }
      former = values.Add(std::move(text));
      if (!children_only) append_below(*child);
    }
  }
};

int list_attributes(RYXmlWrapperBase* tree, CStringArray* values, const char* attribute, bool children_only,
                    Missing missing) {
  if (tree == nullptr || values == nullptr) return -1;
  const OwnText name(attribute);
  make_room(*values, *tree, !children_only);
  AttributeList{RYPropertyName(name), *values, children_only, missing}.append_below(*tree);
  return 0;
}

/// Collects, removes or writes one int attribute.
struct AttributeStep {
  const RYPropertyName attribute;
  const int value;
  CArray<int, int>* const collected;
  const bool remove;

  void act(RYXmlWrapperBase& node) const {
    if (collected != nullptr) {
      int read = -1;
      node.GetPropertyValue(attribute, read);
      collected->Add(read);
    } else if (remove) {
      node.RemoveProperty(attribute);
    } else {
      node.SetPropertyValue(attribute, value);
    }
  }
};

}  // namespace

extern "C" int flagged_VCTreeGetAttributes(RYXmlWrapperBase* tree, CStringArray* values,
                                           const char* attribute, Flag childrenOnly) {
  return list_attributes(tree, values, attribute, is_set(childrenOnly), Missing::kEmpty);
}
[[gnu::alias("flagged_VCTreeGetAttributes")]] decltype(VCTreeGetAttributes) VCTreeGetAttributes;

int rytree_get_attributes(RYXmlWrapperBase* tree, HostArrayObject* values, const char* attribute,
                          int childrenOnly) {
  return VCTreeGetAttributes(tree, open_strings(values), attribute, childrenOnly != 0);
}

extern "C" int flagged_vctree_get_attributes(RYXmlWrapperBase* tree, CStringArray* values,
                                             const char* attribute, Flag childrenOnly) {
  return list_attributes(tree, values, attribute, is_set(childrenOnly), Missing::kCarried);
}
[[gnu::alias("flagged_vctree_get_attributes")]] decltype(vctree_get_attributes) vctree_get_attributes;

int VCTreeAttributeValues(RYXmlWrapperBase* tree, const char* attribute, int value,
                          CArray<int, int>* collected, int removeIfNegative, int includeTop) {
  if (tree == nullptr) return -1;
  const AttributeStep step{RYPropertyName(attribute), value, collected, removeIfNegative != 0 && value < 0};
  if (collected != nullptr) make_room(*collected, *tree, true);
  if (includeTop != 0) step.act(*tree);
  for (NodesBelow at(*tree); at; ++at) step.act(*at);
  return 0;
}

int rytree_attribute_values(RYXmlWrapperBase* tree, const char* attribute, int value,
                            HostArrayObject* collected, int removeIfNegative) {
  return VCTreeAttributeValues(tree, attribute, value, open_ints(collected), removeIfNegative, 0);
}

extern "C" bool flagged_VCTreeSetAttributes(RYXmlWrapperBase* tree, const CArray<int, int>* ids,
                                            const char* value, const char* attribute,
                                            const char* matchAttribute, Flag recursive) {
  if (tree == nullptr || ids == nullptr) return false;
  const MatchRule rule = {.attribute = written_name(attribute),
                          .match = match_name(matchAttribute),
                          .recursive = is_set(recursive)};
  MatchTarget target(*tree, rule);
  MatchTexts texts = {.written = {.value = CString(value)}};
  int result = 0;
  for (const int id : *ids) {
    texts.match = kelp_number_to_text(id);
    result = target.write(texts, false);
  }
  target.finish();
  return result != 0;
}
[[gnu::alias("flagged_VCTreeSetAttributes")]] decltype(VCTreeSetAttributes) VCTreeSetAttributes;

extern "C" bool flagged_rytree_set_attributes(RYXmlWrapperBase* tree, HostArrayObject* ids, const char* value,
                                              const char* attribute, const char* matchAttribute,
                                              Flag recursive) {
  return VCTreeSetAttributes(tree, open_ints(ids), value, attribute, matchAttribute, is_set(recursive));
}
[[gnu::alias("flagged_rytree_set_attributes")]] decltype(rytree_set_attributes) rytree_set_attributes;

int vctree_set_values_by_nodeids(RYXmlWrapperBase* tree, CArray<int, int>* ids, CStringArray* values) {
  if (tree == nullptr || tree->IsNodeValid() == 0) return -1;
  if (ids == nullptr || values == nullptr || ids->IsEmpty() || values->IsEmpty()) return -2;
  if (ids->GetSize() != values->GetSize()) return -3;
  const IdIndex index(*ids);
  const RYPropertyName node_id("NodeID");
  int written = 0;
  for (NodesBelow at(*tree); at; ++at) {
    int id = 0;
    if (at->HasChildren(0) != 0 || at->GetPropertyValue(node_id, id) == 0) continue;
    const int place = index.find(id);
    if (place < 0) continue;
    write_text(*at, (*values)[place]);
    ++written;
  }
  return written;
}

int rytree_set_values_by_nodeids(RYXmlWrapperBase* tree, HostArrayObject* ids, HostArrayObject* values) {
  CStringArray* const texts = open_strings(values);
  return texts != nullptr ? vctree_set_values_by_nodeids(tree, open_ints(ids), texts) : -1;
}
