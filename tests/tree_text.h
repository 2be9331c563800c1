// Trees of the tests: written as XML text, compared as XML text.
#pragma once

#include <gtest/gtest.h>
#include <pthread.h>
#include <rytree_host/node.h>

#include <array>
#include <cstddef>
#include <initializer_list>
#include <iterator>
#include <optional>
#include <sstream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

using Text = const char*;

/// Where in a test something was written; the default argument of what is written there.
struct SourceLine {
  SourceLine(const char* source, int number) : file(source), line(number) {}
  const char* file;
  int line;
};

/// What one case consists of, and where it was written.
template <class Cells>
struct Case {
  Cells cells;
  SourceLine source;
};

/// A list of cases. A walk over it makes each failure name the row it happened in and that row's line.
template <class Cells>
class Table {
 public:
  class Walk {
   public:
    explicit Walk(const std::vector<Case<Cells>>& cases) : cases_(cases) {}
    const Cells& operator*() {
      const auto& [cells, source] = cases_[at_];
      row_.emplace(source.file, source.line, "row " + std::to_string(at_ + 1));
      return cells;
    }
    void operator++() { ++at_; }
    bool operator==(std::default_sentinel_t) const { return at_ == cases_.size(); }

   private:
    const std::vector<Case<Cells>>& cases_;
    std::size_t at_ = 0;
    std::optional<testing::ScopedTrace> row_;
  };

  explicit Table(std::vector<Case<Cells>> cases) : cases_(std::move(cases)) {}
  Walk begin() const { return Walk(cases_); }
  std::default_sentinel_t end() const { return {}; }
  const Cells& operator[](std::size_t row) const { return cases_[row].cells; }

 private:
  std::vector<Case<Cells>> cases_;
};

template <class... Column>
struct Row : Case<std::tuple<Column...>> {
  Row(Column... column, SourceLine written = SourceLine(__builtin_FILE(), __builtin_LINE()))
      : Case<std::tuple<Column...>>{{std::move(column)...}, written} {}
};
template <class... Column>
Row(Column...) -> Row<Column...>;

/// A table of cases:
///     for (const auto& [id, found] : Rows{Row{1, "A"},
///                                         Row{2, "B"}}) …
/// Where a column holds different types, such as texts and nullptr, a name tells them: using R = Row<int, Text>.
/// The rows of a table on one line need no name: Rows<int, int>{{1, 2}, {3, 4}}.
template <class... Column>
struct Rows : Table<std::tuple<Column...>> {
  Rows(std::initializer_list<Row<Column...>> rows)
      : Table<std::tuple<Column...>>({rows.begin(), rows.end()}) {}
};

/// The cases of a raw string, one on a line, as `Count` cells separated by " |" (the last may be missing),
/// blanks trimmed; a line that ends in a backslash goes on in the next, whose leading blanks do not count:
///     for (const auto& [before, after] : rows<2>(R"(<a/> | <b/>)")) …
template <std::size_t Count>
Table<std::array<std::string, Count>> rows(const char* table,
                                           SourceLine source = SourceLine(__builtin_FILE(),
                                                                          __builtin_LINE())) {
  std::vector<Case<std::array<std::string, Count>>> all;
  std::istringstream lines(table);
  for (std::string line; std::getline(lines, line); ++source.line) {
    const SourceLine start = source;
    for (std::string more; line.ends_with('\\') && std::getline(lines, more); ++source.line) {
      line.replace(line.size() - 1, 1, more, more.find_first_not_of(' '));
    }
    if (line.find(" |") == std::string::npos) continue;
    all.push_back({{}, start});
    for (std::string& cell : all.back().cells) {
      cell = line.substr(0, line.find(" |"));
      line.erase(0, cell.size() + 2);
      cell.erase(0, cell.find_first_not_of(' '));
      cell.erase(cell.find_last_not_of(' ') + 1);
    }
  }
  return Table(std::move(all));
}

/// The tree of an XML text; the handle is on its root.
inline RYXmlWrapperBase parse(const char* xml) {
  RYXmlWrapperBase tree;
  tree.CreateNew(0, nullptr);
  EXPECT_NE(tree.SetXmlText(xml), 0) << "no XML text: " << xml;
  return tree;
}
inline RYXmlWrapperBase parse(const std::string& xml) { return parse(xml.c_str()); }

/// XML text in which <a@4 #5 ^6 ~16> is short for a node ID, a DataID, a RepeatID and ThemeApplicability with bit 16.
inline std::string with_ids(std::string xml) {
  for (const std::string name : {"@ _NodeID", "#DataID", "^RepeatID", "~ThemeApplicability"}) {
    for (std::size_t at = 0; (at = xml.find(name[0], at)) != std::string::npos;) {
      std::size_t length = 0;
      const int number = std::stoi(xml.substr(at + 1), &length);
      const std::string written = std::to_string(name[0] == '~' ? 1 << number : number);
      xml.replace(at, length + 1, name.substr(1) + "=\"" + written + "\"");
    }
  }
  return xml;
}
inline RYXmlWrapperBase parse_ids(const std::string& xml) { return parse(with_ids(xml)); }

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

/// The texts, each in brackets: [one][][three].
inline std::string listed(const CStringArray& texts) {
  std::string all;
  for (const CString& one : texts) all.append("[").append(one.View()).append("]");
  return all;
}

/// The text of the node itself.
inline std::string own_text(RYXmlWrapperBase node) {
  CString read;
  node.NodeValue(read, 1, 1, nullptr);
  return std::string(read.View());
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
