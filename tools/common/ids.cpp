#include "ids.h"

#include <rytree_Utils/extras.h>

#include <limits>
#include <optional>
#include <stdexcept>
#include <utility>

#include "nodes.h"

namespace {

/// Calls `visit` with each node below the root.
template <class Visit>
void visit_nodes(const RYXmlWrapperBase& root, const Visit& visit) {
  RYXmlWrapperBase node(root);
  while (node.NextBelow(node, root) != 0) visit(node);
}

// A leaf whose ID has this bit is stored as a branch, which the numbers of words avoid.
constexpr unsigned kBranchBit = 0x200000;
constexpr unsigned kWidest = 0xFFFF;  // what a repeat number can be joined with

/// What is wrong with the RepeatID of a node, or with joining it to what is in force above; "" if nothing.
std::string repeat_fault(RYXmlWrapperBase& node, int& id, int& child_repeat, int repeat) {
  constexpr int kMost = 32766;
  const std::string own = rytree::attribute_of(node, "RepeatID").value_or("");
  const std::string shown = "RepeatID '" + own + "' ";
  switch (rytree_combine_treenode_id_with_repeat_id(&node, &id, &child_repeat, repeat)) {
    case -1:
      return "above 65535, where a RepeatID is in force";
    case -2:
      return shown + "cannot be joined with " + std::to_string(repeat) + " above it";
    default:
      break;
  }
  const std::optional<int> number = rytree::int_attribute_of(node, "RepeatID");
  return own.empty() || (number && *number <= kMost) ? "" : shown + "is not a number from 1 to 32766";
}

}  // namespace

Ids::Ids(std::string name) : name_(std::move(name)), attribute_(name_.empty() ? "DataID" : name_) {
  refuse_reserved(name_);
}

int Ids::number_of(const std::string& word) {
  const auto [place, is_new] = numbers_.try_emplace(word, 0);
  if (is_new) {
    words_.push_back(word);
    const std::size_t count = words_.size();
    const std::size_t number = count / kBranchBit * 2 * kBranchBit + count % kBranchBit;
    if (number > std::numeric_limits<int>::max()) throw std::length_error("too many IDs");
    place->second = static_cast<int>(number);
  }
  return place->second;
}

int Ids::number(const std::vector<RYXmlWrapperBase>& trees) {
  bool words = false;
  int count = 0;
  const RYPropertyName own_name(attribute_.c_str());
  for (const RYXmlWrapperBase& tree : trees) {
    visit_nodes(tree, [&](const RYXmlWrapperBase& node) {
      CString text;
      int id = -1;
      if (node.HasProperty(own_name) == 0) return;
      ++count;
      if (node.GetPropertyValue(own_name, id) == 0) {
        words = words || (node.GetPropertyValue(own_name, text) != 0 && !text.IsEmpty());
      } else if (id > static_cast<int>(kWidest)) {
        wide_.insert(id);
      }
    });
  }
  if (!words || name_.empty()) return count;
  wide_.clear();
  bool taken = true;
  while (taken) {
    attribute_ += "-number";
    taken = false;
    const RYPropertyName name(attribute_.c_str());
    for (const RYXmlWrapperBase& tree : trees)
      visit_nodes(tree, [&](const RYXmlWrapperBase& node) { taken = taken || node.HasProperty(name) != 0; });
  }
  for (const RYXmlWrapperBase& tree : trees) {
    visit_nodes(tree, [&](RYXmlWrapperBase& node) {
      CString word;
      if (node.GetPropertyValue(name_.c_str(), word) != 0 && !word.IsEmpty())
        node.SetPropertyValue(attribute_.c_str(), number_of(std::string(word.View())));
    });
  }
  return count;
}

std::vector<BadId> Ids::bad_ones(const RYXmlWrapperBase& tree) const {
  const RYPropertyName name(shown_attribute());
  const RYPropertyName number(attribute());
  const RYPropertyName repeat_name("RepeatID");
  std::vector<BadId> bad;
  const auto walk = [&](const auto& self, const RYXmlWrapperBase& parent, int repeat) -> void {
    RYXmlWrapperBase child;
    for (parent.FirstChild(child); child.IsNodeValid() != 0; child.NextSibling(child)) {
      int id = -1;
      const bool is_number = child.GetPropertyValue(number, id) != 0;
      const bool is_usable = is_number ? id >= -1 : child.HasProperty(name) == 0;
      int child_repeat = repeat;
      std::string reason;
      if (repeat > 0 || child.HasProperty(repeat_name) != 0)
        reason = repeat_fault(child, id, child_repeat, repeat);
      if (!is_usable || !reason.empty()) {
        const std::string text = rytree::attribute_of(child, shown_attribute()).value_or("");
        if (!is_usable) reason = text.empty() ? "empty" : "not a number from 0 to 2147483647";
        bad.push_back({child, text, reason});
      }
      self(self, child, child_repeat);
    }
  };
  walk(walk, tree, 0);
  return bad;
}

void Ids::remove_numbers(const RYXmlWrapperBase& tree) const {
  if (!are_words()) return;
  const RYPropertyName name(attribute_.c_str());
  visit_nodes(tree, [&](RYXmlWrapperBase& node) { node.RemoveProperty(name); });
}

std::string Ids::text(int id) const {
  const unsigned bits = static_cast<unsigned>(id);
  const bool composed = bits > kWidest && !wide_.contains(id) && words_.size() <= kWidest;
  const unsigned plain = composed ? bits & kWidest : bits;
  const std::size_t count = plain / (2 * kBranchBit) * kBranchBit + plain % kBranchBit;
  const std::string text =
      are_words() ? words_.at(count - 1) : std::to_string(composed ? static_cast<int>(plain) : id);
  return composed ? text + " (repeat " + std::to_string(bits >> 16U) + ')' : text;
}
