#pragma once

#include <istream>
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

/// The icons that the names stand for, in order. A name may be a pattern (see Glob) of methods, or,
/// with a full stop in it, of cases; "-" stands for the names that can be read from `in` (which may
/// be null), one a line or with space between them. Patterns and read names give each icon once.
/// Throws UsageError for the first name that stands for none, with the nearest names.
std::vector<NamedIcon> iconsNamed(std::span<const std::string> names, std::istream* in = nullptr);

/// Every icon method, in declaration order.
std::vector<NamedIcon> allIcons();

/// Every name of an icon but the numbers: methods, qualified cases, master cases.
std::vector<std::string> allIconNames();

}  // namespace glyphwright::cli
