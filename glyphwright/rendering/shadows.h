#pragma once

#include <glyphwright/bezier_path.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/platform/shadow.h>

namespace glyphwright::rendering {

/// Darkens the inside of the path along its edges. The context's state is left as it was.
void drawInsetShadow(CGContextRef context, const UIBezierPath& path, const NSShadow& shadow);

/// The same after filling the path even-odd with the fill colour, both in one pass where that can
/// be.
void fillWithInsetShadow(CGContextRef context, const UIBezierPath& path, const NSShadow& shadow);

/// The image redrawn with the shadow in its own size, at a scale above 0 in pixels per point. No
/// room is added: what falls outside is cut off.
UIImage redrawWithShadow(const UIImage& image, CGSize offset, CGFloat blur,
                         const std::optional<UIColor>& color, CGFloat scale);

/// Whether a shadow with these values shows at all.
bool castsShadow(CGSize offset, CGFloat blur, const std::optional<UIColor>& color);

}  // namespace glyphwright::rendering
