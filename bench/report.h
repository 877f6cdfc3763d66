#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "accuracy.h"
#include "effects.h"
#include "layers.h"
#include "paths.h"
#include "threads.h"
#include "timing.h"

namespace glyphwright::bench {

/// One operation at one size; the lists follow Results::renderers.
struct Row {
  std::string operation;
  std::size_t side = 0;
  std::vector<Timing> timings;
  std::optional<std::vector<Accuracy>> accuracies;
};

struct Results {
  std::string processor;
  std::vector<std::string> renderers;
  std::vector<Row> rows;
  std::vector<EffectsRow> effects;
  std::optional<PathTimes> paths;
  std::vector<LayerRow> layers;
  std::vector<ThreadsRow> threads;
  std::vector<ThousandsRow> thousands;
};

/// The processor's name as the system tells it, or "unknown".
std::string processorName();

void writeHeading(const Results& results, std::ostream& out);
/// One line; ratios are to the renderer named "cairo" (below 1: faster than it).
void writeRow(const Results& results, const Row& row, std::ostream& out);
void writeEffects(const std::vector<EffectsRow>& rows, std::ostream& out);
void writePaths(const PathTimes& times, std::ostream& out);
void writeLayers(const std::vector<LayerRow>& rows, std::ostream& out);
void writeThreads(const std::vector<ThreadsRow>& rows, std::ostream& out);
void writeThousands(const std::vector<ThousandsRow>& rows, std::ostream& out);
void writeJson(const Results& results, std::ostream& out);
/// A chart of the cost of a flat fill over the size, both logarithmic.
void writeChart(const Results& results, std::ostream& out);

}  // namespace glyphwright::bench
