#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include <glyphwright/platform/borrowed.h>
#include <glyphwright/platform/color.h>

namespace glyphwright {

/// Named spaces a gradient may be asked in; all three are the same space here.
enum class CGColorSpace : std::uint8_t { genericRGB, deviceRGB, sRGB };
constexpr CGColorSpace CGColorSpaceCreateDeviceRGB() {
  return CGColorSpace::deviceRGB;
}

/// Which sides of a gradient its end colours run on over, as bits.
enum class CGGradientDrawingOptions : std::uint32_t {
  none = 0,
  drawsBeforeStartLocation = 1,
  drawsAfterEndLocation = 2,
  drawsBeforeAndAfter = 3,
};
constexpr bool contains(CGGradientDrawingOptions set, CGGradientDrawingOptions option) {
  return (static_cast<std::uint32_t>(set) & static_cast<std::uint32_t>(option)) != 0;
}

/// Colours at locations along a line from 0 to 1, interpolated on encoded components that are not
/// premultiplied. Immutable; equal locations make a hard edge.
class CGGradient {
 public:
  /// A colour and where it stands.
  struct Stop {
    CGFloat location;  ///< 0…1 unless kept, never below the one before
    CGColor color;     ///< components clamped to 0…1
  };

  /// What becomes of locations outside 0…1, which a band that moves through passes.
  enum class Locations : std::uint8_t { clamped, kept };
  /// As far out as a location is kept.
  static constexpr CGFloat kFarthestLocation = 1e6;

  /// Locations clamped to 0…1 or to ±kFarthestLocation (NaN is 0) and stably sorted.
  explicit CGGradient(std::vector<Stop> stops, Locations locations = Locations::clamped);

  /// In rising order of location; empty when there were none. Valid as long as the gradient is.
  std::span<const Stop> stops() const { return stops_; }

 private:
  std::vector<Stop> stops_;
};

/// `CGGradientCreateWithColors`: without locations the colours are spread evenly from 0 to 1.
/// Nothing for no colours or fewer locations than colours; surplus locations are ignored; one
/// colour is a solid.
std::optional<CGGradient> CGGradientCreateWithColors(
    std::optional<CGColorSpace> space, const BorrowedList<CGColor>& colors,
    const std::optional<BorrowedList<CGFloat>>& locations = std::nullopt);
/// With locations in braces.
template <std::size_t count>
std::optional<CGGradient> CGGradientCreateWithColors(std::optional<CGColorSpace> space,
                                                     const BorrowedList<CGColor>& colors,
                                                     const CGFloat (&locations)[count]) {
  return CGGradientCreateWithColors(space, colors, std::span<const CGFloat>(locations));
}

}  // namespace glyphwright
