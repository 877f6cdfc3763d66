#include "png.h"

#include <cstdlib>
#include <limits>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>

#include <libdeflate.h>

namespace glyphwright::cli {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t kBytesInPixel = 4;

void putStraight(std::span<const std::uint8_t> premultiplied, std::span<std::uint8_t> row) {
  for (std::size_t i = 0; i < premultiplied.size(); i += kBytesInPixel) {
    const unsigned alpha = premultiplied[i + 3];
    const bool asItIs = alpha == 0 || alpha == 255;
    for (std::size_t c = i; c < i + 3; ++c) {
      const unsigned value = premultiplied[c];
      row[c] = static_cast<std::uint8_t>(asItIs ? value : (value * 255U + alpha / 2) / alpha);
    }
    row[i + 3] = static_cast<std::uint8_t>(alpha);
  }
}

/// The rows with straight alpha, each behind the number of its filter: none. Icons are flat
/// colours, whose repetitions the compressor finds better by itself.
Bytes unfilteredRows(std::size_t width, std::span<const std::uint8_t> premultiplied) {
  const std::size_t stride = width * kBytesInPixel;
  const std::size_t height = premultiplied.size() / stride;
  Bytes rows(height * (stride + 1));
  for (std::size_t y = 0; y < height; ++y) {
    putStraight(premultiplied.subspan(y * stride, stride),
                std::span(rows).subspan(y * (stride + 1) + 1, stride));
  }
  return rows;
}

/// The rows under the filter whose differences are least: none, from the left, or from above.
Bytes filteredRows(std::size_t width, const Bytes& unfiltered) {
  const std::size_t stride = width * kBytesInPixel + 1;
  Bytes rows;
  rows.reserve(unfiltered.size());
  Bytes best;
  Bytes tried(stride);
  for (std::size_t at = 0; at < unfiltered.size(); at += stride) {
    long least = std::numeric_limits<long>::max();
    for (std::uint8_t filter = 0; filter <= 2; ++filter) {
      tried[0] = filter;
      long cost = 0;
      for (std::size_t i = 1; i < stride; ++i) {
        const int left = i > kBytesInPixel ? unfiltered[at + i - kBytesInPixel] : 0;
        const int above = at > 0 ? unfiltered[at + i - stride] : 0;
        const int guess = filter == 1 ? left : filter == 2 ? above : 0;
        tried[i] = static_cast<std::uint8_t>(unfiltered[at + i] - guess);
        cost += std::abs(static_cast<std::int8_t>(tried[i]));
      }
      if (cost < least) {
        least = cost;
        best = tried;
      }
    }
    rows.insert(rows.end(), best.begin(), best.end());
  }
  return rows;
}

Bytes deflated(const Bytes& rows, int level) {
  const auto free = [](libdeflate_compressor* compressor) {
    libdeflate_free_compressor(compressor);
  };
  const std::unique_ptr<libdeflate_compressor, decltype(free)> compressor(
      libdeflate_alloc_compressor(level), free);
  if (!compressor) throw std::bad_alloc();
  Bytes out(libdeflate_zlib_compress_bound(compressor.get(), rows.size()));
  out.resize(
      libdeflate_zlib_compress(compressor.get(), rows.data(), rows.size(), out.data(), out.size()));
  return out;
}

Bytes imageData(std::size_t width, const Bytes& rows, Compression compression) {
  // Of the levels from 1 to 9, the sixth takes hardly longer than the first and is the first to
  // give less than what a general PNG writer makes of these pictures in four times the time.
  constexpr int quickLevel = 6;
  constexpr int smallLevel = 12;
  if (compression == Compression::quick) return deflated(rows, quickLevel);
  Bytes plain = deflated(rows, smallLevel);
  Bytes filtered = deflated(filteredRows(width, rows), smallLevel);
  return filtered.size() < plain.size() ? filtered : plain;
}

}  // namespace

std::vector<std::uint8_t> straightAlpha(std::span<const std::uint8_t> premultiplied) {
  Bytes straight(premultiplied.size());
  putStraight(premultiplied, straight);
  return straight;
}

void appendNumber32(Bytes& bytes, std::size_t value) {
  for (int shift = 24; shift >= 0; shift -= 8) {
    bytes.push_back(static_cast<std::uint8_t>(value >> shift));
  }
}

void appendChunk(Bytes& file, std::string_view name, std::span<const std::uint8_t> content) {
  appendNumber32(file, content.size());
  const std::size_t start = file.size();
  file.insert(file.end(), name.begin(), name.end());
  file.insert(file.end(), content.begin(), content.end());
  appendNumber32(file, libdeflate_crc32(0, file.data() + start, file.size() - start));
}

std::vector<std::uint8_t> encodePng(std::size_t width, std::size_t height,
                                    std::span<const std::uint8_t> premultiplied,
                                    Compression compression) {
  constexpr std::size_t longestSide = std::numeric_limits<std::int32_t>::max() / 4;
  if (width == 0 || height == 0 || width > longestSide || height > longestSide ||
      premultiplied.size() != width * height * kBytesInPixel) {
    throw std::runtime_error("the image does not fit into a PNG file");
  }
  const Bytes data = imageData(width, unfilteredRows(width, premultiplied), compression);
  if (data.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
    throw std::runtime_error("the image does not fit into a PNG file");
  }
  Bytes file{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
  Bytes header;
  appendNumber32(header, width);
  appendNumber32(header, height);
  // Eight bits a channel, red, green, blue and alpha; the format's only ways to compress and to
  // filter; rows in order.
  header.insert(header.end(), {8, 6, 0, 0, 0});
  appendChunk(file, "IHDR", header);
  appendChunk(file, "sRGB", Bytes{0});
  appendChunk(file, "IDAT", data);
  appendChunk(file, "IEND", {});
  return file;
}

}  // namespace glyphwright::cli
