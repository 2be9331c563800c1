// Finding the nodes that match a text, and writing to them.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

#include <cstddef>
#include <deque>
#include <functional>
#include <queue>
#include <vector>

#include "frame/text_index.h"

/// The text that nodes must match, and what they then get.
struct MatchTexts {
  struct Written {
    CString value{};
    CString extra{};
  };
  CString match{};
  Written written{};
};

/// What matches and what is written.
struct MatchRule {
  const RYPropertyName attribute;
  const RYPropertyName match;
  const RYPropertyName extra{nullptr};  // empty: none
  const bool recursive = true;
  const bool all = true;
  const bool case_sensitive = false;

  /// The text of what matches after it was written; null if it stays as it is.
  const CString* written_match(const MatchTexts::Written& written) const;
};

/// The names that count for a null `attribute` and a null `match`.
RYPropertyName written_name(const char* attribute);
RYPropertyName match_name(const char* match);

/// A target that is searched again and again. The first search is a plain walk; from the second on an index of
/// the nodes by their texts answers, in which a node moves on when what is written changes its text.
///
/// Where the first match alone is written, that is done at once. Where all matches are, nothing is written before
/// finish(): a text is queued for all nodes that match and replaces the one queued before, so that every node is
/// written once, in document order. For instance, with `recursive` and `all`, below this target
///     <R> <p k="a"/> <q k="b"> <r k="c"/> </q> <s k="b"/> </R>
/// the entries are p, q, r and s, in the groups "a" (p), "b" (q and s) and "c" (r). Then
///     write "a"   queues a text for p. The result is 0: the search in q, which comes after p, finds nothing
///     write "b"   queues a text for q and s. The result is 1, by s
///     write "b"   replaces that text
///     finish      writes to p, q and s
/// The last branch that the walk enters is q. It enters it after entry 1, so `counting_from_` is 2, and the
/// result of a write is 1 if the last entry of the group is 2 or more. If "b" were written to `k` of "a", the
/// groups "a" and "b" would become one, and "a" empty.
class MatchTarget {
 public:
  MatchTarget(const RYXmlWrapperBase& target, const MatchRule& rule) : target_(target), rule_(rule) {}

  /// Writes to the nodes below the target that match, all of them or the first. `from_inside`: the text to match
  /// was read from a node that is searched too. The result is that of the last child that matches or is searched
  /// below: 1 for a match, and for a branch that of the search in it, which replaces what came before.
  int write(const MatchTexts& texts, bool from_inside);
  /// The extra text that is queued for a node among those searched; null for none. `match` is its text.
  const CString* queued_extra(const CString& match);
  /// Writes the queued texts.
  void finish();

  const RYXmlWrapperBase& node() const { return target_; }

 private:
  struct Entry {
    RYXmlWrapperBase node;
    int group;
  };
  /// Nodes that are written together. Merging two groups makes a new parent group.
  struct Group {
    std::size_t last;  // of its entries
    int text;          // its number
    int queued = -1;   // replaces what is queued below
    int above = -1;
  };
  using Places = std::priority_queue<int, std::vector<int>, std::greater<>>;

  void index_below(const RYXmlWrapperBase& node, CString& text);
  void index_one(const RYXmlWrapperBase& node, const CString& text);
  int number_of(const CString& text) const;  // -1: no node has or had it
  int add_text(const CString& text);
  int write_first(const MatchTexts& texts);
  int write_all(const MatchTexts& texts, bool from_inside);
  int top_of(int group);
  void queue(Group& group, const MatchTexts::Written& written);
  void move(int group, int text);

  Group& group_at(int number) { return groups_[static_cast<std::size_t>(number)]; }

  const RYXmlWrapperBase& target_;
  const MatchRule& rule_;
  bool searched_ = false;
  bool indexed_ = false;
  TextIndex texts_;
  std::vector<Entry> entries_;  // in document order
  // Where the first match is written: the entries with each text.
  std::vector<Places> places_;
  // Where all are: the groups, and by the number of a text the one that has it and the one that had it at first.
  std::vector<Group> groups_;
  std::vector<int> holders_;
  std::vector<int> first_holders_;
  std::size_t counting_from_ = 0;  // a match before this entry does not count for the result
  std::deque<MatchTexts::Written> queue_;
};
