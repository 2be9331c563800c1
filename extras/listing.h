// The nodes of a branch as a list, with what comparisons and look-ups need to know of each.
#pragma once

#include <rytree_host/node.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace rytree::detail {

/// Numbers the tags of several lists, equal tags alike.
class TagNumbers {
 public:
  int number_of(std::string_view tag);
  const std::string& tag(int number) const { return tags_[static_cast<std::size_t>(number)]; }
  std::size_t count() const { return tags_.size(); }

 private:
  std::map<std::string, int, std::less<>> numbers_;
  std::vector<std::string> tags_;
};

struct Entry {
  RYXmlWrapperBase node;
  int parent;          // its index in the list, -1 for the top
  int end = 0;         // the index after those of all nodes below
  int tag;             // as numbered
  int id;              // composed, -1 for none and of the top
  int place = 0;       // among the siblings
  int occurrence = 0;  // among the siblings of one tag
};

/// How the IDs of the nodes below the top are read.
struct IdReading {
  const char* attribute;  // null: no node has an ID
  int repeat = 0;         // the repeat number in force at the top
};

/// The top node and all below it, in document order. Empty for an invalid handle.
class Listing {
 public:
  Listing(const RYXmlWrapperBase& top, TagNumbers& tags, const IdReading& reading);

  int size() const { return static_cast<int>(entries_.size()); }
  const Entry& operator[](int index) const { return entries_[static_cast<std::size_t>(index)]; }

  /// The children of an entry: for (int at = list.first_child(i); at < list[i].end; at = list[at].end) …
  static int first_child(int index) { return index + 1; }
  /// The tags from the top down, "a/b[2]".
  std::string path(int index) const;

 private:
  void add(const RYXmlWrapperBase& node, int parent, int id);
  void add_children(int parent, int repeat);
  void count_siblings();

  TagNumbers& tags_;
  const IdReading reading_;
  const RYPropertyName id_name_;
  std::vector<Entry> entries_;
  CString tag_;  // of the node at hand
};

}  // namespace rytree::detail
