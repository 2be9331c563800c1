// All libraries must come to the same result.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <string_view>

/// Compares what the libraries made of one job. Each gives its result once, in the first round.
class Agreement {
 public:
  /// Whether that library has not given its result of that job yet. True once only.
  static bool wants(std::string_view library, std::string_view job, int nodes);
  /// The first result is the one to agree with; a different one fails the benchmark and the program.
  static void compare(benchmark::State& state, std::string_view job, int nodes, std::uint64_t result);
  /// Whether any result differed.
  static bool broken();
};

/// A running hash over texts and numbers.
class Digest {
 public:
  void add(std::string_view text) {
    for (const char c : text) add_byte(static_cast<unsigned char>(c));
    add_byte(0xFF);  // in no UTF-8 text
  }
  void add(std::int64_t number) { add(std::to_string(number)); }
  std::uint64_t value() const { return value_; }

 private:
  void add_byte(unsigned char byte) { value_ = (value_ ^ byte) * 1099511628211U; }

  std::uint64_t value_ = 14695981039346656037U;
};
