#pragma once

#include <array>

#include <glyphwright/presets/painting.h>
#include <glyphwright/presets/palette.h>
#include <glyphwright/presets/referral_artwork.h>
#include <glyphwright/presets/reward_artwork.h>

/// The images of the referral screens: what they are painted of, in paint order.
namespace glyphwright::presets {

// The gradient of the small pieces ends at their lower edges: what lies beyond is plain orange.
inline constexpr Piece referralHeaderPieces[] = {
    Fill{compound(artwork::confettiLeft), palette::lightGrey},
    ClippedGradient{compound(artwork::heartUpright), {1.77, 4.87}, {1.78, 1.01}},
    ClippedGradient{compound(artwork::heartLeaning), {29.81, 15.2}, {31.76, 9.39}},
    ClippedGradient{compound(artwork::bow), {16.4, 11.57}, {16.4, 7.71}},
    Fill{compound(artwork::confettiRight), palette::lightGrey},
    Fill{compound(artwork::knot), palette::coral},
    Translucent{0.1, plain(artwork::giftShadow), palette::dark},
    ClippedGradient{plain(artwork::giftBox), {8.54, 15.85}, {22.26, -0.17}},
    Fill{box({16.77, 6.31, 1.15, 11.86}), palette::offWhite},
    Fill{box({9.36, 8.28, 15.98, 1.15}), palette::offWhite},
    Translucent{0.1, plain(artwork::giftShade), palette::dark},
};
inline constexpr Painting referralHeader = {
    {33, 19.3}, referralHeaderPieces, &palette::referralGradient};

inline constexpr Piece referralCopyPieces[] = {
    ClippedGradient{oval({0, 0, 44, 44}), {0, 37.23}, {40.54, -3.24}},
    Fill{compound(artwork::copySign), palette::white},
};
inline constexpr Painting referralCopy = {{44, 44}, referralCopyPieces, &palette::referralGradient};

inline constexpr CGSize referralShareFrame = {76, 73};

/// The groups before and after the emblem are empty on purpose: places for what may lie under and
/// over it. They paint nothing.
constexpr std::array<Piece, 6> referralSharePieces(CGSize size, const UIColor& backgroundColor) {
  const Group empty{box({0, 9, 76, 64}), {}};
  return {
      Ground{size, backgroundColor},
      empty,
      ClippedGradient{oval({8, 8, 60, 60}), {2.15, 60.38}, {57.03, -3.68}},
      Fill{plain(artwork::shareArrow), palette::offWhite},
      Fill{plain(artwork::shareTray), palette::offWhite},
      empty,
  };
}

inline constexpr Piece referralRewardPieces[] = {
    Fill{plain(artwork::rewardBodyLeft), UIColor::whiteColor()},
    Fill{plain(artwork::rewardBodyRight), UIColor::whiteColor()},
    Fill{plain(artwork::rewardLidLeft), UIColor::whiteColor()},
    Fill{plain(artwork::rewardLidRight), UIColor::whiteColor()},
    Fill{plain(artwork::rewardLoopLeft), UIColor::whiteColor()},
    Fill{plain(artwork::rewardLoopRight), UIColor::whiteColor()},
    Fill{plain(artwork::rewardKnot), UIColor::whiteColor()},
    // 8.56° and -19.03°
    Turned{
        {39.6, 8.0}, 0.1494001839707146, plain(artwork::rewardSparkleLarge), UIColor::whiteColor()},
    Turned{{-0.5, 2.06},
           -0.3321361566545209,
           plain(artwork::rewardSparkleLarge),
           UIColor::whiteColor()},
    Turned{
        {5.5, 5.5}, -0.3321361566545209, plain(artwork::rewardSparkleSmall), UIColor::whiteColor()},
};
inline constexpr Painting referralReward = {{48, 40}, referralRewardPieces};

}  // namespace glyphwright::presets
