#include "terminal.h"

namespace glyphwright::cli {

Terminal terminalFrom(const std::function<std::optional<std::string>(const char*)>& variable) {
  const auto text = [&](const char* name) { return variable(name).value_or(""); };
  const std::string term = text("TERM");
  if (!text("NO_COLOR").empty() || term.empty() || term == "dumb") return {};
  Terminal terminal;
  const std::string depth = text("COLORTERM");
  terminal.colors = depth == "truecolor" || depth == "24bit"     ? TerminalColors::full
                    : term.find("256color") != std::string::npos ? TerminalColors::indexed
                                                                 : TerminalColors::none;
  const std::string program = text("TERM_PROGRAM");
  // Inside a multiplexer the variables are those of the terminal outside, which is out of reach.
  if (term.starts_with("screen") || term.starts_with("tmux")) return terminal;
  if (term == "xterm-kitty" || term == "xterm-ghostty" || program == "ghostty" ||
      !text("KITTY_WINDOW_ID").empty()) {
    terminal.pictures = TerminalPictures::graphicsCommand;
  } else if (program == "iTerm.app" || program == "WezTerm") {
    terminal.pictures = TerminalPictures::inlineFile;
  }
  return terminal;
}

}  // namespace glyphwright::cli
