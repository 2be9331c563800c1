// Whether everything that a tree holds fits together.
#include <algorithm>
#include <bit>
#include <vector>

#include "node_access.h"

namespace rytesavc {

// Looks for the first fault of one tree. Each step rests on what the ones before it found in order, so that a broken
// link is told and not followed.
class SoundnessCheck {
 public:
  explicit SoundnessCheck(const Tree& tree) : tree_(tree) {}

  // Null for a sound tree.
  const char* Fault() {
    if (CheckMemory() && CheckNames() && CheckNodes() && CheckFreeNodes()) CheckBlocks();
    return fault_;
  }

 private:
  struct Piece {
    const void* start;
    std::size_t bytes;
  };

  bool Expect(bool holds, const char* fault) {
    if (!holds && fault_ == nullptr) fault_ = fault;
    return holds;
  }
  static std::uintptr_t Address(const void* place) { return reinterpret_cast<std::uintptr_t>(place); }
  static bool Comes(const Piece& left, const Piece& right) {
    return Address(left.start) < Address(right.start);
  }

  // The piece that holds such a block, null for none.
  static const Piece* Holding(const std::vector<Piece>& pieces, const void* start, std::size_t bytes) {
    const auto after = std::upper_bound(pieces.begin(), pieces.end(), Piece{start, 0}, Comes);
    if (after == pieces.begin()) return nullptr;
    const Piece& piece = *std::prev(after);
    return Address(start) + bytes <= Address(piece.start) + piece.bytes ? &piece : nullptr;
  }
  bool CheckSlot(const Node* node) {
    return Expect(Address(node) % alignof(Node) == 0 && Holding(chunks_, node, sizeof(Node)) != nullptr,
                  "a node is not in the tree's memory");
  }
  // Notes a block that is in use, or free.
  bool CheckBlock(const void* start, std::size_t bytes) {
    const bool large = bytes > TreeMemory::kLargest;
    const Piece* const holding = Holding(large ? large_ : chunks_, start, bytes);
    if (!Expect(holding != nullptr, "a block is not in the tree's memory")) return false;
    if (!large) {
      pieces_.push_back({start, TreeMemory::Steps(bytes) * TreeMemory::kStep});
      return true;
    }
    ++large_seen_;
    return Expect(holding->start == start && holding->bytes == bytes, "a large block has another size");
  }

  bool CheckMemory();
  bool CheckNames();
  bool CheckNodes();
  bool CheckNode(const Node* node);
  bool CheckLinks(const Node* node);
  bool CheckContent(const Node* node);
  bool CheckFreeNodes();
  bool CheckBlocks();

  bool IsInterned(const Name* name) const {
    return std::binary_search(names_.begin(), names_.end(), name, std::less<>());
  }

  const Tree& tree_;
  const char* fault_ = nullptr;
  std::vector<Piece> chunks_, large_;
  std::vector<Piece> pieces_;   // of the chunks, whatever they are used for
  std::size_t large_seen_ = 0;  // large blocks in use
  std::size_t slots_ = 0;       // slots of nodes, as far as they are known
  std::vector<const Name*> names_;
};

bool SoundnessCheck::CheckMemory() {
  const TreeMemory& memory = tree_.memory_;
  chunks_.push_back({&tree_ + 1, Tree::kFirstChunk});
  for (const auto* chunk = memory.chunks_; chunk != nullptr; chunk = chunk->next)
    chunks_.push_back({chunk + 1, chunk->bytes - sizeof *chunk});
  for (const auto* large = memory.large_; large != nullptr; large = large->next) {
    if (!Expect(*large->link == large, "the link to a large block is wrong")) return false;
    large_.push_back({large + 1, large->bytes});
  }
  std::sort(chunks_.begin(), chunks_.end(), Comes);
  std::sort(large_.begin(), large_.end(), Comes);

  const std::size_t most = memory.bytes() / TreeMemory::kStep;
  for (std::size_t bytes = 0; bytes <= TreeMemory::kLargest; bytes += TreeMemory::kStep) {
    for (const void* block = memory.free_blocks_[TreeMemory::Steps(bytes)]; block != nullptr;) {
      if (!CheckBlock(block, bytes) || !Expect(pieces_.size() <= most, "the free blocks go in a circle"))
        return false;
      std::memcpy(&block, block, sizeof block);
    }
  }
  return true;
}

bool SoundnessCheck::CheckNames() {
  const std::uint32_t slots = tree_.name_slots_;
  const Tree::NameSlot* const table =
      tree_.more_names_ != nullptr ? tree_.more_names_.get() : tree_.first_names_;
  if (!Expect(tree_.names_ == table && std::has_single_bit(slots) && tree_.name_count_ < slots,
              "the table of names is broken")) {
    return false;
  }
  for (std::uint32_t slot = 0; slot < slots; ++slot) {
    const Name* const name = table[slot].name;
    if (name == nullptr) continue;
    if (!CheckBlock(name, Tree::NameBytes(name->length))) return false;
    if (!Expect(name->text()[name->length] == '\0' && tree_.FindName(name->view()) == name,
                "a name cannot be found"))
      return false;
    names_.push_back(name);
  }
  std::sort(names_.begin(), names_.end(), std::less<>());
  return Expect(names_.size() == tree_.name_count_, "the count of names is wrong");
}

bool SoundnessCheck::CheckNodes() {
  const Node* const root = tree_.root;
  if (root == nullptr) return Expect(tree_.node_count_ == 0, "nodes are counted that the tree does not hold");
  if (!CheckSlot(root)) return false;
  if (!Expect(root->parent == nullptr && root->next == nullptr && root->back == nullptr && root->depth == 1,
              "the root hangs somewhere")) {
    return false;
  }
  for (const Node* node = root; node != nullptr; node = node->NextBelow(root)) {
    if (!CheckNode(node)) return false;
  }
  return Expect(slots_ == tree_.node_count_, "nodes are counted that the tree does not hold");
}

bool SoundnessCheck::CheckNode(const Node* node) {
  pieces_.push_back({node, sizeof(Node)});
  return Expect(++slots_ <= tree_.node_count_, "the tree holds nodes that are not counted") &&
         Expect(node->generation != 0, "a node is dead") && CheckLinks(node) && CheckContent(node);
}

// The children's links to one another and to their parent.
bool SoundnessCheck::CheckLinks(const Node* node) {
  static constexpr char kSeenFault[] = "a child that was looked up is at another place";
  const ChildPlaces::Place seen = tree_.places_.Find(node, node->child_count);
  std::uint32_t count = 0;
  const Node* before = nullptr;
  for (const Node* child = node->first; child != nullptr; child = child->next) {
    if (!CheckSlot(child)) return false;
    if (!Expect(child->parent == node, "a child has another parent")) return false;
    if (!Expect(before == nullptr || child->back == before, "a node's link back is wrong")) return false;
    if (!Expect(child->depth == node->depth + 1 && child->depth <= Tree::kMaxDepth, "a depth is wrong"))
      return false;
    if (!Expect(++count <= node->child_count, "a count of children is wrong")) return false;
    if (child == seen.child && !Expect(count == seen.index + 1, kSeenFault)) return false;
    before = child;
  }
  return Expect(node->first == nullptr || node->first->back == before,
                "the link to the last child is wrong") &&
         Expect(count == node->child_count, "a count of children is wrong") &&
         Expect(seen.child == nullptr || seen.child->parent == node, kSeenFault);
}

bool SoundnessCheck::CheckContent(const Node* node) {
  const auto is_sound = [this](const Value& value) {
    switch (value.kind()) {
      case Value::kShort:
        return Expect(value.length() <= Value::kInPlace, "a short text is too long");
      case Value::kLong:
        return Expect(value.length() > Value::kInPlace && value.length() <= Value::kMaxLength &&
                          value.length() <= value.capacity(),
                      "a long text has the wrong length") &&
               CheckBlock(value.chars(), value.capacity());
      case Value::kInt:
        return true;
    }
    return Expect(false, "a value is of no kind");
  };
  if (!Expect(IsInterned(node->tag), "a tag is not a name of the tree") || !is_sound(node->text))
    return false;
  const std::uint32_t count = node->attribute_count;
  if (!Expect(count <= node->attribute_capacity, "there are more attributes than room")) return false;
  if (node->attribute_capacity == 0) return true;
  if (!CheckBlock(node->attributes, Tree::AttributeBytes(node->attribute_capacity))) return false;
  std::vector<const Name*> seen;
  for (const Attribute* at = node->attributes; at != node->attributes + count; ++at) {
    if (!Expect(IsInterned(at->name), "an attribute's name is not a name of the tree") ||
        !is_sound(at->value))
      return false;
    seen.push_back(at->name);
  }
  std::sort(seen.begin(), seen.end(), std::less<>());
  if (!Expect(std::adjacent_find(seen.begin(), seen.end()) == seen.end(), "a node has an attribute twice"))
    return false;
  const auto is_found = [node](const Attribute& at) { return node->Find(at.name) == &at; };
  return Expect(std::all_of(node->attributes, node->attributes + count, is_found),
                "an attribute cannot be found");
}

// Slots that can be used again. Some still have what their node held.
bool SoundnessCheck::CheckFreeNodes() {
  const std::size_t most = tree_.memory_.bytes() / sizeof(Node);
  for (const Node* list : {tree_.free_nodes_, tree_.removed_nodes_}) {
    for (const Node* node = list; node != nullptr; node = node->next) {
      if (!Expect(++slots_ <= most, "the free nodes go in a circle") || !CheckSlot(node)) return false;
      pieces_.push_back({node, sizeof(Node)});
      if (list == tree_.removed_nodes_ && !CheckContent(node)) return false;
    }
  }
  return true;
}

// No byte is used twice, and none is lost: slots fill a chunk from the front and blocks from the back, so that there is
// at most one gap.
bool SoundnessCheck::CheckBlocks() {
  std::sort(pieces_.begin(), pieces_.end(), Comes);
  auto piece = pieces_.begin();
  for (const Piece& chunk : chunks_) {
    std::uintptr_t at = Address(chunk.start);
    const std::uintptr_t end = at + chunk.bytes;
    int gaps = 0;
    for (; piece != pieces_.end() && Address(piece->start) < end; ++piece) {
      if (!Expect(Address(piece->start) >= at, "two things are in one place")) return false;
      if (Address(piece->start) > at) ++gaps;
      at = Address(piece->start) + piece->bytes;
    }
    if (at < end) ++gaps;
    if (!Expect(gaps <= 1, "a block is lost")) return false;
  }
  return Expect(large_seen_ == large_.size(), "a large block is lost");
}

}  // namespace rytesavc

int RYXmlWrapperBase::IsTreeSound(CString* fault) const {
  if (IsNodeValid() == 0) return 0;
  const char* const found = rytesavc::SoundnessCheck(*tree_).Fault();
  if (fault != nullptr) *fault = found;
  return found == nullptr ? 1 : 0;
}
