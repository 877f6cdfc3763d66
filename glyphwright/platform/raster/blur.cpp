#include <glyphwright/platform/raster/blur.h>

#include <algorithm>
#include <cmath>

#include <glyphwright/platform/math.h>

namespace glyphwright::raster {
namespace {

// Gaussian weights as 15-bit fractions: the middle, then those of the two values 1, 2, … reach away
// from it together. All in all exactly one.
void gaussianTaps(double sigma, int reach, std::vector<std::int16_t>& taps) {
  constexpr int kMostTaps = static_cast<int>(kDirectSigma) * 2 + 1;
  double weights[kMostTaps];
  // From one to the next the weight falls by a factor that itself falls evenly.
  double factor = sigma > 0 ? math::expNegative(-1 / (2 * sigma * sigma)) : 0;
  const double fall = factor * factor;
  double weight = 2;
  weights[0] = 1;
  double total = 1;
  for (int k = 1; k <= reach; ++k) {
    weight *= factor;
    factor *= fall;
    weights[k] = weight;
    total += weight;
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
}

// A Gaussian one row at a time: the mask's rows filtered downwards into a row with room on both
// sides, and that one across.
class RowFilter {
 public:
  /// Results for columns x0 to x1. There is one such filter at a time: it works in the scratch.
  RowFilter(const Mask& mask, double sigma, double cut, int x0, int x1, Scratch& scratch)
      : mask_(mask),
        kernels_(*scratch.kernels),
        reach_(static_cast<int>(std::floor(cut))),
        outCount_(wholeBlocks(x1 - x0)),
        maskCount_(wholeBlocks(mask.bounds.width())) {
    gaussianTaps(sigma, reach_, scratch.taps);
    taps_ = scratch.taps.data();
    const int left = std::min(x0 - reach_, mask.bounds.x0);
    const auto distance = [left](int x) { return static_cast<std::size_t>(x - left); };
    const std::size_t padded = std::max(distance(x0 + reach_) + outCount_,  //
                                        distance(mask.bounds.x0) + maskCount_);
    scratch.filterRows.assign(padded + outCount_, 0);
    out_ = scratch.filterRows.data();
    along_ = out_ + outCount_ + distance(x0 - reach_);
    down_ = out_ + outCount_ + distance(mask.bounds.x0);
  }

  const std::uint16_t* at(int y) {
    const PixelRect& b = mask_.bounds;
    const int above = std::min(y - b.y0, reach_);  // rows that there are, or negative
    const int below = std::min(b.y1 - 1 - y, reach_);
    if (above < -reach_ || below < -reach_) {
      std::fill_n(out_, outCount_, std::uint16_t{0});
      return out_;
    }
    const bool upwards = above > below;
    const int near = std::min(above, below);  // the side where the mask ends first
    const int far = std::max(above, below);
    const int from = near < 0 ? -near : near + 1;
    const auto stride = static_cast<std::ptrdiff_t>(mask_.stride);
    FilterRows rows{};
    rows.middle = near < 0 ? nullptr : mask_.row(y);
    rows.pairs = near < 0 ? 0 : static_cast<std::size_t>(near);
    rows.stride = upwards ? -stride : stride;
    rows.singleFrom = static_cast<std::size_t>(from);
    rows.singleUntil = static_cast<std::size_t>(far) + 1;
    rows.single = from > far ? mask_.row(b.y0) : mask_.row(upwards ? y - from : y + from);
    kernels_.filterDown(down_, rows, taps_, maskCount_);
    // What lies beyond the mask's width is room, not coverage.
    const auto width = static_cast<std::size_t>(b.width());
    std::fill_n(down_ + width, maskCount_ - width, std::uint16_t{0});
    kernels_.filterAlong(out_, along_, taps_, static_cast<std::size_t>(reach_), outCount_);
    return out_;
  }

 private:
  static std::size_t wholeBlocks(int width) {
    return static_cast<std::size_t>((width + kBlock - 1) / kBlock) * kBlock;
  }

  const Mask& mask_;
  const Kernels& kernels_;
  int reach_;
  std::size_t outCount_;
  std::size_t maskCount_;
  const std::int16_t* taps_;
  std::uint16_t* out_;
  std::uint16_t* along_;  // `reach` values before the first result's, zero but for the mask's part
  std::uint16_t* down_;   // the mask's part
};

int floorHalf(int v) {
  return v >= 0 ? v / 2 : -((1 - v) / 2);
}

// Every pixel the mean of four.
Mask halved(const Mask& mask) {
  const PixelRect& b = mask.bounds;
  Mask out({floorHalf(b.x0), floorHalf(b.y0), floorHalf(b.x1 + 1), floorHalf(b.y1 + 1)});
  const auto at = [&](int x, int y) {
    if (x < b.x0 || x >= b.x1 || y < b.y0 || y >= b.y1) return 0;
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

Mask blurredInPlace(const Mask& mask, double sigma, double cut, const PixelRect& area,
                    Scratch& scratch);

// Half the size, half the sigma, one more pixel on each side for the interpolation. Averaging four
// and interpolating add 1/4 + 3/4 square pixels of variance, which the filter leaves out.
Mask blurredByHalves(const Mask& mask, double sigma, double cut, const PixelRect& area,
                     Scratch& scratch) {
  const PixelRect half{floorHalf(area.x0) - 1, floorHalf(area.y0) - 1, floorHalf(area.x1 + 1) + 1,
                       floorHalf(area.y1 + 1) + 1};
  const double remaining = std::sqrt(sigma * sigma - 1);
  return doubled(blurredInPlace(halved(mask), remaining * 0.5, cut * 0.5, half, scratch), area);
}

Mask blurredInPlace(const Mask& mask, double sigma, double cut, const PixelRect& area,
                    Scratch& scratch) {
  if (sigma >= kDirectSigma) return blurredByHalves(mask, sigma, cut, area, scratch);
  Mask out(area);
  RowFilter filter(mask, sigma, cut, area.x0, area.x1, scratch);
  for (int y = area.y0; y < area.y1; ++y) std::copy_n(filter.at(y), area.width(), out.row(y));
  return out;
}

}  // namespace

int blurReach(double blurPixels) {
  return static_cast<int>(std::ceil(blurPixels));
}

void blurRows(const Mask& mask, double blurPixels, int dx, int dy, const PixelRect& area,
              Scratch& scratch, RowSink& sink) {
  const PixelRect source{area.x0 - dx, area.y0 - dy, area.x1 - dx, area.y1 - dy};
  const double sigma = blurPixels * 0.5;
  const CoverageSpan span{0, area.width(), CoverageSpan::kVaries};
  if (sigma < kDirectSigma) {
    RowFilter filter(mask, sigma, blurPixels, source.x0, source.x1, scratch);
    for (int y = area.y0; y < area.y1; ++y) sink.row({y, {&span, 1}, filter.at(y - dy)});
    return;
  }
  const Mask result = blurredByHalves(mask, sigma, blurPixels, source, scratch);
  for (int y = area.y0; y < area.y1; ++y) sink.row({y, {&span, 1}, result.row(y - dy)});
}

}  // namespace glyphwright::raster
