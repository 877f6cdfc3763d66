#include <glyphwright/platform/raster/kernels/loops.h>
#include <glyphwright/platform/raster/kernels/scalar.h>
#include <glyphwright/platform/raster/lanes/sse41.h>

namespace glyphwright::raster {

const Kernels& sse41Kernels() {
  static constexpr Kernels kTable = scalar::withStrokes(loops::kLoops<lanes::sse41::Set>);
  return kTable;
}

}  // namespace glyphwright::raster
