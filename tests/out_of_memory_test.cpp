// Every node operation, and one call of every export, with each of its allocations failing in turn.
#include <algorithm>
#include <array>
#include <filesystem>
#include <new>
#include <set>

#include "every_export.h"
#include "failing_allocations.h"
#include "host/rytesavc/node_access.h"

namespace {

using S = ExportScene;

// How a call finds the memory of its trees: as it is, without any room, without room for one more name, or with a
// long text at every node, which lies in a block of its own.
enum class Room { kAsItIs, kNone, kNoName, kLongTexts };

// Gives a tree names that nothing in it has. They take up room for good.
class NameAdder {
 public:
  explicit NameAdder(const RYXmlWrapperBase& top) : node_(top) {}

  void add(std::size_t length) {
    const std::string number = std::to_string(++count_);
    const std::string name = "n" + std::string(length - std::min(length, number.size()), '_') + number;
    node_.SetPropertyValue(name.c_str(), 0);
    node_.RemoveProperty(name.c_str());
  }
  void add_until(std::uint32_t names) {
    while (NodeAccess::tree(node_)->name_count() < names) add(1);
  }
  // Uses up the room, first by long names, then what is left by shorter ones.
  void fill() {
    for (const std::size_t length : {440U, 200U, 90U, 40U, 16U, 1U}) {
      try {
        const FailingAllocations none(1, true);
        for (;;) add(length);
      } catch (const std::bad_alloc&) {
      }
    }
  }

 private:
  RYXmlWrapperBase node_;
  int count_ = 0;
};

void prepare_room(const RYXmlWrapperBase& top, Room room) {
  constexpr std::uint32_t kFewNames = 16;  // the table of names has to grow for one more
  if (top.IsNodeValid() == 0) return;
  NameAdder names(top);
  if (room == Room::kNone) {
    names.add_until(kFewNames + 4);
    names.fill();
  } else if (room == Room::kNoName) {
    names.add_until(NodeAccess::tree(top)->name_count() < kFewNames ? kFewNames : 2 * kFewNames);
  } else if (room == Room::kLongTexts) {
    const std::string text(600, 'x');
    RYXmlWrapperBase node(top);
    for (int there = 1; there != 0; there = node.NextBelow(node, top))
      node.SetPropertyValue("Long", text.c_str());
  }
}

struct Figures {
  long runs = 0, failed = 0, returned = 0, thrown = 0, leaked = 0, unsound = 0;
};

// One call on a scene of its own.
struct Run {
  Run(const ExportCall& its_row, Room room) : row(its_row), scene(row.xml) {
    if (row.prepare != nullptr) row.prepare(scene);
    for (const RYXmlWrapperBase* tree : trees()) prepare_room(*tree, room);
    before = scene.show();
  }
  std::array<const RYXmlWrapperBase*, 4> trees() const {
    return {&scene.tree, &scene.other, &scene.made, &scene.out};
  }

  // Calls while that allocation, with `onwards` every later one too, fails; 0: none.
  void call(long which, bool onwards) {
    result = -1;
    threw = false;
    try {
      const FailingAllocations failing(which, onwards);
      result = row.call(scene);
    } catch (const std::bad_alloc&) {
      threw = true;
    }
    why = RYXmlWrapperBase::LastFailure().text;
    after = scene.show();
  }
  std::string faults() const {
    std::string all;
    for (const RYXmlWrapperBase* tree : trees()) {
      CString fault;
      if (tree->IsNodeValid() != 0 && tree->IsTreeSound(&fault) == 0) all.append(fault.View()).append("; ");
    }
    return all;
  }

  const ExportCall& row;
  ExportScene scene;
  std::string before, after;
  std::string why;  // the call failed, if it says so
  int result = 0;
  bool threw = false;
};

// What a call may do when memory runs out.
struct Promise {
  bool whole;    // whatever happens, all or nothing is done
  bool refuses;  // it may give 0
};

// What is wrong with a call that lacked that allocation.
std::string fault_of(Run& run, const Run& model, const Promise& promise, long which, bool onwards,
                     Figures& figures) {
  run.call(which, onwards);
  const long failed = FailingAllocations::failed();
  ++figures.runs;
  figures.failed += failed;
  ++(run.threw ? figures.thrown : figures.returned);

  const bool done = !run.threw && run.result == model.result && run.after == model.after;
  const bool refused = !run.threw && promise.refuses && run.result == 0;
  std::string fault = run.faults();
  if (!fault.empty()) ++figures.unsound;
  if (refused && run.why.find("memory") == run.why.npos) fault += "gives the reason '" + run.why + "'; ";
  if (!run.threw && !done && !refused) fault += "returned " + std::to_string(run.result) + "; ";
  if (promise.whole && !done && run.after != run.before) fault += "half done; ";
  if (done || failed == 0) return fault;

  run.call(0, false);
  fault += run.faults();
  if (run.threw || (run.result == 0 && model.result != 0)) fault += "does not work afterwards; ";
  if (promise.whole && (run.result != model.result || run.after != model.after))
    fault += "does not do it afterwards; ";
  return fault;
}

void fail_each(const ExportCall& row, const Promise& promise, Figures& figures) {
  SCOPED_TRACE(row.name);
  for (const Room room : {Room::kAsItIs, Room::kNone, Room::kNoName, Room::kLongTexts}) {
    Run model(row, room);
    model.call(0, false);
    EXPECT_EQ(model.result, row.expected);
    for (const bool onwards : {false, true}) {
      for (long which = 1, failed = 1; failed != 0; ++which) {
        std::string fault;
        fault.reserve(100);  // is one block, whatever it holds
        const long blocks = FailingAllocations::blocks();
        const long failed_before = figures.failed;
        {
          Run run(row, room);
          fault = fault_of(run, model, promise, which, onwards, figures);
        }
        failed = figures.failed - failed_before;
        EXPECT_EQ(fault, "") << "allocation " << which << (onwards ? " and all later" : "") << ", room "
                             << static_cast<int>(room);
        const long leaked = FailingAllocations::blocks() - blocks;
        figures.leaked += leaked;
        EXPECT_EQ(leaked, 0) << "allocation " << which;
      }
    }
  }
}

void report(const Figures& figures) {
  std::printf(
      "%ld calls, %ld failed allocations: %ld returned, %ld threw; %ld blocks leaked, %ld trees unsound\n",
      figures.runs, figures.failed, figures.returned, figures.thrown, figures.leaked, figures.unsound);
}

// Files that a test leaves open, or on the disk.
std::ptrdiff_t count_files() {
  const auto count = [](const std::string& folder, const std::string& start) {
    const std::filesystem::directory_iterator files(folder);
    return std::count_if(begin(files), end(files), [&](const auto& file) {
      return file.path().filename().native().starts_with(start);
    });
  };
  const std::string process = std::to_string(getpid());
  return count("/proc/self/fd", "") + count(ExportScene::scratch_folder(), "every_export." + process) +
         count(ExportScene::scratch_folder(), ".every_export." + process);
}

TEST(OutOfMemory, LeavesTreesSoundAfterEveryExport) {
  // The first tell a failure by their result; these and the next do all or nothing.
  const std::set<std::string_view> refusing = {"VCTreeSetTagName(RYXmlWrapperBase*, char const*)",
                                               "rytree_tree_save_values_with_ids",
                                               "vctree_save_values_with_ids(char const*, CArray<int, int>*, "
                                               "CStringArray*, char const*, CStringArray*)"};
  const std::set<std::string_view> whole = {"rytree_move_node", "rytree_sort_children_by_int_attribute",
                                            "vctree_reenum_subranges_in_range_tree(RYXmlWrapperBase&, int)"};
  const std::set<std::string_view> reading = {
      "rytree_tree_read_values_with_ids",
      "vctree_read_values_with_ids(char const*, CArray<int, int>*, CStringArray*, CString*)"};
  const std::ptrdiff_t files = count_files();
  Figures figures;
  for (const ExportCall& row : every_export::table()) {
    const bool refuses = refusing.count(row.name) != 0;
    fail_each(row, {refuses || whole.count(row.name) != 0, refuses || reading.count(row.name) != 0}, figures);
  }
  EXPECT_EQ(count_files(), files);
  report(figures);
}

const std::string kLong(100, 'x');

// A node that has so many attributes that with one more they get an index.
const std::string kMany = [] {
  std::string xml = "<Many";
  for (int i = 1; i <= 64; ++i) xml += " a" + std::to_string(i) + "=\"a text of some length\"";
  return xml + "/>";
}();

// Calls under another code page than UTF-8.
template <class Work>
int under_page(int page, const Work& work) {
  struct Page {
    explicit Page(int number) { RYXmlWrapperBase::SetDefaultCodePage(number); }
    ~Page() { RYXmlWrapperBase::SetDefaultCodePage(65001); }
  } const set(page);
  return work();
}

const std::vector<ExportCall> kOperations = {
    {"CreateNew", 1, [](S& s) { return s.out.CreateNew(0, "A_tag_of_some_length"); }},
    {"copies", 1, [](S& s) { return RYXmlWrapperBase(s.tree) == s.tree; }},
    {"GetPropertyValue", 1, [](S& s) { return s.tree.GetPropertyValue("ThemeFile", s.text); }},
    {"SetPropertyValue int", 1, [](S& s) { return s.tree.SetPropertyValue("ANewName", 7); }},
    {"SetPropertyValue double", 1, [](S& s) { return s.tree.SetPropertyValue("ANewName", 1.0 / 3); }},
    {"SetPropertyValue double over", 1, [](S& s) { return s.tree.SetPropertyValue("Branch", 1.0 / 3); }},
    {"SetPropertyValue CString", 1,
     [](S& s) { return s.tree.SetPropertyValue("ANewName", CString(kLong.c_str())); }},
    {"SetPropertyValue text", 1, [](S& s) { return s.tree.SetPropertyValue("Label", kLong.c_str()); }},
    {"SetPropertyValue large", 1,
     [](S& s) { return s.tree.SetPropertyValue("New", std::string(5000, 'x').c_str()); }},
    {"SetPropertyValue variant", 1,
     [](S& s) {
       const _variant_t value(kLong.c_str());
       return s.tree.SetPropertyValue("ANewName", &value);
     }},
    {"SetPropertyValue known", 1,
     [](S& s) { return s.made.SetPropertyValue(RYPropertyName("Made"), CString(kLong.c_str())); }},
    {"SetPropertyValue new name", 1,
     [](S& s) { return s.made.SetPropertyValue(RYPropertyName("\xC3\xA9t\xC3\xA9"), 1); }},
    {"RemoveProperty", 1, [](S& s) { return s.tree.RemoveProperty("Label"); }},
    {"CopyAllAttributes", 1, [](S& s) { return s.other.CopyAllAttributes(s.tree, 0); }},
    {"CopyAllAttributes to a bare node", 1, [](S& s) { return s.made.CopyAllAttributes(s.tree, 0); }},
    {"CopyAllAttributes to many", 1, [](S& s) { return s.tree.CopyAllAttributes(s.other, 0); },
     kMany.c_str()},
    {"CopyAllAttributes of many", 1, [](S& s) { return s.other.CopyAllAttributes(s.tree, 0); },
     kMany.c_str()},
    {"SetPropertyValue of many", 1, [](S& s) { return s.tree.SetPropertyValue("New", kLong.c_str()); },
     kMany.c_str()},
    {"AddNodeCopy of many", 1, [](S& s) { return s.made.AddNodeCopy(s.tree, 0); }, kMany.c_str()},
    {"NodeValue double", 1, [](S& s) { return s.made.NodeValue(s.numbers[2], 0); }},
    {"NodeValue doubles", 1, [](S& s) { return s.made.NodeValue(s.doubles.array(), 0); }},
    {"NodeValue doubles read", 1, [](S& s) { return s.tree.NodeValue(s.doubles.array(), 1); },
     "<a>1 2.5 3.25 4 5 6</a>"},
    {"NodeValue text", 1, [](S& s) { return s.made.NodeValue(s.values[1], 0, 0, nullptr); }},
    {"NodeValue text read", 1, [](S& s) { return s.tree.NodeValue(s.text, 1, 0, nullptr); },
     "<a>a text that is long enough</a>"},
    {"GetNodeStringWithBlobInfo", 1, [](S& s) { return s.tree.GetNodeStringWithBlobInfo(s.text, 0); },
     "<a>a text that is long enough</a>"},
    {"CheckSetValue", 1, [](S& s) { return s.tree.CheckSetValue(0, kLong.c_str(), 0); }},
    {"CheckSetValue Use", 1, [](S& s) { return s.tree.CheckSetValue(0, CString(kLong.c_str()), 1); }},
    {"GetVector", 0, [](S& s) { return s.tree.GetVector(s.vector); }, "<a>1 2.5 3.25 4 5 6</a>"},
    {"SetVector", 0, [](S& s) { return s.tree.SetVector(s.vector); }},
    {"GetTagName", 1, [](S& s) { return s.tree.GetTagName(s.text); }, "<A_tag_of_more_than_a_few_bytes/>"},
    {"FindChild", 1, [](S& s) { return s.tree.FindChild("Note", s.out, 0); }},
    {"FindNodeByAttribute", 1,
     [](S& s) { return s.tree.FindNodeByAttribute(s.out, "Label", "THE STYLE OF THE LINE", 1, 1); }},
    {"AddNode", 1, [](S& s) { return s.tree.AddNode(s.out, "A_new_node_with_a_long_tag", 7); }},
    {"AddChildNode", 1, [](S& s) { return s.tree.AddChildNode("\xC3\xA9t\xC3\xA9", s.out, 7, nullptr); }},
    {"InsertNodeBefore", 1, [](S& s) { return s.tree.InsertNodeBefore(at(s.tree, {1}), "A_new_node", 7); }},
    {"AddTextNode", 1,
     [](S& s) { return s.tree.AddTextNode(s.out, kLong.c_str(), "A_new_node", 7, 0, nullptr); }},
    {"AddNodeCopy", 1, [](S& s) { return s.made.AddNodeCopy(s.tree, 0); }},
    {"AddNodeCopy of itself", 1, [](S& s) { return s.tree.AddNodeCopy(s.tree, 0); }},
    {"RemoveChild", 1,
     [](S& s) {
       RYXmlWrapperBase child = at(s.tree, {1});
       return s.tree.RemoveChild(child, nullptr);
     }},
    {"RemoveNode", 1, [](S& s) { return at(s.tree, {0}).RemoveNode(); }},
    {"RemoveAllChildren", 1, [](S& s) { return s.tree.RemoveAllChildren(); }},
    {"SetSizeTrimFromEnd", 1, [](S& s) { return s.tree.SetSizeTrimFromEnd(1); }},
    {"Clone", 1, [](S& s) { return s.tree.Clone(s.out, 0); }},
    {"Clone of a branch", 1, [](S& s) { return at(s.tree, {0}).Clone(s.out, 0); }},
    {"Replace", 1, [](S& s) { return s.other.Replace(s.tree, 0, 1, 0); }},
    {"Replace by a child", 1, [](S& s) { return s.tree.Replace(at(s.tree, {0}), 0, 0, 0); }},
    {"ReplaceByNodeCopy", 1, [](S& s) { return s.made.ReplaceByNodeCopy(s.tree, 0, 0); }},
    {"ArrangeChildren", 1,
     [](S& s) {
       CArray<int, int> order;
       for (const int place : {2, 0, 1}) order.Add(place);
       return s.tree.ArrangeChildren(order);
     }},
    {"ResetNode", 1, [](S& s) { return s.tree.ResetNode(1); }},
    {"GetXmlText", 1, [](S& s) { return s.tree.GetXmlText(&s.text); }},
    {"SetXmlText", 1,
     [](S& s) {
       return s.made.SetXmlText(ExportScene::kOther + 0 == nullptr
                                    ? ""
                                    : "<Other a=\"a text of some length\" _NodeID=\"3\"><b>another text of "
                                      "some length</b></Other>");
     }},
    {"SetXmlText with an entity", 1,
     [](S& s) {
       return s.made.SetXmlText(
           "<!DOCTYPE a [<!ENTITY e \"an entity of some length\">]><a b=\"&e;\">&e;</a>");
     }},
    {"Save", 1, [](S& s) { return s.tree.Save(s.file.c_str()); }, nullptr,
     [](S& s) { EXPECT_NE(s.other.Save(s.file.c_str()), 0); }},
    {"load", 1, [](S& s) { return s.out.load(s.file.c_str(), 0); }, nullptr,
     [](S& s) { EXPECT_NE(s.tree.Save(s.file.c_str()), 0); }},
    {"load of UTF-16", 1, [](S& s) { return s.out.load(s.file.c_str(), 0); }, nullptr,
     [](S& s) {
       std::ofstream file(s.file);
       file.write("\xFF\xFE", 2);
       for (const char c : std::string_view("<a b='a text of some length'>another text of some length</a>"))
         file.put(c).put(0);
     }},
    {"GetXmlText in a page", 1,
     [](S& s) { return under_page(932, [&] { return s.tree.GetXmlText(&s.text); }); }},
    {"SetXmlText in a page", 1,
     [](S& s) {
       return under_page(932, [&] {
         return s.made.SetXmlText("<a b='\x83\x41 and more in Katakana'>\x83\x41 and more</a>");
       });
     }},
    {"Save in a page", 1, [](S& s) { return under_page(1252, [&] { return s.tree.Save(s.file.c_str()); }); },
     "<a b='a text of some length, \xC3\xA9'/>"},
    {"load in a page", 1,
     [](S& s) { return under_page(1252, [&] { return s.out.load(s.file.c_str(), 0); }); }, nullptr,
     [](S& s) { EXPECT_NE(s.tree.Save(s.file.c_str()), 0); }},
    {"HasTagName", 1, [](S& s) { return s.tree.HasTagName(RYPropertyName("Root")); }},
    {"SetDefaultCodePage", 1,
     [](S&) {
       const int known = RYXmlWrapperBase::SetDefaultCodePage(932);
       RYXmlWrapperBase::SetDefaultCodePage(65001);
       return known;
     }},
    {"IsTreeSound", 1, [](S& s) { return s.tree.IsTreeSound(&s.text); }},
};

TEST(OutOfMemory, DoesAllOrNothingInEveryNodeOperation) {
  const std::ptrdiff_t files = count_files();
  Figures figures;
  for (const ExportCall& row : kOperations) {
    const std::string_view name = row.name;
    const bool refuses =
        name.find("XmlText") != name.npos || name.starts_with("Save") || name.starts_with("load");
    fail_each(row, {true, refuses}, figures);
  }
  EXPECT_EQ(count_files(), files);
  report(figures);
}

}  // namespace
