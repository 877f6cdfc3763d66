#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include <glyphwright/platform/raster/cells.h>
#include <glyphwright/platform/raster/edge_writer.h>
#include <glyphwright/platform/raster/stroke.h>

namespace glyphwright::raster {
namespace {

// An outline that reaches no farther beyond the region than this is not cut: a fitted icon's
// outline nearly always leaves it by half the pen.
constexpr int kBeyond = kBlock;

// Beyond this many pixels only the direction counts.
constexpr float kFarthest = 1e9F;

bool isNear(const DeviceBox& box, const PixelRect& region) {
  return box.minX >= region.x0 - kBeyond && box.minY >= region.y0 - kBeyond &&
         box.maxX <= region.x1 + kBeyond && box.maxY <= region.y1 + kBeyond;
}

// Runs round the rings of an outline that is not cut, eight corners at a time.
class WholeRings : public EdgeWriter {
 public:
  WholeRings(EdgeList& out, const PixelRect& region, const DeviceBox& box,
             const StrokeOutline& outline, const Kernels& kernels)
      : EdgeWriter(out, region), outline_(outline), kernels_(kernels) {
    out.beyondLeft = box.minX < region.x0 ? kBeyond : 0;
    out.beyondRight = std::max(static_cast<int>(std::ceil(box.maxX)) - region.x1, 0);
    shift_ = {static_cast<float>(outline.originX - region.x0 + out.beyondLeft),
              static_cast<float>(outline.originY - region.y0)};
  }

  void contour(const StrokeOutline::Contour& c) {
    const OutlineSide& left = outline_.left;
    const OutlineSide& right = outline_.right;
    if (c.isClosed) {
      // With the corner that stands once more at the end.
      if (c.leftBegin < c.leftEnd) join(left, c.leftBegin, c.leftEnd + 1, false);
      if (c.rightBegin < c.rightEnd) join(right, c.rightBegin, c.rightEnd + 1, true);
      return;
    }
    join(left, c.leftBegin, c.leftEnd, false);
    join(right, c.rightBegin, c.rightEnd, true);
    cross(left, right, c.leftEnd - 1, c.rightEnd - 1);
    cross(right, left, c.rightBegin, c.leftBegin);
  }

 private:
  static constexpr std::size_t kEight = 8;

  void join(const OutlineSide& side, std::size_t begin, std::size_t end, bool backwards) {
    makeRoom(end - begin + kEight);
    runs_ += 2 * kernels_.joinRing(side.x.data() + begin, side.y.data() + begin, end - begin,
                                   shift_, backwards, out_.storage.data() + count_);
    count_ += end - begin - 1;
  }

  // From side to side at the end of an open contour.
  void cross(const OutlineSide& from, const OutlineSide& to, std::size_t i, std::size_t j) {
    const float x[] = {from.x[i], to.x[j]};
    const float y[] = {from.y[i], to.y[j]};
    makeRoom(1);
    runs_ += 2 * kernelSets().back().loops().joinRing(x, y, 2, shift_, false,
                                                      out_.storage.data() + count_);
    ++count_;
  }

  const StrokeOutline& outline_;
  const Kernels& kernels_;
  RingShift shift_;
};

// The same where the region cuts the outline: lines that leave it are cut one by one.
class CutRings : public CuttingWriter {
 public:
  CutRings(EdgeList& out, const PixelRect& region, StrokeOutline& outline, const Kernels& kernels)
      : CuttingWriter(out, region),
        kernels_(kernels),
        outline_(outline),
        frame_{static_cast<float>(outline.originX - region.x0),
               static_cast<float>(outline.originY - region.y0), static_cast<float>(region.width()),
               static_cast<float>(region.height())} {}

  void contour(const StrokeOutline::Contour& c) {
    const Stretch left{&outline_.left, c.leftBegin, c.leftEnd, false};
    const Stretch right{&outline_.right, c.rightBegin, c.rightEnd, true};
    if (c.isClosed) {
      ring(left, {});
      ring(right, {});
    } else {
      ring(left, right);
    }
  }

 private:
  // Corners of one side, run through from either end.
  struct Stretch {
    const OutlineSide* side = nullptr;
    std::size_t begin = 0;
    std::size_t end = 0;
    bool backwards = false;

    std::size_t size() const { return end - begin; }
    std::size_t at(std::size_t i) const { return backwards ? end - 1 - i : begin + i; }
  };

  void ring(const Stretch& first, const Stretch& second) {
    const std::size_t corners = first.size() + second.size();
    if (corners == 0) return;
    makeCornerRoom(corners + 1);
    const std::size_t masks = (first.size() + kEight - 1) / kEight;
    const bool firstLeaves = place(first, 0, 0);
    const bool secondLeaves = second.size() > 0 && place(second, first.size(), masks);
    out_.cornerX[corners] = out_.cornerX[0];
    out_.cornerY[corners] = out_.cornerY[0];
    if (firstLeaves || secondLeaves) {
      cutRing(first, second);
    } else {
      join(0, corners);
    }
  }

  // True when a corner lies outside the region.
  bool place(const Stretch& s, std::size_t to, std::size_t mask) {
    std::uint8_t* outside = outline_.outside.data() + mask;
    kernels_.placeCorners(s.side->x.data() + s.begin, s.side->y.data() + s.begin, s.size(),
                          s.backwards, frame_,
                          {out_.cornerX.data() + to, out_.cornerY.data() + to, outside});
    unsigned any = 0;
    for (std::size_t i = 0; i < (s.size() + kEight - 1) / kEight; ++i) any |= outside[i];
    return any != 0;
  }

  // Edges of the placed corners `first` to `last`.
  void join(std::size_t first, std::size_t last) {
    makeRoom(last - first + kEight);
    runs_ += 2 * kernels_.joinCorners(out_.cornerX.data() + first, out_.cornerY.data() + first,
                                      last - first + 1, out_.storage.data() + count_);
    count_ += last - first;
  }

  void cutRing(const Stretch& first, const Stretch& second) {
    const std::size_t corners = first.size() + second.size();
    const std::size_t masks = (first.size() + kEight - 1) / kEight;
    const auto isInside = [&](std::size_t i) {
      if (i == corners) i = 0;
      const std::size_t bit = i < first.size() ? i : i - first.size() + masks * kEight;
      return (outline_.outside[bit / kEight] >> bit % kEight & 1) == 0;
    };
    const auto cornerAt = [&](std::size_t i) {
      if (i == corners) i = 0;
      const Stretch& s = i < first.size() ? first : second;
      const std::size_t at = s.at(i < first.size() ? i : i - first.size());
      return CGPoint{s.side->x[at] + frame_.shiftX, s.side->y[at] + frame_.shiftY};
    };
    bool wasDown = false;
    for (std::size_t i = 0; i < corners;) {
      std::size_t last = i;
      if (isInside(i)) {
        while (last < corners && isInside(last + 1)) ++last;
      }
      if (last > i) {
        join(i, last);
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
  void makeCornerRoom(std::size_t corners) {
    const std::size_t wanted = corners + 2 * kEight;
    // The one that grows last tells.
    if (out_.cornerY.size() < wanted) {
      out_.cornerX.resize(2 * wanted);
      out_.cornerY.resize(2 * wanted);
    }
    const std::size_t masks = corners / kEight + 4;  // of two stretches
    if (outline_.outside.size() < masks) outline_.outside.resize(2 * masks);
  }

  static constexpr std::size_t kEight = 8;

  const Kernels& kernels_;
  StrokeOutline& outline_;
  CornerFrame frame_;
};

// Measures what runs down and what runs up through each row of pixels.
class RowRuns {
 public:
  // `changes` is working memory: from row to row, by how much it changes what runs up and what runs
  // down, in units.
  RowRuns(int rows, std::vector<int>& changes) : bottom_(rows * kUnitsPerPixel), changes_(changes) {
    changes.assign(2 * static_cast<std::size_t>(rows) + 4, 0);
  }

  // Edges that follow one another make a run, in whichever order they stand; few are put down.
  void add(const Edge& e) {
    if (e.y0 == e.y1) return;
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

const StrokeSegments& SegmentMemory::roomFor(std::size_t count) {
  const std::size_t wanted = count + 16;
  if (cubics_.size() >= wanted) return lists_;
  // All or nothing: what is known of segments is not needed any more, and what throws has changed
  // nothing.
  const std::size_t room = 2 * wanted;
  std::vector<StrokeCubic> cubics(room);
  std::vector<float> values(8 * room);
  std::vector<std::int32_t> chords(room);
  std::vector<StrokeNode> nodes(room);
  cubics_ = std::move(cubics);
  values_ = std::move(values);
  chords_ = std::move(chords);
  nodes_ = std::move(nodes);
  float* v = values_.data();
  lists_ = {.cubics = cubics_.data(),
            .startX = v,
            .startY = v + room,
            .startAlongX = v + 2 * room,
            .startAlongY = v + 3 * room,
            .endAlongX = v + 4 * room,
            .endAlongY = v + 5 * room,
            .startReach = v + 6 * room,
            .endReach = v + 7 * room,
            .chords = chords_.data()};
  return lists_;
}

std::size_t SegmentMemory::keptBytes() const {
  return cubics_.capacity() * sizeof(StrokeCubic) + values_.capacity() * sizeof(float) +
         chords_.capacity() * sizeof(std::int32_t) + nodes_.capacity() * sizeof(StrokeNode);
}

void OutlineSide::grow(std::size_t corners) {
  const std::size_t wanted = 2 * (count + corners);
  x.resize(wanted + kMargin);
  y.resize(wanted + kMargin);
  room = wanted;  // when both have it
}

void setOrigin(StrokeOutline& outline, const DeviceBox& box, const PixelRect& bitmap) {
  const auto origin = [](double low, double high, double from, double to) {
    const double seen = std::clamp((low + high) * 0.5, from, to);
    return std::floor(std::clamp(seen, low, std::max(low, high)));
  };
  outline.originX = origin(box.minX, box.maxX, bitmap.x0, bitmap.x1);
  outline.originY = origin(box.minY, box.maxY, bitmap.y0, bitmap.y1);
}

DeviceBox boxOf(StrokeOutline& outline, const Kernels& kernels) {
  constexpr float infinity = std::numeric_limits<float>::infinity();
  CornerBox box{infinity, infinity, -infinity, -infinity, false};
  const auto add = [&](const OutlineSide& side) {
    constexpr std::size_t from = OutlineSide::kMargin;
    if (side.count <= from) return;  // may not even have memory
    const CornerBox part =
        kernels.boxCorners(side.x.data() + from, side.y.data() + from, side.count - from);
    box = {std::min(box.minX, part.minX), std::min(box.minY, part.minY),
           std::max(box.maxX, part.maxX), std::max(box.maxY, part.maxY), box.hasNaN || part.hasNaN};
  };
  // Corners that belong to no contour lie on the area of one.
  add(outline.left);
  add(outline.right);
  if (box.hasNaN) return {NAN, NAN, NAN, NAN};
  if (std::max(std::max(-box.minX, -box.minY), std::max(box.maxX, box.maxY)) > kFarthest) {
    for (OutlineSide* side : {&outline.left, &outline.right}) {
      for (float& v : side->x) v = std::clamp(v, -kFarthest, kFarthest);
      for (float& v : side->y) v = std::clamp(v, -kFarthest, kFarthest);
    }
    for (float* v : {&box.minX, &box.minY, &box.maxX, &box.maxY}) {
      *v = std::clamp(*v, -kFarthest, kFarthest);
    }
  }
  return {box.minX + outline.originX, box.minY + outline.originY, box.maxX + outline.originX,
          box.maxY + outline.originY};
}

void edgesOfOutline(StrokeOutline& outline, const DeviceBox& box, const PixelRect& region,
                    const Kernels& kernels, EdgeList& out) {
  if (isNear(box, region)) {
    WholeRings rings(out, region, box, outline, kernels);
    for (const StrokeOutline::Contour& c : outline.contours) rings.contour(c);
  } else {
    CutRings rings(out, region, outline, kernels);
    for (const StrokeOutline::Contour& c : outline.contours) rings.contour(c);
  }
  // A stroke has a run on either side of each of the path's, but they seldom lie abreast.
  if (out.verticalRuns / 2 <= kNarrowWindingLimit) return;
  RowRuns runs(region.height(), outline.rowRuns);
  for (const Edge& e : out.edges()) runs.add(e);
  out.verticalRuns = std::min(out.verticalRuns, 2 * runs.most());
}

}  // namespace glyphwright::raster
