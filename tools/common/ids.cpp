#include "ids.h"

#include <limits>
#include <stdexcept>

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

}  // namespace

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

void Ids::number(const std::vector<RYXmlWrapperBase>& trees) {
  bool words = false;
  for (const RYXmlWrapperBase& tree : trees) {
    visit_nodes(tree, [&](const RYXmlWrapperBase& node) {
      CString text;
      int id = -1;
      if (node.GetPropertyValue(attribute_.c_str(), id) == 0) {
        words = words || (node.GetPropertyValue(attribute_.c_str(), text) != 0 && !text.IsEmpty());
      } else if (id > static_cast<int>(kWidest)) {
        wide_.insert(id);
      }
    });
  }
  if (!words || name_.empty()) return;
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
