#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <glyphwright/paths/registry.h>

namespace glyphwright {

/// What a name given as text stands for.
struct ResolvedIcon {
  /// The name of the icon method; for the two cases without a drawing, the name that no method has.
  std::string_view method;
  /// Null for the two cases without a drawing.
  ClassMethod builder;
};

/// Reads the name of an icon in any of its four forms: a method ("checkmarkPath"), a case of the
/// catalogue ("App.Shapes.Checks.checkmark"), a case of Icons ("Icons.checkmark") or an integer
/// icon type in decimal ("7"). Whole and case-sensitive; nothing for any other text. For programs
/// that take names from people: in code, call the method or use the case.
std::optional<ResolvedIcon> resolveIcon(std::string_view text);

/// Up to `count` names that somebody who wrote `text` may have meant, best first: names with few
/// letters changed, and names made of the same words ("flip camera" finds "cameraFlipIconPath").
/// Each drawing is named once, in the form that fits the text best. Empty when nothing comes near.
std::vector<std::string> nearestNames(std::string_view text, std::size_t count);
/// The same among other names, such as the commands of a program.
std::vector<std::string> nearestNames(std::string_view text,
                                      std::span<const std::string_view> among, std::size_t count);

}  // namespace glyphwright
