// Copying leaf texts to attributes of the nodes that match.
#include "transfer/attribute_matching.h"

#include <rytree_Utils/homologous.h>

#include <algorithm>

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
        result = target.write(texts, in_target);
      }
    }
    return result;
  }
  void read_extra(const RYXmlWrapperBase& leaf, bool in_target, MatchTexts& texts) const {
    if (extra.empty()) return;
    if (const CString* const queued = in_target ? target.queued_extra(texts.match) : nullptr) {
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

const CString* MatchRule::written_match(const MatchTexts::Written& written) const {
  if (match.empty()) return nullptr;
  if (match.view() == extra.view()) return &written.extra;
  return match.view() == attribute.view() ? &written.value : nullptr;
}

RYPropertyName written_name(const char* attribute) {
  return RYPropertyName(attribute != nullptr ? attribute : kShowName);
}

RYPropertyName match_name(const char* match) {
  return RYPropertyName(match != nullptr ? match : kDataIdName);
}

int MatchTarget::write(const MatchTexts& texts, bool from_inside) {
  if (!searched_) {
    searched_ = true;
    return MatchSearch{rule_, texts}.walk(target_);
  }
  if (!indexed_) {
    CString text;
    index_below(target_, text);
    indexed_ = true;
  }
  return rule_.all ? write_all(texts, from_inside) : write_first(texts);
}

int MatchTarget::write_first(const MatchTexts& texts) {
  const int number = number_of(texts.match);
  if (number < 0 || places_[static_cast<std::size_t>(number)].empty()) return 0;
  Places& places = places_[static_cast<std::size_t>(number)];
  const int first = places.top();
  write_texts(entries_[static_cast<std::size_t>(first)].node, rule_, texts.written);
  if (const CString* const match = rule_.written_match(texts.written)) {
    places.pop();
    places_[static_cast<std::size_t>(add_text(*match))].push(first);
  }
  return 1;
}

int MatchTarget::write_all(const MatchTexts& texts, bool from_inside) {
  int number = number_of(texts.match);
  if (number < 0) return 0;
  // A node inside may have moved on since its text was read.
  if (from_inside) number = group_at(top_of(first_holders_[static_cast<std::size_t>(number)])).text;
  const int holder = holders_[static_cast<std::size_t>(number)];
  if (holder < 0) return 0;
  Group& group = group_at(holder);
  const bool counts = group.last >= counting_from_;
  queue(group, texts.written);
  if (const CString* const match = rule_.written_match(texts.written)) move(holder, add_text(*match));
  return counts ? 1 : 0;
}

void MatchTarget::queue(Group& group, const MatchTexts::Written& written) {
  if (group.queued < 0) {
    group.queued = static_cast<int>(queue_.size());
    queue_.push_back(written);
  } else {
    queue_[static_cast<std::size_t>(group.queued)] = written;
  }
}

/// Changes the text of a group, and merges it with the group that already has that text.
void MatchTarget::move(int group, int text) {
  holders_[static_cast<std::size_t>(group_at(group).text)] = -1;
  int& holder = holders_[static_cast<std::size_t>(text)];
  if (holder >= 0) {
    const int both = static_cast<int>(groups_.size());
    groups_.push_back({.last = std::max(group_at(group).last, group_at(holder).last), .text = text});
    group_at(group).above = group_at(holder).above = both;
    group = both;
  }
  group_at(group).text = text;
  holder = group;
}

/// The topmost group above this one. Moves queued texts down and shortens the path for the next time.
int MatchTarget::top_of(int group) {
  for (;;) {
    Group& at = group_at(group);
    if (at.above < 0) return group;
    const Group& above = group_at(at.above);
    if (above.above < 0) return at.above;
    if (above.queued >= 0) at.queued = above.queued;
    group = at.above = above.above;
  }
}

const CString* MatchTarget::queued_extra(const CString& match) {
  const int number = queue_.empty() ? -1 : number_of(match);
  if (number < 0) return nullptr;
  int group = first_holders_[static_cast<std::size_t>(number)];
  top_of(group);
  int queued = -1;
  for (; group >= 0; group = group_at(group).above) {
    if (group_at(group).queued >= 0) queued = group_at(group).queued;
  }
  return queued >= 0 ? &queue_[static_cast<std::size_t>(queued)].extra : nullptr;
}

void MatchTarget::finish() {
  if (queue_.empty()) return;
  // From the top down: a group made of others comes after them.
  for (std::size_t at = groups_.size(); at-- > 0;) {
    Group& group = groups_[at];
    const int above = group.above >= 0 ? group_at(group.above).queued : -1;
    if (above >= 0) group.queued = above;
  }
  for (Entry& entry : entries_) {
    const int queued = group_at(entry.group).queued;
    if (queued >= 0) write_texts(entry.node, rule_, queue_[static_cast<std::size_t>(queued)]);
  }
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
  const int number = add_text(text);
  const std::size_t place = entries_.size();
  if (!rule_.all) {
    places_[static_cast<std::size_t>(number)].push(static_cast<int>(place));
    entries_.push_back({node, -1});
    return;
  }
  int& holder = holders_[static_cast<std::size_t>(number)];
  if (holder < 0) {
    holder = first_holders_[static_cast<std::size_t>(number)] = static_cast<int>(groups_.size());
    groups_.push_back({.last = place, .text = number});
  }
  group_at(holder).last = place;
  entries_.push_back({node, holder});
}

int MatchTarget::number_of(const CString& text) const {
  return rule_.case_sensitive ? texts_.find(text.GetString()) : texts_.find(case_key(text));
}

int MatchTarget::add_text(const CString& text) {
  const int number = rule_.case_sensitive ? texts_.add(text.GetString()) : texts_.add(case_key(text));
  const auto count = static_cast<std::size_t>(texts_.count());
  if (rule_.all) {
    holders_.resize(count, -1);
    first_holders_.resize(count, -1);
  } else {
    places_.resize(count);
  }
  return number;
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
