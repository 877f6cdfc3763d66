#include "image_output.h"

#include <stdexcept>

#include "usage_error.h"

namespace glyphwright::cli {

void writeImage(const UIImage& image, std::string_view name, const std::string& file,
                OutputFormat format, Console& console, Compression compression) {
  if (!image.hasPixels()) {
    throw std::runtime_error(std::string(name) + " cannot be drawn at this size");
  }
  const CGImage& pixels = image.cgImage();
  if (format == OutputFormat::rgba) {
    writeOutput(file, pixels.rgba(), console);
  } else {
    writeOutput(file,
                encodePng(pixels.pixelWidth(), pixels.pixelHeight(), pixels.rgba(), compression),
                console);
  }
}

void refuseTerminal(std::string_view file, OutputFormat format, const Console& console) {
  if (file == "-" && console.outIsTerminal && format != OutputFormat::svg) {
    throw UsageError("standard output is a terminal: send the image to a file or a pipe");
  }
}

}  // namespace glyphwright::cli
