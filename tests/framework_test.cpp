#include "rytree_host/framework.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "rytree_host/utf8.h"

namespace {

using namespace std::string_view_literals;

template <class... Parts>
std::string joined(const Parts&... parts) {
  std::string text;
  (text.append(parts.View()).append("|"), ...);
  return text;
}

TEST(String, GivesParts) {
  const CString s("abcdef");
  const CString bytes(std::string_view("a\0b", 3));
  EXPECT_EQ(joined(s.Left(2), s.Left(-1), s.Left(INT_MAX), s.Right(2), s.Right(INT_MIN), s.Right(7), s.Mid(4),
                   s.Mid(6), s.Mid(INT_MAX, INT_MAX), s.Mid(-3, 2), s.Mid(1, 2), s.Mid(1, -2),
                   CString(nullptr), CString("abc", 2), CString(nullptr, 5), CString("abc", -1),
                   CString('x', 3), CString('x', INT_MIN), s + "g" + 'h', "z" + s, bytes + bytes),
            "ab||abcdef|ef||abcdef|ef|||ab|bc|||ab|||xxx||abcdefgh|zabcdef|a\0ba\0b|"sv);
}

TEST(String, ChangesInPlace) {
  const struct {
    const char* text;
    void (*change)(CString&);
    std::string wanted;
  } rows[] = {
      {"bd", [](CString& s) { s.Insert(INT_MIN, 'a'), s.Insert(2, "c"), s.Insert(INT_MAX, "e"); }, "abcde"},
      {"ab", [](CString& s) { EXPECT_EQ((s.Insert(1, s), s.Insert(0, 'x')), 5); }, "xaabb"},
      {"ab", [](CString& s) { s += s, s += 'c', s += nullptr; }, "ababc"},
      {"abcd", [](CString& s) { EXPECT_EQ((s.Delete(0, -1), s.Delete(9), s.Delete(1, 2)), 2); }, "ad"},
      {"abcd", [](CString& s) { s.Delete(2, INT_MAX), s.SetAt(1, 'x'), s.SetAt(2, 'y'); }, "ax"},
      {"aaa", [](CString& s) { EXPECT_EQ(s.Replace("aa", "aab"), 1); }, "aaba"},
      {"abcbc", [](CString& s) { EXPECT_EQ((s.Replace("", "x"), s.Replace("bc", nullptr)), 2); }, "a"},
      {"a.b.", [](CString& s) { EXPECT_EQ(s.Replace('.', '-') + s.Remove('b'), 3); }, "a--"},
      {" \t a b\r\n", [](CString& s) { s.TrimLeft().TrimRight(); }, "a b"},
      {"xxaxx", [](CString& s) { s.TrimLeft('x'); }, "axx"},
      {"xxaxx", [](CString& s) { s.TrimRight('x'); }, "xxa"},
      {"xyax", [](CString& s) { s.TrimRight("a").TrimLeft("yx").TrimRight("yax"); }, ""},
      {"abc", [](CString& s) { s = s.GetString() + 1; }, "bc"},
      {"ab", [](CString& s) { s.GetBuffer(40)[2] = 'c', s.ReleaseBuffer(); }, "abc"},
      {"abcd", [](CString& s) { s.GetBuffer(), s.ReleaseBuffer(2), s.GetBufferSetLength(3); }, {"ab\0", 3}},
      {"7", [](CString& s) { s.Format("%s|%d", s.GetString(), -5), s.AppendFormat("%c", '!'); }, "7|-5!"},
      {"a", [](CString& s) { s.AppendFormat("%255d", 1), s.AppendFormat("%256d", 2); },
       "a" + std::string(254, ' ') + "1" + std::string(255, ' ') + "2"},
  };
  for (const auto& [text, change, wanted] : rows) {
    CString changed(text);
    change(changed);
    EXPECT_EQ(changed.View(), wanted);
  }
}

TEST(String, FindsAndReads) {
  const CString s("abcabc");
  EXPECT_EQ((std::vector{s.Find("bc"), s.Find("bc", 2), s.Find("bc", 5), s.Find("", 6), s.Find("", 7),
                         s.Find("a", -9), s.Find('c', 3), s.Find('c', INT_MAX), s.Find(nullptr),
                         s.ReverseFind('a'), s.ReverseFind('x')}),
            (std::vector{1, 4, -1, 6, -1, 0, 5, -1, 0, 3, -1}));
  EXPECT_EQ((std::vector{s[5], s[6], s[-1], s[1ULL << 32U], s.GetAt(INT_MIN)}),
            (std::vector{'c', '\0', '\0', '\0', '\0'}));
  EXPECT_TRUE(s < "abcabd" && s > "abc" && s < "\xFF" && s < CString("\xFF") && s > nullptr &&
              CString() == nullptr);
  EXPECT_TRUE(s.Compare("abcabd") < 0 && s.Compare(nullptr) > 0 && s.CompareNoCase("ABCABC") == 0);
  EXPECT_NE(CString("a\0b", 3), CString("a\0c", 3));
}

TEST(Case, FoldsByCodePoint) {
  const char* const equal[][2] = {{"Tree", "tREE"}, {nullptr, ""}, {"é", "É"},      {"ß", "ẞ"},
                                  {"ı", "i"},       {"ſ", "s"},    {"σ", "ς"},      {"Σ", "ς"},
                                  {"жук", "ЖУК"},   {"ა", "Ა"},  {"\u212A", "k"}, {"ⱥ", "Ⱥ"},
                                  {"𐐨", "𐐀"},       {"ÿ", "Ÿ"},    {"\xE9", "\xE9"}};
  for (const auto& [left, right] : equal) EXPECT_EQ(_mbsicmp(left, right), 0) << left << ' ' << right;

  // The first stands before the second.
  const char* const ordered[][2] = {{"a", "ab"}, {"", "a"},        {"e", "é"},
                                    {"SS", "ß"}, {"\xC9", "\xE9"}, {"\xC3\x89", "\xC3"},
                                    {"[", "{"},  {"@", "`"},       {"1a", "1B"}};
  for (const auto& [left, right] : ordered) {
    EXPECT_LT(_mbsicmp(left, right), 0) << left << ' ' << right;
    EXPECT_GT(lstrcmpiA(right, left), 0) << left << ' ' << right;
  }
  EXPECT_LT(_mbscmp("B", "a"), 0);
  EXPECT_EQ(_mbscmp(nullptr, ""), 0);
}

TEST(Case, ChangesStrings) {
  const std::string_view rows[][3] = {{"aZ09_{", "AZ09_{", "az09_{"},
                                      {"é\0ß"sv, "É\0ß"sv, "é\0ß"sv},
                                      {"ıſ", "IS", "ıſ"},
                                      {"ɐȺ", "ⱯȺ", "ɐⱥ"},
                                      {"\xFF\xC3z", "\xFF\xC3Z", "\xFF\xC3z"},
                                      {"aΣς", "AΣΣ", "aσς"},
                                      {"ǅᾀ", "Ǆᾈ", "ǆᾀ"}};
  for (const auto& [text, upper, lower] : rows) {
    EXPECT_EQ(CString(text).MakeUpper().View(), upper);
    EXPECT_EQ(CString(text).MakeLower().View(), lower);
  }
}

TEST(Case, HoldsForEveryCodePoint) {
  int moved = 0;
  for (char32_t code = 1; code < utf8::kStray; ++code) {
    if (code == 0xD800) code = 0xE000;
    std::string text;
    utf8::append(text, code);
    const char* rest = text.c_str();
    ASSERT_EQ(utf8::next(rest), code);
    ASSERT_EQ(rest, text.c_str() + text.size());
    ASSERT_EQ(utf8::fold(utf8::upper(code)), utf8::fold(code)) << std::hex << static_cast<unsigned>(code);
    ASSERT_EQ(utf8::fold(utf8::lower(code)), utf8::fold(code)) << std::hex << static_cast<unsigned>(code);
    moved += utf8::fold(code) != code;
  }
  EXPECT_GT(moved, 1300);
}

TEST(Case, TakesInvalidBytesOneByOne) {
  for (const auto& text : {"\xC0\x80"sv, "\xE0\x9F\xBF"sv, "\xF0\x8F\xBF\xBF"sv, "\xED\xA0\x80"sv,
                           "\xF4\x90\x80\x80"sv, "\xF5\x80"sv, "\x80"sv, "\xE2\x82"sv, "\xFF"sv}) {
    const char* rest = text.data();
    for (const char byte : text) EXPECT_EQ(utf8::next(rest), utf8::kStray + static_cast<unsigned char>(byte));
  }
}

TEST(Text, CopiesBounded) {
  std::string joined;
  for (const int size : {4, 3, 1, 0, INT_MIN}) {
    char buffer[4] = "?";
    EXPECT_EQ(lstrcpynA(buffer, "abc", size), buffer);
    joined.append(buffer).append("|");
  }
  EXPECT_EQ(joined, "abc|ab||?|?|");
  char overlapping[] = "abcd";
  EXPECT_STREQ(lstrcpynA(overlapping + 1, overlapping, 4), "abc");
  EXPECT_STREQ(lstrcpynA(overlapping, nullptr, 4), "");
  EXPECT_EQ(lstrcpynA(nullptr, "a", 2), nullptr);
  EXPECT_EQ(lstrlenA("abc") + lstrlenA(nullptr), 3);
}

template <class T>
std::string shown(const CArray<T, T>& array) {
  std::string text;
  for (const T item : array) text += std::to_string(item) + ' ';
  return text;
}

TEST(Array, GrowsAndShrinks) {
  using Ints = CArray<int, int>;
  const struct {
    void (*change)(Ints&);
    const char* wanted;
  } rows[] = {
      {[](Ints& a) { EXPECT_EQ((a.SetSize(2), a.SetSize(4, -1), a.Add(4)), 4); }, "1 2 0 0 4 "},
      {[](Ints& a) { a.SetSize(INT_MIN); }, ""},
      {[](Ints& a) { a.SetAt(1, 9), a.SetAt(3, 9), a.SetAt(-1, 9); }, "1 9 3 "},
      {[](Ints& a) { a.SetAtGrow(4, 9), a.SetAtGrow(-1, 9), a.SetAtGrow(0, 8); }, "8 2 3 0 9 "},
      {[](Ints& a) { a.InsertAt(1, a[2], 2), a.InsertAt(-1, 7), a.InsertAt(0, 7, -1); }, "1 3 3 2 3 "},
      {[](Ints& a) { a.InsertAt(5, 7), a.InsertAt(3, 6); }, "1 2 3 6 0 0 7 "},
      {[](Ints& a) { a.RemoveAt(1), a.RemoveAt(2), a.RemoveAt(-1), a.RemoveAt(0, -2); }, "1 3 "},
      {[](Ints& a) { a.RemoveAt(1, INT_MAX); }, "1 "},
      {[](Ints& a) { EXPECT_EQ((a.Append(Ints()), a.Append(a)), 3); }, "1 2 3 1 2 3 "},
      {[](Ints& a) { a[7] = 5, a[-1] = a[7] + a[INT_MAX] + 4; }, "1 2 3 "},
  };
  for (const auto& row : rows) {
    Ints array;
    for (const int item : {1, 2, 3}) array.Add(item);
    row.change(array);
    EXPECT_EQ(shown(array), row.wanted);
    EXPECT_EQ(std::as_const(array)[99], 0);
  }
}

TEST(Array, HoldsRealBools) {
  CArray<bool, bool> array;
  array.SetSize(3);
  bool& second = array[1];
  second = array.GetData()[2] = true;
  EXPECT_EQ(shown(array), "0 1 1 ");
}

template <class Object>
std::string answers() {
  Object object;
  HostArrayScratch scratch;
  std::string text;
  for (const int code : {0x1001B, 0x10008, 0x1000B, 0x10002}) {
    void* const array = object.GetInternalArray(code, &scratch);
    text += !array ? '-' : array == &object.array() ? '+' : '?';
  }
  return text;
}

TEST(HostArrays, AnswerTheirOwnCode) {
  EXPECT_EQ(answers<HostStringArray>(), "+---");
  EXPECT_EQ(answers<HostIntArray>(), "-+--");
  EXPECT_EQ(answers<HostDoubleArray>(), "--+-");
  EXPECT_EQ(answers<HostBoolArray>(), "---+");
}

}  // namespace
