#include <cmath>
#include <memory>
#include <stdexcept>
#include <string>

#include "animated_picture.h"
#include "color_reduction.h"

#ifdef GLYPHWRIGHT_HAS_GIF
#include <gif_lib.h>
#endif

namespace glyphwright::cli {

#ifdef GLYPHWRIGHT_HAS_GIF
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t kLongestSide = 65535;

int appendBytes(GifFileType* gif, const GifByteType* bytes, int count) {
  auto& file = *static_cast<Bytes*>(gif->UserData);
  file.insert(file.end(), bytes, bytes + count);
  return count;
}

struct CloseGif {
  void operator()(GifFileType* gif) const { EGifCloseFile(gif, nullptr); }
};

void require(int status) {
  if (status == GIF_ERROR) throw std::runtime_error("cannot encode GIF");
}

// Says that the frames start over for ever, in the way that every viewer knows.
void putLoop(GifFileType* gif) {
  const std::uint8_t forEver[] = {1, 0, 0};
  require(EGifPutExtensionLeader(gif, APPLICATION_EXT_FUNC_CODE));
  require(EGifPutExtensionBlock(gif, 11, "NETSCAPE2.0"));
  require(EGifPutExtensionBlock(gif, 3, forEver));
  require(EGifPutExtensionTrailer(gif));
}

void putFrame(GifFileType* gif, const AnimatedPicture& picture, const Bytes& pixels,
              int hundredths) {
  IndexedPixels indexed = reducedColors(pixels);
  GraphicsControlBlock control{};
  control.DisposalMode = DISPOSE_BACKGROUND;
  control.DelayTime = hundredths;
  control.TransparentColor = IndexedPixels::kTransparent;
  GifByteType extension[4];
  EGifGCBToExtension(&control, extension);
  require(EGifPutExtension(gif, GRAPHICS_EXT_FUNC_CODE, sizeof extension, extension));

  const auto free = [](ColorMapObject* map) { GifFreeMapObject(map); };
  const std::unique_ptr<ColorMapObject, decltype(free)> map(GifMakeMapObject(256, nullptr), free);
  if (!map) throw std::bad_alloc();
  for (std::size_t i = 0; i < indexed.colors.size(); ++i) {
    map->Colors[i] = {indexed.colors[i].red, indexed.colors[i].green, indexed.colors[i].blue};
  }
  const auto width = static_cast<int>(picture.pixelWidth);
  require(
      EGifPutImageDesc(gif, 0, 0, width, static_cast<int>(picture.pixelHeight), false, map.get()));
  for (std::size_t y = 0; y < picture.pixelHeight; ++y) {
    require(EGifPutLine(gif, indexed.indices.data() + y * picture.pixelWidth, width));
  }
}

}  // namespace

bool canEncodeGif() {
  return true;
}

std::vector<std::uint8_t> encodeGif(const AnimatedPicture& picture) {
  if (picture.pixelWidth > kLongestSide || picture.pixelHeight > kLongestSide) {
    throw std::runtime_error("the image does not fit into a GIF file");
  }
  Bytes file;
  int error = 0;
  std::unique_ptr<GifFileType, CloseGif> gif(EGifOpen(&file, appendBytes, &error));
  if (!gif) throw std::runtime_error("cannot encode GIF");
  EGifSetGifVersion(gif.get(), true);
  require(EGifPutScreenDesc(gif.get(), static_cast<int>(picture.pixelWidth),
                            static_cast<int>(picture.pixelHeight), 8, 0, nullptr));
  putLoop(gif.get());
  // Times are whole hundredths of a second; rounding each end keeps the length of the whole.
  long shown = 0;
  for (std::size_t i = 0; i < picture.frames.size(); ++i) {
    const long end = std::lround(static_cast<double>(i + 1) * 100 / picture.framesPerSecond);
    putFrame(gif.get(), picture, picture.frames[i], static_cast<int>(end - shown));
    shown = end;
  }
  gif.reset();  // writes the end of the file
  return file;
}
#else
bool canEncodeGif() {
  return false;
}

std::vector<std::uint8_t> encodeGif(const AnimatedPicture& /*picture*/) {
  throw std::runtime_error("this build cannot write GIF (giflib was not found)");
}
#endif

}  // namespace glyphwright::cli
