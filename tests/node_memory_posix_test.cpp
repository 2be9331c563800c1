// How much memory values take, as the C library and the system of Linux tell it.
#include <malloc.h>
#include <sys/resource.h>

#include <string>
#include <vector>

#include "tree_text.h"

namespace {

using Node = RYXmlWrapperBase;

void put(Node& node, const char* text) { node.SetPropertyValue("x", text), node.CheckSetValue(0, text, 0); }

// What mallinfo2 knows nothing of, as with a sanitizer's own heap, is not tested.
TEST(NodeValues, UseTheMemoryOfTheirFormerTextsAgain) {
  constexpr std::size_t kTexts = 1000;
  constexpr std::size_t kLongest = 512;
  std::vector<Node> nodes(kTexts);
  Node top = parse("<t/>");
  for (Node& node : nodes) top.AddNode(node, "c", -1);
  const std::size_t before = mallinfo2().uordblks;
  const auto fill = [&](std::size_t length) {
    for (Node& node : nodes) node.CheckSetValue(0, std::string(length, 'x').c_str(), 0);
  };
  for (int turn = 0; turn < 2; ++turn) {
    for (std::size_t length = 13; length <= kLongest; length += 5) fill(length);
    for (std::size_t length = kLongest; length > 13; length /= 2) fill(length);
  }
  for (std::size_t length = 13; length <= kLongest; length += 5) fill(20), fill(length);
  EXPECT_LT(mallinfo2().uordblks - before, 8 * kTexts * kLongest);
}

TEST(NodeValues, GiveTheMemoryOfLongTextsBack) {
  const auto most_memory_in_kib = [] {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
  };
  const Node top = parse("<Root><a/><b/></Root>");
  Node source = at(top, {0});
  Node target = at(top, {1});
  put(source, std::string(100000, 'x').c_str());
  const Rows<void (*)(Node&, Node&)> edits = {
      {[](Node& from, Node& to) { to.Replace(from, 1, 0, 0); }},
      {[](Node& from, Node& to) { to.CopyAllAttributes(from, 1), to.RemoveProperty("x"); }},
      {[](Node& from, Node& to) { to.CopyAllAttributes(from, 1), to.SetPropertyValue("x", 1); }},
      {[](Node& from, Node& to) { to.CopyAllAttributes(from, 1), to.SetPropertyValue("x", "x"); }},
      {[](Node& from, Node& to) { to.AddNodeCopy(from, 1), to.RemoveAllChildren(); }}};
  const long before = most_memory_in_kib();
  for (const auto& [edit] : edits) {
    for (int round = 0; round < 6000; ++round) edit(source, target);
    EXPECT_LT(most_memory_in_kib() - before, 400000);
  }
}

}  // namespace
