#pragma once

#include <optional>

#include <glyphwright/platform/image.h>

/// Ready-made images of several screens. Each call draws a new image at the main screen's scale,
/// transparent where nothing is painted. A size that cannot be drawn gives an image without pixels.
namespace glyphwright::PresetIcons {

/// `createSafebeamIcon(size:selected:withBackground:)` the safety partner's button. The drawing is
/// 31 × 31 points at the upper left of the canvas, whatever its size.
UIImage createSafebeamIcon(CGSize size, bool selected, bool withBackground);
/// `createCameraGradientIcon(size:)` a camera on a disc that fills the canvas. The camera lies
/// about the point (19, 19) at any size. Always present.
std::optional<UIImage> createCameraGradientIcon(CGSize size);
/// 68 × 68 points.
UIImage createLoopPlayIcon();

}  // namespace glyphwright::PresetIcons
