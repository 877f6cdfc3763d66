#pragma once

#include <optional>
#include <span>
#include <string_view>

#include <glyphwright/platform/color.h>
#include <glyphwright/platform/image.h>

namespace glyphwright::cli {

/// What the ready-made images can be told; each takes only some of it.
struct PresetArguments {
  CGSize size;
  bool selected = false;
  bool withBackground = false;
  UIColor backgroundColor = UIColor::clearColor();
};

/// One ready-made image.
struct Preset {
  std::string_view name;
  UIImage (*draw)(const PresetArguments& arguments);
  /// The size it is drawn for, where it takes one; otherwise it has a size of its own.
  std::optional<CGSize> usualSize{};
  bool takesFlags = false;
  bool takesBackgroundColor = false;
};

/// All ready-made images, in the order of their namespaces.
std::span<const Preset> allPresets();

}  // namespace glyphwright::cli
