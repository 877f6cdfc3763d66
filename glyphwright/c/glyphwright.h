#ifndef GLYPHWRIGHT_C_GLYPHWRIGHT_H
#define GLYPHWRIGHT_C_GLYPHWRIGHT_H

/* The library for C and for every language that calls C: icons as paths and as pixels.
 *
 * Errors. A function that can fail gives a status; anything but GLYPHWRIGHT_OK leaves the results
 * untouched. glyphwright_status_text() says what a status means. Where the last argument is a
 * message, the function writes there what was wrong with this very call and what to do. No
 * exception leaves the library and no input ends the program.
 *
 * Structs. A struct with `struct_size` is given with that field set to its sizeof; the library may
 * know more fields than the program was compiled with, or fewer. All other fields may be zero, and
 * zero is the plain choice everywhere. What a newer program asks of an older library, by a field
 * that this does not know and that is not zero, is refused.
 *
 * Handles are opaque and belong to the program until it frees them. Text is UTF-8 and ends with a
 * zero byte; text and arrays that the library gives are constant and stay for good, unless it says
 * otherwise.
 *
 * Threads. There is no state between calls: any thread may call anything at any time, as long as no
 * thread changes or frees an object that another one uses.
 *
 * Lengths are points, y grows downwards; pixels are points times the scale. This interface only
 * grows: names, numbers and the meaning of fields stay. */

#include <stddef.h>
#include <stdint.h>

/* Marks what a shared library shows. */
#if defined(__GNUC__) && !defined(_WIN32)
#define GLYPHWRIGHT_C_API __attribute__((visibility("default")))
#else
#define GLYPHWRIGHT_C_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* Errors */

typedef int32_t glyphwright_status;
enum {
  GLYPHWRIGHT_OK = 0,
  /* A null pointer, a wrong struct_size, an unknown flag or number. */
  GLYPHWRIGHT_INVALID_ARGUMENT = 1,
  /* No icon, or no ready-made image, has this name or number. */
  GLYPHWRIGHT_UNKNOWN_NAME = 2,
  /* One of the two names of the catalogue that have no drawing. */
  GLYPHWRIGHT_NO_DRAWING = 3,
  /* A side that is not above 0, or too many pixels. */
  GLYPHWRIGHT_UNDRAWABLE_SIZE = 4,
  /* The buffer's width and height are not those of the image. */
  GLYPHWRIGHT_BUFFER_MISMATCH = 5,
  GLYPHWRIGHT_OUT_OF_MEMORY = 6,
  /* A fault of the library's own. */
  GLYPHWRIGHT_INTERNAL_ERROR = 7
};

/* What a status means, in English; "unknown status" for a number that is none. */
GLYPHWRIGHT_C_API const char* glyphwright_status_text(glyphwright_status status);

/* Where to write why a call failed. `text` has room for `capacity` bytes and is always ended by a
 * zero byte, cut off where it does not fit; it is empty after a success. May be null, as may be
 * `text`. */
typedef struct glyphwright_message {
  char* text;      /* may be null */
  size_t capacity; /* in bytes */
} glyphwright_message;

/* 10000 × major + 100 × minor + patch of the library that runs, which need not be the one that the
 * program was compiled with. */
GLYPHWRIGHT_C_API uint32_t glyphwright_version(void);

/* Memory for programs that have no allocator of their own, such as a page around WebAssembly; null
 * when there is none left. Freeing null does nothing. */
GLYPHWRIGHT_C_API void* glyphwright_memory_new(size_t bytes);
GLYPHWRIGHT_C_API void glyphwright_memory_free(void* memory);

/* Paths */

typedef struct glyphwright_path glyphwright_path;

/* A place. */
typedef struct glyphwright_point {
  double x; /* to the right, in the units of its path */
  double y; /* down */
} glyphwright_point;

/* An upper left corner and a size. */
typedef struct glyphwright_rect {
  double x;      /* of its left side */
  double y;      /* of its upper side */
  double width;  /* never below 0 */
  double height; /* never below 0 */
} glyphwright_rect;

/* What an element does, and the points that it carries. */
enum {
  GLYPHWRIGHT_MOVE = 0,  /* 1: the point */
  GLYPHWRIGHT_LINE = 1,  /* 1: the end */
  GLYPHWRIGHT_QUAD = 2,  /* 2: control, end */
  GLYPHWRIGHT_CUBIC = 3, /* 3: control 1, control 2, end */
  GLYPHWRIGHT_CLOSE = 4  /* none */
};

enum { GLYPHWRIGHT_CAP_BUTT = 0, GLYPHWRIGHT_CAP_ROUND = 1, GLYPHWRIGHT_CAP_SQUARE = 2 };
enum { GLYPHWRIGHT_JOIN_MITER = 0, GLYPHWRIGHT_JOIN_ROUND = 1, GLYPHWRIGHT_JOIN_BEVEL = 2 };

/* The elements of a path, in order; the points of all follow one another. */
typedef struct glyphwright_elements {
  uint32_t struct_size;            /* sizeof(glyphwright_elements) */
  const uint8_t* verbs;            /* GLYPHWRIGHT_MOVE to GLYPHWRIGHT_CLOSE */
  size_t verb_count;               /* 0: a path of nothing */
  const glyphwright_point* points; /* of all verbs, one after another */
  size_t point_count;              /* what the verbs carry in all */
} glyphwright_elements;

/* How a path is filled and stroked. */
typedef struct glyphwright_pen {
  uint32_t struct_size; /* sizeof(glyphwright_pen) */
  int32_t even_odd;     /* 1: filled by the even-odd rule, 0: by the non-zero rule */
  int32_t cap;          /* GLYPHWRIGHT_CAP_BUTT, ROUND or SQUARE */
  int32_t join;         /* GLYPHWRIGHT_JOIN_MITER, ROUND or BEVEL */
  double line_width;    /* in the path's units */
  double miter_limit;   /* longest miter in line widths; beyond it corners are bevelled */
} glyphwright_pen;

/* A new path of an icon by its name in any form: a method ("heartPath"), a case of the catalogue
 * ("App.Shapes.Checks.checkmark"), a master case ("Icons.heart") or a number in decimal ("7"). */
GLYPHWRIGHT_C_API glyphwright_status glyphwright_path_named(const char* name,
                                                            glyphwright_path** path,
                                                            const glyphwright_message* message);
/* The same by number, 0 to 128. */
GLYPHWRIGHT_C_API glyphwright_status glyphwright_path_numbered(int64_t number,
                                                               glyphwright_path** path,
                                                               const glyphwright_message* message);
/* A new path of the program's own elements, which are copied. A line, curve or close without a
 * point to start from is left out. */
GLYPHWRIGHT_C_API glyphwright_status glyphwright_path_made(const glyphwright_elements* elements,
                                                           glyphwright_path** path,
                                                           const glyphwright_message* message);
/* Null does nothing. */
GLYPHWRIGHT_C_API void glyphwright_path_free(glyphwright_path* path);

/* Points into the path: valid until it is freed. */
GLYPHWRIGHT_C_API glyphwright_status glyphwright_path_elements(const glyphwright_path* path,
                                                               glyphwright_elements* elements);
/* The box around all points, control points included; zero for a path without segments. */
GLYPHWRIGHT_C_API glyphwright_status glyphwright_path_bounds(const glyphwright_path* path,
                                                             glyphwright_rect* bounds);
GLYPHWRIGHT_C_API glyphwright_status glyphwright_path_pen(const glyphwright_path* path,
                                                          glyphwright_pen* pen);
GLYPHWRIGHT_C_API glyphwright_status glyphwright_path_set_pen(glyphwright_path* path,
                                                              const glyphwright_pen* pen);

/* Pixels */

/* The four bytes of a pixel in memory. Premultiplied: colour times alpha. */
enum {
  GLYPHWRIGHT_RGBA_PREMULTIPLIED = 0,
  GLYPHWRIGHT_BGRA_PREMULTIPLIED = 1,
  GLYPHWRIGHT_RGBA_STRAIGHT = 2,
  GLYPHWRIGHT_BGRA_STRAIGHT = 3
};

/* Memory for pixels, rows top to bottom. Nothing but the width × 4 bytes of each row is touched. */
typedef struct glyphwright_buffer {
  uint32_t struct_size; /* sizeof(glyphwright_buffer) */
  int32_t format;       /* GLYPHWRIGHT_RGBA_PREMULTIPLIED and so on */
  uint8_t* pixels;      /* of the upper left; never null */
  size_t width;         /* in pixels */
  size_t height;        /* in pixels */
  size_t row_bytes;     /* from row to row; 0: width × 4 */
} glyphwright_buffer;

/* The pixels that an image of this size takes: width × scale and height × scale, rounded up. A
 * scale of 0 is 1. GLYPHWRIGHT_UNDRAWABLE_SIZE: not above 0, not finite, a side above 16384 pixels
 * or more than 67108864 pixels in all. */
GLYPHWRIGHT_C_API glyphwright_status glyphwright_pixel_size(double width, double height,
                                                            double scale, size_t* pixel_width,
                                                            size_t* pixel_height);

/* Straight components from 0 to 1; zero is clear. */
typedef struct glyphwright_color {
  double red;   /* 0 to 1 */
  double green; /* 0 to 1 */
  double blue;  /* 0 to 1 */
  double alpha; /* 0: clear, 1: opaque */
} glyphwright_color;

/* A copy of the shape in one colour, moved and blurred. */
typedef struct glyphwright_shadow {
  glyphwright_color color; /* its alpha is its strength */
  double dx;               /* to the right */
  double dy;               /* down */
  double blur;             /* twice the sigma of the Gaussian */
} glyphwright_shadow;

/* The parts of an icon's look beside its fill. */
enum {
  GLYPHWRIGHT_STROKE = 1,
  GLYPHWRIGHT_BORDER = 2,
  GLYPHWRIGHT_DROP_SHADOW = 4,
  GLYPHWRIGHT_INSET_SHADOW = 8,
  GLYPHWRIGHT_GRADIENT = 16, /* in place of the flat fill */
  /* As an icon that stands on its own: a drawing of bare strokes, which has nothing to fill, is
   * drawn with the pen that it brings along where no stroke is given, and the ground lies under a
   * border's ring, too, where the library leaves a black frame round an opaque one. */
  GLYPHWRIGHT_STANDALONE = 32
};

/* How an icon is painted into an image. The icon fills the size but for the stroke's width, the
 * drop shadow's blur and twice the larger side of its offset. */
typedef struct glyphwright_attributes {
  uint32_t struct_size;                     /* sizeof(glyphwright_attributes) */
  uint32_t parts;                           /* which of the fields from stroke_color on count */
  double width;                             /* of the whole image */
  double height;                            /* of the whole image, in points */
  double scale;                             /* pixels a point; 0: 1 */
  glyphwright_color fill;                   /* where there is no gradient */
  glyphwright_color background;             /* under all; zero: a clear ground */
  glyphwright_color stroke_color;           /* of the outline */
  double stroke_width;                      /* 0: one pixel */
  glyphwright_color border_color;           /* of the ring */
  double border_width;                      /* of the ring around the icon, whole points */
  glyphwright_shadow drop_shadow;           /* cast by the finished icon */
  glyphwright_shadow inset_shadow;          /* within the shape */
  const glyphwright_color* gradient_colors; /* first to last */
  const double* gradient_stops;             /* 0 to 1, one a colour; null: spread evenly */
  size_t gradient_count;                    /* at least 1 */
  /* In units of the box that the icon fills, (0, 0) upper left to (1, 1) lower right. Equal points:
   * top to bottom. */
  glyphwright_point gradient_start;
  glyphwright_point gradient_end;
} glyphwright_attributes;

/* Paints the path into the program's memory, whose size must be that of glyphwright_pixel_size().
 * What it held before does not matter. */
GLYPHWRIGHT_C_API glyphwright_status glyphwright_render(const glyphwright_path* path,
                                                        const glyphwright_attributes* attributes,
                                                        const glyphwright_buffer* buffer,
                                                        const glyphwright_message* message);

/* Pixels in the library's memory. */
typedef struct glyphwright_image glyphwright_image;

/* Paints the path into a new image. */
GLYPHWRIGHT_C_API glyphwright_status glyphwright_image_new(const glyphwright_path* path,
                                                           const glyphwright_attributes* attributes,
                                                           int32_t format,
                                                           glyphwright_image** image,
                                                           const glyphwright_message* message);
/* The image's pixels without padding: valid until it is freed, the program may change them. */
GLYPHWRIGHT_C_API glyphwright_status glyphwright_image_buffer(glyphwright_image* image,
                                                              glyphwright_buffer* buffer);
/* Null does nothing. */
GLYPHWRIGHT_C_API void glyphwright_image_free(glyphwright_image* image);

/* Ready-made images */

enum { GLYPHWRIGHT_PAINTING_SELECTED = 1, GLYPHWRIGHT_PAINTING_WITH_BACKGROUND = 2 };

/* What a ready-made image is called and takes. */
typedef struct glyphwright_painting {
  uint32_t struct_size;     /* sizeof(glyphwright_painting) */
  int32_t takes_size;       /* 1: the size of its options counts */
  int32_t takes_flags;      /* 1: their flags count */
  int32_t takes_background; /* 1: their background counts */
  const char* name;         /* "ChatIcons.ActionBar.gifNormalIcon" */
  const char* keywords;     /* words with a space between them */
  double width;             /* its own size, or the one that it is drawn for */
  double height;            /* in points, as the width */
} glyphwright_painting;

/* What an image takes; the rest is ignored. May be null. */
typedef struct glyphwright_painting_options {
  uint32_t struct_size;         /* sizeof(glyphwright_painting_options) */
  uint32_t flags;               /* GLYPHWRIGHT_PAINTING_SELECTED and so on, added */
  double width;                 /* 0: the image's own */
  double height;                /* as the width, in points */
  double scale;                 /* pixels a point; 0: 1 */
  glyphwright_color background; /* of the ground */
} glyphwright_painting_options;

/* How many there are. */
GLYPHWRIGHT_C_API size_t glyphwright_painting_count(void);
GLYPHWRIGHT_C_API glyphwright_status glyphwright_painting_info(size_t index,
                                                               glyphwright_painting* painting);
/* Draws one by name into a new image, or into the program's memory. */
GLYPHWRIGHT_C_API glyphwright_status glyphwright_painting_new(
    const char* name, const glyphwright_painting_options* options, int32_t format,
    glyphwright_image** image, const glyphwright_message* message);
GLYPHWRIGHT_C_API glyphwright_status
glyphwright_painting_render(const char* name, const glyphwright_painting_options* options,
                            const glyphwright_buffer* buffer, const glyphwright_message* message);

/* The catalogue: tabs hold sections, sections hold cases. Numbers begin at 0. */

typedef struct glyphwright_icon {
  uint32_t struct_size;    /* sizeof(glyphwright_icon) */
  int32_t has_drawing;     /* 0 where the method does not exist */
  const char* name;        /* of the case, "checkmark"; null where it is asked for by method */
  const char* enumeration; /* of the case, "App.Shapes.Checks"; enumeration.name is its full name */
  const char* method;      /* "checkmarkPath" */
  const char* keywords;    /* words with a space between them; empty without a drawing */
} glyphwright_icon;

/* All icons by method, in the order of their declaration. */
GLYPHWRIGHT_C_API size_t glyphwright_icon_count(void);
GLYPHWRIGHT_C_API glyphwright_status glyphwright_icon_info(size_t index, glyphwright_icon* icon);

GLYPHWRIGHT_C_API size_t glyphwright_tab_count(void);
/* Null, or a count of 0, where there is none of that number. */
GLYPHWRIGHT_C_API const char* glyphwright_tab_title(size_t tab);
GLYPHWRIGHT_C_API size_t glyphwright_section_count(size_t tab);
GLYPHWRIGHT_C_API const char* glyphwright_section_title(size_t tab, size_t section);
GLYPHWRIGHT_C_API size_t glyphwright_case_count(size_t tab, size_t section);
GLYPHWRIGHT_C_API glyphwright_status glyphwright_case_info(size_t tab, size_t section, size_t index,
                                                           glyphwright_icon* icon);

/* Icons (by method) and ready-made images for words as people type them, best first. Writes up to
 * `capacity` names and how many there are; `guesses`, which may be null, gets a 1 where a word was
 * found only with a letter or two changed. */
GLYPHWRIGHT_C_API glyphwright_status glyphwright_search(const char* words, size_t capacity,
                                                        const char** names, uint8_t* guesses,
                                                        size_t* count);

#ifdef __cplusplus
}
#endif

#endif
