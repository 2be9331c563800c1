// XML text read by each of the node class's two readers alone, for a comparison of all that they make of it.
#pragma once

#include <rytree_host/node.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "host/rytesavc/expat_reader.h"
#include "host/rytesavc/node_access.h"
#include "host/rytesavc/plain_reader.h"

/// Everything that the node and those below it hold, and how they hold it.
inline std::string contents(const rytesavc::Node* node) {
  const auto value = [](const rytesavc::Value& held) {
    return held.kind() == rytesavc::Value::kInt ? "#" + std::to_string(held.number())
                                                : (held.kind() == rytesavc::Value::kLong ? "*" : "'") +
                                                      std::string(held.chars(), held.length());
  };
  std::string all = "<" + std::string(node->tag->view()) + " " + std::to_string(node->id) + "@" +
                    std::to_string(node->depth) + " " + value(node->text);
  for (std::uint32_t i = 0; i < node->attribute_count; ++i)
    all += " " + std::string(node->attributes[i].name->view()) + "=" + value(node->attributes[i].value);
  for (const rytesavc::Node* child = node->first; child != nullptr; child = child->next)
    all += child->parent == node ? contents(child) : "lost";
  return all + ">" + std::to_string(node->child_count);
}

/// What the reader makes of the text and passes over, as contents and as XML text; "" if it refuses it. `read` is called with
/// an input and a builder.
template <class Read>
std::string reading(std::string_view bytes, const Read& read) {
  rytesavc::TextInput input(bytes);
  rytesavc::Tree* const tree = rytesavc::Tree::Create();
  RYXmlWrapperBase root;
  std::string all;
  {
    rytesavc::XmlBuilder builder(*tree, 1, nullptr);
    if (read(input, builder)) tree->root = builder.Take();
    const RYXmlPassedOver& passed = builder.passed_over();
    for (const int count : {passed.comments, passed.instructions, passed.mixed_nodes})
      all += std::to_string(count) + ' ';
  }
  if (tree->root != nullptr) {
    NodeAccess::Put(root, tree, tree->root);
    CString xml;
    root.GetXmlText(&xml);
    all += contents(tree->root) + std::string(xml.View());
  } else {
    all.clear();
  }
  tree->Release();
  return all;
}

/// Read in pieces of that size.
inline std::string plain_reading(std::string_view bytes, std::size_t piece) {
  return reading(bytes, [piece](auto& input, auto& builder) { return ReadPlain(input, builder, piece); });
}

/// As a text in UTF-8, or as a file that may say something else.
inline std::string expat_reading(std::string_view bytes, bool file) {
  return reading(bytes, [file](auto& input, auto& builder) {
    return ReadWithExpat(input, builder, file ? nullptr : "UTF-8");
  });
}
