// Thinning a tree by the text of one attribute.
#include <rytree_Utils/filter.h>
#include <rytree_host/Kelp60.h>

#include "search/candidates.h"

namespace {

struct HoldsText {
  const RYPropertyName attribute;
  const bool ignore_case;
  const bool at_start;
  CString text;
  CString value{};

  bool operator()(const RYXmlWrapperBase& node) {
    if (node.GetPropertyValue(attribute, value) == 0) return false;
    if (ignore_case) value.MakeUpper();
    return at_start ? value.View().starts_with(text.View()) : value.Find(text) >= 0;
  }
};

struct FitsPattern {
  const RYPropertyName attribute;
  const char* const pattern;
  const int match_flag;
  CString value{};

  bool operator()(const RYXmlWrapperBase& node) {
    return node.GetPropertyValue(attribute, value) != 0 &&
           kelp_text_match(pattern, value, match_flag, 0, 0) != 0;
  }
};

}  // namespace

int rytree_filter_by_attrib_find(RYXmlWrapperBase* node, int dataId, const char* attribute, const char* text,
                                 int caseSensitive, int atStart) {
  if (node == nullptr || attribute == nullptr || text == nullptr) return 0;
  HoldsText test{RYPropertyName(attribute), caseSensitive == 0, atStart != 0, CString(text)};
  if (test.ignore_case) test.text.MakeUpper();
  return Candidates(dataId, std::move(test)).visit(*node);
}

int rytree_filter_by_attrib_match(RYXmlWrapperBase* node, int dataId, const char* attribute,
                                  const char* pattern, int matchFlag) {
  if (node == nullptr || attribute == nullptr || pattern == nullptr) return 0;
  return Candidates(dataId, FitsPattern{RYPropertyName(attribute), pattern, matchFlag}).visit(*node);
}
