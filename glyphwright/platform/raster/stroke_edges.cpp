#include <glyphwright/platform/raster/stroke_edges.h>

#include <algorithm>
#include <cmath>

#include <glyphwright/platform/raster/cells.h>

namespace glyphwright::raster {
namespace {

// An outline that reaches no farther beyond the region than this is not cut: a fitted icon's
// outline nearly always leaves it by half the pen.
constexpr int kBeyond = kBlock;

constexpr std::size_t kEight = 8;

bool isNear(const DeviceBox& box, const PixelRect& region) {
  return box.minX >= region.x0 - kBeyond && box.minY >= region.y0 - kBeyond &&
         box.maxX <= region.x1 + kBeyond && box.maxY <= region.y1 + kBeyond;
}

// Measures what runs down and what runs up through each row of pixels.
class RowRuns {
 public:
  // `changes` is working memory: from row to row, by how much it changes what runs up and what runs
  // down, in units.
  RowRuns(int rows, std::vector<int>& changes) : bottom_(rows * kUnitsPerPixel), changes_(changes) {
    changes.assign(2 * static_cast<std::size_t>(rows) + 4, 0);
  }

  // Edges that follow one another make a run, in whichever order they stand; few are put down.
  // None may be level.
  void add(const Edge& e) {
    Run& run = runs_[e.y1 > e.y0 ? 1 : 0];
    if (e.y0 == run.end) {
      run.end = e.y1;
    } else if (e.y1 == run.start) {
      run.start = e.y0;
    } else {
      put(run);
      run = {e.y0, e.y1};
    }
  }

  // How often a pixel is wound round at most.
  int most() {
    for (const Run& run : runs_) put(run);
    int now[2] = {0, 0};
    int most = 0;
    for (std::size_t i = 0; i < changes_.size(); ++i) {
      most = std::max(most, now[i % 2] += changes_[i]);
    }
    return (most + kUnitsPerPixel - 1) >> kUnitShift;
  }

 private:
  struct Run {
    int start = 0;
    int end = 0;
  };

  // It begins and ends with parts of a row, and adds whole ones in between.
  void put(const Run& run) {
    const int from = std::clamp(std::min(run.start, run.end), 0, bottom_);
    const int to = std::clamp(std::max(run.start, run.end), 0, bottom_);
    const int inFirst = from & (kUnitsPerPixel - 1);
    const int inLast = to & (kUnitsPerPixel - 1);
    int* const way = changes_.data() + (run.end > run.start ? 1 : 0);
    int* const first = way + 2 * (from >> kUnitShift);
    int* const last = way + 2 * (to >> kUnitShift);
    first[0] += kUnitsPerPixel - inFirst;
    first[2] += inFirst;
    last[0] -= kUnitsPerPixel - inLast;
    last[2] -= inLast;
  }

  int bottom_;
  std::vector<int>& changes_;
  Run runs_[2];  // the last ones up and down
};

}  // namespace

OutlineEdges::OutlineEdges(EdgeList& out, const DeviceBox& box, const PixelRect& region,
                           StrokeOutline& outline, const Kernels& kernels)
    : CuttingWriter(out, region, kernels), isWhole_(isNear(box, region)), outline_(outline) {
  if (isWhole_) {
    out.beyondLeft = box.minX < region.x0 ? kBeyond : 0;
    out.beyondRight = std::max(static_cast<int>(std::ceil(box.maxX)) - region.x1, 0);
  }
  shift_ = {static_cast<float>(outline.originX - region.x0 + out.beyondLeft),
            static_cast<float>(outline.originY - region.y0)};
}

void OutlineEdges::take(StrokeOutline& piece) {
  const OutlineSide& left = piece.left;
  const OutlineSide& right = piece.right;
  for (const StrokeOutline::Contour& c : piece.contours) {
    join(lineOf(left, c.leftBegin, c.leftEnd, false));
    join(lineOf(right, c.rightBegin, c.rightEnd, true));
    if (c.hasEnd) cross(left, c.leftEnd - 1, right, c.rightEnd - 1);
    if (c.hasStart) cross(right, c.rightBegin, left, c.leftBegin);
  }
}

void OutlineEdges::finish() {
  // A stroke has a run on either side of each of the path's, but they seldom lie abreast.
  if (runs_ / 2 <= kNarrowWindingLimit || !out_.sums.empty()) return;
  RowRuns rows(out_.region.height(), outline_.rowRuns);
  for (std::size_t i = 0; i < count_; ++i) {
    const Edge& e = out_.storage[i];
    // Rings of which nothing was dropped run up through each row as far as down.
    if (e.y1 > e.y0 || (!isWhole_ && e.y1 < e.y0)) rows.add(e);
  }
  runs_ = std::min(runs_, 2 * rows.most());
}

void OutlineEdges::join(const Line& line) {
  if (line.count < 2) return;
  if (isWhole_) {
    joinWhole(line);
  } else {
    joinCut(line);
  }
}

// From side to side at the end of an open contour; loops read whole eights.
void OutlineEdges::cross(const OutlineSide& from, std::size_t i, const OutlineSide& to,
                         std::size_t j) {
  const float x[2 * kEight] = {from.x[i], to.x[j]};
  const float y[2 * kEight] = {from.y[i], to.y[j]};
  join({x, y, 2, false});
}

// Eight corners at a time.
void OutlineEdges::joinWhole(const Line& line) {
  makeRoom(line.count + kEight);
  runs_ += 2 * kernels_.joinRing(line.x, line.y, line.count, shift_, line.backwards,
                                 out_.storage.data() + count_);
  count_ += line.count - 1;
}

void OutlineEdges::joinCut(const Line& line) {
  makeCornerRoom(line.count);
  const auto width = static_cast<float>(out_.region.width());
  const auto height = static_cast<float>(out_.region.height());
  std::uint8_t leaves = 0;
  for (std::size_t i = 0; i < line.count; ++i) {
    const std::size_t from = line.backwards ? line.count - 1 - i : i;
    const float x = line.x[from] + shift_.x;
    const float y = line.y[from] + shift_.y;
    const bool isInside = x >= 0 && x <= width && y >= 0 && y <= height;
    out_.cornerX[i] = isInside ? x : 0;
    out_.cornerY[i] = isInside ? static_cast<std::int32_t>(y * kUnitsPerPixel + 0.5F) : 0;
    leaves |= outline_.outside[i] = isInside ? 0 : 1;
  }
  if (leaves != 0) {
    cutLine(line);
  } else {
    joinPlaced(0, line.count - 1);
  }
}

// Edges of the placed corners `first` to `last`.
void OutlineEdges::joinPlaced(std::size_t first, std::size_t last) {
  makeRoom(last - first + kEight);
  runs_ += 2 * kernels_.joinCorners(out_.cornerX.data() + first, out_.cornerY.data() + first,
                                    last - first + 1, out_.storage.data() + count_);
  count_ += last - first;
}

// Edges that leave the region are cut one by one.
void OutlineEdges::cutLine(const Line& line) {
  const auto isInside = [&](std::size_t i) { return outline_.outside[i] == 0; };
  const auto cornerAt = [&](std::size_t i) {
    const std::size_t at = line.backwards ? line.count - 1 - i : i;
    return CGPoint{line.x[at] + shift_.x, line.y[at] + shift_.y};
  };
  bool wasDown = false;
  for (std::size_t i = 0; i + 1 < line.count;) {
    std::size_t last = i;
    if (isInside(i)) {
      while (last + 1 < line.count && isInside(last + 1)) ++last;
    }
    if (last > i) {
      joinPlaced(i, last);
      i = last;
      wasDown = false;
      continue;
    }
    const CGPoint from = cornerAt(i);
    const CGPoint to = cornerAt(++i);
    const bool isDown = to.y > from.y;
    const int runs = runs_ + (isDown && !wasDown ? 2 : 0);
    segment(from, to);
    runs_ = runs;
    wasDown = isDown;
  }
}

// Whole eights are written.
void OutlineEdges::makeCornerRoom(std::size_t corners) {
  const std::size_t wanted = corners + 2 * kEight;
  // The one that grows last tells.
  if (out_.cornerY.size() < wanted) {
    out_.cornerX.resize(2 * wanted);
    out_.cornerY.resize(2 * wanted);
  }
  if (outline_.outside.size() < corners) outline_.outside.resize(2 * corners);
}

}  // namespace glyphwright::raster
