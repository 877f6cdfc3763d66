#include <glyphwright/presets/ready_made.h>

#include <glyphwright/presets/chat_icons.h>
#include <glyphwright/presets/preset_icons.h>
#include <glyphwright/presets/referral_icons.h>

namespace glyphwright::presets {
namespace {

/// An image without arguments.
template <UIImage (*factory)()>
constexpr ReadyMadeImage fixed(std::string_view name) {
  return {name, [](const ReadyMadeArguments&) { return factory(); }};
}

/// An image that takes only its size.
template <UIImage (*factory)(CGSize)>
constexpr ReadyMadeImage sized(std::string_view name, CGSize usualSize) {
  return {name, [](const ReadyMadeArguments& given) { return factory(given.size); }, usualSize};
}

UIImage safebeam(const ReadyMadeArguments& given) {
  return PresetIcons::createSafebeamIcon(given.size, given.selected, given.withBackground);
}

UIImage camera(const ReadyMadeArguments& given) {
  return PresetIcons::createCameraGradientIcon(given.size).value_or(UIImage());
}

UIImage share(const ReadyMadeArguments& given) {
  return ReferralIcons::Home::shareIcon(given.size, given.backgroundColor);
}

constexpr ReadyMadeImage images[] = {
    fixed<ChatIcons::ActionBar::stickerNormalIcon>("ChatIcons.ActionBar.stickerNormalIcon"),
    fixed<ChatIcons::ActionBar::stickerSelectedIcon>("ChatIcons.ActionBar.stickerSelectedIcon"),
    fixed<ChatIcons::ActionBar::gifNormalIcon>("ChatIcons.ActionBar.gifNormalIcon"),
    fixed<ChatIcons::ActionBar::gifSelectedIcon>("ChatIcons.ActionBar.gifSelectedIcon"),
    fixed<ChatIcons::ActionBar::contactCardNormalIcon>("ChatIcons.ActionBar.contactCardNormalIcon"),
    fixed<ChatIcons::ActionBar::contactCardSelectedIcon>(
        "ChatIcons.ActionBar.contactCardSelectedIcon"),
    fixed<ChatIcons::ActionBar::vinylNormalIcon>("ChatIcons.ActionBar.vinylNormalIcon"),
    fixed<ChatIcons::ActionBar::vinylSelectedIcon>("ChatIcons.ActionBar.vinylSelectedIcon"),
    fixed<ChatIcons::ActionBar::stickerNormalBorderlessIcon>(
        "ChatIcons.ActionBar.stickerNormalBorderlessIcon"),
    fixed<ChatIcons::ActionBar::stickerSelectedBorderlessIcon>(
        "ChatIcons.ActionBar.stickerSelectedBorderlessIcon"),
    fixed<ChatIcons::ActionBar::safebeamNormalIcon>("ChatIcons.ActionBar.safebeamNormalIcon"),
    fixed<ChatIcons::ActionBar::safebeamSelectedIcon>("ChatIcons.ActionBar.safebeamSelectedIcon"),
    fixed<ChatIcons::ActionBar::liveOpsMoodraNormalIcon>(
        "ChatIcons.ActionBar.liveOpsMoodraNormalIcon"),
    fixed<ChatIcons::ActionBar::liveOpsMoodraNormalIconWithBackground>(
        "ChatIcons.ActionBar.liveOpsMoodraNormalIconWithBackground"),
    fixed<ChatIcons::ActionBar::liveOpsMoodraVariant2NormalIconWithBackground>(
        "ChatIcons.ActionBar.liveOpsMoodraVariant2NormalIconWithBackground"),
    fixed<ChatIcons::ActionBar::liveOpsMoodraSelectedIcon>(
        "ChatIcons.ActionBar.liveOpsMoodraSelectedIcon"),
    fixed<ChatIcons::PinChat::pinChatCTAIcon>("ChatIcons.PinChat.pinChatCTAIcon"),
    fixed<ChatIcons::PinChat::pinChatAttributionIcon>("ChatIcons.PinChat.pinChatAttributionIcon"),
    fixed<ChatIcons::PinChat::pinChatStarParticleIcon>("ChatIcons.PinChat.pinChatStarParticleIcon"),
    {"PresetIcons.createSafebeamIcon", safebeam, CGSize{31, 31}, true},
    {"PresetIcons.createCameraGradientIcon", camera, CGSize{38, 38}},
    fixed<PresetIcons::createLoopPlayIcon>("PresetIcons.createLoopPlayIcon"),
    sized<ReferralIcons::Home::headerIcon>("ReferralIcons.Home.headerIcon", {33, 19.3}),
    sized<ReferralIcons::Home::copyNotificationIcon>("ReferralIcons.Home.copyNotificationIcon",
                                                     {44, 44}),
    {"ReferralIcons.Home.shareIcon", share, CGSize{76, 73}, false, true},
    sized<ReferralIcons::Home::closeIcon>("ReferralIcons.Home.closeIcon", {24, 24}),
    sized<ReferralIcons::Banner::rewardIcon>("ReferralIcons.Banner.rewardIcon", {48, 40}),
};

}  // namespace

std::span<const ReadyMadeImage> readyMadeImages() {
  return images;
}

}  // namespace glyphwright::presets
