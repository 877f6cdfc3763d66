// Memory that fails: every allocation of every scene is refused in turn. Drawing ends in a clean
// std::bad_alloc, nothing is lost, no context stays open, and what is drawn next is right.

#include <functional>
#include <new>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/platform/context.h>

#include "failing_memory.h"
#include "pixel_manifest.h"
#include "pixels.h"

namespace glyphwright::memory {
namespace {

using pixel_manifest::Picture;
using Bytes = std::vector<std::uint8_t>;

Bytes bytesOf(const Picture& picture) {
  const UIImage image = picture.draw();
  return {image.cgImage().rgba().begin(), image.cgImage().rgba().end()};
}

// Those that between them reach every kind of memory that the library asks for; the one with every
// paint first.
std::vector<Picture> scenes() {
  std::vector<Picture> list;
  for (Picture& picture : pixel_manifest::pictures()) {
    const std::string& name = picture.name;
    const auto is = [&](std::string_view start) { return name.starts_with(start); };
    const bool isScene = is("record-") || is("dictionary") || is("context-") || is("layer-") ||
                         name == "canvas" || is("ReferralIcons-Home-headerIcon@2x");
    if (!isScene) continue;
    list.push_back(std::move(picture));
    if (is("record-everything")) std::swap(list.front(), list.back());
  }
  return list;
}

// On a thread of its own, whose working memory is new.
void onFreshThread(const std::function<void()>& work) {
  std::thread(work).join();
}

struct Outcome {
  bool threw = false;
  bool leftAContext = false;
  Bytes pixels;  // where nothing was thrown
};

Outcome drawRefusing(const Picture& scene, std::size_t which, Refusal refusal) {
  Outcome outcome;
  const FailsAfter fails(which, refusal);
  try {
    outcome.pixels = bytesOf(scene);
  } catch (const std::bad_alloc&) {
    outcome.threw = true;
  }
  outcome.leftAContext = UIGraphicsGetCurrentContext() != nullptr;
  return outcome;
}

class FailingMemory : public testing::TestWithParam<Picture> {};

TEST_P(FailingMemory, EveryRefusedAllocationEndsCleanly) {
  const Picture& scene = GetParam();
  // What is made once for all threads is made before anything is counted, here and by another scene
  // that needs nearly every kind of memory.
  const pixels::ScreenScale scale(1);
  const Bytes own = bytesOf(scene);
  const Picture other = scenes().front();
  const Bytes others = bytesOf(other);
  std::size_t allocations = 0;
  onFreshThread([&] {
    const Watch watch;
    scene.draw();
    allocations = watch.allocations();
  });
  ASSERT_GT(allocations, 3U);

  for (const Refusal refusal : {Refusal::once, Refusal::fromThereOn}) {
    for (std::size_t which = 0; which < allocations; ++which) {
      SCOPED_TRACE(which);
      const std::size_t before = bytesHeld();
      Outcome outcome;
      bool isRightThen = false;
      onFreshThread([&] {
        outcome = drawRefusing(scene, which, refusal);
        isRightThen = bytesOf(scene) == own && bytesOf(other) == others;
      });
      // The standard library itself copes with one refusal when it sorts.
      EXPECT_TRUE(outcome.threw || outcome.pixels == own);
      EXPECT_FALSE(outcome.leftAContext);
      EXPECT_TRUE(isRightThen);
      outcome = {};
      EXPECT_EQ(bytesHeld(), before);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Scenes, FailingMemory, testing::ValuesIn(scenes()), [](const auto& scene) {
  std::string name = scene.param.name;
  std::erase_if(name, [](char c) { return c == '-' || c == '@'; });
  return name;
});

}  // namespace
}  // namespace glyphwright::memory
