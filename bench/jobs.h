// The jobs in which the libraries are compared.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "allocations.h"
#include "library.h"
#include "measure.h"

/// The jobs over `Peer`, an adapter that has the operations of DomLoops and those of the `Dom` below it.
template <class Peer>
class Jobs {
  using Tree = typename Peer::Tree;
  using Node = typename Peer::Node;

 public:
  /// A library of that name with the wanted jobs, or with all of them if none is named.
  static Library library(const std::string& name, const std::vector<std::string_view>& wanted = {}) {
    Library made{name, {}};
    const auto add = [&](const char* job, auto run) {
      if (!wanted.empty() && std::find(wanted.begin(), wanted.end(), job) == wanted.end()) return;
      made.jobs.push_back(
          {job, false, [name, job, run](benchmark::State& state) { run(Run(state, name, job)); }});
    };
    const auto add_call = [&](const char* job, auto run) {
      if (wanted.empty()) made.jobs.push_back({job, true, run});
    };
    add("main job", main_job);
    add("load", load);
    add("save", save);
    add("walk", walk);
    add("harvest", harvest);
    add("apply", apply);
    add("clone", clone);
    add("find", find);
    add("set existing", set_existing);
    add("set new", set_new);
    add("remove", remove);
    add("sort", sort);
    add("destroy", destroy);
    const auto add_form = [&](const char* job, FileForm form) {
      add(job, [form](Run run) { load_form(run, form); });
      if (wanted.empty()) made.jobs.back().most_nodes = 100'000;
    };
    add_form("load CR LF", FileForm::kCrLf);
    add_form("load Cyrillic", FileForm::kCyrillic);
    add_form("load references", FileForm::kReferences);
    add_form("load long names", FileForm::kLongNames);
    add_form("load own tags", FileForm::kOwnTags);
    add_call("load settings", [name](benchmark::State& state) { call_load(state, name); });
    add_call("element text", call_element);
    add_call("lookup", call_lookup);
    add_call("attribute read", call_attribute);
    add_call("value read", call_read);
    add_call("value write", call_write);
    add_call("scratch tree", call_scratch);
    return made;
  }

 private:
  // ---- All nodes.

  // From the start of a program to its end: its trees are destroyed too.
  static void main_job(Run run) {
    const std::string path = scratch_path();
    const auto transfer = [&](int) {
      const Tree source = open(run);
      Tree target = Peer::load(run.in().other_path.c_str());
      const std::size_t copied = Peer::copy(source, target);
      return Peer::save(target, path.c_str()) ? copied : 0;
    };
    run.measure([] { return 0; }, transfer,
                [&](int, std::size_t copied) { return digest(Peer::load(path.c_str())) + copied; });
  }

  static void load(Run run) {
    if (run.first_round()) {
      const int nodes = run.in().nodes;  // makes the input, which must not count as memory of the tree
      const AllocationCount held;
      const Tree tree = open(run);
      run.count("bytes_per_node", static_cast<double>(held.bytes()) / nodes);
    }
    run.measure([] { return 0; }, [&](int) { return open(run); },
                [](int, const Tree& tree) { return digest(tree); });
  }

  static void load_form(Run& run, FileForm form) {
    const std::string& path = form_path(run.in().nodes, form);
    run.measure([] { return 0; }, [&](int) { return Peer::load(path.c_str()); },
                [](int, const Tree& tree) { return digest(tree); });
  }

  static void save(Run run) {
    const Tree tree = open(run);
    const std::string path = scratch_path();
    run.measure([] { return 0; }, [&](int) { return Peer::save(tree, path.c_str()); },
                [&](int, bool saved) { return saved ? digest(Peer::load(path.c_str())) : 0; });
  }

  static void walk(Run run) {
    const Tree tree = open(run);
    run.measure([] { return 0; }, [&](int) { return Peer::walk(tree); },
                [](int, std::size_t nodes) { return nodes; });
  }

  static void harvest(Run run) {
    using Arrays = std::pair<typename Peer::Ids, typename Peer::Values>;
    Tree tree = open(run);
    run.measure([] { return Arrays(); },
                [&](Arrays& arrays) {
                  Peer::harvest(tree, arrays.first, arrays.second);
                  return 0;
                },
                [](const Arrays& arrays, int) {
                  Digest sum;
                  for (const int id : arrays.first) sum.add(id);
                  for (const auto& value : arrays.second) sum.add(std::string_view(value));
                  return sum.value();
                });
  }

  static void apply(Run run) {
    auto&& ids = Peer::make_ids(run.in().ids);
    auto&& values = Peer::make_values(run.in().values);
    run.measure([&] { return open(run); }, [&](Tree& tree) { return Peer::apply(tree, ids, values); },
                [](const Tree& tree, std::size_t applied) { return digest(tree) + applied; });
  }

  static void clone(Run run) {
    const Tree tree = open(run);
    run.measure([] { return 0; }, [&](int) { return Peer::clone(tree); },
                [](int, const Tree& copy) { return digest(copy); });
  }

  // The last node: all others are visited before it.
  static void find(Run run) {
    Tree tree = open(run);
    run.measure([] { return 0; }, [&](int) { return Peer::find(tree, run.in().last_id); },
                [](int, bool found) { return found; });
  }

  static void set_existing(Run run) { number_all(run, "DataID"); }
  static void set_new(Run run) { number_all(run, "Mark"); }
  static void number_all(Run& run, const char* name) {
    run.measure([&] { return open(run); }, [&](Tree& tree) { return Peer::number_all(tree, name); },
                [](const Tree& tree, int) { return digest(tree); });
  }

  static void remove(Run run) {
    run.measure([&] { return open(run); }, [](Tree& tree) { return Peer::remove_every_second_leaf(tree); },
                [](const Tree& tree, std::size_t removed) { return digest(tree) + removed; });
  }

  static void sort(Run run) {
    run.measure([&] { return Peer::load(run.in().flat_path.c_str()); },
                [](Tree& tree) {
                  Peer::sort_children(tree);
                  return 0;
                },
                [](const Tree& tree, int) { return digest(tree); });
  }

  static void destroy(Run run) {
    run.measure([&] { return open(run); },
                [](Tree& tree) {
                  tree = Tree();
                  return 0;
                },
                [](const Tree&, int) { return 0; });
  }

  // ---- One call.

  template <class Call>
  static void repeat(benchmark::State& state, Call call) {
    call();
    constexpr int kCounted = 64;
    {
      const AllocationCount made;
      for (int i = 0; i < kCounted; ++i) call();
      state.counters["allocations"] = static_cast<double>(made.calls()) / kCounted;
    }
    for (auto _ : state) call();
  }

  static void call_load(benchmark::State& state, const std::string& library) {
    const char* const path = RYTREE_BENCH_SETTINGS;
    if (Agreement::wants(library, "load settings", 0))
      Agreement::compare(state, "load settings", 0, digest(Peer::load(path)));
    repeat(state, [path] { benchmark::DoNotOptimize(Peer::load(path)); });
  }

  static void call_element(benchmark::State& state) {
    const std::string xml = R"(<Color DataID="7">12.75</Color>)";
    Tree tree = Peer::make("Root");
    repeat(state, [&] { Peer::set_xml(tree, xml); });
  }

  /// Measures `call` on the middle child of the middle child of the middle child of the root of a small tree.
  template <class Call>
  static void measure_call(benchmark::State& state, Call call) {
    Tree tree = Peer::load(input(5000).tree_path.c_str());
    std::string tags[3];
    Node node = Peer::root(tree);
    for (std::string& tag : tags) {
      node = middle_child(node);
      tag = Peer::tag(node);
    }
    repeat(state, [&] { call(tree, node, tags); });
  }

  static void call_lookup(benchmark::State& state) {
    measure_call(state, [](Tree& tree, Node&, const std::string(&tags)[3]) {
      benchmark::DoNotOptimize(Peer::check_get(tree, tags));
    });
  }

  static void call_attribute(benchmark::State& state) {
    measure_call(state, [](Tree&, Node& node, const auto&) {
      benchmark::DoNotOptimize(Peer::int_attribute(node, "DataID", -1));
    });
  }

  static void call_read(benchmark::State& state) {
    measure_call(state, [](Tree&, Node& node, const auto&) { benchmark::DoNotOptimize(Peer::text(node)); });
  }

  static void call_write(benchmark::State& state) {
    const std::string values[2] = {"12.75", "-300"};
    measure_call(state, [&, turn = 0U](Tree& tree, Node& node, const auto&) mutable {
      Peer::set_text(tree, node, values[++turn % 2]);
    });
  }

  static void call_scratch(benchmark::State& state) {
    measure_call(state, [](Tree&, Node&, const auto&) {
      Tree scratch = Peer::make("Root");
      Node child = Peer::add(scratch, Peer::root(scratch), "Color");
      Peer::set_text(scratch, child, "12.75");
      Peer::set_int(scratch, child, "DataID", 7);
      benchmark::DoNotOptimize(scratch);
    });
  }

  // ---- Helpers.

  static Tree open(const Run& run) { return Peer::load(run.in().tree_path.c_str()); }

  static Node middle_child(const Node& parent) {
    int children = 0;
    for (Node child = Peer::first(parent); child; child = Peer::next(child)) ++children;
    Node at = Peer::first(parent);
    for (int i = 0; i < children / 2; ++i) at = Peer::next(at);
    return at;
  }

  static std::uint64_t digest(const Tree& tree) {
    Digest sum;
    add(sum, Peer::root(tree));
    return sum.value();
  }

  // Everything that any job reads or writes.
  static void add(Digest& sum, const Node& node) {
    sum.add(Peer::tag(node));
    for (const char* const name : {"DataID", "Label", "Show", "Mark", "Order"})
      sum.add(Peer::attribute(node, name));
    if (!Peer::first(node)) sum.add(Peer::text(node));
    for (Node child = Peer::first(node); child; child = Peer::next(child)) add(sum, child);
    sum.add("end");
  }
};
