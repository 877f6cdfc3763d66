#include <glyphwright/platform/raster/kernels/avx2.h>

#include <glyphwright/platform/raster/kernels/avx2_lanes.h>

// Rows of pixels and of coverage.
namespace glyphwright::raster::avx2 {

int sumWide(std::int32_t* cells, std::size_t count, int carry, FillRule rule,
            std::uint16_t* coverage) {
  return scalarKernels().sumWide(cells, count, carry, rule, coverage);
}

void writeSolid(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                const SolidColor& color) {
  const Ink ink(color);
  inWholeStretches(count, [&](auto stretch, std::size_t at) {
    stretch.storePixels(rgba + at * 4, ink.covered(stretch.loadCoverage(coverage + at)));
  });
}

void blendSolid(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                const SolidColor& color) {
  const Ink ink(color);
  inStretches(count, [&](auto stretch, std::size_t at) {
    const __m256i covered = stretch.loadCoverage(coverage + at);
    if (isZero(covered)) return;
    std::uint8_t* pixels = rgba + at * 4;
    stretch.storePixels(pixels, ink.coveredOver(covered, stretch.loadPixels(pixels)));
  });
}

void writePixels(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                 const std::uint8_t* source) {
  inStretches(count, [&](auto stretch, std::size_t at) {
    Quads c = repeated(stretch.loadCoverage(coverage + at));
    const Quads above = stretch.loadPixels(source + at * 4);
    for (int k = 0; k < 4; ++k) c.q[k] = _mm256_mulhrs_epi16(above.q[k], c.q[k]);
    stretch.storePixels(rgba + at * 4, c);
  });
}

void blendPixels(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                 const std::uint8_t* source) {
  inStretches(count, [&](auto stretch, std::size_t at) {
    const __m256i covered = stretch.loadCoverage(coverage + at);
    if (isZero(covered)) return;
    Quads c = repeated(covered);
    std::uint8_t* pixels = rgba + at * 4;
    const Quads above = stretch.loadPixels(source + at * 4);
    const Quads below = stretch.loadPixels(pixels);
    for (int k = 0; k < 4; ++k) {
      const __m256i alpha = _mm256_mulhrs_epi16(alphaFractions(above.q[k]), c.q[k]);
      c.q[k] = over(_mm256_mulhrs_epi16(above.q[k], c.q[k]), alpha, below.q[k]);
    }
    stretch.storePixels(pixels, c);
  });
}

void multiplyCoverage(std::uint16_t* coverage, const std::uint16_t* other, std::size_t count) {
  std::size_t i = 0;
  for (; i + kBlock <= count; i += kBlock) {
    store(coverage + i, _mm256_mulhrs_epi16(load(coverage + i), load(other + i)));
  }
  scalarKernels().multiplyCoverage(coverage + i, other + i, count - i);
}

void scaleCoverage(std::uint16_t* coverage, int fraction, std::size_t count) {
  const __m256i factor = _mm256_set1_epi16(static_cast<short>(fraction));
  std::size_t i = 0;
  for (; i + kBlock <= count; i += kBlock) {
    store(coverage + i, _mm256_mulhrs_epi16(load(coverage + i), factor));
  }
  scalarKernels().scaleCoverage(coverage + i, fraction, count - i);
}

}  // namespace glyphwright::raster::avx2
