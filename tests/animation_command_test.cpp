#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <zlib.h>

#include <tools/animate_command.h>
#include <tools/animated_picture.h>
#include <tools/animations_page.h>
#include <tools/color_reduction.h>
#include <tools/console.h>
#include <tools/path_morph.h>
#include <tools/usage_error.h>

#include <glyphwright/bezier_path.h>
#include <glyphwright/platform/layers/path_trimming.h>

#include "places.h"

namespace glyphwright::cli {
namespace {

using Bytes = std::vector<std::uint8_t>;

std::string outputFile(const std::string& name) {
  return places::inOutput("animate/" + std::string(name));
}

Bytes bytesOf(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

AnimateOptions optionsFor(const std::string& output) {
  AnimateOptions options;
  options.name = "heartPath";
  options.output = output;
  options.parents = true;
  options.framesPerSecond = 5;
  options.duration = 1;
  options.size = {20, 10};
  options.scale = 2;
  return options;
}

int run(const AnimateOptions& options) {
  std::ostringstream out;
  std::ostringstream err;
  Console console{out, err};
  return runAnimate(options, console);
}

std::size_t number(const Bytes& bytes, std::size_t at, std::size_t size) {
  std::size_t value = 0;
  for (std::size_t i = 0; i < size; ++i) value = value << 8 | bytes.at(at + i);
  return value;
}

// The names of a PNG file's chunks, with their contents; fails on a wrong checksum.
std::vector<std::pair<std::string, Bytes>> chunksOf(const Bytes& png) {
  std::vector<std::pair<std::string, Bytes>> chunks;
  for (std::size_t at = 8; at < png.size();) {
    const std::size_t length = number(png, at, 4);
    const auto name = png.begin() + static_cast<std::ptrdiff_t>(at) + 4;
    const auto content = name + 4;
    const auto end = content + static_cast<std::ptrdiff_t>(length);
    chunks.emplace_back(std::string(name, content), Bytes(content, end));
    EXPECT_EQ(number(png, at + 8 + length, 4), crc32(0, &*name, static_cast<uInt>(length + 4)));
    at += length + 12;
  }
  return chunks;
}

TEST(AnimateCommand, WritesAnAnimatedPngOfEveryFrame) {
  for (const AnimationKind kind :
       {AnimationKind::sweep, AnimationKind::stroke, AnimationKind::morph}) {
    AnimateOptions options = optionsFor(outputFile("heart.png"));
    options.kind = kind;
    if (kind == AnimationKind::morph) options.to = "Icons.checkmark";
    ASSERT_EQ(run(options), statusDone);
    const auto chunks = chunksOf(bytesOf(options.output));
    ASSERT_EQ(chunks[0].first, "IHDR");
    EXPECT_EQ(number(chunks[0].second, 0, 4), 40U);
    EXPECT_EQ(number(chunks[0].second, 4, 4), 20U);
    ASSERT_EQ(chunks[1].first, "acTL");
    EXPECT_EQ(number(chunks[1].second, 0, 4), 5U);
    EXPECT_EQ(chunks.back().first, "IEND");
    std::size_t sequence = 0;
    std::vector<Bytes> frames;
    for (const auto& [name, content] : chunks) {
      if (name == "fcTL") {
        EXPECT_EQ(number(content, 0, 4), sequence++);
        EXPECT_EQ(number(content, 4, 4), 40U);
        EXPECT_EQ(number(content, 20, 2) * 5, number(content, 22, 2));
        frames.emplace_back();
      } else if (name == "IDAT") {
        EXPECT_EQ(frames.size(), 1U);
        frames.back().insert(frames.back().end(), content.begin(), content.end());
      } else if (name == "fdAT") {
        EXPECT_EQ(number(content, 0, 4), sequence++);
        frames.back().insert(frames.back().end(), content.begin() + 4, content.end());
      }
    }
    ASSERT_EQ(frames.size(), 5U);
    for (const Bytes& frame : frames) {
      Bytes rows(20 * (1 + 40 * 4));
      uLongf size = rows.size();
      EXPECT_EQ(uncompress(rows.data(), &size, frame.data(), frame.size()), Z_OK);
      EXPECT_EQ(size, rows.size());
    }
    EXPECT_NE(frames[0], frames[2]);
  }
}

TEST(AnimateCommand, WritesAGifOrSaysThatItCannot) {
  const AnimateOptions options = optionsFor(outputFile("heart.gif"));
  if (!canEncodeGif()) {
    EXPECT_THROW(run(options), std::runtime_error);
    return;
  }
  ASSERT_EQ(run(options), statusDone);
  const Bytes gif = bytesOf(options.output);
  EXPECT_EQ(std::string(gif.begin(), gif.begin() + 6), "GIF89a");
  EXPECT_EQ(gif[6] + gif[7] * 256, 40);
  EXPECT_EQ(gif[8] + gif[9] * 256, 20);
  EXPECT_EQ(gif.back(), ';');
  // A control block before every frame: 20 hundredths, index 0 clear, cleared before the next.
  const Bytes control{0x21, 0xF9, 4, 0x09, 20, 0, 0, 0};
  std::size_t frames = 0;
  for (auto at = gif.begin();; ++at, ++frames) {
    at = std::search(at, gif.end(), control.begin(), control.end());
    if (at == gif.end()) break;
  }
  EXPECT_EQ(frames, 5U);
}

TEST(AnimateCommand, WritesAFolderOfFrames) {
  const std::string folder = outputFile("frames");
  std::filesystem::remove_all(folder);
  ASSERT_EQ(run(optionsFor(folder)), statusDone);
  std::size_t files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    EXPECT_EQ(chunksOf(bytesOf(entry.path().string())).front().first, "IHDR");
    ++files;
  }
  EXPECT_EQ(files, 5U);
  EXPECT_TRUE(std::filesystem::exists(folder + "/frame-004.png"));
}

TEST(AnimateCommand, RefusesWhatMakesNoPicture) {
  const auto expectRefused = [](const std::string& what, auto change) {
    AnimateOptions options = optionsFor(outputFile("refused.png"));
    change(options);
    EXPECT_THROW(run(options), UsageError) << what;
    EXPECT_FALSE(std::filesystem::exists(outputFile("refused.png"))) << what;
  };
  expectRefused("name", [](AnimateOptions& o) { o.name = "hartPath"; });
  expectRefused("format", [](AnimateOptions& o) { o.output = outputFile("refused.mp4"); });
  expectRefused("morph to nothing", [](AnimateOptions& o) { o.kind = AnimationKind::morph; });
  expectRefused("sweep to something", [](AnimateOptions& o) { o.to = "checkmarkPath"; });
  expectRefused("no output", [](AnimateOptions& o) { o.output = ""; });
  expectRefused("a sweep's colour", [](AnimateOptions& o) { o.kindOptions = {"--color"}; });
  expectRefused("no frame", [](AnimateOptions& o) { o.duration = 0.05; });
  expectRefused("too many frames", [](AnimateOptions& o) { o.duration = 600; });
  expectRefused("too large", [](AnimateOptions& o) { o.scale = 1000; });
  EXPECT_THROW(animationKindFrom("spin"), UsageError);
  AnimateOptions clear = optionsFor(outputFile("refused.png"));
  clear.kind = AnimationKind::stroke;
  clear.color = UIColor::clearColor();
  EXPECT_THROW(run(clear), std::runtime_error);
}

// A still picture of the first frame has to show the icon, bare strokes among them.
TEST(AnimateCommand, ShowsSomethingFirst) {
  std::ostringstream ignored;
  Console console{ignored, ignored};
  for (const char* name : {"heartPath", "chatActionBarCloseIcon"}) {
    for (const AnimationKind kind :
         {AnimationKind::sweep, AnimationKind::stroke, AnimationKind::morph}) {
      AnimateOptions options = optionsFor("");
      options.name = name;
      options.kind = kind;
      options.to = kind == AnimationKind::morph ? "starPath" : "";
      const Bytes first = renderAnimation(options, console).frames.front();
      EXPECT_LT(std::ranges::count(first, 0), 40 * 20 * 4 - 100)
          << name << ' ' << static_cast<int>(kind);
    }
  }
}

TEST(AnimationsPage, NamesTheFilesOfItsShowpieces) {
  std::ostringstream out;
  std::ostringstream err;
  Console console{out, err};
  const std::string page = animationsPage();
  for (Showpiece& piece : showpieces()) {
    EXPECT_NE(page.find("\"animations/" + piece.fileName() + ".png\""), std::string::npos);
    EXPECT_NE(page.find("\"animations/" + piece.fileName() + "-still.png\""), std::string::npos);
    piece.options.framesPerSecond = 4;
    const AnimatedPicture picture = renderAnimation(piece.options, console);
    const auto still =
        static_cast<std::size_t>(piece.still * static_cast<double>(picture.frames.size()));
    EXPECT_FALSE(std::ranges::all_of(picture.frames.at(still), [](int byte) { return byte == 0; }))
        << piece.fileName();
  }
}

TEST(ColorReduction, KeepsAllColorsWhenTheyFit) {
  const Bytes pixels{255, 0, 0, 255, 0, 0, 0, 0, 64, 0, 0, 128, 0, 0, 127, 127};
  const IndexedPixels indexed = reducedColors(pixels);
  ASSERT_EQ(indexed.indices.size(), 4U);
  const auto colorAt = [&](std::size_t i) { return indexed.colors[indexed.indices[i]]; };
  EXPECT_EQ(colorAt(0).red, 255);
  EXPECT_EQ(colorAt(0).green, 0);
  EXPECT_EQ(indexed.indices[1], IndexedPixels::kTransparent);
  // Half clear on white, and just less than half.
  EXPECT_EQ(colorAt(2).red, 191);
  EXPECT_EQ(colorAt(2).green, 127);
  EXPECT_EQ(indexed.indices[3], IndexedPixels::kTransparent);
  EXPECT_TRUE(reducedColors({}).indices.empty());
}

TEST(ColorReduction, StaysNearWhenThereAreTooMany) {
  Bytes pixels;
  for (int red = 0; red < 256; red += 3) {
    for (int blue = 0; blue < 256; blue += 5) {
      pixels.insert(pixels.end(),
                    {static_cast<std::uint8_t>(red), 9, static_cast<std::uint8_t>(blue), 255});
    }
  }
  const IndexedPixels indexed = reducedColors(pixels);
  EXPECT_EQ(indexed.colors.size(), 256U);
  int largest = 0;
  for (std::size_t i = 0; i < indexed.indices.size(); ++i) {
    const IndexedPixels::Color& color = indexed.colors[indexed.indices[i]];
    EXPECT_EQ(color.green, 9);
    largest = std::max(
        {largest, std::abs(color.red - pixels[i * 4]), std::abs(color.blue - pixels[i * 4 + 2])});
  }
  // 255 boxes over 256 by 256: about 16 a side, at most some 8 off, twice that where cuts differ.
  EXPECT_LE(largest, 16);
}

TEST(PathMorph, GivesBothShapesTheSameElements) {
  const CGPath shapes[] = {CGPath(), UIBezierPath::heartPath().cgPath(),
                           UIBezierPath::checkmarkPath().cgPath(),
                           UIBezierPath::peopleBadge().cgPath()};
  for (const CGPath& from : shapes) {
    for (const CGPath& to : shapes) {
      const auto [a, b] = morphable(from, to);
      EXPECT_TRUE(std::ranges::equal(a.verbs(), b.verbs()));
      // The shapes are still themselves: the same box and, with closing edges, the same length.
      for (const auto& [morph, shape] : {std::pair(a, from), std::pair(b, to)}) {
        if (shape.isEmpty()) continue;
        EXPECT_NEAR(pathLength(morph), pathLength(shape), pathLength(shape) * 1e-2);
      }
    }
  }
  CGPath broken = shapes[1];
  broken.addLineToPoint({std::numeric_limits<CGFloat>::quiet_NaN(), 0});
  const auto [a, b] = morphable(broken, shapes[2]);
  EXPECT_TRUE(a.isFinite() && b.isFinite());
}

TEST(PathMorph, HolesStayHoles) {
  CGPath ring;
  ring.addRect({0, 0, 20, 20});
  CGPath hole;
  hole.addRect({5, 5, 10, 10});
  ring.addPath(hole.reversed());
  CGPath disc;
  disc.addEllipseInRect({40, 40, 20, 20});
  // The hole has no partner in the disc and closes on its own middle.
  const auto [a, b] = morphable(ring, disc);
  const std::size_t hole0 = a.points().size() - 1;
  EXPECT_EQ(a.boundingBox(), CGRect(0, 0, 20, 20));
  EXPECT_NEAR(b.points()[hole0].x, 10, 0.2);
  EXPECT_NEAR(b.points()[hole0].y, 10, 0.2);
  EXPECT_EQ(b.points()[hole0], b.points()[hole0 - 1]);
}

}  // namespace
}  // namespace glyphwright::cli
