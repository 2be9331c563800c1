// Texts of plain XML: what their references and line ends stand for, and what an XML declaration may say.
#pragma once

#include <string_view>

namespace rytesavc {

enum class TextKind { kContent, kCData, kQuoted, kInApostrophes };

struct DecodedText {
  std::string_view text;
  char* end;  // of what was decoded
};

// Writes what the text means, up to what ends it or is wrong. Up to `from` it means itself. What is written is never
// longer than the text, but up to 16 bytes after it are written too. The text is padded as in plain_scan.h.
DecodedText Decode(TextKind kind, const char* text, char* from, char* to);

// Whether this is a ']' that is text, and does not end a CDATA section.
inline bool IsLoneBracket(const char* at) { return *at == ']' && (at[1] != ']' || at[2] != '>'); }

// Whether a byte at which the search for the end of a text stopped is text like the others.
inline bool MeansItself(const char* at) { return *at == '\n' || *at == '\t' || IsLoneBracket(at); }

// Whether "<?xml", this text and "?>" are a declaration of version 1.0 in UTF-8.
bool IsPlainDeclaration(std::string_view text);

}  // namespace rytesavc
