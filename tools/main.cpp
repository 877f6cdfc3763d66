#include <cstdio>
#include <iostream>

#include <unistd.h>

#include "program.h"

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  glyphwright::cli::Console console{std::cout, std::cerr, isatty(STDOUT_FILENO) == 1,
                                    isatty(STDERR_FILENO) == 1};
  return glyphwright::cli::runProgram({argv + 1, argv + argc}, console);
}
