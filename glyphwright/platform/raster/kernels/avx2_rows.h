#pragma once

#include <immintrin.h>

#include <cstddef>
#include <cstdint>

#include <glyphwright/platform/raster/kernels/avx2_lanes.h>

/// How sixteen lanes lie over rows of cells: sixteen cells of one row, or eight of two rows, where
/// no sum has to cross from half to half of a register.
namespace glyphwright::raster::avx2 {

/// Pixels as two registers in which each half holds four pixels in a row: of `a` come those of the
/// lower four lanes of either half, of `b` those of the upper four.
struct WovenPixels {
  __m256i a;
  __m256i b;
};

/// Running sums of sixteen lanes after another. Only one addition waits for the block before.
class OneRowSums {
 public:
  explicit OneRowSums(int carry = 0) : before_(_mm256_set1_epi16(static_cast<short>(carry))) {}

  __m256i next(__m256i v) {
    v = _mm256_add_epi16(v, _mm256_slli_si256(v, 2));
    v = _mm256_add_epi16(v, _mm256_slli_si256(v, 4));
    v = _mm256_add_epi16(v, _mm256_slli_si256(v, 8));
    // The upper half goes on from the lower half's total.
    const __m256i totals = _mm256_shuffle_epi8(v, _mm256_set1_epi16(0x0F0E));
    const __m256i lower = _mm256_permute2x128_si256(totals, totals, 0x08);
    const __m256i swapped = _mm256_permute2x128_si256(totals, totals, 0x01);
    const __m256i sums = _mm256_add_epi16(_mm256_add_epi16(v, lower), before_);
    before_ = _mm256_add_epi16(before_, _mm256_add_epi16(totals, swapped));
    return sums;
  }
  /// The sum of all so far, in every lane.
  __m256i sum() const { return before_; }

 private:
  __m256i before_;
};

/// The same for two rows, each in its own half.
class TwoRowSums {
 public:
  __m256i next(__m256i v) {
    v = _mm256_add_epi16(v, _mm256_slli_si256(v, 2));
    v = _mm256_add_epi16(v, _mm256_slli_si256(v, 4));
    v = _mm256_add_epi16(v, _mm256_slli_si256(v, 8));
    const __m256i sums = _mm256_add_epi16(v, before_);
    before_ = _mm256_shuffle_epi8(sums, _mm256_set1_epi16(0x0F0E));
    return sums;
  }
  __m256i sum() const { return before_; }

 private:
  __m256i before_ = _mm256_setzero_si256();
};

/// Sixteen pixels of one row.
struct OneRow {
  static constexpr std::size_t kRows = 1;
  static constexpr std::size_t kPixels = 16;
  using Sums = OneRowSums;

  /// Takes cells and leaves zeros.
  static __m256i take(std::int16_t* cells, std::size_t /*stride*/) {
    const __m256i taken = load(cells);
    store(cells, _mm256_setzero_si256());
    return taken;
  }
  static void write(std::uint8_t* rgba, const WovenPixels& p) {
    store(rgba, _mm256_permute2x128_si256(p.a, p.b, 0x20));
    store(rgba + 32, _mm256_permute2x128_si256(p.a, p.b, 0x31));
  }
  static WovenPixels read(const std::uint8_t* rgba) {
    const __m256i low = load(rgba);
    const __m256i high = load(rgba + 32);
    return {_mm256_permute2x128_si256(low, high, 0x20), _mm256_permute2x128_si256(low, high, 0x31)};
  }

  std::size_t rowBytes;
};

/// Less than sixteen pixels at the end of a row: nothing beyond them is read or written.
class OneRowEnd {
 public:
  explicit OneRowEnd(std::size_t pixels) : end_(pixels) {}

  static __m256i cut(__m256i units) { return units; }
  void write(std::uint8_t* rgba, const WovenPixels& p) const {
    end_.storeBytes(rgba, {_mm256_permute2x128_si256(p.a, p.b, 0x20),
                           _mm256_permute2x128_si256(p.a, p.b, 0x31)});
  }
  WovenPixels read(const std::uint8_t* rgba) const {
    const auto [low, high] = end_.loadBytes(rgba);
    return {_mm256_permute2x128_si256(low, high, 0x20), _mm256_permute2x128_si256(low, high, 0x31)};
  }

 private:
  RowEnd end_;
};

/// Eight pixels of a row, and the same eight of the row below.
struct TwoRows {
  static constexpr std::size_t kRows = 2;
  static constexpr std::size_t kPixels = 8;
  using Sums = TwoRowSums;

  static __m256i take(std::int16_t* cells, std::size_t stride) {
    auto* upper = reinterpret_cast<__m128i*>(cells);
    auto* lower = reinterpret_cast<__m128i*>(cells + stride);
    const __m256i taken = _mm256_loadu2_m128i(lower, upper);
    _mm_storeu_si128(upper, _mm_setzero_si128());
    _mm_storeu_si128(lower, _mm_setzero_si128());
    return taken;
  }
  void write(std::uint8_t* rgba, const WovenPixels& p) const {
    const auto at = [](std::uint8_t* pixels) { return reinterpret_cast<__m128i*>(pixels); };
    // In an image that is narrower than a stretch, the upper row's end is the lower row's start:
    // that one is stored last.
    _mm256_storeu2_m128i(at(rgba + rowBytes + 16), at(rgba + 16), p.b);
    _mm256_storeu2_m128i(at(rgba + rowBytes), at(rgba), p.a);
  }
  /// A block of both rows in two stretches, for half the loads and stores of one after the other.
  struct Block {
    __m256i first;
    __m256i second;
  };
  static Block takeBlock(std::int16_t* cells, std::size_t stride) {
    const __m256i upper = OneRow::take(cells, stride);
    const __m256i lower = OneRow::take(cells + stride, stride);
    return {_mm256_permute2x128_si256(upper, lower, 0x20),
            _mm256_permute2x128_si256(upper, lower, 0x31)};
  }
  void writeBlock(std::uint8_t* rgba, const WovenPixels& first, const WovenPixels& second) const {
    store(rgba, _mm256_permute2x128_si256(first.a, first.b, 0x20));
    store(rgba + 32, _mm256_permute2x128_si256(second.a, second.b, 0x20));
    store(rgba + rowBytes, _mm256_permute2x128_si256(first.a, first.b, 0x31));
    store(rgba + rowBytes + 32, _mm256_permute2x128_si256(second.a, second.b, 0x31));
  }
  WovenPixels read(const std::uint8_t* rgba) const {
    const auto at = [](const std::uint8_t* p) { return reinterpret_cast<const __m128i*>(p); };
    return {_mm256_loadu2_m128i(at(rgba + rowBytes), at(rgba)),
            _mm256_loadu2_m128i(at(rgba + rowBytes + 16), at(rgba + 16))};
  }

  std::size_t rowBytes;
};

/// Less than eight pixels at the end of two rows. What lies beyond a row's end, which may be the
/// start of the row that follows, stays.
class TwoRowsEnd : public TwoRows {
 public:
  TwoRowsEnd(const TwoRows& rows, std::size_t pixels) : TwoRows(rows) {
    const __m256i lanes = firstLanes(pixels);
    covered_ = _mm256_permute2x128_si256(lanes, lanes, 0x00);
    const __m256i inRow = firstPixels(pixels);
    written_ = {_mm256_permute2x128_si256(inRow, inRow, 0x00),
                _mm256_permute2x128_si256(inRow, inRow, 0x11)};
  }

  __m256i cut(__m256i units) const { return _mm256_and_si256(units, covered_); }
  void write(std::uint8_t* rgba, const WovenPixels& p) const {
    const WovenPixels before = read(rgba);
    TwoRows::write(rgba, {_mm256_blendv_epi8(before.a, p.a, written_.a),
                          _mm256_blendv_epi8(before.b, p.b, written_.b)});
  }

 private:
  __m256i covered_;
  WovenPixels written_;
};

}  // namespace glyphwright::raster::avx2
