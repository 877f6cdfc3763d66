#include <memory>

#include <glyphwright/c/boundary.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/rendering/icon_attributes.h>
#include <glyphwright/rendering/standalone_image.h>

using namespace glyphwright;

namespace glyphwright::c {

PixelFormat formatOf(std::int32_t format) {
  static_assert(static_cast<int>(PixelFormat::straightBGRA) == GLYPHWRIGHT_BGRA_STRAIGHT);
  if (format < 0 || format > GLYPHWRIGHT_BGRA_STRAIGHT) refuse("the format is none of the four");
  return static_cast<PixelFormat>(format);
}

PixelBuffer bufferOf(const glyphwright_buffer* buffer, std::size_t width, std::size_t height) {
  const glyphwright_buffer known = read(buffer, "buffer");
  given(known.pixels, "buffer->pixels");
  const PixelBuffer memory{known.pixels, known.width, known.height, known.row_bytes,
                           formatOf(known.format)};
  if (known.width != width || known.height != height) {
    throw Failure{GLYPHWRIGHT_BUFFER_MISMATCH, "the buffer has " + std::to_string(known.width) +
                                                   " x " + std::to_string(known.height) +
                                                   " pixels, the image " + std::to_string(width) +
                                                   " x " + std::to_string(height)};
  }
  if (!memory.isUsable()) refuse("buffer->row_bytes is less than a row of pixels");
  return memory;
}

namespace {

CGFloat scaleOr1(double scale) {
  return scale == 0 ? 1 : scale;
}

UIColor colorOf(const glyphwright_color& color) {
  return {color.red, color.green, color.blue, color.alpha};
}

IconShadow shadowOf(const glyphwright_shadow& shadow) {
  return {colorOf(shadow.color), {shadow.dx, shadow.dy}, shadow.blur};
}

IconGradient gradientOf(const glyphwright_attributes& a) {
  if (a.gradient_count == 0) refuse("attributes->gradient_count is 0: give at least one colour");
  given(a.gradient_colors, "attributes->gradient_colors");
  std::vector<UIColor> colors;
  std::vector<CGFloat> stops;
  for (std::size_t i = 0; i < a.gradient_count; ++i) {
    colors.push_back(colorOf(a.gradient_colors[i]));
    const CGFloat even =
        i == 0 ? 0 : static_cast<CGFloat>(i) / static_cast<CGFloat>(a.gradient_count - 1);
    stops.push_back(a.gradient_stops == nullptr ? even : a.gradient_stops[i]);
  }
  CGPoint start{a.gradient_start.x, a.gradient_start.y};
  CGPoint end{a.gradient_end.x, a.gradient_end.y};
  if (start == end) {
    start = {0.5, 0};
    end = {0.5, 1};
  }
  return {std::move(colors), std::vector<CGPoint>{start, end}, std::move(stops)};
}

IconAttributes attributesOf(const glyphwright_attributes& a) {
  if (a.parts >= 2 * GLYPHWRIGHT_STANDALONE) refuse("attributes->parts has an unknown bit");
  const auto has = [&](std::uint32_t part) { return (a.parts & part) != 0; };
  IconAttributes look{.fillColor = colorOf(a.fill),
                      .backgroundColor = colorOf(a.background),
                      .stroke = IconStroke(UIColor::clearColor(), 0),
                      .size = {a.width, a.height}};
  if (has(GLYPHWRIGHT_STROKE)) look.stroke = IconStroke(colorOf(a.stroke_color), a.stroke_width);
  if (has(GLYPHWRIGHT_BORDER)) look.border = IconBorder(colorOf(a.border_color), a.border_width);
  if (has(GLYPHWRIGHT_DROP_SHADOW)) look.dropShadow = shadowOf(a.drop_shadow);
  if (has(GLYPHWRIGHT_INSET_SHADOW)) look.insetShadow = shadowOf(a.inset_shadow);
  if (has(GLYPHWRIGHT_GRADIENT)) look.gradient = gradientOf(a);
  return look;
}

void draw(const UIBezierPath& path, const glyphwright_attributes& a, const IconAttributes& look,
          CGFloat scale, const PixelBuffer& into) {
  if ((a.parts & GLYPHWRIGHT_STANDALONE) == 0) {
    path.drawImage(look, scale, into);
  } else {
    rendering::standaloneImage(path, look, scale).cgImage().copyPixels(into);
  }
}

PixelSize drawablePixels(CGSize size, CGFloat scale) {
  const PixelSize pixels = scale > 0 ? pixelSize(size, scale) : PixelSize{};
  if (pixels.width == 0) {
    throw Failure{GLYPHWRIGHT_UNDRAWABLE_SIZE, "an image of " + std::to_string(size.width) + " x " +
                                                   std::to_string(size.height) +
                                                   " points at scale " + std::to_string(scale) +
                                                   " cannot be drawn"};
  }
  return pixels;
}

}  // namespace
}  // namespace glyphwright::c

glyphwright_status glyphwright_pixel_size(double width, double height, double scale,
                                          size_t* pixel_width, size_t* pixel_height) {
  return c::guarded(nullptr, [&] {
    c::given(pixel_width, "pixel_width");
    c::given(pixel_height, "pixel_height");
    const PixelSize pixels = c::drawablePixels({width, height}, c::scaleOr1(scale));
    *pixel_width = pixels.width;
    *pixel_height = pixels.height;
  });
}

glyphwright_status glyphwright_render(const glyphwright_path* path,
                                      const glyphwright_attributes* attributes,
                                      const glyphwright_buffer* buffer,
                                      const glyphwright_message* message) {
  return c::guarded(message, [&] {
    const glyphwright_attributes known = c::read(attributes, "attributes");
    const IconAttributes look = c::attributesOf(known);
    const CGFloat scale = c::scaleOr1(known.scale);
    const PixelSize pixels = c::drawablePixels(look.size, scale);
    const PixelBuffer into = c::bufferOf(buffer, pixels.width, pixels.height);
    c::draw(c::given(path, "path").path, known, look, scale, into);
  });
}

glyphwright_status glyphwright_image_new(const glyphwright_path* path,
                                         const glyphwright_attributes* attributes, int32_t format,
                                         glyphwright_image** image,
                                         const glyphwright_message* message) {
  return c::guarded(message, [&] {
    const glyphwright_attributes known = c::read(attributes, "attributes");
    const IconAttributes look = c::attributesOf(known);
    const CGFloat scale = c::scaleOr1(known.scale);
    const PixelSize pixels = c::drawablePixels(look.size, scale);
    c::given(image, "image");
    auto made = std::make_unique<glyphwright_image>();
    *made = {std::vector<std::uint8_t>(pixels.width * pixels.height * 4), pixels.width,
             pixels.height, c::formatOf(format)};
    c::draw(c::given(path, "path").path, known, look, scale,
            {made->pixels.data(), made->width, made->height, 0, made->format});
    *image = made.release();
  });
}

glyphwright_status glyphwright_image_buffer(glyphwright_image* image, glyphwright_buffer* buffer) {
  return c::guarded(nullptr, [&] {
    glyphwright_image& drawn = c::given(image, "image");
    c::give(buffer, "buffer",
            {0, static_cast<std::int32_t>(drawn.format), drawn.pixels.data(), drawn.width,
             drawn.height, drawn.width * 4});
  });
}

void glyphwright_image_free(glyphwright_image* image) {
  delete image;
}
