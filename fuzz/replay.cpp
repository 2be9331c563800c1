// Runs the inputs of a file made by corpus.py once, without a fuzzer.
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int count, char** arguments) {
  std::ifstream file(count == 2 ? arguments[1] : "");
  int inputs = 0;
  for (std::string line; std::getline(file, line); ++inputs) {
    std::vector<std::uint8_t> bytes;
    for (std::size_t at = 0; at + 1 < line.size(); at += 2)
      bytes.push_back(static_cast<std::uint8_t>(std::stoi(line.substr(at, 2), nullptr, 16)));
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
  }
  std::printf("%d inputs\n", inputs);
  return inputs == 0 ? 1 : 0;
}
