#pragma once

#include <cstdint>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

/// Drawings that between them reach every kind of memory that the library asks for.
namespace glyphwright::memory {

struct Scene {
  std::string name;  // letters only
  /// Draws it and gives its pixels, or what else tells it from a wrong one.
  std::function<std::vector<std::uint8_t>()> draw;

  friend void PrintTo(const Scene& scene, std::ostream* out) { *out << scene.name; }
};

std::vector<Scene> scenes();
/// The one among them with every paint.
Scene everything();

}  // namespace glyphwright::memory
