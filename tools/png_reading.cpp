#include "png_reading.h"

#include <stdexcept>

#include <png.h>  // NOLINT(readability-duplicate-include): libpng's, not the one beside this file

namespace glyphwright::cli {

StraightPixels readPngFile(const std::string& file) {
  constexpr std::size_t mostPixels = std::size_t{1} << 26;
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  const auto fail = [&](const std::string& why) {
    png_image_free(&image);
    throw std::runtime_error("cannot read " + file + ": " + why);
  };
  if (png_image_begin_read_from_file(&image, file.c_str()) == 0) fail(image.message);
  if (std::size_t{image.width} * image.height > mostPixels) fail("it has too many pixels");
  image.format = PNG_FORMAT_RGBA;
  StraightPixels pixels{image.width, image.height, {}};
  pixels.rgba.resize(PNG_IMAGE_SIZE(image));
  if (png_image_finish_read(&image, nullptr, pixels.rgba.data(), 0, nullptr) == 0) {
    fail(image.message);
  }
  return pixels;
}

}  // namespace glyphwright::cli
