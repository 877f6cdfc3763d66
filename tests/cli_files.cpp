// Files are written whole or not at all, whatever happens.

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "cli_program.h"
#include "places.h"
#include "tools/output.h"
#include "tools/safe_file.h"

namespace glyphwright {
namespace {

namespace fs = std::filesystem;
using cli_test::Outcome;
using cli_test::readFile;
using cli_test::run;

std::size_t filesIn(const fs::path& folder) {
  return static_cast<std::size_t>(
      std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

/// Starts the program in a process of its own that `prepare` has worked on.
template <class Prepare>
pid_t start(std::vector<std::string> arguments, Prepare prepare) {
  std::string program = places::program();
  std::vector<char*> argv{program.data()};
  for (std::string& argument : arguments) argv.push_back(argument.data());
  argv.push_back(nullptr);
  const pid_t child = fork();
  if (child == 0) {
    prepare();
    execv(argv[0], argv.data());
    _exit(127);
  }
  return child;
}

TEST(CliFiles, KeepWhatWasThereWhenTheDiskIsFull) {
  const fs::path folder = cli_test::freshFolder("full");
  const std::string file = (folder / "sheet.png").string();
  std::ofstream(file) << "what was there";
  const pid_t child = start({"sheet", "-o", file}, [&] {
    const rlimit limit{1000, 1000};  // no file may be longer, as if the disk ended there
    setrlimit(RLIMIT_FSIZE, &limit);
    freopen((folder / "err").c_str(), "w", stderr);
  });
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 1) << status;
  EXPECT_NE(readFile(folder / "err").find("cannot write " + file), std::string::npos);
  EXPECT_EQ(readFile(file), "what was there");
  EXPECT_EQ(filesIn(folder), 2U);
}

TEST(CliFiles, LeaveNothingHalfWrittenWhenInterrupted) {
  const fs::path folder = cli_test::freshFolder("interrupted");
  for (const int number : {SIGINT, SIGTERM}) {
    const pid_t child = start({"render", "--all", "--size", "512", "--scale", "1,2,3", "-o",
                               (folder / "{name}@{scale}.png").string()},
                              [] {});
    while (filesIn(folder) < 4) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    kill(child, number);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == number) << status;
    for (const auto& entry : fs::directory_iterator(folder)) {
      EXPECT_GT(cli_test::readPng(readFile(entry.path())).width, 0U) << entry.path();
      fs::remove(entry.path());
    }
  }
}

TEST(CliFiles, GoWhereTheyAreSentTo) {
  const fs::path folder = cli_test::freshFolder("places");
  const auto bytes = std::vector<std::uint8_t>{1, 2, 3};
  const std::string real = (folder / "real").string();
  const std::string link = (folder / "link").string();
  const std::string longest = (folder / std::string(255, 'x')).string();
  std::ofstream(real) << "old and longer";
  chmod(real.c_str(), 0640);
  fs::create_symlink("real", link);
  for (const std::string& file : {link, longest}) cli::writeWholeFile(file, bytes, nullptr);
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(readFile(real), "\1\2\3");
  EXPECT_EQ(readFile(longest), "\1\2\3");
  struct stat status {};
  ASSERT_EQ(stat(real.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0640U);
  cli::writeWholeFile("/dev/null", bytes, nullptr);
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
  fs::create_symlink("/dev/full", folder / "full.png");
  for (const std::string& file : {(folder / "full.png").string(), folder.string(), longest + "x"}) {
    EXPECT_THROW(cli::writeWholeFile(file, bytes, nullptr), std::runtime_error) << file;
  }
  EXPECT_EQ(filesIn(folder), 4U);
}

TEST(CliFiles, MakeFoldersOnlyWhereTheyAreAskedTo) {
  const fs::path folder = cli_test::freshFolder("folders");
  const auto render = [&](const char* name, std::vector<std::string> options) {
    options.insert(options.begin(), {"render", "xPath", "-o", (folder / name / "x.png").string()});
    return run(options);
  };
  const Outcome missing = render("new", {});
  EXPECT_EQ(missing.status, 1);
  EXPECT_NE(missing.err.find("no folder " + (folder / "new").string()), missing.err.npos);
  EXPECT_FALSE(fs::exists(folder / "new"));
  EXPECT_EQ(render("new", {"--parents"}).err, "");
  EXPECT_EQ(render("new", {}).status, 0);
}

TEST(CliFiles, AClosedPipeIsAFailureAndNoCrash) {
  const pid_t child = start({"list"}, [] {
    int ends[2];
    if (pipe(ends) != 0) _exit(126);
    close(ends[0]);
    dup2(ends[1], STDOUT_FILENO);
  });
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 1) << status;
}

TEST(CliProgress, SaysHowMuchLongerItTakes) {
  EXPECT_EQ(cli::estimateText(10, 5, 20), "about 30 s");
  EXPECT_EQ(cli::estimateText(100, 1, 11), "about 17 min");
  EXPECT_EQ(cli::estimateText(1e9, 1, 10), "long");
}

}  // namespace
}  // namespace glyphwright
