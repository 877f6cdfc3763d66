#pragma once

#include <glyphwright/platform/raster/kernels.h>

/// The loops between a path and its cells, for machines with AVX2; kernels.h says what they do.
namespace glyphwright::raster::avx2 {

int sampleCurve(const double* points, const CurveFrame& frame, float* x, std::int32_t* y);
int joinCorners(const float* x, const std::int32_t* y, std::size_t count, Edge* edges);
void cutEdges(EdgeRows& rows, Pieces& pieces);
void cellAmounts(Pieces& pieces);
void addPieces(const Pieces& pieces, std::int16_t* cells, std::uint8_t* touched);

}  // namespace glyphwright::raster::avx2
