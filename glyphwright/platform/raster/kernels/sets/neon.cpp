#include <glyphwright/platform/raster/kernels/loops.h>
#include <glyphwright/platform/raster/kernels/scalar.h>
#include <glyphwright/platform/raster/lanes/neon.h>

namespace glyphwright::raster {

const Kernels& neonKernels() {
  static constexpr Kernels kTable = scalar::withStrokes(loops::kLoops<lanes::neon::Set>);
  return kTable;
}

}  // namespace glyphwright::raster
