// Any pixels as PNG, animated PNG and GIF: the files that come out can be read again, and the PNG
// holds what went in.

#include <cstdio>
#include <cstring>
#include <stdexcept>
#include <vector>

#include <png.h>

#include "input.h"
#include "tools/animated_picture.h"
#include "tools/png.h"

namespace {

using glyphwright::fuzz::Input;
using Bytes = std::vector<std::uint8_t>;

Bytes pixels(Input& input, std::size_t width, std::size_t height) {
  Bytes rgba(width * height * 4);
  const std::size_t period = 1 + input.below(40);
  Bytes few(period * 4);
  for (std::size_t i = 0; i < few.size(); i += 4) {
    few[i + 3] = input.coin() ? 255 : input.byte();
    for (std::size_t c = i; c < i + 3; ++c) {
      few[c] = static_cast<std::uint8_t>(input.byte() % (few[i + 3] + 1));
    }
  }
  for (std::size_t i = 0; i < rgba.size(); ++i) rgba[i] = few[i % few.size()];
  return rgba;
}

// Straight colours by plain division, as far as eight bits tell them.
bool holds(const Bytes& png, std::size_t width, std::size_t height, const Bytes& premultiplied) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  if (png_image_begin_read_from_memory(&image, png.data(), png.size()) == 0) return false;
  image.format = PNG_FORMAT_RGBA;
  if (image.width != width || image.height != height) return false;
  Bytes straight(PNG_IMAGE_SIZE(image));
  if (png_image_finish_read(&image, nullptr, straight.data(), 0, nullptr) == 0) return false;
  for (std::size_t i = 0; i < straight.size(); i += 4) {
    if (straight[i + 3] != premultiplied[i + 3]) return false;
    for (std::size_t c = i; c < i + 3; ++c) {
      const double again = straight[c] * premultiplied[i + 3] / 255.0;
      if (again - premultiplied[c] > 1 || premultiplied[c] - again > 1) return false;
    }
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input(data, size);
  glyphwright::cli::AnimatedPicture picture;
  picture.pixelWidth = 1 + input.below(40);
  picture.pixelHeight = 1 + input.below(40);
  picture.framesPerSecond = 1 + static_cast<double>(input.below(100));
  for (std::size_t frames = 1 + input.below(4); frames > 0; --frames) {
    picture.frames.push_back(pixels(input, picture.pixelWidth, picture.pixelHeight));
  }
  const Bytes& first = picture.frames.front();
  const Bytes png = glyphwright::cli::encodePng(picture.pixelWidth, picture.pixelHeight, first);
  if (!holds(png, picture.pixelWidth, picture.pixelHeight, first)) __builtin_trap();
  const Bytes animated = glyphwright::cli::encodeAnimatedPng(picture);
  if (!holds(animated, picture.pixelWidth, picture.pixelHeight, first)) __builtin_trap();
  if (glyphwright::cli::canEncodeGif()) {
    const Bytes gif = glyphwright::cli::encodeGif(picture);
    if (gif.size() < 14 || std::memcmp(gif.data(), "GIF89a", 6) != 0 || gif.back() != 0x3B) {
      __builtin_trap();
    }
  }
  return 0;
}
