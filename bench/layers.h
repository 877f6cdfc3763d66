#pragma once

#include <string>
#include <vector>

#include "renderer.h"

namespace glyphwright::bench {

/// One way of drawing through a description, beside the same shapes drawn by calls to the context.
struct LayerRow {
  std::string what;
  std::size_t side = 0;
  double described = 0;  // microseconds a picture, median
  double direct = 0;
  double ratio() const { return described / direct; }
};

/// Shape layers and gradient shape layers of every icon, rendered into a fresh image context.
std::vector<LayerRow> timeLayers(const std::vector<Icon>& icons, std::size_t side, double seconds);
/// Ready-made images of several pieces, at the size of their drawing.
LayerRow timePaintings(double seconds);

}  // namespace glyphwright::bench
