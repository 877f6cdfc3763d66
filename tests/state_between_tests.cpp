// The screen's scale and the open contexts outlive a test. One that leaves them changed fails
// itself, rather than another test that happens to run after it.

#include <gtest/gtest.h>

#include <glyphwright/platform/context.h>
#include <glyphwright/platform/vantel_kit.h>

namespace glyphwright {
namespace {

class StateBetweenTests : public testing::EmptyTestEventListener {
  void OnTestStart(const testing::TestInfo& /*test*/) override {
    scale_ = VantelKit::Screen::scale();
    context_ = UIGraphicsGetCurrentContext();
  }

  void OnTestEnd(const testing::TestInfo& /*test*/) override {
    EXPECT_EQ(VantelKit::Screen::scale(), scale_) << "the screen's scale is left changed";
    VantelKit::Screen::setScale(scale_);
    EXPECT_EQ(UIGraphicsGetCurrentContext(), context_) << "a context is left open";
  }

  CGFloat scale_ = 0;
  CGContextRef context_ = nullptr;
};

[[maybe_unused]] const bool listening = [] {
  testing::UnitTest::GetInstance()->listeners().Append(new StateBetweenTests);  // takes it over
  return true;
}();

}  // namespace
}  // namespace glyphwright
