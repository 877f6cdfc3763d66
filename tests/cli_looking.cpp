// Icons on a terminal, and beside each other.

#include <algorithm>
#include <filesystem>
#include <map>
#include <optional>
#include <string>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "cli_program.h"
#include "tools/glob.h"
#include "tools/terminal.h"
#include "tools/usage_error.h"

namespace glyphwright {
namespace {

using cli_test::Outcome;
using cli_test::run;

// A disc of 8 characters: each stands for two rows of pixels.
TEST(CliShow, DrawsInHalfBlocks) {
  EXPECT_EQ(run({"show", "circlePath", "--columns", "8"}).out,
            " ▄████▄\n████████\n████████\n ▀████▀\n");
  const std::string square = run({"show", "stopPath", "--columns", "2", "--as", "blocks", "--fill",
                                  "#ff0000", "--background", "#0000ff"})
                                 .out;
  EXPECT_NE(square.find("\x1b[38;2;"), std::string::npos) << square;
  EXPECT_EQ(std::ranges::count(square, '\n'), 1);
  const std::string picture = run({"show", "stopPath", "--as", "picture"}).out;
  EXPECT_TRUE(picture.starts_with("\x1b_Ga=T,f=100,m=0;iVBORw0KGgo")) << picture;
  EXPECT_TRUE(picture.ends_with("\x1b\\\n"));
}

TEST(CliShow, KnowsTerminalsByWhatTheySay) {
  constexpr auto indexed = cli::TerminalColors::indexed;
  constexpr auto full = cli::TerminalColors::full;
  constexpr auto graphicsCommand = cli::TerminalPictures::graphicsCommand;
  constexpr auto inlineFile = cli::TerminalPictures::inlineFile;
  struct Row {
    std::map<std::string, std::string> variables;
    cli::TerminalColors colors;
    cli::TerminalPictures pictures;
  };
  constexpr auto noPictures = cli::TerminalPictures::none;
  constexpr auto noColors = cli::TerminalColors::none;
  for (const Row& row : {
           Row{{}, noColors, noPictures},
           Row{{{"TERM", "vt100"}}, noColors, noPictures},
           Row{{{"TERM", "xterm-256color"}}, indexed, noPictures},
           Row{{{"TERM", "xterm"}, {"COLORTERM", "truecolor"}}, full, noPictures},
           Row{{{"TERM", "xterm"}, {"COLORTERM", "truecolor"}, {"NO_COLOR", "1"}},
               noColors,
               noPictures},
           Row{{{"TERM", "xterm-kitty"}, {"COLORTERM", "truecolor"}}, full, graphicsCommand},
           Row{{{"TERM", "xterm-256color"}, {"TERM_PROGRAM", "iTerm.app"}}, indexed, inlineFile},
           Row{{{"TERM", "tmux-256color"}, {"KITTY_WINDOW_ID", "1"}}, indexed, noPictures},
       }) {
    const cli::Terminal terminal = cli::terminalFrom([&](const char* name) {
      const auto found = row.variables.find(name);
      return found == row.variables.end() ? std::nullopt : std::optional(found->second);
    });
    EXPECT_EQ(terminal.colors, row.colors) << testing::PrintToString(row.variables);
    EXPECT_EQ(terminal.pictures, row.pictures) << testing::PrintToString(row.variables);
  }
}

TEST(CliDiff, FindsWhatIsDifferentAndNothingElse) {
  const auto folder = cli_test::freshFolder("diff");
  const std::string file = (folder / "stop.png").string();
  const std::string picture = (folder / "difference.png").string();
  ASSERT_EQ(run({"render", "heartPath", "-o", file, "--size", "20", "--fill", "#f008"}).status, 0);
  const Outcome same = run({"diff", "heartPath", file, "--fill", "#f008"});
  EXPECT_EQ(same.status, 0);
  EXPECT_EQ(same.out, "worst 0, mean 0, 0 of 400 pixels differ\n");
  // Alpha 136 against 138, in all that is covered: two levels, in red and in alpha.
  const auto figures = [&](const std::vector<std::string>& more) {
    std::vector<std::string> arguments = {"diff", file, "heartPath", "--fill", "#ff00008a"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return run(arguments);
  };
  const Outcome other = figures({"--json", "-o", picture});
  EXPECT_EQ(other.status, 1);
  const auto json = nlohmann::json::parse(other.out);
  EXPECT_EQ(json.at("worst"), 2);
  EXPECT_GT(json.at("differingPixels"), 200);
  EXPECT_LT(json.at("differingPixels"), 400);
  EXPECT_LT(json.at("mean"), 1);
  EXPECT_EQ(cli_test::readPng(cli_test::readFile(picture)).width, 60U);
  EXPECT_EQ(figures({"--tolerance", "2"}).status, 0);
  EXPECT_EQ(figures({"--size", "21"}).status, 1);
  EXPECT_EQ(run({"diff", "heartPath", (folder / "none.png").string()}).status, 1);
  EXPECT_EQ(run({"diff", "heartPath", "hartPath"}).status, 2);
}

TEST(CliGlob, MatchesWholeNames) {
  struct Row {
    const char* pattern;
    const char* name;
    bool matches;
  };
  for (const Row& row :
       {Row{"*heart*", "brokenHeartPath", true}, Row{"*heart", "heartPath", false},
        Row{"h?art*", "heartPath", true}, Row{"[g-i]eart*", "heartPath", true},
        Row{"[!h]eart*", "heartPath", false}, Row{"{play,stop}Path", "stopPath", true},
        Row{"{play,stop}Path", "playPaths", false}, Row{"*a*a*a*b", "aaaaaaaaaa", false},
        Row{"", "x", false}, Row{"*", "", true}}) {
    EXPECT_EQ(cli::Glob(row.pattern).matches(row.name), row.matches) << row.pattern;
  }
  std::string many;
  for (int i = 0; i < 40; ++i) many += "{a,b}";
  for (const std::string& wrong :
       {std::string("[a"), std::string("{a"), std::string("{a{b}}"), many}) {
    EXPECT_THROW(cli::Glob{wrong}, cli::UsageError) << wrong;
  }
}

}  // namespace
}  // namespace glyphwright
