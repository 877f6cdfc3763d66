#include <glyphwright/platform/fatal.h>

#include <cstdio>
#include <cstdlib>

namespace glyphwright {

void fatal(std::initializer_list<std::string_view> message) {
  std::fputs("glyphwright: ", stderr);
  for (const std::string_view piece : message) {
    std::fwrite(piece.data(), 1, piece.size(), stderr);
  }
  std::fputc('\n', stderr);
  std::fflush(stderr);
  std::abort();
}

void fatal(std::string_view message) {
  fatal({message});
}

}  // namespace glyphwright
