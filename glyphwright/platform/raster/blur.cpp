#include <glyphwright/platform/raster/blur.h>

#include <algorithm>
#include <cmath>

#include <glyphwright/platform/math.h>

namespace glyphwright::raster {
namespace {

// Gaussian weights as 15-bit fractions: the middle, then those of the two values 1, 2, … away from
// it together, out to `support` pixels from the middle's centre; the last weighs by how much of its
// pixel that takes in. All in all exactly one.
const std::vector<std::int16_t>& gaussianTaps(double sigma, double support, GaussianTaps& kept) {
  std::vector<std::int16_t>& taps = kept.taps;
  if (kept.sigma == sigma && kept.support == support) return taps;
  constexpr int kMostTaps = static_cast<int>(kDirectSigma) * 2 + 1;
  double weights[kMostTaps];
  // From one to the next the weight falls by a factor that itself falls evenly.
  double factor = sigma > 0 ? math::expNegative(-1 / (2 * sigma * sigma)) : 0;
  const double fall = factor * factor;
  double weight = 2;
  weights[0] = 1;
  double total = 1;
  const int reach = static_cast<int>(std::ceil(support - 0.5));
  for (int k = 1; k <= reach; ++k) {
    weight *= factor;
    factor *= fall;
    weights[k] = k < reach ? weight : weight * (support - (k - 0.5));
    total += weights[k];
  }
  taps.resize(static_cast<std::size_t>(reach) + 1);
  int sum = 0;
  for (int k = 0; k <= reach; ++k) {
    const auto tap = static_cast<std::int16_t>(weights[k] / total * kOne + 0.5);
    taps[static_cast<std::size_t>(k)] = tap;
    sum += tap;
  }
  // The rounding's remainder goes to the middle, where it weighs least.
  taps[0] = static_cast<std::int16_t>(taps[0] + kOne - sum);
  kept.sigma = sigma;
  kept.support = support;
  return taps;
}

// What the filter makes of the same value everywhere.
std::uint16_t filteredEvenly(std::uint16_t value, const std::vector<std::int16_t>& taps) {
  int sum = 0;
  for (const std::int16_t tap : taps) sum += scaled(value, tap);
  return static_cast<std::uint16_t>(std::min(sum, kOne));
}

// A Gaussian a few rows at a time: the mask's rows filtered downwards into rows with room on both
// sides, and those across. What one step has stored another needs at other places, which is slow to
// wait for: so each step does its rows first.
class RowFilter {
 public:
  /// Results for the rows and columns of `area`.
  RowFilter(const Mask& mask, std::uint16_t around, double sigma, double support,
            const PixelRect& area, Scratch& scratch)
      : area_(area),
        filtered_(around == 0 ? mask.bounds : area),
        memory_(scratch.lease<FilterMemory>()),
        kernels_(*scratch.kernels),
        width_(static_cast<std::size_t>(mask.bounds.width())),
        maskCount_(wholeBlocks(mask.bounds.width())),
        outCount_(wholeBlocks(area.width())) {
    const std::vector<std::int16_t>& taps = gaussianTaps(sigma, support, memory_->taps);
    taps_ = taps.data();
    reach_ = taps.size() - 1;
    const auto reach = static_cast<int>(reach_);
    const int left = std::min(area.x0 - reach, mask.bounds.x0);
    const auto distance = [left](int x) { return static_cast<std::size_t>(x - left); };
    stride_ = std::max(distance(area.x0 + reach) + outCount_,
                       distance(mask.bounds.x0) + maskCount_ + kBlock);
    aside_ = filteredEvenly(around, taps);
    const std::size_t across = kRows * stride_;
    const std::size_t size = across + kRows * outCount_ + maskCount_;
    if (memory_->rows.size() < size) memory_->rows.resize(size);
    std::uint16_t* memory = memory_->rows.data();
    std::fill_n(memory, across, aside_);
    along_ = memory + distance(area.x0 - reach);
    down_ = memory + distance(mask.bounds.x0);
    out_ = memory + across;
    std::uint16_t* beyond = out_ + kRows * outCount_;
    std::fill_n(beyond, maskCount_, around);
    placeSources(mask, beyond, memory_->sources);
    sources_ = memory_->sources.data() + reach_;
  }

  /// Gives `take(rows)` every row of the area, top to bottom.
  template <typename Take>
  void run(Take take) const {
    for (int y = area_.y0; y < area_.y1; y += kRows) {
      const auto from = static_cast<std::size_t>(y - area_.y0);
      const auto rows = static_cast<std::size_t>(std::min(area_.y1 - y, kRows));
      filterDown(y, rows, sources_ + from);
      // What lies beyond the mask's width is room, not coverage.
      for (std::size_t i = 0; i < rows; ++i) {
        std::fill_n(down_ + i * stride_ + width_, kBlock, aside_);
      }
      kernels_.filterAlong({out_, outCount_, rows, outCount_}, along_, stride_, taps_, reach_);
      take(CoverageRows{y, static_cast<int>(rows), area_.width(), out_, outCount_});
    }
  }

 private:
  static constexpr int kRows = 4;

  // Above and below a mask that has nothing around it, the taps that do not get there are left out.
  void filterDown(int y, std::size_t rows, const std::uint16_t* const* sources) const {
    if (y >= filtered_.y0 && y + static_cast<int>(rows) <= filtered_.y1) {
      kernels_.filterDown({down_, stride_, rows, maskCount_}, sources, taps_, 0, reach_);
      return;
    }
    for (std::size_t i = 0; i < rows; ++i, ++y) {
      const int away = std::max({filtered_.y0 - y, y - (filtered_.y1 - 1), 0});
      kernels_.filterDown({down_ + i * stride_, stride_, 1, maskCount_}, sources + i, taps_,
                          static_cast<std::size_t>(away), reach_);
    }
  }

  static std::size_t wholeBlocks(int width) {
    return static_cast<std::size_t>((width + kBlock - 1) / kBlock) * kBlock;
  }

  // The mask's rows that the area's rows take, `beyond` in place of those that it has not.
  void placeSources(const Mask& mask, const std::uint16_t* beyond,
                    std::vector<const std::uint16_t*>& sources) const {
    const auto reach = static_cast<int>(reach_);
    const int top = area_.y0 - reach;
    sources.assign(static_cast<std::size_t>(area_.y1 + reach - top), beyond);
    const int end = std::min(area_.y1 + reach, mask.bounds.y1);
    for (int y = std::max(top, mask.bounds.y0); y < end; ++y) {
      sources[static_cast<std::size_t>(y - top)] = mask.row(y);
    }
  }

  PixelRect area_;
  PixelRect filtered_;  // rows outside of it take no values from their own place
  Lease<FilterMemory> memory_;
  const Kernels& kernels_;
  std::size_t reach_;
  std::size_t width_;
  std::size_t maskCount_;
  std::size_t outCount_;
  std::size_t stride_;
  std::uint16_t aside_;  // what is left and right of the mask's part, filtered downwards
  const std::int16_t* taps_;
  const std::uint16_t* const* sources_;  // the first row's, with `reach` more on either side
  std::uint16_t* along_;                 // `reach` values before the first result's
  std::uint16_t* down_;                  // the mask's part
  std::uint16_t* out_;
};

int floorHalf(int v) {
  return v >= 0 ? v / 2 : -((1 - v) / 2);
}

// Every pixel the mean of four.
Mask halved(const Mask& mask, std::uint16_t around) {
  const PixelRect& b = mask.bounds;
  Mask out({floorHalf(b.x0), floorHalf(b.y0), floorHalf(b.x1 + 1), floorHalf(b.y1 + 1)});
  const auto at = [&](int x, int y) {
    if (x < b.x0 || x >= b.x1 || y < b.y0 || y >= b.y1) return static_cast<int>(around);
    return static_cast<int>(mask.row(y)[x - b.x0]);
  };
  for (int y = out.bounds.y0; y < out.bounds.y1; ++y) {
    std::uint16_t* to = out.row(y);
    for (int x = out.bounds.x0; x < out.bounds.x1; ++x) {
      const int sum =
          at(2 * x, 2 * y) + at(2 * x + 1, 2 * y) + at(2 * x, 2 * y + 1) + at(2 * x + 1, 2 * y + 1);
      *to++ = static_cast<std::uint16_t>((sum + 2) >> 2);
    }
  }
  return out;
}

// Twice the size: each pixel 3/4 of its parent and 1/4 of the parent's neighbour on its side.
Mask doubled(const Mask& mask, const PixelRect& area) {
  Mask out(area);
  const PixelRect& b = mask.bounds;
  const auto at = [&](int x, int y) {
    const int cx = std::clamp(x, b.x0, b.x1 - 1);
    const int cy = std::clamp(y, b.y0, b.y1 - 1);
    return static_cast<int>(mask.row(cy)[cx - b.x0]);
  };
  for (int y = area.y0; y < area.y1; ++y) {
    const int v = floorHalf(y);
    const int vSide = v + ((y & 1) != 0 ? 1 : -1);
    std::uint16_t* to = out.row(y);
    for (int x = area.x0; x < area.x1; ++x) {
      const int u = floorHalf(x);
      const int uSide = u + ((x & 1) != 0 ? 1 : -1);
      const int sum = 9 * at(u, v) + 3 * at(uSide, v) + 3 * at(u, vSide) + at(uSide, vSide);
      *to++ = static_cast<std::uint16_t>((sum + 8) >> 4);
    }
  }
  return out;
}

Mask blurredInPlace(const Mask& mask, std::uint16_t around, double sigma, double support,
                    const PixelRect& area, Scratch& scratch);

// Half the size, half the sigma, one more pixel on each side for the interpolation. Averaging four
// and interpolating add 1/4 + 3/4 square pixels of variance, which the filter leaves out.
Mask blurredByHalves(const Mask& mask, std::uint16_t around, double sigma, double support,
                     const PixelRect& area, Scratch& scratch) {
  const PixelRect half{floorHalf(area.x0) - 1, floorHalf(area.y0) - 1, floorHalf(area.x1 + 1) + 1,
                       floorHalf(area.y1 + 1) + 1};
  const double remaining = std::sqrt(sigma * sigma - 1);
  return doubled(
      blurredInPlace(halved(mask, around), around, remaining * 0.5, support * 0.5, half, scratch),
      area);
}

Mask blurredInPlace(const Mask& mask, std::uint16_t around, double sigma, double support,
                    const PixelRect& area, Scratch& scratch) {
  if (sigma >= kDirectSigma) return blurredByHalves(mask, around, sigma, support, area, scratch);
  Mask out(area);
  RowFilter(mask, around, sigma, support, area, scratch).run([&](const CoverageRows& rows) {
    for (int i = 0; i < rows.rows; ++i) {
      std::copy_n(rows.coverage + static_cast<std::size_t>(i) * rows.stride, rows.width,
                  out.row(rows.y + i));
    }
  });
  return out;
}

}  // namespace

int blurReach(double blurPixels) {
  return static_cast<int>(std::ceil(blurPixels));
}

void blurRows(const Mask& mask, std::uint16_t around, double blurPixels, int dx, int dy,
              const PixelRect& area, Scratch& scratch, RowSink& sink) {
  const PixelRect source{area.x0 - dx, area.y0 - dy, area.x1 - dx, area.y1 - dy};
  const double sigma = blurPixels * 0.5;
  const double support = std::floor(blurPixels) + 0.5;
  if (filtersDirectly(blurPixels)) {
    RowFilter(mask, around, sigma, support, source, scratch).run([&](CoverageRows rows) {
      rows.y += dy;
      sink.rows(rows);
    });
    return;
  }
  const Mask result = blurredByHalves(mask, around, sigma, support, source, scratch);
  sink.rows({area.y0, area.height(), area.width(), result.values, result.stride});
}

}  // namespace glyphwright::raster
