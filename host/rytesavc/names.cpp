// The names that a tree holds, and which texts can be names.
#include <expat.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <utility>

#include "rytree_host/detail/tree_store.h"

namespace rytesavc {

namespace {

// 2 for the ASCII characters that start names, 1 for those that only go on in them.
constexpr auto kNameCharacters = [] {
  std::array<unsigned char, 256> kinds{};
  for (unsigned char c = '0'; c <= '9'; ++c) kinds[c] = 1;
  for (unsigned char c = 'A'; c <= 'Z'; ++c) kinds[c] = kinds[c + ('a' - 'A')] = 2;
  kinds['-'] = kinds['.'] = 1;
  kinds['_'] = kinds[':'] = 2;
  return kinds;
}();

// Whether these are up to eight ASCII letters and digits, with zeros after them.
bool AreLettersAndDigits(std::size_t length, Word text) {
  constexpr Word kHigh = EachByte(0x80);
  // The high bit of each byte in the range, if all are ASCII.
  const auto in = [](Word bytes, unsigned char first, unsigned char last) {
    return (bytes + EachByte(0x80 - first)) ^ (bytes + EachByte(0x7F - last));
  };
  const Word right = in(text | EachByte(0x20), 'a', 'z') | in(text, '0', '9');
  return (text & kHigh) == 0 && (~right & kFirstBytes[length].low & kHigh) == 0;
}

// The most common names: a letter, then letters and digits.
bool IsUsualName(std::size_t length, const TextWords& words) {
  if (length > TextWords::kBytes || (words.low & 0x40) == 0) return false;
  return AreLettersAndDigits(std::min(length, sizeof(Word)), words.low) &&
         (length <= sizeof(Word) || AreLettersAndDigits(length - sizeof(Word), words.high));
}

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
  const bool parsed =
      XML_Parse(parser.get(), text.data(), static_cast<int>(text.size()), XML_TRUE) == XML_STATUS_OK;
  if (!parsed && XML_GetErrorCode(parser.get()) == XML_ERROR_NO_MEMORY) throw std::bad_alloc();
  return parsed && seen.same;
}

}  // namespace

bool IsName(std::string_view name) {
  constexpr std::size_t kLongest = std::size_t{1} << 24;
  if (name.empty() || name.size() > kLongest) return false;
  if (name[0] == '_' && (name == kNodeId || name == kNodeEscape)) return false;
  const auto kind = [](char c) { return kNameCharacters[static_cast<unsigned char>(c)]; };
  if (std::all_of(name.begin(), name.end(), [kind](char c) { return kind(c) != 0; }))
    return kind(name[0]) == 2;
  return std::any_of(name.begin(), name.end(), [](char c) { return static_cast<signed char>(c) < 0; }) &&
         ParsesAsName(name);
}

const Word Tree::kHashSeed =
    static_cast<Word>(std::chrono::steady_clock::now().time_since_epoch().count()) * 0x9E3779B97F4A7C15 ^
    static_cast<Word>(reinterpret_cast<std::uintptr_t>(&Tree::kHashSeed));

std::uint32_t Tree::HashLong(std::string_view name) {
  Word mixed = name.size();
  for (std::size_t at = 0; at < name.size(); at += TextWords::kBytes) {
    const TextWords words = TextWords::Load(name.data() + std::min(at, name.size() - TextWords::kBytes));
    mixed = Mix({words.low ^ mixed, words.high});
  }
  return static_cast<std::uint32_t>(mixed ^ mixed >> 32);
}

[[gnu::always_inline]] inline const Name* Tree::AddName(std::string_view name, const TextWords& words,
                                                        std::uint32_t hash) {
  if (4 * (name_count_ + 1) > 3 * name_slots_) GrowNames();
  void* const block = memory_.Allocate(NameBytes(name.size()));
  Name* const added = new (block) Name{static_cast<std::uint32_t>(name.size()), hash};
  char* const text = static_cast<char*>(block) + sizeof(Name);
  words.Store(text);
  if (name.size() >= TextWords::kBytes) {
    name.copy(text + TextWords::kBytes, name.npos, TextWords::kBytes);
    text[name.size()] = '\0';
  }
  std::uint32_t slot = hash & (name_slots_ - 1);
  while (names_[slot].name != nullptr) slot = (slot + 1) & (name_slots_ - 1);
  names_[slot] = {added, hash};
  ++name_count_;
  if (name == "xml:space") space_name_ = added;
  return added;
}

const Name* Tree::InternNew(std::string_view name, const TextWords& words, std::uint32_t hash) {
  return IsUsualName(name.size(), words) || IsName(name) ? AddName(name, words, hash) : nullptr;
}

// Most nodes of a branch that is copied share a few names: each is looked up once in a copy.
const Name* Tree::InternCopy(const Name* name, const Tree& of_tree) {
  const Name* const found = FindName(name->view(), name->words(), name->hash);
  name->copied_as = found != nullptr ? found : AddName(name->view(), name->words(), name->hash);
  name->stamp = of_tree.stamps_;
  return name->copied_as;
}

void Tree::GrowNames() {
  constexpr std::uint32_t kMany = 1U << 17;
  const std::uint32_t slots = (name_slots_ < kMany ? 4 : 2) * name_slots_;
  auto names = std::make_unique_for_overwrite<NameSlot[]>(slots);
  std::memset(names.get(), 0, slots * sizeof(NameSlot));
  for (std::uint32_t i = 0; i < name_slots_; ++i) {
    if (names_[i].name == nullptr) continue;
    std::uint32_t slot = names_[i].hash & (slots - 1);
    while (names[slot].name != nullptr) slot = (slot + 1) & (slots - 1);
    names[slot] = names_[i];
  }
  more_names_ = std::move(names);
  names_ = more_names_.get();
  name_slots_ = slots;
}

}  // namespace rytesavc
