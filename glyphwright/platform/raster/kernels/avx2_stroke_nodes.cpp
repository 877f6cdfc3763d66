#include <glyphwright/platform/raster/kernels/avx2.h>

#include <glyphwright/platform/raster/kernels.h>

#include <immintrin.h>

// Eight nodes at a time; scalar_stroke_nodes.cpp says what is computed.
namespace glyphwright::raster::avx2 {
namespace {

// Three corners of eight nodes in one direction.
struct Corners {
  __m256 first;
  __m256 middle;
  __m256 last;
};

// Which of them there are, as masks.
struct Chosen {
  __m256 first;
  __m256 middle;
  __m256 last;

  __m256i count() const {
    const auto number = [](__m256 mask) { return _mm256_castps_si256(mask); };
    return _mm256_sub_epi32(
        _mm256_setzero_si256(),
        _mm256_add_epi32(_mm256_add_epi32(number(first), number(middle)), number(last)));
  }
  Corners pick(const Corners& c) const {
    return {_mm256_blendv_ps(c.middle, c.first, first),
            _mm256_blendv_ps(c.last, c.middle, _mm256_and_ps(first, middle)), c.last};
  }
};

// Rows of four become four of each of eight nodes: those of nodes k and k + 4 in one register.
void interleave(const Corners& c, __m256 fourth, __m256* nodes) {
  const auto pairs = [](__m256 a, __m256 b) { return _mm256_castps_pd(_mm256_unpacklo_ps(a, b)); };
  const auto others = [](__m256 a, __m256 b) { return _mm256_castps_pd(_mm256_unpackhi_ps(a, b)); };
  const __m256d low = pairs(c.first, c.middle), lowEnd = pairs(c.last, fourth);
  const __m256d high = others(c.first, c.middle), highEnd = others(c.last, fourth);
  nodes[0] = _mm256_castpd_ps(_mm256_unpacklo_pd(low, lowEnd));
  nodes[1] = _mm256_castpd_ps(_mm256_unpackhi_pd(low, lowEnd));
  nodes[2] = _mm256_castpd_ps(_mm256_unpacklo_pd(high, highEnd));
  nodes[3] = _mm256_castpd_ps(_mm256_unpackhi_pd(high, highEnd));
}

// To stay in registers.
[[gnu::always_inline]] inline void storeSides(NodeSide* side, std::size_t stride,
                                              const Chosen& chosen, const Corners& x,
                                              const Corners& y) {
  static_assert(sizeof(NodeSide) == 8 * sizeof(float));
  __m256 xs[4];
  __m256 ys[4];
  interleave(chosen.pick(x), _mm256_castsi256_ps(chosen.count()), xs);
  interleave(chosen.pick(y), _mm256_setzero_ps(), ys);
  for (std::size_t k = 0; k < 4; ++k) {
    _mm256_storeu_ps(side[k * stride].x, _mm256_permute2f128_ps(xs[k], ys[k], 0x20));
    _mm256_storeu_ps(side[(k + 4) * stride].x, _mm256_permute2f128_ps(xs[k], ys[k], 0x31));
  }
}

}  // namespace

void joinSegments(const StrokeSegments& s, std::size_t count, const NodePen& pen, StrokeNode* out) {
  const auto every = [](float v) { return _mm256_set1_ps(v); };
  const auto add = [](__m256 a, __m256 b) { return _mm256_add_ps(a, b); };
  const auto sub = [](__m256 a, __m256 b) { return _mm256_sub_ps(a, b); };
  const auto mul = [](__m256 a, __m256 b) { return _mm256_mul_ps(a, b); };
  const auto both = [](__m256 a, __m256 b) { return _mm256_and_ps(a, b); };
  const auto either = [](__m256 a, __m256 b) { return _mm256_or_ps(a, b); };
  const auto notThis = [](__m256 a, __m256 b) { return _mm256_andnot_ps(a, b); };
  const __m256 zero = _mm256_setzero_ps(), one = every(1), sign = every(-0.0F);
  const __m256 all = _mm256_castsi256_ps(_mm256_set1_epi32(-1));
  const __m256 half = every(pen.half), noise = every(pen.half * NodePen::kNoise);
  const auto isBent = [&](const std::int32_t* chords) {
    const __m256i number = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(chords));
    return notThis(_mm256_castsi256_ps(_mm256_cmpeq_epi32(number, _mm256_set1_epi32(1))), all);
  };
  for (std::size_t i = 0; i < count; i += 8) {
    const __m256 inX = _mm256_loadu_ps(s.endAlongX + i), inY = _mm256_loadu_ps(s.endAlongY + i);
    const __m256 onX = _mm256_loadu_ps(s.startAlongX + i + 1);
    const __m256 onY = _mm256_loadu_ps(s.startAlongY + i + 1);
    const __m256 cosine = add(mul(inX, onX), mul(inY, onY));
    const __m256 sine = sub(mul(inX, onY), mul(inY, onX));
    const __m256 runsOn = both(_mm256_cmp_ps(cosine, zero, _CMP_GT_OQ),
                               _mm256_cmp_ps(mul(sine, sine), every(pen.sameSquare), _CMP_LT_OQ));
    const __m256 factor = _mm256_div_ps(half, add(one, cosine));
    const __m256 inReach = _mm256_loadu_ps(s.endReach + i);
    const __m256 onReach = _mm256_loadu_ps(s.startReach + i + 1);
    const __m256 inBent = isBent(s.chords + i), onBent = isBent(s.chords + i + 1);
    const __m256 least = _mm256_blendv_ps(noise, every(pen.slack), either(inBent, onBent));
    const __m256 reach = _mm256_max_ps(_mm256_min_ps(inReach, onReach), least);
    const __m256 wanted = mul(factor, notThis(sign, sine));
    const __m256 crosses = both(_mm256_cmp_ps(cosine, every(NodePen::kLeastCosine), _CMP_GT_OQ),
                                _mm256_cmp_ps(wanted, reach, _CMP_LE_OQ));
    const __m256 hasTip = either(
        runsOn, _mm256_cmp_ps(mul(add(one, cosine), every(pen.halfMiterSquare)), one, _CMP_GE_OQ));
    const __m256 noTip = notThis(hasTip, all);
    const auto strays = [&](__m256 fromX, __m256 fromY, __m256 toX, __m256 toY) {
      const __m256 turned = sub(mul(fromX, toY), mul(fromY, toX));
      return _mm256_cmp_ps(mul(notThis(sign, turned), wanted), every(pen.slack), _CMP_NLE_UQ);
    };
    const __m256 inStrays =
        strays(_mm256_loadu_ps(s.startAlongX + i), _mm256_loadu_ps(s.startAlongY + i), inX, inY);
    const __m256 onStrays = strays(onX, onY, _mm256_loadu_ps(s.endAlongX + i + 1),
                                   _mm256_loadu_ps(s.endAlongY + i + 1));
    const __m256 outerFirst = notThis(runsOn, either(noTip, either(inBent, inStrays)));
    const __m256 outerLast = notThis(runsOn, either(noTip, either(onBent, onStrays)));
    const __m256 parted = notThis(crosses, all);
    const __m256 fromX = mul(inY, half), fromY = mul(_mm256_xor_ps(inX, sign), half);
    const __m256 toX = mul(onY, half), toY = mul(_mm256_xor_ps(onX, sign), half);
    const __m256 tipX = mul(add(inY, onY), factor);
    const __m256 tipY = mul(_mm256_xor_ps(add(inX, onX), sign), factor);
    const __m256 atX = _mm256_loadu_ps(s.startX + i + 1), atY = _mm256_loadu_ps(s.startY + i + 1);
    const __m256 leftIsOuter = _mm256_cmp_ps(sine, zero, _CMP_GE_OQ);
    const auto chosen = [&](__m256 isInner) {
      return Chosen{_mm256_blendv_ps(outerFirst, parted, isInner), either(isInner, hasTip),
                    _mm256_blendv_ps(outerLast, parted, isInner)};
    };
    const __m256 tipLeft = _mm256_blendv_ps(crosses, hasTip, leftIsOuter);
    const __m256 tipRight = _mm256_blendv_ps(hasTip, crosses, leftIsOuter);
    storeSides(&out[i].left, 2, chosen(notThis(leftIsOuter, all)),
               {add(atX, fromX), add(atX, both(tipLeft, tipX)), add(atX, toX)},
               {add(atY, fromY), add(atY, both(tipLeft, tipY)), add(atY, toY)});
    storeSides(&out[i].right, 2, chosen(leftIsOuter),
               {sub(atX, fromX), sub(atX, both(tipRight, tipX)), sub(atX, toX)},
               {sub(atY, fromY), sub(atY, both(tipRight, tipY)), sub(atY, toY)});
  }
}

}  // namespace glyphwright::raster::avx2
