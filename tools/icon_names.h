#pragma once

#include <span>
#include <string>
#include <vector>

#include <glyphwright/catalogue/resolve.h>

namespace glyphwright::cli {

/// An icon as the user named it.
struct NamedIcon {
  std::string name;
  ResolvedIcon icon;
};

/// The icons that the names stand for, in order. Throws UsageError for the first name that stands
/// for none, with the nearest names.
std::vector<NamedIcon> iconsNamed(std::span<const std::string> names);

/// Every icon method, in declaration order.
std::vector<NamedIcon> allIcons();

}  // namespace glyphwright::cli
