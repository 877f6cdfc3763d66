#include <glyphwright/c/glyphwright.h>
#include <stdio.h>
#include <stdlib.h>

/* Says what was wrong and ends the program. */
static void check(glyphwright_status status, const char* text) {
  if (status == GLYPHWRIGHT_OK) return;
  fprintf(stderr, "%s: %s\n", glyphwright_status_text(status), text);
  exit(1);
}

int main(int argc, char** argv) {
  char text[200] = "";
  const glyphwright_message message = {text, sizeof text};
  glyphwright_path* path = NULL;
  glyphwright_image* image = NULL;
  glyphwright_buffer pixels = {.struct_size = sizeof pixels};
  glyphwright_attributes look = {.struct_size = sizeof look,
                                 .parts = GLYPHWRIGHT_DROP_SHADOW,
                                 .width = 48,
                                 .height = 48,
                                 .scale = 2,
                                 .fill = {0.9, 0.6, 0.1, 1},
                                 .background = {1, 1, 1, 1},
                                 .drop_shadow = {{0, 0, 0, 0.4}, 0, 1, 3}};
  check(glyphwright_path_named(argc > 1 ? argv[1] : "Icons.star", &path, &message), text);
  check(glyphwright_image_new(path, &look, GLYPHWRIGHT_RGBA_STRAIGHT, &image, &message), text);
  check(glyphwright_image_buffer(image, &pixels), "");

  /* A picture that many programs read: PPM, three bytes a pixel. */
  FILE* file = fopen("from_c.ppm", "wb");
  if (file == NULL) return 1;
  fprintf(file, "P6 %zu %zu 255\n", pixels.width, pixels.height);
  for (size_t i = 0; i < pixels.width * pixels.height; ++i)
    fwrite(pixels.pixels + i * 4, 3, 1, file);
  if (fclose(file) != 0) return 1;
  glyphwright_image_free(image);
  glyphwright_path_free(path);
  return 0;
}
