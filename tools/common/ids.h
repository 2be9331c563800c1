// The IDs by which the nodes of two trees correspond.
#pragma once

#include <rytree_Utils.h>

#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

/// Calls `visit` with each node below `parent` and its ID, joined with the repeat numbers above it; -1 for none.
template <class Visit>
void visit_ids(const RYXmlWrapperBase& parent, const char* attribute, const Visit& visit, int repeat = 0) {
  RYXmlWrapperBase child;
  for (parent.FirstChild(child); child.IsNodeValid() != 0; child.NextSibling(child)) {
    int id = -1;
    int child_repeat = repeat;
    child.GetPropertyValue(attribute, id);
    rytree_combine_treenode_id_with_repeat_id(&child, &id, &child_repeat, repeat);
    visit(child, id);
    visit_ids(child, attribute, visit, child_repeat);
  }
}

/// A node whose ID, or RepeatID, is not as it should be.
struct BadId {
  RYXmlWrapperBase node;
  std::string id;  // as it is written
  std::string reason;
};

/// The library takes IDs that are numbers. Where the attribute holds other texts, each distinct text gets a
/// number for the run, in an attribute of its own that the nodes have meanwhile.
class Ids {
 public:
  /// The name of the attribute; "" for DataID, which holds numbers and nothing else. Throws a Failure if no tree has
  /// an attribute of that name.
  explicit Ids(std::string name);

  /// Looks at the values in all trees, and numbers the nodes if one is not an int. How many nodes below the roots
  /// have the attribute.
  int number(const std::vector<RYXmlWrapperBase>& trees);
  /// Removes the numbers from a tree.
  void remove_numbers(const RYXmlWrapperBase& tree) const;

  /// The nodes below the root whose attribute holds no usable ID, in document order. Those without the attribute,
  /// or with "-1" in it, have none and are not among them.
  std::vector<BadId> bad_ones(const RYXmlWrapperBase& tree) const;

  bool are_words() const { return !words_.empty(); }
  /// The attribute as the user named it.
  const char* shown_attribute() const { return name_.empty() ? "DataID" : name_.c_str(); }
  /// The attribute that holds the numbers.
  const char* attribute() const { return attribute_.c_str(); }
  /// The same as the library takes it: null for its default.
  const char* argument() const { return name_.empty() ? nullptr : attribute(); }
  /// The ID as the user knows it.
  std::string text(int id) const;

 private:
  int number_of(const std::string& word);

  std::string name_;
  std::string attribute_;
  std::vector<std::string> words_;
  std::unordered_map<std::string, int> numbers_;
  std::unordered_set<int> wide_;  // IDs that look composed and are not
};
