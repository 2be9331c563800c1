// The level of a node and the path that leads down to it.
#include <rytree_Utils/paths.h>

#include <climits>
#include <vector>

namespace {

constexpr const char* kEventRootName = "EventRootOption";
constexpr int kNoLevel = -1;

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

/// The level of `node` below the stop, which `root` is put on if it is an event root.
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

}  // namespace

int rytree_get_level(CString* path, RYXmlWrapperBase* node, RYXmlWrapperBase* root, int stopAtEventRoot) {
  if (path == nullptr || node == nullptr) return kNoLevel;
  const RYXmlWrapperBase start(*node);  // `root`, which may be put elsewhere, may be the same handle
  const int level = level_below(start, root, stopAtEventRoot != 0 && root != nullptr);
  if (level == kNoLevel && root != nullptr) return kNoLevel;
  *path = path_to(start, level);
  path->TrimRight('.');
  return level;
}

bool VCTreeGetPathStr(CString& path, RYXmlWrapperBase* node) {
  path.Empty();
  if (node == nullptr || node->IsNodeValid() == 0) return false;
  path = path_to(*node, INT_MAX);
  return true;
}
