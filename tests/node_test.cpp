// The host's node class, one topic a table. Edits in every order stand in node_model_test.cpp.
#include <gtest/gtest.h>

#include <climits>
#include <clocale>
#include <cmath>
#include <limits>
#include <locale>
#include <map>
#include <span>
#include <string>
#include <thread>
#include <vector>

#include "rytree_host/node.h"

namespace {

using Node = RYXmlWrapperBase;
using Numbers = CArray<double, double>;

const _variant_t* const kNoVariant = nullptr;

Node root(const char* tag = nullptr) {
  Node made;
  made.CreateNew(0, tag);
  return made;
}

Node child(Node& parent, const char* tag = "c", int id = -1) {
  Node made;
  parent.AddNode(made, tag, id);
  return made;
}

std::string xml(const Node& node) {
  CString text;
  return node.GetXmlText(&text) != 0 ? text.GetString() : "";
}

std::string tag_of(const Node& node) {
  CString tag;
  return node.GetTagName(tag) != 0 ? tag.GetString() : "";
}

std::string text_of(Node& node) {
  CString text;
  return node.NodeValue(text, 1, 1, nullptr) != 0 ? text.GetString() : "?";
}

// Where an operation puts its results, with values that show whether it did, and the arguments for it.
struct Outputs {
  int number = 77;
  double real = 7.5;
  bool flag = true;
  CString text = "kept";
  Numbers numbers;
  tagRYSOBJVECT vector;
  Node other = root("Other");
  Node node = child(other, "Kept");
  const char* name = "c";

  Outputs() { numbers.Add(5), vector.values.Add(5); }
  bool untouched() const {
    return number == 77 && real == 7.5 && flag && text == "kept" && numbers.GetSize() == 1 &&
           vector.values.GetSize() == 1 && xml(other) == "<Other><Kept/></Other>" && tag_of(node) == "Kept";
  }
};

struct Operation {
  const char* name;
  int (*call)(Node& node, Outputs& o);
};
using Operations = std::span<const Operation>;

// All that a node can be asked but CreateNew and load, which need none. Nonzero is success for all of them.
const Operation kTagged[] = {
    {"AddNode", [](Node& n, Outputs& o) { return n.AddNode(o.node, o.name, 1); }},
    {"AddChildNode", [](Node& n, Outputs& o) { return n.AddChildNode(o.name, o.node, 1, nullptr); }},
    {"InsertNodeBefore", [](Node& n, Outputs& o) { return n.InsertNodeBefore(o.node, o.name, 1); }},
    {"AddTextNode", [](Node& n, Outputs& o) { return n.AddTextNode(o.node, "", o.name, 1, 0, nullptr); }}};

const Operation kAttributed[] = {
    {"int", [](Node& n, Outputs& o) { return n.SetPropertyValue(o.name, 1); }},
    {"double", [](Node& n, Outputs& o) { return n.SetPropertyValue(o.name, 1.5); }},
    {"string", [](Node& n, Outputs& o) { return n.SetPropertyValue(o.name, o.text); }},
    {"text", [](Node& n, Outputs& o) { return n.SetPropertyValue(o.name, "1"); }},
    {"variant", [](Node& n, Outputs& o) { return n.SetPropertyValue(o.name, kNoVariant); }},
    {"int of name", [](Node& n, Outputs& o) { return n.SetPropertyValue(RYPropertyName(o.name), 1); }},
    {"text of name", [](Node& n, Outputs& o) { return n.SetPropertyValue(RYPropertyName(o.name), o.text); }}};

const Operation kLookups[] = {
    {"int", [](Node& n, Outputs& o) { return n.GetPropertyValue(o.name, o.number); }},
    {"double", [](Node& n, Outputs& o) { return n.GetPropertyValue(o.name, o.real); }},
    {"text", [](Node& n, Outputs& o) { return n.GetPropertyValue(o.name, o.text); }},
    {"int of name", [](Node& n, Outputs& o) { return n.GetPropertyValue(RYPropertyName(o.name), o.number); }},
    {"double of name",
     [](Node& n, Outputs& o) { return n.GetPropertyValue(RYPropertyName(o.name), o.real); }},
    {"text of name", [](Node& n, Outputs& o) { return n.GetPropertyValue(RYPropertyName(o.name), o.text); }},
    {"HasProperty", [](Node& n, Outputs& o) { return n.HasProperty(RYPropertyName(o.name)); }},
    {"HasTagName", [](Node& n, Outputs& o) { return n.HasTagName(RYPropertyName(o.name)); }},
    {"RemoveProperty", [](Node& n, Outputs& o) { return n.RemoveProperty(o.name); }},
    {"remove of name", [](Node& n, Outputs& o) { return n.RemoveProperty(RYPropertyName(o.name)); }},
    {"find text", [](Node& n, Outputs& o) { return n.FindNodeByAttribute(o.node, o.name, "4", 0, 1); }},
    {"find number", [](Node& n, Outputs& o) { return n.FindNodeByAttribute(o.node, o.name, 4, 1); }}};

const Operation kOthers[] = {
    {"IsNodeValid", [](Node& n, Outputs&) { return n.IsNodeValid(); }},
    {"IsValid", [](Node& n, Outputs&) { return static_cast<const TESAObj&>(n).IsValid(); }},
    {"FirstChild", [](Node& n, Outputs& o) { return n.FirstChild(o.node); }},
    {"NextSibling", [](Node& n, Outputs& o) { return n.NextSibling(o.node); }},
    {"PrevSibling", [](Node& n, Outputs& o) { return n.PrevSibling(o.node); }},
    {"GetParent", [](Node& n, Outputs& o) { return n.GetParent(o.node); }},
    {"GetChild", [](Node& n, Outputs& o) { return n.GetChild(o.node, 0); }},
    {"GetNodeCount", [](Node& n, Outputs&) { return n.GetNodeCount(); }},
    {"HasChildren", [](Node& n, Outputs&) { return n.HasChildren(0); }},
    {"IsEmpty", [](Node& n, Outputs&) { return n.IsEmpty(); }},
    {"CopyAllAttributes", [](Node& n, Outputs& o) { return n.CopyAllAttributes(o.other, 1); }},
    {"attributes of it", [](Node& n, Outputs& o) { return o.other.CopyAllAttributes(n, 1); }},
    {"read int", [](Node& n, Outputs& o) { return n.NodeValue(o.number, 1); }},
    {"read double", [](Node& n, Outputs& o) { return n.NodeValue(o.real, 1); }},
    {"read bool", [](Node& n, Outputs& o) { return n.NodeValue(o.flag, 1); }},
    {"read array", [](Node& n, Outputs& o) { return n.NodeValue(o.numbers, 1); }},
    {"read text", [](Node& n, Outputs& o) { return n.NodeValue(o.text, 1, 1, nullptr); }},
    {"write int", [](Node& n, Outputs& o) { return n.NodeValue(o.number, 0); }},
    {"write double", [](Node& n, Outputs& o) { return n.NodeValue(o.real, 0); }},
    {"write bool", [](Node& n, Outputs& o) { return n.NodeValue(o.flag, 0); }},
    {"write array", [](Node& n, Outputs& o) { return n.NodeValue(o.numbers, 0); }},
    {"write text", [](Node& n, Outputs& o) { return n.NodeValue(o.text, 0, 1, nullptr); }},
    {"GetNodeString", [](Node& n, Outputs& o) { return n.GetNodeStringWithBlobInfo(o.text, 0); }},
    {"CheckSetValue text", [](Node& n, Outputs&) { return n.CheckSetValue(0, "x", 0); }},
    {"CheckSetValue Use", [](Node& n, Outputs& o) { return n.CheckSetValue(0, o.text, 1); }},
    {"GetVector", [](Node& n, Outputs& o) { return n.GetVector(o.vector) == 0 ? 1 : 0; }},
    {"SetVector", [](Node& n, Outputs& o) { return n.SetVector(o.vector) == 0 ? 1 : 0; }},
    {"FindChild", [](Node& n, Outputs& o) { return n.FindChild("c", o.node, 1); }},
    {"GetTagName", [](Node& n, Outputs& o) { return n.GetTagName(o.text); }},
    {"GetID", [](Node& n, Outputs& o) { return n.GetID(o.number); }},
    {"SetID", [](Node& n, Outputs&) { return n.SetID(3, false); }},
    {"insert before it", [](Node& n, Outputs& o) { return o.other.InsertNodeBefore(n, "x", 1); }},
    {"AddNodeCopy", [](Node& n, Outputs& o) { return n.AddNodeCopy(o.other, 1); }},
    {"add a copy of it", [](Node& n, Outputs& o) { return o.other.AddNodeCopy(n, 1); }},
    {"RemoveChild", [](Node& n, Outputs& o) { return n.RemoveChild(o.node, nullptr); }},
    {"remove it",
     [](Node& n, Outputs& o) {
       int status = 0;
       return o.other.RemoveChild(n, &status) == 0 && status < 0 ? 0 : 1;
     }},
    {"RemoveNode", [](Node& n, Outputs&) { return n.RemoveNode(); }},
    {"RemoveAllChildren", [](Node& n, Outputs&) { return n.RemoveAllChildren(); }},
    {"SetSizeTrimFromEnd", [](Node& n, Outputs&) { return n.SetSizeTrimFromEnd(0); }},
    {"Clone", [](Node& n, Outputs& o) { return n.Clone(o.node, 1); }},
    {"Replace", [](Node& n, Outputs& o) { return n.Replace(o.other, 1, 0, 0); }},
    {"replace by it", [](Node& n, Outputs& o) { return o.other.Replace(n, 1, 0, 0); }},
    {"ReplaceByNodeCopy", [](Node& n, Outputs& o) { return n.ReplaceByNodeCopy(o.other, 1, 0); }},
    {"ExchangeContent", [](Node& n, Outputs& o) { return n.ExchangeContent(o.other); }},
    {"exchange with it", [](Node& n, Outputs& o) { return o.other.ExchangeContent(n); }},
    {"ResetNode", [](Node& n, Outputs&) { return n.ResetNode(1); }},
    {"GetXmlText", [](Node& n, Outputs& o) { return n.GetXmlText(&o.text); }},
    {"SetXmlText", [](Node& n, Outputs&) { return n.SetXmlText("<x/>"); }},
    {"Save", [](Node& n, Outputs&) { return n.Save("no-such-directory/x.xml"); }}};

TEST(Node, NothingWorksOnNoNode) {
  // Each gets a tree with a row of three children, and a handle on something in it that it makes invalid.
  const struct {
    const char* name;
    void (*kill)(Node& top, Node& node, Node& below);
  } kEnds[] = {{"default", [](Node&, Node&, Node& below) { below = Node(); }},
               {"released", [](Node&, Node&, Node& below) { below.ReleaseNode(); }},
               {"moved from", [](Node&, Node&, Node& below) { Node taken(std::move(below)); }},
               {"removed", [](Node&, Node&, Node& below) { Node(below).RemoveNode(); }},
               {"removed as child", [](Node&, Node& node, Node& below) { node.RemoveChild(below, nullptr); }},
               {"parent removed", [](Node&, Node& node, Node&) { node.RemoveNode(); }},
               {"root removed", [](Node& top, Node&, Node&) { top.RemoveNode(); }},
               {"all children removed", [](Node& top, Node&, Node&) { top.RemoveAllChildren(); }},
               {"trimmed", [](Node& top, Node&, Node&) { top.SetSizeTrimFromEnd(1); }},
               {"reset", [](Node&, Node& node, Node&) { node.ResetNode(1); }},
               {"replaced", [](Node& top, Node& node, Node&) { node.Replace(Node(top), 1, 1, 0); }},
               {"replaced by itself", [](Node&, Node& node, Node&) { node.Replace(node, 1, 1, 0); }},
               {"parsed over", [](Node&, Node& node, Node&) { node.SetXmlText("<c><c/></c>"); }}};
  for (const auto& end : kEnds) {
    Node top = root();
    child(top).SetDataID(4);
    Node node = child(top);
    Node below = child(node);
    below.SetDataID(4);
    end.kill(top, node, below);
    for (int i = 0; i < 8 && top.IsNodeValid() != 0; ++i) child(top).SetDataID(4);  // takes up what was freed
    const std::string before = xml(top);
    for (const Operations operations :
         {Operations(kTagged), Operations(kAttributed), Operations(kLookups), Operations(kOthers)}) {
      for (const Operation& operation : operations) {
        Outputs outputs;
        EXPECT_EQ(operation.call(below, outputs), 0) << end.name << ", " << operation.name;
        EXPECT_TRUE(outputs.untouched()) << end.name << ", " << operation.name;
      }
    }
    EXPECT_EQ(xml(top), before) << end.name;
    EXPECT_TRUE(below == Node() && !(below == Outputs().node)) << end.name;
  }
}

TEST(Node, NamesAreXmlNamesEverywhere) {
  const std::vector<const char*> refused = {nullptr,        "",         "1a",       "-a",      ".a",
                                            "a b",          " a",       "a ",       "a<",      "a/",
                                            "a=",           "a\n",      "\xff",     "a\xc3",   "\xc0\xaf",
                                            "\xed\xa0\x80", "\xc3\x97", "\xc2\xb7", "_NodeID", "_NodeEscape"};
  const std::vector<const char*> taken = {"_x", "a-1.b", "\xc3\xa9", "\xe4\xb8\xad", "a\xc2\xb7", "_NodeIDs"};
  const auto check = [](Operations operations, const char* name, bool good) {
    for (const Operation& operation : operations) {
      Outputs outputs;
      outputs.name = name;
      outputs.other.SetID(4, false);
      outputs.node.SetID(4, false);
      const std::string before = xml(outputs.other);
      EXPECT_EQ(operation.call(outputs.other, outputs) != 0, good) << operation.name << CString(name).View();
      EXPECT_TRUE(good || xml(outputs.other) == before) << operation.name << CString(name).View();
      EXPECT_TRUE(good || outputs.node.GetNodeCount() == 0) << operation.name << CString(name).View();
    }
  };
  for (const bool good : {false, true}) {
    for (const char* const name : good ? taken : refused) {
      check(kTagged, name, good);
      check(kAttributed, name, good);
      check(kLookups, name, false);
      Node fresh = root("a");
      EXPECT_EQ(fresh.CreateNew(0, name) != 0, good || name == nullptr);
      EXPECT_EQ(tag_of(fresh), name == nullptr ? "Root" : good ? name : "a");
    }
  }
}

TEST(Node, NullPointersAreRefused) {
  Outputs outputs;
  Node& top = outputs.other;
  EXPECT_EQ(top.SetPropertyValue("a", static_cast<const char*>(nullptr)), 0);
  EXPECT_EQ(top.CheckSetValue(0, nullptr, 0) + top.CheckSetValue(0, nullptr, 1), 0);
  EXPECT_EQ(top.FindNodeByAttribute(outputs.node, "a", nullptr, 0, 1), 0);
  EXPECT_EQ(top.FindChild(nullptr, outputs.node, 1), 0);
  EXPECT_EQ(top.GetXmlText(nullptr) + top.SetXmlText(nullptr), 0);
  EXPECT_EQ(top.Save(nullptr) + top.load(nullptr, 0), 0);
  EXPECT_TRUE(outputs.untouched());
  EXPECT_TRUE(top.AddTextNode(top, nullptr, "t", -1, 0, nullptr) != 0 && xml(top) == "<t/>");
}

TEST(Node, IntsAreReadFromTheseTexts) {
  constexpr int kUnread = 77;
  const std::map<int, std::vector<const char*>> kTexts = {
      {5, {"5", " 5 ", "\t5\n", "+5", "005", "5.0", "0.5e1"}},
      {-15, {"-15", " -15.0", "-1.5e1"}},
      {0, {"0", "-0", "-0.0"}},
      {100000, {"1e+05", "+100000"}},
      {INT_MAX, {"2147483647", "2.147483647e9"}},
      {INT_MIN, {"-2147483648", "-2147483648.0"}},
      {kUnread,
       {"", " ", "1.5", "2147483648", "-2147483649", "1e400", "0x10", "--5", "+-5", "- 5", "5 5", "5a", "a",
        "nan", "inf", "+", "1,5"}}};
  Node top = root();
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
    }
  }
}

TEST(Node, DoublesAreShortAndComeBackInAnyLocale) {
  struct Comma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
  };
  const std::locale former = std::locale::global(std::locale(std::locale(), new Comma));
  for (const char* const name : {"de_DE.UTF-8", "fr_FR.UTF-8"}) std::setlocale(LC_NUMERIC, name);
  using Limits = std::numeric_limits<double>;
  const std::vector<std::pair<double, const char*>> kCases = {{0.1, "0.1"},
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
  Node top = root();
  Numbers all;
  std::string list;
  for (auto [value, text] : kCases) {
    double from_attribute = 7.5, from_value = 7.5;
    CString written;
    top.SetPropertyValue("x", value);
    top.NodeValue(value, 0);
    EXPECT_TRUE(top.GetPropertyValue("x", written) != 0 && written == text) << written.GetString();
    EXPECT_EQ(text_of(top), text);
    EXPECT_TRUE(top.GetPropertyValue("x", from_attribute) != 0 && same(value, from_attribute)) << text;
    EXPECT_TRUE(top.NodeValue(from_value, 1) != 0 && same(value, from_value)) << text;
    all.Add(value);
    list += (list.empty() ? "" : " ") + std::string(text);
  }
  EXPECT_TRUE(top.NodeValue(all, 0) != 0 && text_of(top) == list) << text_of(top);
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
}

TEST(Node, ValuesOfOtherKinds) {
  Node top = root();
  bool truth = true;
  EXPECT_TRUE(top.NodeValue(truth, 0) != 0 && text_of(top) == "1");
  truth = false;
  EXPECT_TRUE(top.NodeValue(truth, 0) != 0 && text_of(top) == "0");

  const struct {
    const char* text;
    int size;  // -1: no list
  } kLists[] = {{"", 0}, {"1", 1}, {"1 -2.5 1e+05", 3}, {"1 x", -1}, {"1,2", -1}, {"1;2", -1}};
  for (const auto& [text, size] : kLists) {
    Outputs outputs;
    top.CheckSetValue(0, text, 0);
    EXPECT_EQ(top.NodeValue(outputs.numbers, 1) != 0, size >= 0) << text;
    EXPECT_EQ(top.GetVector(outputs.vector) == 0, size >= 0) << text;
    EXPECT_EQ(outputs.numbers.GetSize(), size < 0 ? 1 : size) << text;
    EXPECT_EQ(outputs.vector.values.GetSize(), size < 0 ? 1 : size) << text;
    EXPECT_TRUE(size != 3 || (outputs.numbers[1] == -2.5 && outputs.vector.values[2] == 1e5));
    EXPECT_TRUE(size < 0 || (top.SetVector(outputs.vector) == 0 && text_of(top) == text)) << text_of(top);
  }
  int number = 8;
  EXPECT_EQ(top.NodeValue(number, 0), 1);
  Numbers one;
  EXPECT_TRUE(top.NodeValue(one, 1) != 0 && one.GetSize() == 1 && one[0] == 8);

  Node holder = root("h");
  const struct {
    int f;
    const char* xml;
  } kStores[] = {{0, "<h>v</h>"}, {1, "<h Use=\"v\"/>"}, {2, "<h/>"}, {-1, "<h/>"}};
  for (const auto& [f, stored] : kStores) {
    for (const bool as_string : {false, true}) {
      holder.SetXmlText("<h/>");
      EXPECT_EQ((as_string ? holder.CheckSetValue(9, CString("v"), f) : holder.CheckSetValue(9, "v", f)) != 0,
                f == 0 || f == 1);
      EXPECT_EQ(xml(holder), stored);
    }
  }
}

TEST(Node, AttributesKeepTheOrderOfTheirFirstWriting) {
  Node top = root("t");
  const _variant_t kVariants[] = {_variant_t(5), _variant_t(0.5), _variant_t("x"), _variant_t()};
  top.SetPropertyValue("z", 1), top.SetPropertyValue("b", &kVariants[1]),
      top.SetPropertyValue("a", &kVariants[2]);
  top.SetPropertyValue("z", &kVariants[0]), top.SetDataID(2), top.SetShow(0), top.SetLabel("l");
  EXPECT_EQ(xml(top), R"(<t z="5" b="0.5" a="x" DataID="2" Show="0" Label="l"/>)");
  top.SetPropertyValue("b", &kVariants[3]), top.SetPropertyValue("a", kNoVariant);
  EXPECT_TRUE(top.RemoveProperty("z") != 0 && top.SetPropertyValue("z", 6) != 0 &&
              top.RemoveProperty("Z") == 0);
  EXPECT_EQ(xml(top), R"(<t b="" a="" DataID="2" Show="0" Label="l" z="6"/>)");

  Node source = root("s");
  source.SetPropertyValue("new", 1), source.SetDataID(3), source.SetID(4, false);
  EXPECT_TRUE(top.CopyAllAttributes(source, 1) != 0 && top.CopyAllAttributes(Node(top), 1) != 0);
  EXPECT_EQ(xml(top), R"(<t b="" a="" DataID="3" Show="0" Label="l" z="6" new="1"/>)");

  Node many = root("m");
  std::string expected = "<m";
  for (int round = 0; round < 2; ++round) {
    for (int i = 0; i < 1000; ++i)
      ASSERT_EQ(many.SetPropertyValue(("n" + std::to_string(i)).c_str(), i + round), 1);
  }
  for (int i = 0; i < 1000; i += 2) ASSERT_EQ(many.RemoveProperty(("n" + std::to_string(i)).c_str()), 1);
  for (int i = 1; i < 1000; i += 2)
    expected += " n" + std::to_string(i) + "=\"" + std::to_string(i + 1) + "\"";
  EXPECT_EQ(xml(many), expected + "/>");
}

TEST(Node, TextsOfEveryLength) {
  const std::size_t kLengths[] = {0, 1, 11, 12, 13, 14, 100, 504, 512, 513, 600, 100000};
  for (const std::size_t from : kLengths) {
    for (const std::size_t to : kLengths) {
      Node top = root("t");
      const std::string before(from, 'a');
      const std::string after(to, 'b');
      top.SetPropertyValue("x", before.c_str()), top.CheckSetValue(0, before.c_str(), 0);
      Node copy;
      top.Clone(copy, 1);
      top.SetPropertyValue("x", after.c_str()), top.CheckSetValue(0, after.c_str(), 0);
      CString attribute;
      EXPECT_TRUE(top.GetPropertyValue("x", attribute) != 0 && attribute == after.c_str())
          << from << " " << to;
      EXPECT_EQ(text_of(top), after) << from;
      EXPECT_TRUE(copy.GetPropertyValue("x", attribute) != 0 && attribute == before.c_str())
          << from << " " << to;
      EXPECT_EQ(text_of(copy), before) << to;
    }
  }
}

TEST(Node, Finding) {
  Node top;
  top.CreateNew(0, nullptr);
  top.SetXmlText(R"(<r k="x"><a k="X"/><b k=""><c k="x" n="5"/></b><d n="5.0"/><b k="É" n="y"/></r>)");
  const struct {
    const char* name;
    const char* text;
    int number;  // where there is no text
    int x, y;
    const char* found;
  } kCases[] = {{"k", "x", 0, 0, 0, ""},     {"k", "x", 0, 1, 0, "a"},     {"k", "x", 0, 0, 1, "c"},
                {"k", "", 0, 0, 0, "b"},     {"k", "é", 0, 1, -1, "b"},    {"k", "é", 0, 0, 1, ""},
                {"K", "x", 0, 1, 1, ""},     {"n", nullptr, 5, 0, 0, "d"}, {"n", nullptr, 5, 0, 1, "c"},
                {"n", nullptr, 0, 0, 1, ""}, {"n", "5", 0, 0, 0, ""}};
  for (const auto& [name, text, number, x, y, found] : kCases) {
    Node out;
    const int result = text != nullptr ? top.FindNodeByAttribute(out, name, text, x, y)
                                       : top.FindNodeByAttribute(out, name, number, y);
    EXPECT_TRUE((result != 0) == (*found != '\0') && tag_of(out) == found) << name << " " << found;
  }
  Node at = top;
  Node first_b;
  EXPECT_TRUE(top.FindChild("b", first_b, 1) != 0 && first_b.GetNodeCount() == 1);
  EXPECT_TRUE(top.FindChild("c", at, 1) == 0 && top.FindChild("B", at, 1) == 0 &&
              first_b.FindChild("c", first_b, 1) != 0);
  EXPECT_EQ(tag_of(first_b), "c");
}

TEST(Node, NumbersAtTheEdge) {
  Node top = root();
  for (int i = 0; i < 4; ++i) child(top);
  const struct {
    int keep;
    int result;
    int left;
  } kTrims[] = {{INT_MAX, 1, 4}, {5, 1, 4}, {4, 1, 4}, {-1, 0, 4},
                {INT_MIN, 0, 4}, {3, 1, 3}, {0, 1, 0}, {0, 1, 0}};
  for (const auto& [keep, result, left] : kTrims) {
    EXPECT_EQ(top.SetSizeTrimFromEnd(keep) != 0, result != 0) << keep;
    EXPECT_EQ(top.GetNodeCount(), left) << keep;
  }
  child(top);
  for (const int index : {-1, 1, INT_MIN, INT_MAX}) {
    Node out = top;
    EXPECT_TRUE(top.GetChild(out, index) == 0 && out.IsNodeValid() == 0) << index;
  }
  for (const int id : {0, -2, INT_MIN, INT_MAX}) {
    int read = -1;
    EXPECT_TRUE(child(top, "c", id).GetID(read) != 0 && read == id);
  }
}

TEST(Node, TreeLivesAsLongAsAHandle) {
  Node leaf;
  {
    Node top = root();
    leaf = child(top, "leaf");
    top.CreateNew(0, "another");
  }
  Node up = leaf;
  EXPECT_TRUE(up.GetParent(up) != 0 && tag_of(up) == "Root" && up.GetNodeCount() == 1 && !(up == leaf));
  Node beyond = leaf;
  EXPECT_TRUE(up.GetParent(beyond) == 0 && beyond.IsNodeValid() == 0);
  EXPECT_TRUE(leaf.Clone(leaf, 1) != 0 && up.GetNodeCount() == 1 && leaf.GetParent(beyond) == 0);
  EXPECT_TRUE(up.AddNode(up, "in", -1) != 0 && tag_of(up) == "in");
  Node moved = std::move(up);
  EXPECT_TRUE(up == Node() && tag_of(moved) == "in");  // NOLINT(bugprone-use-after-move)
  moved = *&moved;
  EXPECT_EQ(tag_of(moved), "in");
}

TEST(Node, NoTreeIsDeeperThanItsBound) {
  Node top = root("t");
  Node deepest = top;
  Node last_but_one;
  for (int level = 2; level <= 1024; ++level) {
    last_but_one = deepest;
    ASSERT_EQ(deepest.AddNode(deepest, "t", -1), 1) << level;
  }
  Node leaf = root("leaf");
  Node two = root("two");
  Node two_below = child(two);
  const std::string before = xml(top);
  Node out;
  const auto refuse = [&](int line, int result) {
    EXPECT_TRUE(result == 0 && xml(top) == before && out == Node()) << line;
  };
  refuse(__LINE__, deepest.AddNode(out, "x", -1));
  refuse(__LINE__, deepest.AddChildNode("x", out, -1, nullptr));
  refuse(__LINE__, deepest.AddTextNode(out, "x", "x", -1, 0, nullptr));
  refuse(__LINE__, deepest.AddNodeCopy(leaf, 1));
  refuse(__LINE__, deepest.AddNodeCopy(deepest, 1));
  refuse(__LINE__, deepest.Replace(two, 1, 0, 0));
  refuse(__LINE__, deepest.Replace(top, 1, 1, 0));
  refuse(__LINE__, deepest.ReplaceByNodeCopy(last_but_one, 1, 0));
  refuse(__LINE__, deepest.SetXmlText("<two><c/></two>"));
  refuse(__LINE__, last_but_one.AddNodeCopy(two, 1));
  refuse(__LINE__, top.AddNodeCopy(top, 1));
  refuse(__LINE__, two_below.Replace(top, 1, 0, 0));
  EXPECT_EQ(xml(two), "<two><c/></two>");

  EXPECT_TRUE(top.Clone(out, 1) != 0 && xml(out) == before);
  EXPECT_TRUE(leaf.Replace(top, 1, 0, 0) != 0 && xml(leaf) == before);
  EXPECT_TRUE(last_but_one.InsertNodeBefore(deepest, "x", -1) != 0 &&
              last_but_one.AddNodeCopy(two_below, 1) != 0);
  EXPECT_TRUE(deepest.Replace(two_below, 1, 0, 0) != 0 && last_but_one.Replace(two, 1, 0, 0) != 0);
  EXPECT_EQ(last_but_one.GetNodeCount(), 1);
}

// Work on one tree that two threads can do at once, each on its own.
std::string busy_tree() {
  Node top = root();
  for (int i = 0; i < 2000; ++i) {
    Node node = child(top, i % 3 == 0 ? "a" : "b", i);
    node.SetPropertyValue("x", i / 8.0), node.SetPropertyValue(RYPropertyName("\xc3\xa9"), i);
    if (i % 5 == 0) node.AddNodeCopy(node, 1);
    if (i % 7 == 0) node.RemoveNode();
  }
  return xml(top);
}

TEST(Node, TwoThreadsWithTwoTrees) {
  std::string results[2];
  std::thread one([&] { results[0] = busy_tree(); });
  std::thread two([&] { results[1] = busy_tree(); });
  one.join(), two.join();
  EXPECT_TRUE(results[0] == results[1] && results[0] == busy_tree());
}

// Anything that is not in step with the number of children does not come to an end here.
TEST(Node, AMillionSiblings) {
  constexpr int kMany = 1000000;
  Node top = root();
  Node at = child(top, "first");
  for (int i = 1; i < kMany / 2; ++i) ASSERT_EQ(top.AddNode(at, "c", -1), 1);
  for (int i = 0; i < kMany / 2; ++i) ASSERT_EQ(top.InsertNodeBefore(at, "c", -1), 1);
  ASSERT_EQ(top.GetNodeCount(), kMany);
  int count = 0;
  for (int found = top.FirstChild(at); found != 0; found = at.NextSibling(at)) ++count;
  for (int i = 0; i < kMany; ++i) count += top.GetChild(at, i);
  for (int i = kMany; i-- > 0;) count += top.GetChild(at, i);
  EXPECT_EQ(count, 3 * kMany);
  Node copy;
  ASSERT_EQ(top.Clone(copy, 1), 1);
  for (int i = 0; i < kMany / 2; ++i) {
    ASSERT_TRUE(top.GetChild(at, i % 2 == 0 ? 0 : top.GetNodeCount() - 1) != 0 && at.RemoveNode() != 0);
  }
  EXPECT_TRUE(top.SetSizeTrimFromEnd(1) != 0 && top.GetNodeCount() == 1);
  EXPECT_TRUE(copy.GetNodeCount() == kMany && copy.RemoveAllChildren() != 0 && copy.IsEmpty() != 0);
}

}  // namespace
