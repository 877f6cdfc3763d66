#include <glyphwright/presets/preset_icons.h>

#include <glyphwright/presets/painter.h>
#include <glyphwright/presets/preset_paintings.h>

namespace glyphwright::PresetIcons {

using namespace presets;

UIImage createSafebeamIcon(CGSize size, bool selected, bool withBackground) {
  const auto pieces = safebeamPieces(selected, withBackground);
  return imageOf({safebeamFrame, pieces}, size);
}

std::optional<UIImage> createCameraGradientIcon(CGSize size) {
  const auto pieces = cameraGradientPieces(size);
  return imageOf({size, pieces, &palette::cameraGradient}, size, FailedGradient::leavesCanvas);
}

UIImage createLoopPlayIcon() {
  return imageOf(loopPlay);
}

}  // namespace glyphwright::PresetIcons
