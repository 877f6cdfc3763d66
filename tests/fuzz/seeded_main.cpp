// Stands in for the fuzzing engine where there is none: a fixed number of inputs from a fixed seed,
// so that every run of the tests exercises the fuzzers as well.

#include <cstdio>
#include <cstdlib>
#include <random>
#include <vector>

#include "input.h"

int main(int argc, char** argv) {
  const long count = argc > 1 ? std::atol(argv[1]) : 1000;
  std::mt19937_64 random(20240229);
  std::vector<std::uint8_t> bytes;
  for (long i = 0; i < count; ++i) {
    bytes.resize(random() % 400);
    for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random() >> 56);
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
  }
  std::printf("%ld inputs\n", count);
  return 0;
}
