// The difference of two trees.
#include <rytree_Utils/extras.h>

#include "extras/listing.h"
#include "extras/node_comparison.h"
#include "extras/pairing.h"

namespace rytree {

namespace {

using detail::Entry;
using detail::Listing;
using detail::Pairing;
using detail::TagNumbers;

std::optional<std::string> node_id_of(const RYXmlWrapperBase& node) {
  int id = -1;
  if (node.GetID(id) == 0) return std::nullopt;
  return std::to_string(id);
}

/// Lists the differences in the order of the new tree.
class Comparison {
 public:
  Comparison(const RYXmlWrapperBase& old_tree, const RYXmlWrapperBase& new_tree,
             const detail::IdReading& reading)
      : old_(old_tree, tags_, reading), new_(new_tree, tags_, reading), pairs_(old_, new_, tags_) {}

  std::vector<Difference> list() {
    if (new_.size() == 0) add_removed(0);
    for (int at = 0; at < new_.size(); ++at) {
      const int former = pairs_.of_new(at);
      if (former < 0) {
        add_node(DifferenceKind::kAdded, -1, at);
        continue;
      }
      if (pairs_.is_moved(at)) add(DifferenceKind::kMoved, former, at);
      add_changes(former, at);
      for (int child = Listing::first_child(former); child < old_[former].end; child = old_[child].end) {
        if (pairs_.of_old(child) < 0) add_removed(child);
      }
    }
    return std::move(found_);
  }

 private:
  /// -1: the tree does not have the node.
  Difference& add(DifferenceKind kind, int old_index, int new_index) {
    Difference& difference = found_.emplace_back();
    difference.kind = kind;
    if (old_index >= 0) {
      const Entry& entry = old_[old_index];
      difference.id = entry.id;
      difference.old_path = old_.path(old_index);
      difference.old_place = entry.place;
      difference.old_node = entry.node;
    }
    if (new_index >= 0) {
      const Entry& entry = new_[new_index];
      difference.id = entry.id;
      difference.new_path = new_.path(new_index);
      difference.new_place = entry.place;
      difference.new_node = entry.node;
    }
    return difference;
  }

  void add_node(DifferenceKind kind, int old_index, int new_index) {
    Difference& difference = add(kind, old_index, new_index);
    if (old_index >= 0) {
      const int parent = old_[old_index].parent;
      difference.inside = parent >= 0 && pairs_.of_old(parent) < 0;
      difference.old_value = text_of(old_[old_index].node);
    } else {
      const int parent = new_[new_index].parent;
      difference.inside = parent >= 0 && pairs_.of_new(parent) < 0;
      difference.new_value = text_of(new_[new_index].node);
    }
  }

  /// The node and what is below it, but not nodes that are elsewhere in the new tree, nor what is below
  /// those.
  void add_removed(int top) {
    for (int at = top; at < old_.size() && at < old_[top].end;) {
      if (pairs_.of_old(at) >= 0) {
        at = old_[at].end;
      } else {
        add_node(DifferenceKind::kRemoved, at++, -1);
      }
    }
  }

  void add_changes(int former, int at) {
    const RYXmlWrapperBase& old_node = old_[former].node;
    const RYXmlWrapperBase& new_node = new_[at].node;
    if (nodes_.are_equal(old_node, new_node)) return;
    if (old_[former].tag != new_[at].tag)
      add_change(former, at, NodePart::kTag, {}, tags_.tag(old_[former].tag), tags_.tag(new_[at].tag));
    add_if_changed(former, at, NodePart::kNodeId, {}, node_id_of(old_node), node_id_of(new_node));
    add_if_changed(former, at, NodePart::kText, {}, text_of(old_node), text_of(new_node));
    for (const Attribute& attribute : attributes_of(new_node)) {
      add_if_changed(former, at, NodePart::kAttribute, attribute.name,
                     attribute_of(old_node, attribute.name.c_str()), attribute.value);
    }
    for (const Attribute& attribute : attributes_of(old_node)) {
      if (!attribute_of(new_node, attribute.name.c_str()))
        add_change(former, at, NodePart::kAttribute, attribute.name, attribute.value, std::nullopt);
    }
  }

  using Part = std::optional<std::string>;
  void add_if_changed(int former, int at, NodePart part, const std::string& attribute, Part old_value,
                      Part new_value) {
    if (old_value != new_value)
      add_change(former, at, part, attribute, std::move(old_value), std::move(new_value));
  }
  void add_change(int former, int at, NodePart part, const std::string& attribute, Part old_value,
                  Part new_value) {
    Difference& difference = add(DifferenceKind::kChanged, former, at);
    difference.part = part;
    difference.attribute = attribute;
    difference.old_value = std::move(old_value);
    difference.new_value = std::move(new_value);
  }

  TagNumbers tags_;
  const Listing old_;
  const Listing new_;
  const Pairing pairs_;
  detail::NodeComparison nodes_;
  std::vector<Difference> found_;
};

}  // namespace

std::vector<Difference> differences_by_id(const RYXmlWrapperBase& old_tree, const RYXmlWrapperBase& new_tree,
                                          const char* id_attribute) {
  return Comparison(old_tree, new_tree, {.attribute = id_attribute != nullptr ? id_attribute : "DataID"})
      .list();
}

std::vector<Difference> differences_by_path(const RYXmlWrapperBase& old_tree,
                                            const RYXmlWrapperBase& new_tree) {
  return Comparison(old_tree, new_tree, {.attribute = nullptr}).list();
}

}  // namespace rytree
