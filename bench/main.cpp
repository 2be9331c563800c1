// Measures the library beside others. In each round of a job the libraries take turns, so that whatever slows
// the machine down for a while slows down all of them.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "agreement.h"
#include "export_growth.h"
#include "library.h"

namespace {

struct Options {
  std::vector<int> sizes = {1'000, 10'000, 100'000, 1'000'000};
  int rounds = 5;
  bool valid = true;
};

std::vector<int> numbers_of(std::string_view list) {
  std::vector<int> numbers;
  while (!list.empty()) {
    const std::size_t end = std::min(list.find(','), list.size());
    int number = 0;
    const auto [rest, error] = std::from_chars(list.data(), list.data() + end, number);
    if (error != std::errc() || rest != list.data() + end || number < 1) return {};
    numbers.push_back(number);
    list.remove_prefix(std::min(end + 1, list.size()));
  }
  return numbers;
}

// Reads the arguments that the benchmark framework does not know.
Options options_of(int count, char** arguments) {
  constexpr std::string_view kSizes = "--sizes=";
  constexpr std::string_view kRounds = "--rounds=";
  Options options;
  for (int i = 1; i < count; ++i) {
    const std::string_view argument = arguments[i];
    if (argument.starts_with(kSizes)) {
      options.sizes = numbers_of(argument.substr(kSizes.size()));
      options.valid = options.valid && !options.sizes.empty();
    } else if (const auto rounds = numbers_of(argument.substr(std::min(kRounds.size(), argument.size())));
               argument.starts_with(kRounds) && rounds.size() == 1) {
      options.rounds = rounds[0];
    } else {
      options.valid = false;
    }
  }
  return options;
}

// Small trees are measured in many passes a round, large ones in fewer rounds.
int passes(int nodes) { return std::clamp(200'000 / nodes, 1, 100); }
int rounds(const Options& options, int nodes) {
  return nodes > 500'000 ? (options.rounds + 1) / 2 : options.rounds;
}

const Job* job_of(const Library& library, const std::string& name) {
  const auto found = std::find_if(library.jobs.begin(), library.jobs.end(),
                                  [&](const Job& job) { return job.name == name; });
  return found == library.jobs.end() ? nullptr : &*found;
}

std::vector<Job> all_jobs() {
  std::vector<Job> jobs;
  for (const auto& [column, library] : libraries()) {
    for (const Job& job : library.jobs) {
      if (std::none_of(jobs.begin(), jobs.end(), [&](const Job& known) { return known.name == job.name; }))
        jobs.push_back(job);
    }
  }
  return jobs;
}

void register_passes(const Options& options, const std::string& name) {
  for (const int nodes : options.sizes) {
    for (int round = 0; round < rounds(options, nodes); ++round) {
      for (const auto& [column, library] : libraries()) {
        if (const Job* const job = job_of(library, name); job != nullptr && nodes <= job->most_nodes) {
          benchmark::RegisterBenchmark((name + '/' + library.name).c_str(), job->run)
              ->Arg(nodes)
              ->Iterations(passes(nodes))
              ->UseManualTime();
        }
      }
    }
  }
}

void register_calls(const Options& options, const std::string& name) {
  for (int round = 0; round < options.rounds; ++round) {
    for (const auto& [column, library] : libraries()) {
      if (const Job* const job = job_of(library, name)) {
        benchmark::RegisterBenchmark((name + '/' + library.name + "/call").c_str(), job->run)->MinTime(0.05);
      }
    }
  }
}

}  // namespace

int main(int count, char** arguments) {
  benchmark::Initialize(&count, arguments);
  const Options options = options_of(count, arguments);
  if (!options.valid) {
    std::fputs("usage: rytree_bench [--sizes=N,...] [--rounds=N] [--benchmark_...]\n", stderr);
    return 2;
  }
  benchmark::AddCustomContext("compiler", RYTREE_BENCH_COMPILER);
  for (const Job& job : all_jobs())
    job.per_call ? register_calls(options, job.name) : register_passes(options, job.name);
  register_export_growth(options.sizes, options.rounds);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return Agreement::broken() ? 1 : 0;
}
