#include <cmath>
#include <stdexcept>
#include <string_view>

#include "animated_picture.h"
#include "png.h"

namespace glyphwright::cli {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t kSignatureSize = 8;
constexpr std::size_t kChunkFrame = 12;  // length, name and checksum

void append16(Bytes& bytes, std::size_t value) {
  bytes.push_back(static_cast<std::uint8_t>(value >> 8));
  bytes.push_back(static_cast<std::uint8_t>(value));
}

/// Calls `handle(name, content)` for every chunk of a PNG file.
template <typename Handle>
void forEachChunk(std::span<const std::uint8_t> png, Handle handle) {
  for (std::size_t at = kSignatureSize; at + kChunkFrame <= png.size();) {
    std::size_t length = 0;
    for (std::size_t i = 0; i < 4; ++i) length = length << 8 | png[at + i];
    const std::string_view name(reinterpret_cast<const char*>(png.data()) + at + 4, 4);
    handle(name, png.subspan(at + 8, length));
    at += length + kChunkFrame;
  }
}

Bytes frameControl(const AnimatedPicture& picture, std::size_t sequence) {
  Bytes control;
  appendNumber32(control, sequence);
  appendNumber32(control, picture.pixelWidth);
  appendNumber32(control, picture.pixelHeight);
  appendNumber32(control, 0);
  appendNumber32(control, 0);
  // Each frame is shown for 100 / (100 · fps) seconds.
  append16(control, 100);
  append16(control, static_cast<std::size_t>(std::lround(picture.framesPerSecond * 100)));
  // Each frame takes the place of the one before, alpha and all.
  control.push_back(0);
  control.push_back(0);
  return control;
}

}  // namespace

std::vector<std::uint8_t> encodeAnimatedPng(const AnimatedPicture& picture) {
  if (picture.frames.empty()) throw std::runtime_error("an animation needs a frame");
  Bytes file;
  std::size_t sequence = 0;
  for (const Bytes& pixels : picture.frames) {
    const bool first = file.empty();
    const Bytes png = encodePng(picture.pixelWidth, picture.pixelHeight, pixels);
    if (first) file.assign(png.begin(), png.begin() + kSignatureSize);
    bool controlled = false;
    forEachChunk(png, [&](std::string_view name, std::span<const std::uint8_t> content) {
      if (name == "IDAT") {
        if (!controlled) appendChunk(file, "fcTL", frameControl(picture, sequence++));
        controlled = true;
        Bytes data;
        // Frames after the first carry the same data under another name and a running number.
        if (!first) appendNumber32(data, sequence++);
        data.insert(data.end(), content.begin(), content.end());
        appendChunk(file, first ? "IDAT" : "fdAT", data);
        return;
      }
      if (!first || name == "IEND") return;
      appendChunk(file, name, content);
      if (name == "IHDR") {
        Bytes animation;
        appendNumber32(animation, picture.frames.size());
        appendNumber32(animation, 0);  // for ever
        appendChunk(file, "acTL", animation);
      }
    });
  }
  appendChunk(file, "IEND", {});
  return file;
}

}  // namespace glyphwright::cli
