// Free names among the children of a node, and numbered children.
#include <rytree_Utils/bulk.h>
#include <rytree_Utils/enumerate.h>
#include <rytree_Utils/lookup.h>
#include <rytree_Utils/paths.h>
#include <rytree_host/Kelp60.h>
#include <rytree_host/ryUtils.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "frame/check_get.h"
#include "frame/children.h"
#include "frame/children_by_tag.h"
#include "frame/host_arrays.h"
#include "frame/node_text.h"
#include "frame/text_index.h"
#include "frame/words.h"

namespace {

TextIndex keys_of(const CStringArray& names) {
  TextIndex keys;
  for (const CString& name : names) keys.add(case_key(name));
  return keys;
}

CString numbered_tag(const char* prefix, int number) {
  CString tag;
  tag.Format("%s%d", prefix != nullptr ? prefix : "", number);
  return tag;
}

CStringArray child_tags(RYXmlWrapperBase* node) {
  CStringArray tags;
  if (node != nullptr) vctree_get_node_names(node, &tags, true);
  return tags;
}

/// The prefix alone or with the first number from 1 on, so that with the suffix it is none of the names, case
/// aside. The suffix is not in the result.
CString first_free(const CStringArray& names, const CString& prefix, const CString& suffix) {
  const TextIndex taken = keys_of(names);
  CString name(prefix);
  for (int number = 1; taken.find(case_key(name + suffix)) >= 0; ++number) {
    name = prefix;
    name += kelp_number_to_text(number);
  }
  return name;
}

/// Counts in letters: A, …, Z, AA, …
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

/// Collects the numbers at the ends of the children's tags that have the prefix, case aside. False if one of
/// those tags has no number.
bool collect_numbers(const RYXmlWrapperBase& node, const char* prefix, CArray<unsigned, unsigned>& numbers) {
  CString tag;
  for (Children child(node); child; ++child) {
    read_tag(*child, tag);
    const SplitTag split(tag);
    if (_mbsicmp(split.prefix(), prefix) != 0) continue;
    if (!split.has_number) return false;
    numbers.Add(static_cast<unsigned>(split.number));
  }
  return true;
}

int next_letters(RYXmlWrapperBase& node, CString* name) {
  if (name == nullptr) return -1;
  const TextIndex taken = keys_of(child_tags(&node));
  CString candidate("A");
  while (taken.find(case_key(candidate)) >= 0) advance(candidate);
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
  if (!split.has_number || !collect_numbers(node, split.prefix(), numbers)) return -1;
  ryutilsSort(numbers, 0);
  int gap = 0;
  while (gap < numbers.GetSize() && numbers[gap] == static_cast<unsigned>(gap) + 1) ++gap;
  if (name != nullptr) name->Format("%s%d", split.prefix(), gap + 1);
  return gap + 1;
}

/// Finds the children that a node has now. Where many are looked for among them, they are read once.
class PresentChildren {
 public:
  PresentChildren(const RYXmlWrapperBase& parent, int searches) : parent_(parent) {
    constexpr int kChildrenForEachSearch = 16;
    if (parent.GetNodeCount() / kChildrenForEachSearch < searches) by_tag_.emplace(parent);
  }

  /// The first of that tag; an invalid handle if there is none.
  RYXmlWrapperBase find(const CString& tag) {
    RYXmlWrapperBase found;
    if (!by_tag_) {
      find_child(found, parent_, tag);
    } else if (const int number = by_tag_->find(tag.View()); number >= 0) {
      found = by_tag_->node(number);
    }
    return found;
  }

 private:
  const RYXmlWrapperBase& parent_;
  std::optional<FirstByTag> by_tag_;
};

}  // namespace

void rytree_get_enum_node_name(RYXmlWrapperBase* node, CString* name, const char* prefix) {
  if (name == nullptr || prefix == nullptr) return;
  *name = first_free(child_tags(node), prefix, "");
}

void rytree_get_enum_attribute_value(RYXmlWrapperBase* node, CString* value, const char* attribute,
                                     const char* prefix, const char* suffix) {
  if (value == nullptr || prefix == nullptr) return;
  CStringArray values;
  if (node != nullptr) vctree_get_attributes(node, &values, attribute, true);
  *value = first_free(values, prefix, suffix != nullptr ? suffix : "");
}

int rytree_get_next_enum_tag_name(RYXmlWrapperBase* node, CString* name, int numbered) {
  if (node == nullptr || node->IsNodeValid() == 0) return -1;
  return numbered != 0 ? next_number(*node, name) : next_letters(*node, name);
}

void rytree_check_add_enumerated_node(RYXmlWrapperBase* child, RYXmlWrapperBase* parent, const char* prefix,
                                      int number, int id, const char* attribute, const char* value) {
  if (parent == nullptr) return;
  rytree_tree_check_get_node(child, parent, numbered_tag(prefix, number), id, attribute, value, 1);
}

int rytree_make_one_set_ID(int id, int setNumber) {
  const unsigned set = static_cast<unsigned>(setNumber) | 0x2000U;
  return static_cast<int>(set << 16 | (static_cast<unsigned>(id) & 0xFFFFU));
}

bool rytree_check_add_all_enumerated_nodes(RYXmlWrapperBase* parent, const char* prefix,
                                           HostArrayObject* values, int id, const char* label, int* count,
                                           int* maxNodes) {
  CArray<double, double>* const array = open_doubles(values);
  if (parent == nullptr || array == nullptr) return false;
  const std::int64_t start = count != nullptr ? *count : parent->GetNodeCount();
  const int size = array->GetSize();
  PresentChildren present(*parent, size);
  for (int i = 0; i < size; ++i) {
    if (maxNodes != nullptr && parent->GetNodeCount() >= *maxNodes) break;
    const int number = low_word(start + i + 1);
    const CString tag = numbered_tag(prefix, number);
    RYXmlWrapperBase child = present.find(tag);
    if (child.IsNodeValid() == 0) parent->AddNode(child, tag, rytree_make_one_set_ID(id, number));
    if (rytree_host::lstrlenA(label) > 0) child.SetLabel(label);
    write_number(child, (*array)[i]);
  }
  if (count != nullptr) *count = low_word(start + size);
  return true;
}
