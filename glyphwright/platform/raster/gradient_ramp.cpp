#include <glyphwright/platform/raster/gradient_ramp.h>

#include <algorithm>
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
    colors.start[c] = static_cast<float>(start[c] * alpha + kRounding);
    colors.change[c] = static_cast<float>(start[c] * alphaChange + change * alpha);
    colors.bend[c] = static_cast<float>(change * alphaChange);
  }
  colors.start[3] = static_cast<float>(alpha + kRounding);
  colors.change[3] = static_cast<float>(alphaChange);
  return colors;
}

}  // namespace

GradientRamp::GradientRamp(const CGGradient& gradient, const Kernels& kernels) : kernels_(kernels) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  const std::span<const CGGradient::Stop> stops = gradient.stops();
  stretches_.reserve(stops.size() + 1);
  const CGColor& first = stops.front().color;
  const CGColor& last = stops.back().color;
  stretches_.push_back({-infinity, stops.front().location, 0, between(first, first)});
  for (std::size_t i = 1; i < stops.size(); ++i) {
    const double from = stops[i - 1].location;
    const double until = stops[i].location;
    if (!(from < until)) continue;
    stretches_.push_back(
        {from, until, 1 / (until - from), between(stops[i - 1].color, stops[i].color)});
  }
  stretches_.push_back({stops.back().location, infinity, 0, between(last, last)});
}

// No number lies before all.
const GradientRamp::Stretch& GradientRamp::stretchAt(double place) {
  while (current_ > 0 && !(place >= stretches_[current_].from)) --current_;
  while (current_ + 1 < stretches_.size() && place >= stretches_[current_].until) ++current_;
  return stretches_[current_];
}

void GradientRamp::read(double origin, double step, int index, std::span<std::uint32_t> pixels) {
  const auto placeAt = [&](std::size_t i) {
    return origin + step * (index + static_cast<double>(i));
  };
  for (std::size_t i = 0; i < pixels.size();) {
    const double place = placeAt(i);
    const Stretch& stretch = stretchAt(place);
    // Places rise or fall: what holds the last one holds all between.
    std::size_t end = pixels.size();
    if (!stretch.holds(placeAt(end - 1))) {
      const double edge = step > 0 ? stretch.until : stretch.from;
      const double steps = (edge - place) / step;
      const double most = static_cast<double>(end - i);
      end = i + (steps > 1 ? static_cast<std::size_t>(steps < most ? steps : most) : 1);
      while (end < pixels.size() && stretch.holds(placeAt(end))) ++end;
      while (end > i + 1 && !stretch.holds(placeAt(end - 1))) --end;
    }
    const std::span<std::uint32_t> run = pixels.subspan(i, end - i);
    // A way that has no length in places is the same all along; a step over all of it is too long
    // to be counted in parts of it.
    const bool steps = run.size() > 1 && stretch.perUnit > 0;
    kernels_.mixAlong(stretch.colors, stretch.perUnit > 0 ? stretch.partAt(place) : 0,
                      steps ? step * stretch.perUnit : 0, run.size(), run.data());
    i = end;
  }
}

void GradientRamp::readEach(double (&places)[kAtOnce], std::span<std::uint32_t> pixels) {
  for (std::size_t i = 0; i < pixels.size();) {
    const Stretch& stretch = stretchAt(places[i]);
    double parts[kAtOnce + 8];
    std::size_t end = i;
    do {
      parts[end - i] = stretch.perUnit > 0 ? stretch.partAt(places[end]) : 0;
      ++end;
    } while (end < pixels.size() && stretch.holds(places[end]));
    kernels_.mixParts(stretch.colors, parts, end - i, pixels.data() + i);
    i = end;
  }
}

}  // namespace glyphwright::raster
