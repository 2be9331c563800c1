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
    if (many_attributes_ && below(8) != 0) return attribute(a, b);
    if (big(a) || big(b)) return remove(big(a) ? a : b, any());
    using Edit = void (Duel::*)(Handle&, Handle&);
    static constexpr Edit kEdits[] = {&Duel::add,    &Duel::add,     &Duel::insert, &Duel::attribute,
                                      &Duel::remove, &Duel::replace, &Duel::clone,  &Duel::copy,
                                      &Duel::value,  &Duel::arrange, &Duel::walk,   &Duel::attributes,
                                      &Duel::take,   &Duel::take};
    (this->*kEdits[below(std::size(kEdits))])(a, b);
  }

  void check(bool thoroughly) {
    known_.clear();
    std::set<const model::Node*> roots;
    for (Handle& handle : pool_) {
      ASSERT_EQ(handle.real.IsNodeValid() != 0, model::valid(handle.twin));
      if (!model::valid(handle.twin)) continue;
      const model::Node* const root = model::root_of(handle.twin);
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
  // Mostly a live one.
  Handle& any() {
    Handle& first = pick(pool_);
    return model::valid(first.twin) ? first : pick(pool_);
  }
  bool big(const Handle& handle) const {
    return model::valid(handle.twin) &&
           model::size_of(model::root_of(handle.twin)) > (many_attributes_ ? 3 : 60);
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
    const bool last = below(4) == 0 && model::valid(a.twin) && !a.twin->attributes.empty();
    const std::string owned = last ? a.twin->attributes.back().first : pick(names_);
    const char* const name = owned.c_str();
    const RYPropertyName& property = properties_.at(owned);
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
  }

  // Every step from the node goes where it should.
  void check_steps(const model::Node* twin) {
    RYXmlWrapperBase at;
    const auto expect_at = [&](int found, const model::Node* wanted) {
      EXPECT_EQ(found != 0, wanted != nullptr);
      EXPECT_TRUE(at == (wanted != nullptr ? known_.at(wanted) : RYXmlWrapperBase()));
    };
    const RYXmlWrapperBase real = known_.at(twin);
    const int place = below(twin->children.size() + 1);
    expect_at(real.GetParent(at), twin->parent);
    expect_at(real.FirstChild(at), model::child_of(twin, 0));
    expect_at(real.GetChild(at, place), model::child_of(twin, place));
    for (int i = 0; i < std::ssize(twin->children); ++i) {
      const RYXmlWrapperBase child = known_.at(model::child_of(twin, i));
      expect_at(child.NextSibling(at), model::child_of(twin, i + 1));
      expect_at(child.PrevSibling(at), model::child_of(twin, i - 1));
    }
  }

  void check_tree(RYXmlWrapperBase at, const model::Node* root, bool thoroughly) {
    for (RYXmlWrapperBase up; at.GetParent(up) != 0;) at = up;
    const RYXmlWrapperBase top = at;
    CString fault;
    ASSERT_EQ(text(top), model::xml_of(root));
    if (!thoroughly) return;
    ASSERT_EQ(top.IsTreeSound(&fault), 1) << fault;
    std::vector<const model::Node*> order = {root};
    for (std::size_t i = 0; i < order.size(); ++i) {
      ASSERT_NO_FATAL_FAILURE(check_node(at, order[i]));
      known_.emplace(order[i], at);
      order.insert(std::next(order.begin(), static_cast<std::ptrdiff_t>(i) + 1), order[i]->children.begin(),
                   order[i]->children.end());
      ASSERT_EQ(at.NextBelow(at, top) != 0, i + 1 < order.size());
    }
    ASSERT_EQ(at.IsNodeValid(), 0);
    for (const model::Node* twin : order) check_steps(twin);
  }

  std::mt19937 random_;
  const bool many_attributes_;
  std::vector<std::string> names_ = {"DataID", "Show", "a", "b", "Label", "Use", "_x", "long-name-of-one"};
  std::map<std::string, RYPropertyName> properties_;
  model::Forest forest_;
  std::array<Handle, 24> pool_;
  std::map<const model::Node*, RYXmlWrapperBase> known_;
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
