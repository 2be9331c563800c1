// Random edits on the host's trees and on a plain model of them. Old handles are kept, to see which die.
#include "node_model.h"

#include <array>
#include <map>
#include <random>
#include <set>

#include "tree_text.h"

namespace {

struct Handle {
  RYXmlWrapperBase real;
  model::Node* twin = nullptr;
};

constexpr const char* kNames[] = {"DataID", "Show", "a", "b", "Label", "Use", "_x", "long-name-of-one"};
constexpr const char* kTags[] = {"a", "b", "Range", "X1"};
constexpr std::pair<double, const char*> kDoubles[] = {{0.5, "0.5"}, {1e5, "1e+05"}, {-0.0, "-0"}, {3, "3"}};
const std::string kTexts[] = {"", "7", "x", "12"};
constexpr std::size_t kLengths[] = {11, 12, 13, 14, 504, 512, 513, 600};
constexpr std::size_t kManyNodes = 60;

class Duel {
 public:
  explicit Duel(unsigned seed) : random_(seed), properties_(std::begin(kNames), std::end(kNames)) {}

  void step() {
    Handle& a = any();
    Handle& b = any();
    if (big(a) || big(b)) return remove(big(a) ? a : b, any());
    using Edit = void (Duel::*)(Handle&, Handle&);
    static constexpr Edit kEdits[] = {&Duel::add,    &Duel::add,     &Duel::insert, &Duel::attribute,
                                      &Duel::remove, &Duel::replace, &Duel::clone,  &Duel::copy,
                                      &Duel::value,  &Duel::arrange, &Duel::walk,   &Duel::attributes,
                                      &Duel::take,   &Duel::take};
    (this->*kEdits[below(std::size(kEdits))])(a, b);
  }

  void check() {
    known_.clear();
    for (Handle& handle : pool_) {
      ASSERT_EQ(handle.real.IsNodeValid() != 0, model::valid(handle.twin));
      if (!model::valid(handle.twin)) continue;
      ASSERT_TRUE(*known_.try_emplace(handle.twin, &handle.real).first->second == handle.real);
    }
    std::set<const model::Node*> seen;
    for (Handle& handle : pool_) {
      if (!model::valid(handle.twin) || !seen.insert(model::root_of(handle.twin)).second) continue;
      RYXmlWrapperBase top = handle.real;
      for (RYXmlWrapperBase up; top.GetParent(up) != 0;) top = up;
      std::vector<RYXmlWrapperBase> order;
      if (below(4) == 0) check_branch(top, model::root_of(handle.twin), order);
      ASSERT_EQ(text(top), model::xml_of(model::root_of(handle.twin)));
      if (testing::Test::HasFatalFailure()) return;
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
  // Mostly a live one.
  Handle& any() {
    Handle& first = pick(pool_);
    return model::valid(first.twin) ? first : pick(pool_);
  }
  static bool big(const Handle& handle) {
    return model::valid(handle.twin) && model::size_of(model::root_of(handle.twin)) > kManyNodes;
  }
  static void same(int real, bool modelled) { EXPECT_EQ(real != 0, modelled); }

  // Lets the output handle of a successful edit know what was made.
  static void made(Handle& out, int real, model::Node* twin) {
    same(real, twin != nullptr);
    if (twin != nullptr) out.twin = twin;
  }

  void add(Handle& a, Handle& out) {
    const char* const tag = pick(kTags);
    const int id = below(3) - 1;
    const int way = below(3);
    const std::string text = way == 2 ? any_text() : "";
    const int real = way == 0   ? a.real.AddNode(out.real, tag, id)
                     : way == 1 ? a.real.AddChildNode(tag, out.real, id, nullptr)
                                : a.real.AddTextNode(out.real, text.c_str(), tag, id, 0, nullptr);
    made(out, real, forest_.add(a.twin, tag, id, text));
  }
  static void go(Handle& a, Handle& out, int to) {
    const model::Node* const from = a.twin;
    const int real = to < 0 ? a.real.GetParent(out.real) : a.real.GetChild(out.real, to);
    if (model::valid(from)) out.twin = to < 0 ? from->parent : model::child_of(from, to);
    same(real, model::valid(from) && out.twin != nullptr);
  }
  void walk(Handle& a, Handle& out) { go(a, out, below(6) - 3); }
  void insert(Handle& a, Handle& b) {
    if (below(4) != 0) go(a, b, 0);
    same(a.real.InsertNodeBefore(b.real, "b", 6), forest_.insert(a.twin, b.twin, "b", 6));
  }
  void copy(Handle& a, Handle& b) { same(a.real.AddNodeCopy(b.real, 1), forest_.add_copy(a.twin, b.twin)); }
  void clone(Handle& a, Handle& out) { made(out, a.real.Clone(out.real, 1), forest_.clone(a.twin)); }
  void remove(Handle& a, Handle& b) {
    int status = 5;
    const int count = below(5) - 1;
    const int way = below(8);
    if (way == 0) return same(a.real.RemoveNode(), forest_.remove(a.twin));
    if (way == 1) return same(a.real.RemoveAllChildren(), forest_.trim(a.twin, 0));
    if (way == 2) return same(a.real.SetSizeTrimFromEnd(count), forest_.trim(a.twin, count));
    if (way == 3) return same(a.real.ResetNode(1), forest_.reset(a.twin));
    if (way < 6) go(a, b, 0);
    const bool modelled = forest_.remove_child(a.twin, b.twin);
    same(a.real.RemoveChild(b.real, &status), modelled);
    EXPECT_EQ(status, modelled ? 0 : -1);
  }
  void replace(Handle& a, Handle& b) {
    const int way = below(4);
    const int real = way == 3   ? a.real.SetXmlText(text(b.real).c_str())
                     : way == 2 ? a.real.ReplaceByNodeCopy(b.real, 1, 0)
                                : a.real.Replace(b.real, 1, way, 0);
    same(real, forest_.replace(a.twin, b.twin, way == 1));
  }
  void arrange(Handle& a, Handle&) {
    std::vector<int> order(static_cast<std::size_t>(a.real.GetNodeCount()));
    std::iota(order.begin(), order.end(), 0);
    std::shuffle(order.begin(), order.end(), random_);
    if (!order.empty() && below(4) == 0) order.back() = below(6) - 1;
    CArray<int, int> places;
    for (const int place : order) places.Add(place);
    same(a.real.ArrangeChildren(places), model::Forest::arrange(a.twin, order));
  }
  void attribute(Handle& a, Handle&) {
    const RYPropertyName& property = pick(properties_);
    const char* const name = kNames[&property - properties_.data()];
    const auto& [number, written] = pick(kDoubles);
    const int way = below(6);
    const std::string text = way == 2 ? written : way == 3 ? "-12345678" : any_text();
    if (way == 0) return same(a.real.RemoveProperty(name), forest_.unset(a.twin, name));
    if (way == 1) return same(a.real.RemoveProperty(property), forest_.unset(a.twin, name));
    const int real = way == 2   ? a.real.SetPropertyValue(name, number)
                     : way == 3 ? a.real.SetPropertyValue(property, -12345678)
                     : way == 4 ? a.real.SetPropertyValue(property, CString(text.c_str()))
                                : a.real.SetPropertyValue(name, text.c_str());
    same(real, forest_.set(a.twin, name, text));
  }
  void attributes(Handle& a, Handle& b) {
    same(a.real.CopyAllAttributes(b.real, 1), forest_.copy_attributes(a.twin, b.twin));
  }
  void value(Handle& a, Handle&) {
    int number = below(2000) - 1000;
    auto [real, written] = pick(kDoubles);
    const int way = below(4);
    CString text(way == 0 ? std::to_string(number).c_str() : way == 1 ? written : any_text().c_str());
    same(way == 0   ? a.real.NodeValue(number, 0)
         : way == 1 ? a.real.NodeValue(real, 0)
         : way == 2 ? a.real.NodeValue(text, 0, 1, nullptr)
                    : a.real.SetID(number, false),
         model::valid(a.twin));
    if (model::valid(a.twin) && way == 3) a.twin->id = number;
    if (model::valid(a.twin) && way < 3) a.twin->text = text.GetString();
  }

  // Keeps the pool full of live handles: mostly by giving another one, often a dead one, the same node.
  void take(Handle& a, Handle&) {
    if (below(20) == 0) a.real.ReleaseNode(), a.twin = nullptr;
    if (model::valid(a.twin)) {
      pick(pool_) = a;
    } else if (below(2) == 0) {
      made(a, a.real.CreateNew(0, nullptr), forest_.create("Root"));
    }
  }

  void check_node(RYXmlWrapperBase& real, const model::Node* twin) {
    const auto& [own_tag, value, id, attributes, children, parent, alive] = *twin;
    CString read;
    int read_id = -1;
    ASSERT_EQ(real.GetID(read_id), id == -1 ? 0 : 1);
    ASSERT_EQ(real.NodeValue(read, 1, 1, nullptr), 1);
    ASSERT_EQ(real.HasTagName(RYPropertyName(own_tag.c_str())), 1);
    ASSERT_EQ(std::tuple(tag(real), read.View(), read_id), std::tuple(own_tag, value, id));
    ASSERT_EQ(real.GetNodeCount(), std::ssize(children));
    ASSERT_EQ(real.HasChildren(0) == 0, children.empty());
    ASSERT_EQ(real.IsEmpty() != 0, children.empty() && value.empty());
    const auto handle = known_.find(twin);
    ASSERT_TRUE(handle == known_.end() || *handle->second == real);

    const std::map<std::string, std::string> values(attributes.begin(), attributes.end());
    for (const RYPropertyName& property : properties_) {
      const char* const name = kNames[&property - properties_.data()];
      const int has = values.count(name) != 0 ? 1 : 0;
      CString by_name, by_property;
      ASSERT_EQ(real.HasProperty(property), has) << name;
      ASSERT_EQ(real.GetPropertyValue(name, by_name), has) << name;
      ASSERT_EQ(real.GetPropertyValue(property, by_property), has) << name;
      const std::string wanted = has != 0 ? values.at(name) : "";
      ASSERT_EQ(std::tuple(by_name.View(), by_property.View()), std::tuple(wanted, wanted)) << name;
    }
  }

  // Goes down every way there is: first and next, last and previous, by index in random order, and over the
  // whole branch.
  void check_branch(RYXmlWrapperBase& real, const model::Node* twin, std::vector<RYXmlWrapperBase>& order) {
    const std::size_t first = order.size();
    check_node(real, twin);
    int last = static_cast<int>(twin->children.size());
    std::vector<RYXmlWrapperBase> row;
    RYXmlWrapperBase at;
    for (int found = real.FirstChild(at); found != 0; found = at.NextSibling(at)) row.push_back(at);
    ASSERT_EQ(std::tuple(std::ssize(row), at.IsNodeValid(), real.GetChild(at, last)), std::tuple(last, 0, 0));
    for (int found = real.GetChild(at, last - 1); found != 0; found = at.PrevSibling(at))
      ASSERT_TRUE(at == row[static_cast<std::size_t>(--last)]);
    ASSERT_EQ(std::tuple(last, at.IsNodeValid()), std::tuple(0, 0));
    for (std::size_t i = 0; i < row.size(); ++i) {
      const std::size_t other = random_() % row.size();
      real.GetChild(at, static_cast<int>(other));
      ASSERT_TRUE(at == row[other]);
      at.GetParent(at);
      ASSERT_TRUE(at == real);
      order.push_back(row[i]);
      check_branch(row[i], twin->children[i], order);
      if (testing::Test::HasFatalFailure()) return;
    }
    at = real;
    for (std::size_t i = first; i < order.size(); ++i) {
      ASSERT_EQ(at.NextBelow(at, real), 1);
      ASSERT_TRUE(at == order[i]);
    }
    ASSERT_EQ(at.NextBelow(at, real), 0);
    ASSERT_EQ(at.IsNodeValid(), 0);
  }

  std::mt19937 random_;
  const std::vector<RYPropertyName> properties_;
  model::Forest forest_;
  std::array<Handle, 24> pool_;
  std::map<const model::Node*, const RYXmlWrapperBase*> known_;
};

TEST(NodeModel, AgreesAfterEveryEdit) {
  for (unsigned seed = 1; seed < 5; ++seed) {
    Duel duel(seed);
    for (int step = 0; step < 3000 && !HasFailure(); ++step) {
      SCOPED_TRACE(testing::Message() << "seed " << seed << " step " << step);
      duel.step(), duel.check();
    }
  }
}

}  // namespace
