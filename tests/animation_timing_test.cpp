#include <initializer_list>
#include <limits>
#include <optional>
#include <ostream>

#include <gtest/gtest.h>

#include <glyphwright/platform/layers/animation.h>

namespace glyphwright {

void PrintTo(const AnimationPhase& phase, std::ostream* out) {
  *out << phase.progress << " of cycle " << phase.cycle;
}

namespace {

using Fill = CAMediaTimingFillMode;
using Phase = std::optional<AnimationPhase>;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct Timing {
  double begin = 0;
  double duration = 2;
  double speed = 1;
  double offset = 0;
  double count = 0;
  double repeatDuration = 0;
  bool reverses = false;
  Fill fill = Fill::removed;
};

CAAnimation animationOf(const Timing& t) {
  CAAnimation animation;
  animation.setBeginTime(t.begin);
  animation.setDuration(t.duration);
  animation.setSpeed(t.speed);
  animation.setTimeOffset(t.offset);
  animation.setRepeatCount(t.count);
  animation.setRepeatDuration(t.repeatDuration);
  animation.setAutoreverses(t.reverses);
  animation.setFillMode(t.fill);
  return animation;
}

struct PhaseCase {
  const char* what;
  Timing timing;
  double time;
  Phase expected;
};

void check(std::initializer_list<PhaseCase> cases) {
  for (const PhaseCase& c : cases) {
    EXPECT_EQ(phaseAtTime(animationOf(c.timing), c.time, AnimationEnd::excluded), c.expected)
        << c.what << " at " << c.time;
  }
}

TEST(AnimationTiming, OneRun) {
  check({
      {"before", {}, -0.5, std::nullopt},
      {"start", {}, 0, Phase{{0, 0}}},
      {"middle", {}, 1, Phase{{0.5, 0}}},
      {"end", {}, 2, std::nullopt},
      {"later start", {.begin = 10}, 9, std::nullopt},
      {"later start", {.begin = 10}, 11, Phase{{0.5, 0}}},
      {"double speed", {.speed = 2}, 0.5, Phase{{0.5, 0}}},
      {"double speed over", {.speed = 2}, 1, std::nullopt},
      {"half speed", {.begin = 1, .speed = 0.5}, 2, Phase{{0.25, 0}}},
      {"offset", {.offset = 1}, 0.5, Phase{{0.75, 0}}},
      {"offset starts earlier", {.offset = 1}, -0.5, Phase{{0.25, 0}}},
      {"paused", {.speed = 0, .offset = 1.5}, 1e6, Phase{{0.75, 0}}},
      {"backwards", {.speed = -1, .offset = 2}, 0.5, Phase{{0.75, 0}}},
  });
  EXPECT_EQ(phaseAtTime(animationOf({}), 2, AnimationEnd::included), (AnimationPhase{1, 0}));
}

TEST(AnimationTiming, RepeatsAndReversals) {
  check({
      {"second run", {.count = 3}, 3, Phase{{0.5, 1}}},
      {"third run", {.count = 3}, 4, Phase{{0, 2}}},
      {"over", {.count = 3}, 6, std::nullopt},
      {"half a run more", {.count = 1.5}, 2.5, Phase{{0.25, 1}}},
      {"half a run more, over", {.count = 1.5}, 3, std::nullopt},
      {"for ever", {.count = kInfinity}, 2e9 + 1, Phase{{0.5, 1e9}}},
      {"negative count", {.count = -2}, 1, Phase{{0.5, 0}}},
      {"count not a number", {.count = kNaN}, 2.5, std::nullopt},
      {"for a time", {.repeatDuration = 5}, 4.5, Phase{{0.25, 2}}},
      {"for a time, over", {.count = 9, .repeatDuration = 5}, 5, std::nullopt},
      {"there", {.reverses = true}, 1.5, Phase{{0.75, 0}}},
      {"turning", {.reverses = true}, 2, Phase{{1, 0}}},
      {"and back", {.reverses = true}, 3.5, Phase{{0.25, 0}}},
      {"and back, over", {.reverses = true}, 4, std::nullopt},
      {"there again", {.count = 2, .reverses = true}, 5, Phase{{0.5, 1}}},
  });
}

TEST(AnimationTiming, FillModes) {
  for (const Fill fill : {Fill::removed, Fill::forwards, Fill::backwards, Fill::both}) {
    const bool before = fill == Fill::backwards || fill == Fill::both;
    const bool after = fill == Fill::forwards || fill == Fill::both;
    check({
        {"before", {.fill = fill}, -5, before ? Phase{{0, 0}} : std::nullopt},
        {"after", {.fill = fill}, 7, after ? Phase{{1, 0}} : std::nullopt},
        {"after three runs", {.count = 3, .fill = fill}, 6, after ? Phase{{1, 2}} : std::nullopt},
        {"after two and a half",
         {.count = 2.5, .fill = fill},
         9,
         after ? Phase{{0.5, 2}} : std::nullopt},
        {"after reversing",
         {.reverses = true, .fill = fill},
         9,
         after ? Phase{{0, 0}} : std::nullopt},
        {"after half a cycle",
         {.count = 0.5, .reverses = true, .fill = fill},
         9,
         after ? Phase{{1, 0}} : std::nullopt},
        // 3 · 0.1 is more than 0.3: rounding must not start a fourth run, nor leave out the third.
        {"after thrice a tenth",
         {.duration = 0.1, .repeatDuration = 3 * 0.1, .fill = fill},
         0.5,
         after ? Phase{{1, 2}} : std::nullopt},
        {"after three tenths",
         {.duration = 0.1, .repeatDuration = 0.3, .fill = fill},
         0.5,
         after ? Phase{{1, 2}} : std::nullopt},
    });
  }
}

TEST(AnimationTiming, OddTimesAndDurations) {
  const Timing endless{.duration = kInfinity, .fill = Fill::both};
  check({
      {"no duration", {.duration = 0}, 0, std::nullopt},
      {"negative duration", {.duration = -1, .fill = Fill::both}, 0, std::nullopt},
      {"duration not a number", {.duration = kNaN, .fill = Fill::both}, 0, std::nullopt},
      {"time not a number", {.fill = Fill::both}, kNaN, std::nullopt},
      {"infinite against speed 0", {.speed = 0, .fill = Fill::both}, kInfinity, std::nullopt},
      {"endless run", endless, 1e9, Phase{{0, 0}}},
      {"before an endless run", {.duration = kInfinity}, -1, std::nullopt},
      {"at the end of time",
       {.count = kInfinity, .fill = Fill::forwards},
       kInfinity,
       Phase{{0, 0}}},
      {"before all time", {.fill = Fill::backwards}, -kInfinity, Phase{{0, 0}}},
  });
}

TEST(TimingFunctions, SolveTheCurveForTheTime) {
  using Name = CAMediaTimingFunctionName;
  struct Case {
    Name name;
    CGPoint c1, c2;
  };
  for (const auto& [name, c1, c2] :
       {Case{Name::linear, {0, 0}, {1, 1}}, Case{Name::easeIn, {0.42, 0}, {1, 1}},
        Case{Name::easeOut, {0, 0}, {0.58, 1}}, Case{Name::easeInEaseOut, {0.42, 0}, {0.58, 1}},
        Case{Name::defaultCurve, {0.25, 0.1}, {0.25, 1}}}) {
    const auto function = CAMediaTimingFunction::functionWithName(name);
    EXPECT_EQ(function.valueAt(0), 0);
    EXPECT_EQ(function.valueAt(1), 1);
    EXPECT_EQ(function.valueAt(-1), 0);
    EXPECT_EQ(function.valueAt(2), 1);
    EXPECT_EQ(function.valueAt(kNaN), 0);
    // Points of the curve by its parameter, found again by their time.
    for (const double s : {0.1, 0.25, 0.5, 0.9}) {
      const double r = 1 - s;
      const double time = 3 * r * r * s * c1.x + 3 * r * s * s * c2.x + s * s * s;
      const double value = 3 * r * r * s * c1.y + 3 * r * s * s * c2.y + s * s * s;
      EXPECT_NEAR(function.valueAt(time), value, 1e-12);
    }
  }
  EXPECT_EQ(CAMediaTimingFunction().valueAt(0.3), 0.3);
  const auto steep = CAMediaTimingFunction::functionWithControlPoints(0, 1, 0, 1);
  EXPECT_GT(steep.valueAt(0.01), 0.4);
  const auto overshoot = CAMediaTimingFunction::functionWithControlPoints(0.3, -0.5, 0.7, 1.5);
  EXPECT_LT(overshoot.valueAt(0.1), 0);
  EXPECT_GT(overshoot.valueAt(0.9), 1);
  // Times beyond the unit stay within it, so that time never turns back.
  const auto wild = CAMediaTimingFunction::functionWithControlPoints(-3, 0, 7, 1);
  EXPECT_EQ(wild, CAMediaTimingFunction::functionWithControlPoints(0, 0, 1, 1));
  EXPECT_EQ(CAMediaTimingFunction::functionWithControlPoints(kNaN, kNaN, 1, 1),
            CAMediaTimingFunction());
}

}  // namespace
}  // namespace glyphwright
