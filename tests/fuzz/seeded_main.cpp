// Stands in for the fuzzing engine where there is none: the inputs that were kept because they
// reach more, one a line in hexadecimal digits, and a fixed number of others from a fixed seed.

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "input.h"

int main(int argc, char** argv) {
  const long count = argc > 1 ? std::atol(argv[1]) : 1000;
  std::vector<std::uint8_t> bytes;
  std::ifstream kept(argc > 2 ? argv[2] : "");
  long keptCount = 0;
  for (std::string line; std::getline(kept, line); ++keptCount) {
    bytes.clear();
    for (std::size_t i = 0; i + 1 < line.size(); i += 2) {
      bytes.push_back(static_cast<std::uint8_t>(std::stoi(line.substr(i, 2), nullptr, 16)));
    }
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
  }
  std::mt19937_64 random(20240229);
  for (long i = 0; i < count; ++i) {
    bytes.resize(random() % 400);
    for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random() >> 56);
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
  }
  std::printf("%ld kept inputs and %ld others\n", keptCount, count);
  return 0;
}
