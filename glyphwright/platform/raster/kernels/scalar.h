#pragma once

#include <glyphwright/platform/raster/kernels.h>

/// The loops in plain words: the text that explains them.
namespace glyphwright::raster::scalar {

PointBox boxPoints(const double* points, std::size_t count);
PointBox mapPoints(const double* points, std::size_t count, const double* matrix, double* mapped);
void countChords(Curve* curves, std::size_t count, const double* points, const CurveFrame& frame);
void sampleCurves(const Curve* curves, std::size_t count, const double* points,
                  const CurveFrame& frame, float* x, std::int32_t* y);
void placeEnds(const Segment* segments, std::size_t count, const double* points,
               const CurveFrame& frame, float* x, std::int32_t* y);
int joinCorners(const float* x, const std::int32_t* y, std::size_t count, Edge* edges);
void cutEdges(EdgeRows& rows, Pieces& pieces);
void cellAmounts(Pieces& pieces);
void addPieces(const Pieces& pieces, std::int16_t* cells, std::uint8_t* touched);
int sumNarrow(std::int16_t* cells, std::size_t count, int carry, FillRule rule,
              std::uint16_t* coverage);
void sumInset(std::int16_t* cells, std::size_t count, FillRule rule, std::uint16_t* around,
              std::uint16_t* inside);
int sumWide(std::int32_t* cells, std::size_t count, int carry, FillRule rule,
            std::uint16_t* coverage);
void writeCells(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                const SolidColor& color);
void blendCells(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                const SolidColor& color);
void writeCellsByRow(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                     const SolidColor* colors);
void blendCellsByRow(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                     const SolidColor* colors);
void writeSolid(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                const SolidColor& color);
void writeTwoSolids(std::uint8_t* rgba, const std::uint16_t* below, const std::uint16_t* above,
                    std::size_t count, const SolidColor& belowColor, const SolidColor& aboveColor);
void writeInset(std::uint8_t* rgba, const InsetRow& row, std::size_t count, const SolidColor& color,
                const SolidColor& shade);
void blendSolid(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                const SolidColor& color);
void writePixels(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                 const std::uint8_t* source);
void blendPixels(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                 const std::uint8_t* source);
void mixColors(const double* start, const double* change, const double* parts, std::size_t count,
               std::uint32_t* pixels);
void rampPixels(std::uint8_t* rgba, const Ramp& ramp, double from, double step, std::size_t count);
void multiplyCoverage(std::uint16_t* coverage, const std::uint16_t* other, std::size_t count);
void scaleCoverage(std::uint16_t* coverage, int fraction, std::size_t count);
void filterDown(const FilterRows& rows, const std::uint16_t* const* middle,
                const std::int16_t* taps, std::size_t reach);
void filterAlong(const FilterRows& rows, const std::uint16_t* in, std::size_t inStride,
                 const std::int16_t* taps, std::size_t reach);
void prepareCurves(const double* const* curves, std::size_t count, const CurvePen& pen,
                   PreparedCurve* out);
void bendCurve(const StrokeCurve& curve, BentCurve& out);
bool strokeCurve(const StrokeCurve& curve, const StrokeCorners& out);
CornerBox boxCorners(const float* x, const float* y, std::size_t count);
void countRuns(const std::int32_t* y, std::size_t lines, int rows, int* changes);
void placeCorners(const float* x, const float* y, std::size_t count, bool backwards,
                  const CornerFrame& frame, const PlacedCorners& out);

}  // namespace glyphwright::raster::scalar
