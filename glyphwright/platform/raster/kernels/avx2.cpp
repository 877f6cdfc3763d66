#include <glyphwright/platform/raster/kernels/avx2.h>

namespace glyphwright::raster {
namespace {

constexpr Kernels kAvx2{
    .boxPoints = avx2::boxPoints,
    .mapPoints = avx2::mapPoints,
    .countChords = avx2::countChords,
    .sampleCurves = avx2::sampleCurves,
    .placeEnds = avx2::placeEnds,
    .joinCorners = avx2::joinCorners,
    .cutEdges = avx2::cutEdges,
    .cellAmounts = avx2::cellAmounts,
    .addPieces = avx2::addPieces,
    .sumNarrow = avx2::sumNarrow,
    .sumInset = avx2::sumInset,
    .sumWide = avx2::sumWide,
    .writeCells = avx2::writeCells,
    .blendCells = avx2::blendCells,
    .writeCellsByRow = avx2::writeCellsByRow,
    .blendCellsByRow = avx2::blendCellsByRow,
    .writeSolid = avx2::writeSolid,
    .writeTwoSolids = avx2::writeTwoSolids,
    .writeInset = avx2::writeInset,
    .blendSolid = avx2::blendSolid,
    .writePixels = avx2::writePixels,
    .blendPixels = avx2::blendPixels,
    .mixColors = avx2::mixColors,
    .rampPixels = avx2::rampPixels,
    .multiplyCoverage = avx2::multiplyCoverage,
    .scaleCoverage = avx2::scaleCoverage,
    .filterDown = avx2::filterDown,
    .filterAlong = avx2::filterAlong,
    .prepareCurves = avx2::prepareCurves,
    .bendCurve = avx2::bendCurve,
    .strokeCurve = avx2::strokeCurve,
    .boxCorners = avx2::boxCorners,
    .countRuns = avx2::countRuns,
    .placeCorners = avx2::placeCorners,
};

}  // namespace

const Kernels& avx2Kernels() {
  return kAvx2;
}

}  // namespace glyphwright::raster
