#include "encodings.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace rytesavc {

namespace {

// The names of each character set, in small letters and digits.
struct Charset {
  const char* name;
  std::string_view aliases;
};
constexpr Charset kCharsets[] = {
    {"UTF-8", " utf8 unicode11utf8 "},
    {"ASCII", " ascii usascii us csascii ansix341968 ansix341986 iso646us isoir6 cp367 ibm367 "},
    {"ISO-8859-1", " iso88591 latin1 l1 isolatin1 csisolatin1 isoir100 cp819 ibm819 "},
    {"ISO-8859-2", " iso88592 latin2 l2 csisolatin2 isoir101 "},
    {"ISO-8859-3", " iso88593 latin3 l3 csisolatin3 isoir109 "},
    {"ISO-8859-4", " iso88594 latin4 l4 csisolatin4 isoir110 "},
    {"ISO-8859-5", " iso88595 cyrillic csisolatincyrillic isoir144 "},
    {"ISO-8859-6", " iso88596 arabic csisolatinarabic isoir127 "},
    {"ISO-8859-7", " iso88597 greek greek8 csisolatingreek isoir126 "},
    {"ISO-8859-8", " iso88598 iso88598i hebrew csisolatinhebrew isoir138 "},
    {"ISO-8859-9", " iso88599 latin5 l5 csisolatin5 isoir148 "},
    {"ISO-8859-10", " iso885910 latin6 l6 csisolatin6 isoir157 "},
    {"CP874", " iso885911 tis620 cp874 windows874 "},
    {"ISO-8859-13", " iso885913 latin7 l7 "},
    {"ISO-8859-14", " iso885914 latin8 l8 "},
    {"ISO-8859-15", " iso885915 latin9 l9 "},
    {"ISO-8859-16", " iso885916 latin10 l10 "},
    {"CP1250", " windows1250 win1250 cp1250 xcp1250 "},
    {"CP1251", " windows1251 win1251 cp1251 xcp1251 "},
    {"CP1252", " windows1252 win1252 cp1252 xcp1252 ansi "},
    {"CP1253", " windows1253 win1253 cp1253 xcp1253 "},
    {"CP1254", " windows1254 win1254 cp1254 xcp1254 "},
    {"CP1255", " windows1255 win1255 cp1255 xcp1255 "},
    {"CP1256", " windows1256 win1256 cp1256 xcp1256 "},
    {"CP1257", " windows1257 win1257 cp1257 xcp1257 "},
    {"CP1258", " windows1258 win1258 cp1258 xcp1258 "},
    {"KOI8-R", " koi8r koi8 koi cskoi8r "},
    {"KOI8-U", " koi8u koi8ru "},
    {"CP437", " cp437 ibm437 "},
    {"CP850", " cp850 ibm850 "},
    {"CP852", " cp852 ibm852 "},
    {"CP855", " cp855 ibm855 "},
    {"CP858", " cp858 ibm858 "},
    {"CP866", " cp866 ibm866 "},
    {"MACINTOSH", " macintosh mac macroman xmacroman "},
    {"MAC-CYRILLIC", " maccyrillic xmaccyrillic "},
    {"CP932", " shiftjis sjis xsjis mskanji csshiftjis windows31j cswindows31j cp932 ms932 windows932 "},
    {"EUC-JP", " eucjp xeucjp ujis "},
    // Files that are declared as one of the older sets hold characters of the newest, which has them all.
    {"GB18030", " gb18030 gbk xgbk gb2312 gb231280 csgb2312 euccn cp936 ms936 windows936 "},
    {"CP950", " big5 cnbig5 xxbig5 csbig5 cp950 ms950 windows950 "},
    {"BIG5-HKSCS", " big5hkscs "},
    {"CP949", " euckr cseuckr ksc5601 ksc56011987 ksc56011989 uhc cp949 ms949 windows949 "},
};

constexpr std::size_t kPiece = std::size_t{1} << 16;

}  // namespace

const char* CharsetOf(std::string_view declared) {
  std::string word(1, ' ');
  for (const char c : declared) {
    if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')) word += c;
    if (c >= 'A' && c <= 'Z') word += static_cast<char>(c | 0x20);
  }
  word += ' ';
  if (word.size() == 2) return nullptr;
  for (const Charset& charset : kCharsets) {
    if (charset.aliases.find(word) != std::string_view::npos) return charset.name;
  }
  return nullptr;
}

ConvertedInput::ConvertedInput(XmlInput& input, const char* charset)
    : input_(input), charset_(charset), raw_(kPiece), decoder_(charset) {}

bool ConvertedInput::Read(char* to, std::size_t room, std::size_t& length) {
  length = 0;
  if (!decoder_.is_known()) {
    has_failed_ = true;
    NoteFailure("the system cannot convert from " + std::string(charset_));
    return false;
  }
  using End = Decoder::End;
  for (;;) {
    const char* in = raw_.data() + start_;
    std::size_t rest = end_ - start_;
    char* out = to + length;
    std::size_t left = room - length;
    const End end = decoder_.Convert(in, rest, out, left);
    Count({to + length, static_cast<std::size_t>(out - to) - length});
    length = static_cast<std::size_t>(out - to);
    place_ += static_cast<long long>(end_ - rest - start_);
    start_ = end_ - rest;
    if (end == End::kFull) return true;
    if (end == End::kInvalid || (end == End::kCut && is_last_)) return length != 0 || Fail();
    if (is_last_) return true;
    if (!Fill()) return false;
  }
}

// Reads on after the bytes that are left, the start of a character.
bool ConvertedInput::Fill() {
  std::memmove(raw_.data(), raw_.data() + start_, end_ - start_);
  end_ -= start_;
  start_ = 0;
  std::size_t got = 0;
  if (!input_.Read(raw_.data() + end_, raw_.size() - end_, got)) return false;
  is_last_ = got < raw_.size() - end_;
  end_ += got;
  return true;
}

bool ConvertedInput::Fail() {
  has_failed_ = true;
  NoteFailure("no character of " + std::string(charset_), {line_, column_, place_});
  return false;
}

void ConvertedInput::Count(std::string_view converted) {
  const std::size_t last = converted.rfind('\n');
  if (last != std::string_view::npos) {
    line_ += static_cast<int>(std::count(converted.begin(), converted.end(), '\n'));
    column_ = 1;
    converted.remove_prefix(last + 1);
  }
  column_ += static_cast<int>(std::count_if(converted.begin(), converted.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80;
  }));
}

long long PlaceBeforeConversion(XmlInput& input, const char* charset, long long place) {
  ConvertedInput converted(input, charset);
  char buffer[4096];
  std::size_t length = 1;
  for (long long done = 0; done < place && length != 0; done += static_cast<long long>(length)) {
    const auto left = static_cast<std::size_t>(place - done);
    if (!converted.Read(buffer, std::min(left, sizeof buffer), length)) break;
  }
  return converted.place();
}

}  // namespace rytesavc
