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
  const RYPropertyName extra{nullptr};  // empty: none
  const bool recursive = true;
  const bool all = true;
  const bool case_sensitive = false;

  /// Whether a write may change what matches later.
  bool writes_match() const;
};

/// The names that count for a null `attribute` and a null `match`.
RYPropertyName written_name(const char* attribute);
RYPropertyName match_name(const char* match);

/// The text that nodes must match, and what they then get.
struct MatchTexts {
  struct Written {
    CString value{};
    CString extra{};
  };
  CString match{};
  Written written{};
};

/// A target that is searched again and again. The first search is a plain walk; from the second on an index
/// of the nodes by their texts answers, unless what is written changes those texts. With the index nothing is
/// written before finish(): a text that is queued for a group replaces the one before it, so that every node
/// is written once, and the nodes get their texts in document order.
///
/// For instance, with `recursive` and `all`, below this target
///     <R> <p k="a"/> <q k="b"> <r k="c"/> </q> <s k="b"/> </R>
/// the entries are p, q, r and s, and the groups are "a" (last entry 0), "b" (last 3) and "c" (last 2). Then
///     write "a"   queues a text for p. The result is 0: the search in q, which comes after p, finds nothing
///     write "b"   queues a text for q and s. The result is 1, by s
///     write "b"   replaces that text
///     finish      writes to p, q and s
/// The last branch that the walk enters is q. It enters it after entry 1, so `counting_from_` is 2, and the
/// result of a write is 1 if the last entry of the group is 2 or more.
class MatchTarget {
 public:
  MatchTarget(const RYXmlWrapperBase& target, const MatchRule& rule) : target_(target), rule_(rule) {}

  /// Writes to the nodes below the target that match, all of them or the first. The result is that of the
  /// last child that matches or is searched below: 1 for a match, and for a branch that of the search in it,
  /// which replaces what came before.
  int write(const MatchTexts& texts);
  /// The extra text that is queued for `node`, one of those searched; null for none. `match` is its text.
  const CString* queued_extra(const RYXmlWrapperBase& node, const CString& match) const;
  /// Writes the queued texts.
  void finish();

  const RYXmlWrapperBase& node() const { return target_; }

 private:
  struct Group {  // the nodes of one text
    std::size_t last = 0;
    int queued = -1;
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
  std::vector<Entry> entries_;     // in document order
  std::size_t counting_from_ = 0;  // a match before this entry does not count for the result
  std::deque<MatchTexts::Written> queue_;
};
