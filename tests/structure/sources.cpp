#include "sources.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <set>

#include "../places.h"

namespace glyphwright::structure {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kLibrary = "glyphwright/";
constexpr std::string_view kFace = "glyphwright/bezier_path.h";
constexpr std::string_view kUmbrella = "glyphwright/glyphwright.h";

/// A room of the library and the rooms that it may look into, besides itself.
struct Room {
  std::string_view name;
  std::vector<std::string_view> uses;
};

const std::vector<Room>& rooms() {
  static const std::vector<Room> all = {
      {"platform", {}},
      {"face", {"platform"}},
      {"paths", {"platform", "face"}},
      {"catalogue", {"platform", "face", "paths"}},
      {"layers", {"platform"}},
      {"rendering", {"platform", "face", "paths", "catalogue", "layers"}},
      {"presets", {"platform", "face", "paths", "catalogue", "layers", "rendering"}},
      {"umbrella", {"platform", "face", "paths", "catalogue", "layers", "rendering", "presets"}},
      {"c", {"platform", "face", "paths", "catalogue", "layers", "rendering", "presets"}},
  };
  return all;
}

std::string_view roomOf(std::string_view file) {
  if (file == kFace) return "face";
  if (file == kUmbrella) return "umbrella";
  const std::string_view rest = file.substr(kLibrary.size());
  return rest.substr(0, rest.find('/'));
}

// The platform's floors, from the ground up. What contexts are built of has folders of its own;
// their face, and what only works through a context, stands beside the ground floor's files.
constexpr std::string_view kFloors[] = {"base", "raster", "drawing", "contexts", "layers"};

std::size_t floorOf(std::string_view file) {
  std::string_view rest = file.substr(std::string_view("glyphwright/platform/").size());
  const std::size_t slash = rest.find('/');
  if (slash != std::string_view::npos) {
    const auto* const floor =
        std::find(std::begin(kFloors), std::end(kFloors), rest.substr(0, slash));
    return static_cast<std::size_t>(floor - kFloors);
  }
  constexpr std::string_view kContexts[] = {"context.", "context_stack.", "image_renderer.",
                                            "current_context.", "vantel_kit."};
  const bool isContext = std::any_of(std::begin(kContexts), std::end(kContexts),
                                     [&](std::string_view name) { return rest.starts_with(name); });
  return isContext ? 3 : 0;
}

bool isStandardHeader(std::string_view target) {
  // The interface for C is written in C.
  return target == "stddef.h" || target == "stdint.h" ||
         target.find_first_of("./") == std::string_view::npos;
}

// A processor's own words, which stand where the loops' words are made from them; the loops over
// points stand below the raster.
bool isIntrinsic(const Include& include) {
  return (include.file == "glyphwright/platform/points.cpp" ||
          include.file.starts_with("glyphwright/platform/raster/lanes/")) &&
         (include.target == "immintrin.h" || include.target == "arm_neon.h" ||
          include.target == "smmintrin.h" || include.target == "wasm_simd128.h");
}

std::string fault(const Include& include, std::string_view why) {
  return include.file + " includes " + include.target + ": " + std::string(why);
}

std::string libraryFault(const Include& include) {
  if (!include.target.starts_with(kLibrary)) {
    if (!include.quoted && (isStandardHeader(include.target) || isIntrinsic(include))) return {};
    return fault(include, "the library needs nothing but the standard library");
  }
  const std::string_view from = roomOf(include.file);
  const std::string_view to = roomOf(include.target);
  if (from == to) {
    const bool risesUp = from == "platform" && floorOf(include.file) < floorOf(include.target);
    return risesUp ? fault(include, "the platform's floors rest on those below") : std::string();
  }
  // The list of icon names declares the face's static methods.
  if (from == "face" && include.target == "glyphwright/paths/icon_names.inc") return {};
  if (include.target == "glyphwright/version.h") return {};
  const auto room = std::find_if(rooms().begin(), rooms().end(),
                                 [&](const Room& candidate) { return candidate.name == from; });
  if (room == rooms().end()) return fault(include, "a room that is not on the plan");
  if (std::find(room->uses.begin(), room->uses.end(), to) == room->uses.end()) {
    return fault(include, "runs back up");
  }
  return {};
}

}  // namespace

std::vector<std::string> filesBelow(std::string_view folder,
                                    const std::vector<std::string_view>& endings) {
  const fs::path root = places::inSource("");
  const std::set<std::string> foreign = {".git", "build", "node_modules", ".cache"};
  std::vector<std::string> files;
  auto walk = fs::recursive_directory_iterator(root / folder);
  for (const fs::directory_entry& entry : walk) {
    const std::string name = entry.path().filename().string();
    if (entry.is_directory()) {
      if (foreign.contains(name)) walk.disable_recursion_pending();
      continue;
    }
    const bool wanted =
        endings.empty() || std::any_of(endings.begin(), endings.end(),
                                       [&](std::string_view end) { return name.ends_with(end); });
    if (wanted) files.push_back(fs::relative(entry.path(), root).generic_string());
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::string readText(std::string_view file) {
  std::ifstream in(places::inSource(file), std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::vector<Include> includesOf(const std::string& file, std::string_view text) {
  std::vector<Include> includes;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    std::string_view line = text.substr(at, end - at);
    at = end + 1;
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    if (!line.starts_with("#include")) continue;
    const std::size_t open = line.find_first_of("<\"");
    if (open == std::string_view::npos) continue;
    const bool quoted = line[open] == '"';
    const std::size_t close = line.find(quoted ? '"' : '>', open + 1);
    if (close == std::string_view::npos) continue;
    includes.push_back({file, std::string(line.substr(open + 1, close - open - 1)), quoted});
  }
  return includes;
}

std::string directionFault(const Include& include) {
  if (include.file.starts_with(kLibrary)) return libraryFault(include);
  const bool isProgram = include.file.starts_with("tools/") || include.file.starts_with("bench/") ||
                         include.file.starts_with("examples/");
  // What shows the stages of drawing reads them where they are.
  if (isProgram && include.file != "tools/stages.cpp" &&
      (include.target.starts_with("glyphwright/platform/raster/") ||
       include.target.starts_with("glyphwright/paths/artwork/"))) {
    return fault(include, "programs see the public headers only");
  }
  return {};
}

std::vector<std::string> findCircle(const std::vector<Include>& includes) {
  std::map<std::string, std::vector<std::string>> edges;
  for (const Include& include : includes) edges[include.file].push_back(include.target);
  std::set<std::string> done;
  std::vector<std::string> trail;
  std::vector<std::string> circle;
  const auto visit = [&](const auto& self, const std::string& file) -> void {
    if (!circle.empty() || done.contains(file)) return;
    const auto seen = std::find(trail.begin(), trail.end(), file);
    if (seen != trail.end()) {
      circle.assign(seen, trail.end());
      return;
    }
    trail.push_back(file);
    if (const auto found = edges.find(file); found != edges.end()) {
      for (const std::string& target : found->second) self(self, target);
    }
    trail.pop_back();
    done.insert(file);
  };
  for (const auto& [file, targets] : edges) visit(visit, file);
  return circle;
}

}  // namespace glyphwright::structure
