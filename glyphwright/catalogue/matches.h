#pragma once

#include <glyphwright/catalogue/case_table_begin.inc>

// Matches, chat and the music room. These enumerations stand at the top level; the browsing
// namespace Matches lists them.
namespace glyphwright {

// clang-format off: one case on a line

GLYPHWRIGHT_ENUMERATION("", MatchesSection, "Matches", (matchesTabIcon, "matchesTabIconPath"),
                        (replyArrowIcon, "replayArrowIconPath"))

GLYPHWRIGHT_ENUMERATION("", Chat, "Chat", (chatIcon), (leftChatWithTail), (chatBubble),
                        (chatFlagIcon, "chatFlagIconPath"), (ctaPlusIcon), (readReceiptsUnreadIcon),
                        (readReceiptsMatchOptOutIcon))

GLYPHWRIGHT_ENUMERATION("", Vinyl, "Vinyl", (vinylSendButton), (vinylInputButton),
                        (vinylMusicSignIcon), (contactCardEditButtonIcon))

// clang-format on

}  // namespace glyphwright

#include <glyphwright/catalogue/case_table_end.inc>
