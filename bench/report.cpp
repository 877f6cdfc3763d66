#include "report.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iomanip>
#include <limits>
#include <ostream>

#include <nlohmann/json.hpp>

namespace glyphwright::bench {

namespace {

std::optional<std::size_t> indexOf(const Results& results, std::string_view name) {
  const auto found = std::find(results.renderers.begin(), results.renderers.end(), name);
  if (found == results.renderers.end()) return std::nullopt;
  return static_cast<std::size_t>(found - results.renderers.begin());
}

constexpr int kNameWidth = 14;
constexpr int kSideWidth = 6;
constexpr int kTimeWidth = 18;
constexpr int kErrorWidth = 13;

}  // namespace

std::string processorName() {
  std::ifstream in("/proc/cpuinfo");
  for (std::string line; std::getline(in, line);) {
    const std::size_t colon = line.find(": ");
    if (line.starts_with("model name") && colon != std::string::npos) return line.substr(colon + 2);
  }
  return "unknown";
}

void writeHeading(const Results& results, std::ostream& out) {
  out << results.processor << "; one thread; a fresh image for every icon, all icons in turn\n"
      << "microseconds of processor time an icon, median (times Cairo's); alpha error of a flat "
         "fill over edge "
         "pixels,"
      << " worst / mean of 255\n\n"
      << std::left << std::setw(kNameWidth) << "operation" << std::right << std::setw(kSideWidth)
      << "px";
  for (const std::string& name : results.renderers) out << std::setw(kTimeWidth) << name;
  for (const std::string& name : results.renderers) {
    if (name != "clearing") out << std::setw(kErrorWidth) << name;
  }
  out << '\n';
}

void writeRow(const Results& results, const Row& row, std::ostream& out) {
  const std::optional<std::size_t> cairo = indexOf(results, "cairo");
  out << std::left << std::setw(kNameWidth) << row.operation << std::right << std::setw(kSideWidth)
      << row.side << std::fixed;
  for (std::size_t r = 0; r < row.timings.size(); ++r) {
    const double time = row.timings[r].microseconds;
    out << std::setprecision(time < 100 ? 2 : 0) << std::setw(kTimeWidth - 7) << time;
    if (cairo) {
      out << std::setprecision(2) << " (" << std::setw(4) << time / row.timings[*cairo].microseconds
          << ")";
    }
  }
  if (row.accuracies) {
    for (std::size_t r = 0; r < row.accuracies->size(); ++r) {
      if (results.renderers[r] == "clearing") continue;
      const Accuracy& accuracy = (*row.accuracies)[r];
      out << std::setprecision(1) << std::setw(kErrorWidth - 7) << accuracy.worst << " / "
          << std::setprecision(2) << accuracy.mean;
    }
  }
  out << std::endl;
}

void writeEffects(const std::vector<EffectsRow>& rows, std::ostream& out) {
  out << "\nwhat effects cost here: fill and hairline over fill, fill and drop shadow over fill, "
         "inset shadow over drop shadow\n"
      << std::fixed << std::setprecision(2);
  for (const EffectsRow& row : rows) {
    out << std::left << std::setw(kNameWidth) << "effects" << std::right << std::setw(kSideWidth)
        << row.side << std::setw(kTimeWidth) << row.hairlineToFill << std::setw(kTimeWidth)
        << row.dropShadowToFill << std::setw(kTimeWidth) << row.insetToDropShadow << '\n';
  }
}

void writePaths(const PathTimes& times, std::ostream& out) {
  out << "\nmedians: a name's builder " << std::fixed << std::setprecision(1)
      << times.findNanoseconds << " ns; the median icon's path " << std::setprecision(3)
      << times.medianMicroseconds << " us, the slowest " << times.slowestMicroseconds
      << " us; all icons at 48 points, scale 2, " << std::setprecision(2)
      << times.catalogueMilliseconds << " ms\n";
}

void writeLayers(const std::vector<LayerRow>& rows, std::ostream& out) {
  out << "\nmicroseconds a picture: described by layers or pieces, the same shapes drawn by calls, "
         "the one over the other\n"
      << std::fixed;
  for (const LayerRow& row : rows) {
    out << std::left << std::setw(2 * kNameWidth) << row.what << std::right
        << std::setw(kSideWidth);
    if (row.side > 0) {
      out << row.side;
    } else {
      out << "";
    }
    out << std::setprecision(2) << std::setw(kTimeWidth) << row.described << std::setw(kTimeWidth)
        << row.direct << std::setw(kTimeWidth) << row.ratio() << '\n';
  }
}

void writeThreads(const std::vector<ThreadsRow>& rows, std::ostream& out) {
  out << "\nicons a second with one thread and with several; the one over the other, and by how "
         "much "
         "the processor time of an icon grows\n"
      << std::fixed;
  for (const ThreadsRow& row : rows) {
    out << std::left << std::setw(kNameWidth) << std::to_string(row.threads) + " threads"
        << std::right << std::setw(kSideWidth) << row.side << std::setprecision(0)
        << std::setw(kTimeWidth) << row.perSecondAlone << std::setw(kTimeWidth) << row.perSecond
        << std::setprecision(2) << std::setw(kTimeWidth) << row.scaling() << std::setw(kTimeWidth)
        << row.slowdown << '\n';
  }
}

void writeThousands(const std::vector<ThousandsRow>& rows, std::ostream& out) {
  out << "\nall icons at 48 points and scale 2, each filled flat, with a hairline, with a slanted "
         "gradient and with a shadow: icons a second with one thread and with several\n"
      << std::fixed << std::setprecision(0);
  for (const ThousandsRow& row : rows) {
    out << std::left << std::setw(kNameWidth) << row.renderer << std::right << std::setw(kSideWidth)
        << row.threads << std::setw(kTimeWidth) << row.perSecondAlone << std::setw(kTimeWidth)
        << row.perSecond << '\n';
  }
}

void writeJson(const Results& results, std::ostream& out) {
  nlohmann::ordered_json json;
  json["processor"] = results.processor;
  json["unit"] = "microseconds an icon, median";
  json["rows"] = nlohmann::ordered_json::array();
  for (const Row& row : results.rows) {
    nlohmann::ordered_json entry = {{"operation", row.operation}, {"size", row.side}};
    for (std::size_t r = 0; r < row.timings.size(); ++r) {
      nlohmann::ordered_json one = {{"time", row.timings[r].microseconds},
                                    {"rounds", row.timings[r].rounds},
                                    {"icons", row.timings[r].iconsPerRound}};
      if (row.accuracies && results.renderers[r] != "clearing") {
        one["worstError"] = (*row.accuracies)[r].worst;
        one["meanError"] = (*row.accuracies)[r].mean;
      }
      entry[results.renderers[r]] = one;
    }
    json["rows"].push_back(entry);
  }
  for (const EffectsRow& row : results.effects) {
    json["effects"].push_back({{"size", row.side},
                               {"hairlineToFill", row.hairlineToFill},
                               {"dropShadowToFill", row.dropShadowToFill},
                               {"insetToDropShadow", row.insetToDropShadow}});
  }
  if (results.paths) {
    json["paths"] = {{"findNanoseconds", results.paths->findNanoseconds},
                     {"medianMicroseconds", results.paths->medianMicroseconds},
                     {"slowestMicroseconds", results.paths->slowestMicroseconds},
                     {"catalogueMilliseconds", results.paths->catalogueMilliseconds}};
  }
  for (const LayerRow& row : results.layers) {
    json["layers"].push_back({{"what", row.what},
                              {"size", row.side},
                              {"described", row.described},
                              {"direct", row.direct},
                              {"ratio", row.ratio()}});
  }
  for (const ThreadsRow& row : results.threads) {
    json["threads"].push_back({{"size", row.side},
                               {"threads", row.threads},
                               {"iconsPerSecondAlone", row.perSecondAlone},
                               {"iconsPerSecond", row.perSecond},
                               {"scaling", row.scaling()},
                               {"slowdown", row.slowdown}});
  }
  for (const ThousandsRow& row : results.thousands) {
    json["thousands"].push_back({{"renderer", row.renderer},
                                 {"threads", row.threads},
                                 {"iconsPerSecondAlone", row.perSecondAlone},
                                 {"iconsPerSecond", row.perSecond}});
  }
  out << json.dump(2) << '\n';
}

void writeChart(const Results& results, std::ostream& out) {
  constexpr double kLeft = 60;
  constexpr double kTop = 20;
  constexpr double kWidth = 560;
  constexpr double kHeight = 320;
  constexpr const char* kColors[] = {"#d6336c", "#1c7ed6", "#2f9e44", "#868e96"};
  std::vector<const Row*> rows;
  double low = std::numeric_limits<double>::infinity();
  double high = 0;
  for (const Row& row : results.rows) {
    if (row.operation != "fill") continue;
    rows.push_back(&row);
    for (const Timing& timing : row.timings) {
      low = std::min(low, timing.microseconds);
      high = std::max(high, timing.microseconds);
    }
  }
  if (rows.size() < 2) return;
  const double floor = std::floor(std::log10(low));
  const double ceiling = std::ceil(std::log10(high));
  const double first = std::log2(static_cast<double>(rows.front()->side));
  const double last = std::log2(static_cast<double>(rows.back()->side));
  const auto x = [&](std::size_t side) {
    return kLeft + kWidth * (std::log2(static_cast<double>(side)) - first) / (last - first);
  };
  const auto y = [&](double time) {
    return kTop + kHeight * (ceiling - std::log10(time)) / (ceiling - floor);
  };
  out << std::fixed << std::setprecision(1)
      << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"760\" height=\"390\" "
         "font-family=\"sans-serif\" font-size=\"12\">\n"
      << "<rect width=\"760\" height=\"390\" fill=\"#fff\"/>\n";
  for (double power = floor; power <= ceiling; ++power) {
    const double at = y(std::pow(10, power));
    out << "<path d=\"M" << kLeft << ' ' << at << 'h' << kWidth << "\" stroke=\"#dee2e6\"/>"
        << "<text x=\"" << kLeft - 8 << "\" y=\"" << at + 4 << "\" text-anchor=\"end\">"
        << std::setprecision(power < 0 ? static_cast<int>(-power) : 0) << std::pow(10, power)
        << std::setprecision(1) << "</text>\n";
  }
  for (const Row* row : rows) {
    out << "<text x=\"" << x(row->side) << "\" y=\"" << kTop + kHeight + 18
        << "\" text-anchor=\"middle\">" << row->side << "</text>\n";
  }
  out << "<text x=\"" << kLeft + kWidth / 2 << "\" y=\"" << kTop + kHeight + 38
      << "\" text-anchor=\"middle\">side in pixels; microseconds for one filled icon</text>\n";
  for (std::size_t r = 0; r < results.renderers.size(); ++r) {
    const char* color = kColors[r % std::size(kColors)];
    out << "<polyline fill=\"none\" stroke-width=\"2\" stroke=\"" << color << "\" points=\"";
    for (const Row* row : rows) {
      out << x(row->side) << ',' << y(row->timings[r].microseconds) << ' ';
    }
    out << "\"/><text x=\"" << kLeft + kWidth + 8 << "\" y=\""
        << y(rows.back()->timings[r].microseconds) + 4 << "\" fill=\"" << color << "\">"
        << results.renderers[r] << "</text>\n";
  }
  out << "</svg>\n";
}

}  // namespace glyphwright::bench
