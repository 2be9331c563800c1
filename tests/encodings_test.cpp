// The characters of declared encodings and of code pages: the same on every system.
#include "framework/character_sets.h"

#include <algorithm>
#include <cstdint>

#include "failure.h"
#include "rytree_host/code_page.h"
#include "scratch_folder.h"
#include "tree_text.h"

namespace {

using namespace std::string_literals;

std::string repeat(const std::string& piece, std::size_t times) {
  std::string all;
  for (std::size_t i = 0; i < times; ++i) all += piece;
  return all;
}

struct Encodings : FolderTest {
  ~Encodings() override { RYXmlWrapperBase::SetDefaultCodePage(65001); }
  // The text of a file that is declared so, or "! " and why it cannot be loaded.
  std::string loaded(const std::string& file) const {
    const std::string path = (folder / "x.xml").string();
    std::ofstream(path, std::ios::binary) << file;
    RYXmlWrapperBase tree;
    return tree.load(path.c_str(), 0) != 0 ? text(tree) : "! " + failure();
  }
};

std::string declared(const std::string& name, const std::string& text) {
  return "<?xml version='1.0' encoding='" + name + "'?>\n<a>" + text + "</a>";
}

TEST_F(Encodings, ThatAreDeclaredAreRead) {
  const std::string many = repeat("\xA4\xE5 ", 50000);  // its characters are split between the pieces
  const Rows<std::string, std::string, std::string> cases = {
      {"utf8 UTF8 Utf-8", "é€\u0300", "é€\u0300"},
      {"US-ASCII ascii ANSI_X3.4-1968", "e\\~", "e\\~"},
      {"ISO-8859-1 Latin1 csISOLatin1 iso_8859-1 ISO8859-1", "\xE9\x80\xA4", "é\u0080¤"},
      {"cp1252 windows-1252", "\xE9\x80\xA4\x9F", "é€¤Ÿ"},
      {"ISO_8859-15", "\xE9\xA4\xBD", "é€œ"},
      {"Latin2", "\xA1\xB2", "Ą\u02DB"},
      {"Latin3", "\xA1", "Ħ"},
      {"Latin4", "\xA2", "ĸ"},
      {"ISO-8859-5", "\xE9\xF0", "щ№"},
      {"ISO-8859-6", "\xC1", "ء"},
      {"ISO-8859-7", "\xA1\xA4\xE1", "‘€α"},
      {"ISO-8859-8", "\xAF\xE0\xFD", "¯א\u200E"},
      {"Latin5", "\xDD", "İ"},
      {"Latin6", "\xBD\xA6", "―Ķ"},
      {"Latin7", "\xA1", "”"},
      {"Latin8", "\xA1\xD0\xFF", "ḂŴÿ"},
      {"Latin10", "\xA4\xAA\xFE", "€Șț"},
      {"TIS-620 ISO-8859-11 windows-874", "\x80\xA1\xD1", "€ก\u0E31"},
      {"windows-1250", "\x80\x8A", "€Š"},
      {"Windows-1251 CP1251", "\x88\xE9\xB8", "€йё"},
      {"windows-1253", "\x80\xE1", "€α"},
      {"windows-1254", "\xDD\xFD", "İı"},
      {"windows-1255", "\xA4\xE0\xC7\xD4", "₪א\u05B7װ"},
      {"windows-1256", "\x80\x81\x9D", "€پ\u200C"},
      {"windows-1257", "\xA8\x8E", "Øˇ"},
      {"windows-1258", "\xEA\xEC\x65\xCC\xFE", "ê\u0301e\u0300₫"},
      {"KOI8-R", "\xCA\xA3\x9A", "йё\u00A0"},
      {"koi8-u", "\xCA\xAD\xAE", "йґ╝"},
      {"IBM437", "\x9B\xE1\xE6", "¢ßµ"},
      {"IBM850", "\xD5", "ı"},
      {"IBM852", "\x85", "ů"},
      {"IBM855", "\x86", "є"},
      {"IBM858", "\xD5", "€"},
      {"IBM866 cp866", "\xA9\xFC", "й№"},
      {"macintosh", "\xDB\xC6\x8E", "€∆é"},
      {"MacCyrillic x-mac-cyrillic", "\xE9\xFF", "й€"},
      {"Shift_JIS shift-jis SJIS x-sjis Windows-31J", "\x83\x5C\\~\x81\x60\x87\x40\xA1\xFA\x54",
       "ソ\\~～①｡￢"},
      {"EUC-JP eucJP", "\xA5\xBD\\~\xA1\xC1\x8E\xB1\x8F\xA2\xB7\x8F\xB0\xA1", "ソ\\~〜ｱ～丂"},
      {"GBK gb2312 GB18030", "\xB0\xA1\xA2\xE3\xFE\x51", "啊€𠂇"},
      {"GB18030", "\x81\x30\x84\x36\x81\x30\xA3\x31\x84\x31\xA4\x37\x95\x32\x82\x36", "¥Ǻ\uFFFD𠀀"},
      {"Big5 big-5 CP950", many, repeat("文 ", 50000)},
      {"Big5", "\xA3\xE1\xA1\x45\xA2\xCC\xA4\x51", "€‧十十"},
      {"Big5-HKSCS", "\xA1\x45\x87\x40\x88\x62\x88\xA5\xC6\xA1", "•䏰Ê\u0304ê\u030C①"},
      {"EUC-KR ks_c_5601-1987 CP949", "\xB0\xA1\x81\x41\xA2\xE6\xA1\xAD", "가갂€∼"},
  };
  for (const auto& [names, bytes, in_utf8] : cases) {
    std::istringstream words(names);
    for (std::string name; words >> name;) {
      EXPECT_EQ(loaded(declared(name, bytes)), "<a>" + in_utf8 + "</a>") << name;
      EXPECT_EQ(failure(), " 0:0 -1");
    }
  }
  EXPECT_EQ(loaded("\xEF\xBB\xBF" + declared("ISO-8859-1", "é")), "<a>é</a>") << "the mark decides";
  // A failure is at its place in the file, given from the end.
  using R = Row<std::string, std::string, std::string, int>;
  for (const auto& [name, bytes, why, offset] :
       Rows{R{"windows-1252", "\x80\n\x80\x81", "no character of CP1252 3:2 ", 5},
            R{"windows-1255", "\xCA", "no character of CP1255 2:4 ", 5},
            R{"ascii", "\xE9", "no character of ASCII 2:4 ", 5},
            R{"Utf-8", "\n\xE9", "not well-formed (invalid token) 3:1 ", 5},
            R{"Big5", many + "\n\xA4", "no character of CP950 3:1 ", 5},
            R{"Big5", "\xFA\x40\n", "no character of CP950 2:4 ", 7},
            R{"GBK", "\xB0\xA1\x80", "no character of GB18030 2:5 ", 5},
            R{"GB18030", "\x84\x31\xA5\x30", "no character of GB18030 2:4 ", 8},
            R{"GB18030", "\xE3\x32\x9A\x36", "no character of GB18030 2:4 ", 8},
            R{"EUC-JP", "\xA1\x21", "no character of EUC-JP 2:4 ", 6},
            R{"Shift_JIS", "\x83\x5C</b>", "mismatched tag 2:7 ", 6},
            R{"ISO-2022-JP", "", "unknown encoding 'ISO-2022-JP' 1:31 ", 22}}) {
    const std::string file = declared(name, bytes);
    EXPECT_EQ(loaded(file), "! " + why + std::to_string(static_cast<int>(file.size()) - offset)) << name;
  }
}

// How many characters there are, and a number that changes with each of them.
struct Sum {
  unsigned count = 0;
  std::uint32_t hash = 0;

  bool operator==(const Sum&) const = default;
  // False for bytes that are no character.
  bool Add(const std::string& bytes, const std::string& character) {
    if (character.empty()) return false;
    ++count;
    for (const char byte : bytes + character) hash = (hash ^ static_cast<unsigned char>(byte)) * 0x01000193U;
    return true;
  }
};
std::ostream& operator<<(std::ostream& out, const Sum& sum) {
  return out << sum.count << ", 0x" << std::hex << sum.hash << std::dec;
}

// All characters of a set, but of those of four bytes only the lower 65,536 of Unicode.
template <class Character>
Sum sum_of(const Character& character) {
  Sum sum;
  const auto add = [&](const std::string& bytes) { return sum.Add(bytes, character(bytes)); };
  const auto each = [](int first, int last, const auto& take) {
    for (int byte = first; byte <= last; ++byte) take(std::string(1, static_cast<char>(byte)));
  };
  each(0x80, 0xFF, [&](const std::string& one) {
    if (add(one)) return;
    each(0x30, 0xFF, [&](const std::string& two) {
      if (add(one + two)) return;
      if (one == "\x8F") each(0x30, 0xFF, [&](const std::string& three) { add(one + two + three); });
      if (one > "\x84" || two > "9") return;
      each(0x81, 0xFE, [&](const std::string& three) {
        each('0', '9', [&](const std::string& four) { add(one + two + three + four); });
      });
    });
  });
  return sum;
}

TEST_F(Encodings, HaveTheSameCharactersOnEverySystem) {
  const Rows<const char*, Sum> sets = {
      {"CP932", {9667, 0x95945434}},       {"CP936", {21792, 0x25ada375}},  {"CP949", {17048, 0x12e95dc1}},
      {"CP950", {13912, 0xa94a8d0a}},      {"EUC-JP", {13039, 0x6dfad327}}, {"GB18030", {63342, 0x9cb77493}},
      {"BIG5-HKSCS", {18464, 0xa765ee9c}},
  };
  for (const auto& [name, sum] : sets) {
    const auto set = OpenCharacterSet(name);
    ASSERT_NE(set, nullptr) << name;
    const Sum found = sum_of([&set](const std::string& bytes) {
      const auto character = set->Character(bytes);
      return std::string(character.begin(), std::find(character.begin(), character.end(), '\0'));
    });
    EXPECT_EQ(found, sum) << name;
  }
  const Rows<int, Sum> pages = {
      {932, {9269, 0x5bd657c7}},  {936, {21792, 0x25ada375}}, {949, {17048, 0x12e95dc1}},
      {950, {13902, 0xa3db60a2}}, {1252, {123, 0xb94e0ee9}},  {1255, {105, 0x2c2e61b0}},
      {1258, {119, 0x7344fb04}},  {28591, {128, 0x13990040}},
  };
  for (const auto& [number, sum] : pages) {
    ASSERT_TRUE(CodePage::SetDefault(number));
    const Sum found = sum_of([](const std::string& bytes) {
      std::string character;
      const std::size_t length = CodePage::Default()->ToUtf8(bytes, character);
      return length == bytes.size() && bytes.size() < 3 ? character : "";
    });
    EXPECT_EQ(found, sum) << number;
  }
}

}  // namespace
