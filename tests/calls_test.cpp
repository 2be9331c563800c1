#include "fuzz/calls/call.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <numeric>
#include <random>

namespace {

TEST(Calls, EveryWayToSucceedDoes) {
  for (const calls::Opcode& opcode : calls::opcodes()) {
    for (std::size_t way = 0; way < opcode.ways.size(); ++way) {
      calls::Scene scene;
      EXPECT_TRUE(calls::make_call(scene, opcode, opcode.ways[way])) << opcode.name << ", way " << way + 1;
      scene.check();
    }
  }
}

// With CALLS_SHOW_RATES set, tells how often each call succeeded; with RYTREE_FULL_TESTS, runs 100 times as many.
TEST(Calls, OfRandomProgramsLeaveTreesSound) {
  std::vector<int> made(calls::opcodes().size()), succeeded(made.size());
  std::mt19937 random(1);
  std::string bytes(1500, '\0');
  const int programs = std::getenv("RYTREE_FULL_TESTS") != nullptr ? 15000 : 150;
  for (int program = 0; program < programs; ++program) {
    for (char& byte : bytes) byte = static_cast<char>(random());
    calls::run_program(bytes, &made, &succeeded);
  }
  double least = 1;
  for (std::size_t i = 0; i < made.size(); ++i) {
    least = std::min(least, static_cast<double>(succeeded[i]) / made[i]);
    const char* const name = calls::opcodes()[i].name;
    EXPECT_GE(10LL * succeeded[i], made[i]) << name;
    if (std::getenv("CALLS_SHOW_RATES") != nullptr)
      std::printf("%7d calls, %3.0f %% succeeded: %s\n", made[i], 100.0 * succeeded[i] / made[i], name);
  }
  std::printf(
      "%lld calls of %zu exports and %zu node operations, each at least %d times and with success in %.1f %% "
      "or more\n",
      std::accumulate(made.begin(), made.end(), 0LL), calls::export_count(),
      made.size() - calls::export_count(), *std::min_element(made.begin(), made.end()), 100 * least);
}

}  // namespace
