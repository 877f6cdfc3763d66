#pragma once

#include <glyphwright/catalogue/case_table_begin.inc>

// The buttons under the card stack.
namespace glyphwright::Recs::Gamepad {

// clang-format off: one case on a line

GLYPHWRIGHT_ENUMERATION("Recs.Gamepad.", Stars, "Stars", (star, "starPath"),
                        (roundyStar, "roundyStarPath"), (stellonStar, "stellonStarPath"),
                        (stellonStarOnly, "stellonStarOnlyPath"),
                        (stellonStarTailsOnly, "stellonStarTailsOnlyPath"),
                        (vantelPointyStar, "pointyStarPath"), (stellonStamp))

GLYPHWRIGHT_ENUMERATION("Recs.Gamepad.", Hearts, "Hearts", (heart, "heartPath"),
                        (likeStamp, "iconLikeStamp"), (surgoHeart, "surgoHeartPath"))

GLYPHWRIGHT_ENUMERATION("Recs.Gamepad.", Surgo, "Surgo", (surgoBolt, "boltPath"))

GLYPHWRIGHT_ENUMERATION("Recs.Gamepad.", Nopes, "Nopes", (x, "xPath"),
                        (gamepadNopeX, "gamepadNopeXPath"), (nopeStamp, "nopeIconStamp"),
                        (webViewCloseIcon), (clearLocation, "clearLocationIconPath"),
                        (removeItem, "removeItemPath"), (clearStatus, "clearStatusIconPath"))

// clang-format on

}  // namespace glyphwright::Recs::Gamepad

#include <glyphwright/catalogue/case_table_end.inc>
