#pragma once

#include <optional>
#include <span>
#include <string_view>

#include <glyphwright/platform/color.h>
#include <glyphwright/platform/image.h>

namespace glyphwright::presets {

/// What the ready-made images can be told; each takes only some of it.
struct ReadyMadeArguments {
  CGSize size;                                      ///< In points.
  bool selected = false;                            ///< Whether it has its selected look.
  bool withBackground = false;                      ///< Whether it lies on its disc.
  UIColor backgroundColor = UIColor::clearColor();  ///< Of the ground.
};

/// One ready-made image, for programs that go by names; drawn at the main screen's scale.
struct ReadyMadeImage {
  /// Such as "ReferralIcons.Home.closeIcon".
  std::string_view name;
  UIImage (*draw)(const ReadyMadeArguments& arguments);
  /// The size it is drawn for, where it takes one; otherwise it has a size of its own.
  std::optional<CGSize> usualSize{};
  bool takesFlags = false;
  bool takesBackgroundColor = false;
};

/// All ready-made images, in the order of their namespaces.
std::span<const ReadyMadeImage> readyMadeImages();

}  // namespace glyphwright::presets
