#include <glyphwright/platform/raster/kernels/scalar.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

// From cells to coverage and pixels.
namespace glyphwright::raster::scalar {

namespace {

// From winding × coverage in 1/1024 to coverage in 1/1024.
int foldWinding(int sum, FillRule rule) {
  if (rule == FillRule::nonZero) return std::min(std::abs(sum), kUnitsPerPixel);
  const int phase = sum & (2 * kUnitsPerPixel - 1);
  return std::min(phase, 2 * kUnitsPerPixel - phase);
}

// To a 15-bit fraction: × 32, less one at the very top.
std::uint16_t toFraction(int units) {
  return static_cast<std::uint16_t>((units << 5) - (units >> 10));
}

template <typename Cell>
int sum(Cell* cells, std::size_t count, int carry, FillRule rule, std::uint16_t* coverage) {
  for (std::size_t i = 0; i < count; ++i) {
    // The sums wrap like the cells do; within the winding limit the true sum never does.
    carry = static_cast<Cell>(carry + cells[i]);
    cells[i] = 0;
    coverage[i] = toFraction(foldWinding(carry, rule));
  }
  return carry;
}

}  // namespace

void writeSolid(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                const SolidColor& color) {
  for (std::size_t i = 0; i < count; ++i) {
    for (int c = 0; c < 4; ++c) *rgba++ = toByte(scaled(color.channels[c], coverage[i]));
  }
}

namespace {

// What is left of a pixel under something of this alpha.
int remainder(int alpha) {
  return kOne - alpha;
}

}  // namespace

void blendSolid(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                const SolidColor& color) {
  for (std::size_t i = 0; i < count; ++i) {
    const int rest = remainder(scaled(color.alpha, coverage[i]));
    for (int c = 0; c < 4; ++c, ++rgba) {
      *rgba = toByte(scaled(color.channels[c], coverage[i]) + scaled(*rgba * 64, rest));
    }
  }
}

void writeTwoSolids(std::uint8_t* rgba, std::size_t rowBytes, const TwoCoverages& coverages,
                    const SolidColor& belowColor, const SolidColor& aboveColor) {
  const TwoCoverages& c = coverages;
  for (std::size_t row = 0; row < c.rows; ++row, rgba += rowBytes) {
    writeSolid(rgba, c.below + row * c.belowStride, c.count, belowColor);
    blendSolid(rgba + c.from * 4, c.above + row * c.aboveStride, c.until - c.from, aboveColor);
  }
}

void writeInset(std::uint8_t* rgba, const InsetRow& row, std::size_t count, const SolidColor& color,
                const SolidColor& shade) {
  for (std::size_t i = 0; i < count; ++i) {
    const int units = kUnitsPerPixel - ((row.around[i] + 1) >> 5);  // before it was a fraction
    const int shaded = scaled(row.cast[i], row.inside[i]);
    const int rest = remainder(scaled(shade.alpha, shaded));
    for (int c = 0; c < 4; ++c) {
      const int filled = scaled(color.channels[c] >> 1, units);
      *rgba++ = toByte(scaled(shade.channels[c], shaded) + scaled(filled * 64, rest));
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

namespace {

// Adds up what lies before a row.
std::int16_t takeBefore(std::int16_t* cells, std::size_t count) {
  std::int16_t sum = 0;
  for (; count > 0; --count) {
    sum = static_cast<std::int16_t>(sum + cells[-static_cast<std::ptrdiff_t>(count)]);
    cells[-static_cast<std::ptrdiff_t>(count)] = 0;
  }
  return sum;
}

}  // namespace

// Coverage in 1/1024 times a channel in 1/32 level is 2¹⁵ to a level: one product with one rounding
// makes the byte.
void writeCells(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                const SolidColor& color) {
  for (std::size_t row = 0; row < rows.rows; ++row) {
    std::int16_t* cells = rows.cells + row * rows.stride;
    std::uint8_t* to = rgba + row * rowBytes;
    std::int16_t sum = takeBefore(cells, rows.before);
    for (std::size_t x = 0; x < rows.stride - rows.before; ++x) {
      sum = static_cast<std::int16_t>(sum + cells[x]);
      cells[x] = 0;
      if (x >= rows.width) continue;
      const int units = foldWinding(sum, rows.rule);
      for (const std::int16_t channel : color.channels) {
        *to++ = static_cast<std::uint8_t>(scaled(channel >> 1, units));
      }
    }
  }
}

void blendCells(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                const SolidColor& color) {
  for (std::size_t row = 0; row < rows.rows; ++row) {
    std::int16_t* cells = rows.cells + row * rows.stride;
    int carry = takeBefore(cells, rows.before);
    for (std::size_t x = 0; x < rows.stride - rows.before; x += kBlock) {
      std::uint16_t coverage[kBlock];
      carry = sum(cells + x, kBlock, carry, rows.rule, coverage);
      if (x >= rows.width) continue;
      const std::size_t count = std::min(rows.width - x, std::size_t{kBlock});
      blendSolid(rgba + row * rowBytes + x * 4, coverage, count, color);
    }
  }
}

void writeTwoCells(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& below,
                   const CellRows& above, const SolidColor& belowColor,
                   const SolidColor& aboveColor) {
  writeCells(rgba, rowBytes, below, belowColor);
  blendCells(rgba, rowBytes, above, aboveColor);
}

namespace {

// Parts come in double, so that each has the float next to it from whichever end it was counted;
// the colour has digits to spare in single precision.
std::uint32_t mixed(const ColorStretch& stretch, double exactPart) {
  const float part = static_cast<float>(exactPart);
  const float alpha = stretch.start[3] + part * stretch.change[3];
  std::uint8_t bytes[4];
  for (int c = 0; c < 3; ++c) {
    const float level = stretch.start[c] + part * (stretch.change[c] + part * stretch.bend[c]);
    bytes[c] = static_cast<std::uint8_t>(level < alpha ? level : alpha);
  }
  bytes[3] = static_cast<std::uint8_t>(alpha);
  std::uint32_t pixel = 0;
  std::memcpy(&pixel, bytes, sizeof(pixel));
  return pixel;
}

}  // namespace

void mixAlong(const ColorStretch& stretch, double from, double step, std::size_t count,
              std::uint32_t* pixels) {
  for (std::size_t i = 0; i < count; ++i) {
    pixels[i] = mixed(stretch, from + step * static_cast<double>(i));
  }
}

void mixParts(const ColorStretch& stretch, const double* parts, std::size_t count,
              std::uint32_t* pixels) {
  for (std::size_t i = 0; i < count; ++i) pixels[i] = mixed(stretch, parts[i]);
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

namespace {

// The mean of both sides is taken first, so that a pair costs one product.
int pairScaled(int a, int b, int tap) {
  return scaled((a + b + 1) >> 1, tap);
}

}  // namespace

void filterDown(const FilterRows& rows, const std::uint16_t* const* middle,
                const std::int16_t* taps, std::size_t first, std::size_t reach) {
  for (std::size_t row = 0; row < rows.rows; ++row, ++middle) {
    for (std::size_t i = 0; i < rows.count; ++i) {
      int total = first == 0 ? scaled((*middle)[i], taps[0]) : 0;
      for (std::size_t k = std::max<std::size_t>(first, 1); k <= reach; ++k) {
        total += pairScaled((*(middle - k))[i], middle[k][i], taps[k]);
      }
      rows.out[row * rows.outStride + i] = static_cast<std::uint16_t>(std::min(total, kOne));
    }
  }
}

void filterAlong(const FilterRows& rows, const std::uint16_t* in, std::size_t inStride,
                 const std::int16_t* taps, std::size_t reach) {
  for (std::size_t row = 0; row < rows.rows; ++row, in += inStride) {
    for (std::size_t i = 0; i < rows.count; ++i) {
      const std::uint16_t* middle = in + reach + i;
      int total = scaled(*middle, taps[0]);
      for (std::size_t k = 1; k <= reach; ++k) {
        total += pairScaled(*(middle - k), middle[k], taps[k]);
      }
      rows.out[row * rows.outStride + i] = static_cast<std::uint16_t>(std::min(total, kOne));
    }
  }
}

namespace {

template <auto paint>
void byRow(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
           const std::uint32_t* colors) {
  CellRows one = rows;
  one.rows = 1;
  for (std::size_t row = 0; row < rows.rows; ++row, one.cells += rows.stride, rgba += rowBytes) {
    paint(rgba, rowBytes, one, solidColor(colors[row]));
  }
}

}  // namespace

int sumNarrow(std::int16_t* cells, std::size_t count, int carry, FillRule rule,
              std::uint16_t* coverage) {
  return sum(cells, count, carry, rule, coverage);
}

void sumInset(std::int16_t* cells, std::size_t count, FillRule rule, std::uint16_t* around,
              std::uint16_t* inside) {
  std::int16_t winding = 0;
  for (std::size_t i = 0; i < count; ++i) {
    winding = static_cast<std::int16_t>(winding + cells[i]);
    cells[i] = 0;
    around[i] = toFraction(kUnitsPerPixel - foldWinding(winding, FillRule::evenOdd));
    inside[i] = toFraction(foldWinding(winding, rule));
  }
}

int sumWide(std::int32_t* cells, std::size_t count, int carry, FillRule rule,
            std::uint16_t* coverage) {
  return sum(cells, count, carry, rule, coverage);
}

void writeCellsByRow(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                     const std::uint32_t* colors) {
  byRow<writeCells>(rgba, rowBytes, rows, colors);
}

void blendCellsByRow(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                     const std::uint32_t* colors) {
  byRow<blendCells>(rgba, rowBytes, rows, colors);
}

}  // namespace glyphwright::raster::scalar
