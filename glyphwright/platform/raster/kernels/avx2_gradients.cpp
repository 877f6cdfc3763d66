#include <glyphwright/platform/raster/kernels/avx2.h>

#include <glyphwright/platform/raster/kernels/avx2_lanes.h>

// The colours of gradients; scalar_pixels.cpp says what is computed.
namespace glyphwright::raster::avx2 {
namespace {

// One channel of eight pixels a register.
class Mixer {
 public:
  explicit Mixer(const ColorStretch& stretch) {
    for (int c = 0; c < 4; ++c) {
      start_[c] = _mm256_set1_ps(stretch.start[c]);
      change_[c] = _mm256_set1_ps(stretch.change[c]);
    }
    for (int c = 0; c < 3; ++c) bend_[c] = _mm256_set1_ps(stretch.bend[c]);
  }

  __m256i pixels(__m256d lowParts, __m256d highParts) const {
    const __m256 part = _mm256_set_m128(_mm256_cvtpd_ps(highParts), _mm256_cvtpd_ps(lowParts));
    const __m256 alpha = _mm256_add_ps(start_[3], _mm256_mul_ps(part, change_[3]));
    const auto level = [&](int c) {
      const __m256 slope = _mm256_add_ps(change_[c], _mm256_mul_ps(part, bend_[c]));
      const __m256 exact = _mm256_add_ps(start_[c], _mm256_mul_ps(part, slope));
      return _mm256_cvttps_epi32(_mm256_min_ps(exact, alpha));
    };
    const __m256i redGreen = _mm256_packus_epi32(level(0), level(1));
    const __m256i blueAlpha = _mm256_packus_epi32(level(2), _mm256_cvttps_epi32(alpha));
    // Four of each channel in either half.
    const __m256i channels = _mm256_packus_epi16(redGreen, blueAlpha);
    const __m256i order = _mm256_broadcastsi128_si256(
        _mm_setr_epi8(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15));
    return _mm256_shuffle_epi8(channels, order);
  }

 private:
  __m256 start_[4];
  __m256 change_[4];
  __m256 bend_[3];
};

void put(std::uint32_t* pixels, std::size_t count, __m256i colors) {
  if (count >= 8) {
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(pixels), colors);
  } else {
    _mm256_maskstore_epi32(reinterpret_cast<int*>(pixels), firstPixels(count), colors);
  }
}

}  // namespace

// Each part is worked out afresh, since a sum that grows would stray from it.
void mixAlong(const ColorStretch& stretch, double from, double step, std::size_t count,
              std::uint32_t* pixels) {
  const Mixer mixer(stretch);
  const __m256d first = _mm256_set1_pd(from);
  const __m256d perPixel = _mm256_set1_pd(step);
  const auto partsAt = [&](__m256d pixel) {
    return _mm256_add_pd(first, _mm256_mul_pd(perPixel, pixel));
  };
  const __m256d eight = _mm256_set1_pd(8);
  __m256d low = _mm256_setr_pd(0, 1, 2, 3);
  __m256d high = _mm256_setr_pd(4, 5, 6, 7);
  for (std::size_t i = 0; i < count; i += 8) {
    put(pixels + i, count - i, mixer.pixels(partsAt(low), partsAt(high)));
    low = _mm256_add_pd(low, eight);
    high = _mm256_add_pd(high, eight);
  }
}

void mixParts(const ColorStretch& stretch, const double* parts, std::size_t count,
              std::uint32_t* pixels) {
  const Mixer mixer(stretch);
  for (std::size_t i = 0; i < count; i += 8) {
    put(pixels + i, count - i,
        mixer.pixels(_mm256_loadu_pd(parts + i), _mm256_loadu_pd(parts + i + 4)));
  }
}

}  // namespace glyphwright::raster::avx2
