#include <glyphwright/platform/raster/scratch.h>

namespace glyphwright::raster {
namespace {

template <typename... Vectors>
std::size_t sum(const Vectors&... v) {
  return (std::size_t{0} + ... + (v.capacity() * sizeof(typename Vectors::value_type)));
}

std::size_t bytes(const EdgeList& e) {
  return sum(e.storage, e.segments, e.curves, e.cornerX, e.cornerY, e.contourEnds, e.sums);
}

std::size_t bytes(const StrokeOutline& o) {
  return sum(o.left.x, o.left.y, o.right.x, o.right.y, o.contours, o.listed, o.curves, o.raised,
             o.pieceEnds, o.outside, o.rowRuns) +
         o.segments.keptBytes();
}

std::size_t bytes(const CellMemory& c) {
  return sum(c.activeEdges, c.bandHeads, c.edgeLinks, c.narrowCells, c.wideCells, c.touched,
             c.coverage);
}

std::size_t bytes(const ShapeMemory& s) {
  return sum(s.points) + bytes(s.outline) + bytes(s.edges) + bytes(s.cells);
}

std::size_t bytes(const PainterMemory& p) {
  return sum(p.coverage, p.source, p.rowColors);
}

std::size_t bytes(const MaskMemory& m) {
  return sum(m.values);
}

std::size_t bytes(const FilterMemory& f) {
  return sum(f.rows, f.sources, f.taps.taps);
}

template <typename T, std::size_t count>
std::size_t bytes(const std::array<Shelf<T>, count>& shelves) {
  std::size_t all = 0;
  for (const Shelf<T>& shelf : shelves) all += shelf.wasLent ? bytes(shelf.memory) : 0;
  return all;
}

}  // namespace

std::size_t Scratch::keptBytes() const {
  return std::apply([](const auto&... shelves) { return (bytes(shelves) + ...); }, shelves_);
}

void Scratch::trim() {
  if (keptBytes() <= kKeptBytes) return;
  const Kernels* chosen = kernels;
  *this = Scratch{};
  kernels = chosen;
}

Scratch& threadScratch() {
  thread_local Scratch scratch;
  return scratch;
}

}  // namespace glyphwright::raster
