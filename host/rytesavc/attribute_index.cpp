#include "rytree_host/detail/attribute_index.h"

#include <algorithm>
#include <bit>

#include "rytree_host/detail/tree_store.h"

namespace rytesavc {

namespace {

std::uint32_t Slots(std::uint32_t capacity) { return std::bit_ceil(2 * capacity); }

}  // namespace

Attribute* FindByIndex(const Node& node, const Name* name) { return AttributeIndex(node).Find(name); }

std::size_t AttributeIndex::Bytes(std::uint32_t capacity) {
  return capacity <= kFew ? 0 : sizeof(Head) + Slots(capacity) * sizeof(std::uint32_t);
}

AttributeIndex::AttributeIndex(const Node& node)
    : node_(node),
      head_(reinterpret_cast<Head*>(node.attributes + node.attribute_capacity)),
      slots_(reinterpret_cast<std::uint32_t*>(head_ + 1)),
      last_slot_(Slots(node.attribute_capacity) - 1) {}

Attribute* AttributeIndex::Find(const Name* name) {
  if (head_->walked != 0) return Walk(name);
  if (head_->indexed != node_.attribute_count) Update();
  for (std::uint32_t slot = SlotOf(name->hash); slots_[slot] != 0; slot = SlotOf(slot + 1)) {
    // What was the last attribute may have gone.
    if (slots_[slot] > node_.attribute_count) continue;
    Attribute* const at = node_.attributes + (slots_[slot] - 1);
    if (at->name == name) return at;
  }
  return nullptr;
}

void AttributeIndex::Clear() { *head_ = {}; }

void AttributeIndex::Remove(std::uint32_t place) {
  if (place + 1 == node_.attribute_count) {
    head_->indexed = std::min(head_->indexed, place);
  } else if (place < head_->indexed) {
    head_->walked = std::max<std::uint64_t>(head_->walked, 1);
  }
}

Attribute* AttributeIndex::Walk(const Name* name) {
  Attribute* const end = node_.attributes + node_.attribute_count;
  Attribute* const found =
      std::find_if(node_.attributes, end, [name](const Attribute& at) { return at.name == name; });
  head_->walked += static_cast<std::uint64_t>(found - node_.attributes);
  if (head_->walked > 4 * std::uint64_t{node_.attribute_count}) Clear();
  return found != end ? found : nullptr;
}

void AttributeIndex::Update() {
  const std::uint32_t fresh = node_.attribute_count - head_->indexed;
  if (head_->filled + fresh > last_slot_ / 4 * 3) Clear();
  if (head_->indexed == 0) {
    std::fill_n(slots_, last_slot_ + 1, 0);
    head_->filled = 0;
  }
  for (; head_->indexed < node_.attribute_count; ++head_->filled) {
    std::uint32_t slot = SlotOf(node_.attributes[head_->indexed].name->hash);
    while (slots_[slot] != 0) slot = SlotOf(slot + 1);
    slots_[slot] = ++head_->indexed;
  }
}

}  // namespace rytesavc
