// Every way of drawing against the plain way, on any scene.

#include <cmath>
#include <cstdlib>

#include "../drawing_scene.h"
#include "input.h"

namespace {

using namespace glyphwright;

struct Numbers {
  unsigned operator()() {
    const unsigned high = input.byte();
    return high << 8 | input.byte();
  }
  fuzz::Input input;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Numbers numbers{{data, size}};
  const drawing::Row& row = drawing::kPlans[numbers.input.below(std::size(drawing::kPlans))];
  drawing::Scene scene(numbers, row.task);
  const UIImage image = scene.drawn({&row, 1});
  const UIImage plain = scene.drawn({});
  const std::span<const std::uint8_t> bytes = image.cgImage().rgba();
  const std::span<const std::uint8_t> plainBytes = plain.cgImage().rgba();
  if (bytes.size() != plainBytes.size()) __builtin_trap();
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (std::abs(bytes[i] - plainBytes[i]) > row.levels) __builtin_trap();
  }
  return 0;
}
