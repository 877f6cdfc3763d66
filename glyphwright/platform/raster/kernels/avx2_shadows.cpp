#include <glyphwright/platform/raster/kernels/avx2.h>

#include <glyphwright/platform/raster/kernels/avx2_lanes.h>

// Rows of shadows and of what casts them in one pass over the pixels, one channel of sixteen pixels
// a register; scalar_pixels.cpp says what each loop computes.
namespace glyphwright::raster::avx2 {
namespace {

// 1/64 levels, rounded to whole ones as bytes are.
__m256i wholeLevels(__m256i channels64) {
  return _mm256_and_si256(_mm256_add_epi16(channels64, everyLane(32)), everyLane(-64));
}

// Four channels of sixteen pixels, as bytes in 16-bit lanes, woven into pixels.
PixelPair woven(const __m256i* levels) {
  const __m256i rg = _mm256_or_si256(levels[0], _mm256_slli_epi16(levels[1], 8));
  const __m256i ba = _mm256_or_si256(levels[2], _mm256_slli_epi16(levels[3], 8));
  const __m256i a = _mm256_unpacklo_epi16(rg, ba);
  const __m256i b = _mm256_unpackhi_epi16(rg, ba);
  return {_mm256_permute2x128_si256(a, b, 0x20), _mm256_permute2x128_si256(a, b, 0x31)};
}

// A colour, one channel a register.
struct Channels {
  explicit Channels(const SolidColor& color) : alpha(everyLane(color.alpha)) {
    for (int c = 0; c < 4; ++c) channels[c] = everyLane(color.channels[c]);
  }
  // Over nothing, in 1/64 levels, from channel `first` on.
  void alone(__m256i* levels, __m256i coverage, int first) const {
    for (int c = first; c < 4; ++c) levels[c] = _mm256_mulhrs_epi16(channels[c], coverage);
  }
  // Over whole levels in 1/64, which become the bytes of both. There is nothing in those of
  // channels before `first`.
  void over(__m256i* levels, __m256i coverage, int first = 0) const {
    const __m256i covered = _mm256_mulhrs_epi16(alpha, coverage);
    for (int c = 0; c < first; ++c) {
      levels[c] = rounded(_mm256_mulhrs_epi16(channels[c], coverage));
    }
    for (int c = first; c < 4; ++c) {
      levels[c] =
          rounded(avx2::over(_mm256_mulhrs_epi16(channels[c], coverage), covered, levels[c]));
    }
  }

  __m256i channels[4];
  __m256i alpha;
};

// Down the rows, sixteen pixels at a time: where the upper colour shows is the same in all of them.
// Of the lower colour nothing is in the channels before `first`.
template <int first>
void writeOver(std::uint8_t* rgba, std::size_t rowBytes, const TwoCoverages& coverages,
               const SolidColor& belowColor, const SolidColor& aboveColor) {
  const TwoCoverages& c = coverages;
  const Channels lower(belowColor);
  const Channels upper(aboveColor);
  inWholeStretches(c.count, [&](auto stretch, std::size_t at) {
    std::uint8_t* to = rgba + at * 4;
    const std::uint16_t* below = c.below + at;
    __m256i levels[4] = {};
    if (at + kBlock <= c.from || at >= c.until) {
      for (std::size_t row = 0; row < c.rows; ++row, below += c.belowStride, to += rowBytes) {
        lower.alone(levels, stretch.loadCoverage(below), first);
        for (int k = first; k < 4; ++k) levels[k] = rounded(levels[k]);
        stretch.storeBytes(to, woven(levels));
      }
      return;
    }
    const __m256i shows =
        _mm256_andnot_si256(firstLanes(at < c.from ? c.from - at : 0), firstLanes(c.until - at));
    const std::uint16_t* above =
        c.above + (static_cast<std::ptrdiff_t>(at) - static_cast<std::ptrdiff_t>(c.from));
    for (std::size_t row = 0; row < c.rows; ++row) {
      lower.alone(levels, stretch.loadCoverage(below), first);
      for (int k = first; k < 4; ++k) levels[k] = wholeLevels(levels[k]);
      upper.over(levels, _mm256_and_si256(load(above), shows), first);
      stretch.storeBytes(to, woven(levels));
      below += c.belowStride;
      above += c.aboveStride;
      to += rowBytes;
    }
  });
}

}  // namespace

// Most shadows are black: all that they have is alpha.
void writeTwoSolids(std::uint8_t* rgba, std::size_t rowBytes, const TwoCoverages& coverages,
                    const SolidColor& belowColor, const SolidColor& aboveColor) {
  const std::int16_t* channels = belowColor.channels;
  const bool isBlack = channels[0] == 0 && channels[1] == 0 && channels[2] == 0;
  const auto write = isBlack ? writeOver<3> : writeOver<0>;
  write(rgba, rowBytes, coverages, belowColor, aboveColor);
}

void writeInset(std::uint8_t* rgba, const InsetRow& row, std::size_t count, const SolidColor& color,
                const SolidColor& shade) {
  __m256i filled[4];
  for (int c = 0; c < 4; ++c) filled[c] = everyLane(color.channels[c] >> 1);
  const Channels upper(shade);
  inWholeStretches(count, [&](auto stretch, std::size_t at) {
    const __m256i around = stretch.loadCoverage(row.around + at);
    const __m256i units = _mm256_sub_epi16(
        everyLane(kUnitsPerPixel), _mm256_srli_epi16(_mm256_add_epi16(around, everyLane(1)), 5));
    __m256i levels[4];
    for (int c = 0; c < 4; ++c) {
      levels[c] = _mm256_slli_epi16(_mm256_mulhrs_epi16(filled[c], units), 6);
    }
    upper.over(levels, _mm256_mulhrs_epi16(stretch.loadCoverage(row.cast + at),
                                           stretch.loadCoverage(row.inside + at)));
    stretch.storeBytes(rgba + at * 4, woven(levels));
  });
}

}  // namespace glyphwright::raster::avx2
