// What the tests of searches, filters and paths share.
#pragma once

#include <rytree_host/ryUtils.h>

#include <random>
#include <string>
#include <vector>

#include "tests/transfer_model.h"

/// The array of a list "a|b"; "" is the empty array.
inline CStringArray listed(const char* list) {
  CStringArray texts;
  ryutilsGetTokens(list, &texts, '|', nullptr, 0, 0);
  return texts;
}

/// A tree with few different tags and attributes, so that many nodes are alike, and all its nodes in the
/// order in which they were made, the root first.
inline std::vector<RYXmlWrapperBase> alike_nodes(std::mt19937& random, int count) {
  std::vector<RYXmlWrapperBase> nodes(1);
  nodes[0].CreateNew(0, "A");
  while (nodes.size() < static_cast<std::size_t>(count)) {
    RYXmlWrapperBase node;
    nodes[random() % nodes.size()].AddNode(node, std::vector{"A", "B.", "a", "C"}[random() % 4], -1);
    if (random() % 2 == 0) node.SetPropertyValue("k", static_cast<int>(random() % 2));
    if (random() % 4 == 0) node.SetPropertyValue("EventRootOption", static_cast<int>(random() % 4) - 2);
    nodes.push_back(node);
  }
  return nodes;
}
