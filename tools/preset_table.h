#pragma once

#include <glyphwright/presets/ready_made.h>

namespace glyphwright::cli {

using Preset = presets::ReadyMadeImage;
using PresetArguments = presets::ReadyMadeArguments;

/// All ready-made images, in the order of their namespaces.
inline std::span<const Preset> allPresets() {
  return presets::readyMadeImages();
}

}  // namespace glyphwright::cli
