// Copying DataIDs between nodes of the same tag.
#include <rytree_Utils/homologous.h>

#include <utility>
#include <vector>

#include "frame/case_key.h"
#include "frame/children.h"
#include "frame/text_index.h"

namespace {

/// The node that rytree_get_node_by_tagname finds for each tag, ignoring case, by the number of the tag.
struct FirstByTag {
  const bool leaves_only;
  TextIndex tags{};
  std::vector<RYXmlWrapperBase> nodes{};
  CString tag{};

  void add(const RYXmlWrapperBase& node) {
    if ((leaves_only && node.HasChildren(0) != 0) || node.GetTagName(tag) == 0) return;
    tags.add(case_key(tag));
    if (nodes.size() < static_cast<std::size_t>(tags.count())) nodes.push_back(node);
  }
};

/// Appends tag and DataID (-1 for none) of the nodes below `node`, in document order; with `leaves_only` of
/// the leaves. The number of nodes.
int rytree_collect_tags_and_ids(const RYXmlWrapperBase& node, CStringArray& tags, CArray<int, int>& ids,
                                bool leaves_only) {
  make_room(tags, node, true);
  make_room(ids, node, true);
  const RYPropertyName data_id("DataID");
  int count = 0;
  for (NodesBelow at(node); at; ++at) {
    if (leaves_only && at->HasChildren(0) != 0) continue;
    CString tag;
    int id = -1;
    at->GetTagName(tag);
    at->GetPropertyValue(data_id, id);
    tags.Add(std::move(tag));
    ids.Add(id);
    ++count;
  }
  return count;
}

/// Gives each ID to the first node that has the tag beside it: `node` itself, then those below it. The number
/// of IDs given.
int rytree_set_ids_by_tagname(RYXmlWrapperBase& node, const CStringArray& tags, const CArray<int, int>& ids,
                              bool leaves_only) {
  FirstByTag first{leaves_only};
  for (NodesOf at(node); at; ++at) first.add(*at);
  // Of the IDs for one node the last holds.
  std::vector<int> places(first.nodes.size(), -1);
  int given = 0;
  for (int at = 0; at < tags.GetSize(); ++at) {
    const int number = first.tags.find(case_key(tags[at]));
    if (number < 0) continue;
    places[static_cast<std::size_t>(number)] = at;
    ++given;
  }
  const RYPropertyName data_id("DataID");
  for (std::size_t number = 0; number < places.size(); ++number) {
    if (places[number] >= 0) first.nodes[number].SetPropertyValue(data_id, ids[places[number]]);
  }
  return given;
}

}  // namespace

int rytree_copy_ids_by_tagname(RYXmlWrapperBase* source, RYXmlWrapperBase* dest, bool leavesOnly) {
  if (source == nullptr || dest == nullptr) return 0;
  CStringArray tags;
  CArray<int, int> ids;
  if (rytree_collect_tags_and_ids(*source, tags, ids, leavesOnly) == 0) return 0;
  return rytree_set_ids_by_tagname(*dest, tags, ids, leavesOnly);
}
