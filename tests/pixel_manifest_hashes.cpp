#include <cstdio>
#include <iomanip>
#include <sstream>

#include "pixel_manifest.h"

namespace glyphwright::pixel_manifest {
namespace {

class Fnv1a {
 public:
  void add(std::uint8_t byte) { state_ = (state_ ^ byte) * 0x100000001B3U; }
  void add(std::uint64_t number) {
    for (int shift = 0; shift < 64; shift += 8) add(static_cast<std::uint8_t>(number >> shift));
  }
  std::uint64_t value() const { return state_; }

 private:
  std::uint64_t state_ = 0xCBF29CE484222325U;
};

}  // namespace

std::uint64_t hashOf(const CGImage& image) {
  Fnv1a hash;
  hash.add(std::uint64_t{image.pixelWidth()});
  hash.add(std::uint64_t{image.pixelHeight()});
  for (const std::uint8_t byte : image.rgba()) hash.add(byte);
  return hash.value();
}

// Files as C has them: libraries for WebAssembly may come without file streams.
Manifest readManifest(const std::string& file) {
  Manifest manifest;
  std::FILE* in = std::fopen(file.c_str(), "r");
  if (in == nullptr) return manifest;
  char line[256];
  while (std::fgets(line, sizeof(line), in) != nullptr) {
    if (line[0] == '#') continue;
    std::istringstream fields(line);
    std::string name;
    std::uint64_t hash = 0;
    if (fields >> name >> std::hex >> hash) manifest[name] = hash;
  }
  std::fclose(in);
  return manifest;
}

void writeManifest(const std::string& file, const Manifest& manifest) {
  std::ostringstream text;
  text << "# The hash of each picture's raw pixels. A change here is a change of what users see:\n"
          "# look at the sheet that the failing test left, then run scripts/renew-hashes.\n";
  for (const auto& [name, hash] : manifest) {
    text << name << ' ' << std::hex << std::setw(16) << std::setfill('0') << hash << '\n';
  }
  std::FILE* out = std::fopen(file.c_str(), "w");
  if (out == nullptr) return;
  std::fputs(text.str().c_str(), out);
  std::fclose(out);
}

}  // namespace glyphwright::pixel_manifest
