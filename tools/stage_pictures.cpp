#include "stage_pictures.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numbers>
#include <stdexcept>
#include <string>

#include <glyphwright/platform/context.h>

#include "label_font.h"

namespace glyphwright::cli {
namespace {

// How wide the pictures are, about.
constexpr std::size_t kSide = 1024;
constexpr CGFloat kTurn = 2 * std::numbers::pi;

UIColor ink(CGFloat alpha = 1) {
  return {0.09, 0.13, 0.24, alpha};
}
UIColor blue(CGFloat alpha = 1) {
  return {0.1, 0.38, 0.9, alpha};
}
UIColor orange(CGFloat alpha = 1) {
  return {0.93, 0.38, 0.05, alpha};
}

/// A sheet with the icon's pixels as squares.
class Board {
 public:
  explicit Board(const Stages& stages)
      : stages_(stages),
        square_(std::clamp<std::size_t>(kSide / std::max(stages.width, stages.height), 6, 64)) {
    UIGraphicsBeginImageContextWithOptions({magnified(static_cast<CGFloat>(stages.width)) + 1,
                                            magnified(static_cast<CGFloat>(stages.height)) + 1},
                                           true, 1);
    context_ = UIGraphicsGetCurrentContext();
    if (context_ == nullptr) {
      UIGraphicsEndImageContext();
      throw std::runtime_error("its pictures would be too large");
    }
    fill(UIColor::whiteColor(), CGContextGetClipBoundingBox(context_));
  }
  Board(const Board&) = delete;
  Board& operator=(const Board&) = delete;
  ~Board() { UIGraphicsEndImageContext(); }

  std::size_t square() const { return square_; }
  CGFloat magnified(CGFloat length) const { return length * static_cast<CGFloat>(square_); }
  CGPoint magnified(CGPoint p) const { return {magnified(p.x) + 0.5, magnified(p.y) + 0.5}; }

  void fill(const UIColor& color, const CGRect& rect) {
    CGContextSetFillColor(context_, color);
    CGContextFillRect(context_, rect);
  }
  /// Fills each pixel's square; the colour is asked for by the pixel's number.
  template <typename ColorOf>
  void squares(ColorOf colorOf) {
    const CGFloat side = magnified(1.0);
    for (std::size_t i = 0; i < stages_.width * stages_.height; ++i) {
      const std::size_t row = i / stages_.width;
      fill(colorOf(i), {magnified(static_cast<CGFloat>(i % stages_.width)),
                        magnified(static_cast<CGFloat>(row)), side, side});
    }
  }
  void grid(const UIColor& color) {
    const auto width = static_cast<CGFloat>(stages_.width);
    const auto height = static_cast<CGFloat>(stages_.height);
    for (CGFloat x = 0; x <= width; ++x) fill(color, {magnified(x), 0, 1, magnified(height) + 1});
    for (CGFloat y = 0; y <= height; ++y) fill(color, {0, magnified(y), magnified(width) + 1, 1});
  }
  /// `path` is in pixels of the icon.
  void fill(CGPath path, FillRule rule, const UIColor& color) {
    path.applyTransform({magnified(1.0), 0, 0, magnified(1.0), 0.5, 0.5});
    CGContextSetFillColor(context_, color);
    CGContextFillPath(context_, path, rule);
  }
  /// The pen's width is in pixels of the picture.
  void stroke(CGPath path, const UIColor& color, const StrokeStyle& style) {
    path.applyTransform({magnified(1.0), 0, 0, magnified(1.0), 0.5, 0.5});
    CGContextSetStrokeColor(context_, color);
    CGContextStrokePath(context_, path, style);
  }
  void line(CGPoint from, CGPoint to, const UIColor& color, CGFloat width) {
    CGPath path;
    path.moveToPoint(from);
    path.addLineToPoint(to);
    stroke(path, color, {width, CGLineCap::round});
  }
  void dot(CGPoint at, CGFloat radius, const UIColor& color) {
    CGPath path;
    const CGPoint center = magnified(at);
    path.addArc(center, radius, 0, kTurn, true);
    CGContextSetFillColor(context_, color);
    CGContextFillPath(context_, path, FillRule::nonZero);
  }
  /// A point that lies at its very place.
  void ring(CGPoint at, CGFloat radius, const UIColor& color) {
    dot(at, radius, color);
    dot(at, radius - 2, UIColor::whiteColor());
  }
  /// A head in the middle of a line, as far as there is room.
  void arrow(const DeviceLine& line, const UIColor& color) {
    const CGPoint from = magnified(line.from);
    const CGPoint to = magnified(line.to);
    const CGFloat dx = to.x - from.x;
    const CGFloat dy = to.y - from.y;
    const CGFloat length = std::sqrt(dx * dx + dy * dy);
    const CGFloat head = std::min(length / 2, 11.0);
    if (head < 3) return;
    const CGPoint ahead{dx / length * head, dy / length * head};
    const CGPoint tip{(from.x + to.x + ahead.x) / 2, (from.y + to.y + ahead.y) / 2};
    const CGPoint back{tip.x - ahead.x, tip.y - ahead.y};
    const CGPoint aside{-ahead.y * 0.45, ahead.x * 0.45};
    CGPath path;
    path.moveToPoint(tip);
    path.addLineToPoint({back.x + aside.x, back.y + aside.y});
    path.addLineToPoint({back.x - aside.x, back.y - aside.y});
    path.closeSubpath();
    CGContextSetFillColor(context_, color);
    CGContextFillPath(context_, path, FillRule::nonZero);
  }
  PixelSheet sheet() const {
    const UIImage drawn = *UIGraphicsGetImageFromCurrentImageContext();
    const CGImage& image = drawn.cgImage();
    PixelSheet sheet(image.pixelWidth(), image.pixelHeight(), UIColor::whiteColor());
    sheet.draw(image, 0, 0);
    return sheet;
  }

 private:
  const Stages& stages_;
  std::size_t square_;
  CGContextRef context_;
};

PixelSheet outlineOf(const Stages& stages) {
  Board board(stages);
  board.grid(ink(0.08));
  if (stages.pen) {
    StrokeStyle pen = *stages.pen;
    pen.width = board.magnified(pen.width);
    board.stroke(stages.path, blue(0.1), pen);
  } else {
    board.fill(stages.path, FillRule::evenOdd, blue(0.1));
  }
  board.stroke(stages.path, ink(), {2.5});
  const std::span<const CGPoint> points = stages.path.points();
  const auto handle = [&](std::size_t end, std::size_t control) {
    board.line(points[end], points[control], orange(0.7), 1.5);
    board.dot(points[control], 4.5, orange());
  };
  std::size_t at = 0;
  for (const PathVerb verb : stages.path.verbs()) {
    const std::size_t end = at + pointCount(verb);
    if (verb == PathVerb::quad || verb == PathVerb::cubic) {
      handle(at - 1, at);
      handle(end - 1, end - 2);
    }
    at = end;
  }
  at = 0;
  for (const PathVerb verb : stages.path.verbs()) {
    at += pointCount(verb);
    if (verb != PathVerb::close) board.ring(points[at - 1], 6, ink());
  }
  return board.sheet();
}

PixelSheet chordsOf(const Stages& stages) {
  Board board(stages);
  board.grid(ink(0.08));
  board.stroke(stages.path, orange(0.3), {stages.pen ? 3.0 : 9});
  for (const DeviceLine& chord : stages.chords) board.line(chord.from, chord.to, ink(), 2);
  for (const DeviceLine& chord : stages.chords) {
    board.dot(chord.from, 4.5, blue());
    board.dot(chord.to, 4.5, blue());
  }
  return board.sheet();
}

PixelSheet edgesOf(const Stages& stages) {
  Board board(stages);
  board.grid(ink(0.08));
  for (const DeviceLine& edge : stages.chords) {
    if (edge.from.y == edge.to.y) continue;
    const UIColor color = edge.to.y > edge.from.y ? blue() : orange();
    board.line(edge.from, edge.to, color, 3);
    board.arrow(edge, color);
  }
  return board.sheet();
}

PixelSheet cellsOf(const Stages& stages) {
  Board board(stages);
  board.squares([&](std::size_t i) {
    const CGFloat part = std::min(std::abs(stages.cells[i]), 1024) / 1024.0;
    if (part == 0) return UIColor::whiteColor();
    return stages.cells[i] > 0 ? blue(0.15 + 0.85 * part) : orange(0.15 + 0.85 * part);
  });
  board.grid(ink(0.08));
  PixelSheet sheet = board.sheet();
  // Four digits beside each other; smaller squares keep to their colours.
  if (board.square() < labelWidth("1024") + 2) return sheet;
  for (std::size_t i = 0; i < stages.cells.size(); ++i) {
    const int change = std::abs(stages.cells[i]);
    if (change == 0) continue;
    const std::string text = std::to_string(change);
    const std::size_t left = (board.square() - std::min(labelWidth(text), board.square())) / 2;
    sheet.write(text, i % stages.width * board.square() + left + 1,
                i / stages.width * board.square() + (board.square() - 7) / 2 + 1, 1,
                change > 600 ? UIColor::whiteColor() : ink());
  }
  return sheet;
}

PixelSheet levelsOf(const Stages& stages, const std::vector<double>& levels) {
  Board board(stages);
  board.squares([&](std::size_t i) { return ink(levels[i]); });
  board.grid(ink(0.08));
  return board.sheet();
}

PixelSheet paintedPixelsOf(const Stages& stages) {
  Board board(stages);
  const std::span<const std::uint8_t> rgba = stages.painted.cgImage().rgba();
  // Over the paper; premultiplied.
  board.squares([&](std::size_t i) {
    const auto channel = [&](std::size_t c) {
      return (rgba[i * 4 + c] + (255.0 - rgba[i * 4 + 3])) / 255;
    };
    return UIColor(channel(0), channel(1), channel(2), 1);
  });
  board.grid(ink(0.05));
  return board.sheet();
}

}  // namespace

const StagePicture& stagePicture(std::size_t index) {
  static constexpr StagePicture pictures[kStages] = {
      {"outline", "the path: its points, and the handles of its curves", outlineOf},
      {"chords", "curves as straight chords (the wide line is the path)", chordsOf},
      {"edges", "chords that run down (blue) and up (orange); level ones change nothing", edgesOf},
      {"cells", "what edges down add (blue) and edges up take away (orange), in 1024ths of a pixel",
       cellsOf},
      {"coverage", "the cells summed from left to right, by the fill rule",
       [](const Stages& stages) { return levelsOf(stages, stages.coverage); }},
      {"shadow", "the coverage moved and blurred",
       [](const Stages& stages) { return levelsOf(stages, stages.shadow); }},
      {"pixels", "the shadow and the icon, painted", paintedPixelsOf},
  };
  return pictures[index];
}

}  // namespace glyphwright::cli
