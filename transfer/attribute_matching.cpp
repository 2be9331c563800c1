// Copying leaf texts to attributes of the nodes that match.
#include "transfer/attribute_matching.h"

#include <rytree_Utils/homologous.h>

#include "frame/attributes.h"
#include "frame/children.h"
#include "frame/node_text.h"

namespace {

void write_texts(RYXmlWrapperBase& node, const MatchRule& rule, const MatchTexts::Written& texts) {
  node.SetPropertyValue(rule.attribute, texts.value);
  if (!rule.extra.empty()) node.SetPropertyValue(rule.extra, texts.extra);
}

/// One search in the target.
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
    if (const CString* const queued = in_target ? target.queued_extra(leaf, texts.match) : nullptr) {
      texts.written.extra = *queued;
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

RYPropertyName written_name(const char* attribute) {
  return RYPropertyName(attribute != nullptr ? attribute : kShowName);
}

RYPropertyName match_name(const char* match) {
  return RYPropertyName(match != nullptr ? match : kDataIdName);
}

int MatchTarget::write(const MatchTexts& texts) {
  if (!searched_ || rule_.writes_match()) {
    searched_ = true;
    return MatchSearch{rule_, texts}.walk(target_);
  }
  if (!indexed_) {
    CString text;
    index_below(target_, text);
    indexed_ = true;
  }
  const int number = find(texts.match);
  if (number < 0) return 0;
  Group& group = groups_[static_cast<std::size_t>(number)];
  if (group.queued < 0) {
    group.queued = static_cast<int>(queue_.size());
    queue_.push_back(texts.written);
  } else {
    queue_[static_cast<std::size_t>(group.queued)] = texts.written;
  }
  return group.last >= counting_from_ ? 1 : 0;
}

const CString* MatchTarget::queued_extra(const RYXmlWrapperBase& node, const CString& match) const {
  if (queue_.empty()) return nullptr;
  const int number = find(match);
  if (number < 0) return nullptr;
  const Group& group = groups_[static_cast<std::size_t>(number)];
  if (group.queued < 0 || (!rule_.all && !(entries_[group.last].node == node))) return nullptr;
  return &queue_[static_cast<std::size_t>(group.queued)].extra;
}

void MatchTarget::finish() {
  if (queue_.empty()) return;
  for (Entry& entry : entries_) {
    const int queued = groups_[static_cast<std::size_t>(entry.group)].queued;
    if (queued >= 0) write_texts(entry.node, rule_, queue_[static_cast<std::size_t>(queued)]);
  }
  queue_.clear();
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
  const MatchRule rule = {.attribute = written_name(attribute),
                          .match = match_name(matchAttribute),
                          .extra = RYPropertyName(extraAttribute),
                          .recursive = recursive != 0,
                          .all = all != 0,
                          .case_sensitive = caseSensitive != 0};
  MatchTarget searched(*target, rule);
  const int result = MatchedCopy{rule, searched}.walk(*source, lies_in(*source, *target, rule.recursive));
  searched.finish();
  return result;
}
