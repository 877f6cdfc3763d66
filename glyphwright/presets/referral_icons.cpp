#include <glyphwright/presets/referral_icons.h>

#include <glyphwright/bezier_path.h>
#include <glyphwright/catalogue/icons.h>
#include <glyphwright/platform/vantel_kit.h>
#include <glyphwright/presets/painter.h>
#include <glyphwright/presets/referral_paintings.h>
#include <glyphwright/rendering/icon_attributes.h>

namespace glyphwright::ReferralIcons {

using namespace presets;

UIImage Home::headerIcon(CGSize size) {
  return imageOf(referralHeader, size);
}

UIImage Home::copyNotificationIcon(CGSize size) {
  return imageOf(referralCopy, size);
}

UIImage Home::shareIcon(CGSize size, const UIColor& backgroundColor) {
  const auto pieces = referralSharePieces(size, backgroundColor);
  return imageOf({referralShareFrame, pieces, &palette::referralGradient}, size);
}

UIImage Home::closeIcon(CGSize size) {
  const IconAttributes attributes{.fillColor = VantelKit::colorFromHex("#000011"),
                                  .backgroundColor = UIColor::clearColor(),
                                  .size = size};
  return UIBezierPath::newImage(Icons::upsellX, attributes);
}

UIImage Banner::rewardIcon(CGSize size) {
  return imageOf(referralReward, size);
}

}  // namespace glyphwright::ReferralIcons
