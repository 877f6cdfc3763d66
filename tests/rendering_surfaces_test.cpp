// The two ways to ask for an image, against each other and against the plain steps.

#include <cmath>
#include <iterator>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/bezier_path.h>
#include <glyphwright/paths/method_names.h>
#include <glyphwright/paths/registry.h>
#include <glyphwright/rendering/attribute_dictionary.h>
#include <glyphwright/rendering/icon_attributes.h>

#include "pixels.h"
#include "plain_icon_renderer.h"

namespace glyphwright {
namespace {

using namespace pixels;

// One request, said both ways.
struct Request {
  IconAttributes record;
  AttributeDictionary dictionary;
};

class RequestMaker {
 public:
  explicit RequestMaker(unsigned seed) : random_(seed) {}

  Request make(bool withDropShadow) {
    // Whole, and large enough that the icon does not leave the image on the other side.
    const CGSize size{std::floor(eighths(32, 80)), std::floor(eighths(32, 80))};
    Request request{{.fillColor = color(), .backgroundColor = color(), .size = size}, {}};
    IconAttributes& record = request.record;
    AttributeDictionary& keys = request.dictionary;
    keys = {{VNTLGlyphwrightSize, size},
            {VNTLGlyphwrightFillColor, record.fillColor},
            {VNTLGlyphwrightBackgroundColor, record.backgroundColor}};
    if (chance(2)) {
      record.stroke = IconStroke{color(), eighths(0, 5)};
      keys.setValue(VNTLGlyphwrightStrokeColor, record.stroke->color);
      keys.setValue(VNTLGlyphwrightStrokeWidth, record.stroke->width);
    }
    if (chance(3)) {
      record.border = IconBorder{color(), eighths(0, 6)};
      keys.setValue(VNTLGlyphwrightBorderColor, record.border->color);
      keys.setValue(VNTLGlyphwrightBorderWidth, record.border->width);
    }
    if (chance(3)) {
      record.insetShadow = shadow();
      keys.setValue(VNTLGlyphwrightInsetShadow, record.insetShadow->shadow);
    }
    if (withDropShadow) {
      record.dropShadow = shadow();
      keys.setValue(VNTLGlyphwrightDropShadow, record.dropShadow->shadow);
    }
    if (chance(3)) {
      std::vector<NSNumber> stops;
      std::vector<CGFloat> points;
      std::vector<UIColor> colors;
      for (unsigned i = 0; i < 1 + random_() % 4; ++i) {
        colors.push_back(color());
        points.push_back(eighths(0, 1));
        stops.emplace_back(points.back());
      }
      const std::vector<CGPoint> line = {{eighths(0, 1), eighths(0, 1)},
                                         {eighths(0, 1), eighths(0, 1)}};
      record.gradient = IconGradient(colors, line, points);
      keys.setValue(VNTLGlyphwrightGradientColors, colors);
      keys.setValue(VNTLGlyphwrightGradientLocations, stops);
      keys.setValue(VNTLGlyphwrightGradientStartPoint, line[0]);
      keys.setValue(VNTLGlyphwrightGradientEndPoint, line[1]);
    }
    return request;
  }

  UIBezierPath path() {
    UIBezierPath icon = findClassMethod(iconMethodNames[random_() % iconMethodCount])();
    icon.translateToZeroPoint();
    return icon;
  }

 private:
  bool chance(unsigned oneIn) { return random_() % oneIn == 0; }
  // Arguments are drawn between braces, where their order is certain: every compiler tests the same
  // cases. A multiple of 1/8, so that it is the same number as a 32-bit float.
  CGFloat eighths(unsigned from, unsigned to) {
    return from + static_cast<CGFloat>(random_() % (8 * (to - from) + 1)) / 8;
  }
  UIColor color() {
    const CGFloat alphas[] = {1, 1, 0.5, 0};
    return UIColor{eighths(0, 1), eighths(0, 1), eighths(0, 1), alphas[random_() % 4]};
  }
  IconShadow shadow() {
    return IconShadow{color(), {eighths(0, 6) - 3, eighths(0, 6) - 3}, eighths(0, 6)};
  }

  std::mt19937 random_;
};

TEST(Surfaces, RecordAndDictionaryGiveTheSamePixels) {
  const ScreenScale scale(2);
  RequestMaker maker(1);
  for (int i = 0; i < 300; ++i) {
    const Request request = maker.make(false);
    const UIBezierPath path = maker.path();
    const UIImage record = path.makeImage(request.record);
    const UIImage keyed = path.imageWithAttributes(request.dictionary);
    // The record's way moves the path to the origin once more, which may cost the last place.
    EXPECT_LE(largestDifference(record, keyed), 1) << i;
    EXPECT_EQ(record.size(), keyed.size());
  }
}

// Over a clear background the finished image is what the record draws in one pass.
TEST(Surfaces, OneShadowOfEverythingIsTheShadowOfTheImage) {
  const ScreenScale scale(2);
  RequestMaker maker(2);
  for (int i = 0; i < 100; ++i) {
    Request request = maker.make(true);
    request.record.backgroundColor = UIColor::clearColor();
    request.dictionary.removeValue(VNTLGlyphwrightBackgroundColor);
    const UIBezierPath path = maker.path();
    EXPECT_LE(largestDifference(path.makeImage(request.record),
                                path.imageWithAttributes(request.dictionary)),
              2)
        << i;
  }
}

TEST(Surfaces, DictionaryAgreesWithThePlainSteps) {
  RequestMaker maker(3);
  for (int i = 0; i < 300; ++i) {
    const ScreenScale scale(i % 3 + 1);
    Request request = maker.make(i % 2 == 0);
    const VNTLGlyphwright keys[] = {
        VNTLGlyphwrightFillColor,         VNTLGlyphwrightBackgroundColor,
        VNTLGlyphwrightStrokeColor,       VNTLGlyphwrightBorderColor,
        VNTLGlyphwrightGradientLocations, VNTLGlyphwrightGradientStartPoint,
        VNTLGlyphwrightGradientEndPoint,  VNTLGlyphwrightStrokeWidth};
    request.dictionary.removeValue(keys[static_cast<std::size_t>(i) % std::size(keys)]);
    const UIBezierPath path = maker.path();
    const UIImage image = path.imageWithAttributes(request.dictionary);
    const UIImage plain = plain::imageWithAttributes(path, request.dictionary);
    EXPECT_LE(largestDifference(image, plain), 1) << i;
    EXPECT_EQ(image.size(), plain.size());
    EXPECT_EQ(image.scale(), plain.scale());
  }
}

}  // namespace
}  // namespace glyphwright
