#pragma once

#include <glyphwright/platform/raster/edges.h>

namespace glyphwright::raster {

/// What edgesOfPath does, for a path that lies inside the region as a whole.
void edgesInside(const CGPath& path, std::vector<CGPoint>& devicePoints, const PixelRect& region,
                 double tolerance, const Kernels& kernels, EdgeList& out);

}  // namespace glyphwright::raster
