// Draws the pictures of the manifest with a chosen set of loops, holds them to their hashes, and
// times drawing alone: on this machine, on one that is emulated, and as WebAssembly.
//   glyphwright_manifest HASHES [SET [ROUNDS]]
// Without a set all that run here are taken.

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include <glyphwright/platform/raster/kernels.h>
#include <glyphwright/platform/raster/scratch.h>
#include <glyphwright/platform/vantel_kit.h>

#include "tests/pixel_manifest.h"

namespace {

using namespace glyphwright;
using namespace glyphwright::pixel_manifest;

// The sum of each picture's least time over the rounds, in milliseconds: what else happens on the
// machine hardly counts.
double timeOf(const std::vector<Picture>& pictures, int rounds) {
  using Clock = std::chrono::steady_clock;
  std::vector<Clock::duration> least(pictures.size(), Clock::duration::max());
  for (int round = 0; round < rounds; ++round) {
    for (std::size_t i = 0; i < pictures.size(); ++i) {
      const auto start = Clock::now();
      pictures[i].draw();
      least[i] = std::min(least[i], Clock::now() - start);
    }
  }
  Clock::duration sum{};
  for (const Clock::duration& time : least) sum += time;
  return std::chrono::duration<double, std::milli>(sum).count();
}

}  // namespace

int main(int argc, char** argv) {
  const Manifest manifest = argc > 1 ? readManifest(argv[1]) : Manifest();
  const std::string chosen = argc > 2 ? argv[2] : "";
  const int rounds = argc > 3 ? std::atoi(argv[3]) : 0;
  VantelKit::Screen::setScale(1);
  const std::vector<Picture> all = pictures();
  bool isSame = true;
  int sets = 0;
  for (const raster::KernelSet& set : raster::kernelSets()) {
    if (!set.runsHere() || (!chosen.empty() && chosen != set.name)) continue;
    ++sets;
    raster::threadScratch().kernels = &set.loops();
    std::size_t same = 0;
    for (const Picture& picture : all) {
      const auto entry = manifest.find(picture.name);
      if (entry != manifest.end() && hashOf(picture.draw().cgImage()) == entry->second) {
        ++same;
      } else if (!manifest.empty()) {
        std::cerr << set.name << ": " << picture.name << " differs\n";
      }
    }
    isSame = isSame && (manifest.empty() || same == all.size());
    std::cout << set.name << ": " << same << " of " << all.size() << " pictures as they should be";
    if (rounds > 0) std::cout << ", drawn in " << timeOf(all, rounds) << " ms";
    std::cout << '\n';
  }
  if (sets == 0) std::cerr << "no set of loops of that name runs here\n";
  return isSame && sets > 0 ? 0 : 1;
}
