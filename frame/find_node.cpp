// Finding a node by ID, by the number in an attribute, by tag, or at the top of its tree.
#include <rytree_Utils/lookup.h>

#include "frame/attributes.h"
#include "frame/children.h"
#include "frame/flag.h"

namespace {

struct TagSearch {
  RYXmlWrapperBase* const out;  // may be null
  const RYPropertyName tag;
  const bool recursive;
  const bool case_sensitive;
  const bool leaves_only;
  CString read{};

  bool find(const RYXmlWrapperBase& node) {
    for (NodesOf at(node); at; ++at) {
      if (matches(*at)) {
        if (out != nullptr) *out = *at;
        return true;
      }
      if (!recursive) break;
    }
    return false;
  }

  bool matches(const RYXmlWrapperBase& node) {
    if (leaves_only && node.HasChildren(0) != 0) return false;
    if (case_sensitive) return node.HasTagName(tag) != 0;
    return node.GetTagName(read) != 0 && _mbsicmp(read, tag.c_str()) == 0;
  }
};

// One search: what is the same on every level.
struct ValueSearch {
  RYXmlWrapperBase& found;
  const RYPropertyName attribute;
  const int value;
  const bool recursive;

  bool find(const RYXmlWrapperBase& parent, int depth, int repeat) {
    for (Children child(parent); child; ++child) {
      int read = 0;
      if (child->GetPropertyValue(attribute, read) != 0 && read == value && repeats(*child, repeat)) {
        found = *child;
        return true;
      }
      if ((recursive || depth >= 1) && find(*child, depth < 1 ? 0 : depth - 1, -1)) return true;
    }
    return false;
  }

  static bool repeats(RYXmlWrapperBase& node, int wanted) {
    int repeat = -1;
    return wanted < 1 || (VCTreeGetRepeatId(node, repeat) != 0 && repeat == wanted);
  }
};

}  // namespace

extern "C" int flagged_rytree_get_node_by_id(RYXmlWrapperBase* node, RYXmlWrapperBase* out, int id,
                                             Flag recursive) {
  if (node == nullptr || out == nullptr) return 0;
  const RYPropertyName data_id(kDataIdName);
  for (NodesBelow at(*node, is_set(recursive)); at; ++at) {
    int read = 0;
    if ((at->GetID(read) != 0 && read == id) || (at->GetPropertyValue(data_id, read) != 0 && read == id)) {
      *out = *at;
      return 1;
    }
  }
  return 0;
}
[[gnu::alias("flagged_rytree_get_node_by_id")]] decltype(rytree_get_node_by_id) rytree_get_node_by_id;

int rytree_get_root_node(RYXmlWrapperBase* node, RYXmlWrapperBase* out) {
  if (node == nullptr || out == nullptr) return 0;
  for (RYXmlWrapperBase at(*node); at.IsNodeValid() != 0; at.GetParent(at)) *out = at;
  return out->IsNodeValid();
}

extern "C" bool flagged_rytree_get_node_by_tagname(RYXmlWrapperBase* node, RYXmlWrapperBase* out,
                                                   const char* tag, Flag recursive, Flag caseSensitive,
                                                   Flag leavesOnly) {
  if (node == nullptr || tag == nullptr) return false;
  return TagSearch{out, RYPropertyName(tag), is_set(recursive), is_set(caseSensitive), is_set(leavesOnly)}
      .find(*node);
}
[[gnu::alias(
    "flagged_rytree_get_node_by_tagname")]] decltype(rytree_get_node_by_tagname) rytree_get_node_by_tagname;

extern "C" int flagged_rytree_find_node(RYXmlWrapperBase* parent, RYXmlWrapperBase* found,
                                        const char* attribute, int value, Flag recursive, int depth,
                                        int repeatId) {
  if (parent == nullptr || found == nullptr || attribute == nullptr) return 0;
  ValueSearch search{*found, RYPropertyName(attribute), value, is_set(recursive)};
  return search.find(*parent, depth, repeatId) ? 1 : 0;
}
[[gnu::alias("flagged_rytree_find_node")]] decltype(rytree_find_node) rytree_find_node;

int rytree_find_node_ex(RYXmlWrapperBase* parent, RYXmlWrapperBase* found, const char* attribute, int id,
                        int parentId, int parentRepeatId, int grandparentId, int grandparentRepeatId) {
  if (parent == nullptr || found == nullptr || attribute == nullptr) return -1;
  if (id == 0 || (grandparentId != 0 && parentId == 0)) return -2;

  struct Step {
    int id;
    int repeat_id;
  };
  RYXmlWrapperBase* start = parent;
  bool anywhere = true;
  for (const Step step :
       {Step{grandparentId, grandparentRepeatId}, Step{parentId, parentRepeatId}, Step{id, -1}}) {
    if (step.id == 0) continue;
    if (rytree_find_node(start, found, attribute, step.id, anywhere, 0, step.repeat_id) == 0) return step.id;
    start = found;
    anywhere = false;
  }
  return 0;
}

bool rytree_find_node_by_dataID(RYXmlWrapperBase* out, RYXmlWrapperBase* node, int dataId, int parentId,
                                int parentRepeatId, int grandparentId, int grandparentRepeatId) {
  if (rytree_find_node_ex(node, out, kDataIdName, dataId, parentId, parentRepeatId, grandparentId,
                          grandparentRepeatId) == 0) {
    return true;
  }
  if (out != nullptr) *out = RYXmlWrapperBase();
  return false;
}
