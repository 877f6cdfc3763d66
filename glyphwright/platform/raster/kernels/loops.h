#pragma once

#include <glyphwright/platform/raster/kernels.h>
#include <glyphwright/platform/raster/kernels/blur.h>
#include <glyphwright/platform/raster/kernels/cells.h>
#include <glyphwright/platform/raster/kernels/corners.h>
#include <glyphwright/platform/raster/kernels/edges.h>
#include <glyphwright/platform/raster/kernels/gradients.h>
#include <glyphwright/platform/raster/kernels/pieces.h>
#include <glyphwright/platform/raster/kernels/pixels.h>
#include <glyphwright/platform/raster/kernels/points.h>
#include <glyphwright/platform/raster/kernels/rings_and_rays.h>
#include <glyphwright/platform/raster/kernels/shadows.h>
#include <glyphwright/platform/raster/kernels/source_cells.h>
#include <glyphwright/platform/raster/kernels/stroke_curves.h>
#include <glyphwright/platform/raster/kernels/stroke_nodes.h>
#include <glyphwright/platform/raster/kernels/stroke_outlines.h>
#include <glyphwright/platform/raster/kernels/stroke_sides.h>
#include <glyphwright/platform/raster/kernels/two_shapes.h>

namespace glyphwright::raster::loops {
namespace {

/// The loops in the words of one set.
template <typename L>
inline constexpr Kernels kLoops{
    .boxPoints = boxPoints<L>,
    .mapPoints = mapPoints<L>,
    .countChords = countChords<L>,
    .sampleCurves = sampleCurves<L>,
    .placeEnds = placeEnds<L>,
    .joinCorners = joinCorners<L>,
    .cutEdges = cutEdges<L>,
    .cellAmounts = cellAmounts<L>,
    .addPieces = addPieces<L>,
    .sumNarrow = sumNarrow<L>,
    .sumInset = sumInset<L>,
    .writeCells = writeCells<L>,
    .blendCells = blendCells<L>,
    .writeCellsByRow = writeCellsByRow<L>,
    .blendCellsByRow = blendCellsByRow<L>,
    .writeCellsOf = writeCellsOf<L>,
    .blendCellsOf = blendCellsOf<L>,
    .writeTwoCells = writeTwoCells<L>,
    .writeSolid = writeSolid<L>,
    .writeTwoSolids = writeTwoSolids<L>,
    .writeInset = writeInset<L>,
    .blendSolid = blendSolid<L>,
    .writePixels = writePixels<L>,
    .blendPixels = blendPixels<L>,
    .prepareSteps = prepareSteps<L>,
    .mixAlong = mixAlong<L>,
    .mixParts = mixParts<L>,
    .mixRings = mixRings<L>,
    .mixRays = mixRays<L>,
    .multiplyCoverage = multiplyCoverage<L>,
    .filterDown = filterDown<L>,
    .filterAlong = filterAlong<L>,
    .prepareSegments = prepareSegments<L>,
    .joinSegments = joinSegments<L>,
    .putSides = putSides<L>,
    .boxCorners = boxCorners<L>,
    .joinRing = joinRing<L>,
};

}  // namespace
}  // namespace glyphwright::raster::loops
