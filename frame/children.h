// Walks over the children of a node and over whole branches, and room in arrays for what they find.
#pragma once

#include <rytree_host/node.h>

/// Reserves space in an array for what a walk from `top` will find: for all nodes of a tree if `top` is its
/// root and the walk is `deep`, else for the children. An array that is not empty is left to grow by itself:
/// reserving at each of many small additions would copy it every time.
template <class Array>
void make_room(Array& array, const RYXmlWrapperBase& top, bool deep) {
  if (!array.IsEmpty()) return;
  RYXmlWrapperBase above;
  array.Reserve(deep && top.GetParent(above) == 0 ? top.GetTreeSize() : top.GetNodeCount());
}

/// Visits the children of a node, first to last:
///     for (Children child(node); child; ++child) use(*child);
/// An invalid node has no children. A body that may remove the child takes it first, which moves the walk on:
///     for (Children child(node); child;) { RYXmlWrapperBase taken = child.take(); … }
class Children {
 public:
  explicit Children(const RYXmlWrapperBase& parent) { parent.FirstChild(at_); }

  explicit operator bool() const { return at_.IsNodeValid() != 0; }
  Children& operator++() {
    at_.NextSibling(at_);
    return *this;
  }
  RYXmlWrapperBase& operator*() { return at_; }
  RYXmlWrapperBase* operator->() { return &at_; }

  RYXmlWrapperBase take() {
    RYXmlWrapperBase taken(at_);
    ++*this;
    return taken;
  }

 private:
  RYXmlWrapperBase at_;
};

/// Visits all nodes below one, in document order, or its children alone if not `deep`:
///     for (NodesBelow at(top); at; ++at) use(*at);
/// The body must not remove or move any of these nodes, nor put `top` on another node. What it adds further
/// on is visited too.
class NodesBelow {
 public:
  explicit NodesBelow(const RYXmlWrapperBase& top, bool deep = true) : top_(top), deep_(deep) {
    top.FirstChild(at_);
  }
  explicit NodesBelow(const RYXmlWrapperBase&& top, bool deep = true) = delete;

  explicit operator bool() const { return at_.IsNodeValid() != 0; }
  NodesBelow& operator++() {
    deep_ ? at_.NextBelow(at_, top_) : at_.NextSibling(at_);
    return *this;
  }
  RYXmlWrapperBase& operator*() { return at_; }
  RYXmlWrapperBase* operator->() { return &at_; }

 protected:
  RYXmlWrapperBase at_;

 private:
  const RYXmlWrapperBase& top_;
  const bool deep_;
};

/// The same walk, with the top as the first node.
class NodesOf : public NodesBelow {
 public:
  explicit NodesOf(const RYXmlWrapperBase& top) : NodesBelow(top) { at_ = top; }
  explicit NodesOf(const RYXmlWrapperBase&& top) = delete;
};
