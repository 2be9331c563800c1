// The row of a node in a list that shows every node.
#include <rytree_Utils/paths.h>
#include <rytree_host/ryUtils.h>

#include "frame/children.h"

namespace {

int subtree_size(const RYXmlWrapperBase& node) {
  int size = 0;
  for (NodesOf at(node); at; ++at) ++size;
  return size;
}

bool is_tagged(const RYXmlWrapperBase& node, const CString& name, CString& tag) {
  return node.GetTagName(tag) != 0 && _mbsicmp(tag, name) == 0;
}

}  // namespace

int rytree_get_row_number(RYXmlWrapperBase* node, const char* path) {
  if (node == nullptr || path == nullptr) return -1;
  CStringArray names;
  int status = 0;
  ryutilsGetTokens(path, &names, '.', &status, '"', 0);
  CString tag;
  if (names.IsEmpty() || !is_tagged(*node, names[0], tag)) return -1;
  RYXmlWrapperBase current(*node);
  int row = 1;
  for (int level = 1; level < names.GetSize(); ++level) {
    Children child(current);
    for (; child && !is_tagged(*child, names[level], tag); ++child) row += subtree_size(*child);
    if (!child) return -1;
    current = *child;
    ++row;
  }
  return row;
}
