#include <glyphwright/platform/raster/scratch.h>

namespace glyphwright::raster {
namespace {

template <typename Vector>
std::size_t bytes(const Vector& v) {
  return v.capacity() * sizeof(typename Vector::value_type);
}

}  // namespace

Scratch& Scratch::above() {
  if (upper == nullptr) upper = std::make_unique<Scratch>();
  upper->kernels = kernels;
  return *upper;
}

std::size_t Scratch::keptBytes() const {
  return bytes(devicePoints) + bytes(edges.storage) + bytes(edges.segments) + bytes(edges.curves) +
         bytes(edges.cornerX) + bytes(edges.cornerY) + bytes(edges.contourEnds) + bytes(edges.sums) +
         bytes(outline.left.x) + bytes(outline.left.y) + bytes(outline.right.x) +
         bytes(outline.right.y) + bytes(outline.contours) + bytes(outline.listed) +
         bytes(outline.curves) + bytes(outline.raised) + outline.segments.keptBytes() +
         bytes(outline.pieceEnds) + bytes(outline.outside) + bytes(outline.rowRuns) +
         bytes(activeEdges) + bytes(bandHeads) + bytes(edgeLinks) + bytes(narrowCells) +
         bytes(wideCells) + bytes(touched) + bytes(coverage) + bytes(clippedCoverage) +
         bytes(sourceRow) + bytes(casterMask) + bytes(insideMask) + bytes(filterRows) +
         bytes(filterSources) + bytes(taps.taps) + bytes(rowColors) +
         (upper == nullptr ? 0 : upper->keptBytes());
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
