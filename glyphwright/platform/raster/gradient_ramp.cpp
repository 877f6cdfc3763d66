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

// Places have 24 bits; a part that grows this much faster still tells 1/100 of a level apart.
constexpr double kSteepest = 256;
constexpr double kFlattest = 1.0 / (1 << 20);
// Farther out no place counts.
constexpr double kFarthest = 1e30;

}  // namespace

GradientRamp::GradientRamp(const CGGradient& gradient, CGGradientDrawingOptions options,
                           const Kernels& kernels)
    : kernels_(kernels) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  const bool before = contains(options, CGGradientDrawingOptions::drawsBeforeStartLocation);
  const bool after = contains(options, CGGradientDrawingOptions::drawsAfterEndLocation);
  const ColorStretch nothing = between(CGColor(0, 0, 0, 0), CGColor(0, 0, 0, 0));
  const std::span<const CGGradient::Stop> stops = gradient.stops();
  stretches_.reserve(stops.size() + 3);
  const auto add = [&](double from, double until, double perUnit, const ColorStretch& colors) {
    if (!(from < until)) return;
    Stretch& stretch = stretches_.emplace_back();
    stretch.from = stretch.origin = from;
    stretch.until = until;
    stretch.perUnit = perUnit;
    stretch.colors = colors;
  };
  const CGColor& first = stops.front().color;
  const CGColor& last = stops.back().color;
  add(-infinity, stops.front().location, 0, between(first, first));
  for (std::size_t i = 1; i < stops.size(); ++i) {
    const double from = stops[i - 1].location;
    const double until = stops[i].location;
    add(from, until, 1 / (until - from), between(stops[i - 1].color, stops[i].color));
  }
  add(stops.back().location, infinity, 0, between(last, last));
  // Nothing lies beyond ends that do not run on.
  const double lowest = before ? -infinity : 0;
  const double beyond = after ? infinity : std::nextafter(1.0, infinity);
  if (!after) {
    while (stretches_.back().from >= beyond) stretches_.pop_back();
    stretches_.back().until = beyond;
    add(beyond, infinity, 0, nothing);
  }
  if (!before) {
    while (stretches_.front().until <= lowest) stretches_.erase(stretches_.begin());
    stretches_.front().from = lowest;
    add(-infinity, lowest, 0, nothing);
    std::rotate(stretches_.begin(), stretches_.end() - 1, stretches_.end());
  }
}

std::vector<ColorRun> GradientRamp::runs() const {
  std::vector<ColorRun> runs;
  runs.reserve(stretches_.size());
  for (const Stretch& stretch : stretches_) {
    const double steepness = stretch.perUnit * (1 + std::fabs(stretch.from));
    if (stretch.perUnit != 0 && !(stretch.perUnit >= kFlattest && steepness <= kSteepest)) {
      return {};
    }
    ColorRun& run = runs.emplace_back();
    run.from = static_cast<float>(std::clamp(stretch.from, -kFarthest, kFarthest));
    run.until = static_cast<float>(std::clamp(stretch.until, -kFarthest, kFarthest));
    run.perUnit = static_cast<float>(stretch.perUnit);
    const ColorStretch& colors = stretch.colors;
    for (int c = 0; c < 4; ++c) {
      run.start[c] = static_cast<float>(colors.start[c]);
      run.change[c] = static_cast<float>(colors.change[c]);
      run.bend[c] = static_cast<float>(colors.bend[c]);
    }
    for (int c = 0; c < 4; ++c) {
      run.pixel |= static_cast<std::uint32_t>(std::min(run.start[c], run.start[3])) << 8 * c;
    }
    run.bends = colors.bends;
    run.isOpaque = colors.start[3] >= 255.5 && colors.change[3] == 0;
  }
  return runs;
}

void GradientRamp::setStep(double step) {
  step_ = step;
  perStep_ = 1 / step;
  preparedOf_[0] = preparedOf_[1] = stretches_.size();
}

const ColorSteps& GradientRamp::stepsOf(std::size_t index) {
  ColorSteps& steps = prepared_[index % 2];
  if (preparedOf_[index % 2] == index) return steps;
  preparedOf_[index % 2] = index;
  const Stretch& stretch = stretches_[index];
  // Of a way that is shorter than a step no two pixels in a row are read.
  const double part = stretch.perUnit > 0 ? step_ * stretch.perUnit : 0;
  steps.colors = stretch.colors;
  steps.step = part >= -1 && part <= 1 ? part : 0;
  kernels_.prepareSteps(steps);
  return steps;
}

void GradientRamp::read(double origin, int index, std::size_t count, std::uint8_t* rgba) {
  const auto placeAt = [&](std::size_t i) {
    return origin + step_ * (index + static_cast<double>(i));
  };
  std::size_t current = first_;
  for (std::size_t i = 0; i < count;) {
    const double place = placeAt(i);
    current = stretchAt(place, current);
    if (i == 0) first_ = current;
    const Stretch& stretch = stretches_[current];
    // Places rise or fall until the stretch's end. A pixel just there may be taken for either side.
    const double edge = step_ > 0 ? stretch.until : stretch.from;
    const double steps = (edge - place) * perStep_;
    std::size_t end = count;
    if (steps < static_cast<double>(count - i)) {
      const auto whole = static_cast<std::size_t>(steps > 0 ? steps : 0);
      end = i + whole + (whole == 0 || step_ < 0 || static_cast<double>(whole) < steps ? 1 : 0);
    }
    kernels_.mixAlong(stepsOf(current), stretch.perUnit > 0 ? stretch.partAt(place) : 0, end - i,
                      rgba + i * 4);
    i = end;
  }
}

void GradientRamp::readEach(const double (&places)[kAtOnce], std::size_t count,
                            std::uint8_t* rgba) {
  for (std::size_t i = 0; i < count;) {
    first_ = stretchAt(places[i], first_);
    const Stretch& stretch = stretches_[first_];
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
