#include "export_growth.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <span>
#include <string>

#include "growth_rows.h"
#include "measure.h"

namespace {

void measure_row(benchmark::State& state, const GrowthRow& row) {
  const SceneInput& from = scene_input(static_cast<int>(state.range(0)));
  while (state.KeepRunning()) {
    Scene scene(from);
    if (row.prepare != nullptr) row.prepare(scene);
    const Stopwatch watch;
    row.call(scene);
    state.SetIterationTime(watch.seconds());
  }
}

void register_row(const GrowthRow& row, int nodes) {
  benchmark::RegisterBenchmark((std::string("export/") + row.name).c_str(), measure_row, row)
      ->Arg(nodes)
      ->Iterations(std::clamp(100'000 / nodes, 1, 30))
      ->UseManualTime();
}

void register_rows(std::span<const GrowthRow> rows, const std::vector<int>& sizes, int rounds) {
  for (const GrowthRow& row : rows) {
    for (int round = 0; round < rounds; ++round) {
      for (const int nodes : sizes) {
        if (nodes <= 100'000) register_row(row, nodes);
      }
    }
  }
}

}  // namespace

void register_export_growth(const std::vector<int>& sizes, int rounds) {
  register_rows(reading_rows(), sizes, rounds);
  register_rows(writing_rows(), sizes, rounds);
  register_rows(hard_input_rows(), sizes, rounds);
}
