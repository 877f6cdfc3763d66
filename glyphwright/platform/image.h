#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include <glyphwright/platform/borrowed.h>
#include <glyphwright/platform/color.h>
#include <glyphwright/platform/pixel_buffer.h>

namespace glyphwright {

class NSShadow;
class CGContext;
namespace VantelKit {
struct Border;
}
namespace contexts {
struct ImageMemory;
}

/// How an image is put over what is there: normal lays it on top by its alpha.
enum class CGBlendMode : std::uint8_t { normal };

/// Immutable pixels: rows top to bottom, four bytes a pixel, premultiplied red, green, blue, alpha,
/// without padding. Shared by every copy.
class CGImage {
 public:
  CGImage() = default;
  /// Shares `rgba`, which must hold width × height × 4 bytes and not change any more: nothing
  /// checks it. Null only with 0 × 0.
  CGImage(std::size_t pixelWidth, std::size_t pixelHeight,
          std::shared_ptr<const std::uint8_t[]> rgba)
      : pixels_(std::move(rgba)), width_(pixelWidth), height_(pixelHeight) {}
  /// Pixels copied from `rgba`, which must hold width × height × 4 bytes; otherwise no pixels.
  CGImage(std::size_t pixelWidth, std::size_t pixelHeight, std::span<const std::uint8_t> rgba);

  /// 0 when there are no pixels.
  std::size_t pixelWidth() const { return width_; }
  std::size_t pixelHeight() const { return height_; }
  /// The same.
  std::size_t width() const { return width_; }
  std::size_t height() const { return height_; }
  /// pixelWidth × pixelHeight × 4 bytes; empty when there are none.
  std::span<const std::uint8_t> rgba() const { return {pixels_.get(), width_ * height_ * 4}; }
  /// Whether there are pixels.
  explicit operator bool() const { return pixels_ != nullptr; }

  /// Copies the pixels into the caller's memory, in its format. False, and nothing written, unless
  /// the buffer is usable and has as many pixels a row and as many rows.
  bool copyPixels(const PixelBuffer& to) const;
  /// The pixels in another format, without padding; empty when there are none.
  std::vector<std::uint8_t> pixels(PixelFormat format) const;

 private:
  friend struct contexts::ImageMemory;

  std::shared_ptr<const std::uint8_t[]> pixels_;
  std::size_t width_ = 0;
  std::size_t height_ = 0;
  bool isDrawn_ = false;  // by a context, whose memory it is
};

/// An image: pixels with a size in points and a scale in pixels per point. A value; copies share
/// the pixels. The plain image has size (0, 0), scale 1 and no pixels, and draws as nothing.
class UIImage {
 public:
  UIImage() = default;
  /// Kept as given: size × scale is not compared with the pixels. Unless both products are above 0
  /// the image draws as nothing.
  UIImage(CGImage cgImage, CGFloat scale, CGSize size)
      : image_(std::move(cgImage)), size_(size), scale_(scale) {}

  /// The size that was asked for, in points (not rounded to pixels).
  CGSize size() const { return size_; }
  /// Pixels per point.
  CGFloat scale() const { return scale_; }
  /// Valid as long as the image is; without pixels when the image has none.
  const CGImage& cgImage() const { return image_; }
  /// False for the plain image and where a size could not be drawn.
  bool hasPixels() const { return static_cast<bool>(image_); }

  // Drawing into the current context; without one, nothing happens

  /// `drawAtPoint:` at its own size.
  void drawAtPoint(CGPoint point) const;
  /// `drawInRect:` and `drawInRect:blendMode:alpha:` the whole image scaled to the rectangle.
  /// Alpha above 1 counts as 1, below 0 or NaN as 0.
  void drawInRect(const CGRect& rect, CGBlendMode blendMode = CGBlendMode::normal,
                  CGFloat alpha = 1) const;

  /// `UIImage.render(size:scale:_:)` of the host framework: runs `actions` in a transparent image
  /// context and gives its image, or nothing when the size cannot be drawn. Without a scale, the
  /// main screen's.
  static std::optional<UIImage> render(CGSize size, std::optional<CGFloat> scale,
                                       const std::function<void(CGContext&)>& actions);

  // Icons that the application shows everywhere

  /// A glyph of a size-parametric path.
  enum class Shape : std::uint8_t { checkmark, thickCheckmark, thickX, thinX };

  /// The closed envelope filled with a gradient from its upper left to its lower right corner.
  static UIImage emailIcon(CGSize size, const BorrowedList<UIColor>& gradientColors);
  /// Icons in one colour, fitted to `size` points. A size that cannot be drawn gives no pixels,
  /// here and in the other images.
  static UIImage arrowDownIcon(const UIColor& with, CGSize size);
  static UIImage arrowRightIcon(const UIColor& with, CGSize size);
  static UIImage arrowLeftIcon(const UIColor& with, CGSize size);
  static UIImage onboardingCameraIcon(CGSize size, const UIColor& color);
  static UIImage vinylInputButton(CGSize size, const UIColor& color);
  /// In light grey.
  static UIImage vinylSongIcon(CGSize size);
  /// A dot with a ring; a border width below 1 draws no ring (it is read as a whole number).
  static UIImage matchAlertDot(CGSize size, const UIColor& fillColor, const UIColor& borderColor,
                               CGFloat borderWidth);
  /// `matchAlertDotWithSize:fillColor:borderColor:borderWidth:`
  static UIImage matchAlertDotWithSize(CGSize size, const UIColor& fillColor,
                                       const UIColor& borderColor, CGFloat borderWidth);
  /// The letter mark at 60 % in a white disc, always at scale 1.
  static UIImage vantelUCircleIcon(CGSize size);
  /// The add-photos sign at 5/9 of the size on a round ground: a gradient from the upper right to
  /// the lower left corner, or a flat colour.
  static UIImage addPhotosHomeIcon(CGSize size, const UIColor& iconColor,
                                   const BorrowedList<UIColor>& backgroundGradientColors);
  static UIImage addPhotosHomeIcon(CGSize size, const UIColor& iconColor,
                                   const UIColor& backgroundFillColor);
  /// The camera sign, filled; nothing for a size that cannot be drawn, here and below.
  static std::optional<UIImage> instagramProfileConnectButtonImage(const UIColor& withColor,
                                                                   CGSize size);
  /// `instagramProfileConnectButtonImageWithColor:size:`
  static std::optional<UIImage> instagramProfileConnectButtonImageWithColor(const UIColor& color,
                                                                            CGSize size);
  /// The camera sign in the middle of a ground that fills the image.
  static std::optional<UIImage> instagramPlaceholderImage(const UIColor& withColor,
                                                          const UIColor& backgroundColor,
                                                          CGSize size);
  /// `instagramPlaceholderImageWithColor:backgroundColor:size:`
  static std::optional<UIImage> instagramPlaceholderImageWithColor(const UIColor& color,
                                                                   const UIColor& backgroundColor,
                                                                   CGSize size);
  /// A glyph filled and outlined with the border, with an optional shadow, on a canvas grown by
  /// the border's width and twice the shadow's blur.
  static std::optional<UIImage> shapeIcon(CGSize withSize, Shape shape, const UIColor& fillColor,
                                          const VantelKit::Border& border,
                                          Borrowed<const NSShadow> shadow = {});
  /// A filled and bordered circle with an optional shadow and an optional glyph inside.
  static std::optional<UIImage> circleIcon(CGSize withSize, const UIColor& fillColor,
                                           const VantelKit::Border& border,
                                           Borrowed<const NSShadow> shadow,
                                           std::optional<Shape> shape, CGSize shapeSize,
                                           const UIColor& shapeColor);

 private:
  CGImage image_;
  CGSize size_;
  CGFloat scale_ = 1;
};

}  // namespace glyphwright
