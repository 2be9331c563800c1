// The index of the attributes of a node that has many.
#pragma once

#include <cstddef>
#include <cstdint>

#include "rytree_host/export.h"

namespace rytesavc {

struct Attribute;
struct Name;
struct Node;

// A hash table after the attributes, in their block. The searches make it and add what was appended since the last
// one; a removal takes the attribute out and lowers the places of those after it.
class AttributeIndex {
 public:
  static constexpr std::uint32_t kFew = 64;  // attributes that are searched without an index

  // Of the index of a block.
  static std::size_t Bytes(std::uint32_t capacity);
  explicit AttributeIndex(const Node& node);

  Attribute* Find(const Name* name);
  // All attributes are new, or elsewhere.
  void Clear();
  // The attribute at the place is about to go.
  void Remove(std::uint32_t place);

 private:
  struct Head {
    std::uint32_t indexed;  // attributes, from the first on
    bool made;              // whether the slots have a meaning
  };

  void Update();
  void Empty(std::uint32_t slot);
  std::uint32_t HashAt(std::uint32_t place) const;
  std::uint32_t SlotOfPlace(std::uint32_t place) const;
  std::uint32_t SlotOf(std::uint32_t hash) const { return hash & last_slot_; }

  const Node& node_;
  Head* head_;
  std::uint32_t* slots_;  // the place of an attribute, counted from 1; 0: empty
  std::uint32_t last_slot_;
};

// The attribute of a node with many; null for none.
[[gnu::cold]] RYTESAVC_API Attribute* FindByIndex(const Node& node, const Name* name);

}  // namespace rytesavc
