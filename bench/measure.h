// One measured run of one job.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <ctime>
#include <string>
#include <string_view>
#include <utility>

#include "agreement.h"
#include "inputs.h"

/// Processor time since it was made, so that what other programs do does not count.
class Stopwatch {
 public:
  double seconds() const { return now() - start_; }

 private:
  static double now() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
  }

  double start_ = now();
};

class Run {
 public:
  Run(benchmark::State& state, std::string_view library, std::string_view job)
      : state_(state),
        job_(job),
        nodes_(static_cast<int>(state.range(0))),
        first_round_(Agreement::wants(library, job, nodes_)) {}

  const Input& in() const { return input(nodes_); }
  bool first_round() const { return first_round_; }
  void count(const char* name, double value) { state_.counters[name] = value; }

  /// Measures `work` on what `prepare` makes, anew each time. In the first round `result` turns that and what
  /// `work` gave into the number on which all libraries must agree.
  template <class Prepare, class Work, class Result>
  void measure(const Prepare& prepare, const Work& work, const Result& result) {
    while (state_.KeepRunning()) {
      auto scene = prepare();
      const Stopwatch watch;
      auto made = work(scene);
      state_.SetIterationTime(watch.seconds());
      if (std::exchange(first_round_, false)) {
        Agreement::compare(state_, job_, nodes_, static_cast<std::uint64_t>(result(scene, made)));
      }
    }
  }

 private:
  benchmark::State& state_;
  std::string job_;
  int nodes_;
  bool first_round_;
};
