#include "rytree_host/framework.h"

#include <random>
#include <string_view>
#include <utility>
#include <vector>

#include "rytree_host/utf8.h"
#include "tree_text.h"

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
  const CString bytes("a\0b"sv);
  EXPECT_EQ(joined(s.Left(2), s.Left(-1), s.Right(2), s.Right(7), s.Mid(4), s.Mid(INT_MAX, INT_MAX),
                   s.Mid(-3, 2), s.Mid(1, -2), CString(nullptr), CString("abc", 2), CString("abc", -1),
                   CString('x', 3), CString('x', INT_MIN), s + "g" + 'h', "z" + s, bytes + bytes),
            "ab||ef|abcdef|ef||ab|||ab||xxx||abcdefgh|zabcdef|a\0ba\0b|"sv);
  EXPECT_EQ(joined(CString(" \t a b\r\n").TrimLeft().TrimRight(), CString("xxaxx").TrimLeft('x'),
                   CString("xxaxx").TrimRight('x'), CString("xyax").TrimRight("a").TrimLeft("yx")),
            "a b|axx|xxa|ax|");
}

TEST(String, ChangesInPlace) {
  const Rows<const char*, void (*)(CString&), std::string> rows = {
      {"bd", [](auto& s) { s.Insert(INT_MIN, 'a'), s.Insert(2, "c"), s.Insert(INT_MAX, "e"); }, "abcde"},
      {"ab", [](auto& s) { EXPECT_EQ((s.Insert(1, s), s += s, s += nullptr, s.Insert(0, 'x')), 9); },
       "xaabbaabb"},
      {"abcdef", [](auto& s) { EXPECT_EQ((s.Delete(0, -1), s.Delete(9), s.Delete(1, 2)), 4); }, "adef"},
      {"aaab", [](auto& s) { EXPECT_EQ((s.Replace("aa", "aab"), s.Replace("b", nullptr)), 2); }, "aaa"},
      {"a.b.", [](auto& s) { EXPECT_EQ((s.Replace("", "x"), s.Replace('.', '-')), 2); }, "a-b-"},
      {"a-b-", [](auto& s) { EXPECT_EQ(s.Remove('-'), 2); }, "ab"},
      {"abc", [](auto& s) { s = s.GetString() + 1, s.SetAt(1, 'x'), s.SetAt(2, 'y'), s += 'c'; }, "bxc"},
      {"abcd", [](auto& s) { s.Delete(3, INT_MAX), s.GetBuffer(40)[3] = 'x', s.ReleaseBuffer(); }, "abcx"},
      {"abcd",
       [](auto& s) { s.GetBuffer(), s.ReleaseBuffer(2), s.GetBufferSetLength(4)[3] = 'x'; },
       {"ab\0x", 4}},
      {"7", [](auto& s) { s.Format("%s|%d", s.GetString(), -5), s.AppendFormat("%256c", '!'); },
       "7|-5" + std::string(255, ' ') + "!"}};
  for (const auto& [text, change, wanted] : rows) {
    CString changed(text);
    change(changed);
    EXPECT_EQ(changed.View(), wanted);
  }
}

TEST(String, FindsLongTexts) {
  std::mt19937 random(8);
  for (int round = 0; round < 2000; ++round) {
    std::string text;
    while (text.size() < 400) text += random() % 40 == 0 ? 'b' : 'a';
    std::string wanted = text.substr(random() % 300, 60 + random() % 40);
    if (random() % 2 != 0) wanted[random() % wanted.size()] = 'b';
    const int start = static_cast<int>(random() % 300);
    ASSERT_EQ(CString(text.c_str()).Find(wanted.c_str(), start),
              static_cast<int>(text.find(wanted, static_cast<std::size_t>(start))));
  }
}

TEST(String, FindsAndReads) {
  const CString s("abcabc");
  EXPECT_EQ((std::vector<int>{s.Find("bc", 2), s.Find("bc", 5), s.Find("", 6), s.Find("", 7), s.Find("a", -9),
                              s.Find('c', 3), s.Find(nullptr), s.ReverseFind('a'), s.ReverseFind('x')}),
            (std::vector<int>{4, -1, 6, -1, 0, 5, 0, 3, -1}));
  EXPECT_EQ((std::vector<int>{s[5], s[6], s[-1], s[1ULL << 32U], s.GetAt(INT_MIN)}),
            (std::vector<int>{'c', 0, 0, 0, 0}));
  EXPECT_EQ((std::vector{s<"abcabd", s> "abc", s<CString("\xFF"), s> nullptr, CString() == nullptr}),
            std::vector<bool>(5, true));
  EXPECT_LT(s.Compare("abcabd"), 0);
  EXPECT_GT(s.Compare(nullptr), 0);
  EXPECT_EQ(s.CompareNoCase("ABCABC"), 0);
  EXPECT_NE(CString("a\0b", 3), CString("a\0c", 3));
}

TEST(Case, FoldsByCodePoint) {
  const Rows<const char*, const char*> equal = {
      {"Treez", "tREEZ"}, {nullptr, ""},   {"ß", "ẞ"}, {"ᾈ", "ᾀ"}, {"ſ", "s"}, {"σ", "ς"},
      {"жук", "ЖУК"},     {"\u212A", "k"}, {"ⱥ", "Ⱥ"}, {"𐐨", "𐐀"}, {"ÿ", "Ÿ"}, {"\xE9", "\xE9"}};
  for (const auto& [left, right] : equal) {
    EXPECT_EQ(_mbsicmp(left, right), 0) << left << ' ' << right;
    EXPECT_EQ(case_key(left), case_key(right)) << left << ' ' << right;
  }
  const char* const chain[] = {"",   "1a", "1B", "@", "[", "`", "a", "ab",   "e",    "I",
                               "SS", "{",  "ß",  "é", "İ", "ı", "θ", "\xC3", "\xC9", "\xE9"};
  for (const auto* next = chain + 1; next != std::end(chain); ++next) {
    EXPECT_LT(_mbsicmp(next[-1], *next), 0) << *next;
    EXPECT_NE(case_key(next[-1]), case_key(*next)) << *next;
    EXPECT_GT(rytree_host::lstrcmpiA(*next, next[-1]), 0) << *next;
  }
  EXPECT_LT(_mbscmp("B", "a"), 0);
  EXPECT_EQ(_mbscmp(nullptr, ""), 0);
}

TEST(Case, ChangesStrings) {
  const CString text("aZ09_{é\0ßıſɐȺ\xFF\xC3zΣςǅᾀ"sv);
  EXPECT_EQ(joined(CString(text).MakeUpper(), CString(text).MakeLower()),
            "AZ09_{É\0ßISⱯȺ\xFF\xC3ZΣΣǄᾈ|az09_{é\0ßıſɐⱥ\xFF\xC3zσςǆᾀ|"sv);
}

TEST(Case, HoldsForEveryCodePoint) {
  int moved = 0;
  for (char32_t code = 1; code < utf8::kStray; code += code == 0xD7FF ? 0x801 : code < 0x20000 ? 1 : 0x101) {
    std::string text;
    utf8::append(text, code);
    const char* rest = text.c_str();
    ASSERT_EQ(utf8::next(rest), code);
    ASSERT_EQ(rest, text.c_str() + text.size());
    const bool dotless = code == 0x131;  // a letter by itself, though it has the upper case I
    ASSERT_EQ(utf8::fold(utf8::upper(code)), dotless ? U'i' : utf8::fold(code));
    ASSERT_EQ(utf8::fold(utf8::lower(code)), code == 0x130 ? U'i' : utf8::fold(code));
    ASSERT_EQ(utf8::fold(utf8::fold(code)), utf8::fold(code));
    moved += utf8::fold(code) != code;
  }
  EXPECT_GT(moved, 1300);
}

TEST(Case, TakesInvalidBytesOneByOne) {
  for (const char* rest : {"\xC0\x80", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF", "\xED\xA0\x80", "\xF4\x90\x80\x80",
                           "\xF5\x80", "\x80", "\xE2\x82", "\xFF"}) {
    for (const char* at = rest; *at; ++at)
      EXPECT_EQ(utf8::next(rest), utf8::kStray + static_cast<unsigned char>(*at));
  }
  const char* cut = "\u20AC";
  EXPECT_EQ(utf8::next(cut, 2), utf8::kStray + 0xE2);
}

TEST(Text, CopiesBounded) {
  const Rows<int, const char*> rows = {{4, "abc"}, {3, "ab"}, {1, ""}, {0, "?"}, {INT_MIN, "?"}};
  for (const auto& [size, copied] : rows) {
    char buffer[4] = "?";
    EXPECT_STREQ(rytree_host::lstrcpynA(buffer, "abc", size), copied);
  }
  char overlapping[] = "abcd";
  EXPECT_STREQ(rytree_host::lstrcpynA(overlapping + 1, overlapping, 4), "abc");
  EXPECT_STREQ(rytree_host::lstrcpynA(overlapping, nullptr, 4), "");
  EXPECT_EQ(rytree_host::lstrcpynA(nullptr, "a", 2), nullptr);
  EXPECT_EQ((std::vector<int>{rytree_host::lstrlenA("abc"), rytree_host::lstrlenA(nullptr)}),
            (std::vector<int>{3, 0}));
}

TEST(Array, GrowsAndShrinks) {
  using Ints = CArray<int, int>;
  const Rows<void (*)(Ints&), const char*> rows = {
      {[](auto& a) { EXPECT_EQ((a.SetSize(INT_MIN), a.Add(1), a.SetSize(3, -1), a.Add(4)), 3); }, "1 0 0 4 "},
      {[](auto& a) { a.SetAtGrow(1, 9), a.SetAtGrow(4, 9), a.SetAtGrow(-1, 9); }, "1 9 3 0 9 "},
      {[](auto& a) { a.InsertAt(1, a[2], 2), a.InsertAt(-1, 7), a.InsertAt(0, 7, -1); }, "1 3 3 2 3 "},
      {[](auto& a) { a.RemoveAt(1, INT_MAX), a.InsertAt(2, 6); }, "1 0 6 "},
      {[](auto& a) { a.RemoveAt(0), a.RemoveAt(2), a.RemoveAt(-1), a.RemoveAt(0, -2); }, "2 3 "},
      {[](auto& a) { EXPECT_EQ((a.Append(Ints()), a.Append(a)), 3); }, "1 2 3 1 2 3 "},
      {[](auto& a) { a[7] = 5, a[-1] = a[7] + a[INT_MAX] + 4; }, "1 2 3 "}};
  for (const auto& [change, wanted] : rows) {
    Ints array;
    for (const int item : {1, 2, 3}) array.Add(item);
    change(array);
    std::string text;
    for (const int item : array) text += std::to_string(item) + ' ';
    EXPECT_EQ(text, wanted);
    EXPECT_EQ(std::as_const(array)[99], 0);
  }
}

TEST(Array, HoldsRealBools) {
  CArray<bool, bool> array;
  array.SetSize(3);
  bool& second = array[1];
  second = array.GetData()[2] = true;
  EXPECT_EQ((std::vector{array[0], array[1], array[2]}), (std::vector{false, true, true}));
}

TEST(HostArray, AnswersItsOwnCode) {
  HostIntArray ints;
  EXPECT_EQ(ints.GetInternalArray(0x10008, nullptr), &ints.array());
  EXPECT_EQ(ints.GetInternalArray(0x1001B, nullptr), nullptr);
}

}  // namespace
