#include <glyphwright/platform/raster/gradient_ramp.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace glyphwright::raster {
namespace {

// A colour rounds to 1/64 levels and those to levels, as any other colour does; cutting off rounds
// both at once when it begins half of either higher.
constexpr double kRounding = (0.5 + 1.0 / 128);

// The stops' components lie within 0…1.
ColorStretch between(const CGColor& from, const CGColor& to) {
  const double start[] = {from.red(), from.green(), from.blue()};
  const double end[] = {to.red(), to.green(), to.blue()};
  const double alpha = from.alpha() * 255;
  const double alphaChange = to.alpha() * 255 - alpha;
  ColorStretch colors;
  for (int c = 0; c < 3; ++c) {
    const double change = end[c] - start[c];
    colors.start[c] = start[c] * alpha + kRounding;
    colors.change[c] = start[c] * alphaChange + change * alpha;
    colors.bend[c] = change * alphaChange;
    colors.bends |= colors.bend[c] != 0;
  }
  colors.start[3] = alpha + kRounding;
  colors.change[3] = alphaChange;
  return colors;
}

}  // namespace

GradientRamp::GradientRamp(const CGGradient& gradient, CGGradientDrawingOptions options,
                           const Kernels& kernels)
    : kernels_(kernels) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  const bool before = contains(options, CGGradientDrawingOptions::drawsBeforeStartLocation);
  const bool after = contains(options, CGGradientDrawingOptions::drawsAfterEndLocation);
  const double lowest = before ? -infinity : 0;
  const double beyond = after ? infinity : std::nextafter(1.0, infinity);
  const ColorStretch nothing = between(CGColor(0, 0, 0, 0), CGColor(0, 0, 0, 0));
  const auto add = [&](Stretch stretch) {
    stretch.from = std::max(stretch.from, lowest);
    stretch.until = std::min(stretch.until, beyond);
    if (stretch.from < stretch.until) stretches_.push_back(stretch);
  };
  const std::span<const CGGradient::Stop> stops = gradient.stops();
  stretches_.reserve(stops.size() + 3);
  const CGColor& first = stops.front().color;
  const CGColor& last = stops.back().color;
  if (!before) stretches_.push_back({-infinity, 0, 0, 0, nothing});
  add({-infinity, stops.front().location, 0, 0, between(first, first)});
  for (std::size_t i = 1; i < stops.size(); ++i) {
    const double from = stops[i - 1].location;
    const double until = stops[i].location;
    if (!(from < until)) continue;
    add({from, until, from, 1 / (until - from), between(stops[i - 1].color, stops[i].color)});
  }
  add({stops.back().location, infinity, 0, 0, between(last, last)});
  if (!after) stretches_.push_back({beyond, infinity, 0, 0, nothing});
}

// No number lies before all.
const GradientRamp::Stretch& GradientRamp::stretchAt(double place) {
  while (current_ > 0 && !(place >= stretches_[current_].from)) --current_;
  while (current_ + 1 < stretches_.size() && place >= stretches_[current_].until) ++current_;
  return stretches_[current_];
}

void GradientRamp::read(double origin, double step, int index, std::size_t count,
                        std::uint8_t* rgba) {
  const auto placeAt = [&](std::size_t i) {
    return origin + step * (index + static_cast<double>(i));
  };
  for (std::size_t i = 0; i < count;) {
    const double place = placeAt(i);
    const Stretch& stretch = stretchAt(place);
    // Places rise or fall: what holds the last one holds all between.
    std::size_t end = count;
    if (!stretch.holds(placeAt(end - 1))) {
      const double edge = step > 0 ? stretch.until : stretch.from;
      const double steps = (edge - place) / step;
      const double most = static_cast<double>(end - i);
      end = i + (steps > 1 ? static_cast<std::size_t>(steps < most ? steps : most) : 1);
      while (end < count && stretch.holds(placeAt(end))) ++end;
      while (end > i + 1 && !stretch.holds(placeAt(end - 1))) --end;
    }
    // A way that has no length in places is the same all along; a step over all of it is too long
    // to be counted in parts of it.
    const bool steps = end - i > 1 && stretch.perUnit > 0;
    kernels_.mixAlong(stretch.colors, stretch.perUnit > 0 ? stretch.partAt(place) : 0,
                      steps ? step * stretch.perUnit : 0, end - i, rgba + i * 4);
    i = end;
  }
}

void GradientRamp::readEach(const double (&places)[kAtOnce], std::size_t count,
                            std::uint8_t* rgba) {
  for (std::size_t i = 0; i < count;) {
    const Stretch& stretch = stretchAt(places[i]);
    double parts[kAtOnce + 8];
    std::size_t end = i;
    do {
      parts[end - i] = stretch.perUnit > 0 ? stretch.partAt(places[end]) : 0;
      ++end;
    } while (end < count && stretch.holds(places[end]));
    kernels_.mixParts(stretch.colors, parts, end - i, rgba + i * 4);
    i = end;
  }
}

}  // namespace glyphwright::raster
