// The values and attributes of the host's nodes: which texts are numbers, and what written values read as.
#include <algorithm>
#include <climits>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <locale>
#include <map>
#include <random>
#include <sstream>
#include <vector>

#include "rytree_host/variant.h"
#include "tree_text.h"

namespace {

using Node = RYXmlWrapperBase;
using Numbers = CArray<double, double>;

std::string value_of(Node& node) {
  CString value;
  return node.NodeValue(value, 1, 1, nullptr) != 0 ? value.GetString() : "?";
}
// In the attribute x and in the value.
void put(Node& node, const char* text) { node.SetPropertyValue("x", text), node.CheckSetValue(0, text, 0); }

TEST(NodeValues, ReadIntsFromTheseTexts) {
  constexpr int kUnread = 77;
  const std::map<int, std::vector<const char*>> kTexts = {
      {5, {"5", " 5 ", "\t5\n", "+5", "005", "0000000005", "5.0", "0.5e1"}},
      {-15, {"-15", "-00000015", "-0000000000015", " -15.0"}},
      {0, {"0", "-0", "-0.0"}},
      {100000, {"1e+05"}},
      {INT_MAX, {"2147483647", "2.147483647e9"}},
      {INT_MIN, {"-2147483648", "-2147483648.0"}},
      {kUnread, {"", " ", "1.5", "2147483648", "-2147483649", "1e400", "0x10", "+-5", "5 5", "nan", "+"}}};
  Node top = parse("<Root/>");
  for (const auto& [value, texts] : kTexts) {
    for (const char* const text : texts) {
      const int read = value == kUnread ? 0 : 1;
      int from_attribute = kUnread, from_value = kUnread;
      bool truth = value == 0 || value == kUnread;
      put(top, text);
      EXPECT_EQ(value_of(top), text);  // as it was written
      EXPECT_EQ(top.GetPropertyValue("x", from_attribute), read) << text;
      EXPECT_EQ(top.NodeValue(from_value, 1), read) << text;
      EXPECT_EQ(top.NodeValue(truth, 1), read) << text;
      EXPECT_EQ(std::tuple(from_attribute, from_value, truth), std::tuple(value, value, value != 0)) << text;
    }
  }
}

TEST(NodeValues, HoldDoublesInShortFormInAnyLocale) {
  struct Comma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
  };
  const std::string list =
      "0.1 -2.5 1e+05 123456 -0 0.3333333333333333 -1.23456789e-300 5e-324 1.7976931348623157e+308 inf -inf "
      "nan";
  std::vector<std::pair<std::string, double>> values;
  std::istringstream words(list);
  for (std::string word; words >> word;) values.emplace_back(word, std::strtod(word.c_str(), nullptr));
  const std::locale former = std::locale::global(std::locale(std::locale(), new Comma));
  for (const char* const name : {"de_DE.UTF-8", "fr_FR.UTF-8"}) std::setlocale(LC_NUMERIC, name);
  const auto same = [](double a, double b) {
    return std::isnan(a) ? std::isnan(b) : a == b && std::signbit(a) == std::signbit(b);
  };
  Node top = parse("<Root/>"), array = parse("<Root>" + list + "</Root>");
  Numbers all;
  EXPECT_EQ(array.NodeValue(all, 1), 1);
  EXPECT_EQ(all.GetSize(), std::ssize(values));
  for (auto [word, value] : values) {
    double from_attribute = 7.5, from_value = 7.5;
    top.SetPropertyValue("x", value), top.NodeValue(value, 0);
    EXPECT_EQ(text(top), "<Root x=\"" + word + "\">" + word + "</Root>");
    EXPECT_EQ(top.GetPropertyValue("x", from_attribute), 1);
    EXPECT_EQ(top.NodeValue(from_value, 1), 1);
    for (const double read : {from_attribute, from_value, all[0]}) EXPECT_PRED2(same, value, read);
    all.RemoveAt(0), all.Add(value);
  }
  EXPECT_EQ(top.NodeValue(all, 0), 1);
  EXPECT_EQ(value_of(top), list);

  for (const char* const text : {"", " ", "x", "1,5", "0x10", "1.5.2", "--1", "1 2"}) {
    double number = 7.5;
    put(top, text);
    EXPECT_EQ(top.GetPropertyValue("x", number), 0) << text;
    EXPECT_EQ(top.NodeValue(number, 1), 0) << text;
    EXPECT_EQ(number, 7.5) << text;
  }
  std::locale::global(former);
  std::setlocale(LC_NUMERIC, "C");
}

TEST(NodeValues, HoldOtherKinds) {
  Node top = parse("<Root/>");
  for (bool truth : {true, false}) {
    EXPECT_EQ(top.NodeValue(truth, 0), 1);
    EXPECT_EQ(value_of(top), truth ? "1" : "0");
  }
  const Rows<const char*, int> lists = {{"", 0}, {"1", 1}, {"1 -2.5 1e+05", 3}, {"1 x", -1}, {"1,2", -1}};
  for (const auto& [list, size] : lists) {
    Numbers numbers;
    tagRYSOBJVECT vector;
    numbers.Add(5), numbers.Add(5), vector.values = numbers;
    put(top, list);
    EXPECT_EQ(top.NodeValue(numbers, 1), size < 0 ? 0 : 1);
    EXPECT_EQ(top.GetVector(vector), size < 0 ? -1 : 0);
    const std::string kept = size < 0 ? "5 5" : list;
    EXPECT_EQ(top.SetVector(vector), 0);
    EXPECT_EQ(value_of(top), kept);
    put(top, "");
    EXPECT_EQ(top.NodeValue(numbers, 0), 1);
    EXPECT_EQ(value_of(top), kept);
  }
  int number = 8;
  Numbers one;
  EXPECT_EQ(top.NodeValue(number, 0), 1);
  EXPECT_EQ(top.NodeValue(one, 1), 1);
  EXPECT_EQ(std::vector(one.begin(), one.end()), std::vector{8.0});

  const Rows<int, int, const char*> stores = {
      {0, 1, "<h>v</h>"}, {1, 1, "<h Use=\"v\"/>"}, {2, 0, "<h/>"}, {-1, 0, "<h/>"}};
  for (const auto& [f, stored, xml] : stores) {
    Node from_text = parse("<h/>"), from_string = parse("<h/>");
    EXPECT_EQ(from_text.CheckSetValue(9, "v", f), stored);
    EXPECT_EQ(from_string.CheckSetValue(9, CString("v"), f), stored);
    for (const Node& node : {from_text, from_string}) EXPECT_EQ(text(node), xml);
  }
}

TEST(NodeValues, AreAsManyAsWanted) {
  std::mt19937 random(11);
  Node top = parse("<t/>");
  std::vector<std::pair<std::string, int>> expected;
  int most = 60;
  for (int round = 0; round < 30000; ++round) {
    if (round % 3000 == 0) most = most == 60 ? 300 : 60;
    const std::string name = "n" + std::to_string(random() % 400);
    const auto at =
        std::find_if(expected.begin(), expected.end(), [&](const auto& one) { return one.first == name; });
    const bool there = at != expected.end();
    int value = -1;
    ASSERT_EQ(top.GetPropertyValue(name.c_str(), value), there ? 1 : 0);
    ASSERT_EQ(value, there ? at->second : -1);
    if (static_cast<int>(expected.size()) > most || random() % 8 == 0) {
      const std::string gone = random() % 2 != 0 || expected.empty() ? name : expected.back().first;
      ASSERT_EQ(top.RemoveProperty(RYPropertyName(gone.c_str())),
                std::erase_if(expected, [&](const auto& one) { return one.first == gone; }));
    } else if (there) {
      top.SetPropertyValue(name.c_str(), at->second = round);
    } else if (static_cast<int>(expected.size()) < most) {
      top.SetPropertyValue(RYPropertyName(name.c_str()), round);
      expected.emplace_back(name, round);
    }
    if (round % 500 == 0) {
      std::string xml = "<t";
      for (const auto& [key, number] : expected) xml += " " + key + "=\"" + std::to_string(number) + "\"";
      ASSERT_EQ(text(top), xml + "/>");
      // The same attributes from a reader, and copied.
      ASSERT_EQ(top.SetXmlText(text(top).c_str()), 1);
      if (round % 1500 == 0) top.Clone(top, 1);
    }
  }
}

TEST(NodeValues, KeepTheOrderOfTheirFirstWriting) {
  Node top = parse("<t/>");
  const _variant_t kVariants[] = {_variant_t(5), _variant_t(0.5), _variant_t("x"), _variant_t()};
  const _variant_t* const kNoVariant = nullptr;
  const char* const kWritten[] = {"z", "b", "a"};
  top.SetPropertyValue("z", 1);
  for (const int i : {1, 2, 0}) top.SetPropertyValue(kWritten[i], &kVariants[i]);
  top.SetDataID(2), top.SetShow(0), top.SetLabel("l");
  EXPECT_EQ(text(top), R"(<t z="5" b="0.5" a="x" DataID="2" Show="0" Label="l"/>)");
  top.SetPropertyValue("b", &kVariants[3]), top.SetPropertyValue("a", kNoVariant);
  EXPECT_EQ(top.RemoveProperty("z"), 1);
  EXPECT_EQ(top.SetPropertyValue("z", 6), 1);
  EXPECT_EQ(top.RemoveProperty("Z"), 0);
  for (const Node& source : {parse("<s _NodeID='4' new='1' DataID='3'/>"), top})
    EXPECT_EQ(top.CopyAllAttributes(source, 1), 1);
  EXPECT_EQ(text(top), R"(<t b="" a="" DataID="3" Show="0" Label="l" z="6" new="1"/>)");
}

}  // namespace
