#include <glyphwright/platform/raster/kernels/avx2.h>

#include <glyphwright/platform/raster/kernels/avx2_lanes.h>

// The colours of gradients; scalar_pixels.cpp says what is computed.
namespace glyphwright::raster::avx2 {

// The four channels of a colour side by side.
void mixColors(const double* start, const double* change, const double* parts, std::size_t count,
               std::uint32_t* pixels) {
  const __m256d from = _mm256_loadu_pd(start);
  const __m256d way = _mm256_loadu_pd(change);
  for (std::size_t i = 0; i < count; ++i) {
    const __m256d color = _mm256_add_pd(from, _mm256_mul_pd(way, _mm256_set1_pd(parts[i])));
    const __m256d alpha = _mm256_permute4x64_pd(color, 0xFF);
    const __m256d factors = _mm256_blend_pd(alpha, _mm256_set1_pd(1), 0b1000);
    const __m256d channels =
        _mm256_mul_pd(_mm256_mul_pd(color, factors), _mm256_set1_pd(kChannelOne));
    const __m128i channels64 = _mm256_cvttpd_epi32(_mm256_add_pd(channels, _mm256_set1_pd(0.5)));
    const __m128i levels = _mm_srli_epi32(_mm_add_epi32(channels64, _mm_set1_epi32(32)), 6);
    const __m128i words = _mm_packus_epi32(levels, levels);
    _mm_storeu_si32(pixels + i, _mm_packus_epi16(words, words));
  }
}

// Eight pixels at a time. Places are worked out afresh for every pixel, since a sum that grows
// would stray from them.
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
