// Appending and moving nodes.
#include <rytree_Utils/arrange.h>
#include <rytree_Utils/lookup.h>

#include <algorithm>
#include <vector>

#include "frame/children.h"
#include "frame/node_text.h"
#include "frame/words.h"

namespace {

constexpr int kTakeTag = 0;  // of Replace

std::vector<RYXmlWrapperBase> children_with_prefix(const RYXmlWrapperBase& node, const char* prefix) {
  std::vector<RYXmlWrapperBase> found;
  const int length = rytree_host::lstrlenA(prefix);
  CString tag;
  for (Children child(node); child; ++child) {
    read_tag(*child, tag);
    if (_mbsicmp(tag.Left(length), prefix) == 0) found.push_back(*child);
  }
  return found;
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

RYXmlWrapperBase find_number(RYXmlWrapperBase& tree, int number, int flags, const char* attribute) {
  RYXmlWrapperBase found;
  rytree_get_node_ex(&tree, &found, number, static_cast<DWORD>(flags), attribute);
  return found;
}

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

/// Copies everything into a new node, which goes again if it cannot take it.
bool take_content(RYXmlWrapperBase& made, const RYXmlWrapperBase& source) {
  bool taken = false;
  try {
    taken = made.Replace(source, 1, kTakeTag, 0) != 0;
  } catch (...) {
    made.RemoveNode();
    throw;
  }
  if (!taken) made.RemoveNode();
  return taken;
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
  int next = one_more(highest);
  std::vector<RYXmlWrapperBase> matches = children_with_prefix(*source, prefix);
  // What is appended must not show up in a copy that is made later.
  if (lies_below(*target, *source)) matches = detached(matches);
  for (const RYXmlWrapperBase& match : matches) {
    RYXmlWrapperBase copy;
    if (target->AddNodeCopy(match, 1) != 0) target->GetChild(copy, target->GetNodeCount() - 1);
    if (next <= 0) continue;
    copy.SetID(next, false);
    next = one_more(next);
  }
  return next;
}

int rytree_move_node(RYXmlWrapperBase* tree, int from, int to, int flags, const char* attribute) {
  if (tree == nullptr || tree->IsNodeValid() == 0) return 0;
  RYXmlWrapperBase moved = find_number(*tree, from, flags, attribute);
  if (moved.IsNodeValid() == 0) return 0;
  RYXmlWrapperBase place = find_number(*tree, to, flags, attribute);
  RYXmlWrapperBase parent(*tree);
  if (place.IsNodeValid() != 0) {
    if (lies_below(place, moved)) return 0;
    place.GetParent(parent);
    if (from <= to) place.NextSibling(place);
  } else if (to >= 0) {
    return 0;
  }
  CString tag("_");  // for the moment, where the tag cannot be told; the content brings it along
  moved.GetTagName(tag);
  RYXmlWrapperBase made = make_before(parent, place, tag);
  if (!take_content(made, moved)) return 0;
  moved.RemoveNode();
  return 1;
}
