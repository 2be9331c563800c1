#include "platform/code_pages.h"

#include <algorithm>
#include <array>
#include <vector>

#include "platform/windows.h"

namespace platform {

namespace {

constexpr char32_t kNone = 0;

bool IsPrivate(char32_t code) { return code >= 0xE000 && code < 0xF900; }

// Whether the system gives bytes that stand for nothing, or for what everybody may choose for himself, a
// place in Unicode, so that they come back.
bool IsFiller(int page, unsigned bytes, char32_t code) {
  switch (page) {
    case 932:
      return bytes == 0x80;
    case 936:
    case 949:
      return bytes == 0x80 || IsPrivate(code);
    case 950:
      return IsPrivate(code) && (bytes < 0xC6A1 || bytes > 0xC8FE);
    case 1255:
      return IsPrivate(code) || bytes == 0xCA || (code >= 0x80 && code < 0xA0);
    default:
      return ((page > 1249 && page < 1259) || page == 874) &&
             (IsPrivate(code) || (code >= 0x80 && code < 0xA0));
  }
}

// The character of a code page of the system, if the bytes are just one; else 0.
char32_t SystemCode(int page, std::string_view bytes) {
  wchar_t units[4];
  const int length = static_cast<int>(bytes.size());
  if (MultiByteToWideChar(static_cast<UINT>(page), MB_ERR_INVALID_CHARS, bytes.data(), length, units, 4) != 1)
    return kNone;
  return units[0];
}

// The same for what is more than a filler.
char32_t MeantCode(int page, std::string_view bytes) {
  unsigned number = 0;
  for (const char byte : bytes) number = number << 8U | static_cast<unsigned char>(byte);
  const char32_t code = SystemCode(page, bytes);
  return IsFiller(page, number, code) ? kNone : code;
}

// Page 950 has these twice, and the system writes those that came later.
struct Double {
  char32_t code;
  std::string_view bytes;
};
constexpr Double kDoubles[] = {
    {0x2550, "\xA2\xA4"}, {0x255E, "\xA2\xA5"}, {0x2561, "\xA2\xA7"}, {0x256A, "\xA2\xA6"}};

}  // namespace

class CharacterSet::Work {
 public:
  int page;
  char bytes[8] = {};
};

CharacterSet::CharacterSet(int number, const char* /*name*/) : work_(std::make_unique<Work>()) {
  work_->page = number;
}
CharacterSet::~CharacterSet() = default;

bool CharacterSet::is_known() const { return IsValidCodePage(static_cast<UINT>(work_->page)) != 0; }

char32_t CharacterSet::Code(std::string_view bytes) { return MeantCode(work_->page, bytes); }

std::string_view CharacterSet::Bytes(char32_t code) {
  for (const Double& twice : kDoubles) {
    if (work_->page == 950 && twice.code == code) return twice.bytes;
  }
  const auto unit = static_cast<wchar_t>(code);
  BOOL is_replaced = FALSE;
  const int length = WideCharToMultiByte(static_cast<UINT>(work_->page), WC_NO_BEST_FIT_CHARS, &unit, 1,
                                         work_->bytes, sizeof work_->bytes, nullptr, &is_replaced);
  return {work_->bytes, is_replaced ? 0 : static_cast<std::size_t>(length)};
}

namespace {

struct Known {
  std::string_view charset;
  int page;
};
constexpr Known kKnown[] = {
    {"UTF-8", 65001},       {"ASCII", 20127},       {"ISO-8859-1", 28591},  {"ISO-8859-2", 28592},
    {"ISO-8859-3", 28593},  {"ISO-8859-4", 28594},  {"ISO-8859-5", 28595},  {"ISO-8859-6", 28596},
    {"ISO-8859-7", 28597},  {"ISO-8859-8", 28598},  {"ISO-8859-9", 28599},  {"ISO-8859-10", 28591},
    {"CP874", 874},         {"ISO-8859-13", 28603}, {"ISO-8859-14", 28591}, {"ISO-8859-15", 28605},
    {"ISO-8859-16", 28591}, {"CP1250", 1250},       {"CP1251", 1251},       {"CP1252", 1252},
    {"CP1253", 1253},       {"CP1254", 1254},       {"CP1255", 1255},       {"CP1256", 1256},
    {"CP1257", 1257},       {"CP1258", 1258},       {"KOI8-R", 20866},      {"KOI8-U", 21866},
    {"CP437", 437},         {"CP850", 850},         {"CP852", 852},         {"CP855", 855},
    {"CP858", 850},         {"CP866", 866},         {"MACINTOSH", 10000},   {"MAC-CYRILLIC", 10007},
    {"CP932", 932},         {"EUC-JP", 20932},      {"GB18030", 936},       {"CP950", 950},
    {"CP949", 949},
};

constexpr std::size_t kLongest = 4;  // the bytes of a character in any of them

void AppendUtf8(char*& out, char32_t code) {
  const auto put = [&](char32_t byte) { *out++ = static_cast<char>(byte); };
  if (code < 0x80) return put(code);
  if (code < 0x800) {
    put(0xC0U | code >> 6U);
  } else if (code < 0x10000) {
    put(0xE0U | code >> 12U);
    put(0x80U | (code >> 6U & 0x3FU));
  } else {
    put(0xF0U | code >> 18U);
    put(0x80U | (code >> 12U & 0x3FU));
    put(0x80U | (code >> 6U & 0x3FU));
  }
  put(0x80U | (code & 0x3FU));
}

}  // namespace

// Reads a character at a time.
class Decoder::Work {
 public:
  explicit Work(std::string_view charset) : charset_(charset) {
    const auto* const known = std::find_if(std::begin(kKnown), std::end(kKnown),
                                           [&](const Known& each) { return each.charset == charset; });
    if (known == std::end(kKnown) || IsValidCodePage(static_cast<UINT>(known->page)) == 0) return;
    page_ = known->page;
    for (unsigned byte = 0; byte < singles_.size(); ++byte) {
      const char single = static_cast<char>(byte);
      singles_[byte] = byte < 0x80 ? byte : MeantCode(page_, {&single, 1});
    }
    if (charset_ == "ASCII")
      std::fill(singles_.begin() + 0x80, singles_.end(), kNone);  // the system cuts a bit off
    if (is_euc_jp())
      singles_[0x8E] = singles_[0x8F] = kNone;  // which begin characters of two and three bytes
    Amend();
  }

  bool is_known() const { return page_ != 0; }

  // Reads the character at the start of `text`, which is not empty, and gives its length; 0 if it is none, or
  // if there is only its start.
  std::size_t Next(std::string_view text, char32_t& code) {
    const auto first = static_cast<unsigned char>(text[0]);
    code = singles_[first];
    if (code != kNone || first == 0) return 1;
    if (is_gb18030() && text.size() > 1 && text[1] >= '0' && text[1] <= '9')
      return text.size() >= 4 && FourBytes(text, code) ? 4 : 0;
    if (is_euc_jp() && first == 0x8F) {
      if (text.size() < 3) return 0;
      const char pair[] = {text[1], static_cast<char>(text[2] & 0x7F)};
      code = (text[2] & 0x80) != 0 ? SystemCode(page_, {pair, 2}) : kNone;
      return code != kNone ? 3 : 0;
    }
    for (std::size_t length = 2; length <= std::min(text.size(), kLongest); ++length) {
      if (!has_pairs() && page_ != CP_UTF8) break;
      code =
          is_gb18030() ? SystemCode(page_, text.substr(0, length)) : MeantCode(page_, text.substr(0, length));
      if (code != kNone) return length;
      if (has_pairs()) break;
    }
    return 0;
  }
  // Whether the bytes may be the start of a character.
  bool IsStart(std::string_view text) const {
    const auto first = static_cast<unsigned char>(text[0]);
    if (singles_[first] != kNone || first < 0x80) return false;
    if (page_ == CP_UTF8) return text.size() < 4;
    const bool is_long = text.size() > 1 && ((is_gb18030() && text[1] >= '0' && text[1] <= '9') ||
                                             (is_euc_jp() && first == 0x8F));
    if (is_long) return text.size() < (is_euc_jp() ? 3 : 4);
    return has_pairs() && text.size() == 1 && IsDBCSLeadByteEx(static_cast<UINT>(page_), text[0]) != 0;
  }

 private:
  bool is_gb18030() const { return charset_ == "GB18030"; }
  bool is_euc_jp() const { return page_ == 20932; }
  bool has_pairs() const {
    return page_ == 932 || page_ == 936 || page_ == 949 || page_ == 950 || page_ == 20932;
  }
  void Amend();
  bool FourBytes(std::string_view text, char32_t& code);

  std::string_view charset_;
  int page_ = 0;
  std::array<char32_t, 256> singles_{};
  std::vector<char16_t> beside_pairs_;  // the characters that GB18030 has in four bytes, in order
};

// The sets that the system lacks, from one that is near to them.
void Decoder::Work::Amend() {
  struct Amended {
    std::string_view charset;
    unsigned first;
    std::u32string_view codes;
  };
  constexpr Amended kAmended[] = {
      {"CP858", 0xD5, U"\u20AC"},
      {"ISO-8859-10", 0xA1,
       U"\u0104\u0112\u0122\u012A\u0128\u0136\u00A7\u013B\u0110\u0160\u0166\u017D\u00AD\u016A\u014A"
       U"\u00B0\u0105\u0113\u0123\u012B\u0129\u0137\u00B7\u013C\u0111\u0161\u0167\u017E\u2015\u016B\u014B"
       U"\u0100\u00C1\u00C2\u00C3\u00C4\u00C5\u00C6\u012E\u010C\u00C9\u0118\u00CB\u0116\u00CD\u00CE\u00CF"
       U"\u00D0\u0145\u014C\u00D3\u00D4\u00D5\u00D6\u0168\u00D8\u0172\u00DA\u00DB\u00DC\u00DD\u00DE\u00DF"
       U"\u0101\u00E1\u00E2\u00E3\u00E4\u00E5\u00E6\u012F\u010D\u00E9\u0119\u00EB\u0117\u00ED\u00EE\u00EF"
       U"\u00F0\u0146\u014D\u00F3\u00F4\u00F5\u00F6\u0169\u00F8\u0173\u00FA\u00FB\u00FC\u00FD\u00FE\u0138"},
      {"ISO-8859-14", 0xA1,
       U"\u1E02\u1E03\u00A3\u010A\u010B\u1E0A\u00A7\u1E80\u00A9\u1E82\u1E0B\u1EF2\u00AD\u00AE\u0178"
       U"\u1E1E\u1E1F\u0120\u0121\u1E40\u1E41\u00B6\u1E56\u1E81\u1E57\u1E83\u1E60\u1EF3\u1E84\u1E85\u1E61"},
      {"ISO-8859-14", 0xD0, U"\u0174"},
      {"ISO-8859-14", 0xD7, U"\u1E6A"},
      {"ISO-8859-14", 0xDE, U"\u0176"},
      {"ISO-8859-14", 0xF0, U"\u0175"},
      {"ISO-8859-14", 0xF7, U"\u1E6B"},
      {"ISO-8859-14", 0xFE, U"\u0177"},
      {"ISO-8859-16", 0xA1,
       U"\u0104\u0105\u0141\u20AC\u201E\u0160\u00A7\u0161\u00A9\u0218\u00AB\u0179\u00AD\u017A\u017B"
       U"\u00B0\u00B1\u010C\u0142\u017D\u201D\u00B6\u00B7\u017E\u010D\u0219\u00BB\u0152\u0153\u0178\u017C"},
      {"ISO-8859-16", 0xC3, U"\u0102"},
      {"ISO-8859-16", 0xC5, U"\u0106"},
      {"ISO-8859-16", 0xD0, U"\u0110\u0143"},
      {"ISO-8859-16", 0xD5, U"\u0150"},
      {"ISO-8859-16", 0xD7, U"\u015A\u0170"},
      {"ISO-8859-16", 0xDD, U"\u0118\u021A"},
      {"ISO-8859-16", 0xE3, U"\u0103"},
      {"ISO-8859-16", 0xE5, U"\u0107"},
      {"ISO-8859-16", 0xF0, U"\u0111\u0144"},
      {"ISO-8859-16", 0xF5, U"\u0151"},
      {"ISO-8859-16", 0xF7, U"\u015B\u0171"},
      {"ISO-8859-16", 0xFD, U"\u0119\u021B"},
  };
  for (const Amended& amended : kAmended) {
    if (amended.charset == charset_)
      std::copy(amended.codes.begin(), amended.codes.end(), singles_.begin() + amended.first);
  }
}

// GB18030 has in four bytes what it does not have in two: first all that is left of the lower 65,536
// characters, in order, and from 0x90308130 all higher ones.
bool Decoder::Work::FourBytes(std::string_view text, char32_t& code) {
  const auto place = [&](std::size_t at, unsigned least) {
    return static_cast<unsigned>(static_cast<unsigned char>(text[at])) - least;
  };
  if (place(2, 0x81) > 0x7D || place(3, 0x30) > 9) return false;
  const std::size_t number =
      ((place(0, 0x81) * 10 + place(1, 0x30)) * 126 + place(2, 0x81)) * 10 + place(3, 0x30);
  constexpr std::size_t kHigher = 189000;
  constexpr std::size_t kHighest = kHigher + 0xFFFFF;
  if (number >= kHigher) {
    code = static_cast<char32_t>(0x10000 + number - kHigher);
    return number <= kHighest;
  }
  if (beside_pairs_.empty()) {
    std::vector<bool> has_pair(0x10000);
    for (unsigned first = 0x81; first < 0xFF; ++first) {
      for (unsigned second = 0x40; second < 0xFF; ++second) {
        const char pair[] = {static_cast<char>(first), static_cast<char>(second)};
        has_pair[SystemCode(page_, {pair, 2})] = true;
      }
    }
    for (unsigned each = 0x80; each < 0x10000; ++each) {
      if (!has_pair[each] && (each < 0xD800 || each > 0xDFFF))
        beside_pairs_.push_back(static_cast<char16_t>(each));
    }
  }
  code = number < beside_pairs_.size() ? beside_pairs_[number] : kNone;
  return code != kNone;
}

Decoder::Decoder(const char* charset) : work_(std::make_unique<Work>(charset)) {}
Decoder::~Decoder() = default;

bool Decoder::is_known() const { return work_->is_known(); }

Decoder::End Decoder::Convert(const char*& in, std::size_t& in_left, char*& out, std::size_t& out_left) {
  if (in == nullptr) return End::kDone;
  while (in_left > 0) {
    const std::string_view text(in, std::min(in_left, kLongest));
    char32_t code = kNone;
    const std::size_t length = work_->Next(text, code);
    if (length == 0) return work_->IsStart(text) && in_left < kLongest ? End::kCut : End::kInvalid;
    char bytes[kLongest];
    char* end = bytes;
    AppendUtf8(end, code);
    const auto size = static_cast<std::size_t>(end - bytes);
    if (size > out_left) return End::kFull;
    out = std::copy(bytes, end, out);
    out_left -= size;
    in += length;
    in_left -= length;
  }
  return End::kDone;
}

}  // namespace platform
