#pragma once

#include <cstddef>
#include <limits>

#include <glyphwright/platform/raster/kernels.h>

/// Two points at a time, x and y side by side.
namespace glyphwright::raster::loops {
namespace {

/// Odd and even points grow boxes of their own: no comparison waits for the one before it.
template <typename L>
class BoxBuilder {
 public:
  using Doubles = typename L::Doubles;
  /// NaN loses every comparison, and so leaves no mark but this one.
  void add(Doubles two) {
    low_ = min(two, low_);
    high_ = max(two, high_);
    unordered_ = unordered_ | ~(two == two);  // NOLINT(misc-redundant-expression): NaN is not
  }
  PointBox box() const {
    double low[4];
    double high[4];
    store(low, min(secondHalves(low_, low_), low_));
    store(high, max(secondHalves(high_, high_), high_));
    return {low[0], low[1], high[0], high[1], !isZero(unordered_)};
  }

 private:
  Doubles low_ = Doubles::every(std::numeric_limits<double>::infinity());
  Doubles high_ = Doubles::every(-std::numeric_limits<double>::infinity());
  // Each equals itself, so that this is nothing. NOLINTNEXTLINE(misc-redundant-expression)
  decltype(low_ == low_) unordered_ = ~(low_ == low_);
};

/// The last of an odd number of points counts twice.
template <typename L>
PointBox boxPoints(const double* points, std::size_t count) {
  using Doubles = typename L::Doubles;
  BoxBuilder<L> builder;
  std::size_t i = 0;
  for (; i + 2 <= count; i += 2) builder.add(Doubles::load(points + 2 * i));
  const double* last = points + 2 * i;
  if (i < count) builder.add(L::template loadHalves<Doubles>(last, last));
  return builder.box();
}

template <typename L>
PointBox mapPoints(const double* points, std::size_t count, const double* m, double* mapped) {
  using Doubles = typename L::Doubles;
  BoxBuilder<L> builder;
  const double straightParts[] = {m[0], m[3], m[0], m[3]};
  const double crossedParts[] = {m[2], m[1], m[2], m[1]};
  const Doubles straight = Doubles::load(straightParts);
  const Doubles crossed = Doubles::load(crossedParts);
  const Doubles shift = L::template loadHalves<Doubles>(m + 4, m + 4);
  const auto map = [&](Doubles p) {
    const Doubles at = straight * p + crossed * swapped(p) + shift;
    builder.add(at);
    return at;
  };
  std::size_t i = 0;
  for (; i + 2 <= count; i += 2) store(mapped + 2 * i, map(Doubles::load(points + 2 * i)));
  if (i < count) {
    double last[4];
    store(last, map(L::template loadHalves<Doubles>(points + 2 * i, points + 2 * i)));
    mapped[2 * i] = last[0];
    mapped[2 * i + 1] = last[1];
  }
  return builder.box();
}

}  // namespace
}  // namespace glyphwright::raster::loops
