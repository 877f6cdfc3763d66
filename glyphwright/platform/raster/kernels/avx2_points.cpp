#include <glyphwright/platform/raster/kernels/avx2.h>

#include <immintrin.h>

#include <limits>

// Two points at a time, x and y side by side; scalar_edges.cpp says what each loop computes.
namespace glyphwright::raster::avx2 {
namespace {

class BoxBuilder {
 public:
  // NaN loses every comparison, and so leaves no mark but this one.
  void add(__m256d two) {
    low_ = _mm256_min_pd(two, low_);
    high_ = _mm256_max_pd(two, high_);
    unordered_ = _mm256_or_pd(unordered_, _mm256_cmp_pd(two, two, _CMP_UNORD_Q));
  }
  PointBox box() const {
    const auto upper = [](__m256d v) { return _mm256_extractf128_pd(v, 1); };
    const auto lower = [](__m256d v) { return _mm256_castpd256_pd128(v); };
    PointBox box;
    _mm_storeu_pd(&box.minX, _mm_min_pd(upper(low_), lower(low_)));
    _mm_storeu_pd(&box.maxX, _mm_max_pd(upper(high_), lower(high_)));
    box.hasNaN = _mm256_movemask_pd(unordered_) != 0;
    return box;
  }

 private:
  __m256d low_ = _mm256_set1_pd(std::numeric_limits<double>::infinity());
  __m256d high_ = _mm256_set1_pd(-std::numeric_limits<double>::infinity());
  __m256d unordered_ = _mm256_setzero_pd();
};

// One point twice.
__m256d both(const double* point) {
  return _mm256_broadcast_pd(reinterpret_cast<const __m128d*>(point));
}

}  // namespace

PointBox boxPoints(const double* points, std::size_t count) {
  BoxBuilder builder;
  std::size_t i = 0;
  for (; i + 2 <= count; i += 2) builder.add(_mm256_loadu_pd(points + 2 * i));
  if (i < count) builder.add(both(points + 2 * i));
  return builder.box();
}

PointBox mapPoints(const double* points, std::size_t count, const double* m, double* mapped) {
  BoxBuilder builder;
  const __m256d straight = _mm256_setr_pd(m[0], m[3], m[0], m[3]);
  const __m256d crossed = _mm256_setr_pd(m[2], m[1], m[2], m[1]);
  const __m256d shift = both(m + 4);
  const auto map = [&](__m256d p) {
    const __m256d swapped = _mm256_permute_pd(p, 0b0101);
    const __m256d turned =
        _mm256_add_pd(_mm256_mul_pd(straight, p), _mm256_mul_pd(crossed, swapped));
    const __m256d at = _mm256_add_pd(turned, shift);
    builder.add(at);
    return at;
  };
  std::size_t i = 0;
  for (; i + 2 <= count; i += 2) {
    _mm256_storeu_pd(mapped + 2 * i, map(_mm256_loadu_pd(points + 2 * i)));
  }
  if (i < count) _mm_storeu_pd(mapped + 2 * i, _mm256_castpd256_pd128(map(both(points + 2 * i))));
  return builder.box();
}

}  // namespace glyphwright::raster::avx2
