#include <optional>
#include <span>
#include <vector>

#include <glyphwright/bezier_path.h>
#include <glyphwright/catalogue/icon_type.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/platform/vantel_kit.h>
#include <glyphwright/rendering/attribute_dictionary.h>

namespace glyphwright {
namespace {

UIImage flatIcon(VNTLIconType icon, CGSize size, const UIColor& color) {
  return UIBezierPath::imageWithIcon(
      icon, {{VNTLGlyphwrightSize, size}, {VNTLGlyphwrightFillColor, color}});
}

AttributeDictionary gradientAttributes(CGSize size, std::span<const UIColor> colors, CGPoint start,
                                       CGPoint end) {
  return {{VNTLGlyphwrightSize, size},
          {VNTLGlyphwrightGradientColors, std::vector<UIColor>(colors.begin(), colors.end())},
          {VNTLGlyphwrightGradientStartPoint, start},
          {VNTLGlyphwrightGradientEndPoint, end}};
}

UIImage addPhotosIcon(CGSize size, const UIColor& iconColor,
                      const AttributeDictionary& background) {
  const CGSize iconSize{size.width * 5 / 9, size.height * 5 / 9};
  const auto draw = [&](CGContext&) {
    const UIImage icon = flatIcon(VNTLIconType::addPhotosIcon, iconSize, iconColor);
    UIBezierPath::imageWithIcon(VNTLIconType::homeCircleIcon, background).drawAtPoint({0, 0});
    icon.drawAtPoint({(size.width - iconSize.width) / 2, (size.height - iconSize.height) / 2});
  };
  return UIImage::render(size, std::nullopt, draw).value_or(UIImage());
}

}  // namespace

UIImage UIImage::emailIcon(CGSize size, const BorrowedList<UIColor>& gradientColors) {
  return UIBezierPath::imageWithIcon(VNTLIconType::closedEnvelope,
                                     gradientAttributes(size, gradientColors, {0, 0}, {1, 1}));
}

UIImage UIImage::arrowDownIcon(const UIColor& with, CGSize size) {
  return flatIcon(VNTLIconType::arrowDownIcon, size, with);
}

UIImage UIImage::arrowRightIcon(const UIColor& with, CGSize size) {
  return flatIcon(VNTLIconType::navigationArrowRight, size, with);
}

UIImage UIImage::arrowLeftIcon(const UIColor& with, CGSize size) {
  return flatIcon(VNTLIconType::navigationArrowLeft, size, with);
}

UIImage UIImage::onboardingCameraIcon(CGSize size, const UIColor& color) {
  return flatIcon(VNTLIconType::onboardingCameraIcon, size, color);
}

UIImage UIImage::vinylInputButton(CGSize size, const UIColor& color) {
  return flatIcon(VNTLIconType::vinylInputButton, size, color);
}

UIImage UIImage::vinylSongIcon(CGSize size) {
  return flatIcon(VNTLIconType::vinylMusicSignIcon, size, UIColor(0.847, 0.847, 0.847, 1));
}

UIImage UIImage::matchAlertDot(CGSize size, const UIColor& fillColor, const UIColor& borderColor,
                               CGFloat borderWidth) {
  return UIBezierPath::imageWithIcon(VNTLIconType::circle,
                                     {{VNTLGlyphwrightSize, size},
                                      {VNTLGlyphwrightFillColor, fillColor},
                                      {VNTLGlyphwrightBorderWidth, borderWidth},
                                      {VNTLGlyphwrightBorderColor, borderColor}});
}

UIImage UIImage::matchAlertDotWithSize(CGSize size, const UIColor& fillColor,
                                       const UIColor& borderColor, CGFloat borderWidth) {
  return matchAlertDot(size, fillColor, borderColor, borderWidth);
}

UIImage UIImage::vantelUCircleIcon(CGSize size) {
  return VantelKit::drawImage(size, false, 1.0, [size](CGContext&) {
    UIColor::whiteColor().setFill();
    UIBezierPath::bezierPathWithOvalInRect({CGPoint{}, size}).fill();
    std::optional<UIBezierPath> mark = UIBezierPath::bezierPathWithIcon(
        VNTLIconType::vantelUIcon, {size.width * 0.6, size.height * 0.6});
    if (!mark) return;
    mark->applyTransform(CGAffineTransformMakeTranslation(size.width * 0.2, size.height * 0.2));
    VantelKit::inactiveTitle().set();
    mark->fill();
  });
}

UIImage UIImage::addPhotosHomeIcon(CGSize size, const UIColor& iconColor,
                                   const BorrowedList<UIColor>& backgroundGradientColors) {
  return addPhotosIcon(size, iconColor,
                       gradientAttributes(size, backgroundGradientColors, {1, 0}, {0, 1}));
}

UIImage UIImage::addPhotosHomeIcon(CGSize size, const UIColor& iconColor,
                                   const UIColor& backgroundFillColor) {
  return addPhotosIcon(
      size, iconColor,
      {{VNTLGlyphwrightSize, size}, {VNTLGlyphwrightFillColor, backgroundFillColor}});
}

}  // namespace glyphwright
