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
  if (head_->indexed != node_.attribute_count) Update();
  for (std::uint32_t slot = SlotOf(name->hash); slots_[slot] != 0; slot = SlotOf(slot + 1)) {
    Attribute* const at = node_.attributes + (slots_[slot] - 1);
    if (at->name == name) return at;
  }
  return nullptr;
}

void AttributeIndex::Clear() { *head_ = {}; }

void AttributeIndex::Remove(std::uint32_t place) {
  if (place >= head_->indexed) return;
  Empty(SlotOfPlace(place));
  // A slot that has to be looked for takes about as long as this many that are passed in a row.
  constexpr std::uint32_t kPassed = 16;
  if (head_->indexed - place <= last_slot_ / kPassed) {
    for (std::uint32_t after = place + 1; after < head_->indexed; ++after) --slots_[SlotOfPlace(after)];
  } else {
    std::transform(slots_, slots_ + last_slot_ + 1, slots_,
                   [place](std::uint32_t slot) { return slot > place ? slot - 1 : slot; });
  }
  --head_->indexed;
}

// Moves up what a search would no longer reach past an empty slot.
void AttributeIndex::Empty(std::uint32_t slot) {
  for (std::uint32_t next = SlotOf(slot + 1); slots_[next] != 0; next = SlotOf(next + 1)) {
    const std::uint32_t from_its_first = next - HashAt(slots_[next] - 1);
    if (SlotOf(from_its_first) < SlotOf(next - slot)) continue;
    slots_[slot] = slots_[next];
    slot = next;
  }
  slots_[slot] = 0;
}

void AttributeIndex::Update() {
  if (!head_->made) {
    std::fill_n(slots_, last_slot_ + 1, 0);
    head_->made = true;
  }
  while (head_->indexed < node_.attribute_count) {
    std::uint32_t slot = SlotOf(HashAt(head_->indexed));
    while (slots_[slot] != 0) slot = SlotOf(slot + 1);
    slots_[slot] = ++head_->indexed;
  }
}

std::uint32_t AttributeIndex::HashAt(std::uint32_t place) const { return node_.attributes[place].name->hash; }

std::uint32_t AttributeIndex::SlotOfPlace(std::uint32_t place) const {
  std::uint32_t slot = SlotOf(HashAt(place));
  while (slots_[slot] != place + 1) slot = SlotOf(slot + 1);
  return slot;
}

}  // namespace rytesavc
