// Any arguments: they are understood or refused, never anything else.

#include <vector>

#include "input.h"
#include "tools/command_line.h"
#include "tools/usage_error.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const char* const kWords[] = {
      "list",          "path",    "render",      "sheet",        "gallery",    "inspect",
      "preset",        "--json",  "--svg",       "-o",           "-",          "--size",
      "40x30",         "--scale", "--fill",      "--background", "--all",      "--drop-shadow",
      "red:1,2:3",     "#ff0",    "--stroke",    "black:",       "--gradient", "red,",
      "checkmarkPath", "Icons.",  "7",           "--border",     "show",       "diff",
      "search",        "help",    "completions", "manual",       "--jobs",     "--as",
      "*{a,b}[",       "16,24x8", "--attributes"};
  glyphwright::fuzz::Input input(data, size);
  std::vector<std::string> arguments;
  while (!input.isEmpty() && arguments.size() < 16) {
    arguments.push_back(input.coin() ? kWords[input.below(std::size(kWords))] : input.text(20));
  }
  try {
    glyphwright::cli::parseCommandLine(std::move(arguments));
  } catch (const glyphwright::cli::UsageError&) {
  }
  return 0;
}
