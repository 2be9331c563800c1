// How the bundled host keeps a tree in memory. Only the node class looks in here; everyone else goes through
// RYXmlWrapperBase, so that another host can be put in its place.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>
#include <utility>

#include "rytree_host/detail/attribute_index.h"
#include "rytree_host/detail/child_places.h"
#include "rytree_host/detail/plain_int.h"
#include "rytree_host/detail/text_words.h"
#include "rytree_host/detail/tree_memory.h"
#include "rytree_host/export.h"

namespace rytesavc {

// What the XML form writes beside a node's own attributes: its ID, and a mark if it has escapes. No tag or
// attribute may have these names.
inline constexpr char kNodeId[] = "_NodeID";
inline constexpr char kNodeEscape[] = "_NodeEscape";

// A tag or attribute name. Each tree holds every name once, so two names of one tree are equal if their
// addresses are.
struct Name {
  std::uint32_t length;
  std::uint32_t hash;
  mutable std::uint64_t stamp = 0;          // of the copy or start tag that used the name last
  mutable const Name* copied_as = nullptr;  // the name in the copy
  const char* text() const { return reinterpret_cast<const char*>(this + 1); }
  std::string_view view() const { return {text(), length}; }
  // After a short name there are zeros.
  TextWords words() const { return TextWords::Load(text()); }
  bool Is(std::string_view name, const TextWords& its_words) const {
    return words() == its_words && length == name.size() && IsRestSame(text(), name.data(), length);
  }
};

// Whether a tree can hold it: an XML name that is not reserved.
bool IsName(std::string_view name);

// A text, or an int that is written out only when somebody asks for its text. Short texts are stored in the
// value itself.
class Value {
 public:
  enum Kind : std::uint32_t { kShort = 0, kLong = 1, kInt = 2 };
  static constexpr std::uint32_t kInPlace = 12;
  static constexpr std::size_t kMaxLength = (std::size_t{1} << 30) - 1;

  Value() = default;
  explicit Value(int number) : Value(kInt, static_cast<std::uint32_t>(number), 0) {}
  // A text of up to kInPlace bytes.
  [[gnu::always_inline]] Value(std::size_t length, const TextWords& words) {
    int number = 0;
    const bool is_int = IsPlainInt(length, words, number);
    first_ = LittleEndian(is_int ? kInt | Word{static_cast<std::uint32_t>(number)} << 32
                                 : length << 2 | kShort | words.low << 32);
    second_ = is_int ? 0 : LittleEndian(words.low >> 32 | words.high << 32);
  }
  // A text that is stored elsewhere, in a block of `capacity` bytes if that is the value's own.
  Value(std::uint32_t length, char* chars, std::uint32_t capacity = 0)
      : Value(Word{length} << 2 | kLong, capacity, 0) {
    std::memcpy(&second_, &chars, sizeof chars);
  }

  Kind kind() const { return static_cast<Kind>(LittleEndian(first_) & 3U); }
  bool empty() const { return (first_ & LittleEndian(0xFFFFFFFF)) == 0; }
  // Of a text, not of an int.
  std::uint32_t length() const { return static_cast<std::uint32_t>(LittleEndian(first_)) >> 2; }
  int number() const { return static_cast<int>(LittleEndian(first_) >> 32); }
  const char* chars() const {
    return kind() == kLong ? long_chars() : reinterpret_cast<const char*>(this) + sizeof(std::uint32_t);
  }
  // Of a long text.
  std::uint32_t capacity() const { return static_cast<std::uint32_t>(LittleEndian(first_) >> 32); }
  char* long_chars() const {
    char* chars;
    std::memcpy(&chars, &second_, sizeof chars);
    return chars;
  }

 private:
  Value(Word head, Word low, Word high)
      : first_(LittleEndian(head | low << 32)), second_(LittleEndian(low >> 32 | high << 32)) {}

  Word first_ = 0;   // the kind and the length, then a short text, an int or the capacity
  Word second_ = 0;  // the rest of a short text, or the address of a long one
};

struct Attribute {
  const Name* name;
  Value value;
};

// While its tree lives, a slot is never used for anything but nodes; its generation tells a handle whether
// the node in it is still the same.
struct Node {
  std::uint32_t generation;
  std::uint32_t child_count;
  const Name* tag;
  Node* parent;
  Node* next;
  Node* first;
  Attribute* attributes;
  std::uint32_t attribute_count;
  std::uint32_t attribute_capacity;
  Value text;
  Node* back;           // the sibling before; for a first child the last one, without a parent null
  int id;               // -1: none
  std::uint32_t depth;  // 1 at a root

  Node* last() const { return first != nullptr ? first->back : nullptr; }
  Node* previous() const { return back != nullptr && back->next != nullptr ? back : nullptr; }
  // The next node, in document order, among those below `top`.
  Node* NextBelow(const Node* top) const {
    if (first != nullptr) return first;
    const Node* at = this;
    while (at != nullptr && at != top && at->next == nullptr) at = at->parent;
    return at != nullptr && at != top ? at->next : nullptr;
  }

  // For nodes with few attributes.
  Attribute* Find(std::string_view name) const {
    Attribute* const end = attributes + attribute_count;
    for (Attribute* at = attributes; at != end; ++at) {
      if (at->name->length == name.size() && std::memcmp(at->name->text(), name.data(), name.size()) == 0)
        return at;
    }
    return nullptr;
  }
  [[gnu::always_inline]] Attribute* Find(const Name* name) const {
    Attribute* at = attributes;
    Attribute* const end = at + attribute_count;
    if (at == end) return nullptr;
    if (at->name == name)
      return at;  // the first is asked for most often, and costs no more where there are many
    if (!has_few_attributes()) [[unlikely]]
      return FindByIndex(*this, name);
    while (++at != end) {
      if (at->name == name) return at;
    }
    return nullptr;
  }
  bool has_few_attributes() const { return attribute_count <= AttributeIndex::kFew; }
};

static_assert(sizeof(Value) == 16 && sizeof(Attribute) == 24 && sizeof(Node) == 88);

// One tree: its nodes, names and texts, in memory that is freed as a whole. Counts the handles on its
// nodes; the count is plain because the handles of one tree belong to one thread.
class RYTESAVC_API Tree {
 public:
  static constexpr std::uint32_t kMaxDepth = 1024;

  // A tree of about so many bytes, if that is known.
  static Tree* Create(std::size_t expected_bytes = 0);
  Tree(const Tree&) = delete;
  Tree& operator=(const Tree&) = delete;

  void Retain() { ++references_; }
  void Release() {
    if (--references_ == 0) Destroy(this);
  }

  // Names. A look-up gives null for a name that the tree does not hold, interning gives null for what is not
  // an XML name.
  const Name* FindName(std::string_view name) const {
    const TextWords words = TextWords::Of(name);
    return FindName(name, words, Hash(name, words));
  }
  const Name* Intern(std::string_view name) {
    const TextWords words = TextWords::Of(name);
    const std::uint32_t hash = Hash(name, words);
    const Name* const found = FindName(name, words, hash);
    return found != nullptr ? found : InternNew(name, words, hash);
  }
  const Name* Intern(const Name* name, const Tree& of_tree) {
    if (&of_tree == this) return name;
    return name->stamp == of_tree.stamps_ ? name->copied_as : InternCopy(name, of_tree);
  }
  // The steps of these, for callers that have a name's words and hash. InternNew is for a name that was not
  // found.
  static std::uint32_t Hash(std::string_view name, const TextWords& words) {
    return name.size() <= TextWords::kBytes ? Hash(words) : HashLong(name);
  }
  static std::uint32_t Hash(const TextWords& words) {
    const Word mixed = Mix(words);
    return static_cast<std::uint32_t>(mixed ^ mixed >> 32);
  }
  const Name* FindName(std::string_view name, const TextWords& words, std::uint32_t hash) const {
    const std::uint32_t mask = name_slots_ - 1;
    for (std::uint32_t slot = hash & mask;; slot = (slot + 1) & mask) {
      const auto& [known, its_hash] = names_[slot];
      if (known == nullptr || (its_hash == hash && known->Is(name, words))) return known;
    }
  }
  const Name* InternNew(std::string_view name, const TextWords& words, std::uint32_t hash);
  // "xml:space", which says whether white space is text; null if the tree does not hold it.
  const Name* space_name() const { return space_name_; }
  // A stamp higher than that of any name of the tree.
  std::uint64_t NewStamp() const { return ++stamps_; }
  std::uint32_t name_count() const { return name_count_; }
  std::size_t node_count() const { return node_count_; }
  // About how much memory a copy of the tree takes.
  std::size_t expected_bytes() const;
  // Tells a tree that is being read how much of the whole has come.
  void ExpectWhole(unsigned long long part, unsigned long long whole) { memory_.ExpectWhole(part, whole); }

  // Nodes. New nodes have no parent; Append and InsertBefore put them into the tree.
  inline Node* NewNode(const Name* tag, int id, std::uint32_t depth);
  void Append(Node* parent, Node* child);
  void InsertBefore(Node* next, Node* child);
  void Remove(Node* branch);
  void Free(Node* branch);  // which no other node links to any more
  void FreeChildren(Node* node);
  // `source` has no parent and is freed.
  void TakeContent(Node* target, Node* source);
  void ArrangeChildren(Node* parent, const int* order);
  Node* Copy(const Node* source, const Tree& source_tree, std::uint32_t depth);
  void CopyAttributes(Node* target, const Node* source, const Tree& source_tree);
  Node* Child(const Node* parent, std::uint32_t index) const;

  // Values and attributes. A text longer than a value can hold is refused.
  bool SetText(Value& value, std::string_view text);
  void SetInt(Value& value, int number) {
    if (value.kind() == Value::kLong) FreeText(value);
    value = Value(number);
  }
  // Makes room for one more, so that the next AppendAttribute cannot fail.
  void ReserveAttribute(Node* node) {
    if (const std::uint32_t count = node->attribute_count; count == node->attribute_capacity)
      ReserveAttributes(node, count < 2 ? 2 : count + count / 2);
  }
  // The value of an attribute that the node does not have yet.
  Value& AppendAttribute(Node* node, const Name* name);
  void AppendInt(Node* node, const Name* name, int number);
  void ReserveAttributes(Node* node, std::uint32_t capacity);
  // Room for that many attributes in a node that has none. The caller must fill it in at once.
  Attribute* NewAttributes(Node* node, std::uint32_t count);
  bool RemoveAttribute(Node* node, const Name* name);

  Node* root = nullptr;

 private:
  friend class SoundnessCheck;
  class TextBlocks;
  static constexpr std::size_t kFirstChunk = 1536;
  // A place in the table of names. With the hash there, names that are not meant need not be looked at.
  struct NameSlot {
    const Name* name;
    std::uint32_t hash;
  };
  static constexpr std::uint32_t kFirstNames = 16;
  static std::size_t NameBytes(std::size_t length) {
    return sizeof(Name) + (std::max)(length + 1, TextWords::kBytes);
  }

  Tree(char* room, char* room_end) : memory_(room, room_end) {}
  ~Tree() = default;
  static void Destroy(Tree* tree);
  void* Allocate(std::size_t bytes);
  void Reclaim();
  Node* ReusedNode();
  void Unlink(Node* node);
  Attribute& NewAttribute(Node* node, const Name* name);
  static std::size_t AttributeBytes(std::uint32_t capacity) {
    const std::size_t bytes = capacity * sizeof(Attribute);
    return capacity <= AttributeIndex::kFew ? bytes : bytes + AttributeIndex::Bytes(capacity);
  }
  // The capacity of a new block for so many.
  std::uint32_t AttributeRoom(std::uint32_t count) const {
    if (!memory_.has_freed()) return count;
    return static_cast<std::uint32_t>(memory_.RoomFor(count * sizeof(Attribute)) / sizeof(Attribute));
  }
  std::uint32_t TextRoom(std::size_t length) const {
    return static_cast<std::uint32_t>(memory_.RoomFor(length));
  }
  void GrowAttributes(Node* node, std::uint32_t capacity);
  void GrowManyAttributes(Node* node, std::uint32_t capacity);
  void MoveAttributes(Node* node, std::uint32_t capacity, std::size_t bytes, std::size_t former_bytes);
  Node* NewCopy(const Node* source, const Tree& source_tree, std::uint32_t depth) {
    return NewNode(Intern(source->tag, source_tree), source->id, depth);
  }
  void CopyContent(Node* target, const Node* source, const Tree& source_tree);
  void FreeText(Value& value);
  void PutLong(Value& value, std::string_view text);
  Value NewText(std::string_view text, std::size_t least_capacity);
  void FreeNode(Node* node);
  void FreeContent(Node* node);
  void CopyValue(Value& target, const Value& source);
  const Name* InternCopy(const Name* name, const Tree& of_tree);
  static Word Mix(const TextWords& words) {
    return rytree_host::FoldedProduct(words.low ^ kHashSeed, words.high ^ std::rotl(kHashSeed, 29));
  }
  static std::uint32_t HashLong(std::string_view name);
  // Differs from run to run, so that nobody can write a file whose names have equal hashes.
  static const Word kHashSeed;
  const Name* AddName(std::string_view name, const TextWords& words, std::uint32_t hash);
  void GrowNames();

  std::size_t references_ = 1;
  TreeMemory memory_;
  Node* free_nodes_ = nullptr;
  Node* removed_nodes_ = nullptr;  // free too, but with their attributes and text
  std::size_t node_count_ = 0;     // in the tree now
  mutable std::uint64_t stamps_ = 0;
  mutable ChildPlaces places_;
  std::uint32_t name_count_ = 0;
  const Name* space_name_ = nullptr;
  std::uint32_t name_slots_ = kFirstNames;
  NameSlot* names_ = first_names_;
  NameSlot first_names_[kFirstNames] = {};
  std::unique_ptr<NameSlot[]> more_names_;
};

// What removed nodes hold is used before new memory is.
inline void* Tree::Allocate(std::size_t bytes) {
  if (removed_nodes_ != nullptr && !memory_.Holds(bytes)) Reclaim();
  return memory_.Allocate(bytes);
}

inline Node* Tree::NewNode(const Name* tag, int id, std::uint32_t depth) {
  Node* node = nullptr;
  std::uint32_t generation = 1;
  if (free_nodes_ == nullptr && removed_nodes_ == nullptr) {
    node = static_cast<Node*>(memory_.NewSlot(sizeof(Node)));
  } else {
    node = ReusedNode();
    generation = node->generation;
  }
  ++node_count_;
  return new (node)
      Node{generation, 0, tag, nullptr, nullptr, nullptr, nullptr, 0, 0, {}, nullptr, id, depth};
}

inline void Tree::Append(Node* parent, Node* child) {
  child->parent = parent;
  if (Node* const first = parent->first) {
    child->back = first->back;
    first->back->next = child;
    first->back = child;
  } else {
    parent->first = child->back = child;
  }
  ++parent->child_count;
}

inline Attribute* Tree::NewAttributes(Node* node, std::uint32_t count) {
  const std::uint32_t capacity = AttributeRoom(count);
  node->attributes = static_cast<Attribute*>(Allocate(AttributeBytes(capacity)));
  node->attribute_count = count;
  node->attribute_capacity = capacity;
  if (capacity > AttributeIndex::kFew) AttributeIndex(*node).Clear();
  return node->attributes;
}

struct ReleaseTree {
  void operator()(Tree* tree) const { tree->Release(); }
};
using OwnedTree = std::unique_ptr<Tree, ReleaseTree>;

// A branch that no other node links to. It is freed unless somebody takes it.
class LooseBranch {
 public:
  LooseBranch(Tree& tree, Node* top) : tree_(tree), top_(top) {}
  LooseBranch(const LooseBranch&) = delete;
  LooseBranch& operator=(const LooseBranch&) = delete;
  ~LooseBranch() {
    if (top_ != nullptr) tree_.Free(top_);
  }
  Node* get() const { return top_; }
  Node* Take() { return std::exchange(top_, nullptr); }

 private:
  Tree& tree_;
  Node* top_;
};

}  // namespace rytesavc
