// The tree of this host, as an application may have had it all along: items that own their children.
#pragma once

#include <algorithm>
#include <functional>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

constexpr int kMostLevels = 1024;  // so that walks can go down by recursion

/// Whether a text can be a tag or the name of an attribute.
inline bool IsName(std::string_view text) {
  constexpr std::string_view kNeverFirst = "-.0123456789";
  return !text.empty() && text != "_NodeID" && kNeverFirst.find(text[0]) == text.npos &&
         text.find_first_of(" \t\n\r<>&\"'/=;,?!()[]{}|\\^`~@#$%+*") == text.npos;
}

struct TreeItem;
using ItemPointer = std::shared_ptr<TreeItem>;

/// What an item holds beside its children.
struct ItemContent {
  std::string tag, text;
  int id = -1;
  std::vector<std::pair<std::string, std::string>> attributes;
};

struct TreeItem : ItemContent, std::enable_shared_from_this<TreeItem> {
  explicit TreeItem(ItemContent content = {}) : ItemContent(std::move(content)) {}

  std::list<ItemPointer> children;
  TreeItem* parent = nullptr;              // null for a root
  std::list<ItemPointer>::iterator place;  // among the children of the parent
  bool alive = true;                       // until it is removed, or one above it
  int seen_index = -1;                     // the child that was asked for last, -1 for none
  std::list<ItemPointer>::iterator seen;

  TreeItem* First() const { return children.empty() ? nullptr : children.front().get(); }
  TreeItem* Next() const {
    return parent == nullptr || *place == parent->children.back() ? nullptr : std::next(place)->get();
  }
  TreeItem* Previous() const {
    return parent == nullptr || *place == parent->children.front() ? nullptr : std::prev(place)->get();
  }
  /// The next one below `top`, in document order.
  TreeItem* NextBelow(const TreeItem* top) const {
    if (!children.empty()) return First();
    const TreeItem* at = this;
    while (at != nullptr && at != top && at->Next() == nullptr) at = at->parent;
    return at == nullptr || at == top ? nullptr : at->Next();
  }
  TreeItem* Child(int index) {
    if (index < 0 || index >= static_cast<int>(children.size())) return nullptr;
    if (seen_index < 0 || index < seen_index / 2) seen_index = 0, seen = children.begin();
    std::advance(seen, index - std::exchange(seen_index, index));
    return seen->get();
  }
  int LevelsAbove() const { return parent != nullptr ? parent->LevelsAbove() + 1 : 0; }
  int LevelsBelow() const {
    int levels = 0;
    for (const ItemPointer& child : children) levels = std::max(levels, child->LevelsBelow() + 1);
    return levels;
  }
  bool HasRoomFor(const TreeItem& item) const { return LevelsAbove() + item.LevelsBelow() + 1 < kMostLevels; }

  std::string* Find(std::string_view name) {
    for (auto& [known, value] : attributes) {
      if (known == name) return &value;
    }
    return nullptr;
  }
  void SetAttribute(std::string_view name, std::string_view value) {
    std::string* const held = Find(name);
    held != nullptr ? void(*held = value) : void(attributes.emplace_back(name, value));
  }
  /// Adds a child before another one, or as the last for null.
  TreeItem* Insert(const TreeItem* before, const ItemPointer& item) {
    item->place = children.insert(before != nullptr ? before->place : children.end(), item);
    item->parent = this;
    if (before != nullptr) seen_index = -1;
    return item.get();
  }
  void Die() {
    alive = false;
    for (const ItemPointer& child : children) child->Die();
  }
  void Remove() {
    Die();
    if (parent != nullptr) parent->seen_index = -1, parent->children.erase(place);
  }
  ItemPointer Copy() const {
    auto copy = std::make_shared<TreeItem>(*static_cast<const ItemContent*>(this));
    for (const ItemPointer& child : children) copy->Insert(nullptr, child->Copy());
    return copy;
  }
  /// Exchanges all that two items hold. The items, and the handles on them, stay in their places.
  void Exchange(TreeItem& other) {
    std::swap(static_cast<ItemContent&>(*this), static_cast<ItemContent&>(other));
    children.swap(other.children);
    for (TreeItem* const item : {this, &other}) {
      for (const ItemPointer& child : item->children) child->parent = item;
      item->seen_index = -1;
    }
  }
};
