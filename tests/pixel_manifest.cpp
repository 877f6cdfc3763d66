#include "pixel_manifest.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <span>
#include <string_view>

#include <glyphwright/platform/color.h>

#include "tools/pixel_sheet.h"
#include "tools/png.h"

namespace glyphwright::pixel_manifest {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLargestSide = 4096;

std::string keptFile(const std::string& folder, const std::string& name) {
  return folder + "/" + name + ".rgba";
}

// |a − b| of each channel, enlarged so that a difference of a few levels can be seen, and opaque.
CGImage difference(const CGImage& a, const CGImage& b) {
  if (a.pixelWidth() != b.pixelWidth() || a.pixelHeight() != b.pixelHeight()) return {};
  std::vector<std::uint8_t> bytes(b.rgba().size());
  for (std::size_t i = 0; i < bytes.size(); i += 4) {
    const auto apart = [&](std::size_t c) { return std::abs(a.rgba()[i + c] - b.rgba()[i + c]); };
    const int alpha = apart(3);
    for (std::size_t c = 0; c < 3; ++c) {
      bytes[i + c] = static_cast<std::uint8_t>(std::min(255, 8 * std::max(apart(c), alpha)));
    }
    bytes[i + 3] = 255;
  }
  return CGImage(b.pixelWidth(), b.pixelHeight(), bytes);
}

}  // namespace

void keep(const std::string& folder, const std::string& name, const CGImage& image) {
  fs::create_directories(folder);
  std::ofstream out(keptFile(folder, name), std::ios::binary);
  const std::span<const std::uint8_t> rgba = image.rgba();
  out << image.pixelWidth() << ' ' << image.pixelHeight() << '\n';
  out.write(reinterpret_cast<const char*>(rgba.data()), static_cast<std::streamsize>(rgba.size()));
}

CGImage kept(const std::string& folder, const std::string& name, std::uint64_t hash) {
  std::ifstream in(keptFile(folder, name), std::ios::binary);
  std::size_t width = 0;
  std::size_t height = 0;
  if (!(in >> width >> height) || width > kLargestSide || height > kLargestSide) return {};
  in.get();
  const std::vector<std::uint8_t> bytes{std::istreambuf_iterator<char>(in), {}};
  if (bytes.size() != width * height * 4) return {};
  const CGImage image(width, height, bytes);
  return hashOf(image) == hash ? image : CGImage();
}

void writeSheet(const std::string& file, const std::vector<Change>& changes) {
  constexpr std::size_t gap = 16;
  std::size_t column = 96;
  std::size_t height = 2 * gap;
  for (const Change& change : changes) {
    column = std::max({column, change.expected.pixelWidth(), change.actual.pixelWidth()});
    height += std::max(change.expected.pixelHeight(), change.actual.pixelHeight()) + 2 * gap;
  }
  cli::PixelSheet sheet(3 * column + 4 * gap, height, UIColor::whiteColor());
  const std::string_view titles[] = {"expected", "actual", "difference"};
  for (std::size_t i = 0; i < 3; ++i) {
    sheet.write(titles[i], gap + i * (column + gap), gap / 2, 1, UIColor::blackColor());
  }
  std::size_t y = 2 * gap;
  for (const Change& change : changes) {
    sheet.write(change.name, gap, y, 1, UIColor::blackColor());
    y += gap;
    const CGImage images[] = {change.expected, change.actual,
                              difference(change.expected, change.actual)};
    for (std::size_t i = 0; i < 3; ++i) {
      const std::size_t x = gap + i * (column + gap);
      if (images[i]) {
        sheet.draw(images[i], x, y);
      } else {
        sheet.write(i == 0 ? "not kept" : "-", x, y, 1, UIColor::grayColor());
      }
    }
    y += std::max(change.expected.pixelHeight(), change.actual.pixelHeight()) + gap;
  }
  fs::create_directories(fs::path(file).parent_path());
  const std::vector<std::uint8_t> png = cli::encodePng(sheet.width(), sheet.height(), sheet.rgba());
  std::ofstream out(file, std::ios::binary);
  out.write(reinterpret_cast<const char*>(png.data()), static_cast<std::streamsize>(png.size()));
}

}  // namespace glyphwright::pixel_manifest
