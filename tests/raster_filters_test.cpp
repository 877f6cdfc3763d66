// The filters of this machine against the scalar ones: equal bit for bit.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "raster_kernels.h"

namespace glyphwright::raster {
namespace {

TEST_P(RasterKernels, FiltersAreTheSame) {
  for (const std::size_t reach : {0U, 1U, 5U, 31U}) {
    for (const std::size_t blocks : {1U, 2U, 3U, 4U, 7U}) {
      constexpr std::size_t kRows = 3;
      const std::size_t count = blocks * kBlock;
      const std::size_t stride = count + 2 * reach + 5;
      // Sums that go past one saturate on both sides alike.
      const std::vector<std::int16_t> taps(reach + 1,
                                           static_cast<std::int16_t>(40000 / (reach + 2)));
      const auto values = coverage((2 * reach + kRows) * stride);
      expectSame([&](const Kernels& loops) {
        std::vector<std::uint16_t> out(kRows * stride, kGuard);
        loops.filterAlong({out.data(), stride, kRows, count}, values.data(), stride, taps.data(),
                          reach);
        return out;
      });
      std::vector<const std::uint16_t*> rows;
      for (std::size_t k = 0; k < 2 * reach + kRows; ++k) rows.push_back(&values[k * stride]);
      std::shuffle(rows.begin(), rows.end(), random_);
      for (const std::size_t first : {std::size_t{0}, (reach + 1) / 2, reach, reach + 2}) {
        expectSame([&](const Kernels& loops) {
          std::vector<std::uint16_t> out(kRows * stride, kGuard);
          loops.filterDown({out.data(), stride, kRows, count}, &rows[reach], taps.data(), first,
                           reach);
          return out;
        });
      }
    }
  }
}

}  // namespace
}  // namespace glyphwright::raster
