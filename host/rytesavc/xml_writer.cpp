#include "xml_writer.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <new>
#include <utility>
#include <vector>

#include "rytree_host/utf8.h"
#include "white_space.h"
#include "xml_characters.h"

namespace rytesavc {

namespace {

enum Kind : unsigned char { kItself, kReference, kBackslash, kHigh, kNoCharacter };
using Kinds = std::array<Kind, 256>;

// How each byte is written, with these as references.
constexpr Kinds MakeKinds(std::string_view references) {
  Kinds kinds{};
  for (std::size_t byte = 0; byte < 0x20; ++byte) kinds[byte] = kNoCharacter;
  for (std::size_t byte = 0x80; byte < 0x100; ++byte) kinds[byte] = kHigh;
  for (const char c : {'\t', '\n'}) kinds[static_cast<unsigned char>(c)] = kItself;
  for (const char c : references) kinds[static_cast<unsigned char>(c)] = kReference;
  kinds['\\'] = kBackslash;
  return kinds;
}
constexpr Kinds kTextKinds = MakeKinds("&<>\r");
constexpr Kinds kAttributeKinds = MakeKinds("&<>\r\"\t\n");

constexpr std::string_view Reference(char c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\t':
      return "&#9;";
    case '\n':
      return "&#10;";
    default:
      return "&#13;";
  }
}

char* Hexadecimal(char c, char* to) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  const auto byte = static_cast<unsigned char>(c);
  *to++ = '\\';
  *to++ = kDigits[byte >> 4U];
  *to++ = kDigits[byte & 15U];
  return to;
}

// ---- Most names and texts are so short that a call of memcpy would take longer than the copy.

template <class Word>
Word Load(const char* from) {
  Word word;
  std::memcpy(&word, from, sizeof word);
  return word;
}

template <class Word>
void Store(char* to, Word word) {
  std::memcpy(to, &word, sizeof word);
}

template <class Word>
char* CopyEnds(const char* from, std::size_t length, char* to) {
  const std::size_t rest = length - sizeof(Word);
  const Word last = Load<Word>(from + rest);
  Store(to, Load<Word>(from));
  Store(to + rest, last);
  return to + length;
}

inline char* Copy(std::string_view text, char* to) {
  const char* const from = text.data();
  const std::size_t length = text.size();
  if (length > 16) return std::copy_n(from, length, to);
  if (length >= 8) return CopyEnds<std::uint64_t>(from, length, to);
  if (length >= 4) return CopyEnds<std::uint32_t>(from, length, to);
  for (std::size_t i = 0; i < length; ++i) to[i] = from[i];
  return to + length;
}

// Whether a byte of the word may have to be written as something else: a control character, one of "&<>\ or a byte
// beyond ASCII. Each term of `marks` has the high bit of such a byte.
constexpr bool MayBeSpecial(std::uint64_t word) {
  constexpr std::uint64_t kOnes = EachByte(1);
  const std::uint64_t quote_or_ampersand = (word | EachByte('"' ^ '&')) ^ EachByte('"' | '&');
  const std::uint64_t less_or_greater = (word | EachByte('<' ^ '>')) ^ EachByte('<' | '>');
  const std::uint64_t backslash = word ^ EachByte('\\');
  const std::uint64_t marks = word | (word - EachByte(0x20)) | (quote_or_ampersand - kOnes) |
                              (less_or_greater - kOnes) | (backslash - kOnes);
  return (marks & EachByte(0x80)) != 0;
}

// The functions below write to where `to` points and give the place after what they wrote.
class Writer {
 public:
  // Without a file everything stays in the block.
  Writer(const Tree& tree, const CodePage* page, OutputFile* file)
      : page_(page), file_(file), space_name_(tree.space_name()) {
    if (space_name_ != nullptr) keeps_space_.resize(Tree::kMaxDepth + 1);
  }

  // Null if the file takes it no further.
  char* Write(const Node* top, char* to);
  char* Put(std::string_view text, char* to) { return Copy(text, block_.Room(to, text.size())); }
  char* Flush(char* to);
  Output TakeBlock() { return std::move(block_); }

 private:
  // The most bytes that one is written as.
  static constexpr std::size_t kLongest = 6;
  static constexpr std::size_t kLongestNumber = 11;

  char* Element(const Node* node, char* to);
  // These two give null if the element needs the mark.
  char* Start(const Node* node, char* to);
  char* Content(const Node* node, char* to);
  char* End(const Node* node, char* to);
  // The tags that follow are at that level.
  void GoTo(std::size_t level) {
    if (space_name_ != nullptr) layout_ = file_ != nullptr && !keeps_space_[level];
  }
  char* NewLine(std::size_t level, char* to);
  char* AttributeStart(std::string_view name, char* to);
  char* PutNumber(int number, char* to);
  char* PutValue(const Value& value, const Kinds& kinds, char* to);
  std::size_t PutSpecial(std::string_view rest, Kind kind, char*& to) const;
  std::size_t PutCharacter(std::string_view rest, char*& to) const;

  Output block_;
  bool marked_ = false;  // whether the current element has the mark
  const CodePage* page_;
  OutputFile* file_;
  bool layout_ = file_ != nullptr;  // whether the tags at hand are on lines of their own
  // Where the tree has the attribute xml:space: for each level, whether white space between its elements is text.
  const Name* space_name_;
  std::vector<bool> keeps_space_;
  bool element_keeps_space_ = false;
};

char* Writer::Write(const Node* top, char* to) {
  constexpr std::ptrdiff_t kPiece = 1 << 16;
  const Node* node = top;
  for (std::size_t level = 0;;) {
    if (space_name_ != nullptr)
      keeps_space_[level + 1] = element_keeps_space_ =
          KeepsWhiteSpace(*node, space_name_, keeps_space_[level]);
    to = Element(node, to);
    if (node->first != nullptr) {
      GoTo(++level);
      if (node->text.empty()) to = NewLine(level, to);
      node = node->first;
      continue;
    }
    while (node != top && node->next == nullptr) {
      node = node->parent;
      to = End(node, NewLine(--level, to));
      GoTo(level);
    }
    if (node == top) return to;
    if (file_ != nullptr && to - block_.start() >= kPiece) {
      to = Flush(to);
      if (to == nullptr) return nullptr;
    }
    to = NewLine(level, to);
    node = node->next;
  }
}

char* Writer::Flush(char* to) {
  char* const start = block_.start();
  return file_->Write({start, static_cast<std::size_t>(to - start)}) ? start : nullptr;
}

// Writes the start tag and the text, and the end tag of a leaf. Few elements need the mark. One that does is
// written a second time.
char* Writer::Element(const Node* node, char* to) {
  const std::ptrdiff_t place = to - block_.start();
  marked_ = false;
  if (char* const end = Start(node, to)) return end;
  marked_ = true;
  return Start(node, block_.start() + place);
}

char* Writer::Start(const Node* node, char* to) {
  const std::string_view tag = node->tag->view();
  to = block_.Room(to, 1 + tag.size());
  *to = '<';
  to = Copy(tag, to + 1);
  if (node->id != -1) to = Put("\"", PutNumber(node->id, AttributeStart(kNodeId, to)));
  if (marked_) to = Put("1\"", AttributeStart(kNodeEscape, to));
  for (std::uint32_t i = 0; i < node->attribute_count; ++i) {
    const Attribute& attribute = node->attributes[i];
    to = PutValue(attribute.value, kAttributeKinds, AttributeStart(attribute.name->view(), to));
    if (to == nullptr) return nullptr;
    to = Put("\"", to);
  }
  if (node->first == nullptr && node->text.empty()) return Put("/>", to);
  to = Content(node, Put(">", to));
  return to != nullptr && node->first == nullptr ? End(node, to) : to;
}

// A branch's text of nothing but white space would be taken for layout where xml:space does not keep it.
char* Writer::Content(const Node* node, char* to) {
  const Value& text = node->text;
  const std::string_view view(text.chars(), text.kind() == Value::kInt ? 0 : text.length());
  const bool like_layout = !view.empty() && node->first != nullptr && !element_keeps_space_ &&
                           std::all_of(view.begin(), view.end(), IsXmlBlank);
  if (!like_layout) return PutValue(text, kTextKinds, to);
  if (!marked_) return nullptr;
  to = block_.Room(to, 3 * view.size());
  for (const char c : view) to = Hexadecimal(c, to);
  return to;
}

char* Writer::End(const Node* node, char* to) {
  const std::string_view tag = node->tag->view();
  to = block_.Room(to, tag.size() + 3);
  to = Copy(tag, Copy("</", to));
  *to = '>';
  return to + 1;
}

char* Writer::NewLine(std::size_t level, char* to) {
  // Deeper levels are indented no further, or deep trees would be mostly blanks.
  constexpr std::size_t kDeepest = 32;
  if (!layout_) return to;
  to = block_.Room(to, 1 + 2 * kDeepest);
  *to = '\n';
  return std::fill_n(to + 1, 2 * std::min(level, kDeepest), ' ');
}

char* Writer::AttributeStart(std::string_view name, char* to) {
  to = block_.Room(to, name.size() + 3);
  *to = ' ';
  return Copy("=\"", Copy(name, to + 1));
}

char* Writer::PutNumber(int number, char* to) {
  to = block_.Room(to, kLongestNumber);
  return std::to_chars(to, to + kLongestNumber, number).ptr;
}

// Null if a byte needs the mark.
char* Writer::PutValue(const Value& value, const Kinds& kinds, char* to) {
  if (value.kind() == Value::kInt) return PutNumber(value.number(), to);
  constexpr std::ptrdiff_t kStep = sizeof(std::uint64_t);
  const char* at = value.chars();
  const char* const end = at + value.length();
  while (at != end) {
    to = block_.Room(to, kLongest * (kStep + 4));  // a character of four bytes may start on the last one
    if (end - at >= kStep) {
      const auto word = Load<std::uint64_t>(at);
      if (!MayBeSpecial(word)) {
        Store(to, word);
        at += kStep;
        to += kStep;
        continue;
      }
    }
    for (const char* const stop = at + std::min(end - at, kStep); at < stop;) {
      const Kind kind = kinds[static_cast<unsigned char>(*at)];
      if (kind == kItself) {
        *to++ = *at++;
        continue;
      }
      const std::size_t taken = PutSpecial({at, static_cast<std::size_t>(end - at)}, kind, to);
      if (taken == 0) return nullptr;
      at += taken;
    }
  }
  return to;
}

// Writes what starts the text and gives its length, 0 if it needs the mark.
std::size_t Writer::PutSpecial(std::string_view rest, Kind kind, char*& to) const {
  if (kind == kReference) {
    const std::string_view reference = Reference(rest[0]);
    to = std::copy(reference.begin(), reference.end(), to);
    return 1;
  }
  if (kind == kHigh) {
    if (const std::size_t taken = PutCharacter(rest, to)) return taken;
  }
  if (kind == kBackslash && !marked_) {
    *to++ = '\\';
    return 1;
  }
  if (!marked_) return 0;
  to = Hexadecimal(rest[0], to);
  return 1;
}

std::size_t Writer::PutCharacter(std::string_view rest, char*& to) const {
  if (page_ == nullptr) {
    const std::size_t length = CharacterLength(rest);
    to = std::copy_n(rest.data(), length, to);
    return length;
  }
  const char* end = rest.data();
  const char32_t code = page_->Next(end, rest.size());
  if (code >= utf8::kStray) return 0;
  std::string utf8;
  utf8::append(utf8, code);
  to = std::copy(utf8.begin(), utf8.end(), to);
  return static_cast<std::size_t>(end - rest.data());
}

}  // namespace

char* Output::Grow(char* at, std::size_t bytes) {
  constexpr std::size_t kFirst = 512;
  const auto used = static_cast<std::size_t>(at - block_.get());
  const std::size_t room =
      std::max({2 * static_cast<std::size_t>(end_ - block_.get()), used + bytes, kFirst});
  char* const block = static_cast<char*>(std::realloc(block_.get(), room));
  if (block == nullptr) throw std::bad_alloc();
  static_cast<void>(block_.release());
  block_.reset(block);
  end_ = block + room;
  return block + used;
}

XmlText WriteXml(const Tree& tree, const Node* top, const CodePage* page) {
  Writer writer(tree, page, nullptr);
  const char* const end = writer.Write(top, nullptr);
  XmlText made{writer.TakeBlock(), {}};
  made.text = {made.block.start(), static_cast<std::size_t>(end - made.block.start())};
  return made;
}

bool WriteXml(const Tree& tree, const Node* top, const CodePage* page, OutputFile& file) {
  Writer writer(tree, page, &file);
  char* const end = writer.Write(top, writer.Put("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n", nullptr));
  return end != nullptr && writer.Flush(writer.Put("\n", end)) != nullptr;
}

}  // namespace rytesavc
