#pragma once

#include <glyphwright/catalogue/case_table_begin.inc>

// Paid features and paywalls.
namespace glyphwright::Revenue {

// clang-format off: one case on a line

GLYPHWRIGHT_ENUMERATION("Revenue.", Features, "Revenue Features", (likesYouHeart), (curataIcon),
                        (tessalyHomeIcon, "tessalyHomeIconPath"),
                        (tessalySparkleIcon, "tessalySparkleIconPath"),
                        (parletteCollapseCaret, "parletteCollapseCaretPath"),
                        (parletteRightArrow, "parletteRightArrowPath"),
                        (parlettePlaneIcon, "parlettePlaneIconPath"),
                        (parletteMessageIcon, "parletteMessageIconPath"), (upsellX))

GLYPHWRIGHT_ENUMERATION("Revenue.", Paywall, "Paywall", (catalogHome),
                        (noAdsPaywallIcon, "noAdsPaywallIconPath"),
                        (chooseWhoSeesYouPaywallIcon, "whoSeesYouPaywallIconPath"),
                        (trevvoPaywallIcon, "trevvoPaywallIconPath"),
                        (controlYourProfilePaywallIcon, "controlYourProfilePaywallIconPath"),
                        (readReceiptsPaywallIcon, "readReceiptsPaywallIconPath"))

// clang-format on

}  // namespace glyphwright::Revenue

#include <glyphwright/catalogue/case_table_end.inc>
