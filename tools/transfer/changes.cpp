#include "changes.h"

#include <array>

#include "nodes.h"

namespace {

/// The attributes in which a value may be stored.
constexpr std::array kValueAttributes = {"Use", "Data", "Auto", "DynaUseChck"};

/// Walks both trees side by side; they have the same shape.
class Comparison {
 public:
  Comparison(Outcome& outcome, int limit) : outcome_(outcome), limit_(static_cast<std::size_t>(limit)) {}

  void walk(const RYXmlWrapperBase& before, const RYXmlWrapperBase& after) {
    const std::size_t end_of_path = path_.size();
    if (end_of_path != 0) path_ += '.';
    path_ += tag_of(after);
    RYXmlWrapperBase old_child;
    RYXmlWrapperBase child;
    before.FirstChild(old_child);
    after.FirstChild(child);
    while (old_child.IsNodeValid() != 0 && child.IsNodeValid() != 0) {
      compare(old_child, child);
      walk(old_child, child);
      old_child.NextSibling(old_child);
      child.NextSibling(child);
    }
    path_.resize(end_of_path);
  }

 private:
  void compare(const RYXmlWrapperBase& before, RYXmlWrapperBase& after) {
    CString old_value;
    CString new_value;
    if (after.GetPropertyValue("OldValue", old_value) != 0) {
      VCTreeNodeGetValue(after, new_value);
      list(after, "", old_value, new_value);
    }
    for (const char* const name : kValueAttributes) {
      const bool was_there = before.GetPropertyValue(name, old_value) != 0;
      if (after.GetPropertyValue(name, new_value) == 0 || (was_there && old_value == new_value)) continue;
      ++outcome_.changed_attributes;
      list(after, std::string("@") + name, was_there ? old_value : CString("(none)"), new_value);
    }
  }

  void list(const RYXmlWrapperBase& node, const std::string& attribute, const CString& old_value,
            const CString& new_value) {
    if (outcome_.changes.size() >= limit_) return;
    const auto shown = [](const CString& value) {
      return std::string(value.IsEmpty() ? "(empty)" : value.View());
    };
    outcome_.changes.push_back({path_ + '.' + tag_of(node) + attribute, shown(old_value), shown(new_value)});
  }

  Outcome& outcome_;
  std::size_t limit_;
  std::string path_;
};

}  // namespace

void find_changes(const RYXmlWrapperBase& before, RYXmlWrapperBase& after, CStringArray& saved,
                  int change_limit, Outcome& outcome) {
  outcome.changed_nodes = VCTreeUpdateChanges(&after, &saved);
  Comparison(outcome, change_limit).walk(before, after);
}
