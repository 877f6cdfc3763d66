#include "cli_program.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <system_error>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <png.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "places.h"

extern char** environ;

namespace glyphwright::cli_test {
namespace {

namespace fs = std::filesystem;

fs::path outputFolder() {
  return places::inOutput("cli");
}

/// Tests may run side by side.
fs::path ownFile(const char* ending) {
  return outputFolder() / (std::to_string(getpid()) + ending);
}

}  // namespace

Outcome run(const std::vector<std::string>& arguments) {
  fs::create_directories(outputFolder());
  const fs::path out = ownFile(".out");
  const fs::path err = ownFile(".err");
  std::vector<char*> argv;
  std::string program = places::program();
  std::vector<std::string> copies = arguments;
  argv.push_back(program.data());
  for (std::string& argument : copies) argv.push_back(argument.data());
  argv.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  constexpr int flags = O_WRONLY | O_CREAT | O_TRUNC;
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, out.c_str(), flags, 0600);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, err.c_str(), flags, 0600);
  pid_t child = 0;
  Outcome result;
  if (posix_spawn(&child, argv[0], &actions, nullptr, argv.data(), environ) == 0) {
    int status = 0;
    waitpid(child, &status, 0);
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    result.out = readFile(out);
    result.err = readFile(err);
  }
  posix_spawn_file_actions_destroy(&actions);
  std::error_code ignored;
  fs::remove(out, ignored);
  fs::remove(err, ignored);
  return result;
}

fs::path freshFolder(const std::string& name) {
  const auto* test = testing::UnitTest::GetInstance()->current_test_info();
  const std::string owner = std::string(test->test_suite_name()) + '.' + test->name();
  const fs::path folder = outputFolder() / owner / name;
  fs::remove_all(folder);
  fs::create_directories(folder);
  return folder;
}

std::string readFile(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

Picture readPng(const std::string& bytes) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  if (png_image_begin_read_from_memory(&image, bytes.data(), bytes.size()) == 0) return {};
  image.format = PNG_FORMAT_RGBA;
  Picture picture{image.width, image.height, std::vector<std::uint8_t>(PNG_IMAGE_SIZE(image))};
  if (png_image_finish_read(&image, nullptr, picture.rgba.data(), 0, nullptr) == 0) return {};
  return picture;
}

}  // namespace glyphwright::cli_test
