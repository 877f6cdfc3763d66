#include <cmath>
#include <ostream>

#include <nlohmann/json.hpp>

#include <glyphwright/paths/registry.h>

#include "inspect.h"
#include "outline_check.h"

namespace glyphwright {
namespace {

using Json = nlohmann::ordered_json;

Json boxJson(const CGRect& box) {
  return {box.origin.x, box.origin.y, box.size.width, box.size.height};
}

Json contourJson(const outline_check::Contour& contour) {
  return {{"lines", contour.lines},
          {"curves", contour.curves},
          {"area", std::abs(contour.signedArea)},
          {"isClockwise", contour.signedArea > 0},
          {"depth", contour.depth},
          {"isClosed", contour.isClosed}};
}

Json reportJson(const std::string& name, const UIBezierPath& path) {
  const outline_check::Report report = outline_check::check(path.cgPath());
  Json contours = Json::array();
  for (const auto& contour : report.contours) contours.push_back(contourJson(contour));
  Json meetings = Json::array();
  for (const outline_check::Meeting& meeting : report.meetings) {
    meetings.push_back({{"contours", {meeting.first, meeting.second}},
                        {"point", {meeting.point.x, meeting.point.y}}});
  }
  return {{"name", name},
          {"fillRule", path.usesEvenOddFillRule() ? "even-odd" : "non-zero"},
          {"frame", boxJson(report.frame)},
          {"ink", boxJson(report.ink)},
          {"unit", report.unit},
          {"lines", report.lines},
          {"curves", report.curves},
          {"leastGap", report.minimumGap ? Json(*report.minimumGap) : Json()},
          {"contours", std::move(contours)},
          {"openContours", report.openContours()},
          {"impliedReturns", report.impliedReturns()},
          {"wrongWindings", report.wrongWindings()},
          {"offGridCoordinates", report.offGridCoordinates},
          {"emptyEdges", report.emptyEdges},
          {"meetings", std::move(meetings)},
          {"looksTheSameUnderBothRules", report.looksTheSameUnderBothRules()}};
}

}  // namespace

int runInspectJson(std::span<const std::string> names, std::ostream& out) {
  Json reports = Json::array();
  int status = 0;
  for (const std::string& name : names) {
    const ClassMethod method = findClassMethod(name);
    if (method == nullptr) {
      reports.push_back({{"name", name}, {"error", "no such icon"}});
      status = 1;
    } else {
      reports.push_back(reportJson(name, method()));
    }
  }
  out << reports.dump(2) << '\n';
  return status;
}

}  // namespace glyphwright
