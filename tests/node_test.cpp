// The host's node class. Its values are tested in node_values_test.cpp, edits in random order in
// node_model_test.cpp.
#include <climits>
#include <random>

#include "tree_text.h"

namespace {

using Node = RYXmlWrapperBase;
using Results = std::vector<int>;

template <class... Ints>
Results all(Ints... results) {
  return {results...};
}

Node child(Node& parent, const char* with_tag = "c", int id = -1) {
  Node made;
  parent.AddNode(made, with_tag, id);
  return made;
}

// Where operations put their results, filled so that a change shows, and another tree to work with.
struct Outputs {
  int number = 77;
  double real = 7.5;
  bool flag = true;
  CString string = "kept";
  CArray<double, double> numbers;
  tagRYSOBJVECT vector;
  Node other = parse("<Other/>");
  Node node = child(other, "Kept");

  Outputs() { numbers.Add(5), vector.values.Add(5); }
  std::string state() const {
    std::ostringstream all;
    all << number << ' ' << real << ' ' << flag << ' ' << string << ' ' << numbers.GetSize() << ' '
        << vector.values.GetSize() << ' ' << text(other) << ' ' << tag(node);
    return all.str();
  }
};

// The next five call every operation but CreateNew and load, which need no node.

Results add_nodes(Node& n, Outputs& o, const char* tag) {
  Node out[3];
  return all(n.AddNode(out[0], tag, 1), n.AddChildNode(tag, out[1], 1, nullptr),
             n.AddTextNode(out[2], "", tag, 1, 0, nullptr), n.InsertNodeBefore(o.node, tag, 1));
}

Results set_attributes(Node& n, Outputs& o, const char* name) {
  const RYPropertyName property(name);
  const _variant_t* const no_variant = nullptr;
  return all(n.SetPropertyValue(name, 1), n.SetPropertyValue(name, 1.5), n.SetPropertyValue(name, o.string),
             n.SetPropertyValue(name, "1"), n.SetPropertyValue(name, no_variant),
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
             n.HasChildren(0), n.IsEmpty(), n.GetPropertyCount(), n.GetPropertyAt(0, o.string, o.string),
             n.NodeValue(o.number, 1), n.NodeValue(o.real, 1), n.NodeValue(o.flag, 1),
             n.NodeValue(o.numbers, 1), n.NodeValue(o.string, 1, 1, nullptr),
             n.GetNodeStringWithBlobInfo(o.string, 0), n.GetVector(o.vector) == 0, n.GetTagName(o.string),
             n.GetID(o.number), n.FindChild("c", o.node, 1), n.Clone(o.node, 1), n.GetXmlText(&o.string),
             n.Save("no-such-directory/x.xml"));
}

Results edit_all(Node& n, Outputs& o) {
  int status = 0;
  const int removed = n.RemoveChild(o.node, &status);
  return all(removed, status + 1, o.other.RemoveChild(n, nullptr), n.NodeValue(o.number, 0),
             n.NodeValue(o.real, 0), n.NodeValue(o.flag, 0), n.NodeValue(o.numbers, 0),
             n.NodeValue(o.string, 0, 1, nullptr), n.CheckSetValue(0, "x", 0),
             n.CheckSetValue(0, o.string, 1), n.SetVector(o.vector) == 0, n.SetID(3, false),
             n.CopyAllAttributes(o.other, 1), o.other.CopyAllAttributes(n, 1),
             o.other.InsertNodeBefore(n, "x", 1), n.AddNodeCopy(o.other, 1), o.other.AddNodeCopy(n, 1),
             n.RemoveNode(), n.RemoveAllChildren(), n.SetSizeTrimFromEnd(0), n.Replace(o.other, 1, 0, 0),
             o.other.Replace(n, 1, 0, 0), n.ReplaceByNodeCopy(o.other, 1, 0), n.ArrangeChildren({}),
             n.ResetNode(1), n.SetXmlText("<x/>"));
}

void expect_all(const Results& results, bool good, const std::string& what) {
  const std::vector<bool> succeeded(results.begin(), results.end());
  EXPECT_EQ(succeeded, std::vector<bool>(results.size(), good)) << what;
}

TEST(Node, RefusesEverythingWithoutANode) {
  // Each makes the handle `below` invalid.
  const Rows<const char*, void (*)(Node & top, Node & node, Node & below)> kEnds = {
      {"default", [](Node&, Node&, Node& below) { below = Node(); }},
      {"released", [](Node&, Node&, Node& below) { below.ReleaseNode(); }},
      {"removed", [](Node&, Node&, Node& below) { Node(below).RemoveNode(); }},
      {"parent removed", [](Node&, Node& node, Node&) { node.RemoveNode(); }},
      {"root removed", [](Node& top, Node&, Node&) { top.RemoveNode(); }},
      {"replaced by itself", [](Node&, Node& node, Node&) { node.Replace(node, 1, 1, 0); }},
      {"parsed over", [](Node&, Node& node, Node&) { EXPECT_NE(node.SetXmlText("<c><c/></c>"), 0); }}};
  for (const auto& [name, kill] : kEnds) {
    Node top = parse("<Root/>");
    child(top).SetDataID(4);
    Node node = child(top);
    Node below = child(node);
    below.SetDataID(4);
    kill(top, node, below);
    // New nodes take up what was freed.
    for (int i = 0; i < 8 && top.IsNodeValid() != 0; ++i) EXPECT_FALSE(child(top) == below) << name;
    const std::string before = text(top);
    Outputs outputs;
    for (const auto& act : {read_all, edit_all}) expect_all(act(below, outputs), false, name);
    for (const auto& act : {add_nodes, set_attributes, look_up})
      expect_all(act(below, outputs, "DataID"), false, name);
    EXPECT_EQ(outputs.state(), Outputs().state()) << name;
    EXPECT_EQ(text(top), before) << name;
    EXPECT_TRUE(below == Node()) << name;
    EXPECT_FALSE(below == outputs.node) << name;
  }
}

TEST(Node, TakesXmlNamesOnly) {
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
      EXPECT_EQ(outputs.state() != Outputs().state(), good) << shown;
      EXPECT_EQ(other.CreateNew(0, name) != 0, good || name == nullptr) << shown;
      EXPECT_EQ(tag(other), name == nullptr ? "Root" : good ? name : "Other");
    }
  }
  Outputs outputs;
  Node node = parse("<Root _NodeID='4'/>");
  expect_all(look_up(node, outputs, "_NodeID"), false, "_NodeID");
}

TEST(Node, RefusesNullPointers) {
  Outputs outputs;
  Node& top = outputs.other;
  const char* const null = nullptr;
  expect_all(
      all(top.SetPropertyValue("a", null), top.CheckSetValue(0, null, 0), top.CheckSetValue(0, null, 1),
          top.FindNodeByAttribute(outputs.node, "a", null, 0, 1), top.FindChild(null, outputs.node, 1),
          top.GetXmlText(nullptr), top.SetXmlText(null), top.Save(null), top.load(null, 0)),
      false, "null");
  EXPECT_EQ(outputs.state(), Outputs().state());
  EXPECT_EQ(top.AddTextNode(top, null, "t", -1, 0, nullptr), 1);
  EXPECT_EQ(text(top), "<t/>");
}

TEST(Node, FindsTheFirstMatch) {
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
    EXPECT_EQ(result, *found != '\0');
    EXPECT_EQ(tag(out), found);
  }
  Node at = top, b;
  EXPECT_EQ((Results{top.FindChild("b", b, 1), b.FindNodeByAttribute(at, "n", 5, 1)}), (Results{1, 1}));
  EXPECT_EQ((Results{b.FindNodeByAttribute(at, "n", "y", 0, 1), at.FindNodeByAttribute(at, "n", 5, 1)}),
            (Results{0, 0}));
  EXPECT_EQ(tag(at), "c");
  for (const char* const none : {"c", "B"}) EXPECT_EQ(top.FindChild(none, at, 1), 0);
  EXPECT_EQ(at.IsNodeValid(), 0);
  EXPECT_EQ(b.FindChild("c", b, 1), 1);
  EXPECT_EQ(tag(b), "c");
}

TEST(Node, TakesNumbersAtTheEdge) {
  Node top = parse("<Root/>");
  for (int i = 0; i < 4; ++i) child(top);
  for (const int keep : {INT_MAX, 5, 4, -1, INT_MIN}) {
    EXPECT_EQ((Results{top.SetSizeTrimFromEnd(keep), top.GetNodeCount()}), (Results{keep < 0 ? 0 : 1, 4}));
  }
  EXPECT_EQ((Results{top.SetSizeTrimFromEnd(0), top.GetNodeCount()}), (Results{1, 0}));
  child(top);
  for (const int index : {-1, 1, INT_MIN, INT_MAX}) {
    Node out = top;
    EXPECT_EQ((Results{top.GetChild(out, index), out.IsNodeValid()}), (Results{0, 0})) << index;
  }
  for (const int id : {0, -2, INT_MIN, INT_MAX}) {
    int read = -1;
    EXPECT_EQ(child(top, "c", id).GetID(read), 1);
    EXPECT_EQ(read, id);
  }
}

TEST(Node, KeepsItsTreeAlive) {
  Node leaf;
  {
    Node top = parse("<Root/>");
    leaf = child(top, "leaf");
    top.CreateNew(0, "another");
  }
  Node up = leaf, beyond = leaf;
  EXPECT_EQ((Results{up.GetParent(up), up.GetParent(beyond), beyond.IsNodeValid()}), (Results{1, 0, 0}));
  EXPECT_EQ(text(up), "<Root><leaf/></Root>");
  EXPECT_FALSE(up == leaf);
  EXPECT_EQ((Results{leaf.Clone(leaf, 1), up.GetNodeCount(), leaf.GetParent(beyond)}), (Results{1, 1, 0}));
  Node moved = std::move(up);
  EXPECT_TRUE(up == Node());  // NOLINT(*-move,*.Move)
  moved = *&moved;
  EXPECT_EQ(tag(moved), "Root");
  EXPECT_EQ(moved.AddNode(moved, "in", -1), 1);
  EXPECT_EQ(tag(moved), "in");
}

TEST(Node, GrowsNoDeeperThanItsBound) {
  Node top = deep_tree(1024);
  Node deepest = top, last_but_one;
  for (Node below; deepest.FirstChild(below) != 0; deepest = below) last_but_one = deepest;
  Node leaf = parse("<leaf/>"), two = parse("<two/>");
  Node two_below = child(two);
  const std::string before = text(top);
  Node out;
  expect_all(
      all(deepest.AddNode(out, "x", -1), deepest.AddChildNode("x", out, -1, nullptr),
          deepest.AddTextNode(out, "x", "x", -1, 0, nullptr), deepest.AddNodeCopy(leaf, 1),
          deepest.AddNodeCopy(deepest, 1), deepest.Replace(two, 1, 0, 0), deepest.Replace(top, 1, 1, 0),
          deepest.ReplaceByNodeCopy(last_but_one, 1, 0), deepest.SetXmlText("<two><c/></two>"),
          last_but_one.AddNodeCopy(two, 1), top.AddNodeCopy(top, 1), two_below.Replace(top, 1, 0, 0)),
      false, "too deep");
  EXPECT_TRUE(out == Node());
  EXPECT_EQ(text(two), "<two><c/></two>");
  EXPECT_EQ((Results{top.Clone(out, 1), leaf.Replace(top, 1, 0, 0)}), (Results{1, 1}));
  for (Node bottom : {top, out, leaf, parse(before)}) {
    EXPECT_EQ(text(bottom), before);
    for (Node below; bottom.FirstChild(below) != 0;) bottom = below;
    EXPECT_EQ(bottom.AddNode(bottom, "x", -1), 0);
  }
  expect_all({last_but_one.InsertNodeBefore(deepest, "x", -1), last_but_one.AddNodeCopy(two_below, 1),
              deepest.Replace(two_below, 1, 0, 0), last_but_one.Replace(two, 1, 0, 0)},
             true, "deep enough");
}

// Where each search ended is remembered for the next one; a tree is unsound when that place is wrong.
TEST(Node, FindsChildrenByIndexWhateverChanges) {
  std::mt19937 random(3);
  const auto below = [&](int bound) { return static_cast<int>(random() % static_cast<unsigned>(bound)); };
  Node top = parse("<Root><f/><f/><f/></Root>");
  std::vector<Node> parents = {at(top, {0}), at(top, {1}), at(top, {2})};
  CArray<int, int> swapped;
  for (const int place : {1, 0, 2}) swapped.Add(place);
  for (int round = 0; round < 6000; ++round) {
    Node& parent = parents[random() % 3];
    const int count = parent.GetNodeCount();
    const int edit = below(24);
    Node found;
    CString fault;
    parent.GetChild(found, below(count + 1));
    ASSERT_EQ(top.IsTreeSound(&fault), 1) << fault;
    if (edit == 0) parent.InsertNodeBefore(found, "c", -1);
    if (edit == 1 || edit == 2) found.RemoveNode();
    if (edit == 3 || edit == 4 || count < 70) child(parent);
    if (edit == 5 && below(30) == 0) parent.RemoveAllChildren();
    if (edit == 6 && below(10) == 0) top.ArrangeChildren(swapped);
  }
}

// Anything whose cost grows faster than the number of children would not come to an end here.
TEST(Node, HasAMillionChildren) {
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
  EXPECT_EQ((Results{top.SetSizeTrimFromEnd(1), top.GetNodeCount()}), (Results{1, 1}));
  EXPECT_EQ((Results{copy.GetNodeCount(), copy.RemoveAllChildren(), copy.IsEmpty()}), (Results{kMany, 1, 1}));
}

}  // namespace
