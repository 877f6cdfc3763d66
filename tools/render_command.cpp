#include "render_command.h"

#include <algorithm>
#include <set>
#include <stdexcept>

#include <glyphwright/bezier_path.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/platform/vantel_kit.h>

#include "icon_image.h"
#include "icon_names.h"
#include "image_output.h"
#include "numbers.h"
#include "path_text.h"
#include "usage_error.h"

namespace glyphwright::cli {
namespace {

struct Job {
  const NamedIcon* icon;
  CGFloat scale;
  std::string file;
};

std::vector<Job> jobsFor(const RenderOptions& options, const std::vector<NamedIcon>& icons) {
  std::vector<Job> jobs;
  std::set<std::string> files;
  for (const CGFloat scale : options.scales) {
    for (const NamedIcon& icon : icons) {
      jobs.push_back({&icon, scale, expandPattern(options.output, icon.name, scale)});
      if (!files.insert(jobs.back().file).second) {
        throw UsageError("more than one image would go to " + jobs.back().file +
                         ": use {name} and {scale} in the name of the output");
      }
    }
  }
  return jobs;
}

std::string hexOf(const UIColor& color) {
  constexpr char digits[] = "0123456789abcdef";
  std::string text = "#";
  for (const CGFloat component : {color.red(), color.green(), color.blue()}) {
    const auto byte = static_cast<unsigned>(std::clamp(component, 0.0, 1.0) * 255 + 0.5);
    text += digits[byte / 16];
    text += digits[byte % 16];
  }
  return text;
}

std::string opacityAttribute(std::string_view name, const UIColor& color) {
  if (color.alpha() == 1) return {};
  return ' ' + std::string(name) + "=\"" + textOf(color.alpha()) + '"';
}

/// The size of a point of the image in units of the path, when the path is fitted into the size
/// that the stroke leaves.
double pointInPathUnits(const UIBezierPath& path, CGSize size, double strokeWidth) {
  const CGSize bounds = path.bounds().size;
  return std::max(bounds.width / (size.width - strokeWidth),
                  bounds.height / (size.height - strokeWidth));
}

std::string svgDocument(const UIBezierPath& path, const IconAttributes& attributes) {
  SvgStyle style;
  style.attributes = " width=\"" + textOf(attributes.size.width) + "\" height=\"" +
                     textOf(attributes.size.height) + '"' +
                     opacityAttribute("fill-opacity", attributes.fillColor);
  style.fill = hexOf(attributes.fillColor);
  const auto& stroke = attributes.stroke;
  if (stroke && stroke->color.alpha() > 0) {
    style.stroke = hexOf(stroke->color);
    style.strokeWidth = stroke->width * pointInPathUnits(path, attributes.size, stroke->width);
    style.attributes += opacityAttribute("stroke-opacity", stroke->color);
  }
  return svgElement(path, style) + '\n';
}

void render(const Job& job, const RenderOptions& options, Console& console) {
  if (job.icon->icon.builder == nullptr) {
    throw std::runtime_error(job.icon->name + " has no drawing");
  }
  const UIBezierPath path = job.icon->icon.builder();
  const IconAttributes& attributes = options.paint.attributes;
  if (options.format == OutputFormat::svg) {
    writeOutput(job.file, svgDocument(path, attributes), console);
    return;
  }
  VantelKit::Screen::setScale(job.scale);
  writeImage(imageOf(path, attributes), job.icon->name, job.file, options.format, console);
}

void checkFormat(const RenderOptions& options, std::size_t jobCount, const Console& console) {
  if (options.format == OutputFormat::svg && !options.paint.pixelOptions.empty()) {
    throw UsageError("an SVG holds the outline with its fill and stroke; " +
                     options.paint.pixelOptions.front() + " cannot go into it");
  }
  const IconAttributes& attributes = options.paint.attributes;
  if (options.format == OutputFormat::svg && attributes.stroke &&
      attributes.stroke->width >= std::min(attributes.size.width, attributes.size.height)) {
    throw UsageError("--stroke is as wide as the image or wider: nothing of the outline is left");
  }
  if (options.output == "-" && jobCount > 1) {
    throw UsageError("only one image can go to standard output");
  }
  refuseTerminal(options.output, options.format, console);
}

}  // namespace

Paint::Paint() {
  attributes.fillColor = UIColor::blackColor();
  attributes.backgroundColor = UIColor::clearColor();
  attributes.stroke = IconStroke(UIColor::clearColor(), 0);
  attributes.size = {64, 64};
}

int runRender(const RenderOptions& options, Console& console) {
  const std::vector<NamedIcon> icons = options.all ? allIcons() : iconsNamed(options.names);
  checkFormat(options, icons.size() * options.scales.size(), console);
  const std::vector<Job> jobs = jobsFor(options, icons);
  Progress progress(console, "rendering", jobs.size());
  int status = statusDone;
  for (const Job& job : jobs) {
    progress.step();
    try {
      render(job, options, console);
    } catch (const std::runtime_error& error) {
      progress.clear();
      console.err << "glyphwright: " << error.what() << '\n';
      status = statusFailed;
    }
  }
  return status;
}

}  // namespace glyphwright::cli
