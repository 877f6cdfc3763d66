#pragma once

#include <cstdint>
#include <vector>

#include <glyphwright/platform/raster/edges.h>
#include <glyphwright/platform/raster/kernels.h>
#include <glyphwright/platform/raster/stroke_outline.h>

namespace glyphwright::raster {

/// Working memory of one thread, kept between drawings so that small ones need no allocation. It
/// holds nothing of what was drawn: every use overwrites it, and cells are zero between uses.
struct Scratch {
  /// The loops to draw with, chosen once a thread.
  const Kernels* kernels = &raster::kernels();
  std::vector<CGPoint> devicePoints;
  EdgeList edges;
  StrokeOutline outline;
  std::vector<Edge> sortedEdges;
  std::vector<Edge> activeEdges;
  std::vector<std::uint32_t> bandStarts;
  std::vector<std::int16_t> narrowCells;
  std::vector<std::int32_t> wideCells;
  std::vector<std::uint8_t> touched;
  std::vector<std::uint16_t> coverage;
  std::vector<std::uint16_t> clippedCoverage;
  std::vector<std::uint8_t> sourceRow;
  std::vector<std::uint16_t> casterMask;  // of what casts a shadow
  std::vector<std::uint16_t> insideMask;  // of where an inset shadow shows
  std::vector<std::uint16_t> filterRows;
  std::vector<const std::uint16_t*> filterSources;
  std::vector<std::int16_t> taps;
  std::vector<std::uint32_t> ramp;
  std::vector<SolidColor> rowColors;

  /// Gives memory back when a large drawing has left more than `kKeptBytes`.
  void trim();
  static constexpr std::size_t kKeptBytes = std::size_t{4} << 20;
};

/// This thread's scratch.
Scratch& threadScratch();

}  // namespace glyphwright::raster
