#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace glyphwright::cli_test {

/// What a run of the built program came to.
struct Outcome {
  int status = -1;
  std::string out;
  std::string err;
};

/// Runs the glyphwright program with the arguments, from the folder of the tests' output.
Outcome run(const std::vector<std::string>& arguments);

/// An empty folder for the running test to write into, apart from those of all other tests, which
/// may be running beside it.
std::filesystem::path freshFolder(const std::string& name);

std::string readFile(const std::filesystem::path& file);

/// Pixels with straight alpha, four bytes each; no pixels when the file is no PNG.
struct Picture {
  std::size_t width = 0;
  std::size_t height = 0;
  std::vector<std::uint8_t> rgba;
};
Picture readPng(const std::string& bytes);

}  // namespace glyphwright::cli_test
