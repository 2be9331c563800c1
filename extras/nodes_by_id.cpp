#include <rytree_Utils/extras.h>

#include <algorithm>
#include <climits>

#include "extras/listing.h"

namespace rytree {

NodesById::NodesById(const RYXmlWrapperBase& top, const char* id_attribute, int repeat) {
  detail::TagNumbers tags;
  const detail::IdReading reading = {.attribute = id_attribute != nullptr ? id_attribute : "DataID",
                                     .repeat = repeat};
  const detail::Listing nodes(top, tags, reading);
  for (int i = 0; i < nodes.size(); ++i) {
    if (nodes[i].id == -1) continue;
    places_.emplace_back(nodes[i].id, static_cast<int>(nodes_.size()));
    nodes_.push_back(nodes[i].node);
  }
  std::sort(places_.begin(), places_.end());
}

RYXmlWrapperBase NodesById::find(int id) const {
  const auto found = std::lower_bound(places_.begin(), places_.end(), Place(id, INT_MIN));
  if (found == places_.end() || found->first != id) return {};
  return nodes_[static_cast<std::size_t>(found->second)];
}

std::vector<RYXmlWrapperBase> NodesById::find_all(int id) const {
  std::vector<RYXmlWrapperBase> all;
  for (auto at = std::lower_bound(places_.begin(), places_.end(), Place(id, INT_MIN));
       at != places_.end() && at->first == id; ++at)
    all.push_back(nodes_[static_cast<std::size_t>(at->second)]);
  return all;
}

bool NodesById::contains(int id) const {
  const auto found = std::lower_bound(places_.begin(), places_.end(), Place(id, INT_MIN));
  return found != places_.end() && found->first == id;
}

std::vector<int> NodesById::ids() const {
  std::vector<int> ids;
  for (const Place& place : places_) {
    if (ids.empty() || ids.back() != place.first) ids.push_back(place.first);
  }
  return ids;
}

}  // namespace rytree
