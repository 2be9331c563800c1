// Writing their paths into nodes.
#include <rytree_Utils/paths.h>

#include "frame/children.h"

namespace {

/// One walk. A level is taken off the path by cutting it at the last of the lengths, so that no path is built
/// from the start node again.
struct PATHWALKSTATE {
  RYXmlWrapperBase* node;
  const char* attribute;
  int recursive;
  int includeSelf;
  CString path;
  CArray<int, int> lengths;  // of the path before each level that added a full stop
};

struct PathWalk {
  PATHWALKSTATE& state;
  const RYPropertyName attribute{state.attribute};
  CString tag{};

  void enter(RYXmlWrapperBase& node) {
    if (!state.path.IsEmpty()) {
      state.lengths.Add(state.path.GetLength());
      state.path += '.';
    }
    node.GetTagName(tag);
    state.path += tag;
    node.SetPropertyValue(attribute, state.path);
  }

  void below(const RYXmlWrapperBase& node) {
    for (Children child(node); child; ++child) {
      enter(*child);
      below(*child);
      leave();
    }
  }

  void leave() {
    const int last = state.lengths.GetUpperBound();
    state.path.Delete(last >= 0 ? state.lengths[last] : 0, state.path.GetLength());
    if (last >= 0) state.lengths.RemoveAt(last);
  }
};

}  // namespace

int rytree_add_path_str(RYXmlWrapperBase* node, const char* attribute, int recursive, int includeSelf) {
  if (node == nullptr || node->IsNodeValid() == 0 || attribute == nullptr || *attribute == '\0') return 0;
  PATHWALKSTATE state{node, attribute, recursive, includeSelf, {}, {}};
  PathWalk walk{state};
  if (state.includeSelf != 0) walk.enter(*state.node);
  if (state.recursive != 0) walk.below(*state.node);
  if (state.includeSelf != 0) walk.leave();
  return 1;
}
