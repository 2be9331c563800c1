// Every function of <rytree_Utils/extras.h>, with each of its allocations failing in turn.
#include <rytree_Utils.h>
#include <rytree_Utils/extras.h>

#include <new>

#include "failing_allocations.h"
#include "scratch_folder.h"
#include "tree_text.h"

namespace {

using Node = RYXmlWrapperBase;

rytree::ValueList values_of(Node& node) {
  rytree::ValueList list;
  vctree_get_values_with_ids(&node, &list.ids, &list.values, 1, 0, 0, nullptr, 0, nullptr);
  return list;
}

class ExtrasOutOfMemory : public FolderTest {};

TEST_F(ExtrasOutOfMemory, ThrowAndLeaveTreesSound) {
  const std::string file = (folder / "theme.xml").string();
  std::ofstream(file) << "<Settings><node1>a</node1></Settings>";
  const std::string longer(100, 'x');
  const std::string one = "<R a='1'><A DataID='1' OldValue='" + longer +
                          "'>a</A><B RepeatID='2'><C DataID='3'>" + longer + "</C><D/></B><E/></R>";
  const std::string two =
      "<R><E n='" + longer + "'/><B RepeatID='2'><F/><C DataID='3'>c</C></B><G DataID='4'/></R>";
  using Use = std::function<std::size_t(Node&, Node&)>;
  const Rows<const char*, Use> uses = {
      {"text_of", [](Node& a, Node&) { return rytree::tag_of(a).size() + rytree::text_of(a).size(); }},
      {"attributes_of",
       [](Node& a, Node&) { return rytree::attributes_of(rytree::child_of(a, "A")).size(); }},
      {"are_equal", [](Node& a, Node& b) { return std::size_t{rytree::are_equal(a, b)}; }},
      {"differences_by_id", [](Node& a, Node& b) { return rytree::differences_by_id(a, b).size(); }},
      {"differences_by_path", [](Node& a, Node& b) { return rytree::differences_by_path(a, b).size(); }},
      {"NodesById", [](Node& a, Node&) { return rytree::NodesById(a).find_all(1).size(); }},
      {"differences_of_values",
       [](Node& a, Node& b) { return rytree::differences_of_values(values_of(a), values_of(b)).size(); }},
      {"apply_values",
       [](Node& a, Node& b) { return rytree::apply_values(b, values_of(a)).unmatched.size(); }},
      {"copy_values", [](Node& a, Node& b) { return rytree::copy_values(a, b).unmatched.size(); }},
      {"holds_saved_values",
       [&](Node&, Node&) { return std::size_t{rytree::holds_saved_values(file.c_str())}; }},
      {"undo_changes", [](Node& a, Node&) { return static_cast<std::size_t>(rytree::undo_changes(a)); }},
      {"restore", [](Node& a, Node& b) { return std::size_t{rytree::restore(a, b)}; }}};
  for (const auto& [name, use] : uses) {
    SCOPED_TRACE(name);
    Node left = parse(one.c_str()), right = parse(two.c_str());
    const std::size_t model = use(left, right);
    const std::string after = text(left) + text(right);
    for (const bool onwards : {false, true}) {
      for (long which = 1, failed = 1; failed != 0; ++which) {
        const long blocks = FailingAllocations::blocks();
        {
          Node a = parse(one.c_str()), b = parse(two.c_str());
          bool threw = false;
          std::size_t result = 0;
          try {
            const FailingAllocations failing(which, onwards);
            result = use(a, b);
          } catch (const std::bad_alloc&) {
            threw = true;
          }
          failed = FailingAllocations::failed();
          EXPECT_TRUE(a.IsTreeSound() != 0 && b.IsTreeSound() != 0) << which;
          EXPECT_TRUE(threw || (result == model && text(a) + text(b) == after) ||
                      (result == 0 && *name == 'h'))  // a file is not read, for whatever reason
              << which << ' ' << result;
        }
        EXPECT_EQ(FailingAllocations::blocks(), blocks) << which;
      }
    }
  }
}

}  // namespace
