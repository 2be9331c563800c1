// Random edits on the host's trees and on a plain model of them, with old handles kept to see which of them
// die.
#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <functional>
#include <iterator>
#include <map>
#include <numeric>
#include <random>
#include <set>

#include "node_model.h"
#include "rytree_host/node.h"

namespace {

struct Handle {
  RYXmlWrapperBase real;
  model::Node* twin = nullptr;
};

constexpr const char* kNames[] = {"DataID", "Show", "a",  "b",
                                  "Label",  "Use",  "_x", "long-name-of-an-attribute"};
constexpr const char* kTags[] = {"a", "b", "Range", "X1"};
constexpr std::pair<double, const char*> kDoubles[] = {{0.5, "0.5"}, {1e5, "1e+05"}, {-0.0, "-0"}, {3, "3"}};
const std::string kTexts[] = {
    "", "7", "x", "12", std::string(12, 'y'), std::string(13, 'z'), std::string(600, 'w')};
constexpr std::size_t kManyNodes = 60;

std::string without_ids(std::string xml) {
  const std::string start = " _NodeID=\"";
  for (std::size_t at = xml.find(start); at != std::string::npos; at = xml.find(start, at)) {
    xml.erase(at, xml.find('"', at + start.size()) + 1 - at);
  }
  return xml;
}

// 0 where the text is no int, as for a missing attribute.
int int_of(const std::string& text) {
  char* end = nullptr;
  const double number = std::strtod(text.c_str(), &end);
  return *end == '\0' && number == static_cast<int>(number) ? static_cast<int>(number) : 0;
}

class Duel {
 public:
  explicit Duel(unsigned seed) : random_(seed), properties_(std::begin(kNames), std::end(kNames)) {}

  void step() {
    Handle& a = any();
    Handle& b = any();
    if (big(a) || big(b)) {
      remove(big(a) ? a : b, any());
    } else {
      using Edit = void (Duel::*)(Handle&, Handle&);
      static constexpr Edit kEdits[] = {&Duel::add,     &Duel::add,   &Duel::add,       &Duel::insert,
                                        &Duel::insert,  &Duel::copy,  &Duel::remove,    &Duel::replace,
                                        &Duel::arrange, &Duel::clone, &Duel::attribute, &Duel::attributes,
                                        &Duel::value,   &Duel::walk,  &Duel::walk,      &Duel::take,
                                        &Duel::take,    &Duel::take,  &Duel::take};
      (this->*kEdits[below(std::size(kEdits))])(a, b);
    }
  }

  void check() {
    known_.clear();
    for (Handle& handle : pool_) {
      ASSERT_EQ(handle.real.IsNodeValid() != 0, model::valid(handle.twin));
      if (!model::valid(handle.twin)) continue;
      const RYXmlWrapperBase* const other = known_.try_emplace(handle.twin, &handle.real).first->second;
      ASSERT_TRUE(*other == handle.real);
    }
    std::set<const model::Node*> seen;
    for (Handle& handle : pool_) {
      if (!model::valid(handle.twin) || !seen.insert(model::root_of(handle.twin)).second) continue;
      RYXmlWrapperBase top = handle.real;
      for (RYXmlWrapperBase up; top.GetParent(up) != 0;) top = up;
      if (below(4) == 0) check_branch(top, model::root_of(handle.twin));
      CString xml;
      ASSERT_EQ(top.GetXmlText(&xml), 1);
      ASSERT_EQ(without_ids(xml.GetString()), model::xml_of(model::root_of(handle.twin)));
      if (testing::Test::HasFatalFailure()) return;
    }
  }

 private:
  int below(std::size_t bound) { return static_cast<int>(random_() % bound); }
  // Mostly one that is alive.
  Handle& any() {
    Handle* handle = &pool_[random_() % pool_.size()];
    for (int i = 0; i < 3 && !model::valid(handle->twin); ++i) handle = &pool_[random_() % pool_.size()];
    return *handle;
  }
  template <class Table>
  const auto& pick(const Table& table) {
    return table[random_() % std::size(table)];
  }
  static bool big(const Handle& handle) {
    return model::valid(handle.twin) && model::size_of(model::root_of(handle.twin)) > kManyNodes;
  }
  static void same(int real, bool modelled) { EXPECT_EQ(real != 0, modelled); }

  // Puts what a successful edit made onto the handle that was its output.
  static void made(Handle& out, int real, model::Node* twin) {
    same(real, twin != nullptr);
    if (twin != nullptr) out.twin = twin;
  }

  void add(Handle& a, Handle& out) {
    const char* const tag = pick(kTags);
    const int id = below(3) - 1;
    const int way = below(3);
    const std::string text = way == 2 ? pick(kTexts) : "";
    model::Node* const twin = forest_.add(a.twin, tag, id);
    if (twin != nullptr) twin->text = text;
    made(out,
         way == 0   ? a.real.AddNode(out.real, tag, id)
         : way == 1 ? a.real.AddChildNode(tag, out.real, id, nullptr)
                    : a.real.AddTextNode(out.real, text.c_str(), tag, id, 0, nullptr),
         twin);
  }
  void insert(Handle& a, Handle& b) {
    if (below(4) != 0) a.real.GetChild(b.real, 0), b.twin = first(a, b.twin);
    const int id = below(9);
    same(a.real.InsertNodeBefore(b.real, "b", id), forest_.insert(a.twin, b.twin, "b", id));
  }
  static model::Node* first(const Handle& handle, model::Node* otherwise) {
    if (!model::valid(handle.twin)) return otherwise;
    return handle.twin->children.empty() ? nullptr : handle.twin->children[0];
  }
  void copy(Handle& a, Handle& b) { same(a.real.AddNodeCopy(b.real, 1), forest_.add_copy(a.twin, b.twin)); }
  void clone(Handle& a, Handle& out) {
    model::Node* const twin = forest_.clone(a.twin);
    made(out, a.real.Clone(out.real, 1), twin);
  }
  void remove(Handle& a, Handle& b) {
    int status = 5;
    bool modelled = false;
    const int count = below(5) - 1;
    switch (below(8)) {
      case 0:
        return same(a.real.RemoveNode(), forest_.remove(a.twin));
      case 1:
        return same(a.real.RemoveAllChildren(), forest_.trim(a.twin, 0));
      case 2:
        return same(a.real.SetSizeTrimFromEnd(count), forest_.trim(a.twin, count));
      case 3:
        return same(a.real.ResetNode(1), forest_.reset(a.twin));
      default:
        if (below(2) == 0) a.real.FirstChild(b.real), b.twin = first(a, b.twin);
        modelled = forest_.remove_child(a.twin, b.twin);
        same(a.real.RemoveChild(b.real, &status), modelled);
        EXPECT_EQ(status, modelled ? 0 : -1);
    }
  }
  void replace(Handle& a, Handle& b) {
    const int way = below(3);
    const int real = way == 2 ? a.real.ReplaceByNodeCopy(b.real, 1, 0) : a.real.Replace(b.real, 1, way, 0);
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
    const std::size_t at = random_() % std::size(kNames);
    const char* const name = kNames[at];
    const auto& [number, written] = pick(kDoubles);
    const std::string& text = pick(kTexts);
    switch (below(6)) {
      case 0:
        return same(a.real.RemoveProperty(name), forest_.unset(a.twin, name));
      case 1:
        return same(a.real.RemoveProperty(properties_[at]), forest_.unset(a.twin, name));
      case 2:
        return same(a.real.SetPropertyValue(name, number), forest_.set(a.twin, name, written));
      case 3:
        return same(a.real.SetPropertyValue(name, text.c_str()), forest_.set(a.twin, name, text));
      case 4:
        return same(a.real.SetPropertyValue(properties_[at], CString(text.c_str())),
                    forest_.set(a.twin, name, text));
      default:
        same(a.real.SetPropertyValue(properties_[at], -12345678), forest_.set(a.twin, name, "-12345678"));
    }
  }
  void attributes(Handle& a, Handle& b) {
    same(a.real.CopyAllAttributes(b.real, 1), forest_.copy_attributes(a.twin, b.twin));
  }
  void value(Handle& a, Handle&) {
    int number = below(2000) - 1000;
    auto [real, written] = pick(kDoubles);
    CString text(pick(kTexts).c_str());
    const int way = below(4);
    same(way == 0   ? a.real.NodeValue(number, 0)
         : way == 1 ? a.real.NodeValue(real, 0)
         : way == 2 ? a.real.NodeValue(text, 0, 1, nullptr)
                    : a.real.SetID(number, false),
         model::valid(a.twin));
    if (!model::valid(a.twin)) return;
    if (way == 3) a.twin->id = number;
    if (way < 3) a.twin->text = way == 0 ? std::to_string(number) : way == 1 ? written : text.GetString();
  }

  // Keeps the pool alive: most of the time another handle, often a dead one, comes to know the node too.
  void take(Handle& a, Handle&) {
    Handle& other = pool_[random_() % pool_.size()];
    if (below(20) == 0) {
      a.real.ReleaseNode();
      a.twin = nullptr;
    } else if (model::valid(a.twin)) {
      other = a;
    } else {
      made(a, a.real.CreateNew(0, nullptr), forest_.create("Root"));
    }
  }
  static model::Node* sibling(const model::Node* node, std::ptrdiff_t by) {
    if (node->parent == nullptr) return nullptr;
    const std::ptrdiff_t at = model::index_of(node) + by;
    const auto& row = node->parent->children;
    return at >= 0 && at < std::ssize(row) ? row[static_cast<std::size_t>(at)] : nullptr;
  }
  void walk(Handle& a, Handle& out) {
    const int way = std::max(below(7) - 3, 0);
    model::Node* const from = a.twin;
    const int real = way == 0   ? a.real.FirstChild(out.real)
                     : way == 1 ? a.real.NextSibling(out.real)
                     : way == 2 ? a.real.PrevSibling(out.real)
                                : a.real.GetParent(out.real);
    if (!model::valid(from)) return same(real, false);
    out.twin = way == 0 ? first(a, nullptr) : way == 3 ? from->parent : sibling(from, way == 1 ? 1 : -1);
    same(real, out.twin != nullptr);
  }

  void check_node(RYXmlWrapperBase& real, const model::Node* twin) {
    CString text;
    ASSERT_EQ(real.GetTagName(text), 1);
    ASSERT_STREQ(text, twin->tag.c_str());
    ASSERT_EQ(real.HasTagName(RYPropertyName(twin->tag.c_str())), 1);
    int id = -1;
    ASSERT_EQ(real.GetID(id) != 0, twin->id != -1);
    ASSERT_EQ(id, twin->id);
    ASSERT_EQ(real.NodeValue(text, 1, 1, nullptr), 1);
    ASSERT_STREQ(text, twin->text.c_str());
    ASSERT_EQ(real.GetNodeCount(), std::ssize(twin->children));
    ASSERT_EQ(real.HasChildren(0) != 0, !twin->children.empty());
    ASSERT_EQ(real.IsEmpty() != 0, twin->children.empty() && twin->text.empty());
    const auto handle = known_.find(twin);
    ASSERT_TRUE(handle == known_.end() || *handle->second == real);

    std::map<std::string, std::string> values(twin->attributes.begin(), twin->attributes.end());
    for (std::size_t i = 0; i < std::size(kNames); ++i) {
      const auto value = values.find(kNames[i]);
      int number = 0;
      ASSERT_EQ(real.GetPropertyValue(kNames[i], text) != 0, value != values.end());
      ASSERT_EQ(real.HasProperty(properties_[i]) != 0, value != values.end());
      ASSERT_TRUE(value == values.end() || text == value->second.c_str()) << kNames[i];
      real.GetPropertyValue(properties_[i], number);
      ASSERT_EQ(number, value == values.end() ? 0 : int_of(value->second));
    }
  }

  // Goes down by every way there is: first and next, last and previous, by index in a random order.
  void check_branch(RYXmlWrapperBase& real, const model::Node* twin) {
    check_node(real, twin);
    const int count = static_cast<int>(twin->children.size());
    std::vector<RYXmlWrapperBase> row;
    RYXmlWrapperBase at;
    for (int found = real.FirstChild(at); found != 0; found = at.NextSibling(at)) row.push_back(at);
    ASSERT_EQ(std::ssize(row), count);
    ASSERT_EQ(at.IsNodeValid(), 0);
    int last = count;
    for (int found = real.GetChild(at, count - 1); found != 0; found = at.PrevSibling(at)) {
      ASSERT_TRUE(at == row[static_cast<std::size_t>(--last)]);
    }
    ASSERT_EQ(last, 0);
    std::vector<int> order(row.size());
    std::iota(order.begin(), order.end(), 0);
    std::shuffle(order.begin(), order.end(), random_);
    for (const int index : order) {
      const auto i = static_cast<std::size_t>(index);
      ASSERT_TRUE(real.GetChild(at, index) != 0 && at == row[i]);
      ASSERT_TRUE(at.GetParent(at) != 0 && at == real);
      check_branch(row[i], twin->children[i]);
      if (testing::Test::HasFatalFailure()) return;
    }
    ASSERT_EQ(real.GetChild(at, count), 0);
  }

  std::mt19937 random_;
  std::vector<RYPropertyName> properties_;
  model::Forest forest_;
  std::array<Handle, 24> pool_;
  std::map<const model::Node*, const RYXmlWrapperBase*> known_;
};

class NodeModel : public testing::TestWithParam<unsigned> {};

TEST_P(NodeModel, AgreesAfterEveryEdit) {
  Duel duel(GetParam());
  for (int step = 0; step < 3000 && !HasFailure(); ++step) {
    SCOPED_TRACE("seed " + std::to_string(GetParam()) + " step " + std::to_string(step));
    duel.step();
    duel.check();
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, NodeModel, testing::Values(1U, 2U, 3U, 4U));

}  // namespace
