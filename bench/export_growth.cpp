#include "export_growth.h"

#include <benchmark/benchmark.h>
#include <rytree_Utils.h>
#include <rytree_Utils/arrange.h>

#include <algorithm>
#include <map>
#include <string>

#include "measure.h"

namespace {

// What the calls work on, fresh for each call.
struct Scene {
  RYXmlWrapperBase tree;   // the tree on which the libraries are compared
  RYXmlWrapperBase other;  // another such tree
  RYXmlWrapperBase rows;   // a root with leaves alone, shuffled by "Order"
  RYXmlWrapperBase empty;  // a root alone
  RYXmlWrapperBase found;  // no node
  CArray<int, int> ids;    // of all leaves of the tree, shuffled
  CStringArray values;     // beside them
  CArray<int, int> sorted_ids;
  CArray<int, int> ints;  // no elements
  CStringArray texts;     // no elements
  CString error;
  int last_id = 0;  // of the last node of the tree
  int number = 0;
};

struct Row {
  const char* name;
  void (*call)(Scene&);
};

// One row for each way through an export that might be slow.
constexpr Row kRows[] = {
    {"VCTreeGetValues", [](Scene& s) { VCTreeGetValues(&s.tree, &s.texts, false); }},
    {"rytree_get_node_by_id", [](Scene& s) { rytree_get_node_by_id(&s.tree, &s.found, -7, true); }},
    {"rytree_get_node_ex", [](Scene& s) { rytree_get_node_ex(&s.tree, &s.found, 1 << 30, 0, nullptr); }},
    {"rytree_find_node",
     [](Scene& s) { rytree_find_node(&s.tree, &s.found, "DataID", s.last_id, true, 0, 0); }},
    {"rytree_find_node_ex",
     [](Scene& s) { rytree_find_node_ex(&s.tree, &s.found, "DataID", s.last_id, -7, 0, 0, 0); }},
    {"rytree_get_node_by_tagname",
     [](Scene& s) { rytree_get_node_by_tagname(&s.tree, &s.found, "no", true, false, false); }},
    {"vctree_get_values_with_ids",
     [](Scene& s) { vctree_get_values_with_ids(&s.tree, &s.ints, &s.texts, 1, 0, 0, nullptr, 1, &s.error); }},
    {"vctree_set_values_by_ids",
     [](Scene& s) {
       vctree_set_values_by_ids(&s.tree, &s.ids, &s.values, 0, &s.number, 0, nullptr, nullptr);
     }},
    {"vctree_copy_values_by_id",
     [](Scene& s) { vctree_copy_values_by_id(&s.tree, &s.other, 0, nullptr, nullptr, 1, nullptr, 0, 0); }},
    {"rytree_whole_copy_values_by_id", [](Scene& s) { rytree_whole_copy_values_by_id(&s.tree, &s.empty); }},
    {"rytree_copy_atts_by_id",
     [](Scene& s) { rytree_copy_atts_by_id(&s.tree, &s.other, "Label", nullptr, nullptr, "Show", 0); }},
    {"rytree_remove_unchange_nodes_by_id",
     [](Scene& s) { rytree_remove_unchange_nodes_by_id(&s.tree, &s.other, nullptr, nullptr); }},
    {"VCTreeUpdateChanges", [](Scene& s) { VCTreeUpdateChanges(&s.tree, &s.values); }},
    {"VCTreeGetChanged", [](Scene& s) { VCTreeGetChanged(&s.values, &s.values, false); }},
    {"vctree_get_theme", [](Scene& s) { vctree_get_theme(&s.rows, &s.ints, &s.texts, &s.error); }},
    {"vctree_set_theme", [](Scene& s) { vctree_set_theme(&s.empty, &s.ids, &s.values, nullptr); }},
    {"vctree_GETN_reset_hidden_values",
     [](Scene& s) { vctree_GETN_reset_hidden_values(&s.tree, &s.sorted_ids, true); }},
    {"rytree_sort_children_by_int_attribute",
     [](Scene& s) { rytree_sort_children_by_int_attribute(&s.rows, "Order", 1); }},
};

Scene load_scene(int nodes) {
  const Input& in = input(nodes);
  Scene scene;
  scene.tree.load(in.tree_path.c_str(), 0);
  scene.rows.load(in.flat_path.c_str(), 0);
  for (const int id : in.ids) scene.ids.Add(id);
  for (const std::string& value : in.values) scene.values.Add(CString(std::string_view(value)));
  scene.sorted_ids = scene.ids;
  std::sort(scene.sorted_ids.begin(), scene.sorted_ids.end());
  scene.last_id = in.last_id;
  return scene;
}

Scene make_scene(int nodes) {
  static std::map<int, Scene> originals;
  auto found = originals.find(nodes);
  if (found == originals.end()) found = originals.emplace(nodes, load_scene(nodes)).first;
  const Scene& from = found->second;
  Scene scene = from;
  from.tree.Clone(scene.tree, 1);
  from.tree.Clone(scene.other, 1);
  from.rows.Clone(scene.rows, 1);
  scene.empty.CreateNew(0, nullptr);
  return scene;
}

void measure_row(benchmark::State& state, const Row& row) {
  const int nodes = static_cast<int>(state.range(0));
  while (state.KeepRunning()) {
    Scene scene = make_scene(nodes);
    const Stopwatch watch;
    row.call(scene);
    state.SetIterationTime(watch.seconds());
  }
}

}  // namespace

void register_export_growth(const std::vector<int>& sizes, int rounds) {
  for (const Row& row : kRows) {
    for (int round = 0; round < rounds; ++round) {
      for (const int nodes : sizes) {
        if (nodes > 100'000) continue;
        benchmark::RegisterBenchmark((std::string("export/") + row.name).c_str(), measure_row, row)
            ->Arg(nodes)
            ->Iterations(std::clamp(100'000 / nodes, 1, 30))
            ->UseManualTime();
      }
    }
  }
}
