#include <glyphwright/platform/raster/kernels/avx2.h>

#include <glyphwright/platform/raster/kernels/avx2_lanes.h>

// Eight pixels at a time; scalar_pixels.cpp says what the loop computes. Places are worked out
// afresh for every pixel, since a sum that grows would stray from them.
namespace glyphwright::raster::avx2 {

void rampPixels(std::uint8_t* rgba, const Ramp& ramp, double from, double step, std::size_t count) {
  const __m256d start = _mm256_set1_pd(from);
  const __m256d perPixel = _mm256_set1_pd(step);
  const __m256d last = _mm256_set1_pd(ramp.last);
  const auto entriesAt = [&](__m256d pixel) {
    const __m256d place = _mm256_add_pd(start, _mm256_mul_pd(perPixel, pixel));
    const __m256d atLeast = _mm256_max_pd(place, _mm256_setzero_pd());
    return _mm256_cvttpd_epi32(_mm256_min_pd(atLeast, last));
  };
  const __m256d eight = _mm256_set1_pd(8);
  const auto* entries = reinterpret_cast<const int*>(ramp.entries);
  __m256d low = _mm256_setr_pd(0, 1, 2, 3);
  __m256d high = _mm256_setr_pd(4, 5, 6, 7);
  for (std::size_t at = 0; at < count; at += 8) {
    const __m256i index = _mm256_setr_m128i(entriesAt(low), entriesAt(high));
    const __m256i pixels = _mm256_i32gather_epi32(entries, index, 4);
    low = _mm256_add_pd(low, eight);
    high = _mm256_add_pd(high, eight);
    if (at + 8 <= count) {
      store(rgba + at * 4, pixels);
    } else {
      _mm256_maskstore_epi32(reinterpret_cast<int*>(rgba + at * 4), firstPixels(count - at),
                             pixels);
    }
  }
}

}  // namespace glyphwright::raster::avx2
