#include "output.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "numbers.h"
#include "safe_file.h"
#include "usage_error.h"

namespace glyphwright::cli {

namespace fs = std::filesystem;

OutputFormat formatOf(std::string_view file) {
  if (file == "-" || file.ends_with(".png")) return OutputFormat::png;
  if (file.ends_with(".svg")) return OutputFormat::svg;
  if (file.ends_with(".rgba")) return OutputFormat::rgba;
  // A pipe or a device has the name that it has; it takes what standard output takes.
  std::error_code error;
  if (fs::is_other(fs::path(file), error)) return OutputFormat::png;
  throw UsageError("\"" + std::string(file) + "\" does not end in .png, .svg or .rgba");
}

std::string expandPattern(std::string_view pattern, const PatternWords& words) {
  const std::pair<std::string_view, std::string> known[] = {{"{name}", std::string(words.name)},
                                                            {"{scale}", textOf(words.scale)},
                                                            {"{size}", std::string(words.size)}};
  std::string file;
  while (!pattern.empty()) {
    const auto found = std::ranges::find_if(known, [&](const auto& word) {
      return !word.second.empty() && pattern.starts_with(word.first);
    });
    if (found != std::end(known)) {
      file += found->second;
      pattern.remove_prefix(found->first.size());
    } else if (pattern.front() == '{' || pattern.front() == '}') {
      throw UsageError("\"" + std::string(pattern) + "\": an output pattern knows only {name}, " +
                       (words.size.empty() ? "" : "{size} ") + "and {scale}");
    } else {
      file += pattern.front();
      pattern.remove_prefix(1);
    }
  }
  return file;
}

void writeOutput(const std::string& file, std::span<const std::uint8_t> bytes, Console& console) {
  const auto* const data = reinterpret_cast<const char*>(bytes.data());
  const auto size = static_cast<std::streamsize>(bytes.size());
  if (file == "-") {
    console.out.write(data, size).flush();
    if (!console.out) throw std::runtime_error("cannot write to standard output");
    return;
  }
  const fs::path folder = fs::path(file).parent_path();
  std::error_code error;
  if (!folder.empty()) fs::create_directories(folder, error);
  if (error) throw std::runtime_error("cannot make " + folder.string() + ": " + error.message());
  writeWholeFile(file, bytes, console.pending);
}

void writeOutput(const std::string& file, std::string_view text, Console& console) {
  writeOutput(file, std::span(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()),
              console);
}

void makeFolders(std::span<const std::string> files, bool asked) {
  for (const std::string& file : files) {
    const fs::path folder = fs::path(file).parent_path();
    std::error_code error;
    if (file == "-" || folder.empty() || fs::exists(folder, error)) continue;
    if (!asked) {
      throw std::runtime_error("cannot write " + file + ": there is no folder " + folder.string() +
                               "; --parents makes it");
    }
    fs::create_directories(folder, error);
    if (error) throw std::runtime_error("cannot make " + folder.string() + ": " + error.message());
  }
}

std::string estimateText(double secondsGone, std::size_t done, std::size_t steps) {
  const double rest = secondsGone / static_cast<double>(done) * static_cast<double>(steps - done);
  constexpr double longest = 1e6;
  if (!(rest < longest)) return "long";
  const auto seconds = static_cast<long>(std::ceil(rest));
  if (seconds < 100) return "about " + std::to_string(seconds) + " s";
  return "about " + std::to_string((seconds + 59) / 60) + " min";
}

Progress::Progress(Console& console, std::string_view doing, std::size_t steps)
    : console_(console),
      doing_(doing),
      steps_(steps),
      shown_(console.errIsTerminal && steps > 1),
      begin_(Clock::now()) {}

Progress::~Progress() {
  // Carriage return, then erase to the end of the line.
  if (shown_) console_.err << "\r\x1b[K" << std::flush;
}

void Progress::step() {
  if (!shown_) return;
  const std::scoped_lock lock(mutex_);
  ++done_;
  constexpr auto often = std::chrono::milliseconds(50);
  const Clock::time_point now = Clock::now();
  if (now - written_ >= often) write(now);
}

void Progress::write(Clock::time_point now) {
  written_ = now;
  console_.err << "\r\x1b[K" << doing_ << ' ' << done_ << '/' << steps_;
  const double gone = std::chrono::duration<double>(now - begin_).count();
  if (gone > 1 && done_ < steps_) console_.err << ", " << estimateText(gone, done_, steps_);
  console_.err << std::flush;
}

}  // namespace glyphwright::cli
