// Walking over the ranges of a range tree, and over the sub-nodes of each.
#pragma once

#include <rytree_host/node.h>

#include <cstddef>
#include <iterator>
#include <type_traits>
#include <utility>

// A range tree has one of two forms, which the walks hide. The first child of the tree alone tells which: the
// nested form if it has children itself, else the flat form.
//
//     nested   <T> <Range1><X/><Y/></Range1> <Range2><X/><Y/></Range2> </T>
//     flat     <T> <X/><Y/> <S/> <X/><Y/> </T>       "S" parts two ranges; any other tag is a sub-node
//
// To visit all ranges, walk over a RangeTreeRanges (at the end of this header). The two iterators can be used
// by themselves, but in the nested form this loop ends early, at the first range without children, because
// Get gives 0 there too:
//
//     VCRangeTreeIterator ranges(tree);
//     for (RYXmlWrapperBase first; ranges.Get(first) != 0;) {
//       VCSubRangeTreeIterator sub_nodes(first);
//       for (RYXmlWrapperBase node; sub_nodes.Get(node) != 0;) use(node);
//     }
//
// The iterators hold handles on the caller's tree, which must not change during a walk. They go forward only;
// a copy goes its own way from the same place. For an invalid node the first Get gives 0. Each step is O(1)
// but for the range iterator in the flat form, which passes over the range that it hands out.

/// Hands out the first sub-node of each range.
class RYTREE_API VCRangeTreeIterator {
 public:
  explicit VCRangeTreeIterator(RYXmlWrapperBase& tree);
  VCRangeTreeIterator(VCRangeTreeIterator& other);
  VCRangeTreeIterator(const VCRangeTreeIterator& other);  // a copy of a constant or of a temporary
  VCRangeTreeIterator& operator=(const VCRangeTreeIterator& other);
  ~VCRangeTreeIterator();

  /// Nonzero with `out` on the first sub-node of the next range. 0:
  /// - after the last range, with `out` untouched; in the flat form neither "S" at an end nor two of them in
  ///   a row make an empty range;
  /// - in the nested form also at a range without children, with `out` made invalid; the next call goes on
  ///   with the range after it.
  int Get(RYXmlWrapperBase& out);

 private:
  RYXmlWrapperBase cursor_;
  int nested_;
};

/// Hands out the sub-nodes of one range.
class RYTREE_API VCSubRangeTreeIterator {
 public:
  /// Begins with `first`.
  explicit VCSubRangeTreeIterator(RYXmlWrapperBase& first);
  VCSubRangeTreeIterator(VCSubRangeTreeIterator& other);
  VCSubRangeTreeIterator(const VCSubRangeTreeIterator& other);  // a copy of a constant or of a temporary
  VCSubRangeTreeIterator& operator=(const VCSubRangeTreeIterator& other);
  ~VCSubRangeTreeIterator();

  /// Nonzero with `out` on the next sub-node. After the last sibling, and at one tagged "S" (in the nested
  /// form too), 0 with `out` untouched, and so for every later call.
  int Get(RYXmlWrapperBase& out);

 private:
  RYXmlWrapperBase cursor_;
};

/// What a range-based for loop needs of a walk with the members `item` and `bool next()`.
template <class Walk>
class RangeWalkIterator {
 public:
  using difference_type = std::ptrdiff_t;
  using value_type = std::remove_cvref_t<decltype(std::declval<Walk&>().item)>;

  explicit RangeWalkIterator(Walk walk) : walk_(std::move(walk)), there_(walk_.next()) {}
  value_type& operator*() { return walk_.item; }
  RangeWalkIterator& operator++() {
    there_ = walk_.next();
    return *this;
  }
  void operator++(int) { ++*this; }
  bool operator==(std::default_sentinel_t) const { return !there_; }

 private:
  Walk walk_;
  bool there_;
};

/// The sub-nodes of one range, for a range-based for loop.
class SubRangeNodes {
 public:
  explicit SubRangeNodes(RYXmlWrapperBase first = {}) : first_(std::move(first)) {}

  struct Walk {
    VCSubRangeTreeIterator at;
    RYXmlWrapperBase item{};
    bool next() { return at.Get(item) != 0; }
  };
  RangeWalkIterator<Walk> begin() { return RangeWalkIterator(Walk{VCSubRangeTreeIterator(first_)}); }
  static std::default_sentinel_t end() { return std::default_sentinel; }

 private:
  RYXmlWrapperBase first_;
};

/// All ranges of a tree, including those without sub-nodes in the nested form:
///     for (SubRangeNodes& range : RangeTreeRanges(tree))
///       for (RYXmlWrapperBase& node : range) use(node);
class RangeTreeRanges {
 public:
  explicit RangeTreeRanges(RYXmlWrapperBase tree) : tree_(std::move(tree)) {}

  struct Walk {
    VCRangeTreeIterator at;
    RYXmlWrapperBase tree;
    SubRangeNodes item{};
    bool next() {
      RYXmlWrapperBase first(tree);  // unchanged only at the end; invalid at a range without children
      const bool there = at.Get(first) != 0 || (tree.IsNodeValid() != 0 && first.IsNodeValid() == 0);
      item = SubRangeNodes(std::move(first));
      return there;
    }
  };
  RangeWalkIterator<Walk> begin() { return RangeWalkIterator(Walk{VCRangeTreeIterator(tree_), tree_}); }
  static std::default_sentinel_t end() { return std::default_sentinel; }

 private:
  RYXmlWrapperBase tree_;
};
