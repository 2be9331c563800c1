// Every node operation and every export, in all ways that succeed, with each of their allocations failing in turn.
#include <algorithm>
#include <filesystem>
#include <new>
#include <set>

#include "failing_allocations.h"
#include "fuzz/calls/call.h"
#include "host/rytesavc/node_access.h"
#include "tree_text.h"

namespace {

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

using Work = std::function<int()>;

struct Outcome {
  int result = -1;
  bool threw = false;
  std::string why;    // the call failed, if it says so
  std::string after;  // what the scene is then
};

// Calls while that allocation, with `onwards` every later one too, fails; 0: none.
Outcome call(const calls::Scene& scene, const Work& work, long which, bool onwards) {
  Outcome found;
  try {
    const FailingAllocations failing(which, onwards);
    found.result = work();
  } catch (const std::bad_alloc&) {
    found.threw = true;
  }
  found.why = RYXmlWrapperBase::LastFailure().text;
  found.after = scene.show();
  return found;
}

// What a call may do when memory runs out.
struct Promise {
  bool whole;    // whatever happens, all or nothing is done
  bool refuses;  // it may give 0
};

Promise promise_of(const calls::Opcode& opcode, const calls::Way& way) {
  const std::set<std::string_view> whole = {"VCTreeSetTagName", "rytree_move_node",
                                            "rytree_sort_children_by_int_attribute",
                                            "vctree_reenum_subranges_in_range_tree"};
  const std::string_view name = opcode.name;
  const bool is_operation = &opcode >= &calls::opcodes()[calls::export_count()];
  const bool has_file = std::any_of(way.values.begin(), way.values.end(), [](std::string_view value) {
    return value.starts_with("file:") || value.starts_with("utf16:");
  });
  const bool saves = has_file && name.find("save") != name.npos;
  return {is_operation || saves || whole.count(name) != 0,
          has_file || name.ends_with("XmlText") || name == "VCTreeSetTagName"};
}

// What is wrong with a call that lacked that allocation.
std::string fault_of(const calls::Scene& scene, const Work& work, const Outcome& model,
                     const Promise& promise, long which, bool onwards, Figures& figures) {
  const std::string before = scene.show();
  const Outcome run = call(scene, work, which, onwards);
  const long failed = FailingAllocations::failed();
  ++figures.runs;
  figures.failed += failed;
  ++(run.threw ? figures.thrown : figures.returned);

  const bool done = !run.threw && run.result == model.result && run.after == model.after;
  const bool refused = !run.threw && promise.refuses && run.result == 0;
  std::string fault = scene.unsound();
  if (!fault.empty()) ++figures.unsound;
  if (refused && run.why.find("memory") == run.why.npos) fault += "gives the reason '" + run.why + "'; ";
  if (!run.threw && !done && !refused) fault += "returned " + std::to_string(run.result) + "; ";
  if (promise.whole && !done && run.after != before) fault += "half done; ";
  if (done || failed == 0) return fault;

  const Outcome again = call(scene, work, 0, false);
  fault += scene.unsound();
  if (again.threw || (again.result == 0 && model.result != 0)) fault += "does not work afterwards; ";
  if (promise.whole && (again.result != model.result || again.after != model.after))
    fault += "does not do it afterwards; ";
  return fault;
}

// Prepares the call on a scene of its own, and hands it to `make`. Gives whether it succeeded.
template <class Make>
bool with_scene(const calls::Opcode& opcode, const calls::Way& way, Room room, const Make& make) {
  calls::Scene scene;
  scene.around = [&](const Work& work) {
    for (const RYXmlWrapperBase& root : scene.roots()) prepare_room(root, room);
    return make(scene, work);
  };
  return calls::make_call(scene, opcode, way);
}

void fail_each(const calls::Opcode& opcode, const calls::Way& way, Figures& figures) {
  const Promise promise = promise_of(opcode, way);
  for (const Room room : {Room::kAsItIs, Room::kNone, Room::kNoName, Room::kLongTexts}) {
    Outcome model;
    EXPECT_TRUE(with_scene(opcode, way, room, [&](const calls::Scene& scene, const Work& work) {
      return (model = call(scene, work, 0, false)).result;
    }));
    for (const bool onwards : {false, true}) {
      for (long which = 1, failed = 1; failed != 0; ++which) {
        std::string fault;
        fault.reserve(100);  // is one block, whatever it holds
        const long blocks = FailingAllocations::blocks();
        const long failed_before = figures.failed;
        with_scene(opcode, way, room, [&](const calls::Scene& scene, const Work& work) {
          fault = fault_of(scene, work, model, promise, which, onwards, figures);
          return 0;
        });
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

// Files that a test leaves open, or on the disk.
std::ptrdiff_t count_files() {
  const auto count = [](const std::string& folder, const std::string& start) {
    const std::filesystem::directory_iterator files(folder);
    return std::count_if(begin(files), end(files), [&](const auto& file) {
      return file.path().filename().native().starts_with(start);
    });
  };
  const std::string name = "calls." + std::to_string(getpid());
  return count("/proc/self/fd", "") + count(calls::scratch_folder(), name) +
         count(calls::scratch_folder(), "." + name);
}

void fail_all(std::size_t first, std::size_t last) {
  const std::ptrdiff_t files = count_files();
  Figures figures;
  for (std::size_t i = first; i < last; ++i) {
    const calls::Opcode& opcode = calls::opcodes()[i];
    for (std::size_t way = 0; way < opcode.ways.size(); ++way) {
      SCOPED_TRACE(opcode.name + (", way " + std::to_string(way + 1)));
      fail_each(opcode, opcode.ways[way], figures);
    }
  }
  EXPECT_EQ(count_files(), files);
  std::printf(
      "%ld calls, %ld failed allocations: %ld returned, %ld threw; %ld blocks leaked, %ld trees unsound\n",
      figures.runs, figures.failed, figures.returned, figures.thrown, figures.leaked, figures.unsound);
}

TEST(OutOfMemory, LeavesTreesSoundAfterEveryExport) { fail_all(0, calls::export_count()); }

TEST(OutOfMemory, DoesAllOrNothingInEveryNodeOperation) {
  fail_all(calls::export_count(), calls::opcodes().size());
}

}  // namespace
