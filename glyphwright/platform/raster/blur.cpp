#include <glyphwright/platform/raster/blur.h>

#include <algorithm>
#include <cmath>

#include <glyphwright/platform/math.h>

namespace glyphwright::raster {
namespace {

// Gaussian weights as 15-bit fractions: the middle, then those of the two values 1, 2, … reach away
// from it together. All in all exactly one.
std::vector<std::int16_t> gaussianTaps(double sigma, int reach) {
  std::vector<double> weights(static_cast<std::size_t>(reach + 1));
  double total = 0;
  for (int k = 0; k <= reach; ++k) {
    double& w = weights[static_cast<std::size_t>(k)];
    w = math::expNegative(-(static_cast<double>(k) * k) / (2 * sigma * sigma)) * (k == 0 ? 1 : 2);
    total += w;
  }
  std::vector<std::int16_t> taps(weights.size());
  int sum = 0;
  for (std::size_t i = 0; i < taps.size(); ++i) {
    taps[i] = static_cast<std::int16_t>(weights[i] / total * kOne + 0.5);
    sum += taps[i];
  }
  // The rounding's remainder goes to the middle, where it weighs least.
  taps[0] = static_cast<std::int16_t>(taps[0] + kOne - sum);
  return taps;
}

// A Gaussian one row at a time: the mask's rows filtered downwards into a row with room on both
// sides, and that one across.
class RowFilter {
 public:
  /// Results for columns x0 to x1.
  RowFilter(const Mask& mask, double sigma, double cut, int x0, int x1, const Kernels& kernels)
      : mask_(mask),
        kernels_(kernels),
        reach_(static_cast<int>(std::floor(cut))),
        taps_(gaussianTaps(sigma, reach_)),
        outCount_(wholeBlocks(x1 - x0)),
        maskCount_(wholeBlocks(mask.bounds.width())),
        // The mask's left side, as far into the padded row as the results need.
        from_(std::max(mask.bounds.x0, x0 - reach_)),
        until_(std::min(mask.bounds.x1, x1 + reach_)),
        offset_(from_ - (x0 - reach_)),
        padded_(outCount_ + static_cast<std::size_t>(2 * reach_)),
        down_(maskCount_),
        out_(outCount_),
        nothing_(maskCount_),
        rows_(static_cast<std::size_t>(2 * reach_ + 1)),
        shifted_(rows_.size()) {
    for (std::size_t k = 0; k < shifted_.size(); ++k) shifted_[k] = padded_.data() + k;
  }

  const std::uint16_t* at(int y) {
    const PixelRect& b = mask_.bounds;
    if (from_ >= until_ || y + reach_ < b.y0 || y - reach_ >= b.y1) {
      std::fill(out_.begin(), out_.end(), std::uint16_t{0});
      return out_.data();
    }
    // Beyond the farthest row that there is, both sides are empty.
    const int farthest = std::min(reach_, std::max(b.y1 - 1 - y, y - b.y0));
    for (int k = -farthest; k <= farthest; ++k) {
      const bool isInside = y + k >= b.y0 && y + k < b.y1;
      rows_[static_cast<std::size_t>(k + farthest)] = isInside ? mask_.row(y + k) : nothing_.data();
    }
    kernels_.filter(down_.data(), rows_.data(), taps_.data(), static_cast<std::size_t>(farthest),
                    maskCount_);
    std::copy_n(down_.begin() + (from_ - b.x0), until_ - from_, padded_.begin() + offset_);
    kernels_.filter(out_.data(), shifted_.data(), taps_.data(), static_cast<std::size_t>(reach_),
                    outCount_);
    return out_.data();
  }

 private:
  static std::size_t wholeBlocks(int width) {
    return static_cast<std::size_t>((width + kBlock - 1) / kBlock * kBlock);
  }

  const Mask& mask_;
  const Kernels& kernels_;
  int reach_;
  std::vector<std::int16_t> taps_;
  std::size_t outCount_;
  std::size_t maskCount_;
  int from_;
  int until_;
  int offset_;
  std::vector<std::uint16_t> padded_;  // zero but for the mask's part
  std::vector<std::uint16_t> down_;
  std::vector<std::uint16_t> out_;
  std::vector<std::uint16_t> nothing_;
  std::vector<const std::uint16_t*> rows_;
  std::vector<const std::uint16_t*> shifted_;
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
                    const Kernels& kernels);

// Half the size, half the sigma, one more pixel on each side for the interpolation. Averaging four
// and interpolating add 1/4 + 3/4 square pixels of variance, which the filter leaves out.
Mask blurredByHalves(const Mask& mask, double sigma, double cut, const PixelRect& area,
                     const Kernels& kernels) {
  const PixelRect half{floorHalf(area.x0) - 1, floorHalf(area.y0) - 1, floorHalf(area.x1 + 1) + 1,
                       floorHalf(area.y1 + 1) + 1};
  const double remaining = std::sqrt(sigma * sigma - 1);
  return doubled(blurredInPlace(halved(mask), remaining * 0.5, cut * 0.5, half, kernels), area);
}

Mask blurredInPlace(const Mask& mask, double sigma, double cut, const PixelRect& area,
                    const Kernels& kernels) {
  if (sigma >= kDirectSigma) return blurredByHalves(mask, sigma, cut, area, kernels);
  Mask out(area);
  RowFilter filter(mask, sigma, cut, area.x0, area.x1, kernels);
  for (int y = area.y0; y < area.y1; ++y) std::copy_n(filter.at(y), area.width(), out.row(y));
  return out;
}

}  // namespace

int blurReach(double blurPixels) {
  return static_cast<int>(std::ceil(blurPixels));
}

void blurRows(const Mask& mask, double blurPixels, int dx, int dy, const PixelRect& area,
              const Kernels& kernels, RowSink& sink) {
  const PixelRect source{area.x0 - dx, area.y0 - dy, area.x1 - dx, area.y1 - dy};
  const double sigma = blurPixels * 0.5;
  const CoverageSpan span{0, area.width(), CoverageSpan::kVaries};
  if (sigma < kDirectSigma) {
    RowFilter filter(mask, sigma, blurPixels, source.x0, source.x1, kernels);
    for (int y = area.y0; y < area.y1; ++y) sink.row({y, {&span, 1}, filter.at(y - dy)});
    return;
  }
  const Mask result = blurredByHalves(mask, sigma, blurPixels, source, kernels);
  for (int y = area.y0; y < area.y1; ++y) sink.row({y, {&span, 1}, result.row(y - dy)});
}

}  // namespace glyphwright::raster
