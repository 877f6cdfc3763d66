#include <cstdlib>
#include <iostream>
#include <string_view>

#include <sys/ioctl.h>
#include <unistd.h>

#include "interruption.h"
#include "pending_files.h"
#include "program.h"

namespace {

/// 0 when standard output is no terminal.
std::size_t terminalColumns() {
  winsize window{};
  return ioctl(STDOUT_FILENO, TIOCGWINSZ, &window) == 0 ? window.ws_col : 0;
}

/// Whether progress can be written over itself.
bool errIsTerminal() {
  const char* const terminal = std::getenv("TERM");
  return isatty(STDERR_FILENO) == 1 && terminal && std::string_view(terminal) != "dumb";
}

}  // namespace

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  glyphwright::cli::PendingFiles pending;
  const glyphwright::cli::Interruption interruption(pending);
  glyphwright::cli::Console console{.out = std::cout,
                                    .err = std::cerr,
                                    .outIsTerminal = isatty(STDOUT_FILENO) == 1,
                                    .errIsTerminal = errIsTerminal(),
                                    .columns = terminalColumns(),
                                    .in = &std::cin,
                                    .pending = &pending};
  return glyphwright::cli::runProgram({argv + 1, argv + argc}, console);
}
