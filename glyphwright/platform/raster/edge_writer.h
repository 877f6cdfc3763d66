#pragma once

#include <algorithm>
#include <utility>

#include <glyphwright/platform/raster/edges.h>

/// What turns lines into edges of a region; for those that flatten paths and outlines.
namespace glyphwright::raster {

/// Collects edges, relative to the region.
class EdgeWriter {
 public:
  EdgeWriter(EdgeList& out, const PixelRect& region, const Kernels& kernels)
      : out_(out),
        kernels_(kernels),
        left_(region.x0),
        top_(region.y0),
        width_(region.width()),
        height_(region.height()) {
    out.region = region;
    out.beyondLeft = out.beyondRight = 0;
    out.sums.clear();
  }
  EdgeWriter(const EdgeWriter&) = delete;
  EdgeWriter& operator=(const EdgeWriter&) = delete;
  ~EdgeWriter() {
    out_.count = count_;
    out_.verticalRuns = runs_;
  }

 protected:
  void makeRoom(std::size_t edges) {
    if (std::min(out_.storage.size(), out_.most) < count_ + edges) grow(edges);
  }
  void startRuns() { direction_ = 0; }
  // Needs room. Level edges leave nothing behind; which ones are level nobody can foretell, so
  // this does without a branch.
  void push(float x0, int y0, float x1, int y1) {
    out_.storage[count_] = {x0, x1, y0, y1};
    count_ += y0 != y1 ? 1 : 0;
    note(y0, y1);
  }
  // Counts a run where an edge from y0 to y1 turns against the one before it.
  template <typename T>
  void note(T y0, T y1) {
    const int direction = (y1 > y0 ? 1 : 0) - (y1 < y0 ? 1 : 0);
    runs_ += static_cast<int>(direction != 0) & static_cast<int>(direction != direction_);
    direction_ = direction != 0 ? direction : direction_;
  }

  EdgeList& out_;
  const Kernels& kernels_;
  std::size_t count_ = 0;
  double left_;
  double top_;
  double width_;
  double height_;
  int direction_ = 0;  // of the last edge: 1 down, −1 up
  int runs_ = 0;

 private:
  void grow(std::size_t edges) {
    if (count_ > 0 && count_ + edges > out_.most) {
      out_.count = std::exchange(count_, 0);
      out_.addUp(kernels_);
    }
    if (out_.storage.size() < count_ + edges) {
      out_.storage.resize(std::max(count_ + edges, 2 * out_.storage.size()));
    }
  }
};

/// Cuts lines by the region. What lies to the left is pushed to the region's left side, where it
/// still turns the winding of its rows; what lies to the right, above or below has no effect and is
/// dropped.
class CuttingWriter : public EdgeWriter {
 protected:
  using EdgeWriter::EdgeWriter;

  // From a to p, relative to the region.
  void segment(const CGPoint& a, const CGPoint& p) {
    // What is dropped on the right takes part in the count of runs all the same.
    note(a.y, p.y);
    if (isInside(a) && isInside(p)) {
      makeRoom(1);
      pushClamped(a.x, a.y, p.x, p.y);
      return;
    }
    if ((a.y <= 0 && p.y <= 0) || (a.y >= height_ && p.y >= height_) || a.y == p.y) return;
    makeRoom(3);
    const double slope = (p.x - a.x) / (p.y - a.y);
    const auto xAt = [&](double y) { return a.x + (y - a.y) * slope; };
    // The part inside the rows.
    double ya = std::clamp(a.y, 0.0, height_);
    const double yb = std::clamp(p.y, 0.0, height_);
    double xa = ya == a.y ? a.x : xAt(ya);
    const double xb = yb == p.y ? p.x : xAt(yb);
    // Split where it crosses the sides, in running order.
    double crossings[2];
    int crossed = 0;
    for (const double side : {0.0, width_}) {
      if ((xa < side && xb > side) || (xa > side && xb < side)) {
        const double at = a.y + (side - a.x) / slope;
        crossings[crossed++] = std::clamp(at, std::min(ya, yb), std::max(ya, yb));
      }
    }
    if (crossed == 2 && xa > xb) std::swap(crossings[0], crossings[1]);
    for (int i = 0; i < crossed; ++i) {
      const double xc = xAt(crossings[i]);
      pushClamped(xa, ya, xc, crossings[i]);
      xa = xc;
      ya = crossings[i];
    }
    pushClamped(xa, ya, xb, yb);
  }

  bool isInside(const CGPoint& p) const {
    return p.x >= 0 && p.x <= width_ && p.y >= 0 && p.y <= height_;
  }

  static int units(double y) { return static_cast<int>(y * kUnitsPerPixel + 0.5); }

  void pushClamped(double xa, double ya, double xb, double yb) {
    const int from = units(ya);
    const int to = units(yb);
    if (from == to || (xa >= width_ && xb >= width_)) return;
    push(static_cast<float>(std::clamp(xa, 0.0, width_)), from,
         static_cast<float>(std::clamp(xb, 0.0, width_)), to);
  }
};

}  // namespace glyphwright::raster
