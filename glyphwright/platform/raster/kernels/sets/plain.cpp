#include <glyphwright/platform/raster/kernels/loops.h>
#include <glyphwright/platform/raster/lanes/plain.h>

namespace glyphwright::raster {

const Kernels& plainKernels() {
  return loops::kLoops<lanes::plain::Set>;
}

}  // namespace glyphwright::raster
