#include <glyphwright/platform/raster/stroke.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <utility>

#include <glyphwright/platform/raster/bent_curve.h>
#include <glyphwright/platform/raster/chords.h>
#include <glyphwright/platform/raster/kernels/folds.h>
#include <glyphwright/platform/raster/stroke_pen.h>
#include <glyphwright/platform/raster/stroke_segments.h>

// Segments are listed as cubics and prepared, then the corners between neighbours are worked out,
// and then each contour is put together: many contours at once, or a long one in parts. All of this
// is in the pen's space; where a stretched pen is no circle on the device, the corners are mapped
// in the end.
namespace glyphwright::raster {
namespace {

using namespace pen;

// A wider pen is beyond all pictures, and its corners would leave the floats' range.
constexpr double kWidest = 2e9;

// A sector of this many tolerances' width is about a sixteenth of a pixel.
constexpr double kSpareFold = 13;

std::array<CGPoint, 4> pointsOf(const double* c) {
  return {{{c[0], c[1]}, {c[2], c[3]}, {c[4], c[5]}, {c[6], c[7]}}};
}

// The direction in which a cubic leaves the first of its points; with a step of −1 the last one.
Vector directionFrom(const CGPoint* p, int step) {
  Vector d{};
  for (int k = 1; k <= 3; ++k) {
    d = {p[k * step].x - p->x, p[k * step].y - p->y};
    if (normalize(d)) break;
  }
  return d;
}

// Puts contours together. What the outline has no room for is handed on in between.
class ContourWriter {
 public:
  ContourWriter(const StrokePen& pen, const SegmentPen& segmentPen, const Stroke& stroke,
                const Kernels& kernels, OutlineSink& sink)
      : pen_(pen),
        segmentPen_(segmentPen),
        bent_(pen, stroke.tolerance),
        sidePen_{segmentPen.half, static_cast<float>(kSpareFold * stroke.tolerance)},
        stroke_(stroke),
        kernels_(kernels),
        sink_(sink),
        out_(pen.outline()),
        s_(out_.segments.lists()) {}

  void write(const PathStretch& contours) {
    prepare(listSegments(contours, out_));
    for (const StrokeOutline::Listed& contour : out_.listed) write(contour);
  }
  // The same for a single contour, however many segments it has.
  void writeLong(const PathStretch& contour);

  // True when nothing has been handed on.
  bool finish() {
    if (!isWhole_) {
      handOn();
    } else {
      mapToDevice();
    }
    return isWhole_;
  }

 private:
  Vector startOf(std::size_t i) const { return {out_.curves[i][0], out_.curves[i][1]}; }
  Vector startAlong(std::size_t i) const { return {s_.startAlongX[i], s_.startAlongY[i]}; }
  Vector endAlong(std::size_t i) const { return {s_.endAlongX[i], s_.endAlongY[i]}; }
  PenPlace start(std::size_t i) const { return {startOf(i), startAlong(i)}; }

  void mapToDevice();
  void handOn();
  void handOnWithin();
  // Between any two steps of a contour.
  void makeRoom() {
    if (out_.isFull()) handOnWithin();
  }

  // Where both sides of a contour begin, or begin again; straight ends may lead across.
  void begin(bool hasStart) { part_ = {out_.left.count, 0, out_.right.count, 0, hasStart, false}; }
  void end(bool hasEnd) {
    // One by one: what has just been stored in parts cannot be read as a whole at once.
    out_.contours.push_back({part_.leftBegin, out_.left.count, part_.rightBegin, out_.right.count,
                             part_.hasStart, hasEnd});
  }
  void close();

  void prepare(std::size_t count);
  void write(const StrokeOutline::Listed& contour);
  void writeOpen(std::size_t first, std::size_t last, CGLineCap cap);
  void endOpen(std::size_t last, const PenPlace& start, CGLineCap cap);
  void putSegments(SegmentRange range);
  void putBent(std::size_t i, const SegmentRange& range);
  void putNode(std::size_t i);

  // A closed line of two points, which covers its own way back.
  bool isThereAndBack(const StrokeOutline::Listed& c) const {
    return c.segmentCount == 2 && s_.chords[c.segment] == 1 && s_.chords[c.segment + 1] == 1 &&
           dot(startAlong(c.segment), startAlong(c.segment + 1)) < -0.999999;
  }

  static void put(OutlineSide& side, const NodeSide& corners) {
    side.makeRoom(4);
    // Four values each, whatever the fourth is.
    std::memcpy(side.x.data() + side.count, &corners, 4 * sizeof(float));
    std::memcpy(side.y.data() + side.count, corners.y, 4 * sizeof(float));
    side.count += static_cast<std::size_t>(corners.count);
  }

  const StrokePen& pen_;
  const SegmentPen& segmentPen_;
  BentCurve bent_;
  SidePen sidePen_;
  const Stroke& stroke_;
  const Kernels& kernels_;
  OutlineSink& sink_;
  StrokeOutline& out_;
  const StrokeSegments& s_;
  std::size_t room_ = 0;  // enough for the corners of all prepared segments on either side
  StrokeOutline::Contour part_{};
  float firstLeft_[2] = {};  // of a contour that has been handed on in part
  float firstRight_[2] = {};
  bool isParted_ = false;
  bool isWhole_ = true;
};

void ContourWriter::mapToDevice() {
  if (stroke_.toDevice == CGAffineTransformIdentity) return;
  CGAffineTransform map = stroke_.toDevice;
  const CGPoint origin =
      CGPointApplyAffineTransform({segmentPen_.originX, segmentPen_.originY}, map);
  map.tx = origin.x - out_.originX;
  map.ty = origin.y - out_.originY;
  mapCorners(out_, map);
}

void ContourWriter::handOn() {
  isWhole_ = false;
  mapToDevice();
  sink_.take(out_);
  out_.clear();
}

// Hands on what there is of a contour, and goes on from its last corners.
void ContourWriter::handOnWithin() {
  OutlineSide& left = out_.left;
  OutlineSide& right = out_.right;
  if (left.count == part_.leftBegin || right.count == part_.rightBegin) return;
  const auto copy = [](const OutlineSide& side, std::size_t i, float* to) {
    to[0] = side.x[i];
    to[1] = side.y[i];
  };
  if (!isParted_) {
    copy(left, part_.leftBegin, firstLeft_);
    copy(right, part_.rightBegin, firstRight_);
    isParted_ = true;
  }
  float lastLeft[2];
  float lastRight[2];
  copy(left, left.count - 1, lastLeft);
  copy(right, right.count - 1, lastRight);
  end(false);
  handOn();
  begin(false);
  left.put(lastLeft[0], lastLeft[1]);
  right.put(lastRight[0], lastRight[1]);
}

// Both sides end where they began.
void ContourWriter::close() {
  const auto putFirst = [&](OutlineSide& side, std::size_t from, const float* first) {
    if (isParted_) {
      side.put(first[0], first[1]);
    } else if (from < side.count) {
      side.put(side.x[from], side.y[from]);
    }
  };
  putFirst(out_.left, part_.leftBegin, firstLeft_);
  putFirst(out_.right, part_.rightBegin, firstRight_);
  end(false);
  isParted_ = false;
}

// Prepares listed segments and what lies between neighbours.
void ContourWriter::prepare(std::size_t count) {
  const StrokeSegments& s = out_.segments.roomFor(count);
  kernels_.prepareSegments(out_.curves.data(), count, segmentPen_, s);
  room_ = 8 * count + 16;
  for (std::size_t i = 0; i < count; ++i) {
    room_ += static_cast<std::size_t>(std::abs(s.chords[i]));
    if (s.chords[i] != 0) continue;
    // Its legs may tell nothing of where it leads.
    const std::array<CGPoint, 4> p = pointsOf(out_.curves[i]);
    const Vector from = directionFrom(&p[0], 1);
    const Vector to = -directionFrom(&p[3], -1);
    s.startAlongX[i] = static_cast<float>(from.x);
    s.startAlongY[i] = static_cast<float>(from.y);
    s.endAlongX[i] = static_cast<float>(to.x);
    s.endAlongY[i] = static_cast<float>(to.y);
    s.startReach[i] = s.endReach[i] = 0;
  }
  kernels_.joinSegments(s, count, pen_.nodePen(), out_.segments.nodeData());
}

void ContourWriter::write(const StrokeOutline::Listed& contour) {
  const std::size_t first = contour.segment;
  const std::size_t last = first + contour.segmentCount;
  if (out_.isFull()) handOn();
  if (first == last) {
    const bool isDisc = contour.isDot && pen_.capStyle() == CGLineCap::round;
    if (isDisc) pen_.disc({contour.start.x, contour.start.y});
  } else if (!contour.isClosed) {
    writeOpen(first, last, pen_.capStyle());
  } else if (isThereAndBack(contour)) {
    // Two joins of half a turn: a miter or bevel ends flat, a round join as a half disc.
    writeOpen(first, first + 1, pen_.foldStyle());
  } else {
    begin(false);
    putSegments({first, last, last - 1, last, true});
    close();
  }
}

void ContourWriter::writeOpen(std::size_t first, std::size_t last, CGLineCap cap) {
  begin(true);
  pen_.across(startOf(first), startAlong(first));
  // There is no node at its end.
  putSegments({first, last - 1, first, last - 1, true});
  putSegments({last - 1, last, last - 1 - (last - 1 > first ? 1 : 0), last - 1, false});
  endOpen(last - 1, start(first), cap);
}

void ContourWriter::endOpen(std::size_t last, const PenPlace& start, CGLineCap cap) {
  const double* point = out_.curves[last] + 6;
  const Vector at{point[0], point[1]};
  pen_.across(at, endAlong(last));
  end(true);
  isParted_ = false;
  pen_.cap(at, endAlong(last), cap);
  pen_.cap(start.at, -start.direction, cap);
}

// With the last two segments of one part the next one begins: what comes before, and what is still
// to be drawn, because its node has been unknown.
void ContourWriter::writeLong(const PathStretch& contour) {
  const std::size_t most = out_.mostSegments;
  out_.raised.resize(std::max(out_.raised.size(), 4 * (most + 1)));
  out_.curves.resize(std::max(out_.curves.size(), most + 8));
  const auto cubic = [&](std::size_t i) { return out_.raised.data() + 4 * i; };
  SegmentReader reader(contour);
  std::size_t count = 1;
  const auto read = [&] {
    while (count < most && reader.read(cubic(count))) ++count;
    return count == most;
  };
  const auto prepareRead = [&] {
    for (std::size_t i = 0; i < count + 7; ++i) out_.curves[i] = &cubic(std::min(i, count - 1))->x;
    prepare(count);
  };
  bool hasMore = read();
  const bool isClosed = contour.verbs.back() == PathVerb::close;
  std::array<CGPoint, 4> first;
  std::copy_n(cubic(1), 4, first.data());
  if (!hasMore) {
    std::copy_n(first.data(), 4, cubic(0));
    const StrokeOutline::Listed listed{*contour.points, 1, count - 1, isClosed, true};
    if (isClosed) std::copy_n(first.data(), 4, cubic(count++));
    prepareRead();
    return write(listed);
  }
  std::size_t before = isClosed ? 0 : 1;
  std::copy_n(cubic(count - 1), 4, cubic(0));
  for (SegmentReader all = reader; isClosed && all.read(cubic(0));) continue;
  prepareRead();
  const PenPlace from = start(1);
  if (out_.isFull()) handOn();
  begin(!isClosed);
  if (!isClosed) pen_.across(from.at, from.direction);
  while (hasMore) {
    putSegments({1, count - 1, before, count - 1, true});
    std::copy_n(cubic(count - 2), 8, cubic(0));
    before = 0;
    count = 2;
    hasMore = read();
    if (!hasMore && isClosed) std::copy_n(first.data(), 4, cubic(count++));
    prepareRead();
  }
  putSegments({1, count - 1, before, count - 1, true});
  if (isClosed) return close();
  putSegments({count - 1, count, count - 2, count - 1, false});
  endOpen(count - 1, from, pen_.capStyle());
}

// Both sides of segments, each followed by its node or not.
void ContourWriter::putSegments(SegmentRange range) {
  OutlineSide& left = out_.left;
  OutlineSide& right = out_.right;
  const bool oneByOne = range.withNodes && pen_.hasRoundJoins();
  const bool withNodes = std::exchange(range.withNodes, range.withNodes && !oneByOne);
  const std::size_t end = range.end;
  const std::size_t after = range.after;
  while (range.first < end) {
    makeRoom();
    left.makeRoom(room_);
    right.makeRoom(room_);
    SideEnds sides{left.endX(), left.endY(), right.endX(), right.endY()};
    range.end = oneByOne ? range.first + 1 : end;
    range.after = range.end == end ? after : range.end;
    const std::size_t reached =
        kernels_.putSides(s_, out_.segments.nodes().data(), range, sidePen_, sides);
    left.endAt(sides.leftX);
    right.endAt(sides.rightX);
    const bool isBent = reached < range.end;
    if (isBent) putBent(reached, range);
    const std::size_t last = isBent ? reached : reached - 1;
    if (withNodes && (oneByOne || isBent)) putNode(last);
    range.first = last + 1;
    range.before = last;
  }
}

void ContourWriter::putBent(std::size_t i, const SegmentRange& range) {
  const loops::Fold fold(s_, out_.segments.nodes().data(), range, i, sidePen_);
  const StrokePen::Hollow hollow = fold.isInsideTwice()    ? StrokePen::Hollow::backwards
                                   : fold.isPartlyInside() ? StrokePen::Hollow::leftOut
                                                           : StrokePen::Hollow::drawn;
  const std::span<const PieceEnd> places =
      bent_.places(pointsOf(out_.curves[i]).data(),
                   {startAlong(i), endAlong(i), s_.startReach[i], s_.endReach[i]});
  StrokePen::Steps steps{places.front().place, hollow};
  for (std::size_t k = 1; k < places.size(); ++k) {
    pen_.step(steps, places[k].place, k + 1 < places.size());
    makeRoom();
  }
}

// The corners between a segment and the next one.
void ContourWriter::putNode(std::size_t i) {
  const StrokeNode& node = out_.segments.nodes()[i];
  if (pen_.hasRoundJoins() && node.left.count + node.right.count > 2) {
    const float reach = std::min(s_.endReach[i], s_.startReach[i + 1]);
    return pen_.join(startOf(i + 1), endAlong(i), startAlong(i + 1),
                     std::max(reach, sidePen_.half * NodePen::kNoise));
  }
  put(out_.left, node.left);
  put(out_.right, node.right);
}

// Where the pen's space is finest: at the outline's own origin, if that can be told.
CGPoint penOrigin(const StrokeOutline& out, const CGAffineTransform& toDevice,
                  const CGPoint& fallback) {
  const CGPoint origin =
      CGPointApplyAffineTransform({out.originX, out.originY}, CGAffineTransformInvert(toDevice));
  const CGPoint back = CGPointApplyAffineTransform(origin, toDevice);
  const bool isThere = std::abs(back.x - out.originX) < 1 && std::abs(back.y - out.originY) < 1;
  return isThere ? origin : fallback;
}

}  // namespace

bool strokeOutline(const CGPath& path, const std::vector<CGPoint>& points, const Stroke& stroke,
                   const Kernels& kernels, StrokeOutline& out, OutlineSink& sink) {
  out.clear();
  if (path.isEmpty()) return true;
  const CGPoint origin = stroke.toDevice == CGAffineTransformIdentity
                             ? CGPoint{out.originX, out.originY}
                             : penOrigin(out, stroke.toDevice, points[0]);
  const StrokePen pen(std::min(stroke.width, kWidest), stroke.style, stroke.tolerance, origin,
                      stroke.shown, out);
  const SegmentPen segmentPen{origin.x, origin.y, static_cast<float>(pen.half()),
                              static_cast<float>(squaredChordsOverBend(stroke.tolerance)),
                              static_cast<float>(pen.half() / (8 * stroke.tolerance))};
  ContourWriter writer(pen, segmentPen, stroke, kernels, sink);
  const std::size_t most = out.mostSegments;
  PathStretch rest{path.verbs(), points.data()};
  while (!rest.verbs.empty()) {
    const PathStretch some =
        rest.verbs.size() <= most ? std::exchange(rest, {}) : rest.takeContours(most);
    if (some.verbs.size() <= most) {
      writer.write(some);
    } else {
      writer.writeLong(some);
    }
  }
  return writer.finish();
}

}  // namespace glyphwright::raster
