#include <glyphwright/platform/raster/kernels/loops.h>
#include <glyphwright/platform/raster/lanes/sse41.h>

namespace glyphwright::raster {

const Kernels& sse41Kernels() {
  return loops::kLoops<lanes::sse41::Set>;
}

}  // namespace glyphwright::raster
