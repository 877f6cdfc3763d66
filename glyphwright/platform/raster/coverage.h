#pragma once

#include <cstdint>
#include <span>

#include <glyphwright/platform/raster/cells.h>
#include <glyphwright/platform/raster/edges.h>
#include <glyphwright/platform/raster/kernels.h>
#include <glyphwright/platform/raster/scratch.h>

namespace glyphwright::raster {

/// A stretch of one row, x relative to the region's left.
struct CoverageSpan {
  int x0;
  int x1;
  /// The coverage of every pixel in it, or kVaries when it stands in the row's coverage array.
  int constant;

  static constexpr int kVaries = -1;
};

/// One row of a shape: spans that follow each other from 0 to the region's width.
struct CoverageRow {
  int y;  // in device pixels
  std::span<const CoverageSpan> spans;
  const std::uint16_t* coverage;  // indexed by x relative to the region's left
};

/// Several whole rows of varying coverage, as long as their region is wide.
struct CoverageRows {
  int y;  // of the first one
  int rows;
  int width;
  const std::uint16_t* coverage;
  std::size_t stride;  // values from row to row
};

/// Receives the rows of a shape from top to bottom, every row of the region once.
class RowSink {
 public:
  virtual void row(const CoverageRow& row) = 0;
  /// The same for several rows that are at hand together.
  virtual void rows(const CoverageRows& rows) {
    const CoverageSpan span{0, rows.width, CoverageSpan::kVaries};
    for (int i = 0; i < rows.rows; ++i) {
      row({rows.y + i, {&span, 1}, rows.coverage + static_cast<std::size_t>(i) * rows.stride});
    }
  }
  /// The short way: rows of the region from device row `y` on, as the edges left them. A sink that
  /// sums cells itself gives true and gets no other rows of this shape.
  virtual bool cells(int y, const CellRows& rows) {
    static_cast<void>(y);
    static_cast<void>(rows);
    return false;
  }

 protected:
  ~RowSink() = default;
};

/// Whether a shape's cells can be narrow ones.
inline bool isNarrow(const EdgeList& edges) {
  return edges.verticalRuns / 2 <= kNarrowWindingLimit && edges.sums.empty();
}

/// Turns edges into exact-area coverage by the rule and hands it on row by row. Small shapes are
/// summed whole; large ones in bands of rows, skipping the blocks that no edge touches.
void sweep(const EdgeList& edges, FillRule rule, CellMemory& memory, const Kernels& kernels,
           RowSink& sink);

/// A shape to be swept.
struct Sweep {
  const EdgeList& edges;
  FillRule rule;
  CellMemory& memory;
  const Kernels& kernels;
  RowSink& sink;
};

/// Sweeps two shapes, neither with an empty region and each with memory of its own, a few rows
/// at a time: of any row the one below comes first, and what it has written is still at hand when
/// the one above is painted over it.
void sweepByTurns(const Sweep& below, const Sweep& above);

}  // namespace glyphwright::raster
