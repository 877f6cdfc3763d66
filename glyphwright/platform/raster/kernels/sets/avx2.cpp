#include <glyphwright/platform/raster/kernels/avx2.h>
#include <glyphwright/platform/raster/kernels/loops.h>
#include <glyphwright/platform/raster/lanes/avx2.h>

namespace glyphwright::raster {

const Kernels& avx2Kernels() {
  static constexpr Kernels kTable = avx2::withStrokes(loops::kLoops<lanes::avx2::Set>);
  return kTable;
}

}  // namespace glyphwright::raster
