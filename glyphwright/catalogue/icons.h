#pragma once

#include <glyphwright/catalogue/case_table_begin.inc>

namespace glyphwright {

// Icons of all areas in one flat list, for callers that want one type for any icon. The order is
// part of the interface. Like the catalogue's enumerations, but without title and sections; it is
// no Pathable.
// clang-format off: one case on a line

GLYPHWRIGHT_CASES(
    Icons, IconEnumeration, "Icons", "", (), (chatIcon), (leftChatWithTail), (chatBubble),
    (chatFlagIcon, "chatFlagIconPath"), (ctaPlusIcon), (vinylSendButton), (vinylInputButton),
    (vinylMusicSignIcon), (matchesTabIcon, "matchesTabIconPath"),
    (replyArrowIcon, "replayArrowIconPath"), (alertClockIcon, "clockIcon"),
    (closedEnvelope, "closedEnvelopePath"), (magnifyingGlass, "magnifyingGlassPath"), (phoneIcon),
    (smsIcon), (smsChatBubbleIcon), (vantelInfoIcon, "infoIconPath"), (play, "playPath"),
    (stop, "stopPath"), (adPlayIcon), (adPauseIcon), (flame, "flamePath"), (appIcon, "appIconPath"),
    (vantelTextLogo, "vantelTextLogoPath"), (vantelUIcon), (vantelLogoWithText),
    (ellipsis, "ellipsisPath"), (singlePerson, "singlePersonPath"), (circle, "circlePath"),
    (partialCircleLoadingIcon, "loadingPartialCircleIcon"), (homeCircleIcon),
    (placesCircleIcon, "placesIconMidCircle"), (arrow, "arrowPath"), (adArrowIcon),
    (arrowDownIcon, "expandableArrowDownIcon"), (dropDownArrowIcon), (arrowUpOut, "arrowUpOutPath"),
    (disclosureArrow, "disclosureArrowPath"), (undoArrow, "undoArrowPath"),
    (leftArrowStem, "leftArrowStemPath"), (anchorArrowDown, "anchorArrowPath"),
    (anchorArrowUp, "anchorArrowUpPath"), (navigationArrowDown, "navigationArrowDownPath"),
    (navigationArrowLeft, "navigationArrowLeftPath"),
    (navigationArrowRight, "navigationArrowRightPath"), (webViewBackIcon),
    (messageStandardCheckMarkIcon, "standardCheckMarkIconPath"), (checkmark, "checkmarkPath"),
    (plusInSquircle, "plusInSquirclePath"), (plusIcon, "plusIconPath"), (roundedButtonBackground),
    (spotifyLogo, "spotifyLogoPath"), (spotifyThemeSongSearchIcon), (appleLogo), (facebookLogo),
    (idCard), (flameWithSparkle), (flameWithPlus),
    (onboardingCameraIcon, "onboardingCameraIconPath"), (onboardingCheckmark),
    (profileJobIcon, "jobIconPath"), (profileSchoolIcon, "schoolIconPath"),
    (profileSchoolOutlineIcon, "schoolOutlineIconPath"), (profileGenderIcon, "genderIconPath"),
    (controlProfileKeyIcon, "controlProfileKeyIconPath"),
    (accountUnderReviewIcon, "accountUnderReviewIconPath"), (inappropriateBiographyIcon),
    (eighteenPlus), (imNotInterestedIcon), (warningIcon), (profilePhotoMask), (addPhotosIcon),
    (inappropriatePhotosIcon), (pencilInCircle, "pencilPathInCircle"), (pencil, "pencilPath"),
    (addItem, "addItemPath"), (removeItem, "removeItemPath"), (likesYouHeart), (curataIcon),
    (catalogHome), (noAdsPaywallIcon, "noAdsPaywallIconPath"),
    (chooseWhoSeesYouPaywallIcon, "whoSeesYouPaywallIconPath"),
    (trevvoPaywallIcon, "trevvoPaywallIconPath"),
    (controlYourProfilePaywallIcon, "controlYourProfilePaywallIconPath"),
    (tessalyHomeIcon, "tessalyHomeIconPath"), (tessalySparkleIcon, "tessalySparkleIconPath"),
    (readReceiptsPaywallIcon, "readReceiptsPaywallIconPath"),
    (superSurgoBannerIcon, "superSurgoBannerIconPath"),
    (parletteCollapseCaret, "parletteCollapseCaretPath"),
    (parletteRightArrow, "parletteRightArrowPath"), (parlettePlaneIcon, "parlettePlaneIconPath"),
    (parletteMessageIcon, "parletteMessageIconPath"), (upsellX), (recShare, "recSharePath"),
    (swipeLeft), (swipeRight), (retroMatchThinOutline), (verifiedBadge, "verifiedBadgePath"),
    (profileBadgeInstagram), (profileBadgePrompt), (profileBadgeSpotify), (profileBadgeSchool),
    (profileBadgeJob), (profileTappyIndicator), (peopleBadge), (badgeOutline), (star, "starPath"),
    (roundyStar, "roundyStarPath"), (stellonStar, "stellonStarPath"),
    (stellonStarOnly, "stellonStarOnlyPath"), (stellonStarTailsOnly, "stellonStarTailsOnlyPath"),
    (vantelPointyStar, "pointyStarPath"), (stellonStamp), (heart, "heartPath"),
    (likeStamp, "iconLikeStamp"), (surgoHeart, "surgoHeartPath"), (surgoBolt, "boltPath"),
    (x, "xPath"), (gamepadNopeX, "gamepadNopeXPath"), (nopeStamp, "nopeIconStamp"),
    (webViewCloseIcon), (clearLocation, "clearLocationIconPath"),
    (clearStatus, "clearStatusIconPath"), (duskplayLogo), (closedCaptions), (placesIcon),
    (profileDistanceIcon, "distanceIconPath"), (placemark, "placemarkPath"),
    (trevvoPlacemarkIcon, "trevvoPlacemarkIconPath"), (airplane, "airplanePath"),
    (airplaneAngled, "angledAirplanePath"), (shieldIcon, "safetyCenterShield"),
    (flipCameraIcon, "flipCameraIconPath"), (micIcon, "micIconPath"),
    (micOffIcon, "micOffIconPath"), (telephoneIcon, "telephoneIconPath"),
    (videoIcon, "videoIconPath"), (videoOffIcon, "videoOffIconPath"),
    (cameraFlipIcon, "cameraFlipIconPath"), (videoActiveIcon, "videoActiveIconPath"),
    (videoInactiveIcon, "videoInactiveIconPath"), (audioInactiveIcon, "audioInactiveIconPath"),
    (audioActiveIcon, "audioActiveIconPath"), (endCallIcon, "endCallIconPath"),
    (emptyLobbyIcon, "emptyLobbyIconPath"), (lockIcon, "lockIconPath"),
    (unlockIcon, "unlockIconPath"), (audienceIcon, "audienceIconPath"),
    (showMoreIcon, "showMoreIconPath"), (shareMixerIcon, "shareMixerIconPath"))

// clang-format on

}  // namespace glyphwright

#include <glyphwright/catalogue/case_table_end.inc>
