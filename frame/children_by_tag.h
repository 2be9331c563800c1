// The first node of each tag.
#pragma once

#include <rytree_host/node.h>

#include <cstddef>
#include <string_view>
#include <vector>

#include "frame/children.h"
#include "frame/node_text.h"
#include "frame/text_index.h"

/// Nodes by their tags, or by keys made of the tags. Of several nodes with the same tag the first counts.
class FirstByTag {
 public:
  FirstByTag() = default;
  /// The children of a node.
  explicit FirstByTag(const RYXmlWrapperBase& parent) {
    CString tag;
    for (Children child(parent); child; ++child) {
      read_tag(*child, tag);
      add(tag.View(), *child);
    }
  }

  void add(std::string_view tag, const RYXmlWrapperBase& node) {
    RYXmlWrapperBase& first = (*this)[tag];
    if (first.IsNodeValid() == 0) first = node;
  }
  /// The node of the tag; if there is none yet, an invalid handle for the caller to fill. The reference is
  /// good until a new tag comes.
  RYXmlWrapperBase& operator[](std::string_view tag) {
    const auto number = static_cast<std::size_t>(tags_.add(tag));
    if (number == nodes_.size()) nodes_.emplace_back();
    return nodes_[number];
  }

  /// Tags are numbered from 0 in the order in which they are added.
  int count() const { return tags_.count(); }
  /// The number of the tag, -1 for one that was not added.
  int find(std::string_view tag) const { return tags_.find(tag); }
  RYXmlWrapperBase& node(int number) { return nodes_[static_cast<std::size_t>(number)]; }

 private:
  TextIndex tags_;
  std::vector<RYXmlWrapperBase> nodes_;
};
