#include "diff_command.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include <nlohmann/json.hpp>

#include <glyphwright/bezier_path.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/platform/vantel_kit.h>

#include "icon_names.h"
#include "numbers.h"
#include "output.h"
#include "png.h"
#include "png_reading.h"
#include "usage_error.h"

namespace glyphwright::cli {
namespace {

constexpr std::size_t kBytesInPixel = 4;

bool isFile(const std::string& name) {
  return name.ends_with(".png");
}

/// Premultiplied pixels.
struct Pixels {
  std::size_t width = 0;
  std::size_t height = 0;
  std::vector<std::uint8_t> rgba;
};

std::uint8_t share(unsigned value, unsigned alpha) {
  return static_cast<std::uint8_t>((value * alpha + 127) / 255);
}

Pixels premultiplied(StraightPixels straight) {
  Pixels pixels{straight.width, straight.height, std::move(straight.rgba)};
  for (std::size_t i = 0; i < pixels.rgba.size(); ++i) {
    if (i % kBytesInPixel != 3) {
      pixels.rgba[i] = share(pixels.rgba[i], pixels.rgba[i - i % kBytesInPixel + 3]);
    }
  }
  return pixels;
}

Pixels rendered(const std::string& name, const DiffOptions& options, CGSize size) {
  const NamedIcon named = iconsNamed({&name, 1}).front();
  if (named.icon.builder == nullptr) throw std::runtime_error(name + " has no drawing");
  IconAttributes attributes = options.paint.attributes;
  attributes.size = size;
  const UIImage image = named.icon.builder().makeStandaloneImage(attributes);
  if (!image.hasPixels()) throw std::runtime_error(name + " cannot be drawn at this size");
  const CGImage& drawn = image.cgImage();
  // A file has been through straight alpha, which rounds: so that it equals what it was written
  // from, go the same way.
  StraightPixels straight{drawn.pixelWidth(), drawn.pixelHeight(), {}};
  straight.rgba = straightAlpha(drawn.rgba());
  return premultiplied(std::move(straight));
}

struct Difference {
  unsigned worst = 0;
  double mean = 0;  // of all channels
  std::size_t pixels = 0;
};

unsigned differenceAt(const Pixels& a, const Pixels& b, std::size_t pixel) {
  unsigned worst = 0;
  for (std::size_t i = pixel * kBytesInPixel; i < (pixel + 1) * kBytesInPixel; ++i) {
    worst = std::max(worst, static_cast<unsigned>(std::abs(a.rgba[i] - b.rgba[i])));
  }
  return worst;
}

Difference differenceOf(const Pixels& a, const Pixels& b) {
  Difference difference;
  double sum = 0;
  for (std::size_t i = 0; i < a.rgba.size(); ++i) sum += std::abs(a.rgba[i] - b.rgba[i]);
  for (std::size_t pixel = 0; pixel < a.width * a.height; ++pixel) {
    const unsigned at = differenceAt(a, b, pixel);
    difference.worst = std::max(difference.worst, at);
    difference.pixels += at > 0 ? 1 : 0;
  }
  difference.mean = sum / static_cast<double>(a.rgba.size());
  return difference;
}

/// A, B and the difference side by side: red over a faint A, the brighter the more.
std::vector<std::uint8_t> pictureOf(const Pixels& a, const Pixels& b) {
  std::vector<std::uint8_t> sheet;
  sheet.reserve(3 * a.rgba.size());
  for (std::size_t y = 0; y < a.height; ++y) {
    const auto from = static_cast<std::ptrdiff_t>(y * a.width * kBytesInPixel);
    const auto to = from + static_cast<std::ptrdiff_t>(a.width * kBytesInPixel);
    for (const Pixels* side : {&a, &b}) {
      sheet.insert(sheet.end(), side->rgba.begin() + from, side->rgba.begin() + to);
    }
    for (std::size_t pixel = y * a.width; pixel < (y + 1) * a.width; ++pixel) {
      const unsigned at = differenceAt(a, b, pixel);
      const auto faint = static_cast<std::uint8_t>(a.rgba[pixel * kBytesInPixel + 3] / 6);
      const auto red = at > 0 ? static_cast<std::uint8_t>(90 + at * 165 / 255) : faint;
      const std::uint8_t rest = at > 0 ? std::uint8_t{0} : faint;
      sheet.insert(sheet.end(), {red, rest, rest, 255});
    }
  }
  return sheet;
}

void report(const DiffOptions& options, const Difference& difference, std::size_t all,
            std::ostream& out) {
  if (options.json) {
    out << nlohmann::ordered_json({{"worst", difference.worst},
                                   {"mean", difference.mean},
                                   {"differingPixels", difference.pixels},
                                   {"pixels", all}})
               .dump(2)
        << '\n';
  } else {
    out << "worst " << difference.worst << ", mean " << tidyTextOf(difference.mean, 1e7) << ", "
        << difference.pixels << " of " << all << " pixels differ\n";
  }
}

}  // namespace

int runDiff(const DiffOptions& options, Console& console) {
  requireOnePicture(options.paint);
  if (!options.output.empty() && !options.output.ends_with(".png")) {
    throw UsageError("the picture of the difference is a .png file");
  }
  for (const std::string& name : {options.a, options.b}) {
    if (!isFile(name)) iconsNamed({&name, 1});
  }
  VantelKit::Screen::setScale(options.scale);
  CGSize size = options.paint.attributes.size;
  Pixels sides[2];
  const std::string names[] = {options.a, options.b};
  for (std::size_t i = 0; i < 2; ++i) {
    if (!isFile(names[i])) continue;
    sides[i] = premultiplied(readPngFile(names[i]));
    if (!options.sizeIsGiven) {
      size = {static_cast<CGFloat>(sides[i].width) / options.scale,
              static_cast<CGFloat>(sides[i].height) / options.scale};
    }
  }
  for (std::size_t i = 0; i < 2; ++i) {
    if (!isFile(names[i])) sides[i] = rendered(names[i], options, size);
  }
  const auto& [a, b] = sides;
  if (a.width != b.width || a.height != b.height) {
    const auto text = [](const Pixels& p) {
      return std::to_string(p.width) + 'x' + std::to_string(p.height);
    };
    console.err << "glyphwright: the sizes differ: " << text(a) << " and " << text(b)
                << " pixels\n";
    return statusFailed;
  }
  const Difference difference = differenceOf(a, b);
  report(options, difference, a.width * a.height, console.out);
  if (!options.output.empty()) {
    makeFolders({&options.output, 1}, options.parents);
    writeOutput(options.output, encodePng(3 * a.width, a.height, pictureOf(a, b)), console);
  }
  return difference.worst <= options.tolerance ? statusDone : statusFailed;
}

}  // namespace glyphwright::cli
