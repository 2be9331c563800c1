// Thinning a tree: by the texts that its nodes hold below them, or by one attribute.
#include <rytree_Utils/filter.h>
#include <rytree_host/Kelp60.h>

#include <algorithm>
#include <utility>

#include "frame/attributes.h"
#include "frame/children.h"
#include "frame/host_arrays.h"
#include "frame/node_text.h"

namespace {

/// Removes those candidates, the nodes with one DataID, for which `keeps(node)` is false. Nothing below a
/// candidate is visited.
template <class Keeps>
class Thinning {
 public:
  Thinning(int id, Keeps keeps) : id_(id), keeps_(std::move(keeps)) {}

  /// Tests the node if it is a candidate, else thins what is below it. 0 if a node is invalid, else 1.
  int visit(RYXmlWrapperBase& node) {
    if (is_candidate(node)) {
      if (!keeps_(node)) node.RemoveNode();
      return 1;
    }
    if (node.IsNodeValid() == 0) return 0;
    for (Children child(node); child;) {
      RYXmlWrapperBase taken = child.take();
      if (visit(taken) == 0) return 0;
    }
    return 1;
  }

 private:
  bool is_candidate(const RYXmlWrapperBase& node) const {
    int id = 0;
    return node.GetPropertyValue(data_id_, id) != 0 && id == id_;
  }

  int id_;
  Keeps keeps_;
  RYPropertyName data_id_{kDataIdName};
};

/// The texts of the nodes below `node` that have that DataID, in pre-order.
CStringArray texts_below(const RYXmlWrapperBase& node, int data_id) {
  CStringArray texts;
  const RYPropertyName name(kDataIdName);
  for (NodesBelow at(node); at; ++at) {
    int id = 0;
    if (at->GetPropertyValue(name, id) == 0 || id != data_id) continue;
    const int place = texts.GetSize();
    texts.SetSize(place + 1);
    read_text(*at, texts[place]);
  }
  return texts;
}

bool is_in(const CString& text, const CStringArray& set) {
  return std::any_of(set.begin(), set.end(), [&](const CString& one) { return _mbsicmp(text, one) == 0; });
}

bool intersect(const CStringArray& a, const CStringArray& b) {
  return std::any_of(a.begin(), a.end(), [&](const CString& text) { return is_in(text, b); });
}

/// Whether all texts of `a` are in `b`. An empty `b` holds nothing, not even an empty `a`.
bool all_in(const CStringArray& a, const CStringArray& b) {
  return !b.IsEmpty() && std::all_of(a.begin(), a.end(), [&](const CString& text) { return is_in(text, b); });
}

enum IncludeMode { kIncludeAll = 0, kIncludeAny = 1 };
enum ExcludeMode { kOnlyIncluded = 0, kExcludeAny = 1, kExcludeAll = 2 };

/// A list, how it is tested, and the DataID of the nodes whose texts it is tested against.
struct ListTest {
  int mode;
  int id;
  const CStringArray& list;
};

struct PassesLists {
  ListTest include;
  ListTest exclude;

  bool operator()(const RYXmlWrapperBase& node) const { return passes_exclude(node) && passes_include(node); }

  bool passes_exclude(const RYXmlWrapperBase& node) const {
    if (exclude.mode == kOnlyIncluded) return all_in(texts_below(node, include.id), include.list);
    if (exclude.mode != kExcludeAny && exclude.mode != kExcludeAll) return false;
    if (exclude.list.IsEmpty()) return true;
    const CStringArray texts = texts_below(node, exclude.id);
    return !(exclude.mode == kExcludeAny ? intersect(exclude.list, texts) : all_in(exclude.list, texts));
  }

  bool passes_include(const RYXmlWrapperBase& node) const {
    if (include.mode != kIncludeAll && include.mode != kIncludeAny) return false;
    if (include.list.IsEmpty()) return true;
    const CStringArray texts = texts_below(node, include.id);
    return include.mode == kIncludeAll ? all_in(include.list, texts) : intersect(include.list, texts);
  }
};

struct HoldsText {
  RYPropertyName attribute;
  CString text;
  bool case_sensitive;
  bool at_start;
  CString value{};

  bool operator()(const RYXmlWrapperBase& node) {
    if (node.GetPropertyValue(attribute, value) == 0) return false;
    if (!case_sensitive) value.MakeUpper();
    return at_start ? value.View().starts_with(text.View()) : value.Find(text) >= 0;
  }
};

struct FitsPattern {
  RYPropertyName attribute;
  const char* pattern;
  int match_flag;
  CString value{};

  bool operator()(const RYXmlWrapperBase& node) {
    return node.GetPropertyValue(attribute, value) != 0 &&
           kelp_text_match(pattern, value, match_flag, 0, 0) != 0;
  }
};

}  // namespace

int rytree_filter(RYXmlWrapperBase* node, int dataId, int includeMode, int includeId,
                  HostArrayObject* includes, int excludeMode, int excludeId, HostArrayObject* excludes) {
  const CStringArray* const included = open_strings(includes);
  const CStringArray* const excluded = open_strings(excludes);
  if (included == nullptr || excluded == nullptr) return -1;
  if (node == nullptr) return 0;
  const PassesLists test{.include = {includeMode, includeId, *included},
                         .exclude = {excludeMode, excludeId, *excluded}};
  return Thinning(dataId, test).visit(*node);
}

int rytree_filter_by_attrib_find(RYXmlWrapperBase* node, int dataId, const char* attribute, const char* text,
                                 int caseSensitive, int atStart) {
  if (node == nullptr || attribute == nullptr || text == nullptr) return 0;
  HoldsText test{RYPropertyName(attribute), CString(text), caseSensitive != 0, atStart != 0};
  if (!test.case_sensitive) test.text.MakeUpper();
  return Thinning(dataId, std::move(test)).visit(*node);
}

int rytree_filter_by_attrib_match(RYXmlWrapperBase* node, int dataId, const char* attribute,
                                  const char* pattern, int matchFlag) {
  if (node == nullptr || attribute == nullptr || pattern == nullptr) return 0;
  return Thinning(dataId, FitsPattern{RYPropertyName(attribute), pattern, matchFlag}).visit(*node);
}
