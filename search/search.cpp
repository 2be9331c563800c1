// Finding and counting nodes by their attributes.
#include <rytree_Utils/search.h>

#include <utility>
#include <vector>

#include "frame/children.h"
#include "frame/host_arrays.h"

namespace {

struct TextValue {
  using Array = CStringArray;
  static Array* open(HostArrayObject* object) { return open_strings(object); }

  bool ignore_case = false;
  CString read{};

  bool matches(const RYXmlWrapperBase& node, const RYPropertyName& name, const CString& wanted) {
    if (node.GetPropertyValue(name, read) == 0) return false;
    return (ignore_case ? _mbsicmp(read, wanted) : _mbscmp(read, wanted)) == 0;
  }
};

struct IntValue {
  using Array = CArray<int, int>;
  static Array* open(HostArrayObject* object) { return open_ints(object); }

  static bool matches(const RYXmlWrapperBase& node, const RYPropertyName& name, int wanted) {
    int read = 0;
    return node.GetPropertyValue(name, read) != 0 && read == wanted;
  }
};

/// The set of attributes in two host arrays, opened once for all nodes that are tested.
template <class Value>
class AttributeSet {
 public:
  AttributeSet(HostArrayObject* names, HostArrayObject* values, Value value)
      : value_(std::move(value)), values_(nullptr) {
    const CStringArray* const opened = open_strings(names);
    if (opened == nullptr) return;
    values_ = Value::open(values);
    names_.reserve(static_cast<std::size_t>(opened->GetSize()));
    for (const CString& name : *opened) names_.emplace_back(name);
  }

  /// 1 if all match, 0 if not, -1 if an object holds no such array.
  int test(const RYXmlWrapperBase& node) {
    if (values_ == nullptr) return -1;
    const int size = values_->GetSize();
    if (names_.size() != static_cast<std::size_t>(size)) return 0;
    for (int i = 0; i < size; ++i) {
      if (!value_.matches(node, names_[static_cast<std::size_t>(i)], (*values_)[i])) return 0;
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
  Value value_;
  std::vector<RYPropertyName> names_;
  const typename Value::Array* values_;
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
    return lstrcmpA(value, read) == 0;
  };
  int count = 0;
  for (NodesBelow at(*node, recursive != 0); at; ++at) {
    if (counts(*at)) ++count;
  }
  return count;
}
