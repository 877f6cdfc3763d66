#include <glyphwright/platform/raster/blur.h>

#include <algorithm>
#include <cmath>

#include <glyphwright/platform/math.h>

namespace glyphwright::raster {
namespace {

// Gaussian weights for −reach…reach as 15-bit fractions that sum to exactly one.
std::vector<std::int16_t> gaussianTaps(double sigma, int reach) {
  std::vector<double> weights(static_cast<std::size_t>(2 * reach + 1));
  double total = 0;
  for (int k = -reach; k <= reach; ++k) {
    const double w = math::expNegative(-(static_cast<double>(k) * k) / (2 * sigma * sigma));
    weights[static_cast<std::size_t>(k + reach)] = w;
    total += w;
  }
  std::vector<std::int16_t> taps(weights.size());
  int sum = 0;
  for (std::size_t i = 0; i < taps.size(); ++i) {
    taps[i] = static_cast<std::int16_t>(weights[i] / total * kOne + 0.5);
    sum += taps[i];
  }
  // The rounding's remainder goes to the middle, where it weighs least.
  auto& middle = taps[static_cast<std::size_t>(reach)];
  middle = static_cast<std::int16_t>(middle + kOne - sum);
  return taps;
}

// Filters rows of `mask` from `from` downwards into `out`, tap k reading row y + k − reach.
Mask filteredDown(const Mask& mask, const std::vector<std::int16_t>& taps, int reach, int y0,
                  int y1) {
  Mask out({mask.bounds.x0, y0, mask.bounds.x1, y1});
  const auto width = static_cast<std::size_t>(mask.bounds.width());
  std::vector<const std::uint16_t*> rows;
  std::vector<std::int16_t> used;
  for (int y = y0; y < y1; ++y) {
    rows.clear();
    used.clear();
    for (int k = -reach; k <= reach; ++k) {
      if (y + k < mask.bounds.y0 || y + k >= mask.bounds.y1) continue;
      rows.push_back(mask.row(y + k));
      used.push_back(taps[static_cast<std::size_t>(k + reach)]);
    }
    kernels().filter(out.row(y), rows.data(), used.data(), rows.size(), width);
  }
  return out;
}

// Filters along each row: the same row, shifted tap by tap, over a border of zeros.
Mask filteredAcross(const Mask& mask, const std::vector<std::int16_t>& taps, int reach, int x0,
                    int x1) {
  Mask out({x0, mask.bounds.y0, x1, mask.bounds.y1});
  const auto width = static_cast<std::size_t>(x1 - x0);
  std::vector<std::uint16_t> padded(width + static_cast<std::size_t>(2 * reach));
  std::vector<const std::uint16_t*> shifted;
  for (int k = 0; k <= 2 * reach; ++k) shifted.push_back(padded.data() + k);
  const int from = std::max(mask.bounds.x0, x0 - reach);
  const int until = std::min(mask.bounds.x1, x1 + reach);
  if (from >= until) return out;
  for (int y = mask.bounds.y0; y < mask.bounds.y1; ++y) {
    std::copy_n(mask.row(y) + (from - mask.bounds.x0), until - from,
                padded.begin() + (from - (x0 - reach)));
    kernels().filter(out.row(y), shifted.data(), taps.data(), taps.size(), width);
  }
  return out;
}

Mask filtered(const Mask& mask, double sigma, double cut, const PixelRect& area) {
  const int reach = static_cast<int>(std::floor(cut));
  if (reach == 0) {
    Mask copy(area);
    const PixelRect common = intersection(mask.bounds, area);
    for (int y = common.y0; y < common.y1; ++y) {
      std::copy_n(mask.row(y) + (common.x0 - mask.bounds.x0), std::max(common.width(), 0),
                  copy.row(y) + (common.x0 - area.x0));
    }
    return copy;
  }
  const std::vector<std::int16_t> taps = gaussianTaps(sigma, reach);
  // Down first: only the rows and columns that the result needs.
  const Mask down = filteredDown(mask, taps, reach, area.y0, area.y1);
  return filteredAcross(down, taps, reach, area.x0, area.x1);
}

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

Mask blurredInPlace(const Mask& mask, double sigma, double cut, const PixelRect& area) {
  if (sigma < kDirectSigma) return filtered(mask, sigma, cut, area);
  // Half the size, half the sigma, one more pixel on each side for the interpolation. Averaging
  // four and interpolating add 1/4 + 3/4 square pixels of variance, which the filter leaves out.
  const PixelRect half{floorHalf(area.x0) - 1, floorHalf(area.y0) - 1, floorHalf(area.x1 + 1) + 1,
                       floorHalf(area.y1 + 1) + 1};
  const double remaining = std::sqrt(sigma * sigma - 1);
  return doubled(blurredInPlace(halved(mask), remaining * 0.5, cut * 0.5, half), area);
}

}  // namespace

int blurReach(double blurPixels) {
  return static_cast<int>(std::ceil(blurPixels));
}

Mask blurred(const Mask& mask, double blurPixels, int dx, int dy, const PixelRect& area) {
  const PixelRect source{area.x0 - dx, area.y0 - dy, area.x1 - dx, area.y1 - dy};
  if (mask.bounds.isEmpty() || area.isEmpty()) return Mask(area);
  Mask result = blurredInPlace(mask, blurPixels * 0.5, blurPixels, source);
  result.bounds = area;
  return result;
}

}  // namespace glyphwright::raster
