// Pictures in the caller's memory, in other formats, and in the memory of earlier pictures.

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/glyphwright.h>

namespace glyphwright {
namespace {

/// Rows each of which ends where memory that may not be touched begins.
class GuardedRows {
 public:
  GuardedRows(std::size_t width, std::size_t height, PixelFormat format)
      : page_(static_cast<std::size_t>(sysconf(_SC_PAGESIZE))), bytes_(2 * page_ * height) {
    memory_ = static_cast<std::uint8_t*>(
        mmap(nullptr, bytes_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    std::fill_n(memory_, bytes_, kPoison);
    for (std::size_t y = 0; y < height; ++y) {
      mprotect(memory_ + (2 * y + 1) * page_, page_, PROT_NONE);
    }
    buffer_ = {memory_ + page_ - width * 4, width, height, 2 * page_, format};
  }
  ~GuardedRows() { munmap(memory_, bytes_); }
  GuardedRows(const GuardedRows&) = delete;
  GuardedRows& operator=(const GuardedRows&) = delete;

  const PixelBuffer& buffer() const { return buffer_; }
  std::vector<std::uint8_t> pixels() const {
    std::vector<std::uint8_t> all;
    for (std::size_t y = 0; y < buffer_.height; ++y) {
      const std::uint8_t* row = buffer_.pixels + y * buffer_.stride();
      all.insert(all.end(), row, row + buffer_.width * 4);
    }
    return all;
  }
  bool isLeftSideUntouched() const {
    for (std::size_t y = 0; y < buffer_.height; ++y) {
      const std::uint8_t* page = memory_ + 2 * y * page_;
      if (std::any_of(page, page + page_ - buffer_.width * 4,
                      [](std::uint8_t byte) { return byte != kPoison; })) {
        return false;
      }
    }
    return true;
  }

 private:
  static constexpr std::uint8_t kPoison = 0xA5;
  std::size_t page_;
  std::size_t bytes_;
  std::uint8_t* memory_;
  PixelBuffer buffer_;
};

std::vector<std::uint8_t> converted(std::span<const std::uint8_t> rgba, PixelFormat format) {
  std::vector<std::uint8_t> all(rgba.begin(), rgba.end());
  const bool isStraight =
      format == PixelFormat::straightRGBA || format == PixelFormat::straightBGRA;
  for (std::size_t i = 0; i < all.size(); i += 4) {
    for (std::size_t c = i; isStraight && all[i + 3] > 0 && c < i + 3; ++c) {
      const int nearest = static_cast<int>(all[c] * 255.0 / all[i + 3] + 0.5);
      all[c] = static_cast<std::uint8_t>(std::min(nearest, 255));
    }
    if (format == PixelFormat::premultipliedBGRA || format == PixelFormat::straightBGRA) {
      std::swap(all[i], all[i + 2]);
    }
  }
  return all;
}

constexpr PixelFormat formats[] = {PixelFormat::premultipliedRGBA, PixelFormat::premultipliedBGRA,
                                   PixelFormat::straightRGBA, PixelFormat::straightBGRA};

std::vector<IconAttributes> looks() {
  const IconAttributes flat{.fillColor = UIColor(0.9, 0.4, 0.1, 0.7),
                            .backgroundColor = UIColor::clearColor(),
                            .stroke = IconStroke(UIColor::clearColor(), 0),
                            .size = {}};
  std::vector<IconAttributes> all(6, flat);
  all[1].backgroundColor = UIColor(0.1, 0.2, 0.9, 0.5);
  all[2].stroke = IconStroke(UIColor(0, 0.5, 0, 1), 1.5);
  all[3].dropShadow = IconShadow(UIColor(0, 0, 0.3, 0.6), {1, 2}, 3);
  all[4].gradient = IconGradient({UIColor(1, 0, 0, 1), UIColor(0, 0.2, 1, 0.3)}, {},
                                 IconGradient::Direction::topLeftToBottomRight);
  all[4].insetShadow = IconShadow(UIColor(0, 0, 0, 0.6), {1, 1}, 2);
  all[5].border = IconBorder(UIColor(0.2, 0.8, 0.4, 1), 2);
  return all;
}

TEST(PixelBuffer, HoldsThePixelsOfTheImageAndNothingElse) {
  const UIBezierPath paths[] = {UIBezierPath::heartPath(), UIBezierPath::facebookLogo(),
                                UIBezierPath::checkmarkPath()};
  std::size_t turn = 0;
  for (IconAttributes look : looks()) {
    for (const UIBezierPath& path : paths) {
      // Sizes that leave every rest in blocks of 8 and 16 pixels.
      for (int side = 3; side < 40; side += 3, ++turn) {
        look.size = {static_cast<CGFloat>(side), static_cast<CGFloat>(side + 1)};
        const UIImage image = path.makeImage(look);
        const CGImage& expected = image.cgImage();
        const PixelFormat format = formats[turn % 4];
        const GuardedRows drawn(expected.pixelWidth(), expected.pixelHeight(), format);
        ASSERT_TRUE(path.drawImage(look, 0, drawn.buffer()));
        const std::vector<std::uint8_t> wanted = converted(expected.rgba(), format);
        ASSERT_EQ(drawn.pixels(), wanted) << side << " format " << turn % 4;
        EXPECT_TRUE(drawn.isLeftSideUntouched());
        const GuardedRows copied(expected.pixelWidth(), expected.pixelHeight(), format);
        ASSERT_TRUE(expected.copyPixels(copied.buffer()));
        EXPECT_EQ(copied.pixels(), wanted);
        EXPECT_EQ(expected.pixels(format), wanted);
      }
    }
  }
}

TEST(PixelBuffer, DividesEveryColourByEveryAlpha) {
  std::vector<std::uint8_t> all;
  for (int i = 0; i < 256 * 256; ++i) {
    const auto alpha = static_cast<std::uint8_t>(i / 256);
    const auto color = static_cast<std::uint8_t>(alpha == 0 ? 0 : i);
    all.insert(all.end(), {color, static_cast<std::uint8_t>(color / 2), 0, alpha});
  }
  const std::vector<std::uint8_t> wanted = converted(all, PixelFormat::straightRGBA);
  convertPixels(all.data(), all.data(), all.size() / 4, PixelFormat::straightRGBA);
  EXPECT_TRUE(all == wanted);
}

TEST(PixelBuffer, TakesWhatARendererDraws) {
  const auto picture = [](const UIGraphicsImageRendererContext& context) {
    CGContextBeginTransparencyLayer(context.cgContext());
    UIColor(1, 0, 0.5, 1).setFill();
    UIBezierPath::heartPath().fill();
    CGContextEndTransparencyLayer(context.cgContext());
    // A snapshot in between is a copy that later drawing leaves alone.
    ChatIcons::PinChat::pinChatStarParticleIcon().drawInRect({5, 5, 20, 13});
    UIBezierPath::bezierPathWithOvalInRect({20.5, 3, 12, 31}).fill();
  };
  UIGraphicsImageRendererFormat format;
  format.scale = 1.5;
  const UIGraphicsImageRenderer renderer({33, 21}, format);
  const UIImage image = renderer.image(picture);
  const GuardedRows rows(50, 32, PixelFormat::straightBGRA);
  ASSERT_TRUE(renderer.draw(rows.buffer(), picture));
  EXPECT_EQ(rows.pixels(), converted(image.cgImage().rgba(), PixelFormat::straightBGRA));
}

TEST(PixelBuffer, RefusesMemoryOfAnotherShape) {
  std::vector<std::uint8_t> memory(24 * 24 * 4, 7);
  const PixelBuffer refused[] = {{nullptr, 24, 24},           {memory.data(), 23, 24},
                                 {memory.data(), 24, 23},     {memory.data(), 24, 0},
                                 {memory.data(), 24, 24, 95}, {memory.data(), 0, 24, 96},
                                 {memory.data(), 24, 24, 1}};
  IconAttributes look = looks().front();
  look.size = {12, 12};
  for (const PixelBuffer& buffer : refused) {
    EXPECT_FALSE(UIBezierPath::heartPath().drawImage(look, 2, buffer));
    EXPECT_FALSE(UIBezierPath::heartPath().makeImage(look).cgImage().copyPixels(buffer));
  }
  EXPECT_FALSE(CGImage().copyPixels({memory.data(), 24, 24}));
  look.size = {-12, 12};
  EXPECT_FALSE(UIBezierPath::heartPath().drawImage(look, 2, {memory.data(), 24, 24}));
  EXPECT_EQ(std::count(memory.begin(), memory.end(), 7), std::ssize(memory));
}

TEST(ReusedImage, LendsItsMemoryUnlessSomebodyHoldsIt) {
  IconAttributes look = looks().front();
  look.size = {20, 20};
  const UIBezierPath path = UIBezierPath::heartPath();
  const UIImage fresh = path.makeImage(look);
  const auto bytesOf = [](const UIImage& image) {
    return std::vector<std::uint8_t>(image.cgImage().rgba().begin(), image.cgImage().rgba().end());
  };

  UIImage image = UIBezierPath::facebookLogo().makeImage(look);
  const std::uint8_t* memory = image.cgImage().rgba().data();
  image = path.makeImage(look, std::move(image));
  EXPECT_EQ(image.cgImage().rgba().data(), memory);
  EXPECT_EQ(bytesOf(image), bytesOf(fresh));

  const UIImage held = image;
  image = UIBezierPath::facebookLogo().makeImage(look, std::move(image));
  EXPECT_NE(image.cgImage().rgba().data(), memory);
  EXPECT_EQ(bytesOf(held), bytesOf(fresh));

  // Too small, or of memory that is not the library's to write to.
  look.size = {21, 20};
  EXPECT_EQ(path.makeImage(look, std::move(image)).size(), look.size);
  const auto foreign = std::make_shared<std::uint8_t[]>(42 * 40 * 4);
  EXPECT_NE(
      path.makeImage(look, UIImage(CGImage(42, 40, foreign), 1, {42, 40})).cgImage().rgba().data(),
      foreign.get());
}

}  // namespace
}  // namespace glyphwright
