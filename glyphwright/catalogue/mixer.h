#pragma once

#include <glyphwright/catalogue/case_table_begin.inc>

// Group calls.
namespace glyphwright::Mixer {

// clang-format off: one case on a line

GLYPHWRIGHT_ENUMERATION("Mixer.", Room, "Room", (cameraFlipIcon, "cameraFlipIconPath"),
                        (videoActiveIcon, "videoActiveIconPath"),
                        (videoInactiveIcon, "videoInactiveIconPath"),
                        (audioInactiveIcon, "audioInactiveIconPath"),
                        (audioActiveIcon, "audioActiveIconPath"), (endCallIcon, "endCallIconPath"),
                        (showMoreIcon, "showMoreIconPath"), (shareMixerIcon, "shareMixerIconPath"))

GLYPHWRIGHT_ENUMERATION("Mixer.", Lobby, "Lobby", (emptyLobbyIcon, "emptyLobbyIconPath"),
                        (audienceIcon, "audienceIconPath"), (lockIcon, "lockIconPath"),
                        (unlockIcon, "unlockIconPath"))

// clang-format on

}  // namespace glyphwright::Mixer

#include <glyphwright/catalogue/case_table_end.inc>
