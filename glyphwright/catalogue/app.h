#pragma once

#include <glyphwright/catalogue/case_table_begin.inc>

// Icons of the whole application.
namespace glyphwright::App {

// clang-format off: one case on a line

GLYPHWRIGHT_ENUMERATION("App.", Things, "Things", (alertClockIcon, "clockIcon"),
                        (closedEnvelope, "closedEnvelopePath"),
                        (magnifyingGlass, "magnifyingGlassPath"), (phoneIcon), (smsIcon),
                        (smsChatBubbleIcon), (gear, "gearPath"), (idCard), (ageBanCircle), (cloud),
                        (shareIcon), (magicCatEasterEgg))

GLYPHWRIGHT_ENUMERATION("App.", DeleteAccount, "DeleteAccount", (heart), (shower), (coffee),
                        (dislike), (broken), (pen))

GLYPHWRIGHT_ENUMERATION("App.", Info, "Info", (vantelInfoIcon, "infoIconPath"))

GLYPHWRIGHT_ENUMERATION("App.", Media, "Media", (play, "playPath"), (stop, "stopPath"),
                        (adPlayIcon), (adPauseIcon), (brokenImage))

GLYPHWRIGHT_ENUMERATION("App.", Flames, "Flames", (flame, "flamePath"),
                        (vantelTextLogo, "vantelTextLogoPath"), (vantelUIcon), (vantelLogoWithText),
                        (flameWithSparkle), (flameWithPlus))

GLYPHWRIGHT_ENUMERATION("App.", ThirdParty, "Third Party", (spotifyLogo, "spotifyLogoPath"),
                        (spotifyThemeSongSearchIcon), (appleLogo), (facebookLogo))

GLYPHWRIGHT_ENUMERATION("App.", Badges, "Badges", (verifiedBadge, "verifiedBadgePath"),
                        (peopleBadge), (badgeOutline), (profileBadgeInstagram),
                        (profileBadgePrompt), (profileBadgeSpotify), (profileBadgeSchool),
                        (profileBadgeJob), (profileTappyIndicator))

// clang-format on

}  // namespace glyphwright::App

#include <glyphwright/catalogue/case_table_end.inc>
