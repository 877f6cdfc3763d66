#include <glyphwright/platform/raster/kernels/loops.h>
#include <glyphwright/platform/raster/kernels/scalar.h>
#include <glyphwright/platform/raster/lanes/wasm.h>

namespace glyphwright::raster {

const Kernels& wasmKernels() {
  static constexpr Kernels kTable = scalar::withStrokes(loops::kLoops<lanes::wasm::Set>);
  return kTable;
}

}  // namespace glyphwright::raster
