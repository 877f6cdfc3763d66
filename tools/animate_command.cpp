#include "animate_command.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <filesystem>
#include <stdexcept>
#include <string_view>
#include <vector>

#include <glyphwright/platform/context.h>

#include "animation_scenes.h"
#include "icon_names.h"
#include "numbers.h"
#include "output.h"
#include "parallel.h"
#include "png.h"
#include "usage_error.h"

namespace glyphwright::cli {
namespace {

constexpr double kMaxFrames = 1000;
// A quarter of a gigabyte of pixels: far beyond any animation that a page could show.
constexpr double kMaxPixels = 67108864;

enum class Format : std::uint8_t { png, gif, folder };

Format formatOfAnimation(const AnimateOptions& options) {
  const std::string_view output = options.output;
  if (output.empty()) throw UsageError("--output is empty: name a file or a folder");
  if (output == "-" || output.ends_with(".png") || output.ends_with(".apng")) return Format::png;
  if (output.ends_with(".gif")) return Format::gif;
  if (!std::filesystem::path(output).has_extension()) return Format::folder;
  throw UsageError("\"" + options.output +
                   "\" does not end in .png, .apng or .gif, and a folder's name has no ending");
}

/// What each kind has a use for, of the options that not all share.
void checkKindOptions(const AnimateOptions& options) {
  constexpr std::string_view names[] = {"sweep", "stroke", "morph"};
  const std::string_view kind = names[static_cast<std::size_t>(options.kind)];
  const std::string_view colorOption =
      options.kind == AnimationKind::sweep ? "--gradient" : "--color";
  for (const std::string& option : options.kindOptions) {
    if (option != colorOption) {
      throw UsageError(option + " means nothing to --kind " + std::string(kind) + ", which takes " +
                       std::string(colorOption));
    }
  }
  if (options.kind == AnimationKind::morph) {
    if (options.to.empty()) throw UsageError("--to is missing: a morph needs the other icon");
  } else if (!options.to.empty()) {
    throw UsageError("--to names the other icon of --kind morph, and of that alone");
  }
}

bool isClear(const AnimatedPicture& picture) {
  return std::ranges::all_of(picture.frames, [](const std::vector<std::uint8_t>& frame) {
    return std::ranges::all_of(frame, [](std::uint8_t byte) { return byte == 0; });
  });
}

std::size_t frameCount(const AnimateOptions& options) {
  const double frames = std::floor(options.framesPerSecond * options.duration + 0.5);
  const double pixels = std::ceil(options.size.width * options.scale) *
                        std::ceil(options.size.height * options.scale);
  if (!(frames >= 1)) throw UsageError("the animation has no frame: it is too short");
  if (frames > kMaxFrames) {
    throw UsageError("the animation has more than " + textOf(kMaxFrames) + " frames");
  }
  if (!(pixels * frames <= kMaxPixels)) {
    throw UsageError("the animation has more than " + textOf(kMaxPixels) +
                     " pixels in all its frames");
  }
  return static_cast<std::size_t>(frames);
}

UIBezierPath pathOf(const NamedIcon& icon) {
  if (icon.icon.builder == nullptr) throw std::runtime_error(icon.name + " has no drawing");
  return icon.icon.builder();
}

std::shared_ptr<CALayer> sceneOf(const AnimateOptions& options) {
  std::vector<std::string> names{options.name};
  if (options.kind == AnimationKind::morph) names.push_back(options.to);
  const std::vector<NamedIcon> icons = iconsNamed(names);
  const UIBezierPath path = pathOf(icons.front());
  switch (options.kind) {
    case AnimationKind::stroke:
      return strokeScene(path, options.color, options.size, options.duration);
    case AnimationKind::morph:
      return morphScene(path, pathOf(icons.back()), options.color, options.size, options.duration);
    case AnimationKind::sweep:
      break;
  }
  return sweepScene(path, options.gradient, options.size, options.duration);
}

UIImage frameOf(CALayer& scene, const AnimateOptions& options, std::size_t frame,
                std::size_t frames) {
  // As shares of the duration, so that the first frame follows on from the last one.
  const double time = options.duration * static_cast<double>(frame) / static_cast<double>(frames);
  UIGraphicsBeginImageContextWithOptions(options.size, false, options.scale);
  scene.presentationLayerAtTime(time)->renderInContext(UIGraphicsGetCurrentContext());
  const std::optional<UIImage> image = UIGraphicsGetImageFromCurrentImageContext();
  UIGraphicsEndImageContext();
  if (!image) throw std::runtime_error(options.name + " cannot be drawn at this size");
  return *image;
}

void writeFolder(const AnimatedPicture& picture, const std::string& folder, Console& console) {
  for (std::size_t i = 0; i < picture.frames.size(); ++i) {
    std::string number = std::to_string(i);
    number.insert(0, 3 - std::min<std::size_t>(number.size(), 3), '0');
    writeOutput((std::filesystem::path(folder) / ("frame-" + number + ".png")).string(),
                encodePng(picture.pixelWidth, picture.pixelHeight, picture.frames[i]), console);
  }
}

}  // namespace

AnimateOptions::AnimateOptions()
    : gradient({UIColor(1, 0.18, 0.42, 1), UIColor(1, 0.62, 0.2, 1)}, {},
               IconGradient::Direction::topLeftToBottomRight) {}

AnimatedPicture renderAnimation(const AnimateOptions& options, Console& console) {
  const std::size_t frames = frameCount(options);
  std::vector<UIImage> images(frames);
  Progress progress(console, "rendering", frames);
  const std::size_t threads = std::min(threadsFor(options.jobs), frames);
  std::vector<std::exception_ptr> errors(threads);
  inParallel(threads, threads, [&](std::size_t thread) {
    try {
      // A tree of layers belongs to one thread: each has its own.
      const std::shared_ptr<CALayer> scene = sceneOf(options);
      scene->setBackgroundColor(options.background);
      for (std::size_t frame = thread; frame < frames; frame += threads) {
        images[frame] = frameOf(*scene, options, frame, frames);
        progress.step();
      }
    } catch (...) {
      errors[thread] = std::current_exception();
    }
  });
  for (const std::exception_ptr& error : errors) {
    if (error) std::rethrow_exception(error);
  }
  AnimatedPicture picture;
  picture.framesPerSecond = options.framesPerSecond;
  picture.pixelWidth = images.front().cgImage().pixelWidth();
  picture.pixelHeight = images.front().cgImage().pixelHeight();
  for (UIImage& image : images) {
    picture.frames.emplace_back(image.cgImage().rgba().begin(), image.cgImage().rgba().end());
    image = {};
  }
  return picture;
}

AnimationKind animationKindFrom(const std::string& text) {
  if (text == "sweep") return AnimationKind::sweep;
  if (text == "stroke") return AnimationKind::stroke;
  if (text == "morph") return AnimationKind::morph;
  throw UsageError("\"" + text + "\" is none of sweep, stroke and morph");
}

int runAnimate(const AnimateOptions& options, Console& console) {
  const Format format = formatOfAnimation(options);
  checkKindOptions(options);
  if (options.output == "-" && console.outIsTerminal) {
    throw UsageError("standard output is a terminal: send the animation to a file or a pipe");
  }
  const AnimatedPicture picture = renderAnimation(options, console);
  if (isClear(picture)) throw std::runtime_error("nothing to see: every frame would be clear");
  // A folder of frames is asked for by its name; what lies above it is not.
  const std::string place = options.output.substr(0, options.output.find_last_not_of('/') + 1);
  makeFolders({&place, 1}, options.parents);
  switch (format) {
    case Format::png:
      writeOutput(options.output, encodeAnimatedPng(picture), console);
      break;
    case Format::gif:
      writeOutput(options.output, encodeGif(picture), console);
      break;
    case Format::folder:
      writeFolder(picture, options.output, console);
      break;
  }
  return statusDone;
}

}  // namespace glyphwright::cli
