#include <glyphwright/platform/raster/kernels.h>

#if defined(__x86_64__)
#include <glyphwright/platform/raster/kernels/avx2.h>
#endif

namespace glyphwright::raster {

const Kernels& kernels() {
#if defined(__x86_64__)
  // The check reads a word that the runtime filled in before main.
  if (__builtin_cpu_supports("avx2")) return avx2Kernels();
#endif
  return scalarKernels();
}

}  // namespace glyphwright::raster
