#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace glyphwright::cli {

/// Pictures of one size that follow each other and start over.
struct AnimatedPicture {
  std::size_t pixelWidth = 0;   // above 0
  std::size_t pixelHeight = 0;  // above 0
  double framesPerSecond = 20;  // above 0, at most 100
  /// Rows top to bottom, four bytes a pixel, premultiplied red, green, blue, alpha.
  std::vector<std::vector<std::uint8_t>> frames;
};

/// An animated PNG: a program that knows only plain PNG shows the first frame. Throws
/// std::runtime_error when it does not fit into the format.
std::vector<std::uint8_t> encodeAnimatedPng(const AnimatedPicture& picture);

/// Whether this build can write GIF.
bool canEncodeGif();

/// A GIF of up to 255 colours a frame. A pixel there is opaque or not at all: what is less than
/// half opaque is left out, the rest is mixed with white. Throws std::runtime_error when it does
/// not fit into the format, or when this build cannot write GIF.
std::vector<std::uint8_t> encodeGif(const AnimatedPicture& picture);

}  // namespace glyphwright::cli
