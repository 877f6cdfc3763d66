#include "blur.h"

#include <cmath>

#include <agg_pixfmt_gray.h>
#include <agg_renderer_base.h>
#include <agg_rendering_buffer.h>

#include <agg_blur.h>  // after what it uses

namespace glyphwright::bench {

void blur(std::uint8_t* pixels, std::size_t width, std::size_t height, std::size_t stride,
          double sigma) {
  // A stack (triangle) of radius r has the variance r(r + 2) / 6.
  const auto radius = static_cast<unsigned>(std::lround(std::sqrt(1 + 6 * sigma * sigma) - 1));
  agg::rendering_buffer buffer(pixels, static_cast<unsigned>(width), static_cast<unsigned>(height),
                               static_cast<int>(stride));
  agg::pixfmt_gray8 image(buffer);
  agg::stack_blur_gray8(image, radius, radius);
}

}  // namespace glyphwright::bench
