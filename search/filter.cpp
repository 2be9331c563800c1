// Thinning a tree: by the texts that its nodes hold below them, or by one attribute.
#include <rytree_Utils/filter.h>
#include <rytree_host/Kelp60.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "frame/attributes.h"
#include "frame/children.h"
#include "frame/host_arrays.h"
#include "frame/node_text.h"
#include "frame/text_index.h"

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

/// A list of texts made ready for many searches, case aside.
class TextList {
 public:
  explicit TextList(const CStringArray& texts) : texts_(texts) {
    if (texts.GetSize() > kFew) {
      for (const CString& text : texts) keys_.add(case_key(text));
    }
    const int numbers = std::max(keys_.count(), std::min(texts.GetSize(), kFew));
    met_in_.resize(static_cast<std::size_t>(numbers));
    for (const CString& text : texts) meet(text);
    different_ = std::exchange(met_, 0);
  }

  bool is_empty() const { return texts_.IsEmpty(); }
  /// Whether the list holds one of the texts.
  bool holds_any(const CStringArray& texts) const {
    return std::any_of(texts.begin(), texts.end(), [this](const CString& text) { return number(text) >= 0; });
  }
  /// Whether it holds all of them. An empty list holds nothing, not even no texts.
  bool holds_all(const CStringArray& texts) const {
    return !is_empty() &&
           std::all_of(texts.begin(), texts.end(), [this](const CString& text) { return number(text) >= 0; });
  }
  /// Whether all of the list are among the texts. Nothing is among no texts.
  bool is_among(const CStringArray& texts) {
    ++round_;
    met_ = 0;
    for (const CString& text : texts) meet(text);
    return !texts.IsEmpty() && met_ == different_;
  }

 private:
  static constexpr int kFew = 8;  // can be compared one by one

  /// The same for equal texts; -1 for a text that is not in the list.
  int number(const CString& text) const {
    if (keys_.count() > 0) return keys_.find(case_key(text));
    const auto* const at = std::find_if(texts_.begin(), texts_.end(),
                                        [&](const CString& one) { return _mbsicmp(text, one) == 0; });
    return at != texts_.end() ? static_cast<int>(at - texts_.begin()) : -1;
  }
  /// Counts the texts of the list that come in this round.
  void meet(const CString& text) {
    const int found = number(text);
    if (found < 0 || std::exchange(met_in_[static_cast<std::size_t>(found)], round_) == round_) return;
    ++met_;
  }

  const CStringArray& texts_;
  TextIndex keys_;  // empty for a few texts
  std::vector<int> met_in_;
  int round_ = 1;
  int met_ = 0;
  int different_ = 0;
};

enum IncludeMode { kIncludeAll = 0, kIncludeAny = 1 };
enum ExcludeMode { kRejectUnlisted = 0, kRejectIfAny = 1, kRejectIfAll = 2 };

/// A list, how it is tested, and the DataID of the nodes whose texts it is tested against.
struct ListTest {
  int mode;
  int id;
  TextList list;
};

struct PassesLists {
  ListTest include;
  ListTest exclude;

  bool operator()(const RYXmlWrapperBase& node) { return passes_exclude(node) && passes_include(node); }

  bool passes_exclude(const RYXmlWrapperBase& node) {
    if (exclude.mode == kRejectUnlisted) return include.list.holds_all(texts_below(node, include.id));
    if (exclude.mode != kRejectIfAny && exclude.mode != kRejectIfAll) return false;
    if (exclude.list.is_empty()) return true;
    const CStringArray texts = texts_below(node, exclude.id);
    return !(exclude.mode == kRejectIfAny ? exclude.list.holds_any(texts) : exclude.list.is_among(texts));
  }

  bool passes_include(const RYXmlWrapperBase& node) {
    if (include.mode != kIncludeAll && include.mode != kIncludeAny) return false;
    if (include.list.is_empty()) return true;
    const CStringArray texts = texts_below(node, include.id);
    return include.mode == kIncludeAll ? include.list.is_among(texts) : include.list.holds_any(texts);
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
    // The bytes of the text may start the value and end inside one of its characters: Find goes by characters.
    const bool starts = value.View().starts_with(text.View());
    return at_start ? starts && value.Find(text) == 0 : value.Find(text) >= 0;
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
  PassesLists test{.include = {includeMode, includeId, TextList(*included)},
                   .exclude = {excludeMode, excludeId, TextList(*excluded)}};
  return Thinning(dataId, std::move(test)).visit(*node);
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
