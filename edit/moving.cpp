// Appending, moving and renaming nodes.
#include <rytree_Utils/arrange.h>
#include <rytree_Utils/lookup.h>

#include <algorithm>
#include <string_view>
#include <vector>

#include "frame/children.h"
#include "frame/numbered_nodes.h"

namespace {

constexpr int kMenuBranch = 0x10000000;
constexpr int kMenuItem = 11;

std::vector<RYXmlWrapperBase> children_with_prefix(const RYXmlWrapperBase& node, const char* prefix) {
  std::vector<RYXmlWrapperBase> found;
  const int length = lstrlenA(prefix);
  CString tag;
  for (Children child(node); child; ++child) {
    child->GetTagName(tag);
    if (_mbsicmp(tag.Left(length), prefix) == 0) found.push_back(*child);
  }
  return found;
}

/// Whether the node got a DataID.
bool prepare_for_menu(RYXmlWrapperBase& node, DWORD& next_data_id) {
  if (node.GetNodeCount() > 0) {
    node.SetID(kMenuBranch, false);
    return false;
  }
  int id = 0;
  if (node.GetDataID(id) != 0 && id > 0) return false;
  node.SetID(kMenuItem, false);
  node.SetDataID(static_cast<int>(next_data_id++));
  return true;
}

bool lies_below(RYXmlWrapperBase node, const RYXmlWrapperBase& top) {
  while (node.GetParent(node) != 0) {
    if (node == top) return true;
  }
  return false;
}

/// Copies of the nodes, each on its own.
std::vector<RYXmlWrapperBase> detached(const std::vector<RYXmlWrapperBase>& nodes) {
  std::vector<RYXmlWrapperBase> copies(nodes.size());
  for (std::size_t i = 0; i < nodes.size(); ++i) nodes[i].Clone(copies[i], 1);
  return copies;
}

struct Numbering {
  RYXmlWrapperBase& tree;
  const NumberFilters filters;
  const char* attribute;

  RYXmlWrapperBase find(int number) const {
    RYXmlWrapperBase found;
    int counter = 0;
    rytree_get_node(&tree, &found, number, &counter, filters.max_level, attribute,
                    filters.attribute_ends_descent, filters.branches_only, 0);
    return found;
  }
};

/// Makes an empty node just before `place`, or as the last child of `parent` if there is none.
RYXmlWrapperBase make_before(RYXmlWrapperBase& parent, const RYXmlWrapperBase& place, const CString& tag) {
  RYXmlWrapperBase made;
  if (place.IsNodeValid() == 0) {
    parent.AddNode(made, tag, -1);
  } else if (parent.InsertNodeBefore(place, tag, -1) != 0) {
    place.PrevSibling(made);
  }
  return made;
}

}  // namespace

int rytree_append_children(RYXmlWrapperBase* target, RYXmlWrapperBase* source, const char* prefix) {
  if (target == nullptr || source == nullptr || prefix == nullptr) return 0;
  int highest = -1;
  for (const RYXmlWrapperBase& child : children_with_prefix(*target, prefix)) {
    int id = -1;
    child.GetID(id);
    highest = std::max(highest, id);
  }
  int next = static_cast<int>(static_cast<unsigned>(highest) + 1U);
  std::vector<RYXmlWrapperBase> matches = children_with_prefix(*source, prefix);
  // What is appended must not show up in a copy that is made later.
  if (lies_below(*target, *source)) matches = detached(matches);
  for (const RYXmlWrapperBase& match : matches) {
    RYXmlWrapperBase copy;
    if (target->AddNodeCopy(match, 1) != 0) target->GetChild(copy, target->GetNodeCount() - 1);
    if (next <= 0) continue;
    copy.SetID(next, false);
    next = static_cast<int>(static_cast<unsigned>(next) + 1U);
  }
  return next;
}

int rytree_move_node(RYXmlWrapperBase* tree, int from, int to, int flags, const char* attribute) {
  if (tree == nullptr || tree->IsNodeValid() == 0) return 0;
  const Numbering numbering{*tree, number_filters(static_cast<DWORD>(flags)), attribute};
  RYXmlWrapperBase moved = numbering.find(from);
  if (moved.IsNodeValid() == 0) return 0;
  RYXmlWrapperBase place = numbering.find(to);
  RYXmlWrapperBase parent(*tree);
  if (place.IsNodeValid() != 0) {
    if (lies_below(place, moved)) return 0;
    place.GetParent(parent);
    if (from <= to) place.NextSibling(place);
  } else if (to >= 0) {
    return 0;
  }
  CString tag;
  moved.GetTagName(tag);
  RYXmlWrapperBase made = make_before(parent, place, tag);
  if (made.Replace(moved, 1, 0, 0) == 0) {
    made.RemoveNode();
    return 0;
  }
  moved.RemoveNode();
  return 1;
}

int rytree_is_in_ids_range(RYXmlWrapperBase* node, int first, int last, int extra) {
  if (node == nullptr || node->IsNodeValid() == 0 || first > last || first < 0) return 0;
  int id = 0;
  node->GetID(id);
  return id >= first && id <= static_cast<long long>(last) + extra ? 1 : 0;
}

bool VCTreeSetTagName(RYXmlWrapperBase* node, const char* name) {
  if (node == nullptr || name == nullptr) return false;
  CString tag;
  CString text;
  if (node->GetTagName(tag) == 0 || node->GetXmlText(&text) == 0) return false;
  const int length = tag.GetLength();
  if (text.Find(tag) != 1 || text.Right(length + 1).Find(tag) != 0) return false;
  text.Delete(1, length);
  text.Insert(1, name);
  const int position = text.GetLength() - length - 1;
  text.Delete(position, length);
  text.Insert(position, name);
  return node->SetXmlText(text) != 0;
}

int VCTreePrepareForMenu(RYXmlWrapperBase* node, DWORD& nextDataId) {
  if (node == nullptr || node->IsNodeValid() == 0) return 0;
  int stamped = 0;
  for (NodesOf at(*node); at; ++at) {
    if (prepare_for_menu(*at, nextDataId)) ++stamped;
  }
  return stamped;
}
