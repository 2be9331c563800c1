// Functions that cannot be called by their own parameters alone.
#pragma once

#include <rytree_Utils.h>

#include <cstdarg>
#include <utility>

namespace calls::adapted {

inline int tmxfu_tree_check_get_node(RYXmlWrapperBase& out, RYXmlWrapperBase& start, const char* firstTag,
                                     const char* second, const char* third) {
  return ::tmxfu_tree_check_get_node(out, start, firstTag, second, third, nullptr);
}

inline int tmxfu_tree_get_node(RYXmlWrapperBase& out, const RYXmlWrapperBase& start, const char* firstTag,
                               const char* second, const char* third) {
  return ::tmxfu_tree_get_node(out, start, firstTag, second, third, nullptr);
}

inline int tmxfu_tree_node_vector_value(RYXmlWrapperBase& start, tagRYSOBJVECT& vector, int get,
                                        const char* firstTag, const char* second, const char* third) {
  return ::tmxfu_tree_node_vector_value(start, vector, get, firstTag, second, third, nullptr);
}

inline int with_list(RYXmlWrapperBase& out, RYXmlWrapperBase& start, int create, const char* firstTag, ...) {
  std::va_list tags;
  va_start(tags, firstTag);
  const int found = ::tmxfu_tree_check_get_node_ex(out, start, create, firstTag, tags);
  va_end(tags);
  return found;
}
inline int tmxfu_tree_check_get_node_ex(RYXmlWrapperBase& out, RYXmlWrapperBase& start, int create,
                                        const char* firstTag, const char* second, const char* third) {
  return with_list(out, start, create, firstTag, second, third, nullptr);
}

/// All that can be done with a walk: it goes on, and so do its copies.
template <class Iterator>
int walk(RYXmlWrapperBase& start, RYXmlWrapperBase& out) {
  Iterator first(start);
  int found = first.Get(out);
  Iterator copy(first);
  Iterator second(std::as_const(copy));
  found += copy.Get(out);
  second = first;
  return found + second.Get(out);
}
inline int VCRangeTreeIterator(RYXmlWrapperBase& tree, RYXmlWrapperBase& out) {
  return walk<::VCRangeTreeIterator>(tree, out);
}
inline int VCSubRangeTreeIterator(RYXmlWrapperBase& tree, RYXmlWrapperBase& out) {
  return walk<::VCSubRangeTreeIterator>(tree, out);
}

/// Copies, moves and compares handles.
inline int handles(RYXmlWrapperBase& tree, RYXmlWrapperBase& other) {
  RYXmlWrapperBase copy(tree);
  const RYXmlWrapperBase moved(std::move(copy));
  copy = other;
  other = std::move(copy);
  copy = moved;
  return copy == tree && moved == tree ? 1 : 0;
}

}  // namespace calls::adapted
