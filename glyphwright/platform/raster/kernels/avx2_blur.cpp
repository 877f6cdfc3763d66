#include <glyphwright/platform/raster/kernels/avx2.h>

#include <immintrin.h>

// Filters of rows of coverage, up to four blocks of sixteen values in registers while all taps go
// over them; scalar_pixels.cpp says what each loop computes.
namespace glyphwright::raster::avx2 {
namespace {

__m256i load(const void* from) {
  return _mm256_loadu_si256(static_cast<const __m256i*>(from));
}

template <int blocks>
class Sums {
 public:
  void startWith(const std::uint16_t* values, std::int16_t tap) {
    const __m256i weight = _mm256_set1_epi16(tap);
    for (int b = 0; b < blocks; ++b) {
      sums_[b] = _mm256_mulhrs_epi16(load(values + b * kBlock), weight);
    }
  }
  void addPair(const std::uint16_t* one, const std::uint16_t* other, std::int16_t tap) {
    const __m256i weight = _mm256_set1_epi16(tap);
    for (int b = 0; b < blocks; ++b) {
      const __m256i mean = _mm256_avg_epu16(load(one + b * kBlock), load(other + b * kBlock));
      sums_[b] = _mm256_adds_epi16(sums_[b], _mm256_mulhrs_epi16(mean, weight));
    }
  }
  void store(std::uint16_t* out) const {
    for (int b = 0; b < blocks; ++b) {
      _mm256_storeu_si256(reinterpret_cast<__m256i*>(out + b * kBlock), sums_[b]);
    }
  }

 private:
  __m256i sums_[blocks];
};

template <int blocks>
void down(std::uint16_t* out, const std::uint16_t* const* middle, std::size_t at,
          const std::int16_t* taps, std::size_t reach) {
  Sums<blocks> sums;
  sums.startWith(*middle + at, taps[0]);
  for (std::size_t k = 1; k <= reach; ++k) {
    sums.addPair(*(middle - k) + at, middle[k] + at, taps[k]);
  }
  sums.store(out + at);
}

template <int blocks>
void along(std::uint16_t* out, const std::uint16_t* in, const std::int16_t* taps,
           std::size_t reach) {
  Sums<blocks> sums;
  const std::uint16_t* middle = in + reach;
  sums.startWith(middle, taps[0]);
  for (std::size_t k = 1; k <= reach; ++k) sums.addPair(middle - k, middle + k, taps[k]);
  sums.store(out);
}

// Runs a step for four blocks at a time, then for those that are left.
template <typename Step>
void inBlocks(std::size_t count, Step step) {
  std::size_t at = 0;
  for (; at + 4 * kBlock <= count; at += 4 * kBlock) step.template run<4>(at);
  const std::size_t left = (count - at) / kBlock;
  if (left == 1) step.template run<1>(at);
  if (left == 2) step.template run<2>(at);
  if (left == 3) step.template run<3>(at);
}

struct Down {
  template <int blocks>
  void run(std::size_t at) const {
    down<blocks>(out, middle, at, taps, reach);
  }
  std::uint16_t* out;
  const std::uint16_t* const* middle;
  const std::int16_t* taps;
  std::size_t reach;
};

struct Along {
  template <int blocks>
  void run(std::size_t at) const {
    along<blocks>(out + at, in + at, taps, reach);
  }
  std::uint16_t* out;
  const std::uint16_t* in;
  const std::int16_t* taps;
  std::size_t reach;
};

}  // namespace

void filterDown(std::uint16_t* out, const std::uint16_t* const* middle, const std::int16_t* taps,
                std::size_t reach, std::size_t count) {
  inBlocks(count, Down{out, middle, taps, reach});
}

void filterAlong(std::uint16_t* out, const std::uint16_t* in, const std::int16_t* taps,
                 std::size_t reach, std::size_t count) {
  inBlocks(count, Along{out, in, taps, reach});
}

}  // namespace glyphwright::raster::avx2
