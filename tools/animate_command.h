#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <glyphwright/rendering/icon_attributes.h>

#include "animated_picture.h"
#include "console.h"

namespace glyphwright::cli {

enum class AnimationKind : std::uint8_t {
  sweep,   // a gradient runs through the icon
  stroke,  // the outline is drawn and taken away again
  morph,   // the icon turns into another one and back
};

struct AnimateOptions {
  AnimateOptions();

  std::string name;
  /// The other icon of a morph.
  std::string to;
  AnimationKind kind = AnimationKind::sweep;
  /// A file ending in .png, .apng or .gif, a folder for a file a frame, or "-" for PNG on standard
  /// output.
  std::string output;
  double framesPerSecond = 20;
  double duration = 2;  // seconds
  CGSize size{96, 96};  // points
  CGFloat scale = 1;    // pixels per point
  UIColor color = UIColor::blackColor();
  IconGradient gradient;
  std::optional<UIColor> background;
  /// Threads; 0 for all cores.
  std::size_t jobs = 0;
  /// Folders that are missing are made without a word.
  bool parents = false;
  /// Options that were given and that some kinds have no use for, as the user wrote them.
  std::vector<std::string> kindOptions;
};

/// The frames of an animation that starts over without a jump. Throws UsageError for unknown names
/// and for more frames or pixels than a picture should have.
AnimatedPicture renderAnimation(const AnimateOptions& options, Console& console);

/// The kind by its name. Throws UsageError.
AnimationKind animationKindFrom(const std::string& text);

/// Renders an animation to a file or a folder. Throws UsageError as renderAnimation does, for an
/// output of no known kind, for options that the kind has no use for and for a morph without a
/// second icon; std::runtime_error when all frames are clear.
int runAnimate(const AnimateOptions& options, Console& console);

}  // namespace glyphwright::cli
