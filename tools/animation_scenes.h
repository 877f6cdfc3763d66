#pragma once

#include <memory>

#include <glyphwright/bezier_path.h>
#include <glyphwright/platform/layers/layer.h>
#include <glyphwright/rendering/icon_attributes.h>

namespace glyphwright::cli {

// Layers of (0, 0, width, height) with animations from 0 to `duration` seconds whose last moment
// meets the first one.

/// The icon filled with the gradient, which moves on by its own length.
std::shared_ptr<CALayer> sweepScene(const UIBezierPath& icon, const IconGradient& gradient,
                                    CGSize size, double duration);

/// The icon's outline drawn from its start to its end, then taken away from its start on.
std::shared_ptr<CALayer> strokeScene(const UIBezierPath& icon, const UIColor& color, CGSize size,
                                     double duration);

/// The icon turning into another one and back.
std::shared_ptr<CALayer> morphScene(const UIBezierPath& icon, const UIBezierPath& to,
                                    const UIColor& color, CGSize size, double duration);

}  // namespace glyphwright::cli
