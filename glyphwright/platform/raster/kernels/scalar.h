#pragma once

#include <glyphwright/platform/raster/kernels.h>

/// The loops in plain words: the text that explains them.
namespace glyphwright::raster::scalar {

PointBox boxPoints(const double* points, std::size_t count);
PointBox mapPoints(const double* points, std::size_t count, const double* matrix, double* mapped);
int sampleCurve(const double* points, const CurveFrame& frame, float* x, std::int32_t* y);
int joinCorners(const float* x, const std::int32_t* y, std::size_t count, Edge* edges);
void cutEdges(EdgeRows& rows, Pieces& pieces);
void cellAmounts(Pieces& pieces);
void addPieces(const Pieces& pieces, std::int16_t* cells, std::uint8_t* touched);
int sumNarrow(std::int16_t* cells, std::size_t count, int carry, FillRule rule,
              std::uint16_t* coverage);
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
void blendSolid(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                const SolidColor& color);
void writePixels(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                 const std::uint8_t* source);
void blendPixels(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                 const std::uint8_t* source);
void rampPixels(std::uint8_t* rgba, const Ramp& ramp, double from, double step, std::size_t count);
void multiplyCoverage(std::uint16_t* coverage, const std::uint16_t* other, std::size_t count);
void scaleCoverage(std::uint16_t* coverage, int fraction, std::size_t count);
void filterDown(std::uint16_t* out, const FilterRows& rows, const std::int16_t* taps,
                std::size_t count);
void filterAlong(std::uint16_t* out, const std::uint16_t* in, const std::int16_t* taps,
                 std::size_t reach, std::size_t count);
void prepareCurves(const double* const* curves, std::size_t count, const CurvePen& pen,
                   PreparedCurve* out);
void bendCurve(const StrokeCurve& curve, BentCurve& out);
bool strokeCurve(const StrokeCurve& curve, const StrokeCorners& out);
CornerBox boxCorners(const float* x, const float* y, std::size_t count);
void countRuns(const std::int32_t* y, std::size_t lines, int rows, int* changes);
void placeCorners(const float* x, const float* y, std::size_t count, bool backwards,
                  const CornerFrame& frame, const PlacedCorners& out);

}  // namespace glyphwright::raster::scalar
