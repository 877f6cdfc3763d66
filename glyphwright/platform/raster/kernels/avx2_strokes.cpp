#include <glyphwright/platform/raster/kernels/avx2.h>

#include <glyphwright/platform/raster/kernels.h>

#include <immintrin.h>

#include <limits>

#include <glyphwright/platform/raster/kernels/avx2_edge_lanes.h>
#include <glyphwright/platform/raster/kernels/put_sides.h>

// Both sides of curves eight samples at a time; scalar_strokes.cpp says what is computed.
namespace glyphwright::raster::avx2 {

namespace {

PenBend sampleSides(const StrokeCubic& c, float halfWidth, int chords, const SideEnds& out) {
  const auto every = [](float v) { return _mm256_set1_ps(v); };
  const auto add = [](__m256 a, __m256 b) { return _mm256_add_ps(a, b); };
  const auto sub = [](__m256 a, __m256 b) { return _mm256_sub_ps(a, b); };
  const auto mul = [](__m256 a, __m256 b) { return _mm256_mul_ps(a, b); };
  const float step = 1.0F / static_cast<float>(chords);
  const __m256 h = every(step);
  const __m256 lift = every(step * step * 0.5F);
  const __m256 pen = every(halfWidth * (2.0F / 3.0F));
  const __m256 half = every(halfWidth);
  const __m256 sign = every(-0.0F);
  const __m256 one = every(1);
  const __m256 last = every(static_cast<float>(chords));
  const __m256 changeX = every(c.changeX), changeY = every(c.changeY);
  const __m256 bendX = every(c.bendX), bendY = every(c.bendY);
  const __m256 legX = every(c.legX), legY = every(c.legY);
  const __m256 startX = every(c.startX), startY = every(c.startY);
  __m256 number = _mm256_setr_ps(1, 2, 3, 4, 5, 6, 7, 8);
  const __m256 foldTurn = every(kFoldTurn);
  unsigned tight = 0;
  unsigned opensLeft = 0;
  unsigned opensRight = 0;
  for (int k = 0; k < chords; k += 8) {
    const __m256 t = mul(number, h);
    const __m256 atX = add(mul(changeX, t), bendX);
    const __m256 atY = add(mul(changeY, t), bendY);
    const __m256 alongX = add(mul(add(atX, bendX), t), legX);
    const __m256 alongY = add(mul(add(atY, bendY), t), legY);
    const __m256 x = add(mul(add(add(alongX, legX), add(mul(bendX, t), legX)), t), startX);
    const __m256 y = add(mul(add(add(alongY, legY), add(mul(bendY, t), legY)), t), startY);
    const __m256 square = add(mul(alongX, alongX), mul(alongY, alongY));
    const __m256 inverse = _mm256_div_ps(one, _mm256_sqrt_ps(square));
    const __m256 normalX = mul(alongY, inverse);
    const __m256 normalY = _mm256_xor_ps(mul(alongX, inverse), sign);
    const __m256 bend = add(mul(atX, normalX), mul(atY, normalY));
    const __m256 turn = mul(mul(pen, bend), mul(inverse, inverse));
    const auto lanes = [](__m256 mask) { return static_cast<unsigned>(_mm256_movemask_ps(mask)); };
    const unsigned samples = lanes(_mm256_cmp_ps(number, last, _CMP_LE_OQ));
    tight |= samples & lanes(_mm256_cmp_ps(_mm256_andnot_ps(sign, turn), one, _CMP_NLE_UQ));
    opensLeft |= samples & lanes(_mm256_cmp_ps(turn, foldTurn, _CMP_NGE_UQ));
    opensRight |= samples & lanes(_mm256_cmp_ps(_mm256_xor_ps(turn, sign), foldTurn, _CMP_NGE_UQ));
    const __m256 out1 = mul(bend, lift);
    const __m256 out2 = mul(out1, turn);
    const __m256 left = add(sub(half, out1), out2);
    const __m256 right = add(add(half, out1), out2);
    _mm256_storeu_ps(out.leftX + k, add(x, mul(normalX, left)));
    _mm256_storeu_ps(out.leftY + k, add(y, mul(normalY, left)));
    _mm256_storeu_ps(out.rightX + k, sub(x, mul(normalX, right)));
    _mm256_storeu_ps(out.rightY + k, sub(y, mul(normalY, right)));
    number = add(number, every(8));
  }
  if (tight == 0) return PenBend::follows;
  if (opensLeft == 0) return PenBend::foldsLeft;
  return opensRight == 0 ? PenBend::foldsRight : PenBend::mixed;
}

}  // namespace

std::size_t putSides(const StrokeSegments& segments, const StrokeNode* nodes,
                     const SegmentRange& range, const SidePen& pen, SideEnds& sides) {
  const auto sample = [](const auto&... arguments) { return sampleSides(arguments...); };
  return putSidesWith(sample, segments, nodes, range, pen, sides);
}

CornerBox boxCorners(const float* x, const float* y, std::size_t count) {
  const __m256 infinity = _mm256_set1_ps(std::numeric_limits<float>::infinity());
  const __m256 below = _mm256_sub_ps(_mm256_setzero_ps(), infinity);
  __m256 minX = infinity, minY = infinity, maxX = below, maxY = below;
  __m256 nan = _mm256_setzero_ps();
  const auto add = [&](__m256 atX, __m256 atY) {
    minX = _mm256_min_ps(minX, atX);
    minY = _mm256_min_ps(minY, atY);
    maxX = _mm256_max_ps(maxX, atX);
    maxY = _mm256_max_ps(maxY, atY);
    nan = _mm256_or_ps(nan, _mm256_cmp_ps(atX, atY, _CMP_UNORD_Q));
  };
  std::size_t i = 0;
  for (; i + 8 <= count; i += 8) add(_mm256_loadu_ps(x + i), _mm256_loadu_ps(y + i));
  if (i < count && count >= 8) {
    // Some of the last eight have been seen before, which does no harm.
    add(_mm256_loadu_ps(x + count - 8), _mm256_loadu_ps(y + count - 8));
  } else {
    for (; i < count; ++i) add(_mm256_broadcast_ss(x + i), _mm256_broadcast_ss(y + i));
  }
  const auto least = [](__m256 v) {
    __m128 four = _mm_min_ps(_mm256_castps256_ps128(v), _mm256_extractf128_ps(v, 1));
    four = _mm_min_ps(four, _mm_movehl_ps(four, four));
    return _mm_cvtss_f32(_mm_min_ss(four, _mm_movehdup_ps(four)));
  };
  const auto most = [](__m256 v) {
    __m128 four = _mm_max_ps(_mm256_castps256_ps128(v), _mm256_extractf128_ps(v, 1));
    four = _mm_max_ps(four, _mm_movehl_ps(four, four));
    return _mm_cvtss_f32(_mm_max_ss(four, _mm_movehdup_ps(four)));
  };
  return {least(minX), least(minY), most(maxX), most(maxY), _mm256_movemask_ps(nan) != 0};
}

int joinRing(const float* xs, const float* ys, std::size_t count, const RingShift& shift,
             bool backwards, Edge* edges) {
  const __m256 shiftX = _mm256_set1_ps(shift.x), shiftY = _mm256_set1_ps(shift.y);
  const auto place = [&](std::size_t i) { return _mm256_add_ps(_mm256_loadu_ps(xs + i), shiftX); };
  const auto units = [&](std::size_t i) {
    const __m256 y = _mm256_add_ps(_mm256_loadu_ps(ys + i), shiftY);
    return _mm256_cvttps_epi32(
        _mm256_add_ps(_mm256_mul_ps(y, _mm256_set1_ps(kUnitsPerPixel)), _mm256_set1_ps(0.5F)));
  };
  // Where edges begin and end, counted from each corner.
  const std::size_t begin = backwards ? 1 : 0;
  const std::size_t end = backwards ? 0 : 1;
  int runs = 0;
  unsigned wasDown = 0;
  for (std::size_t i = 0; i + 1 < count; i += 8) {
    const __m256i y0 = units(i + begin);
    const __m256i y1 = units(i + end);
    storeEdges(edges + i, {place(i + begin), place(i + end), y0, y1});
    runs += countDownRuns(_mm256_cmpgt_epi32(y1, y0), count - 1 - i, wasDown);
  }
  return runs;
}

void placeCorners(const float* x, const float* y, std::size_t count, bool backwards,
                  const CornerFrame& frame, const PlacedCorners& out) {
  const __m256i reversed = _mm256_setr_epi32(7, 6, 5, 4, 3, 2, 1, 0);
  const __m256i forwards = _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7);
  const __m256i order = backwards ? reversed : forwards;
  const __m256 shiftX = _mm256_set1_ps(frame.shiftX), shiftY = _mm256_set1_ps(frame.shiftY);
  const __m256 width = _mm256_set1_ps(frame.width), zero = _mm256_setzero_ps();
  const __m256 height = _mm256_set1_ps(frame.height);
  const auto within = [&](__m256 v, __m256 from, __m256 to) {
    return _mm256_and_ps(_mm256_cmp_ps(v, from, _CMP_GE_OQ), _mm256_cmp_ps(v, to, _CMP_LE_OQ));
  };
  for (std::size_t i = 0; i < count; i += 8) {
    const auto load = [&](const float* from) {
      const float* eight = backwards ? from + count - i - 8 : from + i;
      return _mm256_permutevar8x32_ps(_mm256_loadu_ps(eight), order);
    };
    const __m256 atX = _mm256_add_ps(load(x), shiftX);
    const __m256 atY = _mm256_add_ps(load(y), shiftY);
    const __m256 inside = _mm256_and_ps(within(atX, zero, width), within(atY, zero, height));
    const __m256 units =
        _mm256_add_ps(_mm256_mul_ps(atY, _mm256_set1_ps(kUnitsPerPixel)), _mm256_set1_ps(0.5F));
    _mm256_storeu_ps(out.x + i, _mm256_and_ps(atX, inside));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(out.y + i),
                        _mm256_and_si256(_mm256_cvttps_epi32(units), _mm256_castps_si256(inside)));
    const unsigned valid = count - i < 8 ? (1U << (count - i)) - 1 : 0xFFU;
    out.outside[i / 8] =
        static_cast<std::uint8_t>(~static_cast<unsigned>(_mm256_movemask_ps(inside)) & valid);
  }
}

}  // namespace glyphwright::raster::avx2
