#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include <glyphwright/platform/raster/kernels/cells.h>

/// Cells become pixels of a source.
namespace glyphwright::raster::loops {
namespace {

/// A row of a source's pixels, or two, above those that are painted.
class SourceRow {
 public:
  static constexpr std::size_t kLongRow = 320;  // pixels
  SourceRow(const SourceRows& rows, const PixelRows& painted, std::size_t y, std::size_t count)
      : rows_(rows),
        y_(rows.y + static_cast<int>(y)),
        count_(count),
        isReady_(rows.isReady),
        start_(painted.rgba + y * painted.rowBytes),
        rowBytes_(painted.rowBytes) {
    // In long rows, marks say which blocks matter and pixels are asked for run by run; those behind
    // the last whole block have no mark. Where runs are short it is faster to have all of a row.
    const bool isWhole = !painted.isMarked || painted.width < kLongRow;
    const std::size_t from = isWhole ? 0 : painted.width / kBlock * kBlock;
    if (from < painted.width) prepare(start_ + from * 4, painted.width - from);
    isReady_ |= isWhole;
  }

  /// Makes sure that the pixels above those at `rgba` stand where `at` says.
  void prepare(const std::uint8_t* rgba, std::size_t pixels) const {
    if (isReady_) return;
    const std::ptrdiff_t along = rgba - start_;
    for (std::size_t row = 0; row < count_; ++row) {
      put(along, row, pixels, rows_.room + along + row * rowBytes_);
    }
  }
  const std::uint8_t* at(const std::uint8_t* rgba) const { return rows_.room + (rgba - start_); }
  /// Puts them in the place of those.
  void copy(std::uint8_t* rgba, std::size_t pixels) const {
    for (std::size_t row = 0; row < count_; ++row) {
      std::uint8_t* to = rgba + row * rowBytes_;
      if (isReady_) {
        std::memcpy(to, at(rgba) + row * rowBytes_, pixels * 4);
      } else {
        put(rgba - start_, row, pixels, to);
      }
    }
  }

 private:
  void put(std::ptrdiff_t along, std::size_t row, std::size_t pixels, std::uint8_t* to) const {
    rows_.source.pixels(rows_.x + static_cast<int>(along / 4), y_ + static_cast<int>(row), pixels,
                        to);
  }

  const SourceRows& rows_;
  int y_;
  std::size_t count_;
  bool isReady_;
  const std::uint8_t* start_;
  std::size_t rowBytes_;
};

/// Of any eight pixels of a source, and over others or over nothing.
template <typename L, bool blends>
class SourcePainter : public SourceRow {
 public:
  using Shorts = typename L::Shorts;
  static constexpr bool kRepeats = false;
  using SourceRow::SourceRow;

  template <typename Rows>
  void paint(const Rows& rows, std::uint8_t* rgba, Shorts units) const {
    if (blends && isZero(units)) return;
    paintAny(rows, rgba, units);
  }
  template <typename Rows>
  void paintAny(const Rows& rows, std::uint8_t* rgba, Shorts units) const {
    const Shorts covered = fractions(units);
    const Shorts low = weaveLow(covered, covered);
    const Shorts high = weaveHigh(covered, covered);
    const Woven<L> above = rows.read(this->at(rgba));
    if constexpr (blends) {
      const Woven<L> below = rows.read(rgba);
      rows.write(rgba, {laidOver<L>(above.a, low, below.a), laidOver<L>(above.b, high, below.b)});
    } else {
      rows.write(rgba, {Halves<L>::of(above.a).times(low).pixels(),
                        Halves<L>::of(above.b).times(high).pixels()});
    }
  }
  template <typename Rows>
  void goOn(const Rows& rows, std::uint8_t* rgba, std::size_t blocks, bool /*isStart*/,
            Shorts units) const {
    if (isZero(units)) {
      if (!blends) repeatPixels<L>(rows, rgba, blocks, true);
      return;
    }
    if (!blends && isZero(units - Shorts::every(kUnitsPerPixel))) {
      return this->copy(rgba, blocks * kBlock);
    }
    this->prepare(rgba, blocks * kBlock);
    for (std::size_t at = 0; at < blocks * kBlock; at += Rows::kPixels) {
      paint(rows, rgba + at * 4, units);
    }
  }
};

template <typename L, bool blends>
void paintCellsOf(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                  const SourceRows& source) {
  const PixelRows painted{rgba, rowBytes, rows.rows, rows.width, rows.touched != nullptr};
  paintCells<L>(rgba, rowBytes, rows, [&](const auto& layout, std::size_t y) {
    return SourcePainter<L, blends>(source, painted, y, layout.kRows);
  });
}

template <typename L>
void writeCellsOf(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                  const SourceRows& source) {
  paintCellsOf<L, false>(rgba, rowBytes, rows, source);
}

template <typename L>
void blendCellsOf(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                  const SourceRows& source) {
  paintCellsOf<L, true>(rgba, rowBytes, rows, source);
}

}  // namespace
}  // namespace glyphwright::raster::loops
