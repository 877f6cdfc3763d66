#include <glyphwright/platform/raster/kernels/avx2.h>

#include <glyphwright/platform/raster/kernels/avx2_edge_lanes.h>

// From points to edges; scalar_edges.cpp says what each loop computes.
namespace glyphwright::raster::avx2 {
namespace {

constexpr float kParts[] = {0,        1,        1.0F / 2, 1.0F / 3, 1.0F / 4,
                            1.0F / 5, 1.0F / 6, 1.0F / 7, 1.0F / 8};

std::uint32_t chordCount(__m128 chords4) {
  const __m256 fourthPowers = _mm256_setr_ps(1, 16, 81, 256, 625, 1296, 2401, 4096);
  const __m256 reached = _mm256_cmp_ps(_mm256_broadcastss_ps(chords4), fourthPowers, _CMP_GE_OQ);
  const auto bits = static_cast<unsigned>(_mm256_movemask_ps(reached));
  const std::uint32_t count = 1 + static_cast<std::uint32_t>(__builtin_popcount(bits));
  if (count <= 8) return count;
  const float root = _mm_cvtss_f32(_mm_sqrt_ss(_mm_sqrt_ss(chords4)));
  return root < kMaxChords - 1 ? static_cast<std::uint32_t>(root) + 1 : kMaxChords;
}

// A cubic relative to the region, and its second differences; two points a register.
struct Cubic {
  Cubic(const double* points, __m256d corner) {
    p01 = _mm256_cvtpd_ps(_mm256_sub_pd(_mm256_loadu_pd(points), corner));
    const __m128 p23 = _mm256_cvtpd_ps(_mm256_sub_pd(_mm256_loadu_pd(points + 4), corner));
    p12 = _mm_shuffle_ps(p01, p23, _MM_SHUFFLE(1, 0, 3, 2));
    uv = _mm_add_ps(_mm_sub_ps(p01, _mm_mul_ps(_mm_set1_ps(2), p12)), p23);
  }

  __m128 p01;
  __m128 p12;
  __m128 uv;
};

__m256d cornerOf(const CurveFrame& frame) {
  return _mm256_setr_pd(frame.left, frame.top, frame.left, frame.top);
}

}  // namespace

void countChords(Curve* curves, std::size_t count, const double* points, const CurveFrame& frame) {
  const __m256d corner = cornerOf(frame);
  const __m128 factor = _mm_set_ss(frame.chordFactor);
  for (std::size_t i = 0; i < count; ++i) {
    const Cubic cubic(points + std::size_t{2} * curves[i].point, corner);
    const __m128 squares = _mm_mul_ps(cubic.uv, cubic.uv);
    const __m128 sums =
        _mm_add_ps(squares, _mm_shuffle_ps(squares, squares, _MM_SHUFFLE(2, 3, 0, 1)));
    const __m128 bendSquare = _mm_max_ss(sums, _mm_movehl_ps(sums, sums));
    curves[i].chords = chordCount(_mm_mul_ss(bendSquare, factor));
  }
}

// Eight samples at a time; the last eight may run past the curve's end.
void sampleCurves(const Curve* curves, std::size_t count, const double* points,
                  const CurveFrame& frame, float* xs, std::int32_t* ys) {
  const __m256d corner = cornerOf(frame);
  const __m256 width = _mm256_set1_ps(frame.width);
  const __m256i height = _mm256_set1_epi32(frame.height);
  const auto xOf = [](__m128 v) { return _mm256_broadcastss_ps(v); };
  const auto yOf = [](__m128 v) { return _mm256_broadcastss_ps(_mm_movehdup_ps(v)); };
  const auto at = [](__m256 t, __m256 c3, __m256 c2, __m256 c1, __m256 c0) {
    const __m256 high = _mm256_add_ps(_mm256_mul_ps(c3, t), c2);
    return _mm256_add_ps(_mm256_mul_ps(_mm256_add_ps(_mm256_mul_ps(high, t), c1), t), c0);
  };
  for (const Curve* curve = curves; curve < curves + count; ++curve) {
    const auto [p01, p12, uv] = Cubic(points + std::size_t{2} * curve->point, corner);
    const std::uint32_t chords = curve->chords;
    const float h = chords <= 8 ? kParts[chords] : 1.0F / static_cast<float>(chords);
    const __m128 lift = _mm_set1_ps(h * h * 0.5F);
    const __m128 a = _mm_sub_ps(_mm_movehl_ps(uv, uv), uv);
    const __m128 b = _mm_mul_ps(_mm_set1_ps(3), uv);
    const __m128 c =
        _mm_sub_ps(_mm_mul_ps(_mm_set1_ps(3), _mm_sub_ps(p12, p01)), _mm_mul_ps(a, lift));
    const __m128 start = _mm_sub_ps(p01, _mm_mul_ps(uv, lift));
    const __m256 ax = xOf(a), bx = xOf(b), cx = xOf(c), sx = xOf(start);
    const __m256 ay = yOf(a), by = yOf(b), cy = yOf(c), sy = yOf(start);
    float* x = xs + curve->corner;
    std::int32_t* y = ys + curve->corner;
    __m256 number = _mm256_setr_ps(1, 2, 3, 4, 5, 6, 7, 8);
    for (std::uint32_t k = 0; k < chords; k += 8) {
      const __m256 t = _mm256_mul_ps(number, _mm256_set1_ps(h));
      number = _mm256_add_ps(number, _mm256_set1_ps(8));
      const __m256 across = at(t, ax, bx, cx, sx);
      const __m256 down = _mm256_mul_ps(at(t, ay, by, cy, sy), _mm256_set1_ps(kUnitsPerPixel));
      const __m256i units = _mm256_cvttps_epi32(_mm256_add_ps(down, _mm256_set1_ps(0.5F)));
      _mm256_storeu_ps(x + k, _mm256_min_ps(_mm256_max_ps(across, _mm256_setzero_ps()), width));
      store(y + k, _mm256_min_epi32(_mm256_max_epi32(units, _mm256_setzero_si256()), height));
    }
  }
}

void placeEnds(const Segment* segments, std::size_t count, const double* points,
               const CurveFrame& frame, float* xs, std::int32_t* ys) {
  const __m128d corner = _mm_setr_pd(frame.left, frame.top);
  const __m128 width = _mm_set_ss(frame.width);
  const __m128i height = _mm_set1_epi32(frame.height);
  for (const Segment* segment = segments; segment < segments + count; ++segment) {
    const __m128d p = _mm_sub_pd(_mm_loadu_pd(points + std::size_t{2} * segment->point), corner);
    const __m128 x = _mm_max_ss(_mm_cvtpd_ps(p), _mm_setzero_ps());
    const __m128d down = _mm_mul_pd(p, _mm_set1_pd(kUnitsPerPixel));
    const __m128i units = _mm_cvttpd_epi32(_mm_add_pd(down, _mm_set1_pd(0.5)));
    const __m128i y = _mm_min_epi32(_mm_max_epi32(units, _mm_setzero_si128()), height);
    _mm_store_ss(xs + segment->corner, _mm_min_ss(x, width));
    ys[segment->corner] = _mm_extract_epi32(y, 1);
  }
}

int joinCorners(const float* x, const std::int32_t* y, std::size_t count, Edge* edges) {
  int runs = 0;
  unsigned wasDown = 0;
  for (std::size_t i = 0; i + 1 < count; i += 8) {
    const __m256i y0 = load(y + i);
    const __m256i y1 = load(y + i + 1);
    storeEdges(edges + i, {_mm256_loadu_ps(x + i), _mm256_loadu_ps(x + i + 1), y0, y1});
    runs += countDownRuns(_mm256_cmpgt_epi32(y1, y0), count - 1 - i, wasDown);
  }
  return runs;
}

}  // namespace glyphwright::raster::avx2
