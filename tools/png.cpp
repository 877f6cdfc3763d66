#include "png.h"

#include <limits>
#include <stdexcept>
#include <string>

#include <png.h>  // NOLINT(readability-duplicate-include): libpng's, not the one above

namespace glyphwright::cli {
namespace {

std::vector<std::uint8_t> straightAlpha(std::span<const std::uint8_t> premultiplied) {
  std::vector<std::uint8_t> straight(premultiplied.begin(), premultiplied.end());
  for (std::size_t i = 0; i + 3 < straight.size(); i += 4) {
    const unsigned alpha = straight[i + 3];
    if (alpha == 0 || alpha == 255) continue;
    for (std::size_t c = i; c < i + 3; ++c) {
      straight[c] = static_cast<std::uint8_t>((straight[c] * 255U + alpha / 2) / alpha);
    }
  }
  return straight;
}

}  // namespace

std::vector<std::uint8_t> encodePng(std::size_t width, std::size_t height,
                                    std::span<const std::uint8_t> premultiplied) {
  constexpr std::size_t longestSide = std::numeric_limits<std::int32_t>::max() / 4;
  if (width > longestSide || height > longestSide || premultiplied.size() != width * height * 4) {
    throw std::runtime_error("the image does not fit into a PNG file");
  }
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(width);
  image.height = static_cast<png_uint_32>(height);
  image.format = PNG_FORMAT_RGBA;
  const std::vector<std::uint8_t> pixels = straightAlpha(premultiplied);
  png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
  std::vector<std::uint8_t> file(size);
  if (png_image_write_to_memory(&image, file.data(), &size, 0, pixels.data(), 0, nullptr) == 0) {
    throw std::runtime_error(std::string("cannot encode PNG: ") + image.message);
  }
  file.resize(size);
  return file;
}

}  // namespace glyphwright::cli
