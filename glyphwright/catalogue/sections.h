#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <glyphwright/catalogue/pathable.h>

namespace glyphwright {

/// Icons under a heading, for browsing.
struct IconTypeSection {
  std::string title;            ///< The heading.
  std::vector<Pathable> paths;  ///< In the order to show them in.

  friend bool operator==(const IconTypeSection&, const IconTypeSection&) = default;
};

/// One area of the catalogue, for code that browses any of them.
class GlyphwrightIconType {
 public:
  /// Makes the list of an area.
  using Sections = std::vector<IconTypeSection> (*)();

  /// The characters are not copied and have to outlive the object; `list` must not be null.
  constexpr GlyphwrightIconType(std::string_view heading, Sections list)
      : title_(heading), sections_(list) {}

  /// The heading, to be shown as it is.
  constexpr std::string_view title() const { return title_; }
  /// A new list from each call, in display order; the caller may change it freely.
  std::vector<IconTypeSection> sections() const { return sections_(); }
  /// All icons of the sections, one after the other.
  std::vector<Pathable> icons() const;

 private:
  std::string_view title_;
  Sections sections_;
};

// Each area has its title and its sections in its own namespace, beside its enumerations. A section
// holds all cases of one enumeration under the enumeration's title.

namespace App {
inline constexpr std::string_view title = "App";
/// The shapes stand between the badges and the third parties. App::Shapes::Triangles is in no
/// section on purpose: it can be drawn but is not listed.
std::vector<IconTypeSection> sections();
}  // namespace App

namespace Recs {
inline constexpr std::string_view title = "Recs";
std::vector<IconTypeSection> sections();

namespace Gamepad {
/// No heading uses it: the enumerations of the gamepad are sections of Recs.
inline constexpr std::string_view title = "Gamepad";
}  // namespace Gamepad
}  // namespace Recs

namespace Location {
inline constexpr std::string_view title = "Location";
std::vector<IconTypeSection> sections();
}  // namespace Location

namespace Profile {
inline constexpr std::string_view title = "Profile";
std::vector<IconTypeSection> sections();
}  // namespace Profile

namespace Matches {
inline constexpr std::string_view title = "Matches";
std::vector<IconTypeSection> sections();
}  // namespace Matches

namespace Revenue {
inline constexpr std::string_view title = "Revenue";
std::vector<IconTypeSection> sections();
}  // namespace Revenue

namespace VideoChat {
inline constexpr std::string_view title = "VideoChat";
std::vector<IconTypeSection> sections();
}  // namespace VideoChat

namespace Mixer {
inline constexpr std::string_view title = "Mixer";
std::vector<IconTypeSection> sections();
}  // namespace Mixer

}  // namespace glyphwright
