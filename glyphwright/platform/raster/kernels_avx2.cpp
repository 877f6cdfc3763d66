#include <glyphwright/platform/raster/kernels_avx2.h>

#include <immintrin.h>

#include <cstring>

// Sixteen pixels at a time in 16-bit lanes; kernels_scalar.cpp says what each loop computes. The
// product with rounding shift that the arithmetic is built on is one instruction here.
namespace glyphwright::raster {
namespace {

__m256i load(const void* from) {
  return _mm256_loadu_si256(static_cast<const __m256i*>(from));
}
void store(void* to, __m256i value) {
  _mm256_storeu_si256(static_cast<__m256i*>(to), value);
}

// A 16-bit constant of eight bytes (one pixel of channels) in every 64-bit lane.
__m256i everyPixel(const std::int16_t* channels) {
  long long bits = 0;
  std::memcpy(&bits, channels, sizeof(bits));
  return _mm256_set1_epi64x(bits);
}

// Running sums of sixteen 16-bit lanes.
__m256i prefixSum(__m256i v) {
  v = _mm256_add_epi16(v, _mm256_slli_si256(v, 2));
  v = _mm256_add_epi16(v, _mm256_slli_si256(v, 4));
  v = _mm256_add_epi16(v, _mm256_slli_si256(v, 8));
  // The upper half goes on from the lower half's total.
  const __m256i lower = _mm256_permute2x128_si256(v, v, 0x08);
  const __m256i total = _mm256_shuffle_epi8(lower, _mm256_set1_epi16(0x0F0E));
  return _mm256_add_epi16(v, total);
}

// The sum so far in every lane.
__m256i carried(__m256i sums) {
  const __m256i top = _mm256_permute2x128_si256(sums, sums, 0x11);
  return _mm256_shuffle_epi8(top, _mm256_set1_epi16(0x0F0E));
}

template <FillRule rule>
__m256i foldWinding(__m256i sums) {
  const __m256i full = _mm256_set1_epi16(kUnitsPerPixel);
  __m256i units;
  if constexpr (rule == FillRule::nonZero) {
    units = _mm256_min_epi16(_mm256_abs_epi16(sums), full);
  } else {
    const __m256i phase = _mm256_and_si256(sums, _mm256_set1_epi16(2 * kUnitsPerPixel - 1));
    units = _mm256_min_epi16(phase, _mm256_sub_epi16(_mm256_set1_epi16(2 * kUnitsPerPixel), phase));
  }
  return _mm256_sub_epi16(_mm256_slli_epi16(units, 5), _mm256_srli_epi16(units, 10));
}

template <FillRule rule>
int sumNarrowBy(std::int16_t* cells, std::size_t count, int carry, std::uint16_t* coverage) {
  const __m256i zero = _mm256_setzero_si256();
  __m256i running = _mm256_set1_epi16(static_cast<short>(carry));
  for (std::size_t i = 0; i < count; i += kBlock) {
    const __m256i sums = _mm256_add_epi16(prefixSum(load(cells + i)), running);
    store(cells + i, zero);
    store(coverage + i, foldWinding<rule>(sums));
    running = carried(sums);
  }
  return static_cast<short>(_mm256_extract_epi16(running, 0));
}

int sumNarrow(std::int16_t* cells, std::size_t count, int carry, FillRule rule,
              std::uint16_t* coverage) {
  return rule == FillRule::nonZero ? sumNarrowBy<FillRule::nonZero>(cells, count, carry, coverage)
                                   : sumNarrowBy<FillRule::evenOdd>(cells, count, carry, coverage);
}

int sumWide(std::int32_t* cells, std::size_t count, int carry, FillRule rule,
            std::uint16_t* coverage) {
  return scalarKernels().sumWide(cells, count, carry, rule, coverage);
}

// The coverage of sixteen pixels repeated for their four channels: quads[k] holds pixels
// 2k, 2k+1 in its lower half and 8 + 2k, 9 + 2k in its upper half.
struct Quads {
  __m256i q[4];
};

Quads repeated(__m256i coverage) {
  const __m256i low = _mm256_unpacklo_epi16(coverage, coverage);
  const __m256i high = _mm256_unpackhi_epi16(coverage, coverage);
  return {{_mm256_unpacklo_epi32(low, low), _mm256_unpackhi_epi32(low, low),
           _mm256_unpacklo_epi32(high, high), _mm256_unpackhi_epi32(high, high)}};
}

__m256i rounded(__m256i channels64) {
  return _mm256_srai_epi16(_mm256_add_epi16(channels64, _mm256_set1_epi16(32)), 6);
}

struct PixelPair {
  __m256i low;  // pixels 0…7
  __m256i high;
};

// The channels of sixteen pixels, ordered as in Quads, as bytes.
PixelPair packed(const Quads& c) {
  const __m256i a = _mm256_packus_epi16(rounded(c.q[0]), rounded(c.q[1]));
  const __m256i b = _mm256_packus_epi16(rounded(c.q[2]), rounded(c.q[3]));
  return {_mm256_permute2x128_si256(a, b, 0x20), _mm256_permute2x128_si256(a, b, 0x31)};
}

// Sixteen pixels as 1/64 levels, ordered as in Quads.
Quads unpacked(__m256i low, __m256i high) {
  const __m256i zero = _mm256_setzero_si256();
  const __m256i a = _mm256_permute2x128_si256(low, high, 0x20);
  const __m256i b = _mm256_permute2x128_si256(low, high, 0x31);
  return {{_mm256_slli_epi16(_mm256_unpacklo_epi8(a, zero), 6),
           _mm256_slli_epi16(_mm256_unpackhi_epi8(a, zero), 6),
           _mm256_slli_epi16(_mm256_unpacklo_epi8(b, zero), 6),
           _mm256_slli_epi16(_mm256_unpackhi_epi8(b, zero), 6)}};
}

// Each pixel's alpha (in 1/64 levels) as a fraction in all four of its channels.
__m256i alphaFractions(__m256i channels64) {
  const __m256i spread = _mm256_set_epi8(15, 14, 15, 14, 15, 14, 15, 14, 7, 6, 7, 6, 7, 6, 7, 6, 15,
                                         14, 15, 14, 15, 14, 15, 14, 7, 6, 7, 6, 7, 6, 7, 6);
  const __m256i alpha = _mm256_srli_epi16(_mm256_shuffle_epi8(channels64, spread), 6);
  return _mm256_add_epi16(_mm256_slli_epi16(alpha, 7), _mm256_srli_epi16(alpha, 1));
}

__m256i over(__m256i source, __m256i alpha, __m256i below) {
  const __m256i rest = _mm256_sub_epi16(_mm256_set1_epi16(kOne), alpha);
  return _mm256_add_epi16(source, _mm256_mulhrs_epi16(below, rest));
}

// A mask for the first `count` of eight pixels.
__m256i firstPixels(std::size_t count) {
  alignas(32) static constexpr std::int32_t bits[16] = {-1, -1, -1, -1, -1, -1, -1, -1};
  return load(bits + 8 - (count < 8 ? count : 8));
}

// Less than sixteen pixels at the end of a row: nothing beyond them is read or written.
struct RowEnd {
  explicit RowEnd(std::size_t pixels)
      : count(pixels),
        first(firstPixels(pixels)),
        second(firstPixels(pixels < 8 ? 0 : pixels - 8)) {}

  Quads loadPixels(const std::uint8_t* rgba) const {
    const auto* from = reinterpret_cast<const int*>(rgba);
    return unpacked(_mm256_maskload_epi32(from, first), _mm256_maskload_epi32(from + 8, second));
  }
  void storePixels(std::uint8_t* rgba, const Quads& c) const {
    const auto [low, high] = packed(c);
    auto* to = reinterpret_cast<int*>(rgba);
    _mm256_maskstore_epi32(to, first, low);
    _mm256_maskstore_epi32(to + 8, second, high);
  }
  __m256i loadCoverage(const std::uint16_t* coverage) const {
    alignas(32) std::uint16_t values[kBlock] = {};
    for (std::size_t i = 0; i < count; ++i) values[i] = coverage[i];
    return load(values);
  }

  std::size_t count;
  __m256i first;
  __m256i second;
};

// Sixteen pixels in the middle of a row, with the same words.
struct Stretch {
  Quads loadPixels(const std::uint8_t* rgba) const { return unpacked(load(rgba), load(rgba + 32)); }
  void storePixels(std::uint8_t* rgba, const Quads& c) const {
    const auto [low, high] = packed(c);
    store(rgba, low);
    store(rgba + 32, high);
  }
  __m256i loadCoverage(const std::uint16_t* coverage) const { return load(coverage); }
};

// Runs `step(stretch, at)` over a row, sixteen pixels at a time.
template <typename Step>
void inStretches(std::size_t count, Step step) {
  std::size_t at = 0;
  for (; at + kBlock <= count; at += kBlock) step(Stretch{}, at);
  if (at < count) step(RowEnd(count - at), at);
}

// A colour ready for sixteen pixels.
struct Ink {
  explicit Ink(const SolidColor& color)
      : channels(everyPixel(color.channels)),
        alpha(_mm256_set1_epi16(color.alpha)),
        isOpaque(color.isOpaque()) {}

  Quads covered(__m256i coverage) const {
    Quads c = repeated(coverage);
    for (__m256i& q : c.q) q = _mm256_mulhrs_epi16(channels, q);
    return c;
  }
  Quads coveredOver(__m256i coverage, const Quads& below) const {
    Quads c = repeated(coverage);
    for (int k = 0; k < 4; ++k) {
      c.q[k] = over(_mm256_mulhrs_epi16(channels, c.q[k]), _mm256_mulhrs_epi16(alpha, c.q[k]),
                    below.q[k]);
    }
    return c;
  }
  // Eight pixels of one coverage.
  __m256i evenly(__m256i coverage) const {
    const __m256i q = rounded(_mm256_mulhrs_epi16(channels, coverage));
    return _mm256_packus_epi16(q, q);
  }

  __m256i channels;
  __m256i alpha;
  bool isOpaque;
};

bool isZero(__m256i v) {
  return _mm256_testz_si256(v, v) != 0;
}

void writeSolid(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                const SolidColor& color) {
  const Ink ink(color);
  inStretches(count, [&](auto stretch, std::size_t at) {
    stretch.storePixels(rgba + at * 4, ink.covered(stretch.loadCoverage(coverage + at)));
  });
}

void blendSolid(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                const SolidColor& color) {
  const Ink ink(color);
  inStretches(count, [&](auto stretch, std::size_t at) {
    const __m256i covered = stretch.loadCoverage(coverage + at);
    if (isZero(covered)) return;
    std::uint8_t* pixels = rgba + at * 4;
    stretch.storePixels(pixels, ink.coveredOver(covered, stretch.loadPixels(pixels)));
  });
}

void writePixels(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                 const std::uint8_t* source) {
  inStretches(count, [&](auto stretch, std::size_t at) {
    Quads c = repeated(stretch.loadCoverage(coverage + at));
    const Quads above = stretch.loadPixels(source + at * 4);
    for (int k = 0; k < 4; ++k) c.q[k] = _mm256_mulhrs_epi16(above.q[k], c.q[k]);
    stretch.storePixels(rgba + at * 4, c);
  });
}

void blendPixels(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                 const std::uint8_t* source) {
  inStretches(count, [&](auto stretch, std::size_t at) {
    const __m256i covered = stretch.loadCoverage(coverage + at);
    if (isZero(covered)) return;
    Quads c = repeated(covered);
    std::uint8_t* pixels = rgba + at * 4;
    const Quads above = stretch.loadPixels(source + at * 4);
    const Quads below = stretch.loadPixels(pixels);
    for (int k = 0; k < 4; ++k) {
      const __m256i alpha = _mm256_mulhrs_epi16(alphaFractions(above.q[k]), c.q[k]);
      c.q[k] = over(_mm256_mulhrs_epi16(above.q[k], c.q[k]), alpha, below.q[k]);
    }
    stretch.storePixels(pixels, c);
  });
}

template <FillRule rule, typename Painter>
void paintRow(std::int16_t* cells, const std::uint8_t* touched, std::size_t stride,
              std::size_t width, const RowEnd& end, const Painter& painter, std::uint8_t* rgba) {
  const __m256i zero = _mm256_setzero_si256();
  const std::size_t whole = width / kBlock;
  __m256i running = zero;
  std::size_t block = 0;
  while (block < whole) {
    if (touched != nullptr && touched[block] == 0) {
      const std::size_t from = block;
      while (block < whole && touched[block] == 0) ++block;
      painter.even(rgba + from * kBlock * 4, (block - from) * kBlock, foldWinding<rule>(running));
      continue;
    }
    std::int16_t* at = cells + block * kBlock;
    const __m256i sums = _mm256_add_epi16(prefixSum(load(at)), running);
    store(at, zero);
    painter.paint(Stretch{}, rgba + block * kBlock * 4, foldWinding<rule>(sums));
    running = carried(sums);
    ++block;
  }
  if (width % kBlock != 0) {
    const __m256i sums = _mm256_add_epi16(prefixSum(load(cells + block * kBlock)), running);
    painter.paint(end, rgba + block * kBlock * 4, foldWinding<rule>(sums));
  }
  for (std::size_t x = block * kBlock; x < stride; x += kBlock) store(cells + x, zero);
}

template <typename Painter>
void paintCells(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                const Painter& painter) {
  const std::uint8_t* touched = rows.touched;
  const RowEnd end(rows.width % kBlock);
  for (std::size_t row = 0; row < rows.rows; ++row) {
    std::int16_t* cells = rows.cells + row * rows.stride;
    if (rows.rule == FillRule::nonZero) {
      paintRow<FillRule::nonZero>(cells, touched, rows.stride, rows.width, end, painter, rgba);
    } else {
      paintRow<FillRule::evenOdd>(cells, touched, rows.stride, rows.width, end, painter, rgba);
    }
    rgba += rowBytes;
    if (touched != nullptr) touched += rows.stride / kBlock;
  }
}

struct Writer {
  template <typename S>
  void paint(const S& stretch, std::uint8_t* rgba, __m256i coverage) const {
    stretch.storePixels(rgba, ink.covered(coverage));
  }
  void even(std::uint8_t* rgba, std::size_t pixels, __m256i coverage) const {
    const __m256i eight = ink.evenly(coverage);
    for (std::size_t at = 0; at < pixels * 4; at += 32) store(rgba + at, eight);
  }
  Ink ink;
};

struct Blender {
  template <typename S>
  void paint(const S& stretch, std::uint8_t* rgba, __m256i coverage) const {
    if (isZero(coverage)) return;
    stretch.storePixels(rgba, ink.coveredOver(coverage, stretch.loadPixels(rgba)));
  }
  void even(std::uint8_t* rgba, std::size_t pixels, __m256i coverage) const {
    if (isZero(coverage)) return;
    if (ink.isOpaque && _mm256_extract_epi16(coverage, 0) == kOne) {
      Writer{ink}.even(rgba, pixels, coverage);
      return;
    }
    for (std::size_t at = 0; at < pixels; at += kBlock) paint(Stretch{}, rgba + at * 4, coverage);
  }
  Ink ink;
};

void writeCells(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                const SolidColor& color) {
  paintCells(rgba, rowBytes, rows, Writer{Ink(color)});
}

void blendCells(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                const SolidColor& color) {
  paintCells(rgba, rowBytes, rows, Blender{Ink(color)});
}

// Eight samples at a time; the last eight may run past the curve's end.
int sampleCurve(const double* points, const CurveFrame& frame, float* xs, std::int32_t* ys) {
  // x and y of two points a register.
  const __m256d corner = _mm256_setr_pd(frame.left, frame.top, frame.left, frame.top);
  const __m128 p01 = _mm256_cvtpd_ps(_mm256_sub_pd(_mm256_loadu_pd(points), corner));
  const __m128 p23 = _mm256_cvtpd_ps(_mm256_sub_pd(_mm256_loadu_pd(points + 4), corner));
  const __m128 p12 = _mm_shuffle_ps(p01, p23, _MM_SHUFFLE(1, 0, 3, 2));
  const __m128 uv = _mm_add_ps(_mm_sub_ps(p01, _mm_mul_ps(_mm_set1_ps(2), p12)), p23);
  const __m128 squares = _mm_mul_ps(uv, uv);
  const __m128 sums =
      _mm_add_ps(squares, _mm_shuffle_ps(squares, squares, _MM_SHUFFLE(2, 3, 0, 1)));
  const __m128 bendSquare = _mm_max_ss(sums, _mm_movehl_ps(sums, sums));
  const __m128 chords =
      _mm_sqrt_ss(_mm_sqrt_ss(_mm_mul_ss(bendSquare, _mm_set_ss(frame.chordFactor))));
  const float wanted = _mm_cvtss_f32(chords);
  const int count = wanted < kMaxChords - 1 ? static_cast<int>(wanted) + 1 : kMaxChords;

  const float h = 1.0F / static_cast<float>(count);
  const __m128 lift = _mm_set1_ps(h * h * 0.5F);
  const __m128 a = _mm_sub_ps(_mm_movehl_ps(uv, uv), uv);
  const __m128 b = _mm_mul_ps(_mm_set1_ps(3), uv);
  const __m128 c =
      _mm_sub_ps(_mm_mul_ps(_mm_set1_ps(3), _mm_sub_ps(p12, p01)), _mm_mul_ps(a, lift));
  const __m128 start = _mm_sub_ps(p01, _mm_mul_ps(uv, lift));
  const auto xOf = [](__m128 v) { return _mm256_broadcastss_ps(v); };
  const auto yOf = [](__m128 v) { return _mm256_broadcastss_ps(_mm_movehdup_ps(v)); };
  const auto at = [](__m256 t, __m256 c3, __m256 c2, __m256 c1, __m256 c0) {
    const __m256 high = _mm256_add_ps(_mm256_mul_ps(c3, t), c2);
    return _mm256_add_ps(_mm256_mul_ps(_mm256_add_ps(_mm256_mul_ps(high, t), c1), t), c0);
  };
  const __m256 ax = xOf(a), bx = xOf(b), cx = xOf(c), sx = xOf(start);
  const __m256 ay = yOf(a), by = yOf(b), cy = yOf(c), sy = yOf(start);
  const __m256 width = _mm256_set1_ps(frame.width);
  const __m256i height = _mm256_set1_epi32(frame.height);
  __m256i number = _mm256_setr_epi32(1, 2, 3, 4, 5, 6, 7, 8);
  for (int k = 0; k < count; k += 8) {
    const __m256 t = _mm256_mul_ps(_mm256_cvtepi32_ps(number), _mm256_set1_ps(h));
    number = _mm256_add_epi32(number, _mm256_set1_epi32(8));
    const __m256 x = at(t, ax, bx, cx, sx);
    const __m256 y = _mm256_mul_ps(at(t, ay, by, cy, sy), _mm256_set1_ps(kUnitsPerPixel));
    const __m256i units = _mm256_cvttps_epi32(_mm256_add_ps(y, _mm256_set1_ps(0.5F)));
    _mm256_storeu_ps(xs + k, _mm256_min_ps(_mm256_max_ps(x, _mm256_setzero_ps()), width));
    store(ys + k, _mm256_min_epi32(_mm256_max_epi32(units, _mm256_setzero_si256()), height));
  }
  return count;
}

// What cutting needs to know of eight edges, each running down.
struct EdgeGroup {
  explicit EdgeGroup(const EdgeRows& rows) {
    const std::size_t left = rows.count - rows.next;
    const Edge* edges = rows.edges + rows.next;
    Edge rest[8];
    if (left < 8) {
      for (std::size_t i = 0; i < 8; ++i) rest[i] = edges[i < left ? i : 0];
      edges = rest;
    }
    count = left < 8 ? left : 8;
    // Edges i and i + 4 in one register; then all x0, all x1, all y0, all y1.
    const auto pair = [&](int i) { return _mm256_loadu2_m128(&edges[i + 4].x0, &edges[i].x0); };
    const __m256 x01 = _mm256_unpacklo_ps(pair(0), pair(1));
    const __m256 y01 = _mm256_unpackhi_ps(pair(0), pair(1));
    const __m256 x23 = _mm256_unpacklo_ps(pair(2), pair(3));
    const __m256 y23 = _mm256_unpackhi_ps(pair(2), pair(3));
    const __m256 xFrom = _mm256_shuffle_ps(x01, x23, _MM_SHUFFLE(1, 0, 1, 0));
    const __m256 xTo = _mm256_shuffle_ps(x01, x23, _MM_SHUFFLE(3, 2, 3, 2));
    const __m256i top = _mm256_set1_epi32(rows.top);
    const auto units = [&](__m256 v) { return _mm256_sub_epi32(_mm256_castps_si256(v), top); };
    const __m256i yFrom = units(_mm256_shuffle_ps(y01, y23, _MM_SHUFFLE(1, 0, 1, 0)));
    const __m256i yTo = units(_mm256_shuffle_ps(y01, y23, _MM_SHUFFLE(3, 2, 3, 2)));
    const __m256i rises = _mm256_cmpgt_epi32(yFrom, yTo);
    const __m256 upper = _mm256_blendv_ps(xFrom, xTo, _mm256_castsi256_ps(rises));
    const __m256 lower = _mm256_blendv_ps(xTo, xFrom, _mm256_castsi256_ps(rises));
    const __m256i yUpper = _mm256_min_epi32(yFrom, yTo);
    const __m256i yLower = _mm256_max_epi32(yFrom, yTo);
    const __m256 height = _mm256_cvtepi32_ps(_mm256_sub_epi32(yLower, yUpper));
    _mm256_storeu_ps(x0, upper);
    _mm256_storeu_ps(x1, lower);
    _mm256_storeu_ps(slope, _mm256_div_ps(_mm256_sub_ps(lower, upper), height));
    store(y0, yUpper);
    store(y1, yLower);
    store(sign, _mm256_or_si256(rises, _mm256_set1_epi32(1)));
    const __m256i one = _mm256_set1_epi32(1);
    store(first, _mm256_max_epi32(_mm256_srai_epi32(yUpper, kUnitShift), _mm256_setzero_si256()));
    store(last, _mm256_min_epi32(_mm256_srai_epi32(_mm256_sub_epi32(yLower, one), kUnitShift),
                                 _mm256_set1_epi32(rows.rows - 1)));
  }

  std::size_t count;
  float x0[8];
  float x1[8];
  float slope[8];
  std::int32_t y0[8];
  std::int32_t y1[8];
  std::int32_t sign[8];
  std::int32_t first[8];  // row
  std::int32_t last[8];
};

__m256i everyLane(const std::int32_t& value) {
  return _mm256_set1_epi32(value);
}

// Eight rows at a time: most edges of small shapes end within them, so there is no loop whose end
// the processor could guess wrong. Pieces beyond the edge's end are overwritten by the next edge.
void cutEdges(EdgeRows& rows, Pieces& p) {
  const __m256i steps = _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7);
  const __m256i strides = _mm256_mullo_epi32(steps, _mm256_set1_epi32(rows.stride));
  const __m256i depths = _mm256_slli_epi32(steps, kUnitShift);
  std::size_t count = 0;
  while (rows.next < rows.count) {
    const EdgeGroup group(rows);
    for (std::size_t e = 0; e < group.count; ++e, ++rows.next, rows.nextRow = 0) {
      const __m256 x0 = _mm256_broadcast_ss(group.x0 + e);
      const __m256 x1 = _mm256_broadcast_ss(group.x1 + e);
      const __m256 slope = _mm256_broadcast_ss(group.slope + e);
      const __m256i upper = everyLane(group.y0[e]);
      const __m256i lower = everyLane(group.y1[e]);
      const __m256i sign = everyLane(group.sign[e]);
      const auto xAt = [&](__m256i y) {
        const __m256 depth = _mm256_cvtepi32_ps(_mm256_sub_epi32(y, upper));
        return _mm256_add_ps(x0, _mm256_mul_ps(depth, slope));
      };
      const int last = group.last[e];
      int row = group.first[e];
      if (row < rows.nextRow) row = rows.nextRow;
      for (; row <= last; row += 8) {
        if (count + 8 > Pieces::kCapacity) {
          rows.nextRow = row;
          p.count = count;
          return;
        }
        const __m256i rowTop = _mm256_add_epi32(_mm256_set1_epi32(row << kUnitShift), depths);
        const __m256i rowEnd = _mm256_add_epi32(rowTop, _mm256_set1_epi32(kUnitsPerPixel));
        const __m256i top = _mm256_max_epi32(rowTop, upper);
        const __m256i bottom = _mm256_min_epi32(rowEnd, lower);
        const __m256 isEnd = _mm256_castsi256_ps(_mm256_cmpeq_epi32(bottom, lower));
        _mm256_storeu_ps(p.xa + count, xAt(top));
        _mm256_storeu_ps(p.xb + count, _mm256_blendv_ps(xAt(bottom), x1, isEnd));
        store(p.cover + count, _mm256_sign_epi32(_mm256_sub_epi32(bottom, top), sign));
        store(p.cell + count, _mm256_add_epi32(_mm256_set1_epi32(row * rows.stride), strides));
        const int left = last - row + 1;
        count += static_cast<std::size_t>(left < 8 ? left : 8);
      }
    }
  }
  p.count = count;
}

void cellAmounts(Pieces& p) {
  const __m256 half = _mm256_set1_ps(0.5F);
  const __m256 one = _mm256_set1_ps(1);
  const auto units = [&](__m256 v) { return _mm256_cvttps_epi32(_mm256_add_ps(v, half)); };
  for (std::size_t i = 0; i < p.count; i += 8) {
    const __m256 xa = _mm256_loadu_ps(p.xa + i);
    const __m256 xb = _mm256_loadu_ps(p.xb + i);
    const __m256i signedCover = load(p.cover + i);
    const __m256 low = _mm256_min_ps(xa, xb);
    const __m256 high = _mm256_max_ps(xa, xb);
    const __m256i first = _mm256_cvttps_epi32(low);
    const __m256 start = _mm256_cvtepi32_ps(first);
    const __m256 a = _mm256_sub_ps(low, start);
    const __m256 b = _mm256_sub_ps(high, start);
    const __m256 past = _mm256_max_ps(_mm256_sub_ps(b, one), _mm256_setzero_ps());
    const __m256 length = _mm256_max_ps(_mm256_sub_ps(b, a), _mm256_set1_ps(1e-9F));
    const __m256 lost =
        _mm256_div_ps(_mm256_mul_ps(past, past), _mm256_mul_ps(_mm256_set1_ps(2), length));
    const __m256i cover = _mm256_abs_epi32(signedCover);
    const __m256 height = _mm256_cvtepi32_ps(cover);
    const __m256 share =
        _mm256_add_ps(_mm256_sub_ps(one, _mm256_mul_ps(_mm256_add_ps(a, b), half)), lost);
    const __m256i sum0 = units(_mm256_mul_ps(height, share));
    const __m256i sum1 = _mm256_sub_epi32(cover, units(_mm256_mul_ps(height, lost)));
    const __m256 wide = _mm256_cmp_ps(_mm256_sub_ps(high, low), one, _CMP_GT_OQ);
    store(p.isWide + i, _mm256_castps_si256(wide));
    store(p.cell + i, _mm256_add_epi32(load(p.cell + i), first));
    store(p.amount0 + i, _mm256_sign_epi32(sum0, signedCover));
    store(p.amount1 + i, _mm256_sign_epi32(_mm256_sub_epi32(sum1, sum0), signedCover));
    store(p.amount2 + i, _mm256_sign_epi32(_mm256_sub_epi32(cover, sum1), signedCover));
  }
}

void multiplyCoverage(std::uint16_t* coverage, const std::uint16_t* other, std::size_t count) {
  std::size_t i = 0;
  for (; i + kBlock <= count; i += kBlock) {
    store(coverage + i, _mm256_mulhrs_epi16(load(coverage + i), load(other + i)));
  }
  scalarKernels().multiplyCoverage(coverage + i, other + i, count - i);
}

void scaleCoverage(std::uint16_t* coverage, int fraction, std::size_t count) {
  const __m256i factor = _mm256_set1_epi16(static_cast<short>(fraction));
  std::size_t i = 0;
  for (; i + kBlock <= count; i += kBlock) {
    store(coverage + i, _mm256_mulhrs_epi16(load(coverage + i), factor));
  }
  scalarKernels().scaleCoverage(coverage + i, fraction, count - i);
}

void filter(std::uint16_t* out, const std::uint16_t* const* rows, const std::int16_t* taps,
            std::size_t reach, std::size_t count) {
  for (std::size_t i = 0; i < count; i += kBlock) {
    __m256i total = _mm256_mulhrs_epi16(load(rows[reach] + i), _mm256_set1_epi16(taps[0]));
    for (std::size_t k = 1; k <= reach; ++k) {
      const __m256i mean = _mm256_avg_epu16(load(rows[reach - k] + i), load(rows[reach + k] + i));
      total = _mm256_adds_epi16(total, _mm256_mulhrs_epi16(mean, _mm256_set1_epi16(taps[k])));
    }
    store(out + i, total);
  }
}

constexpr Kernels kAvx2{sampleCurve, cutEdges,         cellAmounts,   sumNarrow,  sumWide,
                        writeCells,  blendCells,       writeSolid,    blendSolid, writePixels,
                        blendPixels, multiplyCoverage, scaleCoverage, filter};

}  // namespace

const Kernels& avx2Kernels() {
  return kAvx2;
}

}  // namespace glyphwright::raster
