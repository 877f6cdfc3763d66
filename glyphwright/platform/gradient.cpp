#include <glyphwright/platform/gradient.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace glyphwright {
namespace {

// NaN counts as 0.
CGFloat unit(CGFloat value) {
  return value > 0 ? std::min(value, 1.0) : 0;
}

}  // namespace

CGGradient::CGGradient(std::vector<Stop> stops, Locations locations) : stops_(std::move(stops)) {
  const CGFloat least = locations == Locations::kept ? -kFarthestLocation : 0;
  const CGFloat most = locations == Locations::kept ? kFarthestLocation : 1;
  for (Stop& stop : stops_) {
    const CGFloat location = std::isnan(stop.location) ? 0 : stop.location;
    stop.location = std::clamp(location, least, most);
    const UIColor& color = stop.color;
    stop.color = UIColor(unit(color.red()), unit(color.green()), unit(color.blue()), color.alpha());
  }
  const auto before = [](const Stop& a, const Stop& b) { return a.location < b.location; };
  // Stable: of two stops at one location the one that was given later wins from there on.
  if (!std::is_sorted(stops_.begin(), stops_.end(), before)) {
    std::stable_sort(stops_.begin(), stops_.end(), before);
  }
}

std::optional<CGGradient> CGGradientCreateWithColors(
    std::optional<CGColorSpace> /*space*/, const BorrowedList<CGColor>& colors,
    const std::optional<BorrowedList<CGFloat>>& locations) {
  if (colors.empty() || (locations && locations->size() < colors.size())) return std::nullopt;
  std::vector<CGGradient::Stop> stops;
  stops.reserve(colors.size());
  const CGFloat last = static_cast<CGFloat>(std::max<std::size_t>(colors.size() - 1, 1));
  for (std::size_t i = 0; i < colors.size(); ++i) {
    stops.push_back({locations ? (*locations)[i] : static_cast<CGFloat>(i) / last, colors[i]});
  }
  return CGGradient(std::move(stops));
}

}  // namespace glyphwright
