#pragma once

#include <span>

#include <glyphwright/paths/outline_copies.h>
#include <glyphwright/presets/chat_artwork.h>
#include <glyphwright/presets/mood_flower.h>
#include <glyphwright/presets/painting.h>
#include <glyphwright/presets/palette.h>
#include <glyphwright/presets/pin_chat_artwork.h>

/// The images of the chat screen: what they are painted of, in paint order.
namespace glyphwright::presets {

// Action bar: stickers

namespace artwork {

inline constexpr auto stickerOnDisc = moved(sticker, 6.39, 6.81);
inline constexpr auto stickerLarge = scaled(sticker, 27.09 / 18.56, 25.88 / 17.72);

}  // namespace artwork

inline constexpr Piece stickerNormalPieces[] = {
    Fill{compound(artwork::sticker), palette::purple},
};
inline constexpr Painting stickerNormal = {{18.56, 17.72}, stickerNormalPieces};

inline constexpr Piece stickerSelectedPieces[] = {
    ClippedGradient{compound(artwork::stickerDisc), {0, 31.34}, {31.23, 2.89}},
    Fill{compound(artwork::stickerOnDisc), palette::white},
};
inline constexpr Painting stickerSelected = {
    {31.34, 31.34}, stickerSelectedPieces, &palette::stickerGradient};

inline constexpr Piece stickerNormalBorderlessPieces[] = {
    Fill{compound(artwork::stickerLarge), palette::grey},
};
inline constexpr Painting stickerNormalBorderless = {{27.09, 25.88}, stickerNormalBorderlessPieces};

inline constexpr Piece stickerSelectedBorderlessPieces[] = {
    Fill{compound(artwork::stickerLarge), palette::purple},
};
inline constexpr Painting stickerSelectedBorderless = {{27.09, 25.88},
                                                       stickerSelectedBorderlessPieces};

// Action bar: animated pictures, contact cards, records

inline constexpr Piece gifNormalPieces[] = {
    Fill{compound(artwork::gif), palette::grey},
};
inline constexpr Painting gifNormal = {{24, 24}, gifNormalPieces};

// The plate and the letters are the same ones, here painted over each other.
inline constexpr Piece gifSelectedPieces[] = {
    Fill{plain(firstContour(artwork::gif)), palette::dark},
    Fill{compound(afterFirstContour(artwork::gif)), palette::gifYellow},
};
inline constexpr Painting gifSelected = {{24, 24}, gifSelectedPieces};

inline constexpr Piece contactCardNormalPieces[] = {
    Fill{compound(artwork::addressBook), palette::grey},
};
inline constexpr Painting contactCardNormal = {{23, 22.25}, contactCardNormalPieces};

inline constexpr Piece contactCardSelectedPieces[] = {
    Fill{compound(artwork::addressBook), palette::contactBlue},
};
inline constexpr Painting contactCardSelected = {{23, 22.25}, contactCardSelectedPieces};

inline constexpr CGSize vinylFrame = {25, 25};
constexpr Piece vinylPiece(const UIColor& color) {
  return Fill{plain(artwork::record), color};
}

// Action bar: safety partner

inline constexpr Piece safebeamNormalPieces[] = {
    Stroke{oval({2.5, 2.5, 20, 20}), palette::lightGrey, 5},
    Stroke{plain(artwork::beam), palette::grey, 5, 4, CGLineCap::round},
};
inline constexpr Painting safebeamNormal = {{25, 25}, safebeamNormalPieces};

inline constexpr Piece safebeamSelectedPieces[] = {
    Stroke{oval({2.5, 2.5, 20, 20}), palette::beamRing, 5},
    Stroke{plain(artwork::beam), palette::beamMark, 5, 4, CGLineCap::round},
};
inline constexpr Painting safebeamSelected = {{25, 25}, safebeamSelectedPieces};

// Action bar: live events

namespace artwork {

inline constexpr auto moodFlowerOnDisc = moved(moodFlower, 9, 9);
// 16 wide about the middle of the disc.
inline constexpr auto moodFlowerLarge =
    scaled(moodFlower, 16.0 / 14, 16.0 / 14, 16 - 7.0 * 16 / 14, 16 - 7.2 * 16 / 14);

}  // namespace artwork

inline constexpr Piece moodraNormalPieces[] = {
    ClippedGradient{plain(artwork::moodFlower), {15.93, 0.73}, {10.61, 18.65}},
};
inline constexpr Painting moodraNormal = {{16, 16}, moodraNormalPieces, &palette::moodraGradient};

// The disc lies a little low on purpose and loses its foot to the canvas.
inline constexpr Area moodraLowDisc = roundedBox({0, 0.23, 32, 32}, 16);

inline constexpr Piece moodraWithBackgroundPieces[] = {
    Fill{moodraLowDisc, palette::offWhite},
    ClippedGradient{plain(artwork::moodFlowerOnDisc), {24.93, 9.73}, {19.61, 27.65}},
};
inline constexpr Painting moodraWithBackground = {
    {32, 32}, moodraWithBackgroundPieces, &palette::moodraGradient};

inline constexpr Piece moodraVariant2Pieces[] = {
    Fill{moodraLowDisc, palette::grey},
    ClippedFill{plain(artwork::moodFlowerOnDisc), plain(artwork::moodFlowerOnDisc),
                palette::offWhite},
};
inline constexpr Painting moodraVariant2 = {{32, 32}, moodraVariant2Pieces};

inline constexpr Piece moodraSelectedPieces[] = {
    ClippedGradient{roundedBox({0, 0, 32, 32}, 16), {32, 0}, {19.75, 38.31}},
    Fill{plain(artwork::moodFlowerLarge), palette::white},
};
inline constexpr Painting moodraSelected = {
    {32, 32}, moodraSelectedPieces, &palette::moodraGradient};

// Pinned chats

namespace artwork {

inline constexpr CGFloat halfRoot = 0.7071067811865476;  // sine and cosine of 45°

// 5.5 high, upright in the middle of the badge.
inline constexpr auto pushpinOnBadge = scaled(pushpin, 0.55, 0.55, 14.5 - 4 * 0.55, 1.75);
// 10 high, turned by 45°, its middle on the middle of the disc.
inline constexpr auto pushpinTurned =
    copied(pushpin, {halfRoot, halfRoot, -halfRoot, halfRoot, 12.48 - (4 - 4.6) * halfRoot,
                     10.1 - (4 + 4.6) * halfRoot});

}  // namespace artwork

inline constexpr Piece pinChatCTAPieces[] = {
    Fill{compound(artwork::pinChatBubble), palette::white},
    Fill{oval({10, 0, 9, 9}), palette::white},
    Fill{plain(artwork::pushpinOnBadge), palette::pinBlue},
};
inline constexpr Painting pinChatCTA = {{19, 17}, pinChatCTAPieces};

inline constexpr Piece pinChatAttributionPieces[] = {
    Group{compound(artwork::pinChatBadge), Fill{box({-4.9, -4.75, 33.9, 30.3}), palette::white}},
    Group{plain(artwork::pinChatBadgeInside),
          ClippedGradient{oval({3.78, 1.4, 17.4, 17.4}), {6.06, 16.49}, {18.9, 3.7}}},
    Fill{plain(artwork::pushpinTurned), palette::white},
};
inline constexpr Painting pinChatAttribution = {
    {24, 21}, pinChatAttributionPieces, &palette::pinChatGradient};

inline constexpr Piece pinChatStarParticlePieces[] = {
    Fill{compound(artwork::starParticles), palette::white},
};
inline constexpr Painting pinChatStarParticle = {{24, 21}, pinChatStarParticlePieces};

}  // namespace glyphwright::presets
