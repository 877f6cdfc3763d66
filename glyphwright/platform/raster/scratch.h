#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <vector>

#include <glyphwright/platform/raster/edges.h>
#include <glyphwright/platform/raster/kernels.h>
#include <glyphwright/platform/raster/stroke_outline.h>

namespace glyphwright::raster {

/// Bytes that the caches of today's processors move at once.
inline constexpr std::size_t kCacheLine = 64;

/// Memory that begins where a cache line does.
template <typename T>
struct LineAllocator {
  using value_type = T;
  static constexpr std::align_val_t kLine{kCacheLine};

  LineAllocator() = default;
  template <typename U>
  LineAllocator(const LineAllocator<U>& /*other*/) {}
  T* allocate(std::size_t count) {
    return static_cast<T*>(::operator new(count * sizeof(T), kLine));
  }
  void deallocate(T* memory, std::size_t /*count*/) { ::operator delete(memory, kLine); }
  friend bool operator==(const LineAllocator&, const LineAllocator&) { return true; }
};

template <typename T>
using LineVector = std::vector<T, LineAllocator<T>>;

/// The weights of a Gaussian, which stay for the next one that is the same.
struct GaussianTaps {
  double sigma = -1;
  double support = 0;
  std::vector<std::int16_t> taps;
};

/// Working memory of one thread, kept between drawings so that small ones need no allocation. It
/// holds nothing of what was drawn: every use overwrites it, and cells are zero between uses.
struct Scratch {
  /// The loops to draw with, chosen once a thread.
  const Kernels* kernels = &raster::kernels();
  std::vector<CGPoint> devicePoints;
  EdgeList edges;
  StrokeOutline outline;
  std::vector<Edge> activeEdges;
  std::vector<std::uint32_t> bandHeads;
  std::vector<std::uint32_t> edgeLinks;
  LineVector<std::int16_t> narrowCells;
  LineVector<std::int32_t> wideCells;
  std::vector<std::uint8_t> touched;
  std::vector<std::uint16_t> coverage;
  std::vector<std::uint16_t> clippedCoverage;
  std::vector<std::uint8_t> sourceRow;
  std::vector<std::uint16_t> casterMask;  // of what casts a shadow
  std::vector<std::uint16_t> insideMask;  // of where an inset shadow shows
  std::vector<std::uint16_t> filterRows;
  std::vector<const std::uint16_t*> filterSources;
  GaussianTaps taps;
  std::vector<std::uint32_t> rowColors;
  std::unique_ptr<Scratch> upper;

  /// A second one with the same loops, for a shape that is painted over another by turns.
  Scratch& above();
  /// Gives memory back when a large drawing has left more than `kKeptBytes`.
  void trim();
  std::size_t keptBytes() const;
  static constexpr std::size_t kKeptBytes = std::size_t{4} << 20;
};

/// This thread's scratch.
Scratch& threadScratch();

}  // namespace glyphwright::raster
