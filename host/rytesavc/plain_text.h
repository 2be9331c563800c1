// Texts of plain XML: what their references and line ends stand for, and what an XML declaration may say.
#pragma once

#include <string_view>

namespace rytesavc {

enum class TextKind { kContent, kAttribute, kCData };

// Writes what the text means. That is never longer than the text, so it may be written over it. The 8 bytes
// after the text must be readable. Gives the end of what was written; null for a reference that is neither
// one of XML's five names nor the number of a character.
char* Decode(const char* from, const char* end, TextKind kind, char* to);

// Whether "<?xml", this text and "?>" are a declaration of version 1.0 in UTF-8.
bool IsPlainDeclaration(std::string_view text);

}  // namespace rytesavc
