// An attribute name made ready for many reads.
#pragma once

#include <string_view>
#include <utility>

#include "rytree_host/detail/stored_name.h"
#include "rytree_host/detail/tree_store.h"

/// A name for the attribute operations of RYXmlWrapperBase that remembers where the tree it was last used on
/// keeps that name. A walk that reads one attribute on every node makes one of these before it starts: each
/// read then compares a few addresses, or none at all where the tree holds no such name. It keeps the
/// tree's memory (not its nodes) until it dies or is used on another tree, refers to the characters that it
/// was given, and belongs to one thread.
class RYPropertyName {
 public:
  explicit RYPropertyName(const char* name)
      : name_(name == nullptr ? std::string_view() : std::string_view(name)) {}
  RYPropertyName(const RYPropertyName& other) : name_(other.name_) {}
  RYPropertyName& operator=(const RYPropertyName&) = delete;
  ~RYPropertyName() {
    if (tree_ != nullptr) tree_->Release();
  }

  std::string_view view() const { return name_; }
  const char* c_str() const { return name_.data() == nullptr ? "" : name_.data(); }
  bool empty() const { return name_.empty(); }

 private:
  friend class RYXmlWrapperBase;

  // Null if the tree holds no such name, and so no such attribute.
  const rytesavc::Name* In(rytesavc::Tree* tree) const {
    if (tree != tree_ || (found_ == nullptr && names_seen_ != tree->name_count())) [[unlikely]]
      Look(tree);
    return found_;
  }
  // Apart, so that what surrounds a read stays short.
  [[gnu::noinline]] void Look(rytesavc::Tree* tree) const {
    if (tree != tree_) {
      tree->Retain();
      if (rytesavc::Tree* const former = std::exchange(tree_, tree)) former->Release();
    }
    found_ = tree->FindName(rytesavc::StoredName(name_).view());
    names_seen_ = tree->name_count();
  }

  std::string_view name_;
  mutable rytesavc::Tree* tree_ = nullptr;
  mutable const rytesavc::Name* found_ = nullptr;
  mutable std::uint32_t names_seen_ = 0;
};
