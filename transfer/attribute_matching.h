// Finding the nodes that match a text, and writing to them.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

#include <cstddef>
#include <deque>
#include <vector>

#include "frame/text_index.h"

/// What matches and what is written.
struct MatchRule {
  const RYPropertyName attribute;
  const RYPropertyName match;
  const RYPropertyName extra;  // empty: none
  const bool recursive;
  const bool all;
  const bool case_sensitive;

  /// Whether a write may change what matches later.
  bool writes_match() const;
};

/// A rule with the names in place that stand for a null `attribute` and a null `match`; `extra` may be null.
MatchRule match_rule(const char* attribute, const char* match, const char* extra, bool recursive, bool all,
                     bool case_sensitive);

/// The text that nodes must match, and what they then get.
struct MatchTexts {
  struct Written {
    CString value{};
    CString extra{};
  };
  CString match{};
  Written written{};
};

/// Writes to the nodes below `target` that match, all of them or the first. The result is that of the last
/// child that matches or is searched below: 1 for a match, and for a branch that of the search in it, which
/// replaces what came before.
int rytree_set_attribute_on_matching_nodes(const RYXmlWrapperBase& target, const MatchRule& rule,
                                           const MatchTexts& texts);

/// A target on which one search follows the other. From the second on they go through an index of the nodes
/// by the texts they have, unless what is written changes those texts. What they write waits until the end:
/// of several writes to one node the last holds, and the nodes are then reached in the order they lie in.
class MatchTarget {
 public:
  MatchTarget(const RYXmlWrapperBase& target, const MatchRule& rule) : target_(target), rule_(rule) {}

  /// rytree_set_attribute_on_matching_nodes.
  int write(const MatchTexts& texts);
  /// The extra text that `node`, one of those searched, will have but does not have yet, null for none.
  /// `match` is its text.
  const CString* waiting_extra(const RYXmlWrapperBase& node, const CString& match) const;
  /// Writes what waits.
  void finish();

  const RYXmlWrapperBase& node() const { return target_; }

 private:
  struct Group {  // the nodes of one text
    std::size_t last = 0;
    int waiting = -1;
  };
  struct Entry {
    RYXmlWrapperBase node;
    int group;
  };

  void index_below(const RYXmlWrapperBase& node, CString& text);
  void index_one(const RYXmlWrapperBase& node, const CString& text);
  int find(const CString& match) const;

  const RYXmlWrapperBase& target_;
  const MatchRule& rule_;
  bool searched_ = false;
  bool indexed_ = false;
  TextIndex texts_;
  std::vector<Group> groups_;      // by the number of the text
  std::vector<Entry> entries_;     // in pre-order
  std::size_t counting_from_ = 0;  // a match before this entry does not count for the result
  std::deque<MatchTexts::Written> waiting_;
};
