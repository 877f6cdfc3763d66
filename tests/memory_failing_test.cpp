// Memory that fails: every allocation of every scene is refused in turn. Drawing ends in a clean
// std::bad_alloc, nothing is lost, no context stays open, and what is drawn next is right.

#include <functional>
#include <new>
#include <thread>

#include <gtest/gtest.h>

#include <glyphwright/platform/context.h>

#include "failing_memory.h"
#include "memory_scenes.h"

namespace glyphwright::memory {
namespace {

using Bytes = std::vector<std::uint8_t>;

// On a thread of its own, whose working memory is new.
void onFreshThread(const std::function<void()>& work) {
  std::thread(work).join();
}

struct Outcome {
  bool threw = false;
  bool leftAContext = false;
  Bytes pixels;  // where nothing was thrown
};

Outcome drawRefusing(const Scene& scene, std::size_t which, Refusal refusal) {
  Outcome outcome;
  const FailsAfter fails(which, refusal);
  try {
    outcome.pixels = scene.draw();
  } catch (const std::bad_alloc&) {
    outcome.threw = true;
  }
  outcome.leftAContext = UIGraphicsGetCurrentContext() != nullptr;
  return outcome;
}

class FailingMemory : public testing::TestWithParam<Scene> {};

TEST_P(FailingMemory, EveryRefusedAllocationEndsCleanly) {
  const Scene& scene = GetParam();
  // What is made once for all threads is made before anything is counted, here and by another scene
  // that needs nearly every kind of memory.
  const Bytes own = scene.draw();
  const Scene other = everything();
  const Bytes others = other.draw();
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
        isRightThen = scene.draw() == own && other.draw() == others;
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

INSTANTIATE_TEST_SUITE_P(Scenes, FailingMemory, testing::ValuesIn(scenes()),
                         [](const auto& scene) { return scene.param.name; });

}  // namespace
}  // namespace glyphwright::memory
