// Same pixels on every machine and after every change, until somebody has looked at the difference.

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "pixel_manifest.h"
#include "pixels.h"
#include "places.h"

namespace glyphwright {
namespace {

using namespace pixel_manifest;

const std::string manifestFile = places::inFrozen("pixel_hashes.txt");
const std::string keptFolder = places::inOutput("matching-pictures");
const std::string sheetFile = places::inOutput("changed-pictures.png");

TEST(PixelHashes, EveryPictureHasItsPixels) {
  const pixels::ScreenScale scale(1);
  Manifest unseen = readManifest(manifestFile);
  ASSERT_FALSE(unseen.empty()) << manifestFile;
  std::vector<Change> changes;
  for (const Picture& picture : pictures()) {
    const auto entry = unseen.find(picture.name);
    if (entry == unseen.end()) {
      ADD_FAILURE() << picture.name << " has no hash; see scripts/renew-hashes";
      continue;
    }
    const std::uint64_t expected = entry->second;
    unseen.erase(entry);
    const CGImage actual = picture.draw().cgImage();
    const CGImage before = kept(keptFolder, picture.name, expected);
    if (hashOf(actual) == expected) {
      if (!before) keep(keptFolder, picture.name, actual);
      continue;
    }
    ADD_FAILURE() << picture.name << " looks different: see " << sheetFile;
    if (changes.size() < 40) changes.push_back({picture.name, before, actual});
  }
  for (const auto& [name, hash] : unseen) ADD_FAILURE() << name << " is not drawn any more";
  if (!changes.empty()) writeSheet(sheetFile, changes);
}

TEST(PixelHashes, TheManifestSeesOneLevelInOnePixel) {
  const pixels::ScreenScale scale(1);
  std::set<std::uint64_t> hashes;
  std::set<std::string> names;
  for (const Picture& picture : pictures()) names.insert(picture.name);
  EXPECT_EQ(names.size(), pictures().size()) << "a name stands for one picture";
  std::vector<std::uint8_t> bytes(24, 7);
  hashes.insert(hashOf(CGImage(3, 2, bytes)));
  hashes.insert(hashOf(CGImage(2, 3, bytes)));
  for (std::uint8_t& byte : bytes) {
    ++byte;
    hashes.insert(hashOf(CGImage(3, 2, bytes)));
  }
  EXPECT_EQ(hashes.size(), 26U);

  // The manifest and the kept pictures come back as they were; a picture that is not the one of
  // the hash does not.
  const std::string folder = places::inOutput("pixel_manifest");
  const CGImage image(3, 2, bytes);
  const Manifest manifest = {{"a@1", hashOf(image)}, {"b", 0x12}};
  keep(folder, "a@1", image);
  writeManifest(folder + "/hashes.txt", manifest);
  EXPECT_EQ(readManifest(folder + "/hashes.txt"), manifest);
  EXPECT_TRUE(kept(folder, "a@1", hashOf(image)));
  EXPECT_FALSE(kept(folder, "a@1", 0x12));
  EXPECT_FALSE(kept(folder, "b", 0x12));
  writeSheet(folder + "/sheet.png", {{"a@1", image, image}, {"b", CGImage(), image}});
}

// Not a test: what scripts/renew-hashes runs.
TEST(PixelHashes, DISABLED_Renew) {
  const pixels::ScreenScale scale(1);
  Manifest manifest;
  for (const Picture& picture : pictures()) {
    const CGImage image = picture.draw().cgImage();
    ASSERT_TRUE(image) << picture.name;
    manifest[picture.name] = hashOf(image);
  }
  writeManifest(manifestFile, manifest);
  EXPECT_EQ(readManifest(manifestFile), manifest);
}

}  // namespace
}  // namespace glyphwright
