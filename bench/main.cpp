// Compares drawing icons with this library, Cairo and AGG: one process, one thread, the renderers
// taking turns round by round. Then this library's effects beside its fill, paths alone, layers
// beside direct drawing, and several threads beside one.

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <thread>

#include <CLI/CLI.hpp>

#include <glyphwright/platform/vantel_kit.h>

#include "report.h"

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace glyphwright::bench {
namespace {

struct Options {
  std::vector<std::size_t> sizes = {24, 48, 96, 192, 512, 2048};
  double seconds = 1;
  std::vector<std::string> only;
  bool json = false;
  std::string chart;
  unsigned threads = std::clamp(std::thread::hardware_concurrency(), 1U, 2U);

  bool wants(std::string_view name) const {
    return only.empty() || std::find(only.begin(), only.end(), name) != only.end();
  }
};

/// A flat fill where a program keeps the picture's memory; AGG and the clearing take it anew.
constexpr std::string_view kReused = "fill-reused";
constexpr std::string_view kEffects = "effects";
constexpr std::string_view kPaths = "paths";
constexpr std::string_view kLayers = "layers";
constexpr std::string_view kThreads = "threads";
constexpr std::string_view kThousands = "thousands";

/// A program that draws all day has its memory; fresh pages from the system for each large image
/// would cost every renderer more than the drawing.
void keepMemory() {
#if defined(__GLIBC__)
  constexpr int kLots = 1 << 30;
  mallopt(M_MMAP_THRESHOLD, kLots);
  mallopt(M_TRIM_THRESHOLD, kLots);
  mallopt(M_TOP_PAD, 1 << 26);
#endif
}

int run(const Options& options) {
  keepMemory();
  VantelKit::Screen::setScale(1);
  const std::unique_ptr<Renderer> owned[] = {makeGlyphwright(), makeCairo(), makeAgg(),
                                             makeClearing()};
  std::vector<const Renderer*> renderers;
  Results results;
  results.processor = processorName();
  for (const auto& renderer : owned) {
    renderers.push_back(renderer.get());
    results.renderers.emplace_back(renderer->name());
  }
  const std::vector<Icon> icons = allIcons();
  for (const OperationInfo& info : kOperations) {
    if (!options.wants(info.name)) continue;
    for (const std::size_t side : options.sizes) {
      Row row{std::string(info.name), side, {}, {}};
      row.timings = timeInterleaved(renderers, icons, info.operation, side, options.seconds);
      if (info.operation == Operation::fill) {
        row.accuracies = measureAccuracy(renderers, icons, side);
      }
      if (!options.json && results.rows.empty()) writeHeading(results, std::cout);
      results.rows.push_back(std::move(row));
      if (!options.json) writeRow(results, results.rows.back(), std::cout);
    }
  }
  if (options.wants(kReused)) {
    const std::unique_ptr<Renderer> reusing[] = {makeGlyphwright(Memory::reused),
                                                 makeCairo(Memory::reused)};
    std::vector<const Renderer*> inTurn = renderers;
    for (std::size_t i = 0; i < std::size(reusing); ++i) inTurn[i] = reusing[i].get();
    for (const std::size_t side : options.sizes) {
      Row row{std::string(kReused), side, {}, {}};
      row.timings = timeInterleaved(inTurn, icons, Operation::fill, side, options.seconds);
      if (!options.json && results.rows.empty()) writeHeading(results, std::cout);
      results.rows.push_back(std::move(row));
      if (!options.json) writeRow(results, results.rows.back(), std::cout);
    }
  }
  if (options.wants(kEffects)) {
    for (const std::size_t side : options.sizes) {
      results.effects.push_back(timeEffects(*renderers.front(), icons, side, options.seconds));
    }
    if (!options.json) writeEffects(results.effects, std::cout);
  }
  if (options.wants(kPaths)) {
    results.paths = timePaths(*renderers.front(), icons, options.seconds);
    if (!options.json) writePaths(*results.paths, std::cout);
  }
  if (options.wants(kLayers)) {
    for (const std::size_t side : options.sizes) {
      for (LayerRow& row : timeLayers(icons, side, options.seconds)) {
        results.layers.push_back(std::move(row));
      }
    }
    results.layers.push_back(timePaintings(options.seconds));
    if (!options.json) writeLayers(results.layers, std::cout);
  }
  if (options.wants(kThreads)) {
    for (const std::size_t side : options.sizes) {
      results.threads.push_back(
          timeThreads(*renderers.front(), icons, side, options.threads, options.seconds));
    }
    if (!options.json) writeThreads(results.threads, std::cout);
  }
  if (options.wants(kThousands)) {
    results.thousands =
        timeThousands({renderers[0], renderers[1]}, icons,
                      std::max(std::thread::hardware_concurrency(), 1U), 4 * options.seconds);
    if (!options.json) writeThousands(results.thousands, std::cout);
  }
  if (options.json) writeJson(results, std::cout);
  if (!options.chart.empty()) {
    std::ofstream chart(options.chart);
    writeChart(results, chart);
    if (!chart) {
      std::fprintf(stderr, "cannot write %s\n", options.chart.c_str());
      return 1;
    }
  }
  return 0;
}

}  // namespace
}  // namespace glyphwright::bench

int main(int argc, char** argv) {
  glyphwright::bench::Options options;
  std::vector<std::string> operations;
  for (const auto& info : glyphwright::bench::kOperations) operations.emplace_back(info.name);
  for (const auto table :
       {glyphwright::bench::kReused, glyphwright::bench::kEffects, glyphwright::bench::kPaths}) {
    operations.emplace_back(table);
  }
  operations.emplace_back(glyphwright::bench::kLayers);
  operations.emplace_back(glyphwright::bench::kThreads);
  operations.emplace_back(glyphwright::bench::kThousands);
  CLI::App app("Times painting icons with this library, Cairo and AGG, side by side.");
  app.add_option("--sizes", options.sizes, "sides in pixels, separated by commas")->delimiter(',');
  app.add_option("--seconds", options.seconds, "time for each line of the table")
      ->check(CLI::PositiveNumber);
  app.add_option("--threads", options.threads, "threads to compare with one")
      ->check(CLI::PositiveNumber);
  app.add_option("--only", options.only, "operations and tables, separated by commas")
      ->delimiter(',')
      ->check(CLI::IsMember(operations));
  app.add_flag("--json", options.json, "JSON instead of the table");
  app.add_option("--chart", options.chart, "also draw the cost of a fill over the size (SVG)");
  CLI11_PARSE(app, argc, argv);
  return glyphwright::bench::run(options);
}
