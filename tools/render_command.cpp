#include "render_command.h"

#include <algorithm>
#include <exception>
#include <set>
#include <stdexcept>

#include <glyphwright/bezier_path.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/platform/vantel_kit.h>

#include "icon_names.h"
#include "image_output.h"
#include "paint_text.h"
#include "parallel.h"
#include "svg_document.h"
#include "usage_error.h"

namespace glyphwright::cli {
namespace {

struct Job {
  const NamedIcon* icon;
  CGSize size;
  std::string file;
};

/// The files at one scale.
std::vector<Job> jobsFor(const RenderOptions& options, const std::vector<NamedIcon>& icons,
                         CGFloat scale, std::set<std::string>& files) {
  std::vector<Job> jobs;
  for (const CGSize size : options.paint.sizes) {
    const std::string sizeText = textOfSize(size);
    for (const NamedIcon& icon : icons) {
      jobs.push_back({&icon, size, expandPattern(options.output, {icon.name, scale, sizeText})});
      if (!files.insert(jobs.back().file).second) {
        throw UsageError("more than one image would go to " + jobs.back().file +
                         ": use {name}, {size} and {scale} in the name of the output");
      }
    }
  }
  return jobs;
}

void render(const Job& job, const RenderOptions& options, Console& console) {
  if (job.icon->icon.builder == nullptr) {
    throw std::runtime_error(job.icon->name + " has no drawing");
  }
  const UIBezierPath path = job.icon->icon.builder();
  Paint paint = options.paint;
  paint.attributes.size = job.size;
  if (options.format == OutputFormat::svg) {
    writeOutput(job.file, svgDocument(path, paint), console);
  } else {
    writeImage(path.makeStandaloneImage(paint.attributes), job.icon->name, job.file, options.format,
               console, options.compression);
  }
}

void check(const RenderOptions& options, std::size_t jobCount, const Console& console) {
  if (options.format == OutputFormat::svg) {
    for (const CGSize size : options.paint.sizes) {
      IconAttributes attributes = options.paint.attributes;
      attributes.size = size;
      requireRoomInDocument(attributes);
    }
  } else {
    requirePixelColors(options.paint);
  }
  if (options.output == "-" && jobCount > 1) {
    throw UsageError("only one image can go to standard output");
  }
  refuseTerminal(options.output, options.format, console);
}

/// Renders the jobs and gives what went wrong with each.
std::vector<std::string> renderAll(const std::vector<Job>& jobs, const RenderOptions& options,
                                   Progress& progress, Console& console) {
  std::vector<std::string> errors(jobs.size());
  inParallel(jobs.size(), threadsFor(options.jobs), [&](std::size_t i) {
    try {
      render(jobs[i], options, console);
    } catch (const std::exception& error) {
      errors[i] = error.what();
    }
    progress.step();
  });
  return errors;
}

}  // namespace

int runRender(const RenderOptions& options, Console& console) {
  const std::vector<NamedIcon> icons =
      options.all ? allIcons() : iconsNamed(options.names, console.in);
  check(options, icons.size() * options.scales.size() * options.paint.sizes.size(), console);
  std::set<std::string> files;
  std::vector<std::vector<Job>> batches;
  for (const CGFloat scale : options.scales) {
    batches.push_back(jobsFor(options, icons, scale, files));
  }
  makeFolders(std::vector(files.begin(), files.end()), options.parents);
  std::vector<std::string> errors;
  {
    Progress progress(console, "rendering", files.size());
    for (std::size_t i = 0; i < batches.size(); ++i) {
      // One scale after the other: it is the screen's, which all threads share.
      VantelKit::Screen::setScale(options.scales[i]);
      for (std::string& error : renderAll(batches[i], options, progress, console)) {
        if (!error.empty()) errors.push_back(std::move(error));
      }
    }
  }
  for (const std::string& error : errors) console.err << "glyphwright: " << error << '\n';
  return errors.empty() ? statusDone : statusFailed;
}

}  // namespace glyphwright::cli
