#pragma once

#include <functional>
#include <vector>

#include <glyphwright/layers/gradient_shape_layer.h>
#include <tests/pixels.h>

/// Figures and gradients to draw layers with, and the pictures they give.
namespace glyphwright::layerPictures {

using pixels::at;
using pixels::Rgba;

inline constexpr UIColor kRed(1, 0, 0, 1);
inline constexpr UIColor kGreen(0, 1, 0, 1);
inline constexpr UIColor kBlue(0, 0, 1, 1);

inline UIImage drawn(const std::function<void(CGContextRef)>& draw, CGFloat scale = 2) {
  return pixels::drawn({40, 40}, scale, draw);
}

inline UIImage drawn(const CALayer& layer, CGFloat scale = 2) {
  return drawn([&](CGContextRef context) { layer.renderInContext(context); }, scale);
}

// A slanted figure with a hole that only the even-odd rule leaves open.
inline CGPath figure() {
  CGPath path;
  path.moveToPoint({3.3, 5.1});
  path.addCurveToPoint({35.7, 8.2}, {12, -4}, {30, 20});
  path.addLineToPoint({30.1, 36.4});
  path.addQuadCurveToPoint({3.3, 5.1}, {-4, 30});
  path.closeSubpath();
  path.addEllipseInRect({14, 12, 12, 9});
  return path;
}

inline std::vector<CGGradient::Stop> stops(CGFloat alpha = 1) {
  return {{0.1, kRed.colorWithAlphaComponent(alpha)},
          {0.6, UIColor(0, 1, 0, 0.5 * alpha)},
          {1, kBlue.colorWithAlphaComponent(alpha)}};
}

inline void setGradient(CAGradientLayer& layer) {
  std::vector<CGColor> colors;
  std::vector<CGFloat> locations;
  for (const CGGradient::Stop& stop : stops()) {
    colors.push_back(stop.color);
    locations.push_back(stop.location);
  }
  layer.setColors(colors);
  layer.setLocations(locations);
  layer.setStartPoint({0.25, 0.2});
  layer.setEndPoint({0.9, 0.7});
}

}  // namespace glyphwright::layerPictures
