#include <memory>

#include <glyphwright/c/boundary.h>
#include <glyphwright/catalogue/keywords.h>
#include <glyphwright/catalogue/resolve.h>
#include <glyphwright/platform/screen.h>
#include <glyphwright/presets/ready_made.h>

using namespace glyphwright;

namespace {

using presets::ReadyMadeImage;
using presets::readyMadeImages;

const ReadyMadeImage& imageNamed(std::string_view name) {
  std::vector<std::string_view> names;
  for (const ReadyMadeImage& image : readyMadeImages()) {
    if (image.name == name) return image;
    names.push_back(image.name);
  }
  std::string text = "no ready-made image is called \"" + std::string(name) + '"';
  const std::vector<std::string> nearest = nearestNames(name, names, 1);
  text += nearest.empty() ? "; glyphwright_painting_info() lists them all"
                          : "; did you mean " + nearest.front() + '?';
  throw c::Failure{GLYPHWRIGHT_UNKNOWN_NAME, text};
}

UIImage drawn(const char* name, const glyphwright_painting_options* options) {
  const ReadyMadeImage& image = imageNamed(&c::given(name, "name"));
  glyphwright_painting_options known{};
  if (options != nullptr) known = c::read(options, "options");
  if (known.flags >= 2 * GLYPHWRIGHT_PAINTING_WITH_BACKGROUND) {
    c::refuse("options->flags has an unknown bit");
  }
  presets::ReadyMadeArguments arguments;
  arguments.size = {known.width, known.height};
  if (known.width == 0 && known.height == 0) {
    arguments.size = image.usualSize.value_or(CGSize{});
  }
  arguments.selected = (known.flags & GLYPHWRIGHT_PAINTING_SELECTED) != 0;
  arguments.withBackground = (known.flags & GLYPHWRIGHT_PAINTING_WITH_BACKGROUND) != 0;
  arguments.backgroundColor = UIColor(known.background.red, known.background.green,
                                      known.background.blue, known.background.alpha);
  const CGFloat scale = known.scale == 0 ? 1 : known.scale;
  if (!(scale > 0) || scale > 1e6) {
    throw c::Failure{GLYPHWRIGHT_UNDRAWABLE_SIZE, "options->scale must be above 0"};
  }
  const screen::ScaleInScope inScope(scale);
  UIImage picture = image.draw(arguments);
  if (!picture.hasPixels()) {
    throw c::Failure{GLYPHWRIGHT_UNDRAWABLE_SIZE, "an image of this size cannot be drawn"};
  }
  return picture;
}

const char* keywordsOf(std::string_view name) {
  for (const KeywordRecord& record : iconKeywords) {
    if (record.name == name) return record.keywords.data();
  }
  return "";
}

}  // namespace

size_t glyphwright_painting_count(void) {
  return readyMadeImages().size();
}

glyphwright_status glyphwright_painting_info(size_t index, glyphwright_painting* painting) {
  return c::guarded(nullptr, [&] {
    if (index >= readyMadeImages().size()) c::refuse("there are fewer ready-made images");
    const ReadyMadeImage& image = readyMadeImages()[index];
    const CGSize size = image.usualSize ? *image.usualSize : image.draw({}).size();
    c::give(painting, "painting",
            {0, image.usualSize.has_value(), image.takesFlags, image.takesBackgroundColor,
             image.name.data(), keywordsOf(image.name), size.width, size.height});
  });
}

glyphwright_status glyphwright_painting_new(const char* name,
                                            const glyphwright_painting_options* options,
                                            int32_t format, glyphwright_image** image,
                                            const glyphwright_message* message) {
  return c::guarded(message, [&] {
    c::given(image, "image");
    const UIImage picture = drawn(name, options);
    const CGImage& pixels = picture.cgImage();
    const PixelFormat asked = c::formatOf(format);
    auto made = std::make_unique<glyphwright_image>();
    *made = {pixels.pixels(asked), pixels.pixelWidth(), pixels.pixelHeight(), asked};
    *image = made.release();
  });
}

glyphwright_status glyphwright_painting_render(const char* name,
                                               const glyphwright_painting_options* options,
                                               const glyphwright_buffer* buffer,
                                               const glyphwright_message* message) {
  return c::guarded(message, [&] {
    const UIImage picture = drawn(name, options);
    const CGImage& pixels = picture.cgImage();
    pixels.copyPixels(c::bufferOf(buffer, pixels.pixelWidth(), pixels.pixelHeight()));
  });
}
