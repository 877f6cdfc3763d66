#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include <glyphwright/platform/raster/kernels/inks.h>
#include <glyphwright/platform/raster/kernels/row_painter.h>

/// Two shapes, one over the other, in one pass over the pixels, which stay in registers between the
/// two.
namespace glyphwright::raster::loops {
namespace {

template <typename L>
struct TwoUnits {
  typename L::Shorts below;
  typename L::Shorts above;
};

/// The coverage of two shapes in the same pixels.
template <typename L, typename Below, typename Above>
class TwoShapes {
 public:
  using Units = TwoUnits<L>;
  struct Block {
    Units first;
    Units second;
  };

  TwoShapes(const CellRows& below, const CellRows& above, std::size_t y)
      : below_(below, y), above_(above, y) {}

  Units next() { return {below_.next(), above_.next()}; }
  template <typename End>
  Units next(const End& end) {
    return {below_.next(end), above_.next(end)};
  }
  Block nextBlock() {
    const auto below = below_.nextBlock();
    const auto above = above_.nextBlock();
    return {{below.first, above.first}, {below.second, above.second}};
  }
  Units last() const { return {below_.last(), above_.last()}; }
  void skip(std::size_t blocks) {
    below_.skip(blocks);
    above_.skip(blocks);
  }
  void clearRest() {
    below_.clearRest();
    above_.clearRest();
  }
  std::uint64_t touched(std::size_t from, std::size_t count) const {
    return below_.touched(from, count) | above_.touched(from, count);
  }

 private:
  Below below_;
  Above above_;
};

/// One channel of sixteen pixels a register.
template <typename L>
class TwoInks {
 public:
  using Shorts = typename L::Shorts;
  using Units = TwoUnits<L>;
  static constexpr bool kRepeats = true;
  TwoInks(const SolidColor& below, const SolidColor& above) : above_(above) {
    for (std::size_t c = 0; c < 4; ++c) {
      below_[c] = Shorts::every(static_cast<std::int16_t>(below.channels[c] >> 1));
    }
  }
  template <typename Rows>
  void paint(const Rows& rows, std::uint8_t* rgba, const Units& units) const {
    rows.write(rgba, pixels(units));
  }
  template <typename Rows>
  void paintAny(const Rows& rows, std::uint8_t* rgba, const Units& units) const {
    paint(rows, rgba, units);
  }
  template <typename Rows>
  void goOn(const Rows& rows, std::uint8_t* rgba, std::size_t blocks, bool isStart,
            const Units& /*units*/) const {
    repeatPixels<L>(rows, rgba, blocks, isStart);
  }
  template <typename Block>
  void paintBlock(const TwoRows<L>& rows, std::uint8_t* rgba, const Block& units) const {
    rows.writeBlock(rgba, pixels(units.first), pixels(units.second));
  }

 private:
  Woven<L> pixels(const Units& units) const {
    const Shorts coverage = fractions(units.above);
    const Shorts rest = above_.rest(coverage);
    return woven<L>([&](std::size_t c) {
      return above_.over(c, coverage, shiftLeft<6>(scaled(units.below, below_[c])), rest);
    });
  }

  Shorts below_[4];
  Channels<L> above_;
};

template <typename L>
void writeTwoCells(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& below,
                   const CellRows& above, const SolidColor& belowColor,
                   const SolidColor& aboveColor) {
  withRule(below.rule, [&](auto rule) {
    const auto shapesOf = [&](const auto& layout, std::size_t y) {
      using Rows = std::decay_t<decltype(layout)>;
      using Above = ShapeUnits<L, FillRule::nonZero, Rows>;
      return TwoShapes<L, ShapeUnits<L, rule(), Rows>, Above>(below, above, y);
    };
    const bool isMarked = below.touched != nullptr && above.touched != nullptr;
    run<L>([&] {
      paintShape<L>({rgba, rowBytes, below.rows, below.width, isMarked}, shapesOf,
                    evenly(TwoInks<L>(belowColor, aboveColor)));
    });
  });
}

}  // namespace
}  // namespace glyphwright::raster::loops
