#include "plain_text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "plain_scan.h"
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

// Writes the character whose number is between "&#" and ';', and moves past it. Null if XML has none, or if the text
// ends there.
[[gnu::always_inline]] inline char* PutNumbered(char*& from, char* to) {
  const bool hexadecimal = from[2] == 'x';
  const unsigned base = hexadecimal ? 16 : 10;
  char* at = from + (hexadecimal ? 3 : 2);
  std::uint32_t code = 0;
  for (unsigned digit = 0; (digit = static_cast<unsigned>(HexDigit(*at))) < base; ++at) {
    code = base * code + digit;
    if (code > 0x10FFFF) return nullptr;
  }
  const bool right = *at == ';' && IsXmlCharacter(code);  // without digits it is 0, which is none
  if (right || *at == '\0') from = at + right;
  return right ? utf8::put(to, code) : nullptr;
}

// Writes the character of the reference at `from`, and moves past it. Null for others.
[[gnu::always_inline]] inline char* PutReference(char*& from, char* to) {
  if (from[1] == '#') return PutNumbered(from, to);
  const Word text = LoadWord(from + 1);
  for (const auto& [name, mask, length, character] : kReferences) {
    if ((text & mask) != name) continue;
    from += 1 + length;
    *to = character;
    return to + 1;
  }
  return nullptr;
}

// Copies 16 bytes at a time. What is written beyond the end is written over. Gives the end.
char* CopyStretch(const char* from, const char* end, char* to) {
  char* const to_end = to + (end - from);
  for (; from < end; from += TextWords::kBytes, to += TextWords::kBytes) TextWords::Load(from).Store(to);
  return to_end;
}

template <bool kIsValue, char... kStops>
DecodedText DecodeAs(const char* text, char* from, char* const start) {
  char* to = CopyStretch(text, from, start);
  for (;;) {
    if (*from == '&') {
      char* const after = PutReference(from, to);
      if (after == nullptr) break;
      to = after;
    } else if (IsXmlBlank(*from)) {
      *to++ = kIsValue ? ' ' : *from == '\r' ? '\n' : *from;
      from += from[0] == '\r' && from[1] == '\n' ? 2 : 1;
    } else if (static_cast<signed char>(*from) < 0) {
      char* const end = SkipMixed<kStops...>(from);
      if (end == from) break;
      to = CopyStretch(from, end, to);
      from = end;
    } else if (!kIsValue && IsLoneBracket(from)) {
      *to++ = *from++;
    } else {
      break;
    }
    for (std::size_t length = TextWords::kBytes; length == TextWords::kBytes; from += length, to += length) {
      TextWords::Load(from).Store(to);
      length = FirstStop<0x20, kStops...>(from);
    }
  }
  return {{start, to}, from};
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

DecodedText Decode(TextKind kind, const char* text, char* from, char* to) {
  switch (kind) {
    case TextKind::kContent:
      return DecodeAs<false, '<', '&', ']'>(text, from, to);
    case TextKind::kCData:
      return DecodeAs<false, ']'>(text, from, to);
    case TextKind::kQuoted:
      return DecodeAs<true, '"', '&', '<'>(text, from, to);
    default:
      return DecodeAs<true, '\'', '&', '<'>(text, from, to);
  }
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
