#include "plain_text.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string>

#include "rytree_host/detail/text_words.h"
#include "rytree_host/utf8.h"
#include "xml_characters.h"

namespace rytesavc {

namespace {

struct Reference {
  Word text;  // after the '&'
  Word mask;
  std::size_t length;
  char character;
};
constexpr Reference Named(std::string_view text, char character) {
  return {WordOf(text), kFirstBytes[text.size()].low, text.size(), character};
}
constexpr Reference kReferences[] = {Named("amp;", '&'), Named("lt;", '<'), Named("gt;", '>'),
                                     Named("quot;", '"'), Named("apos;", '\'')};

// Writes the character with that number. Null if XML has none.
char* PutNumbered(std::string_view digits, char* to) {
  const bool hexadecimal = digits.starts_with('x');
  if (hexadecimal) digits.remove_prefix(1);
  std::uint32_t code = 0;
  const char* const end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, code, hexadecimal ? 16 : 10);
  if (error != std::errc() || stop != end || !IsXmlCharacter(code)) return nullptr;
  std::string character;
  utf8::append(character, code);
  return std::copy(character.begin(), character.end(), to);
}

// Writes the character of the reference whose '&' is before `from`, and moves past it.
char* PutReference(const char*& from, const char* end, char* to) {
  const Word text = LoadWord(from);
  for (const auto& [name, mask, length, character] : kReferences) {
    if ((text & mask) != name) continue;
    from += length;
    *to = character;
    return to + 1;
  }
  const std::string_view rest(from, end);
  const std::size_t length = rest.find(';');
  if (length == rest.npos || rest[0] != '#') return nullptr;
  from += length + 1;
  return PutNumbered(rest.substr(1, length - 1), to);
}

// Takes ` name="value"` off the text. False, and nothing taken, if it does not start with that.
bool TakePart(std::string_view& text, std::string_view name, std::string_view& value) {
  const auto blanks = [](std::string_view from) {
    return static_cast<std::size_t>(std::find_if_not(from.begin(), from.end(), IsXmlBlank) - from.begin());
  };
  std::string_view rest = text;
  const auto take = [&rest](std::string_view start) {
    if (!rest.starts_with(start)) return false;
    rest.remove_prefix(start.size());
    return true;
  };
  const std::size_t before = blanks(rest);
  rest.remove_prefix(before);
  if (before == 0 || !take(name)) return false;
  rest.remove_prefix(blanks(rest));
  if (!take("=")) return false;
  rest.remove_prefix(blanks(rest));
  const char quote = rest.empty() ? '\0' : rest[0];
  if (!take("\"") && !take("'")) return false;
  const std::size_t length = rest.find(quote);
  if (length == rest.npos) return false;
  value = rest.substr(0, length);
  text = rest.substr(length + 1);
  return true;
}

}  // namespace

char* Decode(const char* from, const char* end, TextKind kind, char* to) {
  while (from != end) {
    char c = *from++;
    if (c == '&' && kind != TextKind::kCData) {
      to = PutReference(from, end, to);
      if (to == nullptr) return nullptr;
      continue;
    }
    if (c == '\r') {
      if (from != end && *from == '\n') ++from;
      c = '\n';
    }
    *to++ = kind == TextKind::kAttribute && IsXmlBlank(c) ? ' ' : c;
  }
  return to;
}

bool IsPlainDeclaration(std::string_view text) {
  constexpr std::string_view kUtf8 = "utf-8";
  const auto same = [](char a, char b) { return a == b || (b >= 'a' && (a | 0x20) == b); };
  std::string_view value;
  if (!TakePart(text, "version", value) || value != "1.0") return false;
  if (TakePart(text, "encoding", value) &&
      !std::equal(value.begin(), value.end(), kUtf8.begin(), kUtf8.end(), same))
    return false;
  if (TakePart(text, "standalone", value) && value != "yes" && value != "no") return false;
  return std::all_of(text.begin(), text.end(), IsXmlBlank);
}

}  // namespace rytesavc
