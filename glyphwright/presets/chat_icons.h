#pragma once

#include <glyphwright/platform/image.h>

/// Ready-made images of the chat screen. Each call draws a new image of a fixed size, at the main
/// screen's scale, transparent where nothing is painted.
namespace glyphwright::ChatIcons {

/// Buttons of the row under the conversation, at rest and selected.
namespace ActionBar {

/// 18.56 × 17.72 points, purple even at rest.
UIImage stickerNormalIcon();
/// 31.34 × 31.34 points: white on a disc.
UIImage stickerSelectedIcon();
/// 24 × 24 points.
UIImage gifNormalIcon();
UIImage gifSelectedIcon();
/// 23 × 22.25 points.
UIImage contactCardNormalIcon();
UIImage contactCardSelectedIcon();
/// 25 × 25 points.
UIImage vinylNormalIcon();
UIImage vinylSelectedIcon();
/// 27.09 × 25.88 points.
UIImage stickerNormalBorderlessIcon();
UIImage stickerSelectedBorderlessIcon();
/// 25 × 25 points.
UIImage safebeamNormalIcon();
UIImage safebeamSelectedIcon();
/// 16 × 16 points.
UIImage liveOpsMoodraNormalIcon();
/// 32 × 32 points, on a disc that begins 0.23 below the upper edge and is cut off at the foot.
UIImage liveOpsMoodraNormalIconWithBackground();
UIImage liveOpsMoodraVariant2NormalIconWithBackground();
/// 32 × 32 points, on a disc that fits exactly.
UIImage liveOpsMoodraSelectedIcon();

}  // namespace ActionBar

namespace PinChat {

/// 19 × 17 points.
UIImage pinChatCTAIcon();
/// 24 × 21 points.
UIImage pinChatAttributionIcon();
UIImage pinChatStarParticleIcon();

}  // namespace PinChat
}  // namespace glyphwright::ChatIcons
