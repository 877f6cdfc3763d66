/* The rest of the interface for C: own paths, the catalogue, ready-made images, own memory. */

#include <glyphwright/c/glyphwright.h>
#include <stdio.h>
#include <string.h>

enum { WIDTH = 144, HEIGHT = 48 };

static unsigned char picture[HEIGHT][WIDTH][4];

/* One square of the picture. */
static glyphwright_buffer part(size_t index) {
  const glyphwright_buffer buffer = {.struct_size = sizeof buffer,
                                     .format = GLYPHWRIGHT_RGBA_STRAIGHT,
                                     .pixels = picture[0][index * HEIGHT],
                                     .width = HEIGHT,
                                     .height = HEIGHT,
                                     .row_bytes = sizeof picture[0]};
  return buffer;
}

int main(void) {
  /* A path of the program's own, stroked with its own pen. */
  const glyphwright_color violet = {0.4, 0.2, 0.7, 1};
  const glyphwright_shadow glow = {violet, 0, 1, 3};
  const uint8_t verbs[] = {GLYPHWRIGHT_MOVE, GLYPHWRIGHT_LINE, GLYPHWRIGHT_LINE};
  const glyphwright_point points[] = {{0, 0}, {10, 8}, {20, 0}};
  const glyphwright_elements elements = {.struct_size = sizeof elements,
                                         .verbs = verbs,
                                         .verb_count = 3,
                                         .points = points,
                                         .point_count = 3};
  const glyphwright_pen pen = {.struct_size = sizeof pen,
                               .cap = GLYPHWRIGHT_CAP_ROUND,
                               .join = GLYPHWRIGHT_JOIN_ROUND,
                               .line_width = 3,
                               .miter_limit = 10};
  glyphwright_attributes look = {.struct_size = sizeof look,
                                 .parts = GLYPHWRIGHT_STROKE | GLYPHWRIGHT_DROP_SHADOW,
                                 .width = HEIGHT,
                                 .height = HEIGHT,
                                 .stroke_color = violet,
                                 .stroke_width = 3,
                                 .background = {1, 1, 1, 1},
                                 .drop_shadow = glow};
  glyphwright_path* chevron = NULL;
  glyphwright_rect bounds;
  glyphwright_buffer into = part(0);
  if (glyphwright_path_made(&elements, &chevron, NULL) != GLYPHWRIGHT_OK) return 1;
  if (glyphwright_path_set_pen(chevron, &pen) != GLYPHWRIGHT_OK) return 1;
  if (glyphwright_path_bounds(chevron, &bounds) != GLYPHWRIGHT_OK || bounds.width != 20) return 1;
  if (glyphwright_render(chevron, &look, &into, NULL) != GLYPHWRIGHT_OK) return 1;
  glyphwright_path_free(chevron);

  /* The first icon of the catalogue's first section. */
  glyphwright_icon icon = {.struct_size = sizeof icon};
  glyphwright_path* path = NULL;
  into = part(1);
  look.parts = 0;
  look.fill = violet;
  if (glyphwright_case_info(0, 0, 0, &icon) != GLYPHWRIGHT_OK || !icon.has_drawing) return 1;
  if (glyphwright_path_named(icon.method, &path, NULL) != GLYPHWRIGHT_OK) return 1;
  if (glyphwright_render(path, &look, &into, NULL) != GLYPHWRIGHT_OK) return 1;
  glyphwright_path_free(path);

  /* The ready-made image that words find; what it takes and its own size are told by its index. */
  const char* name = NULL;
  size_t count = 0;
  glyphwright_painting painting = {.struct_size = sizeof painting};
  if (glyphwright_search("copy notification", 1, &name, NULL, &count) != GLYPHWRIGHT_OK) return 1;
  if (count == 0) return 1;
  for (size_t i = 0; painting.name == NULL || strcmp(painting.name, name) != 0; ++i)
    if (glyphwright_painting_info(i, &painting) != GLYPHWRIGHT_OK) return 1;
  const glyphwright_painting_options options = {.struct_size = sizeof options,
                                                .width = painting.width,
                                                .height = painting.height,
                                                .scale = HEIGHT / painting.width};
  into = part(2);
  if (glyphwright_painting_render(name, &options, &into, NULL) != GLYPHWRIGHT_OK) return 1;

  FILE* file = fopen("more_c.ppm", "wb");
  if (file == NULL) return 1;
  fprintf(file, "P6 %d %d 255\n", WIDTH, HEIGHT);
  for (size_t i = 0; i < (size_t)WIDTH * HEIGHT; ++i) {
    unsigned char* const pixel = (unsigned char*)picture + i * 4;
    if (pixel[3] == 0) memset(pixel, 255, 4); /* a clear ground becomes white */
    fwrite(pixel, 3, 1, file);
  }
  return fclose(file) == 0 ? 0 : 1;
}
