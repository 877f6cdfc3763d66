#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>

#include <glyphwright/platform/color.h>
#include <glyphwright/platform/fill_rule.h>
#include <glyphwright/platform/path.h>

/// The fuzzers' entry, called with one input after the other; the same for every engine.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace glyphwright::fuzz {

/// Reads values off an input; zeros once it has run out.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : data_(data), left_(size) {}

  bool isEmpty() const { return left_ == 0; }
  std::uint8_t byte() {
    if (left_ == 0) return 0;
    --left_;
    return *data_++;
  }
  /// 0 to `count` − 1.
  std::size_t below(std::size_t count) { return byte() % count; }
  bool coin() { return (byte() & 1) != 0; }
  FillRule rule() { return coin() ? FillRule::evenOdd : FillRule::nonZero; }

  /// Mostly a number an icon might have, at times an odd one, at times any bits at all.
  double number() {
    constexpr double kOdd[] = {0.0,
                               -0.0,
                               -1.0,
                               1e-320,
                               1e-9,
                               1e9,
                               -1e9,
                               1e300,
                               -1e300,
                               std::numeric_limits<double>::max(),
                               std::numeric_limits<double>::infinity(),
                               -std::numeric_limits<double>::infinity(),
                               std::numeric_limits<double>::quiet_NaN()};
    const std::uint8_t kind = byte();
    if (kind < 200) return (kind * 256 + byte()) / 512.0 - 10;
    if (kind < 240) return kOdd[below(std::size(kOdd))];
    std::uint64_t bits = 0;
    for (int i = 0; i < 8; ++i) bits = bits << 8 | byte();
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
  }
  CGPoint point() {
    const double x = number();
    return {x, number()};
  }
  CGSize size() {
    const CGPoint p = point();
    return {p.x, p.y};
  }
  CGRect rect() {
    const CGPoint origin = point();
    return {origin, size()};
  }
  UIColor color() {
    const double red = number();
    const double green = number();
    const double blue = number();
    return {red, green, blue, byte() / 255.0};
  }
  /// An image side that is cheap to draw, or an odd one.
  double side() { return byte() < 230 ? 1 + byte() / 4.0 : number(); }

  /// Up to 40 elements.
  CGPath path() {
    CGPath path;
    for (std::size_t steps = below(40); steps > 0 && !isEmpty(); --steps) {
      switch (below(8)) {
        case 0:
          path.moveToPoint(point());
          break;
        case 1:
        case 2:
          path.addLineToPoint(point());
          break;
        case 3: {
          const CGPoint control = point();
          path.addQuadCurveToPoint(point(), control);
          break;
        }
        case 4: {
          const CGPoint control1 = point();
          const CGPoint control2 = point();
          path.addCurveToPoint(point(), control1, control2);
          break;
        }
        case 5: {
          const CGPoint center = point();
          const double radius = number();
          const double start = number();
          path.addArc(center, radius, start, number(), coin());
          break;
        }
        case 6: {
          const CGRect box = rect();
          const auto corners = static_cast<UIRectCorner>(byte());
          path.addRoundedRect(box, corners, size());
          break;
        }
        default:
          path.closeSubpath();
          break;
      }
    }
    return path;
  }
  CGAffineTransform transform() {
    const CGPoint x = point();
    const CGPoint y = point();
    const CGPoint t = point();
    return {x.x, x.y, y.x, y.y, t.x, t.y};
  }
  std::string text(std::size_t most) {
    std::string text;
    for (std::size_t length = below(most + 1); length > 0; --length) {
      text.push_back(static_cast<char>(byte()));
    }
    return text;
  }

 private:
  const std::uint8_t* data_;
  std::size_t left_;
};

}  // namespace glyphwright::fuzz
