#include <agg_alpha_mask_u8.h>
#include <agg_conv_curve.h>
#include <agg_conv_stroke.h>
#include <agg_conv_transform.h>
#include <agg_gradient_lut.h>
#include <agg_path_storage.h>
#include <agg_pixfmt_gray.h>
#include <agg_pixfmt_rgba.h>
#include <agg_rasterizer_scanline_aa.h>
#include <agg_renderer_base.h>
#include <agg_renderer_scanline.h>
#include <agg_rendering_buffer.h>
#include <agg_scanline_u.h>
#include <agg_span_allocator.h>
#include <agg_span_gradient.h>
#include <agg_span_interpolator_linear.h>

#include <array>
#include <cstring>

#include "blur.h"
#include "renderer.h"

namespace glyphwright::bench {

namespace {

using PixelFormat = agg::pixfmt_rgba32_pre;
using Base = agg::renderer_base<PixelFormat>;
using Rasterizer = agg::rasterizer_scanline_aa<>;
using GrayFormat = agg::pixfmt_gray8;
using GrayBase = agg::renderer_base<GrayFormat>;

agg::path_storage storageOf(const CGPath& path) {
  agg::path_storage storage;
  const CGPoint* p = path.points().data();
  for (const PathVerb verb : path.verbs()) {
    switch (verb) {
      case PathVerb::move:
        storage.move_to(p[0].x, p[0].y);
        break;
      case PathVerb::line:
        storage.line_to(p[0].x, p[0].y);
        break;
      case PathVerb::quad:  // no icon has one
        break;
      case PathVerb::cubic:
        storage.curve4(p[0].x, p[0].y, p[1].x, p[1].y, p[2].x, p[2].y);
        break;
      case PathVerb::close:
        storage.close_polygon();
        break;
    }
    p += pointCount(verb);
  }
  return storage;
}

/// A coverage mask of one byte a pixel.
class Mask {
 public:
  explicit Mask(std::size_t side)
      : side_(side),
        bytes_(side * side),
        buffer_(bytes_.data(), static_cast<unsigned>(side), static_cast<unsigned>(side),
                static_cast<int>(side)) {}

  void draw(Rasterizer& rasterizer) {
    GrayFormat format(buffer_);
    GrayBase base(format);
    agg::scanline_u8 scanline;
    agg::render_scanlines_aa_solid(rasterizer, scanline, base, agg::gray8(255, 255));
  }
  void invert() {
    for (std::uint8_t& byte : bytes_) byte = static_cast<std::uint8_t>(255 - byte);
  }
  void soften() { blur(bytes_.data(), side_, side_, side_, kBlur / 2); }
  /// The rows in which `color` is laid down, moved down by `offset`.
  void compose(PixelFormat& target, int offset, const agg::rgba8& color) const {
    for (std::size_t y = static_cast<std::size_t>(offset); y < side_; ++y) {
      const std::uint8_t* covers = bytes_.data() + (y - static_cast<std::size_t>(offset)) * side_;
      target.blend_solid_hspan(0, static_cast<int>(y), static_cast<unsigned>(side_), color, covers);
    }
  }
  /// Keeps of each pixel the share that `other` covers.
  void cut(const Mask& other) {
    for (std::size_t i = 0; i < bytes_.size(); ++i) {
      bytes_[i] = static_cast<std::uint8_t>((bytes_[i] * other.bytes_[i] + 127) / 255);
    }
  }
  void moveDown(std::size_t rows) {
    rows = std::min(rows, side_);
    std::memmove(bytes_.data() + rows * side_, bytes_.data(), (side_ - rows) * side_);
    std::memset(bytes_.data(), 255, rows * side_);
  }

 private:
  std::size_t side_;
  std::vector<std::uint8_t> bytes_;
  agg::rendering_buffer buffer_;
};

agg::rgba8 premultiplied(double red, double green, double blue, double alpha) {
  return agg::rgba8(agg::rgba(red, green, blue, alpha)).premultiply();
}

class Agg final : public Renderer {
 public:
  std::string_view name() const override { return "agg"; }

  void paint(const Icon& icon, Operation operation, std::size_t side, Pixels* copy) const override {
    const auto pixels = static_cast<unsigned>(side);
    std::vector<std::uint8_t> bytes(side * side * 4);
    agg::rendering_buffer buffer(bytes.data(), pixels, pixels, static_cast<int>(side * 4));
    PixelFormat format(buffer);
    Base base(format);

    agg::path_storage storage = storageOf(icon.path);
    const CGAffineTransform t = fitting(icon.path, operation, side);
    agg::trans_affine matrix(t.a, t.b, t.c, t.d, t.tx, t.ty);
    agg::conv_transform<agg::path_storage> placed(storage, matrix);
    agg::conv_curve<agg::conv_transform<agg::path_storage>> curve(placed);
    Rasterizer rasterizer;
    rasterizer.filling_rule(agg::fill_even_odd);
    rasterizer.add_path(curve);

    agg::scanline_u8 scanline;
    if (operation == Operation::dropShadow) {
      Mask mask(side);
      mask.draw(rasterizer);
      mask.soften();
      mask.compose(format, static_cast<int>(kShadowOffsetY), premultiplied(0, 0, 0, 0.5));
    }
    const auto length = static_cast<double>(side);
    agg::trans_affine toGradient;
    switch (operation) {
      case Operation::gradient:
        fillWithGradient<agg::gradient_y>(rasterizer, base, toGradient, length);
        break;
      case Operation::slanted:
        toGradient = {0.5, 0.5, -0.5, 0.5, 0, 0};
        fillWithGradient<agg::gradient_y>(rasterizer, base, toGradient, length);
        break;
      case Operation::radial:
      case Operation::conic:
        toGradient.translate(-length / 2, -length / 2);
        fillWithGradient<agg::gradient_circle>(rasterizer, base, toGradient, length / 2);
        break;
      default:
        agg::render_scanlines_aa_solid(rasterizer, scanline, base, premultiplied(0.1, 0.4, 0.9, 1));
    }
    if (operation == Operation::hairline || operation == Operation::stroke) {
      const bool thin = operation == Operation::hairline;
      agg::conv_stroke<decltype(curve)> stroke(curve);
      stroke.width(thin ? 1 : kStrokeWidth);
      stroke.miter_limit(10);
      Rasterizer outline;
      outline.add_path(stroke);
      agg::render_scanlines_aa_solid(
          outline, scanline, base,
          thin ? premultiplied(0, 0, 0, 1) : premultiplied(0.05, 0.1, 0.3, 1));
    }
    if (operation == Operation::insetShadow) {
      Mask shape(side);
      shape.draw(rasterizer);
      Mask shadow(side);
      shadow.draw(rasterizer);
      shadow.invert();
      shadow.soften();
      shadow.moveDown(static_cast<std::size_t>(kShadowOffsetY));
      shadow.cut(shape);
      shadow.compose(format, 0, premultiplied(0, 0, 0, 0.5));
    }
    if (copy != nullptr) copy->bytes = std::move(bytes);
  }

 private:
  template <typename Along>
  static void fillWithGradient(Rasterizer& rasterizer, Base& base, agg::trans_affine& toGradient,
                               double length) {
    using Interpolator = agg::span_interpolator_linear<>;
    using Colors = agg::gradient_lut<agg::color_interpolator<agg::rgba8>, 256>;
    Colors colors;
    double offset = 0;
    for (const auto& [red, green, blue] : kStops) {
      colors.add_color(offset, premultiplied(red, green, blue, 1));
      offset += 0.5;
    }
    colors.build_lut();
    Interpolator interpolator(toGradient);
    Along along;
    agg::span_gradient<agg::rgba8, Interpolator, Along, Colors> gradient(interpolator, along,
                                                                         colors, 0, length);
    agg::span_allocator<agg::rgba8> allocator;
    agg::scanline_u8 scanline;
    agg::render_scanlines_aa(rasterizer, scanline, base, allocator, gradient);
  }
};

}  // namespace

std::unique_ptr<Renderer> makeAgg() {
  return std::make_unique<Agg>();
}

}  // namespace glyphwright::bench
