#include <glyphwright/platform/raster/scratch.h>

namespace glyphwright::raster {
namespace {

template <typename T>
std::size_t bytes(const std::vector<T>& v) {
  return v.capacity() * sizeof(T);
}

}  // namespace

void Scratch::trim() {
  const std::size_t kept =
      bytes(devicePoints) + bytes(edges.storage) + bytes(edges.segments) + bytes(edges.curves) +
      bytes(edges.cornerX) + bytes(edges.cornerY) + bytes(edges.contourEnds) +
      bytes(outline.left.x) + bytes(outline.left.y) + bytes(outline.right.x) +
      bytes(outline.right.y) + bytes(outline.contours) + bytes(outline.nodes) +
      bytes(outline.outside) + bytes(outline.rowUnits) + bytes(sortedEdges) + bytes(activeEdges) +
      bytes(bandStarts) + bytes(narrowCells) + bytes(wideCells) + bytes(touched) + bytes(coverage) +
      bytes(clippedCoverage) + bytes(sourceRow) + bytes(casterMask) + bytes(insideMask) +
      bytes(filterRows) + bytes(filterSources) + bytes(taps) + bytes(ramp) + bytes(rowColors);
  if (kept > kKeptBytes) *this = Scratch{};
}

Scratch& threadScratch() {
  thread_local Scratch scratch;
  return scratch;
}

}  // namespace glyphwright::raster
