// Memory that fails: every allocation of every scene is refused in turn. Drawing ends in a clean
// std::bad_alloc, nothing is lost, no context stays open, and what is drawn next is right.

#include <functional>
#include <new>
#include <thread>

#include <gtest/gtest.h>

#include <glyphwright/platform/context.h>

#include "allocations.h"
#include "scenes.h"

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
  const Refuse refuse(which, refusal);
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
  const std::vector<Scene> all = scenes();
  // What is made once for all threads is made before anything is counted.
  std::vector<Bytes> expected;
  for (const Scene& other : all) expected.push_back(other.draw());
  const Bytes own = scene.draw();
  std::size_t allocations = 0;
  onFreshThread([&] {
    const Watch watch;
    scene.draw();
    allocations = watch.count();
  });
  ASSERT_GT(allocations, 3U);

  for (const Refusal refusal : {Refusal::once, Refusal::fromThereOn}) {
    for (std::size_t which = 0; which < allocations; ++which) {
      SCOPED_TRACE(which);
      const std::size_t before = bytesInUse();
      std::vector<std::string> wrong;
      Outcome outcome;
      onFreshThread([&] {
        outcome = drawRefusing(scene, which, refusal);
        for (std::size_t next = 0; next < all.size(); ++next) {
          if (all[next].draw() != expected[next]) wrong.push_back(all[next].name);
        }
      });
      // The standard library itself copes with one refusal when it sorts.
      EXPECT_TRUE(outcome.threw || outcome.pixels == own);
      EXPECT_FALSE(outcome.leftAContext);
      for (const std::string& name : wrong) ADD_FAILURE() << "what is wrong then: " << name;
      outcome = {};
      wrong = {};
      EXPECT_EQ(bytesInUse(), before);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Scenes, FailingMemory, testing::ValuesIn(scenes()),
                         [](const auto& scene) { return scene.param.name; });

}  // namespace
}  // namespace glyphwright::memory
