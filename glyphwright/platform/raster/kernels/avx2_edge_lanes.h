#pragma once

#include <immintrin.h>

#include <cstddef>

#include <glyphwright/platform/raster/kernels/avx2_lanes.h>

/// Eight edges at a time.
namespace glyphwright::raster::avx2 {

struct EdgeEight {
  __m256 x0;
  __m256 x1;
  __m256i y0;
  __m256i y1;
};

inline void storeEdges(Edge* edges, const EdgeEight& e) {
  // Edges i and i + 4 come to stand in one register.
  const __m256d x01 = _mm256_castps_pd(_mm256_unpacklo_ps(e.x0, e.x1));
  const __m256d x23 = _mm256_castps_pd(_mm256_unpackhi_ps(e.x0, e.x1));
  const __m256d y01 = _mm256_castsi256_pd(_mm256_unpacklo_epi32(e.y0, e.y1));
  const __m256d y23 = _mm256_castsi256_pd(_mm256_unpackhi_epi32(e.y0, e.y1));
  const auto put = [&](std::size_t at, __m256d two) {
    _mm256_storeu2_m128d(reinterpret_cast<double*>(edges + at + 4),
                         reinterpret_cast<double*>(edges + at), two);
  };
  put(0, _mm256_unpacklo_pd(x01, y01));
  put(1, _mm256_unpackhi_pd(x01, y01));
  put(2, _mm256_unpacklo_pd(x23, y23));
  put(3, _mm256_unpackhi_pd(x23, y23));
}

// The opposite.
inline EdgeEight loadEdges(const Edge* edges) {
  const auto pair = [&](int i) { return _mm256_loadu2_m128(&edges[i + 4].x0, &edges[i].x0); };
  const __m256 x01 = _mm256_unpacklo_ps(pair(0), pair(1));
  const __m256 y01 = _mm256_unpackhi_ps(pair(0), pair(1));
  const __m256 x23 = _mm256_unpacklo_ps(pair(2), pair(3));
  const __m256 y23 = _mm256_unpackhi_ps(pair(2), pair(3));
  return {_mm256_shuffle_ps(x01, x23, _MM_SHUFFLE(1, 0, 1, 0)),
          _mm256_shuffle_ps(x01, x23, _MM_SHUFFLE(3, 2, 3, 2)),
          _mm256_castps_si256(_mm256_shuffle_ps(y01, y23, _MM_SHUFFLE(1, 0, 1, 0))),
          _mm256_castps_si256(_mm256_shuffle_ps(y01, y23, _MM_SHUFFLE(3, 2, 3, 2)))};
}

// How many runs downwards begin among eight edges, of which `left` exist. `wasDown` tells of the
// edge before them, and then of the last of them.
inline int countDownRuns(__m256i down, std::size_t left, unsigned& wasDown) {
  unsigned isDown = bits(down);
  if (left < 8) isDown &= (1U << left) - 1;
  const int runs = __builtin_popcount(isDown & ~(isDown << 1 | wasDown));
  wasDown = isDown >> 7;
  return runs;
}

}  // namespace glyphwright::raster::avx2
