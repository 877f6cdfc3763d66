// Any values through the C interface: a status comes back, never an exception, and nothing is
// touched beyond what was given.

#include <cstring>
#include <vector>

#include <glyphwright/c/glyphwright.h>

#include "input.h"

namespace {

using glyphwright::fuzz::Input;

glyphwright_color color(Input& input) {
  return {input.number(), input.number(), input.number(), input.number()};
}

glyphwright_shadow shadow(Input& input) {
  const glyphwright_color of = color(input);
  const double dx = input.number();
  const double dy = input.number();
  const double blur = input.number();
  // A wide blur is slow under a sanitizer, not wrong.
  return {of, dx, dy, blur < 1e3 ? blur / 8 : blur};
}

// At times of an older, smaller struct; a size beyond the memory that is there is the caller's
// fault.
std::uint32_t structSize(Input& input, std::size_t right) {
  return static_cast<std::uint32_t>(input.byte() < 240 ? right : input.below(right));
}

glyphwright_path* path(Input& input, const glyphwright_message* message) {
  constexpr const char* kNames[] = {"heartPath", "Icons.gear", "App.Shapes.Checks.checkmark", "7"};
  glyphwright_path* made = nullptr;
  switch (input.below(4)) {
    case 0:
      glyphwright_path_named(kNames[input.below(std::size(kNames))], &made, message);
      break;
    case 1:
      glyphwright_path_named(input.text(30).c_str(), &made, message);
      break;
    case 2:
      glyphwright_path_numbered(input.byte() - 60, &made, message);
      break;
    default: {
      std::vector<std::uint8_t> verbs(input.below(12));
      for (std::uint8_t& verb : verbs) verb = static_cast<std::uint8_t>(input.below(6));
      std::vector<glyphwright_point> points(input.below(30));
      for (glyphwright_point& p : points) p = {input.number(), input.number()};
      const glyphwright_elements elements{structSize(input, sizeof(glyphwright_elements)),
                                          verbs.data(), verbs.size(), points.data(), points.size()};
      glyphwright_path_made(&elements, &made, message);
      break;
    }
  }
  return made;
}

glyphwright_attributes attributes(Input& input, std::vector<glyphwright_color>& colors,
                                  std::vector<double>& stops) {
  glyphwright_attributes look{};
  look.struct_size = structSize(input, sizeof look);
  look.parts = input.byte();
  look.width = input.side();
  look.height = input.side();
  look.scale = input.coin() ? 1 : input.number();
  look.fill = color(input);
  look.background = color(input);
  look.stroke_color = color(input);
  look.stroke_width = input.number();
  look.border_color = color(input);
  look.border_width = input.number();
  look.drop_shadow = shadow(input);
  look.inset_shadow = shadow(input);
  colors.resize(input.below(5));
  for (glyphwright_color& c : colors) c = color(input);
  stops.resize(colors.size());
  for (double& stop : stops) stop = input.number();
  look.gradient_colors = colors.data();
  look.gradient_stops = input.coin() ? stops.data() : nullptr;
  look.gradient_count = colors.size();
  look.gradient_start = {input.number(), input.number()};
  look.gradient_end = {input.number(), input.number()};
  return look;
}

void useImage(glyphwright_image* image) {
  glyphwright_buffer buffer{};
  buffer.struct_size = sizeof buffer;
  if (glyphwright_image_buffer(image, &buffer) == GLYPHWRIGHT_OK && buffer.height > 0) {
    std::memset(buffer.pixels, 1, buffer.row_bytes * (buffer.height - 1) + buffer.width * 4);
  }
  glyphwright_image_free(image);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input(data, size);
  char text[40];
  const glyphwright_message message{input.coin() ? text : nullptr, input.below(sizeof text + 1)};
  glyphwright_path* const icon = path(input, &message);
  glyphwright_pen pen{structSize(input, sizeof pen),
                      input.byte() - 100,
                      input.byte() % 5,
                      input.byte() % 5,
                      input.number(),
                      input.number()};
  glyphwright_path_set_pen(icon, &pen);
  glyphwright_path_pen(icon, &pen);

  std::vector<glyphwright_color> colors;
  std::vector<double> stops;
  const glyphwright_attributes look = attributes(input, colors, stops);
  const auto format = static_cast<std::int32_t>(input.below(6));
  std::size_t width = 0;
  std::size_t height = 0;
  // Large pictures are legal, and too slow to draw by the thousand.
  if (glyphwright_pixel_size(look.width, look.height, look.scale, &width, &height) !=
          GLYPHWRIGHT_OK ||
      width * height < 1 << 14) {
    const std::size_t more = input.below(20);
    std::vector<std::uint8_t> pixels(height * (width * 4 + more));
    glyphwright_buffer buffer{
        structSize(input, sizeof buffer), format, pixels.data(), width, height,
        more == 0 ? 0 : width * 4 + more};
    glyphwright_render(icon, &look, &buffer, &message);
    glyphwright_image* image = nullptr;
    if (glyphwright_image_new(icon, &look, format, &image, &message) == GLYPHWRIGHT_OK) {
      useImage(image);
    }
  }
  glyphwright_path_free(icon);

  glyphwright_painting painting{};
  painting.struct_size = sizeof painting;
  if (glyphwright_painting_info(input.below(40), &painting) == GLYPHWRIGHT_OK) {
    glyphwright_painting_options options{structSize(input, sizeof options),
                                         static_cast<std::uint32_t>(input.below(5)),
                                         input.side() / 4,
                                         input.side() / 4,
                                         input.coin() ? 1 : input.number(),
                                         color(input)};
    glyphwright_image* image = nullptr;
    if (options.scale < 4 && options.width * options.height < 1e4 &&
        glyphwright_painting_new(painting.name, &options, format, &image, &message) ==
            GLYPHWRIGHT_OK) {
      useImage(image);
    }
  }
  const char* names[3];
  std::uint8_t guesses[3];
  std::size_t found = 0;
  glyphwright_search(input.text(40).c_str(), input.below(4), names, guesses, &found);
  if (glyphwright_status_text(input.byte()) == nullptr) __builtin_trap();
  return 0;
}
