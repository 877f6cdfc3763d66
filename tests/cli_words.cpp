// Help, the manual page and the shells' completions say the same.

#include <cctype>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "cli_program.h"

namespace glyphwright {
namespace {

using cli_test::run;

const std::vector<std::string> kCommands = {"list",  "search",      "path",    "inspect", "render",
                                            "sheet", "animate",     "gallery", "preset",  "show",
                                            "diff",  "completions", "manual",  "help"};

/// With one space where there is any.
std::string inOneLine(const std::string& text) {
  std::string line;
  for (const char c : text) {
    const bool space = std::isspace(static_cast<unsigned char>(c)) != 0;
    if (!space) line += c;
    if (space && !line.empty() && line.back() != ' ') line += ' ';
  }
  return line;
}

/// The manual page as it reads, without its macros.
std::string pageText() {
  std::string text;
  const std::string page = run({"manual"}).out;
  for (std::size_t at = 0; at < page.size();) {
    const std::size_t end = std::min(page.find('\n', at), page.size());
    if (page[at] != '.') text += page.substr(at, end - at) + '\n';
    at = end + 1;
  }
  for (const auto& [code, meaning] : std::vector<std::pair<std::string, std::string>>{
           {"\\fB", ""}, {"\\fI", ""}, {"\\fR", ""}, {"\\&", ""}, {"\\-", "-"}, {"\\(aq", "'"}}) {
    for (std::size_t at = text.find(code); at != std::string::npos; at = text.find(code, at)) {
      text.replace(at, code.size(), meaning);
    }
  }
  return inOneLine(text);
}

TEST(CliHelp, IsWhatTheManualSays) {
  const std::string page = pageText();
  for (const std::string& command : kCommands) {
    const cli_test::Outcome help = run({"help", command});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.err, "");
    EXPECT_EQ(run({command, "--help"}).out, help.out);
    EXPECT_NE(help.out.find("Usage: glyphwright " + command), std::string::npos);
    // Each entry begins two spaces in, its further lines stand further in.
    std::string text = help.out;
    for (std::size_t at = text.find("\n  "); at != std::string::npos;) {
      std::size_t end = text.find('\n', at + 1);
      while (end + 3 < text.size() && text.compare(end + 1, 3, "   ") == 0) {
        end = text.find('\n', end + 1);
      }
      const std::string entry = inOneLine(text.substr(at + 3, end - at - 3) + ' ');
      EXPECT_NE(page.find(entry), std::string::npos) << command << " has " << entry;
      at = text.find("\n  ", end);
    }
  }
}

/// What the shell prints for the commands, after the completions have been read from `$1`.
std::string inShell(const std::string& shell, const std::string& commands) {
  const auto folder = cli_test::freshFolder(shell);
  std::ofstream(folder / "words") << run({"completions", shell}).out;
  std::ofstream(folder / "commands") << commands;
  const std::string words = (folder / "words").string();
  const std::string out = (folder / "out").string();
  const std::string line =
      shell + " -c '. " + words + "; . " + (folder / "commands").string() + "' > " + out + " 2>&1";
  EXPECT_EQ(std::system(line.c_str()), 0) << cli_test::readFile(out);
  return cli_test::readFile(out);
}

bool isInstalled(const std::string& shell) {
  return std::system((shell + " -c true > /dev/null 2>&1").c_str()) == 0;
}

TEST(CliCompletions, CompleteWhatTheProgramKnows) {
  EXPECT_EQ(inShell("bash",
                    "try() { COMP_WORDS=(\"$@\"); COMP_CWORD=$(($#-1)); _glyphwright;\n"
                    "  echo \"${COMPREPLY[*]}\"; }\n"
                    "try glyphwright rend\ntry glyphwright render --fil\n"
                    "try glyphwright path heartP\ntry glyphwright animate x --kind s\n"
                    "try glyphwright preset PresetIcons.createL\n"),
            "render\n--fill\nheartPath\nsweep stroke\nPresetIcons.createLoopPlayIcon\n");
  if (isInstalled("fish")) {
    EXPECT_EQ(inShell("fish",
                      "complete -C \"glyphwright rend\"\n"
                      "complete -C \"glyphwright path Icons.checkmar\"\n"),
              "render\tRender icons to image files\nIcons.checkmark\n");
  }
  if (isInstalled("zsh")) {
    EXPECT_EQ(inShell("zsh",
                      "_describe() { print $1 $#commands }\n_arguments() { print -l -- $@ | grep "
                      "-c kind }\nCURRENT=2; words=(glyphwright x); _glyphwright\n"
                      "CURRENT=3; words=(glyphwright animate x); _glyphwright\n"),
              "command " + std::to_string(kCommands.size()) + "\n1\n");
  }
}

}  // namespace
}  // namespace glyphwright
