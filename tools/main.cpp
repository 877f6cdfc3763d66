#include <cstdio>
#include <iostream>

#include <sys/ioctl.h>
#include <unistd.h>

#include "program.h"

namespace {

/// 0 when standard output is no terminal.
std::size_t terminalColumns() {
  winsize window{};
  return ioctl(STDOUT_FILENO, TIOCGWINSZ, &window) == 0 ? window.ws_col : 0;
}

}  // namespace

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  glyphwright::cli::Console console{std::cout, std::cerr, isatty(STDOUT_FILENO) == 1,
                                    isatty(STDERR_FILENO) == 1, terminalColumns()};
  return glyphwright::cli::runProgram({argv + 1, argv + argc}, console);
}
