#pragma once

#include <cstddef>
#include <vector>

#include <glyphwright/platform/path.h>

/// Plain and slow renderers, right by inspection, that the fast ones are measured against.
namespace glyphwright::reference {

/// One value a pixel, 0 to 1, rows top to bottom.
struct Plane {
  std::size_t width = 0;
  std::size_t height = 0;
  std::vector<double> values;

  Plane(std::size_t w, std::size_t h) : width(w), height(h), values(w * h) {}
  double& at(std::size_t x, std::size_t y) { return values[y * width + x]; }
  double at(std::size_t x, std::size_t y) const { return values[y * width + x]; }
};

/// The share of each pixel that the path covers; one unit of the path is one pixel. 256 lines a
/// row, each with its exact extent in x; curves are flattened to within 1/20000 pixel.
Plane coverage(const CGPath& path, bool evenOdd, std::size_t width, std::size_t height);

/// How often the path goes around each pixel, positive from the x axis towards the y axis, as the
/// mean over the pixel.
Plane winding(const CGPath& path, std::size_t width, std::size_t height);

/// The share of each pixel that lies within `radius` of the path's lines and curves (a stroke of
/// twice the radius with round caps and joins), from 16 × 16 samples a pixel.
Plane neighbourhood(const CGPath& path, double radius, std::size_t width, std::size_t height);

/// Direct two-dimensional convolution with a sampled Gaussian of `sigma` pixels, cut off at 2·sigma
/// to each side and normalised; outside the plane there is nothing.
Plane gaussian(const Plane& plane, double sigma);

}  // namespace glyphwright::reference
