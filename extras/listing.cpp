#include "extras/listing.h"

#include <rytree_Utils/transfer.h>

namespace rytree::detail {

int TagNumbers::number_of(std::string_view tag) {
  const auto found = numbers_.find(tag);
  if (found != numbers_.end()) return found->second;
  const int number = static_cast<int>(tags_.size());
  tags_.emplace_back(tag);
  numbers_.emplace(tag, number);
  return number;
}

Listing::Listing(const RYXmlWrapperBase& top, TagNumbers& tags, const IdReading& reading)
    : tags_(tags), reading_(reading), id_name_(reading.attribute) {
  if (top.IsNodeValid() == 0) return;
  RYXmlWrapperBase above;
  if (top.GetParent(above) == 0) entries_.reserve(static_cast<std::size_t>(top.GetTreeSize()));
  add(top, -1, -1);
  add_children(0, reading.repeat);
  count_siblings();
}

void Listing::add(const RYXmlWrapperBase& node, int parent, int id) {
  if (node.GetTagName(tag_) == 0) tag_.Empty();
  entries_.push_back({.node = node, .parent = parent, .tag = tags_.number_of(tag_.View()), .id = id});
}

void Listing::add_children(int parent, int repeat) {
  RYXmlWrapperBase child;
  (*this)[parent].node.FirstChild(child);
  for (; child.IsNodeValid() != 0; child.NextSibling(child)) {
    int id = -1;
    int child_repeat = repeat;
    if (reading_.attribute != nullptr) {
      child.GetPropertyValue(id_name_, id);
      rytree_combine_treenode_id_with_repeat_id(&child, &id, &child_repeat, repeat);
    }
    const int index = size();
    add(child, parent, id);
    add_children(index, child_repeat);
  }
  entries_[static_cast<std::size_t>(parent)].end = size();
}

void Listing::count_siblings() {
  struct Seen {
    int parent = -1;
    int count = 0;
  };
  std::vector<Seen> seen(tags_.count());  // of each tag, below the parent that it was last met under
  for (int parent = 0; parent < size(); ++parent) {
    int place = 0;
    for (int at = first_child(parent); at < (*this)[parent].end; at = (*this)[at].end) {
      Entry& entry = entries_[static_cast<std::size_t>(at)];
      Seen& same = seen[static_cast<std::size_t>(entry.tag)];
      if (same.parent != parent) same = {.parent = parent, .count = 0};
      entry.place = place++;
      entry.occurrence = same.count++;
    }
  }
}

std::string Listing::path(int index) const {
  std::vector<int> way;
  for (; index >= 0; index = (*this)[index].parent) way.push_back(index);
  std::string path;
  for (; !way.empty(); way.pop_back()) {
    const Entry& entry = (*this)[way.back()];
    if (!path.empty()) path += '/';
    path += tags_.tag(entry.tag);
    if (entry.occurrence > 0) path += '[' + std::to_string(entry.occurrence + 1) + ']';
  }
  return path;
}

}  // namespace rytree::detail
