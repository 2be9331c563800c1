// Copying DataIDs between nodes of the same tag.
#include <rytree_Utils/homologous.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "frame/attributes.h"
#include "frame/children.h"
#include "frame/children_by_tag.h"
#include "frame/flag.h"

namespace {

/// Visits nodes with the key of their tag.
template <class Walk, class Visit>
void visit_tags(Walk at, bool leaves_only, const Visit& visit) {
  CString tag;
  for (; at; ++at) {
    if (leaves_only && at->HasChildren(0) != 0) continue;
    if (at->GetTagName(tag) != 0) visit(case_key(tag), *at);
  }
}

}  // namespace

extern "C" int flagged_rytree_copy_ids_by_tagname(RYXmlWrapperBase* source, RYXmlWrapperBase* dest,
                                                  Flag leavesOnly) {
  if (source == nullptr || dest == nullptr) return 0;
  FirstByTag first;
  visit_tags(NodesOf(*dest), is_set(leavesOnly),
             [&](const std::string& key, const RYXmlWrapperBase& node) { first.add(key, node); });
  // All IDs are read before one is written: the nodes may lie in one tree.
  const RYPropertyName data_id(kDataIdName);
  std::vector<std::optional<int>> ids(static_cast<std::size_t>(first.count()));
  int given = 0;
  visit_tags(NodesBelow(*source), is_set(leavesOnly),
             [&](const std::string& key, const RYXmlWrapperBase& node) {
               const int number = first.find(key);
               if (number < 0) return;
               int id = -1;
               node.GetPropertyValue(data_id, id);
               ids[static_cast<std::size_t>(number)] = id;
               ++given;
             });
  for (int number = 0; number < first.count(); ++number) {
    if (const std::optional<int> id = ids[static_cast<std::size_t>(number)]) {
      first.node(number).SetPropertyValue(data_id, *id);
    }
  }
  return given;
}
[[gnu::alias(
    "flagged_rytree_copy_ids_by_tagname")]] decltype(rytree_copy_ids_by_tagname) rytree_copy_ids_by_tagname;
