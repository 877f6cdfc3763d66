#include <glyphwright/platform/raster/kernels/avx2.h>

#include <type_traits>

#include <glyphwright/platform/raster/kernels/avx2_lanes.h>
#include <glyphwright/platform/raster/kernels/avx2_row_painter.h>

// Two shapes, one over the other, in one pass over the pixels, which stay in registers between the
// two; scalar_pixels.cpp says what is computed.
namespace glyphwright::raster::avx2 {
namespace {

struct TwoUnits {
  __m256i below;
  __m256i above;
};

// The coverage of two shapes in the same pixels.
template <typename Below, typename Above>
class TwoShapes {
 public:
  using Units = TwoUnits;
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
    const TwoRows::Block below = below_.nextBlock();
    const TwoRows::Block above = above_.nextBlock();
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

// One channel of sixteen pixels a register.
class TwoInks {
 public:
  static constexpr bool kRepeats = true;
  TwoInks(const SolidColor& below, const SolidColor& above) : alpha_(everyLane(above.alpha)) {
    for (int c = 0; c < 4; ++c) {
      below_[c] = everyLane(below.channels[c] >> 1);
      above_[c] = everyLane(above.channels[c]);
    }
  }
  template <typename Rows>
  void paint(const Rows& rows, std::uint8_t* rgba, const TwoUnits& units) const {
    rows.write(rgba, pixels(units));
  }
  template <typename Rows>
  void paintAny(const Rows& rows, std::uint8_t* rgba, const TwoUnits& units) const {
    paint(rows, rgba, units);
  }
  template <typename Rows>
  void goOn(const Rows& rows, std::uint8_t* rgba, std::size_t blocks, bool isStart,
            const TwoUnits& /*units*/) const {
    repeatPixels(rows, rgba, blocks, isStart);
  }
  template <typename Block>
  void paintBlock(const TwoRows& rows, std::uint8_t* rgba, const Block& units) const {
    rows.writeBlock(rgba, pixels(units.first), pixels(units.second));
  }

 private:
  WovenPixels pixels(const TwoUnits& units) const {
    const __m256i coverage = fractions(units.above);
    const __m256i rest = _mm256_sub_epi16(everyLane(kOne), _mm256_mulhrs_epi16(alpha_, coverage));
    const auto channel = [&](int c) {
      const __m256i byte = _mm256_mulhrs_epi16(units.below, below_[c]);
      const __m256i seen = _mm256_mulhrs_epi16(_mm256_slli_epi16(byte, 6), rest);
      return rounded(_mm256_add_epi16(_mm256_mulhrs_epi16(above_[c], coverage), seen));
    };
    const __m256i rg = _mm256_or_si256(channel(0), _mm256_slli_epi16(channel(1), 8));
    const __m256i ba = _mm256_or_si256(channel(2), _mm256_slli_epi16(channel(3), 8));
    return {_mm256_unpacklo_epi16(rg, ba), _mm256_unpackhi_epi16(rg, ba)};
  }

  __m256i below_[4];
  __m256i above_[4];
  __m256i alpha_;
};

}  // namespace

void writeTwoCells(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& below,
                   const CellRows& above, const SolidColor& belowColor,
                   const SolidColor& aboveColor) {
  withRule(below.rule, [&](auto belowRule) {
    withRule(above.rule, [&](auto aboveRule) {
      const auto shapesOf = [&](const auto& layout, std::size_t y) {
        using Rows = std::decay_t<decltype(layout)>;
        using Shapes = TwoShapes<ShapeUnits<belowRule(), Rows>, ShapeUnits<aboveRule(), Rows>>;
        return Shapes(below, above, y);
      };
      const bool isMarked = below.touched != nullptr && above.touched != nullptr;
      paintShape({rgba, rowBytes, below.rows, below.width, isMarked}, shapesOf,
                 evenly(TwoInks(belowColor, aboveColor)));
    });
  });
}

}  // namespace glyphwright::raster::avx2
