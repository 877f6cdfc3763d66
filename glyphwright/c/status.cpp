#include <cstdlib>

#include <glyphwright/c/glyphwright.h>
#include <glyphwright/version.h>

const char* glyphwright_status_text(glyphwright_status status) {
  switch (status) {
    case GLYPHWRIGHT_OK:
      return "done";
    case GLYPHWRIGHT_INVALID_ARGUMENT:
      return "an argument is not valid";
    case GLYPHWRIGHT_UNKNOWN_NAME:
      return "no icon and no ready-made image is called that";
    case GLYPHWRIGHT_NO_DRAWING:
      return "this name of the catalogue has no drawing";
    case GLYPHWRIGHT_UNDRAWABLE_SIZE:
      return "an image of this size cannot be drawn";
    case GLYPHWRIGHT_BUFFER_MISMATCH:
      return "the buffer does not have the image's pixels";
    case GLYPHWRIGHT_OUT_OF_MEMORY:
      return "not enough memory";
    case GLYPHWRIGHT_INTERNAL_ERROR:
      return "a fault of the library's own";
    default:
      return "unknown status";
  }
}

uint32_t glyphwright_version(void) {
  return GLYPHWRIGHT_VERSION_NUMBER;
}

void* glyphwright_memory_new(size_t bytes) {
  return std::malloc(bytes == 0 ? 1 : bytes);
}

void glyphwright_memory_free(void* memory) {
  std::free(memory);
}
