// Trees of the tests: written as XML text, compared as XML text.
#pragma once

#include <gtest/gtest.h>
#include <pthread.h>
#include <rytree_host/node.h>

#include <array>
#include <cstddef>
#include <initializer_list>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

/// A table of cases:
///     const Rows<int, const char*> rows = {{1, "A"}, {2, "B"}};
///     for (const auto& [id, found] : rows) …
template <class... Column>
using Rows = std::initializer_list<std::tuple<Column...>>;

/// The cases of a raw string, one on a line, as `Count` cells parted by " |" (the last may lack), blanks
/// trimmed:
///     for (const auto& [before, after] : rows<2>(R"(<a/> | <b/>)")) …
template <std::size_t Count>
std::vector<std::array<std::string, Count>> rows(const char* table) {
  std::vector<std::array<std::string, Count>> all;
  std::istringstream lines(table);
  for (std::string line; std::getline(lines, line);) {
    if (line.find(" |") == std::string::npos) continue;
    all.emplace_back();
    for (std::string& cell : all.back()) {
      cell = line.substr(0, line.find(" |"));
      line.erase(0, cell.size() + 2);
      cell.erase(0, cell.find_first_not_of(' '));
      cell.erase(cell.find_last_not_of(' ') + 1);
    }
  }
  return all;
}

/// The tree of an XML text; the handle stands on its root.
inline RYXmlWrapperBase parse(const char* xml) {
  RYXmlWrapperBase tree;
  tree.CreateNew(0, nullptr);
  EXPECT_NE(tree.SetXmlText(xml), 0) << "no XML text: " << xml;
  return tree;
}
inline RYXmlWrapperBase parse(const std::string& xml) { return parse(xml.c_str()); }

/// The node and all below it as XML text; "" for an invalid handle.
inline std::string text(const RYXmlWrapperBase& node) {
  CString xml;
  node.GetXmlText(&xml);
  return std::string(xml.View());
}

/// The tag, "" for an invalid handle.
inline std::string tag(const RYXmlWrapperBase& node) {
  CString name;
  node.GetTagName(name);
  return std::string(name.View());
}

/// The node reached by child indexes: at(tree, {1, 0}) is the first child of the second.
inline RYXmlWrapperBase at(RYXmlWrapperBase node, std::initializer_list<int> path) {
  for (const int index : path) node.GetChild(node, index);
  return node;
}

/// A handle on a node that was removed.
inline RYXmlWrapperBase dead_node() {
  RYXmlWrapperBase node = at(parse("<Root><Gone DataID=\"1\">text</Gone></Root>"), {0});
  node.RemoveNode();
  return node;
}

/// A tree of so many levels, one node on each: <L><L>…text…</L></L>.
inline RYXmlWrapperBase deep_tree(int levels) {
  RYXmlWrapperBase root;
  root.CreateNew(0, "L");
  RYXmlWrapperBase node(root);
  for (int level = 1; level < levels; ++level) node.AddNode(node, "L", -1);
  CString value("text");
  node.NodeValue(value, 0, 1, nullptr);
  return root;
}

/// Calls `body` on a thread whose stack is the 512 KiB that every walk must do with. It gets more where
/// frames are larger, without optimization and under sanitizers (which Clang shows in another way, so always
/// there).
template <class Body>
void on_small_stack(Body body) {
#if defined(__OPTIMIZE__) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__) && \
    !defined(__clang__)
  constexpr std::size_t kStack = std::size_t{512} * 1024;
#else
  constexpr std::size_t kStack = std::size_t{4096} * 1024;
#endif
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  pthread_attr_setstacksize(&attributes, kStack);
  pthread_t thread{};
  const auto run = [](void* start) -> void* { return (*static_cast<Body*>(start))(), nullptr; };
  ASSERT_EQ(pthread_create(&thread, &attributes, run, &body), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}
