// Free names among the children of a node.
#include "edit/enum_names.h"

#include <rytree_Utils/bulk.h>
#include <rytree_Utils/enumerate.h>
#include <rytree_Utils/paths.h>
#include <rytree_host/Kelp60.h>
#include <rytree_host/ryUtils.h>

#include <string>
#include <unordered_set>
#include <vector>

#include "frame/case_key.h"
#include "frame/children.h"

namespace {

std::unordered_set<std::string> keys_of(const CStringArray& names) {
  std::unordered_set<std::string> keys;
  keys.reserve(static_cast<std::size_t>(names.GetSize()));
  for (const CString& name : names) keys.insert(case_key(name));
  return keys;
}

CStringArray child_tags(RYXmlWrapperBase* node) {
  CStringArray tags;
  if (node != nullptr) vctree_get_node_names(node, &tags, true);
  return tags;
}

CString numbered(const char* prefix, int number) {
  CString name(prefix);
  if (number != 0) name += kelp_number_to_text(number);
  return name;
}

/// A, …, Z, AA, …: counting in letters.
void advance(CString& letters) {
  int at = letters.GetLength() - 1;
  for (; at >= 0 && letters.GetAt(at) >= 'Z'; --at) letters.SetAt(at, 'A');
  if (at >= 0) {
    letters.SetAt(at, static_cast<char>(letters.GetAt(at) + 1));
  } else {
    letters.Insert(0, 'A');
  }
}

/// A tag without the number at its end.
struct SplitTag {
  explicit SplitTag(const CString& tag) : buffer(tag.View().size() + 1) {
    number = string_to_prefix_end_number(buffer.data(), tag);
    has_number = CString(buffer.data()).GetLength() != tag.GetLength();
  }
  const char* prefix() const { return buffer.data(); }

  std::vector<char> buffer;
  int number;
  bool has_number;
};

int next_letters(RYXmlWrapperBase& node, CString* name) {
  if (name == nullptr) return -1;
  const auto taken = keys_of(child_tags(&node));
  CString candidate("A");
  while (taken.contains(candidate.GetString())) advance(candidate);
  *name = candidate;
  return 0;
}

int next_number(RYXmlWrapperBase& node, CString* name) {
  RYXmlWrapperBase first;
  if (node.FirstChild(first) == 0) return -1;
  CString tag;
  first.GetTagName(tag);
  const SplitTag split(tag);
  CArray<unsigned, unsigned> numbers;
  if (!split.has_number || rytree_enum_tag_numbers(&node, split.prefix(), &numbers) < 0) return -1;
  ryutilsSort(numbers, 0);
  int gap = 0;
  while (gap < numbers.GetSize() && numbers[gap] == static_cast<unsigned>(gap) + 1) ++gap;
  if (name != nullptr) name->Format("%s%d", split.prefix(), gap + 1);
  return gap + 1;
}

}  // namespace

int rytree_first_free_enum_number(CStringArray* names, const char* prefix, const char* suffix) {
  const auto taken = keys_of(*names);
  int number = 0;
  while (taken.contains(case_key(numbered(prefix, number) + suffix))) ++number;
  return number;
}

int rytree_enum_tag_numbers(RYXmlWrapperBase* node, const char* prefix, CArray<unsigned, unsigned>* numbers) {
  CString tag;
  for (Children child(*node); child; ++child) {
    child->GetTagName(tag);
    const SplitTag split(tag);
    if (_mbsicmp(split.prefix(), prefix) != 0) continue;
    if (!split.has_number) return -1;
    numbers->Add(static_cast<unsigned>(split.number));
  }
  return numbers->GetSize();
}

void rytree_get_enum_node_name(RYXmlWrapperBase* node, CString* name, const char* prefix) {
  if (name == nullptr || prefix == nullptr) return;
  CStringArray tags = child_tags(node);
  *name = numbered(prefix, rytree_first_free_enum_number(&tags, prefix, ""));
}

void rytree_get_enum_attribute_value(RYXmlWrapperBase* node, CString* value, const char* attribute,
                                     const char* prefix, const char* suffix) {
  if (value == nullptr || prefix == nullptr) return;
  CStringArray values;
  if (node != nullptr) vctree_get_attributes(node, &values, attribute, true);
  *value = numbered(prefix, rytree_first_free_enum_number(&values, prefix, suffix != nullptr ? suffix : ""));
}

int rytree_get_next_enum_tag_name(RYXmlWrapperBase* node, CString* name, int numbered) {
  if (node == nullptr || node->IsNodeValid() == 0) return -1;
  return numbered != 0 ? next_number(*node, name) : next_letters(*node, name);
}
