#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string_view>

/// Which passes a drawing takes. All that decides it stands in one table: a new way to paint adds a
/// fact where it bears on what is there, and the ways that it spoils need that fact's absence.
namespace glyphwright::drawing {

/// What is asked for, where there is more than one way to do it.
enum class Task : std::uint8_t { rectangle, area, caster, fillAndStroke, fillAndInset, inset };

/// What may hold of a drawing and of what it meets.
enum class Fact : std::uint8_t {
  unshadowed,     // the state has no shadow
  unclipped,      // no path clips, only whole pixels
  untouched,      // nothing has been painted yet, over nothing
  onWholePixels,  // the rectangle's sides lie between pixels
  coversAll,      // the rectangle covers the canvas
  hidesAll,       // the colour hides what is below, or nothing is
  pathClips,      // a path clips, and the area covers it
  noOtherClips,   // it is the only one
  roundPen,       // the pen is a circle on the device
  bothShow,       // each of two shapes touches a pixel of the clip's bounds, neither is clear
  masked,         // the caster's mask holds all of it that shows
  shadowShows,    // some of the shadow does
  directBlur,     // the blur filters the mask itself
  wholeSteps,     // what casts an inset shadow would be moved by whole pixels
  inside,         // all of the shape lies inside the clip's bounds
  nearClip,       // no more than a little of it lies outside
  surrounded,     // its surroundings reach as far as they can cast
  narrow,         // no pixel is wound round too often for narrow cells
  uncut,          // no shape is cut off where the other one goes on
};

class Facts {
 public:
  constexpr Facts(std::initializer_list<Fact> facts) {
    for (const Fact fact : facts) bits_ |= bit(fact);
  }
  constexpr Facts without(Fact fact) const {
    Facts rest = *this;
    rest.bits_ &= ~bit(fact);
    return rest;
  }
  constexpr bool has(Fact fact) const { return (bits_ & bit(fact)) != 0; }
  /// Asks for them one by one, those that are listed first above first.
  template <typename Holds>
  constexpr bool all(Holds holds) const {
    for (std::uint32_t rest = bits_; rest != 0; rest &= rest - 1) {
      if (!holds(static_cast<Fact>(__builtin_ctz(rest)))) return false;
    }
    return true;
  }

 private:
  static constexpr std::uint32_t bit(Fact fact) { return 1U << static_cast<unsigned>(fact); }
  std::uint32_t bits_ = 0;
};

enum class Way : std::uint8_t {
  plain,
  groundAlone,        // rectangle: the canvas gets another ground; nothing is written
  pixelsAlone,        // rectangle: whole pixels, without edges
  clipFilled,         // area: the clip's own path is filled with it
  shadowWithCaster,   // caster: one pass writes the shadow's rows and the caster's
  shadowRowsByTurns,  // caster: a row of the shadow, and the caster's row from its mask
  strokeWithFill,     // fill and stroke: one pass writes both
  strokeRowsByTurns,  // fill and stroke: some rows of the fill, and the stroke's
  insetWithFill,      // fill and inset: one pass writes both
  insetInPlace,       // inset: cast from where it is, instead of from beside the shape
};

struct Row {
  Task task;
  Way way;
  std::string_view name;
  Facts needs;
  /// By how much a channel may differ from what the plain way gives, and does in some scenes: a
  /// level where edges are counted from, or cut by, another region's side, or a shadow is rounded
  /// at another place. All other ways give the same bytes.
  int levels = 0;
};

/// These keep a pass from reading what is not there, give sense to the facts after them, or hold
/// for all that is asked for so far. Without any of the others the picture would be another.
inline constexpr Facts kSafety{Fact::surrounded,    Fact::pathClips,   Fact::roundPen,
                               Fact::bothShow,      Fact::narrow,      Fact::uncut,
                               Fact::masked,        Fact::shadowShows, Fact::directBlur,
                               Fact::onWholePixels, Fact::wholeSteps};

/// For each task the ways but the plain one, which always holds; the first one that holds is taken.
/// What each equals is told with its pass.
inline constexpr Row kPlans[] = {
    {Task::rectangle,
     Way::groundAlone,
     "ground alone",
     {Fact::unshadowed, Fact::unclipped, Fact::onWholePixels, Fact::coversAll, Fact::hidesAll}},
    {Task::rectangle,
     Way::pixelsAlone,
     "pixels alone",
     {Fact::unshadowed, Fact::unclipped, Fact::onWholePixels}},
    {Task::area, Way::clipFilled, "clip filled", {Fact::pathClips, Fact::noOtherClips}},
    {Task::caster,
     Way::shadowWithCaster,
     "shadow with caster",
     {Fact::unclipped, Fact::untouched, Fact::masked, Fact::shadowShows, Fact::directBlur},
     1},
    {Task::caster, Way::shadowRowsByTurns, "shadow rows by turns", {Fact::masked}, 1},
    {Task::fillAndStroke,
     Way::strokeWithFill,
     "stroke with fill",
     {Fact::unshadowed, Fact::unclipped, Fact::untouched, Fact::roundPen, Fact::bothShow,
      Fact::narrow, Fact::uncut}},
    {Task::fillAndStroke,
     Way::strokeRowsByTurns,
     "stroke rows by turns",
     {Fact::unshadowed, Fact::unclipped, Fact::roundPen, Fact::bothShow}},
    {Task::fillAndInset,
     Way::insetWithFill,
     "inset with fill",
     {Fact::unshadowed, Fact::unclipped, Fact::untouched, Fact::wholeSteps, Fact::directBlur,
      Fact::inside, Fact::surrounded, Fact::narrow},
     1},
    {Task::inset,
     Way::insetInPlace,
     "inset in place",
     {Fact::wholeSteps, Fact::nearClip, Fact::surrounded},
     1},
};

using Plans = std::span<const Row>;

/// The way to do a task where `holds` tells of each fact whether it holds.
template <typename Holds>
Way choose(Plans plans, Task task, Holds holds) {
  for (const Row& row : plans) {
    if (row.task == task && row.needs.all(holds)) return row.way;
  }
  return Way::plain;
}

}  // namespace glyphwright::drawing
