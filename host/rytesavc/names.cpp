// The names that a tree holds, and which texts can be names.
#include <expat.h>

#include <memory>
#include <new>
#include <string>
#include <utility>

#include "rytree_host/detail/tree_store.h"

namespace rytesavc {

namespace {

constexpr std::uint32_t Hash(std::string_view text) {
  std::uint32_t hash = 2166136261U;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
  return hash ^ hash >> 15;
}

bool IsNameStart(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || c == ':'; }
bool IsNameChar(char c) { return IsNameStart(c) || (c >= '0' && c <= '9') || c == '-' || c == '.'; }

// Whether the XML parser accepts the name. Asked only for names beyond ASCII, once for each name of a tree.
bool ParsesAsName(std::string_view name) {
  const std::unique_ptr<XML_ParserStruct, void (*)(XML_Parser)> parser(XML_ParserCreate("UTF-8"),
                                                                       XML_ParserFree);
  if (parser == nullptr) throw std::bad_alloc();
  struct Seen {
    std::string_view wanted;
    bool same = false;
  } seen{name};
  XML_SetUserData(parser.get(), &seen);
  XML_SetStartElementHandler(parser.get(),
                             [](void* data, const XML_Char* element, const XML_Char** attributes) {
                               auto* const at = static_cast<Seen*>(data);
                               at->same = element == at->wanted && *attributes == nullptr;
                             });
  const std::string text = std::string("<").append(name).append("/>");
  return XML_Parse(parser.get(), text.data(), static_cast<int>(text.size()), XML_TRUE) == XML_STATUS_OK &&
         seen.same;
}

bool IsName(std::string_view name) {
  constexpr std::size_t kLongest = std::size_t{1} << 24;
  if (name.empty() || name.size() > kLongest || name == kNodeId || name == kNodeEscape) return false;
  bool ascii = IsNameStart(name[0]);
  for (const char c : name) {
    if (static_cast<signed char>(c) < 0) return ParsesAsName(name);
    ascii = ascii && IsNameChar(c);
  }
  return ascii;
}

}  // namespace

const Name* Tree::FindName(std::string_view name) const {
  const std::uint32_t hash = Hash(name);
  const std::uint32_t mask = name_slots_ - 1;
  for (std::uint32_t slot = hash & mask;; slot = (slot + 1) & mask) {
    const Name* const at = names_[slot];
    if (at == nullptr || (at->hash == hash && at->view() == name)) return at;
  }
}

const Name* Tree::Intern(std::string_view name) {
  if (const Name* const found = FindName(name)) return found;
  return IsName(name) ? AddName(name, Hash(name)) : nullptr;
}

// Most nodes of a branch that is copied share a few names: each is looked up once in a copy.
const Name* Tree::Intern(const Name* name, const Tree& of_tree) {
  if (&of_tree == this) return name;
  if (name->copied_in != of_tree.copies_) {
    const Name* const found = FindName(name->view());
    name->copied_as = found != nullptr ? found : AddName(name->view(), name->hash);
    name->copied_in = of_tree.copies_;
  }
  return name->copied_as;
}

const Name* Tree::AddName(std::string_view name, std::uint32_t hash) {
  if (2 * (name_count_ + 1) > name_slots_) GrowNames();
  void* const block = memory_.Allocate(sizeof(Name) + name.size() + 1);
  Name* const added = new (block) Name{static_cast<std::uint32_t>(name.size()), hash, 0, nullptr};
  char* const text = static_cast<char*>(block) + sizeof(Name);
  std::memcpy(text, name.data(), name.size());
  text[name.size()] = '\0';
  std::uint32_t slot = hash & (name_slots_ - 1);
  while (names_[slot] != nullptr) slot = (slot + 1) & (name_slots_ - 1);
  names_[slot] = added;
  ++name_count_;
  return added;
}

void Tree::GrowNames() {
  const std::uint32_t slots = 2 * name_slots_;
  auto names = std::make_unique<const Name*[]>(slots);
  for (std::uint32_t i = 0; i < name_slots_; ++i) {
    if (names_[i] == nullptr) continue;
    std::uint32_t slot = names_[i]->hash & (slots - 1);
    while (names[slot] != nullptr) slot = (slot + 1) & (slots - 1);
    names[slot] = names_[i];
  }
  more_names_ = std::move(names);
  names_ = more_names_.get();
  name_slots_ = slots;
}

}  // namespace rytesavc
