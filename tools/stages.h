#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include <glyphwright/bezier_path.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/platform/stroke_style.h>

namespace glyphwright::cli {

/// A straight line on the device, in pixels.
struct DeviceLine {
  CGPoint from;
  CGPoint to;
};

/// What the stages of drawing make of an icon, as the functions that draw leave it. Rows of values
/// go from top to bottom.
struct Stages {
  std::size_t width = 0;  // in pixels
  std::size_t height = 0;
  CGPath path;  // on the device
  /// How an icon of bare strokes is drawn, in pixels; others are filled.
  std::optional<StrokeStyle> pen;
  /// Of the filled area or the stroke's, in running order.
  std::vector<DeviceLine> chords;
  /// The change of signed coverage from the pixel to the left, in parts of 1024.
  std::vector<int> cells;
  std::vector<double> coverage;  // of each pixel, from 0 to 1
  std::vector<double> shadow;    // likewise
  UIImage painted;               // at scale 1
};

/// Draws an icon whose longer side takes `size` pixels (from 4 on), with room around it for the
/// shadow that it casts. Throws std::runtime_error for a path without any extent.
Stages stagesOf(const UIBezierPath& icon, std::size_t size);

}  // namespace glyphwright::cli
