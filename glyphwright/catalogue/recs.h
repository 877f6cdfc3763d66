#pragma once

#include <glyphwright/catalogue/case_table_begin.inc>

// The card stack.
namespace glyphwright::Recs {

// clang-format off: one case on a line

GLYPHWRIGHT_ENUMERATION("Recs.", CardStack, "Card Stack", (recShare, "recSharePath"), (swipeLeft),
                        (swipeRight))

GLYPHWRIGHT_ENUMERATION("Recs.", BreakingGeo, "Breaking Geo",
                        (globalTutorialUpArrow, "globalTutorialUpArrowPath"))

GLYPHWRIGHT_ENUMERATION("Recs.", ItsAMatch, "It's A Match", (retroMatchThinOutline))

GLYPHWRIGHT_ENUMERATION("Recs.", Badges, "Badges", (verifiedBadge, "verifiedBadgePath"),
                        (peopleBadge), (badgeOutline))

// clang-format on

}  // namespace glyphwright::Recs

#include <glyphwright/catalogue/case_table_end.inc>
