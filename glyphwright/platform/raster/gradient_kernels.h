#pragma once

#include <cstdint>

/// What the loops take that work out colours of gradients.
namespace glyphwright::raster {

/// Colours along a way between two stops: premultiplied levels at `part` of it are
/// start + part × (change + part × bend), alpha last, which does not bend. The levels begin with
/// what rounds them when the rest is cut off.
struct ColorStretch {
  double start[4] = {};
  double change[4] = {};
  double bend[4] = {};
  bool bends = false;
};

/// Colours along a way in even steps from pixel to pixel. Where they do not bend, levels are
/// counted in units of 2⁻²³, and what pixels add to them stands ready.
struct ColorSteps {
  ColorStretch colors;
  double step = 0;  // in parts of the way
  double start[4] = {};
  double change[4] = {};
  double perPixel[4] = {};
  std::int32_t ahead[4][8] = {};  // of no pixel, one, two…
  std::int32_t eight[4] = {};     // of eight pixels
};

/// Colours from one place of a gradient on to where the next run begins, in single precision:
/// levels at `part` = (place − from) × perUnit are those of a ColorStretch.
struct ColorRun {
  float from = 0;
  float until = 0;
  float perUnit = 0;  // 0: one colour, and it stands in `pixel`
  float start[4] = {};
  float change[4] = {};
  float bend[4] = {};
  bool bends = false;
  bool isOpaque = false;  // from end to end, and bends nowhere
  std::uint32_t pixel = 0;
};

/// Where the pixels of a row lie about a centre: x is perColumnX × column + x, y likewise.
struct PixelPlaces {
  double column;  // of the first pixel's centre
  double perColumnX;
  double perColumnY;
  double x;
  double y;
};

}  // namespace glyphwright::raster
