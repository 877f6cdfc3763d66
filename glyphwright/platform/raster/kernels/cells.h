#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include <glyphwright/platform/raster/kernels/inks.h>
#include <glyphwright/platform/raster/kernels/row_painter.h>

/// Sixteen cells at a time become coverage or pixels.
namespace glyphwright::raster::loops {
namespace {

template <typename L>
int sumNarrow(std::int16_t* cells, std::size_t count, int carry, FillRule rule,
              std::uint16_t* coverage) {
  using Shorts = typename L::Shorts;
  OneRowSums<L> running(carry);
  withRule(rule, [&](auto known) {
    for (std::size_t i = 0; i < count; i += kBlock) {
      const Shorts sums = running.next(OneRow<L>::take(cells + i, 0));
      store(coverage + i, fractions(foldWinding<known()>(sums)));
    }
  });
  std::int16_t sum[kBlock];
  store(sum, running.sum());
  return sum[0];
}

template <typename L>
void sumInset(std::int16_t* cells, std::size_t count, FillRule rule, std::uint16_t* around,
              std::uint16_t* inside) {
  using Shorts = typename L::Shorts;
  OneRowSums<L> running(0);
  withRule(rule, [&](auto known) {
    for (std::size_t i = 0; i < count; i += kBlock) {
      const Shorts sums = running.next(OneRow<L>::take(cells + i, 0));
      const Shorts covered = foldWinding<FillRule::evenOdd>(sums);
      store(around + i, fractions(Shorts::every(kUnitsPerPixel) - covered));
      store(inside + i, fractions(foldWinding<known()>(sums)));
    }
  });
}

/// One channel of sixteen pixels in each, woven into pixels only when they are bytes. Coverage in
/// 1/1024 times a channel in 1/32 level is 2¹⁵ to a level: one product with one rounding makes the
/// byte.
template <typename L>
class ColorWriter {
 public:
  using Shorts = typename L::Shorts;
  static constexpr bool kRepeats = true;  // pixels of untouched cells are like those before them
  /// The first half has the first colour.
  ColorWriter(const SolidColor& first, const SolidColor& second) {
    for (std::size_t c = 0; c < 4; ++c) {
      channels_[c] =
          L::template inHalves<Shorts>(static_cast<std::int16_t>(first.channels[c] >> 1),
                                       static_cast<std::int16_t>(second.channels[c] >> 1));
    }
  }
  /// The colours of premultiplied pixels.
  ColorWriter(std::uint32_t first, std::uint32_t second) {
    using Ints = typename L::Ints;
    const Ints pixels = L::template inHalves<Ints>(static_cast<std::int32_t>(first),
                                                   static_cast<std::int32_t>(second));
    const auto channel = [](Ints moved) {
      const Ints levels = moved & Ints::every(0xFF);
      return as<Shorts>(shiftLeft<5>(levels) | shiftLeft<21>(levels));
    };
    channels_[0] = channel(pixels);
    channels_[1] = channel(shiftRight<8>(pixels));
    channels_[2] = channel(shiftRight<16>(pixels));
    channels_[3] = channel(shiftRight<24>(pixels));
  }
  template <typename Rows>
  void paint(const Rows& rows, std::uint8_t* rgba, Shorts units) const {
    rows.write(rgba, pixels(units));
  }
  template <typename Rows>
  void paintAny(const Rows& rows, std::uint8_t* rgba, Shorts units) const {
    paint(rows, rgba, units);
  }
  void paintBlock(const TwoRows<L>& rows, std::uint8_t* rgba,
                  const typename TwoRows<L>::Block& units) const {
    rows.writeBlock(rgba, pixels(units.first), pixels(units.second));
  }
  /// Whole blocks of one coverage, that of the pixel before them; none at a row's start.
  template <typename Rows>
  void goOn(const Rows& rows, std::uint8_t* rgba, std::size_t blocks, bool isStart,
            Shorts /*units*/) const {
    repeatPixels<L>(rows, rgba, blocks, isStart);
  }

 private:
  Woven<L> pixels(Shorts units) const {
    return woven<L>([&](std::size_t c) { return scaled(units, channels_[c]); });
  }

  Shorts channels_[4];
};

template <typename L>
class Blender {
 public:
  using Shorts = typename L::Shorts;
  static constexpr bool kRepeats = false;
  Blender(const SolidColor& first, const SolidColor& second)
      : ink_(first, second),
        writer_(first, second),
        isOpaque_(first.isOpaque() && second.isOpaque()) {}
  Blender(std::uint32_t first, std::uint32_t second)
      : Blender(solidColor(first), solidColor(second)) {}
  template <typename Rows>
  void paint(const Rows& rows, std::uint8_t* rgba, Shorts units) const {
    if (!isZero(units)) paintAny(rows, rgba, units);
  }
  template <typename Rows>
  void paintAny(const Rows& rows, std::uint8_t* rgba, Shorts units) const {
    const Woven<L> below = rows.read(rgba);
    const Shorts covered = fractions(units);
    rows.write(rgba, {ink_.over(weaveLow(covered, covered), below.a),
                      ink_.over(weaveHigh(covered, covered), below.b)});
  }
  template <typename Rows>
  void goOn(const Rows& rows, std::uint8_t* rgba, std::size_t blocks, bool /*isStart*/,
            Shorts units) const {
    if (isZero(units)) return;
    const bool isFull = isZero(units - Shorts::every(kUnitsPerPixel));
    for (std::size_t at = 0; at < blocks * kBlock; at += Rows::kPixels) {
      if (isOpaque_ && isFull) {
        writer_.paint(rows, rgba + at * 4, units);
      } else {
        paint(rows, rgba + at * 4, units);
      }
    }
  }

 private:
  Ink<L> ink_;
  ColorWriter<L> writer_;
  bool isOpaque_;
};

/// `painterOf(layout, y)` gives what row `y`, or that and the next, are painted with.
template <typename L, typename PainterOf>
void paintCells(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                const PainterOf& painterOf) {
  withRule(rows.rule, [&](auto rule) {
    const auto shapeOf = [&](const auto& layout, std::size_t y) {
      return ShapeUnits<L, rule(), std::decay_t<decltype(layout)>>(rows, y);
    };
    run<L>([&] {
      paintShape<L>({rgba, rowBytes, rows.rows, rows.width, rows.touched != nullptr}, shapeOf,
                    painterOf);
    });
  });
}

/// A colour for each row.
template <typename Painter>
auto byRow(const std::uint32_t* colors) {
  return [colors](const auto& rows, std::size_t y) {
    return Painter(colors[y], colors[y + rows.kRows - 1]);
  };
}

template <typename L>
void writeCells(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                const SolidColor& color) {
  paintCells<L>(rgba, rowBytes, rows, evenly(ColorWriter<L>(color, color)));
}

template <typename L>
void blendCells(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                const SolidColor& color) {
  paintCells<L>(rgba, rowBytes, rows, evenly(Blender<L>(color, color)));
}

template <typename L>
void writeCellsByRow(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                     const std::uint32_t* colors) {
  paintCells<L>(rgba, rowBytes, rows, byRow<ColorWriter<L>>(colors));
}

template <typename L>
void blendCellsByRow(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                     const std::uint32_t* colors) {
  paintCells<L>(rgba, rowBytes, rows, byRow<Blender<L>>(colors));
}

}  // namespace
}  // namespace glyphwright::raster::loops
