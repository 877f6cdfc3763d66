#include <glyphwright/platform/raster/kernels/loops.h>
#include <glyphwright/platform/raster/kernels/scalar.h>
#include <glyphwright/platform/raster/lanes/plain.h>

namespace glyphwright::raster {

const Kernels& plainKernels() {
  static constexpr Kernels kTable = scalar::withStrokes(loops::kLoops<lanes::plain::Set>);
  return kTable;
}

}  // namespace glyphwright::raster
