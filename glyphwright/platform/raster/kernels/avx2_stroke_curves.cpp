#include <glyphwright/platform/raster/kernels/avx2.h>

#include <glyphwright/platform/raster/kernels.h>

#include <immintrin.h>

// Eight curves at a time; scalar_stroke_curves.cpp says what is computed.
namespace glyphwright::raster::avx2 {
namespace {

struct Lanes {
  __m256 x;
  __m256 y;
};
__m256 every(float v) {
  return _mm256_set1_ps(v);
}
__m256 times(__m256 a, __m256 b) {
  return _mm256_mul_ps(a, b);
}
__m256 plus(__m256 a, __m256 b) {
  return _mm256_add_ps(a, b);
}
__m256 minus(__m256 a, __m256 b) {
  return _mm256_sub_ps(a, b);
}
Lanes minus(Lanes a, Lanes b) {
  return {minus(a.x, b.x), minus(a.y, b.y)};
}
Lanes plus(Lanes a, Lanes b) {
  return {plus(a.x, b.x), plus(a.y, b.y)};
}
Lanes times(Lanes a, __m256 k) {
  return {times(a.x, k), times(a.y, k)};
}
__m256 dot(Lanes a, Lanes b) {
  return plus(times(a.x, b.x), times(a.y, b.y));
}
__m256 magnitudeOfCross(Lanes a, Lanes b) {
  return _mm256_andnot_ps(every(-0.0F), minus(times(a.x, b.y), times(a.y, b.x)));
}

// Rows become columns. They are to stay in registers, which takes a word to some compilers.
[[gnu::always_inline]] inline void transpose(__m256* r) {
  __m256 pairs[8];
  for (int k = 0; k < 8; k += 2) {
    pairs[k] = _mm256_unpacklo_ps(r[k], r[k + 1]);
    pairs[k + 1] = _mm256_unpackhi_ps(r[k], r[k + 1]);
  }
  __m256 fours[8];
  for (int k = 0; k < 8; k += 4) {
    fours[k] = _mm256_shuffle_ps(pairs[k], pairs[k + 2], _MM_SHUFFLE(1, 0, 1, 0));
    fours[k + 1] = _mm256_shuffle_ps(pairs[k], pairs[k + 2], _MM_SHUFFLE(3, 2, 3, 2));
    fours[k + 2] = _mm256_shuffle_ps(pairs[k + 1], pairs[k + 3], _MM_SHUFFLE(1, 0, 1, 0));
    fours[k + 3] = _mm256_shuffle_ps(pairs[k + 1], pairs[k + 3], _MM_SHUFFLE(3, 2, 3, 2));
  }
  for (int k = 0; k < 4; ++k) {
    r[k] = _mm256_permute2f128_ps(fours[k], fours[k + 4], 0x20);
    r[k + 4] = _mm256_permute2f128_ps(fours[k], fours[k + 4], 0x31);
  }
}

// A curve's start and its three legs.
__m256 startAndLegs(const double* p, __m128d origin) {
  const __m256d p01 = _mm256_loadu_pd(p);
  const __m256d p12 = _mm256_loadu_pd(p + 2);
  const __m128 start = _mm_cvtpd_ps(_mm_sub_pd(_mm256_castpd256_pd128(p01), origin));
  const __m128 l01 = _mm256_cvtpd_ps(_mm256_sub_pd(p12, p01));
  const __m128 l2 = _mm_cvtpd_ps(_mm_sub_pd(_mm_loadu_pd(p + 6), _mm_loadu_pd(p + 4)));
  const __m128 l12 = _mm_shuffle_ps(l01, l2, _MM_SHUFFLE(1, 0, 3, 2));
  return _mm256_set_m128(l12, _mm_movelh_ps(start, l01));
}

}  // namespace

void prepareSegments(const double* const* curves, std::size_t count, const SegmentPen& pen,
                     const StrokeSegments& out) {
  static_assert(sizeof(StrokeCubic) == 8 * sizeof(float));
  const __m128d origin = _mm_setr_pd(pen.originX, pen.originY);
  const __m256 zero = _mm256_setzero_ps(), one = every(1);
  const __m256 penFactor = every(pen.half * (2.0F / 3.0F)), bendFactor = every(pen.bendFactor);
  const __m256 turnFactor = every(pen.turnFactor);
  for (std::size_t i = 0; i < count; i += 8) {
    __m256 r[8];
    for (std::size_t k = 0; k < 8; ++k) {
      r[k] = startAndLegs(curves[i + k], origin);
    }
    transpose(r);
    Lanes l0{r[2], r[3]}, l1{r[4], r[5]}, l2{r[6], r[7]};
    // A nudge, or none where the leg is longer than that.
    const auto nudgeFor = [&](Lanes leg, Lanes way) {
      const Lanes nudge = times(way, every(kNudge));
      const __m256 isNear = _mm256_cmp_ps(dot(leg, leg), dot(nudge, nudge), _CMP_LT_OQ);
      return Lanes{_mm256_and_ps(nudge.x, isNear), _mm256_and_ps(nudge.y, isNear)};
    };
    const Lanes atStart = nudgeFor(l0, l1), atEnd = nudgeFor(l2, l1);
    l0 = plus(l0, atStart);
    l2 = plus(l2, atEnd);
    l1 = minus(minus(l1, atStart), atEnd);
    const __m256 dot01 = dot(l0, l1), dot12 = dot(l1, l2);
    const __m256 square0 = dot(l0, l0), square1 = dot(l1, l1), square2 = dot(l2, l2);
    const __m256 length0 = _mm256_sqrt_ps(square0);
    const __m256 length1 = _mm256_sqrt_ps(square1);
    const __m256 length2 = _mm256_sqrt_ps(square2);
    const __m256 length01 = times(length0, length1), length12 = times(length1, length2);
    const auto isAbove = [](__m256 a, __m256 b) { return _mm256_cmp_ps(a, b, _CMP_GT_OQ); };
    const __m256 least = _mm256_min_ps(square0, _mm256_min_ps(square1, square2));
    const __m256 keepsOn = _mm256_and_ps(_mm256_and_ps(isAbove(dot01, zero), isAbove(dot12, zero)),
                                         isAbove(least, every(kLeastLeg)));
    const __m256 inverse = _mm256_div_ps(one, times(length01, length2));
    const Lanes e0 = times(l0, times(length12, inverse));
    const Lanes e2 = times(l2, times(length01, inverse));
    const Lanes u = minus(l1, l0), v = minus(l2, l1), a = minus(v, u);
    const __m256 turnAtStart = times(penFactor, magnitudeOfCross(u, e0));
    const __m256 turnAtEnd = times(penFactor, magnitudeOfCross(v, e2));
    const __m256 isTight = _mm256_cmp_ps(turnAtStart, square0, _CMP_NLE_UQ);
    const __m256 bend = _mm256_sqrt_ps(times(every(0.5F), plus(dot(u, u), dot(v, v))));
    const __m256 lacking =
        times(plus(times(minus(length01, dot01), length2), times(minus(length12, dot12), length0)),
              inverse);
    const __m256 turnSquare = times(every(4), _mm256_max_ps(lacking, zero));
    const __m256 wanted =
        _mm256_sqrt_ps(plus(times(bend, bendFactor), times(turnSquare, turnFactor)));
    const __m256 held = _mm256_min_ps(wanted, every(static_cast<float>(kMaxChords - 1)));
    const __m256i number = _mm256_add_epi32(_mm256_cvttps_epi32(held), _mm256_set1_epi32(1));
    const __m256 step =
        _mm256_min_ps(_mm256_div_ps(every(3), _mm256_cvtepi32_ps(number)), every(1.5F));
    const __m256 mostTurned =
        _mm256_max_ps(_mm256_max_ps(magnitudeOfCross(l0, l1), magnitudeOfCross(l1, l2)),
                      times(every(0.5F), magnitudeOfCross(l0, l2)));
    const __m256 slowest = times(_mm256_min_ps(square1, _mm256_min_ps(dot01, dot12)),
                                 times(times(length0, length2), inverse));
    const __m256 slowSquare = times(slowest, slowest);
    const __m256 unevenTurn = times(
        times(times(slowSquare, slowSquare), every(kUnevenTurn * kUnevenTurn / 4)), turnSquare);
    const auto isWithin = [](__m256 some, __m256 most) {
      return _mm256_cmp_ps(some, most, _CMP_LE_OQ);
    };
    const __m256 isEven =
        _mm256_or_ps(isWithin(times(penFactor, mostTurned), times(slowSquare, slowest)),
                     isWithin(times(mostTurned, mostTurned), unevenTurn));
    const __m256i kept =
        _mm256_and_si256(number, _mm256_castps_si256(_mm256_and_ps(keepsOn, isEven)));
    const __m256i chords = _mm256_sign_epi32(
        kept, _mm256_or_si256(_mm256_castps_si256(isTight), _mm256_set1_epi32(1)));
    _mm256_storeu_ps(out.startX + i, r[0]);
    _mm256_storeu_ps(out.startY + i, r[1]);
    _mm256_storeu_ps(out.startAlongX + i, e0.x);
    _mm256_storeu_ps(out.startAlongY + i, e0.y);
    _mm256_storeu_ps(out.endAlongX + i, e2.x);
    _mm256_storeu_ps(out.endAlongY + i, e2.y);
    _mm256_storeu_ps(
        out.startReach + i,
        times(times(_mm256_max_ps(minus(square0, turnAtStart), zero), times(length12, inverse)),
              step));
    _mm256_storeu_ps(out.endReach + i, times(times(_mm256_max_ps(minus(square2, turnAtEnd), zero),
                                                   times(length01, inverse)),
                                             step));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(out.chords + i), chords);
    __m256 cubics[8] = {r[0], r[1], l0.x, l0.y, u.x, u.y, a.x, a.y};
    transpose(cubics);
    for (std::size_t k = 0; k < 8; ++k) {
      _mm256_storeu_ps(reinterpret_cast<float*>(out.cubics + i + k), cubics[k]);
    }
  }
}

}  // namespace glyphwright::raster::avx2
