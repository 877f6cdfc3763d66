// Different objects on different threads: no races, no shared context, the same pixels. Also built
// alone under the thread sanitizer.

#include <atomic>
#include <functional>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/bezier_path.h>
#include <glyphwright/layers/gradient_shape_layer.h>
#include <glyphwright/paths/method_names.h>
#include <glyphwright/paths/registry.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/platform/vantel_kit.h>
#include <glyphwright/rendering/icon_attributes.h>

namespace glyphwright {
namespace {

constexpr int kThreads = 4;

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

std::vector<std::uint8_t> paintEverything() {
  std::vector<std::uint8_t> all;
  IconAttributes attributes{
      .fillColor = UIColor(0.9, 0.2, 0.3, 1),
      .backgroundColor = UIColor::clearColor(),
      .dropShadow = IconShadow(UIColor::blackColor(), {0, 1}, 2),
      .insetShadow = IconShadow(UIColor::blackColor(), {0, 1}, 2),
      .gradient = IconGradient({UIColor::whiteColor(), UIColor(1, 0, 0, 1), UIColor::blackColor()},
                               {}, IconGradient::Direction::topLeftToBottomRight),
      .size = {20, 20}};
  for (std::size_t i = 0; i < iconMethodCount; i += 6) {
    const UIImage image = findClassMethod(iconMethodNames[i])().makeImage(attributes);
    const std::vector<std::uint8_t> bytes = bytesOf(image);
    all.insert(all.end(), bytes.begin(), bytes.end());
  }
  const auto layer = UIBezierPath::heartPath().vntl_gradientShapeLayerWithSize({24, 24});
  layer->setColors(std::vector<CGColor>{UIColor(1, 0, 0, 1), UIColor(0, 0, 1, 1)});
  UIGraphicsBeginImageContextWithOptions({24, 24}, false, 2);
  layer->renderInContext(UIGraphicsGetCurrentContext());
  const std::vector<std::uint8_t> bytes =
      bytesOf(UIGraphicsGetImageFromCurrentImageContext().value_or(UIImage()));
  UIGraphicsEndImageContext();
  all.insert(all.end(), bytes.begin(), bytes.end());
  return all;
}

TEST(Threading, EveryThreadPaintsTheSamePixels) {
  std::vector<std::uint8_t> painted[kThreads];
  onThreads([&](int i) { painted[i] = paintEverything(); });
  const std::vector<std::uint8_t> expected = paintEverything();
  ASSERT_GT(expected.size(), 30U * 20 * 20 * 4);
  for (const auto& pixels : painted) EXPECT_EQ(pixels, expected);
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

TEST(Threading, TheScreenScaleMayBeSetWhileOthersDraw) {
  const CGFloat before = VantelKit::Screen::scale();
  std::atomic<int> faults = 0;
  onThreads([&](int i) {
    for (int k = 0; k < 50; ++k) {
      if (i == 0) {
        VantelKit::Screen::setScale(k % 2 == 0 ? 1 : 3);
        continue;
      }
      const UIImage image =
          UIBezierPath::boltPath().makeImage({.fillColor = UIColor::blackColor(),
                                              .backgroundColor = UIColor::clearColor(),
                                              .size = {8, 8}});
      const std::size_t width = image.cgImage().pixelWidth();
      if (width != 8 * static_cast<std::size_t>(image.scale())) ++faults;
    }
  });
  VantelKit::Screen::setScale(before);
  EXPECT_EQ(faults, 0);
}

}  // namespace
}  // namespace glyphwright
