#include "places.h"

namespace glyphwright::places {

std::string inSource(std::string_view file) {
  return std::string(GLYPHWRIGHT_SOURCE_DIR "/").append(file);
}

std::string inFrozen(std::string_view file) {
  return std::string(GLYPHWRIGHT_FROZEN_DIR "/").append(file);
}

std::string inOutput(std::string_view file) {
  return std::string(GLYPHWRIGHT_OUTPUT_DIR "/").append(file);
}

std::string program() {
  return GLYPHWRIGHT_PROGRAM;
}

}  // namespace glyphwright::places
