/* The interface for C, used from C99 as a program would. Gives what failed first, or null. */

#include <string.h>

#include <glyphwright/c/glyphwright.h>

const char *checkInterfaceFromC(void);

#define CHECK(condition) \
  if (!(condition)) return #condition

static const char *drawInto(const glyphwright_path *path, uint8_t *pixels, char *text) {
  const glyphwright_message message = {text, 80};
  glyphwright_attributes look = {.struct_size = sizeof look, .width = 16, .height = 12, .scale = 2};
  glyphwright_buffer buffer = {.struct_size = sizeof buffer,
                               .format = GLYPHWRIGHT_BGRA_PREMULTIPLIED,
                               .pixels = pixels,
                               .width = 32,
                               .height = 24,
                               .row_bytes = 140};
  look.fill.blue = look.fill.alpha = 1;
  CHECK(glyphwright_render(path, &look, &buffer, &message) == GLYPHWRIGHT_OK);
  CHECK(text[0] == '\0');
  CHECK(pixels[140 * 12 + 16 * 4] == 255 && pixels[140 * 12 + 16 * 4 + 2] == 0);
  CHECK(pixels[128] == 7 && pixels[140 * 23 + 128] == 7);

  buffer.width = 31;
  CHECK(glyphwright_render(path, &look, &buffer, &message) == GLYPHWRIGHT_BUFFER_MISMATCH);
  CHECK(strcmp(text, "the buffer has 31 x 24 pixels, the image 32 x 24") == 0);
  buffer.width = 32;
  buffer.height = 23;
  CHECK(glyphwright_render(path, &look, &buffer, 0) == GLYPHWRIGHT_BUFFER_MISMATCH);
  buffer.height = 24;
  buffer.row_bytes = 127;
  CHECK(glyphwright_render(path, &look, &buffer, 0) == GLYPHWRIGHT_INVALID_ARGUMENT);
  buffer.row_bytes = 0;
  look.parts = 64;
  CHECK(glyphwright_render(path, &look, &buffer, 0) == GLYPHWRIGHT_INVALID_ARGUMENT);
  look.parts = GLYPHWRIGHT_GRADIENT;
  CHECK(glyphwright_render(path, &look, &buffer, 0) == GLYPHWRIGHT_INVALID_ARGUMENT);
  look.parts = 0;
  look.height = -1;
  CHECK(glyphwright_render(path, &look, &buffer, 0) == GLYPHWRIGHT_UNDRAWABLE_SIZE);
  return 0;
}

/* A struct from a program that knows more fields. */
static const char *askForMore(const glyphwright_path *path, uint8_t *pixels) {
  struct {
    glyphwright_attributes known;
    double more;
  } look;
  const glyphwright_buffer buffer = {
      .struct_size = sizeof buffer, .pixels = pixels, .width = 8, .height = 8};
  memset(&look, 0, sizeof look);
  look.known.struct_size = sizeof look;
  look.known.width = look.known.height = 8;
  CHECK(glyphwright_render(path, &look.known, &buffer, 0) == GLYPHWRIGHT_OK);
  look.more = 1;
  CHECK(glyphwright_render(path, &look.known, &buffer, 0) == GLYPHWRIGHT_INVALID_ARGUMENT);
  look.known.struct_size = 8;
  CHECK(glyphwright_render(path, &look.known, &buffer, 0) == GLYPHWRIGHT_INVALID_ARGUMENT);
  return 0;
}

const char *checkInterfaceFromC(void) {
  static const uint8_t verbs[] = {GLYPHWRIGHT_MOVE, GLYPHWRIGHT_LINE, GLYPHWRIGHT_CUBIC,
                                  GLYPHWRIGHT_CLOSE};
  static const glyphwright_point points[] = {{1, 2}, {9, 2}, {9, 4}, {7, 8}, {1, 8}};
  static uint8_t pixels[140 * 24];
  char text[80] = "";
  const glyphwright_message message = {text, sizeof text};
  glyphwright_path *path = 0;
  glyphwright_elements elements = {.struct_size = sizeof elements,
                                   .verbs = verbs,
                                   .verb_count = sizeof verbs,
                                   .points = points,
                                   .point_count = 5};
  glyphwright_pen pen = {.struct_size = sizeof pen};
  glyphwright_rect bounds;
  const char *failed;

  CHECK(glyphwright_path_named("hartPath", &path, &message) == GLYPHWRIGHT_UNKNOWN_NAME);
  CHECK(path == 0 && strstr(text, "did you mean heartPath") != 0);
  CHECK(glyphwright_path_numbered(129, &path, &message) == GLYPHWRIGHT_UNKNOWN_NAME);
  CHECK(glyphwright_path_named(0, &path, 0) == GLYPHWRIGHT_INVALID_ARGUMENT);
  CHECK(glyphwright_path_named("heartPath", 0, 0) == GLYPHWRIGHT_INVALID_ARGUMENT);

  elements.point_count = 4;
  CHECK(glyphwright_path_made(&elements, &path, 0) == GLYPHWRIGHT_INVALID_ARGUMENT);
  elements.point_count = 5;
  elements.verb_count = 2;
  CHECK(glyphwright_path_made(&elements, &path, 0) == GLYPHWRIGHT_INVALID_ARGUMENT);
  elements.verb_count = sizeof verbs;
  CHECK(glyphwright_path_made(&elements, &path, &message) == GLYPHWRIGHT_OK);
  memset(&elements, 0, sizeof elements);
  elements.struct_size = sizeof elements;
  CHECK(glyphwright_path_elements(path, &elements) == GLYPHWRIGHT_OK);
  CHECK(elements.verb_count == 4 && memcmp(elements.verbs, verbs, 4) == 0);
  CHECK(elements.point_count == 5 && memcmp(elements.points, points, sizeof points) == 0);
  CHECK(glyphwright_path_bounds(path, &bounds) == GLYPHWRIGHT_OK);
  CHECK(bounds.x == 1 && bounds.y == 2 && bounds.width == 8 && bounds.height == 6);
  CHECK(glyphwright_path_pen(path, &pen) == GLYPHWRIGHT_OK && pen.line_width == 1);
  pen.join = GLYPHWRIGHT_JOIN_ROUND;
  pen.even_odd = 1;
  CHECK(glyphwright_path_set_pen(path, &pen) == GLYPHWRIGHT_OK);
  pen.join = 3;
  CHECK(glyphwright_path_set_pen(path, &pen) == GLYPHWRIGHT_INVALID_ARGUMENT);
  CHECK(glyphwright_path_pen(path, &pen) == GLYPHWRIGHT_OK);
  CHECK(pen.join == GLYPHWRIGHT_JOIN_ROUND && pen.even_odd == 1);

  memset(pixels, 7, sizeof pixels);
  failed = drawInto(path, pixels, text);
  if (failed == 0) failed = askForMore(path, pixels);
  glyphwright_path_free(path);
  glyphwright_path_free(0);
  glyphwright_image_free(0);
  return failed;
}
