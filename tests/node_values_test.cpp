// The values and attributes of the host's nodes: which texts are numbers, and what comes back of what was
// written.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <climits>
#include <clocale>
#include <cmath>
#include <limits>
#include <locale>
#include <map>
#include <string>
#include <vector>

#include "tree_text.h"

namespace {

using Node = RYXmlWrapperBase;
using Numbers = CArray<double, double>;

const _variant_t* const kNoVariant = nullptr;

std::string value_of(Node& node) {
  CString value;
  return node.NodeValue(value, 1, 1, nullptr) != 0 ? value.GetString() : "?";
}

TEST(NodeValues, IntsAreReadFromTheseTexts) {
  constexpr int kUnread = 77;
  const std::map<int, std::vector<const char*>> kTexts = {
      {5, {"5", " 5 ", "\t5\n", "+5", "005", "5.0", "0.5e1"}},
      {-15, {"-15", " -15.0", "-1.5e1"}},
      {0, {"0", "-0", "-0.0"}},
      {100000, {"1e+05", "+100000"}},
      {INT_MAX, {"2147483647", "2.147483647e9"}},
      {INT_MIN, {"-2147483648", "-2147483648.0"}},
      {kUnread,
       {"", " ", "1.5", "2147483648", "-2147483649", "1e400", "0x10", "--5", "+-5", "- 5", "5 5", "5a",
        "18446744073709551621", "a", "nan", "inf", "+", "1,5"}}};
  Node top = parse("<Root/>");
  for (const auto& [value, texts] : kTexts) {
    for (const char* const text : texts) {
      const int read = value == kUnread ? 0 : 1;
      int from_attribute = kUnread, from_value = kUnread;
      bool truth = value == 0 || value == kUnread;
      top.SetPropertyValue("x", text), top.CheckSetValue(0, text, 0);
      EXPECT_EQ(top.GetPropertyValue("x", from_attribute), read) << text;
      EXPECT_EQ(top.NodeValue(from_value, 1), read) << text;
      EXPECT_EQ(top.NodeValue(truth, 1), read) << text;
      EXPECT_TRUE(from_attribute == value && from_value == value && truth == (value != 0)) << text;
      EXPECT_EQ(value_of(top), text);
    }
  }
}

TEST(NodeValues, DoublesAreShortAndComeBackInAnyLocale) {
  struct Comma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
  };
  const std::locale former = std::locale::global(std::locale(std::locale(), new Comma));
  for (const char* const name : {"de_DE.UTF-8", "fr_FR.UTF-8"}) std::setlocale(LC_NUMERIC, name);
  using Limits = std::numeric_limits<double>;
  const Rows<double, const char*> cases = {{0.1, "0.1"},
                                           {-2.5, "-2.5"},
                                           {1e5, "1e+05"},
                                           {123456, "123456"},
                                           {-0.0, "-0"},
                                           {1 / 3., "0.3333333333333333"},
                                           {-1.23456789e-300, "-1.23456789e-300"},
                                           {Limits::denorm_min(), "5e-324"},
                                           {Limits::max(), "1.7976931348623157e+308"},
                                           {Limits::infinity(), "inf"},
                                           {-Limits::infinity(), "-inf"},
                                           {Limits::quiet_NaN(), "nan"}};
  const auto same = [](double a, double b) {
    return std::isnan(a) ? std::isnan(b) : a == b && std::signbit(a) == std::signbit(b);
  };
  Node top = parse("<Root/>");
  Numbers all;
  std::string list;
  for (auto [value, text] : cases) {
    double from_attribute = 7.5, from_value = 7.5;
    CString written;
    top.SetPropertyValue("x", value);
    top.NodeValue(value, 0);
    EXPECT_TRUE(top.GetPropertyValue("x", written) != 0 && written == text) << written.GetString();
    EXPECT_EQ(value_of(top), text);
    EXPECT_TRUE(top.GetPropertyValue("x", from_attribute) != 0 && same(value, from_attribute)) << text;
    EXPECT_TRUE(top.NodeValue(from_value, 1) != 0 && same(value, from_value)) << text;
    all.Add(value);
    list += (list.empty() ? "" : " ") + std::string(text);
  }
  EXPECT_TRUE(top.NodeValue(all, 0) != 0 && value_of(top) == list) << value_of(top);
  Numbers back = all;
  ASSERT_TRUE(top.NodeValue(back, 1) != 0 && back.GetSize() == all.GetSize());
  for (int i = 0; i < all.GetSize(); ++i) EXPECT_TRUE(same(all[i], back[i])) << i;

  for (const char* const text : {"", " ", "x", "1,5", "0x10", "1.5.2", "--1", "1 2"}) {
    double number = 7.5;
    top.SetPropertyValue("x", text);
    top.CheckSetValue(0, text, 0);
    EXPECT_TRUE(top.GetPropertyValue("x", number) == 0 && top.NodeValue(number, 1) == 0 && number == 7.5)
        << text;
  }
  std::locale::global(former);
  std::setlocale(LC_NUMERIC, "C");
}

TEST(NodeValues, ValuesOfOtherKinds) {
  Node top = parse("<Root/>");
  bool truth = true;
  EXPECT_TRUE(top.NodeValue(truth, 0) != 0 && value_of(top) == "1");
  truth = false;
  EXPECT_TRUE(top.NodeValue(truth, 0) != 0 && value_of(top) == "0");

  for (const auto& [list, size] : Rows<const char*, int>{{"", 0}, {"1", 1}, {"1 -2.5 1e+05", 3}}) {
    Numbers numbers;
    tagRYSOBJVECT vector;
    numbers.Add(5), vector.values.Add(5);
    top.CheckSetValue(0, list, 0);
    EXPECT_TRUE(top.NodeValue(numbers, 1) != 0 && numbers.GetSize() == size) << list;
    EXPECT_TRUE(top.GetVector(vector) == 0 && vector.values.GetSize() == size) << list;
    EXPECT_TRUE(size < 3 || (numbers[1] == -2.5 && vector.values[2] == 1e5));
    top.ResetNode(1);
    EXPECT_TRUE(top.SetVector(vector) == 0 && value_of(top) == list) << value_of(top);
  }
  for (const char* const no_list : {"1 x", "1,2", "1;2", "x"}) {
    Numbers numbers;
    tagRYSOBJVECT vector;
    numbers.Add(5), vector.values.Add(5);
    top.CheckSetValue(0, no_list, 0);
    EXPECT_TRUE(top.NodeValue(numbers, 1) == 0 && numbers.GetSize() == 1) << no_list;
    EXPECT_TRUE(top.GetVector(vector) != 0 && vector.values.GetSize() == 1) << no_list;
  }
  int number = 8;
  EXPECT_EQ(top.NodeValue(number, 0), 1);
  Numbers one;
  EXPECT_TRUE(top.NodeValue(one, 1) != 0 && one.GetSize() == 1 && one[0] == 8);

  const Rows<int, bool, const char*> stores = {
      {0, true, "<h>v</h>"}, {1, true, "<h Use=\"v\"/>"}, {2, false, "<h/>"}, {-1, false, "<h/>"}};
  for (const auto& [f, stored, xml] : stores) {
    Node from_text = parse("<h/>");
    Node from_string = parse("<h/>");
    EXPECT_TRUE((from_text.CheckSetValue(9, "v", f) != 0) == stored && text(from_text) == xml) << f;
    EXPECT_TRUE((from_string.CheckSetValue(9, CString("v"), f) != 0) == stored && text(from_string) == xml)
        << f;
  }
}

TEST(NodeValues, AttributesKeepTheOrderOfTheirFirstWriting) {
  Node top = parse("<t/>");
  const _variant_t kVariants[] = {_variant_t(5), _variant_t(0.5), _variant_t("x"), _variant_t()};
  top.SetPropertyValue("z", 1), top.SetPropertyValue("b", &kVariants[1]),
      top.SetPropertyValue("a", &kVariants[2]);
  top.SetPropertyValue("z", &kVariants[0]), top.SetDataID(2), top.SetShow(0), top.SetLabel("l");
  EXPECT_EQ(text(top), R"(<t z="5" b="0.5" a="x" DataID="2" Show="0" Label="l"/>)");
  top.SetPropertyValue("b", &kVariants[3]), top.SetPropertyValue("a", kNoVariant);
  EXPECT_TRUE(top.RemoveProperty("z") != 0 && top.SetPropertyValue("z", 6) != 0 &&
              top.RemoveProperty("Z") == 0);
  EXPECT_EQ(text(top), R"(<t b="" a="" DataID="2" Show="0" Label="l" z="6"/>)");

  Node source = parse("<s/>");
  source.SetPropertyValue("new", 1), source.SetDataID(3), source.SetID(4, false);
  EXPECT_TRUE(top.CopyAllAttributes(source, 1) != 0 && top.CopyAllAttributes(Node(top), 1) != 0);
  EXPECT_EQ(text(top), R"(<t b="" a="" DataID="3" Show="0" Label="l" z="6" new="1"/>)");

  Node many = parse("<m/>");
  std::string expected = "<m";
  for (int round = 0; round < 2; ++round) {
    for (int i = 0; i < 1000; ++i)
      ASSERT_EQ(many.SetPropertyValue(("n" + std::to_string(i)).c_str(), i + round), 1);
  }
  for (int i = 0; i < 1000; i += 2) ASSERT_EQ(many.RemoveProperty(("n" + std::to_string(i)).c_str()), 1);
  for (int i = 1; i < 1000; i += 2)
    expected += " n" + std::to_string(i) + "=\"" + std::to_string(i + 1) + "\"";
  EXPECT_EQ(text(many), expected + "/>");
}

TEST(NodeValues, TextsOfEveryLength) {
  const std::size_t kLengths[] = {0, 1, 11, 12, 13, 14, 100, 504, 512, 513, 600, 100000};
  for (const std::size_t from : kLengths) {
    for (const std::size_t to : kLengths) {
      Node top = parse("<t/>");
      const std::string before(from, 'a');
      const std::string after(to, 'b');
      top.SetPropertyValue("x", before.c_str()), top.CheckSetValue(0, before.c_str(), 0);
      Node copy;
      top.Clone(copy, 1);
      top.SetPropertyValue("x", after.c_str()), top.CheckSetValue(0, after.c_str(), 0);
      CString attribute;
      EXPECT_TRUE(top.GetPropertyValue("x", attribute) != 0 && attribute == after.c_str())
          << from << " " << to;
      EXPECT_EQ(value_of(top), after) << from;
      EXPECT_TRUE(copy.GetPropertyValue("x", attribute) != 0 && attribute == before.c_str())
          << from << " " << to;
      EXPECT_EQ(value_of(copy), before) << to;
    }
  }
}

long most_memory_in_kib() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

TEST(NodeValues, LongTextsAreGivenBack) {
  const std::string long_text(100000, 'x');
  const Node top = parse("<Root><a/><b/></Root>");
  Node source = at(top, {0});
  Node target = at(top, {1});
  source.SetPropertyValue("a", long_text.c_str()), source.CheckSetValue(0, long_text.c_str(), 0);
  const std::vector<void (*)(Node&, Node&)> edits = {

      [](Node& from, Node& to) { to.Replace(from, 1, 0, 0); },
      [](Node& from, Node& to) { to.CopyAllAttributes(from, 1); },
      [](Node& from, Node& to) { to.CopyAllAttributes(from, 1), to.RemoveProperty("a"); },
      [](Node& from, Node& to) { to.CopyAllAttributes(from, 1), to.SetPropertyValue("a", 1); },
      [](Node& from, Node& to) { to.CopyAllAttributes(from, 1), to.SetPropertyValue("a", "x"); },
      [](Node& from, Node& to) { to.AddNodeCopy(from, 1), to.RemoveAllChildren(); }};
  for (const auto& edit : edits) {
    const long before = most_memory_in_kib();
    for (int round = 0; round < 6000; ++round) edit(source, target);
    EXPECT_LT(most_memory_in_kib() - before, 400000) << &edit - edits.data();
  }
}

}  // namespace
