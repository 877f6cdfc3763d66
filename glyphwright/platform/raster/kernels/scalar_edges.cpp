#include <glyphwright/platform/raster/kernels/scalar.h>

#include <algorithm>
#include <cmath>
#include <limits>

// From points to cells.
namespace glyphwright::raster::scalar {

namespace {

// Odd and even points grow boxes of their own: no comparison waits for the one before it, and
// which of −0 and +0 is kept does not depend on how many points are looked at together.
class BoxBuilder {
 public:
  void add(std::size_t i, double x, double y) {
    PointBox& box = boxes_[i % 2];
    box.minX = x < box.minX ? x : box.minX;
    box.minY = y < box.minY ? y : box.minY;
    box.maxX = x > box.maxX ? x : box.maxX;
    box.maxY = y > box.maxY ? y : box.maxY;
    box.hasNaN |= x != x || y != y;
  }
  // `count` points have been added; the last of an odd number counts on both sides.
  PointBox box(std::size_t count, double lastX, double lastY) {
    if (count % 2 != 0) add(count, lastX, lastY);
    const auto& [even, odd] = boxes_;
    return {odd.minX < even.minX ? odd.minX : even.minX,
            odd.minY < even.minY ? odd.minY : even.minY,
            odd.maxX > even.maxX ? odd.maxX : even.maxX,
            odd.maxY > even.maxY ? odd.maxY : even.maxY, even.hasNaN || odd.hasNaN};
  }

 private:
  static constexpr double kInfinity = std::numeric_limits<double>::infinity();
  static constexpr PointBox kNothing{kInfinity, kInfinity, -kInfinity, -kInfinity, false};
  PointBox boxes_[2]{kNothing, kNothing};
};

}  // namespace

PointBox boxPoints(const double* points, std::size_t count) {
  BoxBuilder builder;
  for (std::size_t i = 0; i < count; ++i) builder.add(i, points[2 * i], points[2 * i + 1]);
  if (count == 0) return builder.box(0, 0, 0);
  return builder.box(count, points[2 * count - 2], points[2 * count - 1]);
}

PointBox mapPoints(const double* points, std::size_t count, const double* m, double* mapped) {
  for (std::size_t i = 0; i < count; ++i) {
    const double x = points[2 * i];
    const double y = points[2 * i + 1];
    mapped[2 * i] = m[0] * x + m[2] * y + m[4];
    mapped[2 * i + 1] = m[1] * x + m[3] * y + m[5];
  }
  return boxPoints(mapped, count);
}

namespace {

// |p''| ≤ 6·bend, and a chord over a parameter step h strays by at most h²·|p''|/8: the count of
// chords goes with the root of the bend, and so with the fourth root of its square. Up to eight,
// which is nearly always, comparing is faster than roots.
std::uint32_t chordCount(float chords4) {
  constexpr float kFourthPowers[] = {1, 16, 81, 256, 625, 1296, 2401, 4096};
  std::uint32_t count = 1;
  for (const float power : kFourthPowers) count += chords4 >= power ? 1 : 0;
  if (count <= 8) return count;
  const float root = std::sqrt(std::sqrt(chords4));
  return root < kMaxChords - 1 ? static_cast<std::uint32_t>(root) + 1 : kMaxChords;
}

// A cubic relative to the region, and its second differences.
struct Cubic {
  Cubic(const double* points, const CurveFrame& frame) {
    for (int i = 0; i < 8; i += 2) {
      p[i] = static_cast<float>(points[i] - frame.left);
      p[i + 1] = static_cast<float>(points[i + 1] - frame.top);
    }
    for (int i = 0; i < 2; ++i) {
      u[i] = p[i] - 2.0F * p[2 + i] + p[4 + i];
      v[i] = p[2 + i] - 2.0F * p[4 + i] + p[6 + i];
    }
  }

  float p[8];
  float u[2];
  float v[2];
};

}  // namespace

void countChords(Curve* curves, std::size_t count, const double* points, const CurveFrame& frame) {
  for (std::size_t i = 0; i < count; ++i) {
    const auto [p, u, v] = Cubic(points + std::size_t{2} * curves[i].point, frame);
    const float bendSquare = std::max(u[0] * u[0] + u[1] * u[1], v[0] * v[0] + v[1] * v[1]);
    curves[i].chords = chordCount(bendSquare * frame.chordFactor);
  }
}

// p(t) = a·t³ + b·t² + c·t + p0. Chords of a curve lose area to its hollow side; moving the inner
// points by −h²·p''/12 gives it back, and folds into the two lower coefficients because
// p'' = 6a·t + 2b is linear in t.
void sampleCurves(const Curve* curves, std::size_t count, const double* points,
                  const CurveFrame& frame, float* xs, std::int32_t* ys) {
  for (std::size_t n = 0; n < count; ++n) {
    const Curve& curve = curves[n];
    const auto [p, u, v] = Cubic(points + std::size_t{2} * curve.point, frame);
    const float h = 1.0F / static_cast<float>(curve.chords);
    float a[2];
    float b[2];
    float c[2];
    float start[2];
    for (int i = 0; i < 2; ++i) {
      a[i] = v[i] - u[i];
      b[i] = 3.0F * u[i];
      c[i] = 3.0F * (p[2 + i] - p[i]) - a[i] * (h * h * 0.5F);
      start[i] = p[i] - u[i] * (h * h * 0.5F);
    }
    for (std::uint32_t k = 0; k < curve.chords; ++k) {
      const float t = static_cast<float>(k + 1) * h;
      const float x = ((a[0] * t + b[0]) * t + c[0]) * t + start[0];
      const float y = ((a[1] * t + b[1]) * t + c[1]) * t + start[1];
      // A sample that was moved out of a hollow may pass the region's side by a hair.
      xs[curve.corner + k] = std::min(std::max(x, 0.0F), frame.width);
      ys[curve.corner + k] =
          std::clamp(static_cast<int>(y * kUnitsPerPixel + 0.5F), 0, frame.height);
    }
  }
}

void placeEnds(const Segment* segments, std::size_t count, const double* points,
               const CurveFrame& frame, float* xs, std::int32_t* ys) {
  for (std::size_t i = 0; i < count; ++i) {
    const auto [point, corner] = segments[i];
    const double* p = points + std::size_t{2} * point;
    xs[corner] = std::clamp(static_cast<float>(p[0] - frame.left), 0.0F, frame.width);
    const int units = static_cast<int>((p[1] - frame.top) * kUnitsPerPixel + 0.5);
    ys[corner] = std::clamp(units, 0, frame.height);
  }
}

int joinCorners(const float* x, const std::int32_t* y, std::size_t count, Edge* edges) {
  int runs = 0;
  bool wasDown = false;
  for (std::size_t i = 0; i + 1 < count; ++i) {
    edges[i] = {x[i], x[i + 1], y[i], y[i + 1]};
    const bool isDown = y[i + 1] > y[i];
    runs += isDown && !wasDown ? 1 : 0;
    wasDown = isDown;
  }
  return runs;
}

void cutEdges(EdgeRows& rows, Pieces& p) {
  p.count = 0;
  for (; rows.next < rows.count; ++rows.next, rows.nextRow = 0) {
    const Edge& edge = rows.edges[rows.next];
    if (edge.y0 == edge.y1) continue;
    const bool down = edge.y0 < edge.y1;
    const float x0 = down ? edge.x0 : edge.x1;
    const float x1 = down ? edge.x1 : edge.x0;
    const int y0 = (down ? edge.y0 : edge.y1) - rows.top;
    const int y1 = (down ? edge.y1 : edge.y0) - rows.top;
    const float slope = (x1 - x0) / static_cast<float>(y1 - y0);
    const int first = std::max(std::max(y0 >> kUnitShift, 0), rows.nextRow);
    const int last = std::min((y1 - 1) >> kUnitShift, rows.rows - 1);
    for (int row = first; row <= last; ++row) {
      if (p.count + 8 > Pieces::kCapacity && (row - first) % 8 == 0) {
        rows.nextRow = row;
        return;
      }
      const int top = std::max(row << kUnitShift, y0);
      const int bottom = std::min((row + 1) << kUnitShift, y1);
      // Rounding may carry x past the edge's ends by a hair, which the cells' margin takes.
      p.xa[p.count] = x0 + static_cast<float>(top - y0) * slope;
      p.xb[p.count] = bottom == y1 ? x1 : x0 + static_cast<float>(bottom - y0) * slope;
      p.cover[p.count] = down ? bottom - top : top - bottom;
      p.cell[p.count] = row * rows.stride + rows.left;
      ++p.count;
    }
  }
}

// A piece from xa to xb covers `cover` units of its row. With x counted from the left side of the
// pixel where the piece begins, that pixel is covered to the right of the piece, by 1 − x on
// average over the piece; but where the piece has run on into the next pixel (x above 1), the first
// one loses nothing more, and the next one loses x − 1, until the one after that does. Sums are
// rounded, not changes, and the last one is the cover itself, so a row's total is exact.
void cellAmounts(Pieces& p) {
  for (std::size_t i = 0; i < p.count; ++i) {
    const float low = std::min(p.xa[i], p.xb[i]);
    const float high = std::max(p.xa[i], p.xb[i]);
    const int first = static_cast<int>(low);
    const float a = low - static_cast<float>(first);
    const float b = high - static_cast<float>(first);
    // An upright piece has no width, and is never past.
    const float perLength = 0.5F / std::max(b - a, 1e-9F);
    const auto meanPast = [&](float x) {
      const float past = std::max(b - x, 0.0F);
      return past * past * perLength;
    };
    const float past1 = meanPast(1);
    const float past2 = meanPast(2);
    const int sign = p.cover[i] < 0 ? -1 : 1;
    const int cover = p.cover[i] * sign;
    const auto height = static_cast<float>(cover);
    const auto units = [&](float share) { return static_cast<int>(height * share + 0.5F); };
    const int sum0 = units(1.0F - (a + b) * 0.5F + past1);
    const int sum1 = cover - units(past1 - past2);
    const int sum2 = cover - units(past2);
    const bool isWide = high - low > kPieceCells - 2;
    const int kept = isWide ? 0 : sign;
    if (i % 8 == 0) p.wide[i / 8] = 0;
    p.wide[i / 8] = static_cast<std::uint8_t>(p.wide[i / 8] | (isWide ? 1 << i % 8 : 0));
    p.cell[i] += first;
    p.amounts[i][0] = static_cast<std::int16_t>(kept * sum0);
    p.amounts[i][1] = static_cast<std::int16_t>(kept * (sum1 - sum0));
    p.amounts[i][2] = static_cast<std::int16_t>(kept * (sum2 - sum1));
    p.amounts[i][3] = static_cast<std::int16_t>(kept * (cover - sum2));
  }
}

void addPieces(const Pieces& p, std::int16_t* cells, std::uint8_t* touched) {
  for (std::size_t i = 0; i < p.count; ++i) {
    std::int16_t* cell = cells + p.cell[i];
    for (int k = 0; k < kPieceCells; ++k) {
      cell[k] = static_cast<std::int16_t>(cell[k] + p.amounts[i][k]);
    }
    if (touched == nullptr) continue;
    touched[p.cell[i] >> kBlockShift] = 1;
    touched[(p.cell[i] + kPieceCells - 1) >> kBlockShift] = 1;
  }
}

}  // namespace glyphwright::raster::scalar
