#pragma once

#include <array>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <tuple>
#include <utility>
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

/// For turning a shape's edges into coverage. Cells are zero between uses.
struct CellMemory {
  std::vector<Edge> activeEdges;
  std::vector<std::uint32_t> bandHeads;
  std::vector<std::uint32_t> edgeLinks;
  LineVector<std::int16_t> narrowCells;
  LineVector<std::int32_t> wideCells;
  std::vector<std::uint8_t> touched;
  std::vector<std::uint16_t> coverage;
};

/// For what becomes of one path on its way to coverage.
struct ShapeMemory {
  std::vector<CGPoint> points;  // on the device, or in the pen's space
  StrokeOutline outline;
  EdgeList edges;
  CellMemory cells;
};

/// For what is painted of a row.
struct PainterMemory {
  std::vector<std::uint16_t> coverage;
  std::vector<std::uint8_t> source;
  std::vector<std::uint32_t> rowColors;
};

struct MaskMemory {
  std::vector<std::uint16_t> values;
};

/// The weights of a Gaussian, which stay for the next one that is the same.
struct GaussianTaps {
  double sigma = -1;
  double support = 0;
  std::vector<std::int16_t> taps;
};

struct FilterMemory {
  std::vector<std::uint16_t> rows;
  std::vector<const std::uint16_t*> sources;
  GaussianTaps taps;
};

/// What one of several pieces of memory of the same kind is lent for.
enum class For : std::uint8_t { shape, shapeAbove, clip };

/// A place where memory stays while nobody has it.
template <typename T>
struct Shelf {
  T memory;
  bool isLent = false;
  bool wasLent = false;  // ever: otherwise it is empty
};

/// Memory that is lent for a scope. What it holds is of no use to the next one.
template <typename T>
class Lease {
 public:
  /// What is lent already must not be asked for again: that ends a debug build, and gives memory
  /// of its own in others.
  explicit Lease(Shelf<T>& shelf) {
    assert(!shelf.isLent && "this memory is lent already");
    if (shelf.isLent) {
      own_ = std::make_unique<T>();
      memory_ = own_.get();
      return;
    }
    memory_ = &shelf.memory;
    isLent_ = &shelf.isLent;
    shelf.isLent = shelf.wasLent = true;
  }
  Lease(const Lease&) = delete;
  Lease& operator=(const Lease&) = delete;
  ~Lease() {
    if (isLent_ != nullptr) *isLent_ = false;
  }

  T& operator*() const { return *memory_; }
  T* operator->() const { return memory_; }

 private:
  T* memory_;
  bool* isLent_ = nullptr;
  std::unique_ptr<T> own_;
};

/// Working memory of one thread, kept between drawings so that small ones need no allocation. It
/// holds nothing of what was drawn, and whoever works in some of it has it by a lease.
class Scratch {
 public:
  /// The loops to draw with, chosen once a thread.
  const Kernels* kernels = &raster::kernels();

  template <typename T>
  Lease<T> lease(For what = For::shape) {
    return Lease<T>(std::get<Shelves<T>>(shelves_)[static_cast<std::size_t>(what)]);
  }
  /// Gives memory back when a large drawing has left more than `kKeptBytes`.
  void trim();
  std::size_t keptBytes() const;
  static constexpr std::size_t kKeptBytes = std::size_t{4} << 20;

 private:
  template <typename T>
  using Shelves = std::array<Shelf<T>, 3>;
  std::tuple<Shelves<ShapeMemory>, Shelves<PainterMemory>, Shelves<MaskMemory>,
             Shelves<FilterMemory>>
      shelves_;
};

/// This thread's scratch.
Scratch& threadScratch();

}  // namespace glyphwright::raster
