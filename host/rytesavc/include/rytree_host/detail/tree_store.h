// How the bundled host keeps a tree in memory. Only the node class looks in here; everyone else goes through
// RYXmlWrapperBase, so that another host can be put in its place.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>

#include "rytree_host/detail/child_places.h"
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
  mutable std::uint64_t copied_in = 0;      // the number of the copy in which the name was last looked up
  mutable const Name* copied_as = nullptr;  // and the name found there
  const char* text() const { return reinterpret_cast<const char*>(this + 1); }
  std::string_view view() const { return {text(), length}; }
};

// A text, or an int that is written out only when somebody asks for its text. Short texts are stored in the
// value itself.
class Value {
 public:
  enum Kind : std::uint32_t { kShort = 0, kLong = 1, kInt = 2 };
  static constexpr std::uint32_t kInPlace = 12;
  static constexpr std::size_t kMaxLength = (std::size_t{1} << 30) - 1;

  Kind kind() const { return static_cast<Kind>(meta_ & 3u); }
  bool empty() const { return meta_ == kShort; }
  std::uint32_t length() const { return meta_ >> 2; }  // of a text, not of an int
  int number() const { return body_.number; }
  const char* chars() const { return kind() == kLong ? body_.heap.chars : body_.in_place; }

 private:
  friend class Tree;
  std::uint32_t meta_ = 0;
  union Body {
    char in_place[kInPlace];
    int number;
    struct {
      std::uint32_t unused;  // puts the pointer on an eight-byte boundary
      char* chars;
    } __attribute__((packed)) heap;
  } body_{};
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

  Attribute* Find(std::string_view name) const {
    Attribute* const end = attributes + attribute_count;
    for (Attribute* at = attributes; at != end; ++at) {
      if (at->name->length == name.size() && std::memcmp(at->name->text(), name.data(), name.size()) == 0)
        return at;
    }
    return nullptr;
  }
  Attribute* Find(const Name* name) const {
    Attribute* const end = attributes + attribute_count;
    for (Attribute* at = attributes; at != end; ++at) {
      if (at->name == name) return at;
    }
    return nullptr;
  }
};

static_assert(sizeof(Value) == 16 && sizeof(Attribute) == 24 && sizeof(Node) == 88);

// One tree: its nodes, names and texts, in memory that is freed as a whole. Counts the handles on its
// nodes; the count is plain because the handles of one tree belong to one thread.
class RYTREE_API Tree {
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
  const Name* FindName(std::string_view name) const;
  const Name* Intern(std::string_view name);
  const Name* Intern(const Name* name, const Tree& of_tree);
  std::uint32_t name_count() const { return name_count_; }
  std::size_t node_count() const { return node_count_; }
  // About how much memory a copy of the tree takes.
  std::size_t expected_bytes() const;
  // Tells a tree that is being read how much of the whole has come.
  void ExpectWhole(unsigned long long part, unsigned long long whole) { memory_.ExpectWhole(part, whole); }

  // Nodes. New nodes have no parent; Append and InsertBefore put them into the tree.
  Node* NewNode(const Name* tag, int id, std::uint32_t depth);
  void Append(Node* parent, Node* child);
  void InsertBefore(Node* next, Node* child);
  void Remove(Node* branch);
  void Free(Node* branch);  // which no other node links to any more
  void FreeChildren(Node* node);
  // `source` has no parent and is freed.
  void TakeContent(Node* target, Node* source);
  void ArrangeChildren(Node* parent, const int* order);
  Node* Copy(const Node* source, const Tree& source_tree, std::uint32_t depth);
  bool CopyAttributes(Node* target, const Node* source, const Tree& source_tree);
  Node* Child(const Node* parent, std::uint32_t index) const;

  // Values and attributes. A text longer than a value can hold is refused.
  bool SetText(Value& value, std::string_view text);
  void SetInt(Value& value, int number) {
    if (value.kind() == Value::kLong) FreeText(value);
    value.meta_ = Value::kInt;
    value.body_.number = number;
  }
  Value& AddAttribute(Node* node, const Name* name);
  // The same for a name that the node does not have.
  Value& AppendAttribute(Node* node, const Name* name);
  void AppendInt(Node* node, const Name* name, int number);
  void ReserveAttributes(Node* node, std::uint32_t capacity);
  bool RemoveAttribute(Node* node, const Name* name);

  Node* root = nullptr;

 private:
  static constexpr std::uint32_t kFirstNames = 32;

  Tree(char* room, char* room_end) : memory_(room, room_end) {}
  ~Tree() = default;
  static void Destroy(Tree* tree);
  void* Allocate(std::size_t bytes);
  void Reclaim();
  void Unlink(Node* node);
  Attribute& NewAttribute(Node* node, const Name* name);
  void GrowAttributes(Node* node, std::uint32_t capacity);
  Node* CopyNode(const Node* source, const Tree& source_tree, std::uint32_t depth);
  void FreeText(Value& value);
  void FreeNode(Node* node);
  void FreeContent(Node* node);
  void CopyValue(Value& target, const Value& source);
  const Name* AddName(std::string_view name, std::uint32_t hash);
  void GrowNames();

  std::size_t references_ = 1;
  TreeMemory memory_;
  Node* free_nodes_ = nullptr;
  Node* removed_nodes_ = nullptr;  // free too, but with their attributes and text
  std::size_t node_count_ = 0;     // in the tree now
  mutable std::uint64_t copies_ = 0;
  mutable ChildPlaces places_;
  std::uint32_t name_count_ = 0;
  std::uint32_t name_slots_ = kFirstNames;
  const Name** names_ = first_names_;
  const Name* first_names_[kFirstNames] = {};
  std::unique_ptr<const Name*[]> more_names_;
};

}  // namespace rytesavc
