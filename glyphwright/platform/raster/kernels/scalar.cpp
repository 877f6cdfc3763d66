#include <glyphwright/platform/raster/kernels/scalar.h>

namespace glyphwright::raster {

const Kernels& scalarKernels() {
  return scalar::kTable;
}

}  // namespace glyphwright::raster
