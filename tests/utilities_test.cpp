#include "rytree_host/Kelp60.h"
#include "rytree_host/ryUtils.h"
#include "rytree_host/utf8.h"

#include <climits>
#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string_view>

#include "rytree_host/code_page.h"
#include "rytree_host/modules.h"
#include "rytree_host/multibyte.h"
#include "tree_text.h"

namespace {

using namespace std::string_view_literals;

TEST(Tokens, SplitAtSeparators) {
  // Each token in brackets, and whether a quote has no partner.
  const Rows<const char*, const char*, int> rows = {
      {"x'a|b'y|c", "[x'a|b'y][c]", 0}, {"a|", "[a][]", 0},     {"", "", 0},
      {"'a|'b'|c", "['a|'b'][c]", 1},   {"''|'", "[''][']", 1}, {nullptr, "", 0},
      {"1||1", "[1][][1]", 0}};
  for (const auto& [text, wanted, unpaired] : rows) {
    CStringArray tokens;
    tokens.Add("old");
    int status = 7;
    const int count = ryutilsGetTokens(text, &tokens, '|', &status, '\'', 0);
    EXPECT_EQ(listed(tokens), wanted);
    EXPECT_EQ(status, unpaired);
    EXPECT_EQ(count, tokens.GetSize());
    EXPECT_EQ(ryutilsGetTokens(text, nullptr, '|', nullptr, '\'', 0), count);
  }
  CStringArray own;
  own.Add("a,\"b,c");
  EXPECT_EQ(ryutilsGetTokens(own[0], &own, ',', nullptr, 0, 0), 3);
  EXPECT_EQ(own[2], "c");
}

TEST(Names, BecomeValid) {
  CString joined;
  for (const auto given : {"Item_79aZz"sv, ""sv, "7a"sv, "a[`{@/: -"sv, "\0é"sv}) {
    CString name(given);
    EXPECT_EQ(ryuMakeValidCName(&name, 0), 1);
    joined += name + '|';
  }
  EXPECT_EQ(joined, "Item_79aZz|_|_7a|a________|___|");
  EXPECT_EQ(ryuMakeValidCName(nullptr, 0), 0);
}

TEST(Messages, AreThereForTheirNumbers) {
  for (const int number : {1624, 1625, 1626, 1627, 1628, 1629, 1630, 1631, 1996, 2539, 1995}) {
    CString text("old");
    EXPECT_EQ(ryu_load_err_msg_str(number, &text, -1), number != 1995);
    EXPECT_EQ(text.IsEmpty(), number == 1995) << number;
    EXPECT_NE(text, "old") << number;
  }
  EXPECT_EQ(ryu_load_err_msg_str(1996, nullptr, -1), 0);
}

TEST(Numbers, SortUnsigned) {
  CArray<unsigned, unsigned> numbers;
  for (const unsigned number : {3U, UINT_MAX, 0U}) numbers.Add(number);
  ryutilsSort(numbers, 0);
  EXPECT_EQ(std::vector(numbers.begin(), numbers.end()), (std::vector{0U, 3U, UINT_MAX}));
}

TEST(Numbers, AreSplitOffTheEnd) {
  const Rows<const char*, const char*, int> rows = {
      {"a2147483647", "a", INT_MAX},      {"Item007", "Item", 7}, {"90", "", 90},
      {"a2147483648", "a2", 147483648},   {"Item", "Item", 0},    {nullptr, "", 0},
      {"110000000000000000001", "11", 1}, {"90000000005", "9", 5}};
  for (const auto& [text, prefix, number] : rows) {
    std::string room(64, '?');
    EXPECT_EQ(string_to_prefix_end_number(room.data(), text), number) << prefix;
    EXPECT_STREQ(room.c_str(), prefix);
    EXPECT_EQ(string_to_prefix_end_number(nullptr, text), number);
  }
  EXPECT_STREQ(kelp_number_to_text(INT_MIN), "-2147483648");
  EXPECT_EQ(kelp_default_number(), 256);
}

TEST(Search, FindsCharacters) {
  char text[] = "a=b=}";
  int work = 5;
  EXPECT_EQ(kelp_find_char(text, '=', 1), text + 1);
  EXPECT_EQ(kelp_find_closing_char(text, '}', 0, &work), text + 4);
  EXPECT_EQ(work, 0);
  EXPECT_EQ(kelp_find_char(text, '\0', 1), nullptr);
  EXPECT_EQ(kelp_find_char(nullptr, '=', 1), nullptr);
  EXPECT_EQ(kelp_find_closing_char(text, '{', 0, nullptr), nullptr);
}

// The plain meaning of a filter, character by character.
bool naive_match(const char* filter, const char* text, bool exact) {
  if (!*filter) return !*text;
  const char* const front = text;
  if (*text) utf8::next(text);
  if (*filter == '*')
    return naive_match(filter + 1, front, exact) || (*front && naive_match(filter, text, exact));
  const std::string given(front, text);
  const char* const piece = filter;
  utf8::next(filter);
  const std::string wanted(piece, filter);
  return !given.empty() &&
         (wanted == "?" || wanted == given || (!exact && _mbsicmp(wanted.c_str(), given.c_str()) == 0)) &&
         naive_match(filter, text, exact);
}

TEST(Match, AgreesWithItsMeaning) {
  std::mt19937 random(20240607);
  const std::string_view pieces[] = {"a", "a", "A", "b", "é", "É", "\xC3", "*", "*", "?"};
  const auto below = [&](unsigned bound) { return random() % bound; };
  for (int round = 0; round < 60000; ++round) {
    std::string filter;
    std::string text;
    if (round % 60 != 0) {
      for (auto left = below(8); left > 0; --left) filter += pieces[below(10)];
      for (auto left = below(8); left > 0; --left) text += pieces[below(7)];
    } else {  // stretches that a plain search compares again and again
      for (auto left = 60 + below(80); left > 0; --left) text += pieces[below(64) < 60 ? 0 : below(7)];
      const bool mixed = below(2) != 0;
      filter = "*";
      for (auto left = 10 + below(40); left > 0; --left)
        filter += below(32) != 0 ? "a" : mixed && below(2) != 0 ? "?" : pieces[below(7)];
      if (below(2) != 0) filter += "*aaaaaaaaaaab";
      if (below(2) != 0) filter += "*";
    }
    const bool exact = below(2) != 0;
    ASSERT_EQ(kelp_text_match(filter.c_str(), text.c_str(), exact ? 1 : 0, 0, 0),
              naive_match(filter.c_str(), text.c_str(), exact))
        << filter << " / " << text;
  }
  EXPECT_NE(kelp_text_match(nullptr, "", 0, 0, 0), 0);
  EXPECT_EQ(kelp_text_match("a", nullptr, 0, 0, 0), 0);
}

TEST(Match, IsQuickWhateverTheTexts) {
  const std::string text(1 << 20, 'a');
  const std::string any(100, '?');
  for (const std::size_t place : {99U, 100U, 199U, 200U}) {
    const std::string one_b = std::string(place, 'a') + "b" + std::string(299 - place, 'a');
    EXPECT_EQ(kelp_text_match(("*" + any + "b" + any + "*").c_str(), one_b.c_str(), 1, 0, 0) != 0,
              place >= 100 && place <= 199);
  }
  EXPECT_FALSE(kelp_text_match("*a*a*a*a*b", text.c_str(), 1, 0, 0));
  EXPECT_TRUE(kelp_text_match(("*" + text + "*").c_str(), text.c_str(), 1, 0, 0));
  EXPECT_FALSE(kelp_text_match(("*" + text.substr(1) + "b").c_str(), text.c_str(), 1, 0, 0));
  EXPECT_FALSE(kelp_text_match(("*" + text.substr(text.size() / 2) + "b*").c_str(), text.c_str(), 1, 0, 0));
}

}  // namespace
