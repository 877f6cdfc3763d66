// Different objects on different threads: no races, no shared context, the same pixels. Also built
// alone under the thread sanitizer.

#include <algorithm>
#include <atomic>
#include <functional>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/bezier_path.h>
#include <glyphwright/catalogue/app.h>
#include <glyphwright/catalogue/matches.h>
#include <glyphwright/catalogue/pathable.h>
#include <glyphwright/layers/gradient_shape_layer.h>
#include <glyphwright/paths/method_names.h>
#include <glyphwright/paths/registry.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/platform/vantel_kit.h>
#include <glyphwright/presets/ready_made.h>
#include <glyphwright/rendering/attribute_dictionary.h>
#include <glyphwright/rendering/icon_attributes.h>

namespace glyphwright {
namespace {

constexpr int kThreads = 16;

void onThreads(const std::function<void(int)>& work) {
  std::atomic<int> waiting = kThreads;
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([&, i] {
      --waiting;
      while (waiting > 0) std::this_thread::yield();  // all start at once
      work(i);
    });
  }
  for (std::thread& thread : threads) thread.join();
}

std::vector<std::uint8_t> bytesOf(const UIImage& image) {
  const auto rgba = image.cgImage().rgba();
  return {rgba.begin(), rgba.end()};
}

// One thing after another of what a program draws, at the screen's scale: icons in every paint, on
// a canvas and as layers, and paintings. Numbered, so that each thread may begin elsewhere.
constexpr std::size_t kKinds = 183;

UIImage drawn(std::size_t kind) {
  const auto icon = [&](std::size_t i) {
    return findClassMethod(iconMethodNames[i * 7 % iconMethodCount])();
  };
  IconAttributes attributes{.fillColor = UIColor(0.9, 0.2, 0.3, 1),
                            .backgroundColor = UIColor::clearColor(),
                            .size = {20, 20}};
  const IconShadow shadow(UIColor::blackColor(), {0, 1}, 2);
  switch (kind % 6) {
    case 0:
      attributes.dropShadow = attributes.insetShadow = shadow;
      attributes.gradient =
          IconGradient({UIColor::whiteColor(), UIColor(1, 0, 0, 1), UIColor::blackColor()}, {},
                       IconGradient::Direction::topLeftToBottomRight);
      return icon(kind).makeImage(attributes);
    case 1:
      attributes.dropShadow = shadow;
      attributes.border = IconBorder(UIColor::whiteColor(), 2);
      return icon(kind).makeImage(attributes);
    case 2: {
      const AttributeDictionary entries{{VNTLGlyphwrightSize, CGSize{20, 20}},
                                        {VNTLGlyphwrightFillColor, UIColor::blackColor()},
                                        {VNTLGlyphwrightDropShadow, shadow.shadow}};
      return icon(kind).imageWithAttributes(entries);
    }
    case 3: {
      const Pathable icons[] = {App::DeleteAccount::heart, Chat::chatIcon};
      const IconAttributes each[] = {attributes, attributes};
      const CGPoint positions[] = {{0, 2}, {9, 4}};
      const CGSize sizes[] = {{20, 20}, {20, 20}};
      return UIBezierPath::newImage(icons, each, positions, sizes, CGSize{30, 24});
    }
    case 4: {
      const auto paintings = presets::readyMadeImages();
      const presets::ReadyMadeImage& painting = paintings[kind % paintings.size()];
      return painting.draw({.size = painting.usualSize.value_or(CGSize{24, 24})});
    }
    default: {
      const auto layer = icon(kind).vntl_gradientShapeLayerWithSize({24, 24});
      layer->setColors(std::vector<CGColor>{UIColor(1, 0, 0, 1), UIColor(0, 0, 1, 1)});
      UIGraphicsBeginImageContextWithOptions({24, 24}, false, 0);
      layer->renderInContext(UIGraphicsGetCurrentContext());
      const auto image = UIGraphicsGetImageFromCurrentImageContext();
      UIGraphicsEndImageContext();
      return image.value_or(UIImage());
    }
  }
}

TEST(Threading, SixteenThreadsDrawEverythingWhileTheScreenChangesItsScale) {
  const CGFloat before = VantelKit::Screen::scale();
  const CGFloat scales[] = {1, 1.5, 2, 3};
  std::vector<std::vector<std::uint8_t>> expected[kKinds];
  for (const CGFloat scale : scales) {
    VantelKit::Screen::setScale(scale);
    for (std::size_t kind = 0; kind < kKinds; ++kind) {
      expected[kind].push_back(bytesOf(drawn(kind)));
      ASSERT_FALSE(expected[kind].back().empty()) << kind;
    }
  }
  std::atomic<int> faults = 0;
  std::atomic<int> drawing = kThreads - 1;
  onThreads([&](int i) {
    if (i == 0) {
      for (std::size_t k = 0; drawing > 0; ++k) {
        VantelKit::Screen::setScale(scales[k % std::size(scales)]);
        std::this_thread::yield();
      }
      return;
    }
    for (std::size_t k = 0; k < kKinds; ++k) {
      const std::size_t kind = (k + static_cast<std::size_t>(i) * 5) % kKinds;
      // All of it at one of the scales.
      const std::vector<std::uint8_t> bytes = bytesOf(drawn(kind));
      if (std::ranges::find(expected[kind], bytes) == expected[kind].end()) ++faults;
    }
    --drawing;
  });
  VantelKit::Screen::setScale(before);
  EXPECT_EQ(faults, 0);
}

TEST(Threading, EachThreadHasItsOwnCurrentContext) {
  std::atomic<int> faults = 0;
  std::atomic<int> opened = 0;
  onThreads([&](int i) {
    if (UIGraphicsGetCurrentContext() != nullptr) ++faults;
    UIGraphicsBeginImageContext({static_cast<CGFloat>(i + 1), 1});
    ++opened;
    while (opened < kThreads) std::this_thread::yield();  // all contexts are open now
    const auto image = UIGraphicsGetImageFromCurrentImageContext();
    if (!image || image->size().width != i + 1) ++faults;
    UIGraphicsEndImageContext();
    if (UIGraphicsGetCurrentContext() != nullptr) ++faults;
  });
  EXPECT_EQ(faults, 0);
}

}  // namespace
}  // namespace glyphwright
