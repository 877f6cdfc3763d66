#include <glyphwright/platform/points.h>

#include <limits>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace glyphwright {
namespace {

// Odd and even points grow boxes of their own: no comparison waits for the one before it, and
// which of −0 and +0 is kept does not depend on how many points are looked at together.
class BoxBuilder {
 public:
  void add(std::size_t i, double x, double y) {
    PointBox& box = boxes_[i % 2];
    box.minX = x < box.minX ? x : box.minX;
    box.minY = y < box.minY ? y : box.minY;
    box.maxX = x > box.maxX ? x : box.maxX;
    box.maxY = y > box.maxY ? y : box.maxY;
    box.hasNaN |= x != x || y != y;
  }
  // `count` points have been added; the last of an odd number counts on both sides.
  PointBox box(std::size_t count, double lastX, double lastY) {
    if (count % 2 != 0) add(count, lastX, lastY);
    const auto& [even, odd] = boxes_;
    return {odd.minX < even.minX ? odd.minX : even.minX,
            odd.minY < even.minY ? odd.minY : even.minY,
            odd.maxX > even.maxX ? odd.maxX : even.maxX,
            odd.maxY > even.maxY ? odd.maxY : even.maxY, even.hasNaN || odd.hasNaN};
  }

 private:
  static constexpr double kInfinity = std::numeric_limits<double>::infinity();
  static constexpr PointBox kNothing{kInfinity, kInfinity, -kInfinity, -kInfinity, false};
  PointBox boxes_[2]{kNothing, kNothing};
};

PointBox plainMap(std::span<const CGPoint> points, const CGAffineTransform* t, CGPoint* mapped) {
  BoxBuilder builder;
  CGPoint last{};
  for (std::size_t i = 0; i < points.size(); ++i) {
    last = points[i];
    if (t != nullptr) {
      last = {t->a * last.x + t->c * last.y + t->tx, t->b * last.x + t->d * last.y + t->ty};
      mapped[i] = last;
    }
    builder.add(i, last.x, last.y);
  }
  return builder.box(points.size(), last.x, last.y);
}

#if defined(__x86_64__)

// Two points at a time, x and y side by side. NaN loses every comparison, and so leaves no mark but
// its own.
struct TwoBoxes {
  __m256d low;
  __m256d high;
  __m256d unordered;
};

[[gnu::target("avx2")]] inline void add(TwoBoxes& boxes, __m256d two) {
  boxes.low = _mm256_min_pd(two, boxes.low);
  boxes.high = _mm256_max_pd(two, boxes.high);
  boxes.unordered = _mm256_or_pd(boxes.unordered, _mm256_cmp_pd(two, two, _CMP_UNORD_Q));
}

// One point twice.
[[gnu::target("avx2")]] inline __m256d both(const double* point) {
  return _mm256_broadcast_pd(reinterpret_cast<const __m128d*>(point));
}

[[gnu::target("avx2")]] PointBox avx2Map(std::span<const CGPoint> points,
                                         const CGAffineTransform* t, CGPoint* mapped) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  TwoBoxes boxes{_mm256_set1_pd(kInfinity), _mm256_set1_pd(-kInfinity), _mm256_setzero_pd()};
  const double* from = points.empty() ? nullptr : &points.front().x;
  const std::size_t count = points.size();
  std::size_t i = 0;
  if (t == nullptr) {
    for (; i + 2 <= count; i += 2) add(boxes, _mm256_loadu_pd(from + 2 * i));
    if (i < count) add(boxes, both(from + 2 * i));
  } else {
    const __m256d straight = _mm256_setr_pd(t->a, t->d, t->a, t->d);
    const __m256d crossed = _mm256_setr_pd(t->c, t->b, t->c, t->b);
    const __m256d shift = _mm256_setr_pd(t->tx, t->ty, t->tx, t->ty);
    double* to = &mapped->x;
    const auto place = [&](__m256d p) __attribute__((target("avx2"), always_inline)) {
      const __m256d swapped = _mm256_permute_pd(p, 0b0101);
      const __m256d at = _mm256_add_pd(
          _mm256_add_pd(_mm256_mul_pd(straight, p), _mm256_mul_pd(crossed, swapped)), shift);
      add(boxes, at);
      return at;
    };
    for (; i + 2 <= count; i += 2) {
      _mm256_storeu_pd(to + 2 * i, place(_mm256_loadu_pd(from + 2 * i)));
    }
    if (i < count) _mm_storeu_pd(to + 2 * i, _mm256_castpd256_pd128(place(both(from + 2 * i))));
  }
  PointBox box{};
  _mm_storeu_pd(&box.minX,
                _mm_min_pd(_mm256_extractf128_pd(boxes.low, 1), _mm256_castpd256_pd128(boxes.low)));
  _mm_storeu_pd(&box.maxX, _mm_max_pd(_mm256_extractf128_pd(boxes.high, 1),
                                      _mm256_castpd256_pd128(boxes.high)));
  box.hasNaN = _mm256_movemask_pd(boxes.unordered) != 0;
  return box;
}

#endif

PointBox map(std::span<const CGPoint> points, const CGAffineTransform* transform, CGPoint* mapped) {
  static_assert(sizeof(CGPoint) == 2 * sizeof(double));
#if defined(__x86_64__)
  // The check reads a word that the runtime filled in before main.
  if (__builtin_cpu_supports("avx2")) return avx2Map(points, transform, mapped);
#endif
  return plainMap(points, transform, mapped);
}

}  // namespace

PointBox boxPoints(std::span<const CGPoint> points) {
  return map(points, nullptr, nullptr);
}

PointBox mapPoints(std::span<const CGPoint> points, const CGAffineTransform& transform,
                   CGPoint* mapped) {
  return map(points, &transform, mapped);
}

}  // namespace glyphwright
