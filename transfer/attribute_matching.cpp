// Copying leaf texts to attributes of the nodes that match.
#include "transfer/attribute_matching.h"

#include <rytree_Utils/homologous.h>

#include "frame/case_key.h"
#include "frame/children.h"
#include "frame/node_text.h"

namespace {

void write_texts(RYXmlWrapperBase& node, const MatchRule& rule, const MatchTexts::Written& texts) {
  node.SetPropertyValue(rule.attribute, texts.value);
  if (!rule.extra.empty()) node.SetPropertyValue(rule.extra, texts.extra);
}

struct MatchSearch {
  const MatchRule& rule;
  const MatchTexts& texts;
  CString read{};

  int walk(const RYXmlWrapperBase& node) {
    int result = 0;
    for (Children child(node); child; ++child) {
      if (matches(*child)) {
        write_texts(*child, rule, texts.written);
        result = 1;
        if (!rule.all) break;
      }
      if (rule.recursive && child->HasChildren(0) != 0) {
        result = walk(*child);
        if (!rule.all && result == 1) break;
      }
    }
    return result;
  }
  bool matches(const RYXmlWrapperBase& node) {
    if (node.GetPropertyValue(rule.match, read) == 0) return false;
    return (rule.case_sensitive ? _mbscmp(read, texts.match) : _mbsicmp(read, texts.match)) == 0;
  }
};

/// The walk over the source.
struct MatchedCopy {
  const MatchRule& rule;
  MatchTarget& target;
  const RYPropertyName match{rule.match};
  const RYPropertyName extra{rule.extra};

  /// `in_target`: the children of `source` are nodes of the target too.
  int walk(const RYXmlWrapperBase& source, bool in_target) {
    int result = 0;
    MatchTexts texts;
    for (Children child(source); child; ++child) {
      if (child->HasChildren(0) != 0) {
        if (rule.recursive) result = walk(*child, in_target || *child == target.node());
      } else if (child->GetPropertyValue(match, texts.match) != 0) {
        read_text(*child, texts.written.value);
        read_extra(*child, in_target, texts);
        result = target.write(texts);
      }
    }
    return result;
  }
  void read_extra(const RYXmlWrapperBase& leaf, bool in_target, MatchTexts& texts) const {
    if (extra.empty()) return;
    if (const CString* const waiting = in_target ? target.waiting_extra(leaf, texts.match) : nullptr) {
      texts.written.extra = *waiting;
    } else {
      leaf.GetPropertyValue(extra, texts.written.extra);
    }
  }
};

/// Whether the children of `node` are among the nodes searched.
bool lies_in(const RYXmlWrapperBase& node, const RYXmlWrapperBase& target, bool recursive) {
  RYXmlWrapperBase at(node);
  while (recursive && at.IsNodeValid() != 0 && !(at == target)) at.GetParent(at);
  return at.IsNodeValid() != 0 && at == target;
}

}  // namespace

bool MatchRule::writes_match() const {
  return !match.empty() && (match.view() == attribute.view() || match.view() == extra.view());
}

MatchRule match_rule(const char* attribute, const char* match, const char* extra, bool recursive, bool all,
                     bool case_sensitive) {
  return {.attribute = RYPropertyName(attribute != nullptr ? attribute : "Show"),
          .match = RYPropertyName(match != nullptr ? match : "DataID"),
          .extra = RYPropertyName(extra),
          .recursive = recursive,
          .all = all,
          .case_sensitive = case_sensitive};
}

int rytree_set_attribute_on_matching_nodes(const RYXmlWrapperBase& target, const MatchRule& rule,
                                           const MatchTexts& texts) {
  return MatchSearch{rule, texts}.walk(target);
}

int MatchTarget::write(const MatchTexts& texts) {
  if (!searched_ || rule_.writes_match()) {
    searched_ = true;
    return rytree_set_attribute_on_matching_nodes(target_, rule_, texts);
  }
  if (!indexed_) {
    CString text;
    index_below(target_, text);
    indexed_ = true;
  }
  const int number = find(texts.match);
  if (number < 0) return 0;
  Group& group = groups_[static_cast<std::size_t>(number)];
  if (group.waiting < 0) {
    group.waiting = static_cast<int>(waiting_.size());
    waiting_.push_back(texts.written);
  } else {
    waiting_[static_cast<std::size_t>(group.waiting)] = texts.written;
  }
  return group.last >= counting_from_ ? 1 : 0;
}

const CString* MatchTarget::waiting_extra(const RYXmlWrapperBase& node, const CString& match) const {
  if (waiting_.empty()) return nullptr;
  const int number = find(match);
  if (number < 0) return nullptr;
  const Group& group = groups_[static_cast<std::size_t>(number)];
  if (group.waiting < 0 || (!rule_.all && !(entries_[group.last].node == node))) return nullptr;
  return &waiting_[static_cast<std::size_t>(group.waiting)].extra;
}

void MatchTarget::finish() {
  if (waiting_.empty()) return;
  for (Entry& entry : entries_) {
    const int waiting = groups_[static_cast<std::size_t>(entry.group)].waiting;
    if (waiting >= 0) write_texts(entry.node, rule_, waiting_[static_cast<std::size_t>(waiting)]);
  }
  waiting_.clear();
}

void MatchTarget::index_below(const RYXmlWrapperBase& node, CString& text) {
  for (Children child(node); child; ++child) {
    if (child->GetPropertyValue(rule_.match, text) != 0) index_one(*child, text);
    if (!rule_.recursive || child->HasChildren(0) == 0) continue;
    // A search in a branch replaces the result of all that came before it.
    if (rule_.all) counting_from_ = entries_.size();
    index_below(*child, text);
  }
}

void MatchTarget::index_one(const RYXmlWrapperBase& node, const CString& text) {
  const int number = rule_.case_sensitive ? texts_.add(text.GetString()) : texts_.add(case_key(text));
  const auto group = static_cast<std::size_t>(number);
  if (group < groups_.size() && !rule_.all) return;
  if (group == groups_.size()) groups_.emplace_back();
  groups_[group].last = entries_.size();
  entries_.push_back({node, number});
}

int MatchTarget::find(const CString& match) const {
  return rule_.case_sensitive ? texts_.find(match.GetString()) : texts_.find(case_key(match));
}

int rytree_copy_values_to_attributes_by_attribute_matching(RYXmlWrapperBase* source, RYXmlWrapperBase* target,
                                                           const char* attribute, const char* matchAttribute,
                                                           const char* extraAttribute, int recursive, int all,
                                                           int caseSensitive) {
  if (source == nullptr || target == nullptr) return 0;
  const MatchRule rule =
      match_rule(attribute, matchAttribute, extraAttribute, recursive != 0, all != 0, caseSensitive != 0);
  MatchTarget searched(*target, rule);
  const int result = MatchedCopy{rule, searched}.walk(*source, lies_in(*source, *target, rule.recursive));
  searched.finish();
  return result;
}
