#include "rytree_host/detail/tree_store.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <new>
#include <vector>

namespace rytesavc {

// ---- The tree as a whole. Its first chunk is allocated with it, so that a small tree is one block.

Tree* Tree::Create(std::size_t expected_bytes) {
  static_assert(sizeof(Tree) % alignof(Node) == 0);
  char* const block = static_cast<char*>(std::malloc(sizeof(Tree) + kFirstChunk));
  if (block == nullptr) throw std::bad_alloc();
  std::unique_ptr<Tree, void (*)(Tree*)> tree(
      new (block) Tree(block + sizeof(Tree), block + sizeof(Tree) + kFirstChunk), Destroy);
  tree->memory_.Reserve(expected_bytes);
  return tree.release();
}

void Tree::Destroy(Tree* tree) {
  tree->~Tree();
  std::free(tree);
}

std::size_t Tree::expected_bytes() const {
  constexpr std::size_t kLargeNode = 256;  // a tree that has lost most of its nodes still holds their memory
  return std::min(memory_.bytes(), node_count_ * kLargeNode);
}

void Tree::Reclaim() {
  while (Node* const node = removed_nodes_) {
    FreeContent(node);
    removed_nodes_ = node->next;
    node->next = free_nodes_;
    free_nodes_ = node;
  }
}

// ---- Nodes.

Node* Tree::ReusedNode() {
  Node*& free = free_nodes_ != nullptr ? free_nodes_ : removed_nodes_;
  Node* const node = free;
  free = node->next;
  FreeContent(node);
  return node;
}

void Tree::InsertBefore(Node* next, Node* child) {
  Node* const parent = next->parent;
  places_.Change(parent, next, child, parent->child_count);
  child->parent = parent;
  child->next = next;
  child->back = next->back;
  (next == parent->first ? parent->first : next->back->next) = child;
  next->back = child;
  ++parent->child_count;
}

inline void Tree::Unlink(Node* node) {
  Node* const parent = node->parent;
  if (parent == nullptr) {
    if (root == node) root = nullptr;
    return;
  }
  places_.Change(parent, node, node->next, parent->child_count);
  (node->next != nullptr ? node->next : parent->first)->back = node->back;
  (node == parent->first ? parent->first : node->back->next) = node->next;
  --parent->child_count;
}

// Most of the work of a removal would be freeing attributes, in memory that nobody has looked at lately. It is
// put off until the slot or the memory is needed, but not for large blocks.
inline void Tree::FreeNode(Node* node) {
  --node_count_;
  if (node->child_count != 0) places_.Forget(node, node->child_count);
  // Generations start at 1. A slot that has used them all is not used again, so that no old handle ever
  // comes back to life.
  const bool given_up = ++node->generation == 0;
  if (given_up || memory_.has_large_blocks()) FreeContent(node);
  if (given_up) return;
  node->next = removed_nodes_;
  removed_nodes_ = node;
}

void Tree::FreeContent(Node* node) {
  if (node->text.kind() == Value::kLong) FreeText(node->text);
  for (std::uint32_t i = 0; i < node->attribute_count; ++i) {
    if (node->attributes[i].value.kind() == Value::kLong) FreeText(node->attributes[i].value);
  }
  memory_.Deallocate(node->attributes, AttributeBytes(node->attribute_capacity));
  node->attributes = nullptr;
  node->attribute_count = node->attribute_capacity = 0;
}

void Tree::Free(Node* branch) {
  // Leaves first: down to the first leaf, then on to the next sibling or up.
  Node* node = branch;
  for (;;) {
    while (node->first != nullptr) node = node->first;
    Node* const parent = node->parent;
    Node* const next = node->next;
    const bool done = node == branch;
    FreeNode(node);
    if (done) return;
    if (next != nullptr) {
      node = next;
    } else {
      node = parent;
      node->first = nullptr;
    }
  }
}

void Tree::Remove(Node* branch) {
  Unlink(branch);
  branch->first == nullptr ? FreeNode(branch) : Free(branch);
}

void Tree::FreeChildren(Node* node) {
  places_.Forget(node, node->child_count);
  for (Node* child = node->first; child != nullptr;) {
    Node* const next = child->next;
    Free(child);
    child = next;
  }
  node->first = nullptr;
  node->child_count = 0;
}

namespace {

// Puts what a node holds into another one, which keeps its generation and its place in the tree.
void PutContent(Node* target, const Node& content) {
  Node node = content;
  node.generation = target->generation;
  node.parent = target->parent;
  node.next = target->next;
  node.back = target->back;
  node.depth = target->depth;
  *target = node;
  for (Node* child = target->first; child != nullptr; child = child->next) child->parent = target;
}

}  // namespace

void Tree::TakeContent(Node* target, Node* source) {
  FreeChildren(target);
  FreeContent(target);
  PutContent(target, *source);
  source->text = Value();
  source->attributes = nullptr;
  source->attribute_count = source->attribute_capacity = 0;
  FreeNode(source);
}

void Tree::ArrangeChildren(Node* parent, const int* order) {
  // All contents are read, with no read waiting for another, before they are written from first to last.
  std::vector<Node*> places;
  places.reserve(parent->child_count);
  for (Node* child = parent->first; child != nullptr; child = child->next) places.push_back(child);
  std::vector<Node> contents(places.size());
  for (std::size_t i = 0; i < places.size(); ++i) contents[i] = *places[static_cast<std::size_t>(order[i])];
  for (std::size_t i = 0; i < places.size(); ++i) {
    if (order[i] == static_cast<int>(i)) continue;
    places_.Forget(places[i], places[i]->child_count);
    PutContent(places[i], contents[i]);
  }
}

// Attributes and text, into a node that has none. What was copied before a failure is the node's.
inline void Tree::CopyContent(Node* target, const Node* source, const Tree& source_tree) {
  ReserveAttributes(target, AttributeRoom(source->attribute_count));
  struct Count {
    Node* node;
    std::uint32_t copied;
    ~Count() { node->attribute_count = copied; }
  } count{target, 0};
  for (; count.copied < source->attribute_count; ++count.copied) {
    const Attribute& from = source->attributes[count.copied];
    Attribute* const to =
        new (&target->attributes[count.copied]) Attribute{Intern(from.name, source_tree), {}};
    CopyValue(to->value, from.value);
  }
  CopyValue(target->text, source->text);
}

Node* Tree::Copy(const Node* source, const Tree& source_tree, std::uint32_t depth) {
  source_tree.NewStamp();
  LooseBranch copy(*this, NewCopy(source, source_tree, depth));
  const Node* from = source;
  Node* to = copy.get();
  CopyContent(to, from, source_tree);
  for (;;) {
    if (from->first != nullptr) {
      from = from->first;
    } else {
      while (from != source && from->next == nullptr) {
        from = from->parent;
        to = to->parent;
      }
      if (from == source) return copy.Take();
      from = from->next;
      to = to->parent;
    }
    Node* const child = NewCopy(from, source_tree, to->depth + 1);
    Append(to, child);
    to = child;
    CopyContent(to, from, source_tree);
  }
}

// Blocks for long texts that are still to be copied. Each starts with the next block and its own capacity.
class Tree::TextBlocks {
 public:
  explicit TextBlocks(Tree& tree) : tree_(tree) {}
  TextBlocks(const TextBlocks&) = delete;
  TextBlocks& operator=(const TextBlocks&) = delete;
  ~TextBlocks() {
    while (first_ != nullptr) {
      Value unused = Take(0);
      tree_.FreeText(unused);
    }
  }

  void Add(std::uint32_t length) {
    static_assert(sizeof(char*) + sizeof(std::uint32_t) <= Value::kInPlace);
    constexpr char* kNone = nullptr;
    const std::uint32_t capacity = tree_.TextRoom(length);
    char* const block = static_cast<char*>(tree_.Allocate(capacity));
    std::memcpy(block, &kNone, sizeof kNone);
    std::memcpy(block + sizeof kNone, &capacity, sizeof capacity);
    std::memcpy(link_, &block, sizeof block);
    link_ = block;
  }
  // A text of that length whose characters are still to be written, in the first block of those that are left.
  Value Take(std::uint32_t length) {
    char* const block = first_;
    if (block == nullptr) return {};
    std::uint32_t capacity = 0;
    std::memcpy(&first_, block, sizeof first_);
    std::memcpy(&capacity, block + sizeof first_, sizeof capacity);
    return {length, block, capacity};
  }

 private:
  Tree& tree_;
  char* first_ = nullptr;
  void* link_ = &first_;  // where the address of the next block goes
};

namespace {

bool IsSameName(const Name* name, const Name* other) {
  return name == other || name->Is(other->view(), other->words());
}

bool AreLongAlike(const Value& value, const Value& other) {
  return value.kind() == Value::kLong && other.kind() == Value::kLong && value.length() == other.length();
}

}  // namespace

void Tree::CopyAttributes(Node* target, const Node* source, const Tree& source_tree) {
  if (target == source) return;
  source_tree.NewStamp();
  // The attributes of the two nodes are probably in the same order.
  const auto find = [&](std::uint32_t place, const Name* name) {
    const bool there = place < target->attribute_count && IsSameName(target->attributes[place].name, name);
    return there ? &target->attributes[place] : target->Find(Intern(name, source_tree));
  };
  // All that can fail comes before the first change.
  TextBlocks blocks(*this);
  std::uint32_t missing = 0;
  for (std::uint32_t i = 0; i < source->attribute_count; ++i) {
    const auto& [name, from] = source->attributes[i];
    const Attribute* const found = find(i, name);
    if (found == nullptr) ++missing;
    if (from.kind() == Value::kLong && (found == nullptr || !AreLongAlike(found->value, from)))
      blocks.Add(from.length());
  }
  const std::uint32_t wanted = target->attribute_count + missing;
  const std::uint32_t capacity = target->attribute_capacity;
  if (wanted > capacity) GrowAttributes(target, AttributeRoom(std::max(wanted, capacity + capacity / 2)));
  for (std::uint32_t i = 0; i < source->attribute_count; ++i) {
    const auto& [name, from] = source->attributes[i];
    Attribute* const found = find(i, name);
    Value& to = found != nullptr ? found->value : AppendAttribute(target, Intern(name, source_tree));
    if (!AreLongAlike(to, from)) {
      if (to.kind() == Value::kLong) FreeText(to);
      to = from.kind() == Value::kLong ? blocks.Take(from.length()) : from;
    }
    if (from.kind() == Value::kLong) std::memcpy(to.long_chars(), from.chars(), from.length());
  }
}

Node* Tree::Child(const Node* parent, std::uint32_t index) const {
  const std::uint32_t count = parent->child_count;
  if (index >= count) return nullptr;
  const auto steps_from = [index](std::uint32_t place) {
    return index >= place ? index - place : place - index;
  };
  Node* at = parent->first;
  std::uint32_t place = 0;
  const ChildPlaces::Place seen = places_.Find(parent, count);
  if (seen.child != nullptr && steps_from(seen.index) < index) {
    at = seen.child;
    place = seen.index;
  }
  if (count - 1 - index < steps_from(place)) {
    at = parent->last();
    place = count - 1;
  }
  for (; place < index; ++place) at = at->next;
  for (; place > index; --place) at = at->back;
  places_.Remember({parent, at, index}, count);
  return at;
}

// ---- Values.

bool IsLongPlainInt(std::size_t length, const TextWords& words, int& number) {
  char text[TextWords::kBytes];
  StoreWord(words.low, text);
  StoreWord(words.high, text + sizeof(Word));
  if (text[text[0] == '-' ? 1 : 0] == '0') return false;
  const auto [end, error] = std::from_chars(text, text + length, number);
  return error == std::errc() && end == text + length;
}

void Tree::FreeText(Value& value) {
  memory_.Deallocate(value.long_chars(), value.capacity());
  value = Value();
}

// A text that outgrows its block gets one of twice the size, so that blocks of a few sizes serve texts that grow
// and shrink. One that needs less than half of its block gives it back.
inline void Tree::PutLong(Value& value, std::string_view text) {
  const auto length = static_cast<std::uint32_t>(text.size());
  const std::uint32_t former = value.kind() == Value::kLong ? value.capacity() : 0;
  if (length <= former && length > former / 2) {
    std::memmove(value.long_chars(), text.data(), length);
    value = Value(length, value.long_chars(), former);
    return;
  }
  const Value made = NewText(text, length > former ? TreeMemory::Doubled(former) : 0);
  if (former != 0) FreeText(value);  // after the copy: the text may be in that block
  value = made;
}

inline Value Tree::NewText(std::string_view text, std::size_t least_capacity) {
  const std::uint32_t capacity = TextRoom(std::max(text.size(), least_capacity));
  char* const chars = static_cast<char*>(Allocate(capacity));
  std::memcpy(chars, text.data(), text.size());
  return {static_cast<std::uint32_t>(text.size()), chars, capacity};
}

bool Tree::SetText(Value& value, std::string_view text) {
  if (text.size() > Value::kMaxLength) return false;
  if (text.size() > Value::kInPlace) return PutLong(value, text), true;
  const TextWords words = TextWords::Of(text);  // the text may be in the value's own block
  if (value.kind() == Value::kLong) FreeText(value);
  value = Value(text.size(), words);
  return true;
}

inline void Tree::CopyValue(Value& target, const Value& source) {
  target = source.kind() == Value::kLong ? NewText({source.long_chars(), source.length()}, 0) : source;
}

// ---- Attributes.

[[gnu::always_inline]] inline void Tree::MoveAttributes(Node* node, std::uint32_t capacity, std::size_t bytes,
                                                        std::size_t former_bytes) {
  auto* const block = static_cast<Attribute*>(Allocate(bytes));
  Attribute* const former = node->attributes;
  Attribute* to = block;
  for (const Attribute *from = former, *end = from + node->attribute_count; from != end; ++from, ++to) {
    to->name = from->name;
    to->value = from->value;
  }
  memory_.Deallocate(former, former_bytes);
  node->attributes = block;
  node->attribute_capacity = capacity;
}

[[gnu::always_inline]] inline void Tree::GrowAttributes(Node* node, std::uint32_t capacity) {
  if (capacity > AttributeIndex::kFew) [[unlikely]]
    return GrowManyAttributes(node, capacity);
  MoveAttributes(node, capacity, capacity * sizeof(Attribute), node->attribute_capacity * sizeof(Attribute));
}

[[gnu::noinline]] void Tree::GrowManyAttributes(Node* node, std::uint32_t capacity) {
  MoveAttributes(node, capacity, AttributeBytes(capacity), AttributeBytes(node->attribute_capacity));
  AttributeIndex(*node).Clear();
}

void Tree::ReserveAttributes(Node* node, std::uint32_t capacity) {
  if (capacity > node->attribute_capacity) GrowAttributes(node, capacity);
}

inline Attribute& Tree::NewAttribute(Node* node, const Name* name) {
  ReserveAttribute(node);
  Attribute& made = node->attributes[node->attribute_count++];
  made.name = name;
  return made;
}

Value& Tree::AppendAttribute(Node* node, const Name* name) {
  Attribute& made = NewAttribute(node, name);
  made.value = Value();
  return made.value;
}

void Tree::AppendInt(Node* node, const Name* name, int number) {
  NewAttribute(node, name).value = Value(number);
}

bool Tree::RemoveAttribute(Node* node, const Name* name) {
  Attribute* const at = node->Find(name);
  if (at == nullptr) return false;
  if (at->value.kind() == Value::kLong) FreeText(at->value);
  if (node->attribute_capacity > AttributeIndex::kFew)
    AttributeIndex(*node).Remove(static_cast<std::uint32_t>(at - node->attributes));
  std::copy(at + 1, node->attributes + node->attribute_count, at);
  --node->attribute_count;
  return true;
}

}  // namespace rytesavc
