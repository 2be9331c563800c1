// The host's node class, one topic a table. Its values are tested in node_values_test.cpp, edits in every
// order in node_model_test.cpp.

#include <algorithm>
#include <climits>
#include <future>

#include "tree_text.h"

namespace {

using Node = RYXmlWrapperBase;
using Numbers = CArray<double, double>;

const _variant_t* const kNoVariant = nullptr;

Node child(Node& parent, const char* with_tag = "c", int id = -1) {
  Node made;
  parent.AddNode(made, with_tag, id);
  return made;
}

// Where operations put what they give, with values that show whether they did, and another tree to work with.
struct Outputs {
  int number = 77;
  double real = 7.5;
  bool flag = true;
  CString string = "kept";
  Numbers numbers;
  tagRYSOBJVECT vector;
  Node other = parse("<Other/>");
  Node node = child(other, "Kept");

  Outputs() { numbers.Add(5), vector.values.Add(5); }
  bool untouched() const {
    return number == 77 && real == 7.5 && flag && string == "kept" && numbers.GetSize() == 1 &&
           vector.values.GetSize() == 1 && text(other) == "<Other><Kept/></Other>" && tag(node) == "Kept";
  }
};

// The next five do all that a node can be asked but CreateNew and load, which need none.
using Results = std::vector<int>;

template <class... Ints>
Results all(Ints... results) {
  return {results...};
}

Results add_nodes(Node& n, Outputs& o, const char* tag) {
  Node out[3];
  return all(n.AddNode(out[0], tag, 1), n.AddChildNode(tag, out[1], 1, nullptr),
             n.AddTextNode(out[2], "", tag, 1, 0, nullptr), n.InsertNodeBefore(o.node, tag, 1));
}

Results set_attributes(Node& n, Outputs& o, const char* name) {
  const RYPropertyName property(name);
  return all(n.SetPropertyValue(name, 1), n.SetPropertyValue(name, 1.5), n.SetPropertyValue(name, o.string),
             n.SetPropertyValue(name, "1"), n.SetPropertyValue(name, kNoVariant),
             n.SetPropertyValue(property, 1), n.SetPropertyValue(property, o.string));
}

Results look_up(Node& n, Outputs& o, const char* name) {
  const RYPropertyName property(name);
  return all(n.GetPropertyValue(name, o.number), n.GetPropertyValue(name, o.real),
             n.GetPropertyValue(name, o.string), n.GetPropertyValue(property, o.number),
             n.GetPropertyValue(property, o.real), n.GetPropertyValue(property, o.string),
             n.HasProperty(property), n.HasTagName(property), n.FindNodeByAttribute(o.node, name, "4", 0, 1),
             n.FindNodeByAttribute(o.node, name, 4, 1), n.RemoveProperty(name), n.RemoveProperty(property));
}

Results read_all(Node& n, Outputs& o) {
  return all(n.IsNodeValid(), static_cast<TESAObj&>(n).IsValid(), n.FirstChild(o.node), n.NextSibling(o.node),
             n.PrevSibling(o.node), n.GetParent(o.node), n.GetChild(o.node, 0), n.GetNodeCount(),
             n.HasChildren(0), n.IsEmpty(), n.NodeValue(o.number, 1), n.NodeValue(o.real, 1),
             n.NodeValue(o.flag, 1), n.NodeValue(o.numbers, 1), n.NodeValue(o.string, 1, 1, nullptr),
             n.GetNodeStringWithBlobInfo(o.string, 0), n.GetVector(o.vector) == 0, n.GetTagName(o.string),
             n.GetID(o.number), n.FindChild("c", o.node, 1), n.Clone(o.node, 1), n.GetXmlText(&o.string),
             n.Save("no-such-directory/x.xml"));
}

Results edit_all(Node& n, Outputs& o) {
  int status = 0;
  int removed = n.RemoveChild(o.node, &status);
  removed += status + 1;
  removed += o.other.RemoveChild(n, &status);
  return all(n.NodeValue(o.number, 0), n.NodeValue(o.real, 0), n.NodeValue(o.flag, 0),
             n.NodeValue(o.numbers, 0), n.NodeValue(o.string, 0, 1, nullptr), n.CheckSetValue(0, "x", 0),
             n.CheckSetValue(0, o.string, 1), n.SetVector(o.vector) == 0, n.SetID(3, false),
             n.CopyAllAttributes(o.other, 1), o.other.CopyAllAttributes(n, 1),
             o.other.InsertNodeBefore(n, "x", 1), n.AddNodeCopy(o.other, 1), o.other.AddNodeCopy(n, 1),
             removed, n.RemoveNode(), n.RemoveAllChildren(), n.SetSizeTrimFromEnd(0),
             n.Replace(o.other, 1, 0, 0), o.other.Replace(n, 1, 0, 0), n.ReplaceByNodeCopy(o.other, 1, 0),
             n.ArrangeChildren({}), n.ResetNode(1), n.SetXmlText("<x/>"));
}

void expect_all(const Results& results, bool good, const std::string& what) {
  const auto refused = std::count(results.begin(), results.end(), 0);
  EXPECT_EQ(refused, good ? 0 : std::ssize(results)) << what << " " << testing::PrintToString(results);
}

TEST(Node, NothingWorksOnNoNode) {
  // Each makes a handle on a grandchild of a tree's top invalid.
  const Rows<const char*, void (*)(Node & top, Node & node, Node & below)> kEnds = {
      {"default", [](Node&, Node&, Node& below) { below = Node(); }},
      {"released", [](Node&, Node&, Node& below) { below.ReleaseNode(); }},
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
  for (const auto& [name, kill] : kEnds) {
    Node top = parse("<Root/>");
    child(top).SetDataID(4);
    Node node = child(top);
    Node below = child(node);
    below.SetDataID(4);
    kill(top, node, below);
    // What was freed is taken up.
    for (int i = 0; i < 8 && top.IsNodeValid() != 0; ++i) EXPECT_FALSE(child(top) == below) << name;
    const std::string before = text(top);
    Outputs outputs;
    expect_all(read_all(below, outputs), false, name), expect_all(edit_all(below, outputs), false, name);
    for (const auto& act : {add_nodes, set_attributes, look_up})
      expect_all(act(below, outputs, "DataID"), false, name);
    EXPECT_TRUE(outputs.untouched() && text(top) == before) << name;
    EXPECT_TRUE(below == Node() && !(below == Outputs().node)) << name;
  }
}

TEST(Node, NamesAreXmlNamesEverywhere) {
  for (const bool good : {false, true}) {
    std::istringstream names(good ? "_x|a-1.b|\xc3\xa9|\xe4\xb8\xad|a\xc2\xb7|_NodeIDs|A:z9"
                                  : "null||1a|-a|.a|a b| a|a |a<|a/|a=|a\n|\xff|a\xc3|\xc0\xaf|\xed\xa0\x80|"
                                    "\xc3\x97|\xc2\xb7|_NodeID|_NodeEscape|\xc3\xa9 |\xc3\xa9 a='1'");
    for (std::string shown; std::getline(names, shown, '|');) {
      Outputs outputs;
      Node& other = outputs.other;
      const char* const name = shown == "null" ? nullptr : shown.c_str();
      expect_all(look_up(other, outputs, name), false, shown);
      for (const auto& act : {add_nodes, set_attributes}) expect_all(act(other, outputs, name), good, shown);
      EXPECT_TRUE(outputs.untouched() != good && (other.CreateNew(0, name) != 0) == (good || !name)) << shown;
      EXPECT_EQ(tag(other), name == nullptr ? "Root" : good ? name : "Other");
    }
  }
  Outputs outputs;
  Node node = parse("<Root _NodeID='4'/>");
  expect_all(look_up(node, outputs, "_NodeID"), false, "_NodeID");
}

TEST(Node, NullPointersAreRefused) {
  Outputs outputs;
  Node& top = outputs.other;
  expect_all(
      all(top.SetPropertyValue("a", static_cast<const char*>(nullptr)), top.CheckSetValue(0, nullptr, 0),
          top.CheckSetValue(0, nullptr, 1), top.FindNodeByAttribute(outputs.node, "a", nullptr, 0, 1),
          top.FindChild(nullptr, outputs.node, 1), top.GetXmlText(nullptr), top.SetXmlText(nullptr),
          top.Save(nullptr), top.load(nullptr, 0)),
      false, "null");
  EXPECT_TRUE(outputs.untouched());
  EXPECT_TRUE(top.AddTextNode(top, nullptr, "t", -1, 0, nullptr) != 0 && text(top) == "<t/>");
}

TEST(Node, Finding) {
  const Node top =
      parse(R"(<r k="x"><a k="X"/><b k=""><c k="x" n="5"><e/></c></b><d n="5.0"/><b k="É" n="y"/></r>)");
  // An attribute and its text, or where that is null its number; how to search; the tag that is found.
  const Rows<const char*, const char*, int, int, int, const char*> kCases = {
      {"k", "x", 0, 0, 0, ""},     {"k", "x", 0, 1, 0, "a"},     {"k", "x", 0, 0, 1, "c"},
      {"k", "", 0, 0, 0, "b"},     {"k", "é", 0, 1, -1, "b"},    {"k", "é", 0, 0, 1, ""},
      {"K", "x", 0, 1, 1, ""},     {"n", nullptr, 5, 0, 0, "d"}, {"n", nullptr, 5, 0, 1, "c"},
      {"n", nullptr, 0, 0, 1, ""}, {"n", "5", 0, 0, 0, ""}};
  for (const auto& [name, text, number, x, y, found] : kCases) {
    Node out;
    const int result = text != nullptr ? top.FindNodeByAttribute(out, name, text, x, y)
                                       : top.FindNodeByAttribute(out, name, number, y);
    EXPECT_TRUE((result != 0) == (*found != '\0') && tag(out) == found) << name << " " << found;
  }
  Node at = top, b;
  EXPECT_TRUE(top.FindChild("b", b, 1) != 0 && b.FindNodeByAttribute(at, "n", 5, 1) != 0 && tag(at) == "c");
  EXPECT_EQ(b.FindNodeByAttribute(at, "n", "y", 0, 1) + at.FindNodeByAttribute(at, "n", 5, 1), 0);
  EXPECT_TRUE(top.FindChild("c", at, 1) == 0 && at.IsNodeValid() == 0 && top.FindChild("B", at, 1) == 0);
  EXPECT_TRUE(b.FindChild("c", b, 1) != 0 && tag(b) == "c");
}

TEST(Node, NumbersAtTheEdge) {
  Node top = parse("<Root/>");
  for (int i = 0; i < 4; ++i) child(top);
  const Rows<int, int, int> kTrims = {{INT_MAX, 1, 4}, {5, 1, 4}, {4, 1, 4}, {-1, 0, 4},
                                      {INT_MIN, 0, 4}, {3, 1, 3}, {0, 1, 0}, {0, 1, 0}};
  for (const auto& [keep, result, left] : kTrims)
    EXPECT_TRUE(top.SetSizeTrimFromEnd(keep) == result && top.GetNodeCount() == left) << keep;
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
    Node top = parse("<Root/>");
    leaf = child(top, "leaf");
    top.CreateNew(0, "another");
  }
  Node up = leaf, beyond = leaf;
  EXPECT_TRUE(up.GetParent(up) != 0 && text(up) == "<Root><leaf/></Root>" && !(up == leaf));
  EXPECT_TRUE(up.GetParent(beyond) == 0 && beyond.IsNodeValid() == 0);
  EXPECT_TRUE(leaf.Clone(leaf, 1) != 0 && up.GetNodeCount() == 1 && leaf.GetParent(beyond) == 0);
  Node moved = std::move(up);
  EXPECT_TRUE(up == Node() && tag(moved) == "Root");  // NOLINT(*-move,*.Move)
  moved = *&moved;
  EXPECT_TRUE(moved.AddNode(moved, "in", -1) != 0 && tag(moved) == "in");
}

TEST(Node, NoTreeIsDeeperThanItsBound) {
  Node top = deep_tree(1024);
  Node deepest = top, last_but_one;
  for (Node below; deepest.FirstChild(below) != 0; deepest = below) last_but_one = deepest;
  Node leaf = parse("<leaf/>"), two = parse("<two/>");
  Node two_below = child(two);
  const std::string before = text(top);
  Node out;
  const Results results =
      all(deepest.AddNode(out, "x", -1), deepest.AddChildNode("x", out, -1, nullptr),
          deepest.AddTextNode(out, "x", "x", -1, 0, nullptr), deepest.AddNodeCopy(leaf, 1),
          deepest.AddNodeCopy(deepest, 1), deepest.Replace(two, 1, 0, 0), deepest.Replace(top, 1, 1, 0),
          deepest.ReplaceByNodeCopy(last_but_one, 1, 0), deepest.SetXmlText("<two><c/></two>"),
          last_but_one.AddNodeCopy(two, 1), top.AddNodeCopy(top, 1), two_below.Replace(top, 1, 0, 0));
  expect_all(results, false, "too deep");
  EXPECT_TRUE(text(top) == before && out == Node() && text(two) == "<two><c/></two>");
  EXPECT_TRUE(top.Clone(out, 1) != 0 && text(out) == before);
  EXPECT_TRUE(leaf.Replace(top, 1, 0, 0) != 0 && text(leaf) == before);
  for (Node bottom : {out, leaf, parse(before)}) {
    for (Node below; bottom.FirstChild(below) != 0;) bottom = below;
    EXPECT_EQ(bottom.AddNode(bottom, "x", -1), 0);
  }
  EXPECT_TRUE(last_but_one.InsertNodeBefore(deepest, "x", -1) != 0 &&
              last_but_one.AddNodeCopy(two_below, 1) != 0);
  EXPECT_EQ(deepest.Replace(two_below, 1, 0, 0) + last_but_one.Replace(two, 1, 0, 0), 2);
}

TEST(Node, TwoThreadsWithTwoTrees) {
  const auto work = [] {
    Node top = parse("<Root/>");
    for (int i = 0; i < 2000; ++i) {
      Node node = child(top, i % 3 == 0 ? "a" : "b", i);
      node.SetPropertyValue("x", i / 8.0), node.SetPropertyValue(RYPropertyName("\xc3\xa9"), i);
      if (i % 5 == 0) node.AddNodeCopy(node, 1);
      if (i % 7 == 0) node.RemoveNode();
    }
    return text(top);
  };
  std::future<std::string> other = std::async(std::launch::async, work);
  EXPECT_TRUE(work() == other.get());
}

// Anything that is not in step with the number of children does not come to an end here.
TEST(Node, AMillionSiblings) {
  constexpr int kMany = 1000000;
  Node top = parse("<Root/>");
  Node at = child(top, "first");
  for (int i = 1; i < kMany; ++i)
    ASSERT_EQ(i % 2 == 0 ? top.AddNode(at, "c", -1) : top.InsertNodeBefore(at, "c", -1), 1);
  int count = top.GetNodeCount();
  for (int found = top.FirstChild(at); found != 0; found = at.NextSibling(at)) ++count;
  for (int i = 0; i < kMany; ++i) count += top.GetChild(at, i);
  for (int i = kMany; i-- > 0;) count += top.GetChild(at, i);
  EXPECT_EQ(count, 4 * kMany);
  Node copy;
  ASSERT_EQ(top.Clone(copy, 1), 1);
  for (int i = 0; i < kMany / 2; ++i)
    ASSERT_EQ(top.GetChild(at, i % 2 == 0 ? 0 : top.GetNodeCount() - 1) + at.RemoveNode(), 2);
  EXPECT_TRUE(top.SetSizeTrimFromEnd(1) != 0 && top.GetNodeCount() == 1);
  EXPECT_TRUE(copy.GetNodeCount() == kMany && copy.RemoveAllChildren() != 0 && copy.IsEmpty() != 0);
}

}  // namespace
