// The help node and the localization node of a tree.
#include <rytree_Utils/lookup.h>
#include <rytree_Utils/search.h>
#include <rytree_host/Kelp60.h>

#include "frame/attributes.h"
#include "frame/node_text.h"

namespace {

constexpr int kFirstHelpRepeat = 256;
constexpr int kLastHelpRepeat = 1024;
constexpr int kGeneralHelpParent = 420;

int find_direct_child(RYXmlWrapperBase* tree, RYXmlWrapperBase* found, int id) {
  constexpr bool kRecursive = false;
  constexpr int kDepth = 0;
  constexpr int kAnyRepeat = -1;
  return rytree_find_node(tree, found, kDataIdName, id, kRecursive, kDepth, kAnyRepeat);
}

bool find_under_parent(RYXmlWrapperBase* tree, RYXmlWrapperBase* found, int id, int parent, int repeat) {
  constexpr int kNoGrandparent = 0;
  constexpr int kAnyRepeat = -1;
  return rytree_find_node_by_dataID(found, tree, id, parent, repeat, kNoGrandparent, kAnyRepeat);
}

/// The DataID of the direct child of the tree that the help ID means, 0 if the help node is one of those
/// under the general parent.
int direct_help_id(int id, int repeat) {
  switch (id) {
    case 305:
    case 430:
    case 442:
    case 446:
      return id;
    case 440:
      return repeat == kFirstHelpRepeat ? 310 : 0;
    case 448:
      return repeat == kFirstHelpRepeat ? 391 : 0;
    default:
      return 0;
  }
}

bool has_visible_text(RYXmlWrapperBase& node) {
  CString text;
  read_text(node, text);
  return !text.TrimLeft().IsEmpty();
}

}  // namespace

int rytree_get_help_node(RYXmlWrapperBase* found, RYXmlWrapperBase* tree, int id, int repeatId) {
  const bool known = repeatId >= kFirstHelpRepeat && repeatId <= kLastHelpRepeat;
  const int repeat = known ? repeatId : kelp_default_number();
  const int direct = direct_help_id(id, repeat);
  if (direct != 0) return find_direct_child(tree, found, direct);
  return find_under_parent(tree, found, id, kGeneralHelpParent, repeat) ? 1 : 0;
}

int rytree_get_localization_node(RYXmlWrapperBase* found, RYXmlWrapperBase* tree, int id, int fallbackId,
                                 int parentId, int checkEmpty, int repeatId) {
  if (found == nullptr || tree == nullptr) return 0;
  RYXmlWrapperBase start(*tree);  // `found` may be the tree, and the search may make it invalid
  const int repeat = repeatId > 0 ? repeatId : kelp_default_number();
  if (find_under_parent(&start, found, id, parentId, repeat) &&
      (checkEmpty == 0 || has_visible_text(*found))) {
    return 1;
  }
  return find_direct_child(&start, found, fallbackId);
}
