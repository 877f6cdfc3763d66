#include <glyphwright/c/glyphwright.h>

int main(void) {
  glyphwright_path* path = 0;
  glyphwright_attributes look = {.struct_size = sizeof look, .width = 24, .height = 24};
  static uint8_t pixels[24 * 24 * 4];
  const glyphwright_buffer buffer = {
      .struct_size = sizeof buffer, .pixels = pixels, .width = 24, .height = 24};
  look.fill.alpha = 1;
  if (glyphwright_path_named("heartPath", &path, 0) != GLYPHWRIGHT_OK) return 1;
  if (glyphwright_render(path, &look, &buffer, 0) != GLYPHWRIGHT_OK) return 2;
  glyphwright_path_free(path);
  return pixels[(12 * 24 + 12) * 4 + 3] == 255 ? 0 : 3;
}
