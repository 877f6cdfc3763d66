#include <glyphwright/presets/chat_icons.h>

#include <glyphwright/presets/chat_paintings.h>
#include <glyphwright/presets/painter.h>
#include <glyphwright/presets/palette.h>

namespace glyphwright::ChatIcons {

using namespace presets;

namespace {

// The one drawing that two images share; it is told its colour.
UIImage drawVinylIcon(const UIColor& color) {
  const Piece piece = vinylPiece(color);
  return imageOf({vinylFrame, {&piece, 1}});
}

}  // namespace

UIImage ActionBar::stickerNormalIcon() {
  return imageOf(stickerNormal);
}

UIImage ActionBar::stickerSelectedIcon() {
  return imageOf(stickerSelected);
}

UIImage ActionBar::gifNormalIcon() {
  return imageOf(gifNormal);
}

UIImage ActionBar::gifSelectedIcon() {
  return imageOf(gifSelected);
}

UIImage ActionBar::contactCardNormalIcon() {
  return imageOf(contactCardNormal);
}

UIImage ActionBar::contactCardSelectedIcon() {
  return imageOf(contactCardSelected);
}

UIImage ActionBar::vinylNormalIcon() {
  return drawVinylIcon(palette::grey);
}

UIImage ActionBar::vinylSelectedIcon() {
  return drawVinylIcon(palette::vinylGreen);
}

UIImage ActionBar::stickerNormalBorderlessIcon() {
  return imageOf(stickerNormalBorderless);
}

UIImage ActionBar::stickerSelectedBorderlessIcon() {
  return imageOf(stickerSelectedBorderless);
}

UIImage ActionBar::safebeamNormalIcon() {
  return imageOf(safebeamNormal);
}

UIImage ActionBar::safebeamSelectedIcon() {
  return imageOf(safebeamSelected);
}

UIImage ActionBar::liveOpsMoodraNormalIcon() {
  return imageOf(moodraNormal);
}

UIImage ActionBar::liveOpsMoodraNormalIconWithBackground() {
  return imageOf(moodraWithBackground);
}

UIImage ActionBar::liveOpsMoodraVariant2NormalIconWithBackground() {
  return imageOf(moodraVariant2);
}

UIImage ActionBar::liveOpsMoodraSelectedIcon() {
  return imageOf(moodraSelected);
}

UIImage PinChat::pinChatCTAIcon() {
  return imageOf(pinChatCTA);
}

UIImage PinChat::pinChatAttributionIcon() {
  return imageOf(pinChatAttribution);
}

UIImage PinChat::pinChatStarParticleIcon() {
  return imageOf(pinChatStarParticle);
}

}  // namespace glyphwright::ChatIcons
