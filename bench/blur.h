#pragma once

#include <cstddef>
#include <cstdint>

namespace glyphwright::bench {

/// A Gaussian of `sigma` pixels approached by AGG's stack blur, in place, on one byte a pixel; what
/// a program that draws with Cairo or AGG, which have no shadows, would do.
void blur(std::uint8_t* pixels, std::size_t width, std::size_t height, std::size_t stride,
          double sigma);

}  // namespace glyphwright::bench
