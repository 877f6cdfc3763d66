#include <glyphwright/platform/raster/kernels/loops.h>
#include <glyphwright/platform/raster/lanes/neon.h>

namespace glyphwright::raster {

const Kernels& neonKernels() {
  return loops::kLoops<lanes::neon::Set>;
}

}  // namespace glyphwright::raster
