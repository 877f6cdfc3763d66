#pragma once

#include <string>
#include <vector>

#include "preset_table.h"

namespace glyphwright::cli {

/// A ready-made image as the gallery shows it: one of its looks.
struct PaintingLook {
  const Preset* preset;
  PresetArguments arguments;
  /// What sets it apart from the other looks of the same image; empty for the only one.
  std::string look;

  /// Names the look's file, without folder and ending.
  std::string fileName() const;
  /// The call that makes it in C++, and the command.
  std::string inCpp() const;
  std::string command() const;
};

/// All ready-made images with all their looks, in the order of their namespaces.
std::vector<PaintingLook> allPaintingLooks();

}  // namespace glyphwright::cli
