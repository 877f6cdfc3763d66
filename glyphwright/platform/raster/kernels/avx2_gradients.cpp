#include <glyphwright/platform/raster/kernels/avx2.h>

#include <glyphwright/platform/raster/kernels/avx2_lanes.h>

// The colours of gradients; scalar_pixels.cpp says what is computed.
namespace glyphwright::raster::avx2 {

// Four places at a time.
void placeEntries(double origin, double step, int index, double size, std::size_t count,
                  double* places) {
  const __m256d first = _mm256_set1_pd(origin);
  const __m256d perPlace = _mm256_set1_pd(step);
  const __m256d end = _mm256_set1_pd(size);
  const __m256d zero = _mm256_setzero_pd();
  __m256d at = _mm256_add_pd(_mm256_set1_pd(index), _mm256_setr_pd(0, 1, 2, 3));
  for (std::size_t i = 0; i < count; i += 4) {
    const __m256d location = _mm256_add_pd(first, _mm256_mul_pd(perPlace, at));
    const __m256d held = _mm256_min_pd(_mm256_max_pd(location, zero), end);
    const __m256d entry = _mm256_cvtepi32_pd(_mm256_cvttpd_epi32(held));
    const __m256d within = _mm256_div_pd(_mm256_add_pd(entry, _mm256_set1_pd(0.5)), end);
    const __m256d isPast = _mm256_cmp_pd(location, end, _CMP_GE_OQ);
    const __m256d isBefore = _mm256_cmp_pd(location, zero, _CMP_NGE_UQ);
    const __m256d place = _mm256_blendv_pd(within, _mm256_set1_pd(2), isPast);
    _mm256_storeu_pd(places + i, _mm256_blendv_pd(place, _mm256_set1_pd(-1), isBefore));
    at = _mm256_add_pd(at, _mm256_set1_pd(4));
  }
}

// One channel of four pixels a register.
void mixColors(const ColorStretch& stretch, const double* places, std::size_t count,
               std::uint32_t* pixels) {
  const auto fourOf = [&](__m256d place) {
    const __m256d part = _mm256_mul_pd(_mm256_sub_pd(place, _mm256_set1_pd(stretch.from)),
                                       _mm256_set1_pd(stretch.perUnit));
    const auto component = [&](int c) {
      return _mm256_add_pd(_mm256_set1_pd(stretch.start[c]),
                           _mm256_mul_pd(_mm256_set1_pd(stretch.change[c]), part));
    };
    const auto level = [](__m256d value) {
      const __m256d channel = _mm256_mul_pd(value, _mm256_set1_pd(kChannelOne));
      const __m128i channel64 = _mm256_cvttpd_epi32(_mm256_add_pd(channel, _mm256_set1_pd(0.5)));
      return _mm_srli_epi32(_mm_add_epi32(channel64, _mm_set1_epi32(32)), 6);
    };
    const __m256d alpha = component(3);
    const auto premultiplied = [&](int c) { return level(_mm256_mul_pd(component(c), alpha)); };
    const __m128i redGreen = _mm_or_si128(premultiplied(0), _mm_slli_epi32(premultiplied(1), 8));
    const __m128i blueAlpha =
        _mm_or_si128(_mm_slli_epi32(premultiplied(2), 16), _mm_slli_epi32(level(alpha), 24));
    return _mm_or_si128(redGreen, blueAlpha);
  };
  std::size_t i = 0;
  for (; i + 4 <= count; i += 4) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(pixels + i), fourOf(_mm256_loadu_pd(places + i)));
  }
  for (; i < count; ++i) _mm_storeu_si32(pixels + i, fourOf(_mm256_set1_pd(places[i])));
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
