#include <glyphwright/platform/raster/kernels/scalar.h>

namespace glyphwright::raster {
namespace {

constexpr Kernels kScalar{
    .boxPoints = scalar::boxPoints,
    .mapPoints = scalar::mapPoints,
    .countChords = scalar::countChords,
    .sampleCurves = scalar::sampleCurves,
    .placeEnds = scalar::placeEnds,
    .joinCorners = scalar::joinCorners,
    .cutEdges = scalar::cutEdges,
    .cellAmounts = scalar::cellAmounts,
    .addPieces = scalar::addPieces,
    .sumNarrow = scalar::sumNarrow,
    .sumInset = scalar::sumInset,
    .sumWide = scalar::sumWide,
    .writeCells = scalar::writeCells,
    .blendCells = scalar::blendCells,
    .writeCellsByRow = scalar::writeCellsByRow,
    .blendCellsByRow = scalar::blendCellsByRow,
    .writeSolid = scalar::writeSolid,
    .writeTwoSolids = scalar::writeTwoSolids,
    .writeInset = scalar::writeInset,
    .blendSolid = scalar::blendSolid,
    .writePixels = scalar::writePixels,
    .blendPixels = scalar::blendPixels,
    .mixColors = scalar::mixColors,
    .rampPixels = scalar::rampPixels,
    .multiplyCoverage = scalar::multiplyCoverage,
    .scaleCoverage = scalar::scaleCoverage,
    .filterDown = scalar::filterDown,
    .filterAlong = scalar::filterAlong,
    .prepareCurves = scalar::prepareCurves,
    .bendCurve = scalar::bendCurve,
    .strokeCurve = scalar::strokeCurve,
    .boxCorners = scalar::boxCorners,
    .countRuns = scalar::countRuns,
    .placeCorners = scalar::placeCorners,
};

}  // namespace

const Kernels& scalarKernels() {
  return kScalar;
}

}  // namespace glyphwright::raster
