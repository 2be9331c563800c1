// Finding and counting nodes by their attributes.
#include <rytree_Utils/search.h>

#include <utility>
#include <vector>

#include "frame/children.h"
#include "frame/host_arrays.h"
#include "frame/text_index.h"

namespace {

struct TextValue {
  using Array = CStringArray;
  static Array* open(HostArrayObject* object) { return open_strings(object); }

  bool ignore_case = false;
  CString read{};

  bool equal(const CString& a, const CString& b) const {
    return (ignore_case ? _mbsicmp(a, b) : _mbscmp(a, b)) == 0;
  }
  bool matches(const RYXmlWrapperBase& node, const RYPropertyName& name, const CString& wanted) {
    return node.GetPropertyValue(name, read) != 0 && equal(read, wanted);
  }
};

struct IntValue {
  using Array = CArray<int, int>;
  static Array* open(HostArrayObject* object) { return open_ints(object); }

  static bool equal(int a, int b) { return a == b; }
  static bool matches(const RYXmlWrapperBase& node, const RYPropertyName& name, int wanted) {
    int read = 0;
    return node.GetPropertyValue(name, read) != 0 && read == wanted;
  }
};

/// The set of attributes in two host arrays, opened once for all nodes that are tested.
template <class Value>
class AttributeSet {
 public:
  AttributeSet(HostArrayObject* names, HostArrayObject* values, Value value) : value_(std::move(value)) {
    const CStringArray* const opened = open_strings(names);
    values_ = opened != nullptr ? Value::open(values) : nullptr;
    if (values_ == nullptr) return;
    const int size = opened->GetSize();
    result_ = size == values_->GetSize() ? 1 : 0;
    if (result_ == 1) size <= kFew ? add_all(*opened) : add_different(*opened);
  }

  /// 1 if all match, 0 if not, -1 if an object holds no such array.
  int test(const RYXmlWrapperBase& node) {
    if (result_ != 1) return result_;
    for (const Wanted& one : wanted_) {
      if (!value_.matches(node, one.name, (*values_)[one.place])) return 0;
    }
    return 1;
  }

  /// Finds match number `index` among the children, and below each of them what is left of that number.
  bool find(const RYXmlWrapperBase& parent, RYXmlWrapperBase* found, bool recursive, int index) {
    for (Children child(parent); child; ++child) {
      if (test(*child) != 0 && index-- == 0) {
        if (found != nullptr) *found = *child;
        return true;
      }
      if (recursive && find(*child, found, recursive, index)) return true;
    }
    return false;
  }

 private:
  static constexpr int kFew = 8;
  struct Wanted {
    RYPropertyName name;
    int place;  // of its value
  };

  void add_all(const CStringArray& names) {
    wanted_.reserve(static_cast<std::size_t>(names.GetSize()));
    for (int place = 0; place < names.GetSize(); ++place)
      wanted_.push_back({RYPropertyName(names[place]), place});
  }
  /// Adds each name once: with two different values of one name nothing matches.
  void add_different(const CStringArray& names) {
    TextIndex index;
    for (int place = 0; place < names.GetSize(); ++place) {
      const auto number = static_cast<std::size_t>(index.add(names[place].GetString()));
      if (number == wanted_.size()) {
        wanted_.push_back({RYPropertyName(names[place]), place});
      } else if (!value_.equal((*values_)[wanted_[number].place], (*values_)[place])) {
        result_ = 0;
      }
    }
  }

  Value value_;
  const typename Value::Array* values_ = nullptr;
  std::vector<Wanted> wanted_;
  int result_ = -1;
};

template <class Value>
int check(const RYXmlWrapperBase* node, HostArrayObject* names, HostArrayObject* values, Value value) {
  if (node == nullptr || names == nullptr || values == nullptr) return 0;
  return AttributeSet<Value>(names, values, std::move(value)).test(*node);
}

template <class Value>
int find(const RYXmlWrapperBase* parent, RYXmlWrapperBase* found, HostArrayObject* names,
         HostArrayObject* values, int recursive, int index) {
  if (parent == nullptr || names == nullptr || values == nullptr || index < 0) return 0;
  return AttributeSet<Value>(names, values, Value()).find(*parent, found, recursive != 0, index) ? 1 : 0;
}

}  // namespace

int rytree_check_node_str_attr(RYXmlWrapperBase* node, HostArrayObject* names, HostArrayObject* values,
                               int ignoreCase) {
  return check(node, names, values, TextValue{ignoreCase != 0});
}

int rytree_check_node_int_attr(RYXmlWrapperBase* node, HostArrayObject* names, HostArrayObject* values) {
  return check(node, names, values, IntValue());
}

int rytree_find_node_with_str_attr(RYXmlWrapperBase* parent, RYXmlWrapperBase* found, HostArrayObject* names,
                                   HostArrayObject* values, int recursive, int index) {
  return find<TextValue>(parent, found, names, values, recursive, index);
}

int rytree_find_node_with_int_attr(RYXmlWrapperBase* parent, RYXmlWrapperBase* found, HostArrayObject* names,
                                   HostArrayObject* values, int recursive, int index) {
  return find<IntValue>(parent, found, names, values, recursive, index);
}

int rytree_count_items_by_attribute(RYXmlWrapperBase* node, const char* attribute, const char* value,
                                    int countMissing, int recursive) {
  if (node == nullptr || node->IsNodeValid() == 0) return -1;
  const RYPropertyName name(attribute);
  CString read;
  const auto counts = [&](const RYXmlWrapperBase& at) {
    if (attribute == nullptr) return true;
    if (value == nullptr) return countMissing != 0 || at.HasProperty(name) != 0;
    if (at.GetPropertyValue(name, read) == 0) return countMissing != 0;
    return rytree_host::lstrcmpA(value, read) == 0;
  };
  int count = 0;
  for (NodesBelow at(*node, recursive != 0); at; ++at) {
    if (counts(*at)) ++count;
  }
  return count;
}
