#include "platform/code_pages.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <utility>

#include "platform/double_byte_sets.h"
#include "platform/windows.h"
#include "rytree_host/utf8.h"

namespace platform {

namespace {

struct Known {
  std::string_view name;
  UINT page;
  std::span<const PairRun> beyond;  // what the set has beyond the page, in order
};
constexpr Known kKnown[] = {{"CP932", 932, {}},
                            {"CP936", 936, {}},
                            {"CP949", 949, {}},
                            {"CP950", 950, {}},
                            {"EUC-JP", 20932, {}},
                            {"GB18030", 936, kGb18030BeyondCp936},
                            {"BIG5-HKSCS", 950, kBig5HkscsBeyondCp950}};

bool IsPrivate(char32_t code) { return code >= 0xE000 && code < 0xF900; }

// Whether these bytes stand for no character, or for one of the private use area. The system gives such bytes a place in
// Unicode all the same, so that it can turn them back. First for single bytes.
bool IsFiller(const Known& set, char byte, char32_t code) {
  if (set.page == 20932) return byte == '\x8E' || byte == '\x8F';  // which begin longer characters
  if (byte == '\x80') return set.name != "CP936" && set.page != 950;
  return set.page != 932 && IsPrivate(code);
}
bool IsFiller(const Known& set, unsigned pair, char32_t code) {
  if (set.name == "GB18030") return false;
  if (set.page == 20932 && (pair & 0x80U) == 0) return true;  // the end of three bytes
  if (set.page == 950) return IsPrivate(code) && (pair < 0xC6A1 || pair > 0xC8FE);
  return set.page != 932 && IsPrivate(code);
}

// Page 950 has each of these twice. The system writes the pairs that were added later; these are the first ones.
constexpr std::pair<char32_t, std::string_view> kDoubles[] = {
    {0x2550, "\xA2\xA4"}, {0x255E, "\xA2\xA5"}, {0x2561, "\xA2\xA7"}, {0x256A, "\xA2\xA6"}};

Utf8Character ToUtf8(char32_t code) {
  Utf8Character character{};
  utf8::put(character.data(), code);
  return character;
}

unsigned Byte(char byte) { return static_cast<unsigned char>(byte); }

// The character of a text at that place; a mark belongs to the letter before it.
Utf8Character CharacterAt(const char* text, unsigned place) {
  const auto skip = [](const char* at) {
    utf8::next(at);
    const char* after = at;
    const char32_t mark = *after != '\0' ? utf8::next(after) : 0;
    return mark == 0x304 || mark == 0x30C ? after : at;
  };
  for (; place > 0; --place) text = skip(text);
  Utf8Character character{};
  std::copy(text, skip(text), character.begin());
  return character;
}

class SystemSet : public CharacterSet {
 public:
  explicit SystemSet(const Known& set) : set_(set) {}

  Utf8Character Character(std::string_view bytes) override {
    switch (bytes.size()) {
      case 1:
        return Single(bytes);
      case 2:
        return Pair(bytes);
      case 3:
        return ThreeBytes(bytes);
      default:
        return FourBytes(bytes);
    }
  }
  std::string_view Bytes(char32_t code) override {
    if (code > 0xFFFF) return {};  // which none of the pages has
    for (const auto& [twice, bytes] : kDoubles) {
      if (set_.page == 950 && twice == code) return bytes;
    }
    const auto unit = static_cast<wchar_t>(code);
    BOOL is_replaced = FALSE;
    const int length = WideCharToMultiByte(set_.page, WC_NO_BEST_FIT_CHARS, &unit, 1, bytes_.data(),
                                           static_cast<int>(bytes_.size()), nullptr, &is_replaced);
    return {bytes_.data(), is_replaced != FALSE ? 0 : static_cast<std::size_t>(length)};
  }

 private:
  // The character of the page; 0 if the bytes are not just one.
  char32_t Code(std::string_view bytes) const {
    wchar_t units[4];
    const int count = MultiByteToWideChar(set_.page, MB_ERR_INVALID_CHARS, bytes.data(),
                                          static_cast<int>(bytes.size()), units, 4);
    return count == 1 ? units[0] : 0;
  }

  Utf8Character Single(std::string_view byte) const {
    const char32_t code = Code(byte);
    return IsFiller(set_, byte[0], code) ? Utf8Character{} : ToUtf8(code);
  }

  Utf8Character Pair(std::string_view bytes) const {
    const unsigned pair = Byte(bytes[0]) << 8U | Byte(bytes[1]);
    const auto* const run =
        std::upper_bound(set_.beyond.data(), set_.beyond.data() + set_.beyond.size(), pair,
                         [](unsigned number, const PairRun& each) { return number < each.first; });
    if (run != set_.beyond.data() && pair - run[-1].first < run[-1].count) {
      const Utf8Character character = CharacterAt(run[-1].characters, pair - run[-1].first);
      return character == ToUtf8(0xFFFD) ? Utf8Character{} : character;
    }
    const char32_t code = Code(bytes);
    return IsFiller(set_, pair, code) ? Utf8Character{} : ToUtf8(code);
  }

  // EUC-JP has a second set of pairs after this byte. The page has them with a second byte below 0x80.
  Utf8Character ThreeBytes(std::string_view bytes) const {
    const char pair[] = {bytes[1], static_cast<char>(Byte(bytes[2]) & 0x7FU)};
    const bool is_in_set = set_.page == 20932 && bytes[0] == '\x8F' && Byte(bytes[2]) > 0x80;
    const char32_t code = is_in_set ? Code({pair, 2}) : 0;
    if (bytes.substr(1) == "\xA2\xB7") return ToUtf8(is_in_set ? 0xFF5E : 0);  // the page lacks it
    return IsPrivate(code) ? Utf8Character{} : ToUtf8(code);
  }

  // GB18030 has in four bytes what it does not have in two, and from 0x90308130 all characters that are higher.
  Utf8Character FourBytes(std::string_view bytes) const {
    unsigned number = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      const unsigned least = i % 2 == 0 ? 0x81 : 0x30;
      const unsigned count = i % 2 == 0 ? 126 : 10;
      if (Byte(bytes[i]) - least >= count) return {};
      number = number * count + Byte(bytes[i]) - least;
    }
    if (set_.name != "GB18030") return {};
    constexpr unsigned kHigher = 189000;
    if (number >= kHigher) return ToUtf8(number - kHigher <= 0xFFFFF ? 0x10000 + number - kHigher : 0);
    const auto* const run =
        std::upper_bound(std::begin(kFourByteRuns), std::end(kFourByteRuns), number,
                         [](unsigned wanted, const FourByteRun& each) { return wanted < each.number; }) -
        1;
    return ToUtf8(run->code != 0 ? run->code + number - run->number : 0);
  }

  const Known& set_;
  std::array<char, 8> bytes_{};
};

}  // namespace

std::unique_ptr<CharacterSet> OpenSystemSet(std::string_view name) {
  const auto* const set = std::find_if(std::begin(kKnown), std::end(kKnown),
                                       [name](const Known& each) { return each.name == name; });
  if (set == std::end(kKnown) || IsValidCodePage(set->page) == 0) return nullptr;
  return std::make_unique<SystemSet>(*set);
}

}  // namespace platform
