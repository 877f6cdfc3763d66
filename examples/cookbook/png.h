#pragma once

// Pictures as PNG files with nothing but the standard library: correct, but not compressed. A
// program that has libpng or the like gives it the same straight pixels.

#include <glyphwright/platform/image.h>

#include <cstdint>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace cookbook {

using Bytes = std::vector<std::uint8_t>;

inline void addNumber(Bytes& to, std::size_t value) {
  for (int shift = 24; shift >= 0; shift -= 8) to.push_back(std::uint8_t(value >> shift & 255));
}

// A chunk: length, kind, content, checksum.
inline void addChunk(Bytes& to, std::string_view kind, const Bytes& content) {
  addNumber(to, content.size());
  const std::size_t from = to.size();
  to.insert(to.end(), kind.begin(), kind.end());
  to.insert(to.end(), content.begin(), content.end());
  std::uint32_t crc = 0xFFFFFFFF;
  for (std::size_t i = from; i < to.size(); ++i) {
    crc ^= to[i];
    for (int bit = 0; bit < 8; ++bit) crc = crc >> 1 ^ ((crc & 1) != 0 ? 0xEDB88320U : 0U);
  }
  addNumber(to, ~crc);
}

// Each row is one block of a zlib stream, as it is, after a byte that says "no filter".
inline Bytes rowsOf(const Bytes& pixels, std::size_t rowBytes) {
  Bytes stream = {0x78, 0x01};
  std::uint32_t a = 1;
  std::uint32_t b = 0;
  for (std::size_t at = 0; at < pixels.size(); at += rowBytes) {
    const std::size_t length = rowBytes + 1;
    stream.push_back(at + rowBytes == pixels.size());  // 1: the last one
    for (const std::size_t size : {length, ~length}) {
      stream.push_back(std::uint8_t(size & 255));
      stream.push_back(std::uint8_t(size >> 8 & 255));
    }
    stream.push_back(0);
    b = (b + a) % 65521;
    for (std::size_t i = at; i < at + rowBytes; ++i) {
      stream.push_back(pixels[i]);
      a = (a + pixels[i]) % 65521;
      b = (b + a) % 65521;
    }
  }
  addNumber(stream, b << 16 | a);
  return stream;
}

/// False where the file cannot be written or the image has no pixels. Rows up to 16383 pixels.
inline bool writePng(const std::string& file, const glyphwright::CGImage& image) {
  if (!image) return false;
  Bytes png = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
  Bytes header;
  addNumber(header, image.pixelWidth());
  addNumber(header, image.pixelHeight());
  header.insert(header.end(), {8, 6, 0, 0, 0});  // 8 bits, colour with alpha
  addChunk(png, "IHDR", header);
  addChunk(png, "IDAT",
           rowsOf(image.pixels(glyphwright::PixelFormat::straightRGBA), image.pixelWidth() * 4));
  addChunk(png, "IEND", {});
  std::ofstream out(file, std::ios::binary);
  out.write(reinterpret_cast<const char*>(png.data()), std::streamsize(png.size()));
  return bool(out.flush());
}

}  // namespace cookbook
