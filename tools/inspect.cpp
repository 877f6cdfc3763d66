#include "inspect.h"

#include <cmath>
#include <iomanip>
#include <ostream>

#include <glyphwright/paths/registry.h>

#include "outline_check.h"

namespace glyphwright {

namespace {

/// Walls and gaps narrower than this close up at 24 pixels.
constexpr double kLeastGap = 1.5;

class Box {
 public:
  explicit Box(const CGRect& rect) : rect_(rect) {}
  friend std::ostream& operator<<(std::ostream& out, const Box& box) {
    return out << "x " << CGRectGetMinX(box.rect_) << " to " << CGRectGetMaxX(box.rect_) << ", y "
               << CGRectGetMinY(box.rect_) << " to " << CGRectGetMaxY(box.rect_);
  }

 private:
  CGRect rect_;
};

void writeContours(const outline_check::Report& report, std::ostream& out) {
  for (std::size_t k = 0; k < report.contours.size(); ++k) {
    const outline_check::Contour& contour = report.contours[k];
    out << "  contour " << k << "  " << contour.lines << " lines, " << contour.curves
        << " curves, area " << std::abs(contour.signedArea) << ", "
        << (contour.signedArea > 0 ? "clockwise" : "counter-clockwise") << ", inside "
        << contour.depth << (contour.isClosed ? "" : ", open") << '\n';
  }
}

void writeObjections(const outline_check::Report& report, std::ostream& out) {
  const auto count = [&out](std::size_t number, const char* what) {
    if (number > 0) out << "  ! " << number << ' ' << what << '\n';
  };
  count(report.openContours(), "open contours");
  count(report.impliedReturns(), "contours without an explicit return");
  count(report.wrongWindings(), "contours wound against the rule");
  count(report.offGridCoordinates, "coordinates with more than two decimals");
  count(report.emptyEdges, "edges without length");
  for (const outline_check::Meeting& meeting : report.meetings) {
    out << "  ! contours " << meeting.first << " and " << meeting.second << " meet near ("
        << meeting.point.x << ", " << meeting.point.y << ")\n";
  }
  if (report.minimumGap.value_or(kLeastGap) < kLeastGap) {
    out << "  ! a gap of " << *report.minimumGap << " u\n";
  }
  const CGRect& frame = report.frame;
  const CGRect& ink = report.ink;
  if (frame.size.width - ink.size.width > report.unit / 100 ||
      frame.size.height - ink.size.height > report.unit / 100) {
    out << "  ! control points outside the ink: " << Box(ink) << '\n';
  }
  if (!report.looksTheSameUnderBothRules()) out << "  ! the two fill rules differ\n";
}

}  // namespace

int runInspect(std::span<const std::string> names, std::ostream& out) {
  const auto flags = out.flags();
  const auto precision = out.precision();
  out << std::setprecision(6) << std::defaultfloat;
  int status = 0;
  for (const std::string& name : names) {
    const ClassMethod method = findClassMethod(name);
    if (method == nullptr) {
      out << name << ": no such icon\n";
      status = 1;
      continue;
    }
    const UIBezierPath path = method();
    const outline_check::Report report = outline_check::check(path.cgPath());
    out << name << "  " << (path.usesEvenOddFillRule() ? "even-odd" : "non-zero") << '\n'
        << "  frame " << Box(report.frame) << "; 1 u = " << report.unit << '\n'
        << "  " << report.contours.size() << " contours, " << report.lines << " lines, "
        << report.curves << " curves\n";
    if (report.minimumGap) out << "  least gap " << *report.minimumGap << " u\n";
    writeContours(report, out);
    writeObjections(report, out);
  }
  out.flags(flags);
  out.precision(precision);
  return status;
}

}  // namespace glyphwright
