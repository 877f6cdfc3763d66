#pragma once

#include <glyphwright/platform/image.h>

/// Images for inviting friends. Each call draws a new image of the asked size, at the main screen's
/// scale, transparent where nothing is painted. But for the close icon the drawings have a size of
/// their own and lie at the upper left of the canvas; a smaller canvas crops them. A size that
/// cannot be drawn gives an image without pixels.
namespace glyphwright::ReferralIcons {

namespace Home {

/// `headerIcon(size:)` a gift with floating hearts, 33 × 19.3 points.
UIImage headerIcon(CGSize size);
/// `copyNotificationIcon(size:)` two sheets on a disc of 44 points.
UIImage copyNotificationIcon(CGSize size);
/// `shareIcon(size:backgroundColor:)` an arrow out of a tray on a disc, 76 × 73 points; the
/// background fills the whole canvas.
UIImage shareIcon(CGSize size, const UIColor& backgroundColor);
/// `closeIcon(size:)` a nearly black cross, scaled to the size.
UIImage closeIcon(CGSize size);

}  // namespace Home

namespace Banner {

/// `rewardIcon(size:)` a gift with sparkles, all white, 48 × 40 points.
UIImage rewardIcon(CGSize size);

}  // namespace Banner
}  // namespace glyphwright::ReferralIcons
