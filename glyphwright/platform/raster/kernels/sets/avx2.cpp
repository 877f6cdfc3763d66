#include <glyphwright/platform/raster/kernels/loops.h>
#include <glyphwright/platform/raster/lanes/avx2.h>

namespace glyphwright::raster {

const Kernels& avx2Kernels() {
  return loops::kLoops<lanes::avx2::Set>;
}

}  // namespace glyphwright::raster
