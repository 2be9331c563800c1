// Random edits on the host's trees and on a plain model of them. Handles on removed nodes are kept, to see that
// they are dead.
#include <algorithm>
#include <array>
#include <deque>
#include <map>
#include <numeric>
#include <random>
#include <set>

#include "tree_text.h"

namespace {

// What a node should be.
struct Twin {
  std::string tag, text = {};
  int id = -1;
  std::vector<std::pair<std::string, std::string>> attributes = {};  // in the order of their first writing
  std::vector<Twin*> children = {};
  Twin* parent = nullptr;
  bool alive = true;
};

bool valid(const Twin* node) { return node != nullptr && node->alive; }

const Twin* root_of(const Twin* at) { return at->parent == nullptr ? at : root_of(at->parent); }

std::size_t size_of(const Twin* node) {
  std::size_t size = 1;
  for (const Twin* child : node->children) size += size_of(child);
  return size;
}

Twin* child_of(const Twin* node, std::ptrdiff_t at) {
  const bool within = node != nullptr && at >= 0 && at < std::ssize(node->children);
  return within ? node->children[static_cast<std::size_t>(at)] : nullptr;
}

std::string xml_of(const Twin* node) {
  std::string xml = "<" + node->tag;
  if (node->id != -1) xml += " _NodeID=\"" + std::to_string(node->id) + "\"";
  for (const auto& [name, value] : node->attributes)
    xml.append(" ").append(name).append("=\"").append(value).append("\"");
  if (node->text.empty() && node->children.empty()) return xml + "/>";
  xml += ">" + node->text;
  for (const Twin* child : node->children) xml += xml_of(child);
  return xml + "</" + node->tag + ">";
}

// Does every edit the simplest way, at any cost.
class Forest {
 public:
  Twin* make(Twin content) { return &nodes_.emplace_back(std::move(content)); }
  Twin* clone(const Twin* source) {
    Twin* const made = make({source->tag, source->text, source->id, source->attributes});
    for (const Twin* child : source->children) add(made, clone(child));
    return made;
  }
  static Twin* insert(Twin* parent, std::ptrdiff_t place, Twin* child) {
    child->parent = parent;
    return *parent->children.insert(parent->children.begin() + place, child);
  }
  static Twin* add(Twin* parent, Twin* child) { return insert(parent, std::ssize(parent->children), child); }

  static void remove(Twin* node) {
    trim(node, 0);
    if (node->parent != nullptr) std::erase(node->parent->children, node);
    node->alive = false;
  }
  static void trim(Twin* node, int count) {
    while (std::ssize(node->children) > count) remove(node->children.back());
  }
  void replace(Twin* target, const Twin* source, bool keep_tag) {
    Twin* const content = clone(source);
    if (keep_tag) content->tag = target->tag;
    trim(target, 0);
    become(target, *content);
  }
  // The contents move, not the nodes.
  static void arrange(Twin* node, const std::vector<int>& order) {
    std::vector<Twin> former;
    for (const int at : order) former.push_back(*child_of(node, at));
    for (std::size_t i = 0; i < former.size(); ++i) become(node->children[i], former[i]);
  }

  static void set(Twin* node, const std::string& name, const std::string& value) {
    for (auto& [known, former] : node->attributes)
      if (known == name) return void(former = value);
    node->attributes.emplace_back(name, value);
  }
  static bool unset(Twin* node, const std::string& name) {
    return std::erase_if(node->attributes, [&](const auto& it) { return it.first == name; }) != 0;
  }

 private:
  static void become(Twin* node, Twin content) {
    content.parent = node->parent;
    *node = std::move(content);
    for (Twin* child : node->children) child->parent = node;
  }

  std::deque<Twin> nodes_;  // removed ones too, which say that they are dead
};

struct Handle {
  RYXmlWrapperBase real;
  Twin* twin = nullptr;
};

constexpr const char* kTags[] = {"a", "b", "Range", "X1"};
constexpr std::pair<double, const char*> kDoubles[] = {{0.5, "0.5"}, {1e5, "1e+05"}, {-0.0, "-0"}, {3, "3"}};
const std::string kTexts[] = {"", "7", "x", "12"};
constexpr std::size_t kLengths[] = {11, 12, 13, 14, 504, 512, 513, 600};

class Duel {
 public:
  // About small trees, or about single nodes with many attributes.
  Duel(unsigned seed, bool many_attributes) : random_(seed), many_attributes_(many_attributes) {
    for (int i = 0; many_attributes && i < 160; ++i) names_.push_back("n" + std::to_string(i));
    for (const std::string& name : names_) properties_.try_emplace(name, name.c_str());
  }

  void step() {
    Handle& a = any();
    Handle& b = any();
    const std::size_t most = many_attributes_ ? 3 : 60;
    if (many_attributes_ && below(8) != 0) return attribute(a, b);
    for (Handle* const big : {&a, &b})
      if (size_of(root_of(big->twin)) > most) return remove(*big, any());
    using Edit = void (Duel::*)(Handle&, Handle&);
    static constexpr Edit kEdits[] = {&Duel::add,    &Duel::add,     &Duel::insert, &Duel::attribute,
                                      &Duel::remove, &Duel::replace, &Duel::clone,  &Duel::copy,
                                      &Duel::value,  &Duel::arrange, &Duel::walk,   &Duel::attributes,
                                      &Duel::take,   &Duel::take};
    (this->*kEdits[below(std::size(kEdits))])(a, b);
  }

  void check(bool thoroughly) {
    known_.clear();
    std::set<const Twin*> roots;
    for (Handle& handle : pool_) {
      ASSERT_EQ(handle.real.IsNodeValid() != 0, valid(handle.twin));
      if (!valid(handle.twin)) continue;
      const Twin* const root = root_of(handle.twin);
      if (roots.insert(root).second) check_tree(handle.real, root, thoroughly);
      ASSERT_TRUE(known_.try_emplace(handle.twin, handle.real).first->second == handle.real);
    }
  }

 private:
  int below(std::size_t bound) { return static_cast<int>(random_() % bound); }
  template <class Table>
  auto& pick(Table& table) {
    return table[random_() % std::size(table)];
  }
  std::string any_text() {
    if (below(3) == 0) return pick(kTexts);
    return std::string(pick(kLengths), static_cast<char>('a' + below(26)));
  }
  // A live one.
  Handle& any() {
    for (int i = 0; i < 40; ++i)
      if (Handle& one = pick(pool_); valid(one.twin)) return one;
    Handle& one = pick(pool_);
    one.real.CreateNew(0, nullptr), one.twin = forest_.make({"Root"});
    return one;
  }

  // The edits. A step away can leave a handle on nothing.

  static void go(Handle& a, Handle& out, int to) {
    Twin* const wanted = to < 0 ? a.twin->parent : child_of(a.twin, to);
    EXPECT_EQ(to < 0 ? a.real.GetParent(out.real) : a.real.GetChild(out.real, to), wanted != nullptr ? 1 : 0);
    out.twin = wanted;
  }
  void walk(Handle& a, Handle& out) { go(a, out, below(6) - 3); }
  void take(Handle& a, Handle&) { pick(pool_) = below(20) != 0 ? a : Handle(); }
  void add(Handle& a, Handle& out) {
    const char* const tag = pick(kTags);
    const int id = below(3) - 1;
    const int way = below(3);
    const std::string text = way == 2 ? any_text() : "";
    EXPECT_NE(way == 0   ? a.real.AddNode(out.real, tag, id)
              : way == 1 ? a.real.AddChildNode(tag, out.real, id, nullptr)
                         : a.real.AddTextNode(out.real, text.c_str(), tag, id, 0, nullptr),
              0);
    out.twin = Forest::add(a.twin, forest_.make({tag, text, id}));
  }
  void insert(Handle& a, Handle& b) {
    if (below(4) != 0) go(a, b, 0);
    const bool child = valid(b.twin) && b.twin->parent == a.twin;
    EXPECT_EQ(a.real.InsertNodeBefore(b.real, "b", 6), child ? 1 : 0);
    if (!child) return;
    const auto& row = a.twin->children;
    Forest::insert(a.twin, std::find(row.begin(), row.end(), b.twin) - row.begin(),
                   forest_.make({"b", "", 6}));
  }
  void copy(Handle& a, Handle& b) {
    EXPECT_NE(a.real.AddNodeCopy(b.real, 1), 0);
    Forest::add(a.twin, forest_.clone(b.twin));
  }
  void clone(Handle& a, Handle& out) {
    EXPECT_NE(a.real.Clone(out.real, 1), 0);
    out.twin = forest_.clone(a.twin);
  }
  void remove(Handle& a, Handle& b) {
    const int way = below(8);
    const int count = below(4);
    if (way > 3 && way < 6) go(a, b, 0);
    if (way > 3) {
      int status = 5;
      const bool child = valid(b.twin) && b.twin->parent == a.twin;
      EXPECT_EQ(a.real.RemoveChild(b.real, &status), child ? 1 : 0);
      EXPECT_EQ(status, child ? 0 : -1);
      if (child) Forest::remove(b.twin);
      return;
    }
    EXPECT_NE(way == 0   ? a.real.RemoveNode()
              : way == 1 ? a.real.RemoveAllChildren()
              : way == 2 ? a.real.SetSizeTrimFromEnd(count)
                         : a.real.ResetNode(1),
              0);
    if (way == 0) return Forest::remove(a.twin);
    if (way == 3) a.twin->text.clear();
    Forest::trim(a.twin, way == 2 ? count : 0);
  }
  void replace(Handle& a, Handle& b) {
    const int way = below(4);
    EXPECT_NE(way == 3   ? a.real.SetXmlText(text(b.real).c_str())
              : way == 2 ? a.real.ReplaceByNodeCopy(b.real, 1, 0)
                         : a.real.Replace(b.real, 1, way, 0),
              0);
    forest_.replace(a.twin, b.twin, way == 1);
  }
  void arrange(Handle& a, Handle&) {
    std::vector<int> order(a.twin->children.size());
    std::iota(order.begin(), order.end(), 0);
    const std::vector<int> places = order;
    std::shuffle(order.begin(), order.end(), random_);
    if (!order.empty() && below(4) == 0) order.back() = below(6) - 1;
    const bool whole = std::is_permutation(order.begin(), order.end(), places.begin());
    CArray<int, int> wanted;
    for (const int place : order) wanted.Add(place);
    EXPECT_EQ(a.real.ArrangeChildren(wanted), whole ? 1 : 0);
    if (whole) Forest::arrange(a.twin, order);
  }
  void attribute(Handle& a, Handle&) {
    const bool last = below(4) == 0 && !a.twin->attributes.empty();
    const std::string owned = last ? a.twin->attributes.back().first : pick(names_);
    const char* const name = owned.c_str();
    const RYPropertyName& property = properties_.at(owned);
    const auto& [number, written] = pick(kDoubles);
    const int way = below(6);
    if (way < 2) {
      const int real = way == 0 ? a.real.RemoveProperty(name) : a.real.RemoveProperty(property);
      EXPECT_EQ(real != 0, Forest::unset(a.twin, owned));
      return;
    }
    const std::string text = way == 2 ? written : way == 3 ? "-12345678" : any_text();
    EXPECT_NE(way == 2   ? a.real.SetPropertyValue(name, number)
              : way == 3 ? a.real.SetPropertyValue(property, -12345678)
              : way == 4 ? a.real.SetPropertyValue(property, CString(text.c_str()))
                         : a.real.SetPropertyValue(name, text.c_str()),
              0);
    Forest::set(a.twin, owned, text);
  }
  void attributes(Handle& a, Handle& b) {
    EXPECT_NE(a.real.CopyAllAttributes(b.real, 1), 0);
    const auto copied = b.twin->attributes;
    for (const auto& [name, text] : copied) Forest::set(a.twin, name, text);
  }
  void value(Handle& a, Handle&) {
    int number = below(2000) - 1000;
    auto [real, written] = pick(kDoubles);
    const int way = below(4);
    CString text(way == 0 ? std::to_string(number).c_str() : way == 1 ? written : any_text().c_str());
    EXPECT_NE(way == 0   ? a.real.NodeValue(number, 0)
              : way == 1 ? a.real.NodeValue(real, 0)
              : way == 2 ? a.real.NodeValue(text, 0, 1, nullptr)
                         : a.real.SetID(number, false),
              0);
    way == 3 ? void(a.twin->id = number) : void(a.twin->text = text.GetString());
  }

  void check_node(RYXmlWrapperBase& real, const Twin* twin) {
    CString value;
    int id = -1;
    ASSERT_EQ(real.GetID(id) != 0, twin->id != -1);
    ASSERT_EQ(real.NodeValue(value, 1, 1, nullptr), 1);
    ASSERT_EQ(std::tuple(tag(real), value.View(), id), std::tuple(twin->tag, twin->text, twin->id));
    ASSERT_EQ(real.HasTagName(RYPropertyName(twin->tag.c_str())), 1);
    ASSERT_EQ(real.GetNodeCount(), std::ssize(twin->children));
    ASSERT_EQ(real.HasChildren(0) == 0, twin->children.empty());
    ASSERT_EQ(real.IsEmpty() != 0, twin->children.empty() && twin->text.empty());
    const std::map<std::string, std::string> values(twin->attributes.begin(), twin->attributes.end());
    for (const auto& [name, property] : properties_) {
      const int has = values.contains(name) ? 1 : 0;
      CString by_name, by_property;
      ASSERT_EQ(real.HasProperty(property), has) << name;
      ASSERT_EQ(real.GetPropertyValue(name.c_str(), by_name), has) << name;
      ASSERT_EQ(real.GetPropertyValue(property, by_property), has) << name;
      const std::string wanted = has != 0 ? values.at(name) : "";
      ASSERT_EQ(std::tuple(by_name.View(), by_property.View()), std::tuple(wanted, wanted)) << name;
    }
    CString name;
    for (int i = 0; real.GetPropertyAt(i, name, value) != 0; ++i)
      ASSERT_EQ(std::pair(std::string(name), std::string(value)),
                twin->attributes.at(static_cast<std::size_t>(i)));
    ASSERT_EQ(real.GetPropertyCount(), std::ssize(twin->attributes));
  }

  // Every step from the node goes where it should.
  void check_steps(const Twin* twin) {
    RYXmlWrapperBase at;
    const auto expect_at = [&](int found, const Twin* wanted) {
      EXPECT_EQ(found != 0, wanted != nullptr);
      EXPECT_TRUE(at == (wanted != nullptr ? known_.at(wanted) : RYXmlWrapperBase()));
    };
    const RYXmlWrapperBase real = known_.at(twin);
    const int place = below(twin->children.size() + 1);
    expect_at(real.GetParent(at), twin->parent);
    expect_at(real.FirstChild(at), child_of(twin, 0));
    expect_at(real.GetChild(at, place), child_of(twin, place));
    for (int i = 0; i < std::ssize(twin->children); ++i) {
      const RYXmlWrapperBase child = known_.at(child_of(twin, i));
      expect_at(child.NextSibling(at), child_of(twin, i + 1));
      expect_at(child.PrevSibling(at), child_of(twin, i - 1));
    }
  }

  void check_tree(RYXmlWrapperBase at, const Twin* root, bool thoroughly) {
    for (RYXmlWrapperBase up; at.GetParent(up) != 0;) at = up;
    const RYXmlWrapperBase top = at;
    CString fault;
    ASSERT_EQ(text(top), xml_of(root));
    if (!thoroughly) return;
    ASSERT_EQ(top.IsTreeSound(&fault), 1) << fault;
    std::vector<const Twin*> order = {root};
    for (std::size_t i = 0; i < order.size(); ++i) {
      ASSERT_NO_FATAL_FAILURE(check_node(at, order[i]));
      known_.emplace(order[i], at);
      order.insert(std::next(order.begin(), static_cast<std::ptrdiff_t>(i) + 1), order[i]->children.begin(),
                   order[i]->children.end());
      ASSERT_EQ(at.NextBelow(at, top) != 0, i + 1 < order.size());
    }
    ASSERT_EQ(at.IsNodeValid(), 0);
    for (const Twin* twin : order) check_steps(twin);
  }

  std::mt19937 random_;
  const bool many_attributes_;
  std::vector<std::string> names_ = {"DataID", "Show", "a", "b", "Label", "Use", "_x", "long-name-of-one"};
  std::map<std::string, RYPropertyName> properties_;
  Forest forest_;
  std::array<Handle, 24> pool_;
  std::map<const Twin*, RYXmlWrapperBase> known_;
};

TEST(NodeModel, AgreesAfterEveryEdit) {
  for (unsigned seed = 1; seed < 6; ++seed) {
    Duel duel(seed, seed == 5);
    for (int step = 0; step < 3000 && !HasFailure(); ++step) {
      SCOPED_TRACE(testing::Message() << "seed " << seed << " step " << step);
      duel.step(), duel.check(step % 8 == 0);
    }
  }
}

}  // namespace
