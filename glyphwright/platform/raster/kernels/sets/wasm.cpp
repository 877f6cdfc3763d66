#include <glyphwright/platform/raster/kernels/loops.h>
#include <glyphwright/platform/raster/lanes/wasm.h>

namespace glyphwright::raster {

const Kernels& wasmKernels() {
  return loops::kLoops<lanes::wasm::Set>;
}

}  // namespace glyphwright::raster
