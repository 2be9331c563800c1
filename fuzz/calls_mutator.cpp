// The fuzzer keeps its inputs short, and a short program ends before much has come together: every other input is made
// longer by random calls.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <random>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t most);

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t most,
                                               unsigned seed) {
  constexpr std::size_t kMostBytes = 400;  // some thirty calls
  std::minstd_rand random(seed);
  if (random() % 2 == 0) return LLVMFuzzerMutate(data, size, most);
  const std::size_t end = std::min(most, size + 1 + random() % kMostBytes);
  std::generate(data + size, data + end, [&random] { return static_cast<std::uint8_t>(random() >> 8U); });
  return end;
}
