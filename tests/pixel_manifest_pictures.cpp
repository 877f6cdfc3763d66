#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <glyphwright/bezier_path.h>
#include <glyphwright/catalogue/catalogue.h>
#include <glyphwright/catalogue/icon_type.h>
#include <glyphwright/catalogue/icons.h>
#include <glyphwright/catalogue/pathable.h>
#include <glyphwright/paths/method_names.h>
#include <glyphwright/paths/registry.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/platform/vantel_kit.h>
#include <glyphwright/rendering/attribute_dictionary.h>
#include <glyphwright/rendering/icon_attributes.h>

#include "pixel_manifest.h"
#include "pixels.h"
#include "tools/painting_looks.h"

namespace glyphwright::pixel_manifest {
namespace {

using Direction = IconGradient::Direction;

const UIColor kInk(0.11, 0.13, 0.19, 1);
const UIColor kRose(0.93, 0.26, 0.4, 1);
const UIColor kAmber(0.98, 0.7, 0.2, 1);
const UIColor kTeal(0.1, 0.6, 0.6, 0.75);
const UIColor kShade(0, 0, 0.1, 0.6);
const UIColor kClear = UIColor::clearColor();

IconAttributes plain(CGFloat side) {
  return {.fillColor = kInk,
          .backgroundColor = kClear,
          .stroke = IconStroke(kClear, 0),
          .size = {side, side}};
}

void addIcons(std::vector<Picture>& list) {
  for (const std::string_view name : iconMethodNames) {
    for (const int side : {24, 48, 96}) {
      list.push_back({std::string(name) + '@' + std::to_string(side),
                      [name, side] { return findClassMethod(name)().makeImage(plain(side)); }});
    }
  }
}

void addRecords(std::vector<Picture>& list) {
  const auto add = [&](std::string name, Icons icon, CGFloat side, auto change) {
    IconAttributes attributes = plain(side);
    change(attributes);
    list.push_back({std::move(name), [=] { return UIBezierPath::newImage(icon, attributes); }});
  };
  add("record-hairline", Icons::star, 64, [](IconAttributes& a) { a.stroke.reset(); });
  add("record-stroke", Icons::heart, 72,
      [](IconAttributes& a) { a.stroke = IconStroke(kRose, 5.5); });
  add("record-translucent", Icons::flame, 72, [](IconAttributes& a) {
    a.fillColor = kTeal;
    a.stroke = IconStroke(UIColor(1, 0.8, 0.2, 0.5), 4);
    a.backgroundColor = UIColor(0.9, 0.9, 1, 0.3);
  });
  add("record-gradient", Icons::surgoBolt, 96, [](IconAttributes& a) {
    a.gradient = IconGradient({kRose, kAmber, kTeal}, {}, Direction::leftToRight);
    a.backgroundColor = UIColor::whiteColor();
  });
  add("record-slanted-gradient", Icons::airplane, 96, [](IconAttributes& a) {
    a.gradient = IconGradient({kRose, kInk, kAmber}, {{0.9, 0.2}, {0.1, 0.7}}, {0.1, 0.5, 0.5});
  });
  add("record-drop-shadow", Icons::heart, 96, [](IconAttributes& a) {
    a.fillColor = kRose;
    a.dropShadow = IconShadow(kShade, {2, 4}, 6);
    a.backgroundColor = UIColor::whiteColor();
  });
  add("record-grouped-shadow", Icons::roundyStar, 96, [](IconAttributes& a) {
    a.gradient = IconGradient({kRose, kAmber}, {}, Direction::topLeftToBottomRight);
    a.stroke = IconStroke(kTeal, 3);
    a.dropShadow = IconShadow(kShade, {-3, 3}, 4);
  });
  add("record-wide-blur", Icons::circle, 160, [](IconAttributes& a) {
    a.dropShadow = IconShadow(kShade, {0, 0}, 48);
  });
  add("record-inset-shadow", Icons::placemark, 96, [](IconAttributes& a) {
    a.fillColor = kAmber;
    a.insetShadow = IconShadow(kShade, {3, 5}, 5);
  });
  add("record-everything", Icons::chatBubble, 120, [](IconAttributes& a) {
    a.border = IconBorder(kTeal, 3);
    a.stroke = IconStroke(kInk, 1.5);
    a.gradient = IconGradient({kRose, kAmber}, {}, Direction::bottomLeftToTopRight);
    a.dropShadow = IconShadow(kShade, {1, 2}, 4);
    a.insetShadow = IconShadow(kShade, {0, -2}, 3);
    a.backgroundColor = UIColor(0.95, 0.95, 1, 1);
  });
}

void addOthers(std::vector<Picture>& list) {
  list.push_back(
      {"dictionary-everything", [] {
         const pixels::ScreenScale scale(2);
         // One by one: gcc 12 destroys what it has not made where a list throws midway.
         AttributeDictionary look;
         look.setValue(VNTLGlyphwrightSize, CGSize{60, 44});
         look.setValue(VNTLGlyphwrightGradientColors, std::vector<UIColor>{kRose, kAmber, kTeal});
         look.setValue(VNTLGlyphwrightGradientLocations, std::vector<NSNumber>{0, 0.3, 1});
         look.setValue(VNTLGlyphwrightStrokeColor, kInk);
         look.setValue(VNTLGlyphwrightStrokeWidth, 1.5);
         look.setValue(VNTLGlyphwrightBorderColor, kAmber);
         look.setValue(VNTLGlyphwrightBorderWidth, 2);
         look.setValue(VNTLGlyphwrightInsetShadow, IconShadow(kShade, {0, 1}, 2).shadow);
         look.setValue(VNTLGlyphwrightDropShadow, IconShadow(kShade, {1, 1}, 3).shadow);
         return UIBezierPath::imageWithIcon(VNTLIconType::gear, look);
       }});
  list.push_back({"stroke-color",
                  [] { return UIBezierPath::pencilPath().imageWithStrokeColor(kRose, kTeal); }});
  list.push_back(
      {"canvas", [] {
         const std::vector<Pathable> icons = {App::Shapes::Circles::circle,
                                              App::Shapes::Checks::checkmark};
         std::vector<IconAttributes> attributes(2, plain(20));
         attributes[1] = plain(24);
         attributes[1].fillColor = UIColor::whiteColor();
         const std::vector<CGPoint> positions = {{2, 2}, {17.5, 20.25}};
         const std::vector<CGSize> sizes = {{60, 60}, {31, 23}};
         return UIBezierPath::newImage(icons, attributes, positions, sizes, CGSize{64, 64});
       }});
  list.push_back({"circle-icon", [] {
                    const std::shared_ptr<NSShadow> shadow = IconShadow(kShade, {0, 2}, 4).shadow;
                    return *UIImage::circleIcon({40, 40}, kRose, {2.5, UIColor::whiteColor()},
                                                shadow.get(), UIImage::Shape::thickCheckmark,
                                                {18, 14}, UIColor::whiteColor());
                  }});
}

void addGlyphs(std::vector<Picture>& list) {
  using Glyph = UIBezierPath (*)(CGSize);
  const std::pair<const char*, Glyph> glyphs[] = {
      {"caret", &UIBezierPath::caretIcon},
      {"checkmark", &UIBezierPath::checkmark},
      {"thick-checkmark", &UIBezierPath::thickCheckmark},
      {"thick-x", &UIBezierPath::thickX},
      {"camera", &UIBezierPath::instagramProfileConnectButtonIconPath}};
  for (const auto& entry : glyphs) {
    list.push_back({std::string("glyph-") + entry.first, [glyph = entry.second] {
                      return VantelKit::drawImage({72, 60}, false, 1, [&](CGContext&) {
                        kInk.setFill();
                        glyph({72, 60}).fill();
                      });
                    }});
  }
}

void addConveniences(std::vector<Picture>& list) {
  const auto add = [&](const char* name, auto draw) {
    list.push_back({name, [draw] {
                      const pixels::ScreenScale scale(2);
                      return draw();
                    }});
  };
  static constexpr CGSize size{30, 24};
  static const std::vector<UIColor> colors = {kRose, kAmber};
  add("email", [] { return UIImage::emailIcon(size, colors); });
  add("arrow-down", [] { return UIImage::arrowDownIcon(kRose, size); });
  add("arrow-right", [] { return UIImage::arrowRightIcon(kRose, size); });
  add("arrow-left", [] { return UIImage::arrowLeftIcon(kRose, size); });
  add("onboarding-camera", [] { return UIImage::onboardingCameraIcon(size, kRose); });
  add("vinyl-input-button", [] { return UIImage::vinylInputButton(size, kRose); });
  add("vinyl-song", [] { return UIImage::vinylSongIcon(size); });
  add("alert-dot", [] { return UIImage::matchAlertDot(size, kRose, kTeal, 2.5); });
  add("u-circle", [] { return UIImage::vantelUCircleIcon({50, 40}); });
  add("add-photos-flat", [] { return UIImage::addPhotosHomeIcon({45, 36}, kInk, kAmber); });
  add("add-photos", [] { return UIImage::addPhotosHomeIcon({45, 36}, kInk, colors); });
  add("camera-button", [] { return *UIImage::instagramProfileConnectButtonImage(kRose, size); });
  add("camera-place", [] { return *UIImage::instagramPlaceholderImage(kRose, kAmber, size); });
  using Shape = UIImage::Shape;
  static const std::shared_ptr<NSShadow> shadow = IconShadow(kShade, {1, 2}, 4).shadow;
  const std::pair<const char*, Shape> shapes[] = {{"checkmark", Shape::checkmark},
                                                  {"thick-checkmark", Shape::thickCheckmark},
                                                  {"thick-x", Shape::thickX},
                                                  {"thin-x", Shape::thinX}};
  for (const auto& entry : shapes) {
    for (const NSShadow* cast : {shadow.get(), static_cast<NSShadow*>(nullptr)}) {
      const std::string full = std::string(cast ? "cast-" : "") + "shape-" + entry.first;
      add(full.c_str(), [shape = entry.second, cast] {
        return *UIImage::shapeIcon({20, 16}, shape, kRose, {2, kTeal}, cast);
      });
    }
  }
  add("circle-shape", [] {
    return *UIImage::circleIcon({20, 26}, kRose, {2, kTeal}, nullptr, Shape::thickX, {10, 8}, kInk);
  });
  add("outlined-badge", [] {
    return UIBezierPath::imageWithIcon(
        VNTLIconType::peopleBadge,
        {{VNTLGlyphwrightSize, CGSize{40, 30}}, {VNTLGlyphwrightFillColor, kAmber}}, kRose);
  });
}

void addReadyMade(std::vector<Picture>& list) {
  for (const cli::PaintingLook& look : cli::allPaintingLooks()) {
    std::string name = look.fileName();
    std::replace(name.begin(), name.end(), '.', '-');
    for (const int scale : {1, 2, 3}) {
      list.push_back({name + "@" + std::to_string(scale) + "x", [look, scale] {
                        const pixels::ScreenScale screen(scale);
                        return look.preset->draw(look.arguments);
                      }});
    }
  }
  // Canvases that leave room, and such as crop.
  for (const cli::Preset& preset : cli::allPresets()) {
    if (!preset.usualSize) continue;
    const CGSize usual = *preset.usualSize;
    for (const CGSize size : {CGSize{16, 11}, CGSize{usual.width * 2, usual.height + 7}}) {
      std::string name = std::string(preset.name) + '-' + std::to_string(std::lround(size.width));
      std::replace(name.begin(), name.end(), '.', '-');
      list.push_back({std::move(name), [&preset, size] {
                        const pixels::ScreenScale screen(2);
                        return preset.draw({.size = size, .backgroundColor = kTeal});
                      }});
    }
  }
}

}  // namespace

std::vector<Picture> pictures() {
  std::vector<Picture> list;
  addIcons(list);
  addRecords(list);
  addOthers(list);
  addGlyphs(list);
  addConveniences(list);
  addContexts(list);
  addLayers(list);
  addReadyMade(list);
  return list;
}

}  // namespace glyphwright::pixel_manifest
