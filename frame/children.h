// The one walk over the children of a node.
#pragma once

#include <rytree_host/node.h>

#include <utility>

/// Stands on the children of a node, first to last:
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
