#include "xml_writer.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <new>

#include "rytree_host/utf8.h"

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

// The length of the first character; 0 for bytes that are not one, and for the two that XML leaves out.
std::size_t CharacterLength(std::string_view text) {
  const char* end = text.data();
  const char32_t code = utf8::next(end, text.size());
  const bool in_xml = code < utf8::kStray && code != 0xFFFE && code != 0xFFFF;
  return in_xml ? static_cast<std::size_t>(end - text.data()) : 0;
}

char* Hexadecimal(char c, char* to) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  const auto byte = static_cast<unsigned char>(c);
  *to++ = '\\';
  *to++ = kDigits[byte >> 4U];
  *to++ = kDigits[byte & 15U];
  return to;
}

class Writer {
 public:
  Writer(bool layout, const CodePage* page) : layout_(layout), page_(page) {}

  void Write(const Node* top);
  Output out;

 private:
  // The most bytes that one is written as.
  static constexpr std::size_t kLongest = 6;

  bool Start(const Node* node);
  bool Content(const Node* node);
  void End(const Node* node);
  void NewLine(std::size_t level);
  void StartAttribute(std::string_view name);
  void PutNumber(int number);
  bool PutValue(const Value& value, const Kinds& kinds);
  std::size_t PutSpecial(std::string_view rest, Kind kind, char*& to) const;
  std::size_t PutCharacter(std::string_view rest, char*& to) const;

  bool layout_;
  bool marked_ = false;  // whether the current element has the mark
  const CodePage* page_;
};

void Writer::Write(const Node* top) {
  const Node* node = top;
  for (std::size_t level = 0;;) {
    // Few elements need the mark. One that does is written a second time.
    const std::size_t start = out.size();
    marked_ = false;
    if (!Start(node)) {
      out.Truncate(start);
      marked_ = true;
      Start(node);
    }
    if (node->first != nullptr) {
      ++level;
      if (node->text.empty()) NewLine(level);
      node = node->first;
      continue;
    }
    while (node != top && node->next == nullptr) {
      node = node->parent;
      NewLine(--level);
      End(node);
    }
    if (node == top) return;
    NewLine(level);
    node = node->next;
  }
}

// Writes the start tag and the text, and the end tag of a leaf. False if the element needs the mark.
bool Writer::Start(const Node* node) {
  out.Put("<");
  out.Put(node->tag->view());
  if (node->id != -1) {
    StartAttribute(kNodeId);
    PutNumber(node->id);
    out.Put("\"");
  }
  if (marked_) {
    StartAttribute(kNodeEscape);
    out.Put("1\"");
  }
  for (std::uint32_t i = 0; i < node->attribute_count; ++i) {
    const Attribute& attribute = node->attributes[i];
    StartAttribute(attribute.name->view());
    if (!PutValue(attribute.value, kAttributeKinds)) return false;
    out.Put("\"");
  }
  if (node->first == nullptr && node->text.empty()) {
    out.Put("/>");
    return true;
  }
  out.Put(">");
  if (!Content(node)) return false;
  if (node->first == nullptr) End(node);
  return true;
}

// A branch's text of nothing but white space would be taken for layout.
bool Writer::Content(const Node* node) {
  const Value& text = node->text;
  const std::string_view view(text.chars(), text.kind() == Value::kInt ? 0 : text.length());
  if (view.empty() || node->first == nullptr || !std::all_of(view.begin(), view.end(), IsXmlBlank)) {
    return PutValue(text, kTextKinds);
  }
  if (!marked_) return false;
  char* to = out.Open(3 * view.size());
  for (const char c : view) to = Hexadecimal(c, to);
  out.Close(to);
  return true;
}

void Writer::End(const Node* node) {
  out.Put("</");
  out.Put(node->tag->view());
  out.Put(">");
}

void Writer::NewLine(std::size_t level) {
  // Deeper levels are indented no further, or deep trees would be mostly blanks.
  constexpr std::size_t kDeepest = 32;
  if (!layout_) return;
  char* const to = out.Open(1 + 2 * kDeepest);
  *to = '\n';
  out.Close(std::fill_n(to + 1, 2 * std::min(level, kDeepest), ' '));
}

void Writer::StartAttribute(std::string_view name) {
  char* const to = out.Open(name.size() + 3);
  *to = ' ';
  char* const end = std::copy(name.begin(), name.end(), to + 1);
  out.Close(std::copy_n("=\"", 2, end));
}

void Writer::PutNumber(int number) {
  constexpr std::size_t kLongestNumber = 11;
  char* const to = out.Open(kLongestNumber);
  out.Close(std::to_chars(to, to + kLongestNumber, number).ptr);
}

// False if a byte needs the mark.
bool Writer::PutValue(const Value& value, const Kinds& kinds) {
  if (value.kind() == Value::kInt) {
    PutNumber(value.number());
    return true;
  }
  constexpr std::size_t kStretch = 256;
  const char* at = value.chars();
  const char* const end = at + value.length();
  while (at != end) {
    const char* const stop = at + std::min(static_cast<std::size_t>(end - at), kStretch);
    char* to = out.Open(kLongest * (kStretch + 4));  // a character of four bytes may start on the last one
    while (at < stop) {
      const Kind kind = kinds[static_cast<unsigned char>(*at)];
      if (kind == kItself) {
        *to++ = *at++;
        continue;
      }
      const std::size_t taken = PutSpecial({at, static_cast<std::size_t>(end - at)}, kind, to);
      if (taken == 0) return false;
      at += taken;
    }
    out.Close(to);
  }
  return true;
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
  char32_t code = 0;
  const std::size_t taken = page_->Read(rest, code);
  if (taken == 0) return 0;
  std::string utf8;
  utf8::append(utf8, code);
  to = std::copy(utf8.begin(), utf8.end(), to);
  return taken;
}

}  // namespace

void Output::Grow(std::size_t bytes) {
  constexpr std::size_t kFirst = 512;
  const std::size_t room = std::max({2 * room_, size_ + bytes, kFirst});
  char* const block = static_cast<char*>(std::realloc(block_.get(), room));
  if (block == nullptr) throw std::bad_alloc();
  static_cast<void>(block_.release());
  block_.reset(block);
  room_ = room;
}

Output WriteXml(const Node* top, XmlForm form, const CodePage* page) {
  const bool file = form == XmlForm::kFile;
  Writer writer(file, page);
  if (file) writer.out.Put("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
  writer.Write(top);
  if (file) writer.out.Put("\n");
  return std::move(writer.out);
}

}  // namespace rytesavc
