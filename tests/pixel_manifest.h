#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include <glyphwright/platform/image.h>

/// Pictures whose every byte is fixed, and the hashes that fix them.
namespace glyphwright::pixel_manifest {

struct Picture {
  std::string name;  // of letters, digits, '@', '_' and '-'
  std::function<UIImage()> draw;
};

/// Every icon plain in three sizes, a few with everything else that can be painted, glyphs,
/// conveniences, layers, and the ready-made images.
std::vector<Picture> pictures();

/// Those of them that are drawn with contexts alone, and with layers.
void addContexts(std::vector<Picture>& list);
void addLayers(std::vector<Picture>& list);

/// FNV-1a in 64 bits over the width, the height and the premultiplied bytes.
std::uint64_t hashOf(const CGImage& image);

/// Hashes by the name of their picture.
using Manifest = std::map<std::string, std::uint64_t>;

Manifest readManifest(const std::string& file);
void writeManifest(const std::string& file, const Manifest& manifest);

/// Keeps the pixels of a picture that matched its hash, so that a later change can be shown.
void keep(const std::string& folder, const std::string& name, const CGImage& image);
/// The kept pixels if they still have this hash, otherwise no pixels.
CGImage kept(const std::string& folder, const std::string& name, std::uint64_t hash);

struct Change {
  std::string name;
  CGImage expected;  // without pixels when they were not kept
  CGImage actual;
};

/// One row for each change: expected, actual and their difference eight times enlarged in value.
void writeSheet(const std::string& file, const std::vector<Change>& changes);

}  // namespace glyphwright::pixel_manifest
