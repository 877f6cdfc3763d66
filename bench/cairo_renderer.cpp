#include <cairo.h>

#include <optional>

#include "blur.h"
#include "renderer.h"

namespace glyphwright::bench {

namespace {

/// A Cairo object that its owner drops.
template <typename T, void (*drop)(T*)>
class Owned {
 public:
  explicit Owned(T* object) : object_(object) {}
  Owned(const Owned&) = delete;
  Owned& operator=(const Owned&) = delete;
  ~Owned() { drop(object_); }
  operator T*() const { return object_; }

 private:
  T* object_;
};
using Surface = Owned<cairo_surface_t, cairo_surface_destroy>;
using Context = Owned<cairo_t, cairo_destroy>;
using Pattern = Owned<cairo_pattern_t, cairo_pattern_destroy>;

void trace(cairo_t* context, const CGPath& path) {
  cairo_new_path(context);
  const CGPoint* p = path.points().data();
  for (const PathVerb verb : path.verbs()) {
    switch (verb) {
      case PathVerb::move:
        cairo_move_to(context, p[0].x, p[0].y);
        break;
      case PathVerb::line:
        cairo_line_to(context, p[0].x, p[0].y);
        break;
      case PathVerb::quad:  // no icon has one
        break;
      case PathVerb::cubic:
        cairo_curve_to(context, p[0].x, p[0].y, p[1].x, p[1].y, p[2].x, p[2].y);
        break;
      case PathVerb::close:
        cairo_close_path(context);
        break;
    }
    p += pointCount(verb);
  }
}

/// The path at its place under the identity, so that line widths are pixels.
void traceFitted(cairo_t* context, const Icon& icon, Operation operation, std::size_t side) {
  const CGAffineTransform t = fitting(icon.path, operation, side);
  const cairo_matrix_t matrix = {t.a, t.b, t.c, t.d, t.tx, t.ty};
  cairo_save(context);
  cairo_transform(context, &matrix);
  trace(context, icon.path);
  cairo_restore(context);
}

class Cairo final : public Renderer {
 public:
  explicit Cairo(Memory memory) : memory_(memory) {}
  std::string_view name() const override { return "cairo"; }

  void paint(const Icon& icon, Operation operation, std::size_t side, Pixels* copy) const override {
    const int pixels = static_cast<int>(side);
    const Surface surface(surfaceOf(pixels));
    const Context context(cairo_create(surface));
    cairo_set_fill_rule(context, CAIRO_FILL_RULE_EVEN_ODD);
    if (operation == Operation::dropShadow) {
      shadow(context, icon, operation, side, kShadowOffsetY);
    }
    traceFitted(context, icon, operation, side);
    if (cairo_pattern_t* gradient = gradientOf(operation, pixels)) {
      const Pattern pattern(gradient);
      double offset = 0;
      for (const auto& [red, green, blue] : kStops) {
        cairo_pattern_add_color_stop_rgb(pattern, offset, red, green, blue);
        offset += 0.5;
      }
      cairo_set_source(context, pattern);
    } else {
      cairo_set_source_rgb(context, 0.1, 0.4, 0.9);
    }
    cairo_fill_preserve(context);
    if (operation == Operation::hairline || operation == Operation::stroke) {
      const bool thin = operation == Operation::hairline;
      cairo_set_line_width(context, thin ? 1 : kStrokeWidth);
      cairo_set_source_rgb(context, thin ? 0 : 0.05, thin ? 0 : 0.1, thin ? 0 : 0.3);
      cairo_stroke(context);
    }
    if (operation == Operation::insetShadow) {
      cairo_clip(context);
      shadow(context, icon, operation, side, kShadowOffsetY);
    }
    if (copy != nullptr) {
      cairo_surface_flush(surface);
      const unsigned char* data = cairo_image_surface_get_data(surface);
      copy->bytes.assign(data, data + side * side * 4);
    }
  }

 private:
  // Null where there is none.
  static cairo_pattern_t* gradientOf(Operation operation, double side) {
    switch (operation) {
      case Operation::gradient:
        return cairo_pattern_create_linear(0, 0, 0, side);
      case Operation::slanted:
        return cairo_pattern_create_linear(0, 0, side, side);
      case Operation::radial:
      case Operation::conic:
        return cairo_pattern_create_radial(side / 2, side / 2, 0, side / 2, side / 2, side / 2);
      default:
        return nullptr;
    }
  }

  cairo_surface_t* surfaceOf(int pixels) const {
    if (memory_ == Memory::fresh) {
      return cairo_image_surface_create(CAIRO_FORMAT_ARGB32, pixels, pixels);
    }
    if (!kept_ || cairo_image_surface_get_width(*kept_) != pixels) {
      kept_.emplace(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, pixels, pixels));
    } else {
      const Context clearing(cairo_create(*kept_));
      cairo_set_operator(clearing, CAIRO_OPERATOR_CLEAR);
      cairo_paint(clearing);
    }
    return cairo_surface_reference(*kept_);
  }

  Memory memory_;
  mutable std::optional<Surface> kept_;

  /// The blurred mask of the shape, or of all that is not the shape, laid down in half black.
  static void shadow(cairo_t* context, const Icon& icon, Operation operation, std::size_t side,
                     double offsetY) {
    const int pixels = static_cast<int>(side);
    const Surface mask(cairo_image_surface_create(CAIRO_FORMAT_A8, pixels, pixels));
    {
      const Context drawing(cairo_create(mask));
      cairo_set_fill_rule(drawing, CAIRO_FILL_RULE_EVEN_ODD);
      traceFitted(drawing, icon, operation, side);
      if (operation == Operation::insetShadow) cairo_rectangle(drawing, 0, 0, pixels, pixels);
      cairo_fill(drawing);
    }
    cairo_surface_flush(mask);
    blur(cairo_image_surface_get_data(mask), side, side,
         static_cast<std::size_t>(cairo_image_surface_get_stride(mask)), kBlur / 2);
    cairo_surface_mark_dirty(mask);
    cairo_set_source_rgba(context, 0, 0, 0, 0.5);
    cairo_mask_surface(context, mask, 0, offsetY);
  }
};

}  // namespace

std::unique_ptr<Renderer> makeCairo(Memory memory) {
  return std::make_unique<Cairo>(memory);
}

}  // namespace glyphwright::bench
