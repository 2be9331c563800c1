// The encoding of the narrow strings, and the way between it and UTF-8.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace rytesavc {

// One code page as tables. A character is in them if the platform's conversion takes it to Unicode and back
// to the same bytes. Bytes below 0x80 stand for themselves in every page.
class CodePage {
 public:
  // The page set last; null for UTF-8, where there is nothing to convert.
  static const CodePage* Default();
  // Null if the platform does not know the character set. `pairs`: it has characters of two bytes.
  static std::unique_ptr<const CodePage> Build(const char* charset, bool pairs);

  // Reads the first character of a text that starts with a byte from 0x80 up, and gives its length in bytes;
  // 0 if the bytes are not a character.
  std::size_t Read(std::string_view text, char32_t& code) const {
    const auto first = static_cast<unsigned char>(text[0]);
    if ((code = codes_[first]) != 0) return 1;
    if (text.size() < 2) return 0;
    code = codes_[std::size_t{256} * first + static_cast<unsigned char>(text[1])];
    return code != 0 ? 2 : 0;
  }
  // False if there are bytes that are not a character; only what comes before them is converted then.
  bool ToUtf8(std::string_view text, std::string& utf8) const;
  // Appends well-formed UTF-8. A character that the page lacks becomes a reference, "&#960;", and the
  // result is false.
  bool FromUtf8(std::string_view utf8, std::string& text) const;

 private:
  CodePage() = default;

  // Codes by bytes (of a pair, the first is the high byte), and bytes by codes; 0 for none.
  char16_t codes_[0x10000] = {};
  char16_t bytes_[0x10000] = {};
};

// What each byte means in a character set of single bytes, -1 for nothing. False for an unknown name.
bool SingleByteCodes(const char* charset, int (&codes)[256]);

}  // namespace rytesavc
