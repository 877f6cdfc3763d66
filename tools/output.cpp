#include "output.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <system_error>

#include "numbers.h"
#include "usage_error.h"

namespace glyphwright::cli {

OutputFormat formatOf(std::string_view file) {
  if (file == "-" || file.ends_with(".png")) return OutputFormat::png;
  if (file.ends_with(".svg")) return OutputFormat::svg;
  if (file.ends_with(".rgba")) return OutputFormat::rgba;
  throw UsageError("\"" + std::string(file) + "\" does not end in .png, .svg or .rgba");
}

std::string expandPattern(std::string_view pattern, std::string_view name, double scale) {
  std::string file;
  for (std::size_t at = 0; at < pattern.size();) {
    const std::string_view rest = pattern.substr(at);
    if (rest.starts_with("{name}")) {
      file += name;
      at += 6;
    } else if (rest.starts_with("{scale}")) {
      file += textOf(scale);
      at += 7;
    } else if (rest.front() == '{' || rest.front() == '}') {
      throw UsageError("\"" + std::string(pattern) +
                       "\": an output pattern knows only {name} and {scale}");
    } else {
      file += rest.front();
      ++at;
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
  const std::filesystem::path folder = std::filesystem::path(file).parent_path();
  std::error_code error;
  if (!folder.empty()) std::filesystem::create_directories(folder, error);
  if (error) throw std::runtime_error("cannot make " + folder.string() + ": " + error.message());
  errno = 0;
  std::ofstream stream(file, std::ios::binary);
  stream.write(data, size);
  stream.close();
  if (!stream) {
    const char* const why = errno == 0 ? "the write failed" : std::strerror(errno);
    throw std::runtime_error("cannot write " + file + ": " + why);
  }
}

void writeOutput(const std::string& file, std::string_view text, Console& console) {
  writeOutput(file, std::span(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()),
              console);
}

Progress::Progress(Console& console, std::string_view doing, std::size_t steps)
    : console_(console), doing_(doing), steps_(steps), shown_(console.errIsTerminal && steps > 1) {}

Progress::~Progress() {
  clear();
}

void Progress::step() {
  ++done_;
  if (!shown_) return;
  clear();
  console_.err << doing_ << ' ' << done_ << '/' << steps_ << std::flush;
}

void Progress::clear() {
  // Carriage return, then erase to the end of the line.
  if (shown_) console_.err << "\r\x1b[K" << std::flush;
}

}  // namespace glyphwright::cli
