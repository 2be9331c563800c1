// Following tag paths, and the values at their ends.
#include "frame/tag_path.h"

#include <rytree_Utils/lookup.h>

#include <utility>

#include "frame/check_get.h"
#include "frame/node_text.h"

namespace {

// Points `node` at the last node of the path. What is missing is made if a value is to be written.
bool reach(RYXmlWrapperBase& node, RYXmlWrapperBase& start, int get, const char* first_tag, va_list tags) {
  return tmxfu_tree_check_get_node_ex(node, start, get == 0 ? 1 : 0, first_tag, tags) != 0;
}

template <class Number>
int number_value(RYXmlWrapperBase& start, Number& value, int get, const char* first_tag, va_list tags) {
  RYXmlWrapperBase node;
  return reach(node, start, get, first_tag, tags) ? node.NodeValue(value, get) : 0;
}

}  // namespace

int tmxfu_tree_check_get_node_ex(RYXmlWrapperBase& out, RYXmlWrapperBase& start, int create,
                                 const char* firstTag, va_list tags) {
  RYXmlWrapperBase current(start);
  for (const char* tag = firstTag; tag != nullptr; tag = va_arg(tags, const char*)) {
    RYXmlWrapperBase next;
    const bool there = create != 0 ? check_get_child(next, current, tag) : find_child(next, current, tag);
    if (!there) return 0;
    current = std::move(next);
  }
  out = current;
  return out.IsNodeValid();
}

int tmxfu_tree_check_get_node(RYXmlWrapperBase& out, RYXmlWrapperBase& start, const char* firstTag, ...) {
  va_list tags;
  va_start(tags, firstTag);
  const int reached = tmxfu_tree_check_get_node_ex(out, start, 1, firstTag, tags);
  va_end(tags);
  return reached;
}

int tmxfu_tree_get_node(RYXmlWrapperBase& out, const RYXmlWrapperBase& start, const char* firstTag, ...) {
  RYXmlWrapperBase from(start);
  va_list tags;
  va_start(tags, firstTag);
  const int reached = tmxfu_tree_check_get_node_ex(out, from, 0, firstTag, tags);
  va_end(tags);
  return reached;
}

int tmxfu_tree_node_vector_value(RYXmlWrapperBase& start, tagRYSOBJVECT& vector, int get,
                                 const char* firstTag, ...) {
  RYXmlWrapperBase node;
  va_list tags;
  va_start(tags, firstTag);
  const bool reached = reach(node, start, get, firstTag, tags);
  va_end(tags);
  return reached && (get != 0 ? node.GetVector(vector) : node.SetVector(vector)) == 0 ? 1 : 0;
}

int tmxfu_tree_node_string_value(RYXmlWrapperBase& start, CString& value, int get, const char* firstTag,
                                 ...) {
  RYXmlWrapperBase node;
  va_list tags;
  va_start(tags, firstTag);
  const bool reached = reach(node, start, get, firstTag, tags);
  va_end(tags);
  if (!reached) return 0;
  return get != 0 ? node.NodeValue(value, 1, 1, nullptr) : write_text(node, value);
}

int tmxfu_tree_node_int_value(RYXmlWrapperBase& start, int& value, int get, const char* firstTag, ...) {
  va_list tags;
  va_start(tags, firstTag);
  const int result = number_value(start, value, get, firstTag, tags);
  va_end(tags);
  return result;
}

int tmxfu_tree_node_double_value(RYXmlWrapperBase& start, double& value, int get, const char* firstTag, ...) {
  va_list tags;
  va_start(tags, firstTag);
  const int result = number_value(start, value, get, firstTag, tags);
  va_end(tags);
  return result;
}
