#include <glyphwright/platform/raster/kernels.h>

namespace glyphwright::raster {

const Kernels& plainKernels();
const Kernels& avx2Kernels();
const Kernels& sse41Kernels();
const Kernels& neonKernels();
const Kernels& wasmKernels();

namespace {

bool always() {
  return true;
}

// The fastest first. What is asked of the processor was read by the runtime before main.
constexpr KernelSet kSets[] = {
#if defined(__x86_64__)
    {"avx2", avx2Kernels, [] { return __builtin_cpu_supports("avx2") != 0; }},
    {"sse41", sse41Kernels, [] { return __builtin_cpu_supports("sse4.1") != 0; }},
#elif defined(__aarch64__)
    {"neon", neonKernels, always},
#elif defined(__wasm_simd128__)
    {"wasm", wasmKernels, always},
#endif
    {"plain", plainKernels, always},
};

}  // namespace

std::span<const KernelSet> kernelSets() {
  return kSets;
}

const Kernels& kernels() {
  const KernelSet* set = kSets;
  while (!set->runsHere()) ++set;
  return set->loops();
}

}  // namespace glyphwright::raster
