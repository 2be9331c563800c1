// The first node of each tag.
#pragma once

#include <rytree_host/node.h>

#include <cstddef>
#include <string_view>
#include <vector>

#include "frame/children.h"
#include "frame/text_index.h"

/// Nodes by tags, or by other texts made of them. Of several nodes with one tag the first counts.
class FirstByTag {
 public:
  FirstByTag() = default;
  /// Knows the children of a node.
  explicit FirstByTag(const RYXmlWrapperBase& parent) {
    CString tag;
    for (Children child(parent); child; ++child) {
      child->GetTagName(tag);
      add(tag.View(), *child);
    }
  }

  void add(std::string_view tag, const RYXmlWrapperBase& node) {
    RYXmlWrapperBase& first = (*this)[tag];
    if (first.IsNodeValid() == 0) first = node;
  }
  /// The node of the tag: an invalid handle, for the caller to fill, if there is none yet. Good until the
  /// next call with a new tag.
  RYXmlWrapperBase& operator[](std::string_view tag) {
    const auto number = static_cast<std::size_t>(tags_.add(tag));
    if (number == nodes_.size()) nodes_.emplace_back();
    return nodes_[number];
  }

  /// Tags are numbered from 0 in the order of their adding.
  int count() const { return tags_.count(); }
  /// The number of the tag, -1 for one that was not added.
  int find(std::string_view tag) const { return tags_.find(tag); }
  RYXmlWrapperBase& node(int number) { return nodes_[static_cast<std::size_t>(number)]; }

 private:
  TextIndex tags_;
  std::vector<RYXmlWrapperBase> nodes_;
};
