#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

#include <glyphwright/platform/fill_rule.h>
#include <glyphwright/platform/raster/gradient_kernels.h>
#include <glyphwright/platform/raster/pixel_source.h>
#include <glyphwright/platform/raster/stroke_kernels.h>

namespace glyphwright::raster {

/// Coverage and other fractions travel as 15-bit fixed point; this is one.
inline constexpr int kOne = 32767;

/// The product of two 15-bit fractions, or of a fraction and any 16-bit value, rounded.
constexpr int scaled(int value, int fraction) {
  return (value * fraction + 0x4000) >> 15;
}

/// Colour channels travel in 1/64 of a level of 255 until their one rounding to 8 bits.
inline constexpr int kChannelOne = 255 * 64;
constexpr std::uint8_t toByte(int channel64) {
  return static_cast<std::uint8_t>((channel64 + 32) >> 6);
}

/// A premultiplied colour: red, green, blue in 1/64 levels and alpha likewise, with alpha again as
/// a fraction.
struct SolidColor {
  std::int16_t channels[4] = {0, 0, 0, 0};
  std::int16_t alpha = 0;

  bool isOpaque() const { return alpha == kOne; }
  bool isClear() const { return alpha == 0; }
};

/// The colour of a premultiplied pixel, four bytes in memory order. Always inlined, since it is
/// compiled for several processors, and a program has only one of each function.
[[gnu::always_inline]] inline SolidColor solidColor(std::uint32_t pixel) {
  std::uint8_t bytes[4];
  std::memcpy(bytes, &pixel, sizeof(bytes));
  SolidColor color;
  for (int c = 0; c < 4; ++c) color.channels[c] = static_cast<std::int16_t>(bytes[c] << 6);
  color.alpha = static_cast<std::int16_t>((bytes[3] << 7) + (bytes[3] >> 1));
  return color;
}

/// Vertical positions count in 1/1024 pixel, and full coverage of a pixel is 1024 units, so that
/// the height of an edge inside a row is its coverage and sums over a row come out exactly.
inline constexpr int kUnitsPerPixel = 1024;
inline constexpr int kUnitShift = 10;

/// Cells come in blocks, the unit in which rows are summed and untouched stretches skipped.
inline constexpr int kBlock = 16;
inline constexpr int kBlockShift = 4;
/// Bytes that mark blocks are read this far beyond the last.
inline constexpr std::size_t kTouchedMargin = 64;

/// A straight edge inside a region: x in pixels from the region's left, y in units from its top.
/// x within 0…width, y within 0…height; an edge that is level (y0 = y1) changes nothing.
struct Edge {
  float x0;
  float x1;
  std::int32_t y0;
  std::int32_t y1;
};

/// More chords than this are never spent on one curve; at 16384 pixels a quarter circle needs 560.
inline constexpr int kMaxChords = 1024;

/// The frame that curves are sampled in.
struct CurveFrame {
  double left;  // of the region, in device pixels
  double top;
  float width;          // of the region, in pixels
  std::int32_t height;  // and in units
  float chordFactor;    // a curve takes the fourth root of (its bend in pixels)² × this in chords
};

/// The box around points; minima at +∞ and maxima at −∞ when there are none. NaN coordinates do not
/// count but for the mark.
struct PointBox {
  double minX;
  double minY;
  double maxX;
  double maxY;
  bool hasNaN;
};

/// A part of a path that ends in a point: a move, line or curve, or the way back to a contour's
/// first point.
struct Segment {
  std::uint32_t point;   // index of its end
  std::uint32_t corner;  // index of its last corner; how many corners it has, until they are placed
};

/// A cubic among a path's segments.
struct Curve {
  std::uint32_t point;    // index of its first end; two controls and the second end follow
  std::uint32_t segment;  // index among the segments
  std::uint32_t chords;
  std::uint32_t corner;  // where its samples go
};

/// Edges that are being cut, each running down, with y and rows counted from the first row.
struct EdgesAtHand {
  static constexpr std::size_t kCapacity = 64;
  alignas(64) float x0[kCapacity];
  float x1[kCapacity];
  float slope[kCapacity];
  std::int32_t y0[kCapacity];
  std::int32_t y1[kCapacity];
  std::int32_t sign[kCapacity];  // negative for edges that ran up
  std::int32_t first[kCapacity];
  std::int32_t rows[kCapacity];  // from the first one on
  /// Which of them are still to be cut: those of up to four rows, and those of more.
  std::uint8_t low[kCapacity + 8];
  std::uint8_t tall[kCapacity + 8];
  std::size_t lowCount = 0;
  std::size_t tallCount = 0;
  std::size_t nextLow = 0;
  std::size_t nextTall = 0;
};

/// Rows of a region, and the edges that are to be cut into them.
struct EdgeRows {
  EdgeRows(std::span<const Edge> list, std::int32_t topUnits, std::int32_t rowCount,
           std::int32_t cellStride, std::int32_t firstCell)
      : edges(list.data()),
        count(list.size()),
        top(topUnits),
        rows(rowCount),
        stride(cellStride),
        left(firstCell) {}

  const Edge* edges;
  std::size_t count;
  std::int32_t top;  // of the first row, in units
  std::int32_t rows;
  std::int32_t stride;  // cells from row to row
  std::int32_t left;    // where x counts from, in cells from a row's start
  // Where to go on, for whoever cuts them.
  std::size_t next = 0;
  std::int32_t nextRow = 0;
  EdgesAtHand atHand;
};

/// A piece changes this many cells side by side, if it is not wider than two pixels.
inline constexpr int kPieceCells = 4;

/// Pieces of edges, each inside one row.
struct Pieces {
  static constexpr std::size_t kCapacity = 256;
  std::size_t count = 0;
  alignas(
      64) float xa[kCapacity];  // in pixels from the row's start, never below 0 by more than a hair
  float xb[kCapacity];
  std::int32_t cover[kCapacity];  // height in units, negative for pieces running up
  /// Where x counts from; becomes the first of the cells that the piece changes.
  std::int32_t cell[kCapacity];
  /// What the cells change by: nothing for pieces that are too wide.
  std::int16_t amounts[kCapacity][kPieceCells];
  /// A bit for each of eight pieces, set for those that are too wide.
  std::uint8_t wide[kCapacity / 8];
};

/// A source of pixels for rows of cells.
struct SourceRows {
  const PixelSource& source;
  int x;  // of the first cell
  int y;  // of the first row
  /// Takes the source's pixels: two rows, as far from each other as those that are painted, and
  /// eight pixels beyond.
  std::uint8_t* room;
  /// Both rows stand there already, and all rows are the same.
  bool isReady;
};

/// Rows that a filter fills, `outStride` values from row to row.
struct FilterRows {
  std::uint16_t* out;
  std::size_t outStride;
  std::size_t rows;
  std::size_t count;  // of values in each, a multiple of kBlock
};

/// Rows of two coverages for the same pixels, of which the upper one is nothing outside the columns
/// from `from` up to but not including `until`, where its values begin. Up to a block before and
/// after each of its rows is read, and counts for nothing.
struct TwoCoverages {
  const std::uint16_t* below;
  std::size_t belowStride;
  const std::uint16_t* above;
  std::size_t aboveStride;
  std::size_t rows;
  std::size_t count;  // of pixels in each row
  std::size_t from;
  std::size_t until;
};

/// A row of an inset shadow: coverage by what surrounds a shape and casts the shadow, coverage by
/// that shadow, and coverage by the shape, inside of which alone it shows.
struct InsetRow {
  const std::uint16_t* around;
  const std::uint16_t* cast;
  const std::uint16_t* inside;
};

/// Rows of cells to be painted, top to bottom. They are set back to zero. What lies
/// past the end of a row, but not past that of the last row, may be painted too with no coverage.
struct CellRows {
  std::int16_t* cells;
  std::size_t stride;  // cells from row to row, a multiple of kBlock
  /// A byte a block, 0 where all cells are zero, and kTouchedMargin more than there are blocks;
  /// null: read all cells.
  const std::uint8_t* touched;
  std::size_t rows;
  std::size_t width;  // pixels a row, at most the stride
  FillRule rule;
  /// Cells left of each row's first one, which count for all pixels of the row: whole blocks. They
  /// are part of the stride.
  std::size_t before = 0;
};

/// The loops that touch pixels. Each is written once (kernels/), in the words of a set of lanes
/// (lanes/), and there is a table for each set; all are equal bit for bit.
struct Kernels {
  /// The box around points given as x, y, x, y…
  PointBox (*boxPoints)(const double* points, std::size_t count);
  /// Maps points through a matrix a, b, c, d, tx, ty; gives the box around what comes out. `mapped`
  /// may be `points`.
  PointBox (*mapPoints)(const double* points, std::size_t count, const double* matrix,
                        double* mapped);
  /// Sets how many chords each curve takes. Points are device pixels, x, y, x, y…
  void (*countChords)(Curve* curves, std::size_t count, const double* points,
                      const CurveFrame& frame);
  /// Samples curves: as many points as each takes chords, all but the first end, relative to the
  /// region's upper left corner and clamped to the region. Inner samples are moved out of the
  /// curve's hollow so that the chords keep the area under it; the last one is not exact. Writes
  /// whole eights, each curve over what the one before it wrote too much.
  void (*sampleCurves)(const Curve* curves, std::size_t count, const double* points,
                       const CurveFrame& frame, float* x, std::int32_t* y);
  /// Puts the exact end of each segment, clamped to the region, to its last corner.
  void (*placeEnds)(const Segment* segments, std::size_t count, const double* points,
                    const CurveFrame& frame, float* x, std::int32_t* y);
  /// Makes edges of one corner to the next, count − 1 in number, and gives the number of runs
  /// downwards, counted once more where a level edge breaks them. Reads and writes whole eights.
  int (*joinCorners)(const float* x, const std::int32_t* y, std::size_t count, Edge* edges);
  /// Replaces the pieces by the next ones of the edges, as many as there is room for, in no
  /// certain order; none when all edges are done.
  void (*cutEdges)(EdgeRows& rows, Pieces& pieces);
  /// Works out which cells the pieces change, and by how much.
  void (*cellAmounts)(Pieces& pieces);
  /// Adds the amounts to the cells, and sets the bytes of the blocks that they lie in to 1, unless
  /// `touched` is null.
  void (*addPieces)(const Pieces& pieces, std::int16_t* cells, std::uint8_t* touched);
  /// Sums `count` cells (a multiple of kBlock) from `carry` on, folds the winding by the rule into
  /// coverage, sets the cells back to zero and gives the sum.
  int (*sumNarrow)(std::int16_t* cells, std::size_t count, int carry, FillRule rule,
                   std::uint16_t* coverage);
  /// Sums rows of cells like sumNarrow, from nothing on, into two fractions: how much of each pixel
  /// the even-odd rule leaves free, and how much `rule` covers.
  void (*sumInset)(std::int16_t* cells, std::size_t count, FillRule rule, std::uint16_t* around,
                   std::uint16_t* inside);
  /// Sums rows of cells and paints them with a colour, `rowBytes` from row to row: over nothing,
  /// or over what is there.
  void (*writeCells)(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                     const SolidColor& color);
  void (*blendCells)(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                     const SolidColor& color);
  /// The same with a premultiplied pixel for each row.
  void (*writeCellsByRow)(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                          const std::uint32_t* colors);
  void (*blendCellsByRow)(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                          const std::uint32_t* colors);
  /// The same with a source's pixels.
  void (*writeCellsOf)(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                       const SourceRows& source);
  void (*blendCellsOf)(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                       const SourceRows& source);
  /// Two shapes in the same pixels, one painted over the other over nothing. The upper one goes by
  /// the non-zero rule, as strokes do.
  void (*writeTwoCells)(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& below,
                        const CellRows& above, const SolidColor& belowColor,
                        const SolidColor& aboveColor);
  /// Pixels := colour × coverage, whatever was there.
  void (*writeSolid)(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                     const SolidColor& color);
  /// Pixels := one colour × its coverage over another one × its own, whatever was there.
  void (*writeTwoSolids)(std::uint8_t* rgba, std::size_t rowBytes, const TwoCoverages& coverages,
                         const SolidColor& belowColor, const SolidColor& aboveColor);
  /// Pixels := a colour × what is not around, as writeCells has it, and over that a shade × how
  /// much is cast × what is inside.
  void (*writeInset)(std::uint8_t* rgba, const InsetRow& row, std::size_t count,
                     const SolidColor& color, const SolidColor& shade);
  /// Pixels := colour × coverage over the pixels.
  void (*blendSolid)(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                     const SolidColor& color);
  /// The same with a premultiplied source pixel for each pixel.
  void (*writePixels)(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                      const std::uint8_t* source);
  void (*blendPixels)(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                      const std::uint8_t* source);
  /// Sets all but the colours and the step, which is at most the whole way.
  void (*prepareSteps)(ColorSteps& steps);
  /// Pixels of the colours at the parts from + step × i of a way. No channel is above alpha.
  void (*mixAlong)(const ColorSteps& steps, double from, std::size_t count, std::uint8_t* rgba);
  /// The same at parts in any order. Reads whole eights of them.
  void (*mixParts)(const ColorStretch& stretch, const double* parts, std::size_t count,
                   std::uint8_t* rgba);
  /// The colours at the distances of a row's pixels from 0, 0.
  void (*mixRings)(std::span<const ColorRun> runs, const PixelPlaces& places, std::size_t count,
                   std::uint8_t* rgba);
  /// The colours at the angles about 0, 0, clockwise from `origin` on: all are turns, from 0 to 1.
  void (*mixRays)(std::span<const ColorRun> runs, const PixelPlaces& places, double origin,
                  std::size_t count, std::uint8_t* rgba);
  /// coverage := coverage × other.
  void (*multiplyCoverage)(std::uint16_t* coverage, const std::uint16_t* other, std::size_t count);
  /// A symmetric filter downwards: taps[0] weighs the middle, taps[k] the two values k away from it
  /// together. Taps are fractions that sum to at most one. `middle` points to the first row's
  /// middle one of the rows that it takes, `reach` more on either side, and those of the next rows
  /// follow. Taps before `first`, which may be past the last one, are left out.
  void (*filterDown)(const FilterRows& rows, const std::uint16_t* const* middle,
                     const std::int16_t* taps, std::size_t first, std::size_t reach);
  /// The same along rows; `in` begins `reach` values before the first result's.
  void (*filterAlong)(const FilterRows& rows, const std::uint16_t* in, std::size_t inStride,
                      const std::int16_t* taps, std::size_t reach);
  /// Prepares cubics, given as x and y of their four points in device pixels. Reads and writes
  /// whole eights: seven more must be listed, whatever they are.
  void (*prepareSegments)(const double* const* curves, std::size_t count, const SegmentPen& pen,
                          const StrokeSegments& out);
  /// The corners between each of `count` segments and the one listed after it. Reads one segment
  /// more than whole eights, and writes whole eights.
  void (*joinSegments)(const StrokeSegments& segments, std::size_t count, const NodePen& pen,
                       StrokeNode* out);
  /// Puts down both sides of a contour's segments, each followed by its node or not, and gives the
  /// segment that it stops ahead of, or the range's end: one for which even steps will not do, or
  /// that bends more tightly than the pen here and less so there. A side that would run backwards
  /// all along a curve is led through the curve's middle instead, where the neighbours cover what
  /// that leaves out. Samples are moved out of each side's hollow so that its chords keep the area.
  /// Writes up to eight corners too many.
  std::size_t (*putSides)(const StrokeSegments& segments, const StrokeNode* nodes,
                          const SegmentRange& range, const SidePen& pen, SideEnds& sides);
  /// The box around corners.
  CornerBox (*boxCorners)(const float* x, const float* y, std::size_t count);
  /// Makes edges of one corner to the next, moved by `shift` pixels, or of each corner to the one
  /// before when `backwards`: count − 1 in number. Gives the number of runs downwards, like
  /// joinCorners. Reads and writes whole eights.
  int (*joinRing)(const float* x, const float* y, std::size_t count, const RingShift& shift,
                  bool backwards, Edge* edges);
};

/// The fastest table for this machine.
const Kernels& kernels();

/// A table, and whether this processor has what it needs.
struct KernelSet {
  const char* name;
  const Kernels& (*loops)();
  bool (*runsHere)();
};
/// Those that were compiled for this family of processors, the fastest first and the plain one
/// last.
std::span<const KernelSet> kernelSets();

}  // namespace glyphwright::raster
