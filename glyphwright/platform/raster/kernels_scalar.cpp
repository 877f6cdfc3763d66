#include <algorithm>
#include <cstdlib>
#include <cstring>

#include <glyphwright/platform/raster/cells.h>
#include <glyphwright/platform/raster/kernels.h>

namespace glyphwright::raster {
namespace {

// From winding × coverage in 1/1024 to a 15-bit fraction: × 32, less one at the very top.
std::uint16_t foldWinding(int sum, FillRule rule) {
  int units = 0;
  if (rule == FillRule::nonZero) {
    units = std::min(std::abs(sum), kUnitsPerPixel);
  } else {
    const int phase = sum & (2 * kUnitsPerPixel - 1);
    units = std::min(phase, 2 * kUnitsPerPixel - phase);
  }
  return static_cast<std::uint16_t>((units << 5) - (units >> 10));
}

template <typename Cell>
int sum(Cell* cells, std::size_t count, int carry, FillRule rule, std::uint16_t* coverage) {
  for (std::size_t i = 0; i < count; ++i) {
    // The sums wrap like the cells do; within the winding limit the true sum never does.
    carry = static_cast<Cell>(carry + cells[i]);
    cells[i] = 0;
    coverage[i] = foldWinding(carry, rule);
  }
  return carry;
}

void writeSolid(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                const SolidColor& color) {
  for (std::size_t i = 0; i < count; ++i) {
    for (int c = 0; c < 4; ++c) *rgba++ = toByte(scaled(color.channels[c], coverage[i]));
  }
}

// What is left of a pixel under something of this alpha.
int remainder(int alpha) {
  return kOne - alpha;
}

void blendSolid(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                const SolidColor& color) {
  for (std::size_t i = 0; i < count; ++i) {
    const int rest = remainder(scaled(color.alpha, coverage[i]));
    for (int c = 0; c < 4; ++c, ++rgba) {
      *rgba = toByte(scaled(color.channels[c], coverage[i]) + scaled(*rgba * 64, rest));
    }
  }
}

void writePixels(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                 const std::uint8_t* source) {
  for (std::size_t i = 0; i < count; ++i) {
    for (int c = 0; c < 4; ++c) *rgba++ = toByte(scaled(*source++ * 64, coverage[i]));
  }
}

void blendPixels(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                 const std::uint8_t* source) {
  for (std::size_t i = 0; i < count; ++i, source += 4) {
    // 255 → 32767: alpha × 128, plus the two top places repeated.
    const int alpha = (source[3] << 7) + (source[3] >> 1);
    const int rest = remainder(scaled(alpha, coverage[i]));
    for (int c = 0; c < 4; ++c, ++rgba) {
      *rgba = toByte(scaled(source[c] * 64, coverage[i]) + scaled(*rgba * 64, rest));
    }
  }
}

void multiplyCoverage(std::uint16_t* coverage, const std::uint16_t* other, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    coverage[i] = static_cast<std::uint16_t>(scaled(coverage[i], other[i]));
  }
}

void scaleCoverage(std::uint16_t* coverage, int fraction, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    coverage[i] = static_cast<std::uint16_t>(scaled(coverage[i], fraction));
  }
}

void filter(std::uint16_t* out, const std::uint16_t* const* rows, const std::int16_t* taps,
            std::size_t tapCount, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    int total = 0;
    for (std::size_t k = 0; k < tapCount; ++k) total += scaled(rows[k][i], taps[k]);
    out[i] = static_cast<std::uint16_t>(std::min(total, kOne));
  }
}

constexpr Kernels kScalar{sum<std::int16_t>, sum<std::int32_t>, writeSolid,
                          blendSolid,        writePixels,       blendPixels,
                          multiplyCoverage,  scaleCoverage,     filter};

}  // namespace

const Kernels& scalarKernels() {
  return kScalar;
}

}  // namespace glyphwright::raster
