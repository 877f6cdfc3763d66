#include <glyphwright/platform/raster/kernels/avx2.h>

namespace glyphwright::raster {

const Kernels& avx2Kernels() {
  return avx2::kTable;
}

}  // namespace glyphwright::raster
