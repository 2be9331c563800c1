// Where a node is in its tree: its row, its level and the path of tags that leads down to it.
#include <rytree_Utils/paths.h>
#include <rytree_host/ryUtils.h>

#include <climits>
#include <vector>

#include "frame/children.h"
#include "frame/node_text.h"

namespace {

constexpr const char* kEventRootName = "EventRootOption";
constexpr int kNoLevel = -1;

int subtree_size(const RYXmlWrapperBase& node) {
  int size = 0;
  for (NodesOf at(node); at; ++at) ++size;
  return size;
}

bool is_tagged(const RYXmlWrapperBase& node, const CString& name, CString& tag) {
  return node.GetTagName(tag) != 0 && _mbsicmp(tag, name) == 0;
}

/// The path to `node` from the one that is `levels` above it, or from the top if that is nearer.
CString path_to(const RYXmlWrapperBase& node, int levels) {
  std::vector<CString> tags;
  RYXmlWrapperBase at(node);
  for (; levels >= 0 && at.IsNodeValid() != 0; --levels, at.GetParent(at)) at.GetTagName(tags.emplace_back());
  CString path;
  for (auto tag = tags.rbegin(); tag != tags.rend(); ++tag) {
    if (tag != tags.rbegin()) path += '.';
    path += *tag;
  }
  return path;
}

/// The level of `node` below `root`, or below an event root, which `root` is then put on.
int level_below(const RYXmlWrapperBase& node, RYXmlWrapperBase* root, bool stop_at_event_root) {
  const RYPropertyName event_root(kEventRootName);
  int level = 0;
  for (RYXmlWrapperBase at(node); at.IsNodeValid() != 0; at.GetParent(at), ++level) {
    int option = 0;
    if (stop_at_event_root) at.GetPropertyValue(event_root, option);
    if (option == -1) return kNoLevel;
    if (option > 0) {
      *root = at;
      return level;
    }
    if (option == 0 && root != nullptr && *root == at) return level;
  }
  return root == nullptr ? level - 1 : kNoLevel;
}

/// Writes paths into an attribute. Leaving a node cuts the path back to what it was before, so that no path
/// is built from the start node again.
struct PathWriter {
  const RYPropertyName attribute;
  CString path{};
  std::vector<int> lengths{};  // of the path before each tag that follows another
  CString tag{};

  void enter(RYXmlWrapperBase& node) {
    if (!path.IsEmpty()) {
      lengths.push_back(path.GetLength());
      path += '.';
    }
    read_tag(node, tag);
    path += tag;
    node.SetPropertyValue(attribute, path);
  }

  void below(const RYXmlWrapperBase& node) {
    for (Children child(node); child; ++child) {
      enter(*child);
      below(*child);
      leave();
    }
  }

  void leave() {
    path.Delete(lengths.empty() ? 0 : lengths.back(), path.GetLength());
    if (!lengths.empty()) lengths.pop_back();
  }
};

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

int rytree_get_level(CString* path, RYXmlWrapperBase* node, RYXmlWrapperBase* root, int stopAtEventRoot) {
  if (path == nullptr || node == nullptr) return kNoLevel;
  const RYXmlWrapperBase start(*node);  // may be the same handle as `root`, which may be put on another node
  const int level = level_below(start, root, stopAtEventRoot != 0 && root != nullptr);
  if (level == kNoLevel && root != nullptr) return kNoLevel;
  *path = path_to(start, level);
  path->TrimRight('.');
  return level;
}

int rytree_add_path_str(RYXmlWrapperBase* node, const char* attribute, int recursive, int includeSelf) {
  if (node == nullptr || node->IsNodeValid() == 0 || attribute == nullptr || *attribute == '\0') return 0;
  PathWriter writer{RYPropertyName(attribute)};
  if (includeSelf != 0) writer.enter(*node);
  if (recursive != 0) writer.below(*node);
  return 1;
}

bool VCTreeGetPathStr(CString& path, RYXmlWrapperBase* node) {
  path.Empty();
  if (node == nullptr || node->IsNodeValid() == 0) return false;
  path = path_to(*node, INT_MAX);
  return true;
}
