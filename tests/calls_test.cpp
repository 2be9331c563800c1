#include "fuzz/calls/call.h"

#include <gtest/gtest.h>

#include <cstdlib>
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

// With CALLS_SHOW_RATES set, tells how often each call succeeded.
TEST(Calls, OfRandomProgramsLeaveTreesSound) {
  std::vector<int> made(calls::opcodes().size()), succeeded(made.size());
  std::mt19937 random(1);
  std::string bytes(1500, '\0');
  for (int program = 0; program < 150; ++program) {
    for (char& byte : bytes) byte = static_cast<char>(random());
    calls::run_program(bytes, &made, &succeeded);
  }
  for (std::size_t i = 0; i < made.size(); ++i) {
    const char* const name = calls::opcodes()[i].name;
    EXPECT_GE(10 * succeeded[i], made[i]) << name;
    if (std::getenv("CALLS_SHOW_RATES") != nullptr)
      std::printf("%7d calls, %3d %% succeeded: %s\n", made[i], 100 * succeeded[i] / made[i], name);
  }
}

}  // namespace
