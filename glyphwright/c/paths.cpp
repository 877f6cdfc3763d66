#include <memory>

#include <glyphwright/c/boundary.h>
#include <glyphwright/catalogue/icon_type.h>
#include <glyphwright/catalogue/resolve.h>

using namespace glyphwright;

namespace {

static_assert(sizeof(glyphwright_point) == sizeof(CGPoint));
static_assert(static_cast<int>(PathVerb::close) == GLYPHWRIGHT_CLOSE);
static_assert(static_cast<int>(CGLineCap::square) == GLYPHWRIGHT_CAP_SQUARE);
static_assert(static_cast<int>(CGLineJoin::bevel) == GLYPHWRIGHT_JOIN_BEVEL);

std::string unknownName(std::string_view name) {
  std::string text = "no icon is called \"" + std::string(name) + '"';
  const std::vector<std::string> nearest = nearestNames(name, 3);
  for (std::size_t i = 0; i < nearest.size(); ++i) {
    text += (i == 0 ? "; did you mean " : " or ") + nearest[i];
  }
  return text + (nearest.empty() ? "; glyphwright_icon_info() lists them all" : "?");
}

UIBezierPath pathOf(const glyphwright_elements& elements) {
  CGPath path;
  std::size_t at = 0;
  for (std::size_t i = 0; i < elements.verb_count; ++i) {
    const std::uint8_t verb = elements.verbs[i];
    if (verb > GLYPHWRIGHT_CLOSE) c::refuse("elements->verbs holds an unknown verb");
    const std::size_t count = pointCount(static_cast<PathVerb>(verb));
    if (elements.point_count - at < count) c::refuse("elements->points has too few points");
    CGPoint p[3];
    for (std::size_t k = 0; k < count; ++k, ++at)
      p[k] = {elements.points[at].x, elements.points[at].y};
    switch (static_cast<PathVerb>(verb)) {
      case PathVerb::move:
        path.moveToPoint(p[0]);
        break;
      case PathVerb::line:
        path.addLineToPoint(p[0]);
        break;
      case PathVerb::quad:
        path.addQuadCurveToPoint(p[1], p[0]);
        break;
      case PathVerb::cubic:
        path.addCurveToPoint(p[2], p[0], p[1]);
        break;
      case PathVerb::close:
        path.closeSubpath();
        break;
    }
  }
  if (at != elements.point_count) c::refuse("elements->points has more points than the verbs take");
  return UIBezierPath::bezierPathWithCGPath(std::move(path));
}

}  // namespace

glyphwright_status glyphwright_path_named(const char* name, glyphwright_path** path,
                                          const glyphwright_message* message) {
  return c::guarded(message, [&] {
    c::given(name, "name");
    c::given(path, "path");
    const std::optional<ResolvedIcon> icon = resolveIcon(name);
    if (!icon) throw c::Failure{GLYPHWRIGHT_UNKNOWN_NAME, unknownName(name)};
    if (icon->builder == nullptr) {
      throw c::Failure{GLYPHWRIGHT_NO_DRAWING, std::string(name) + " has no drawing"};
    }
    *path = new glyphwright_path{icon->builder()};
  });
}

glyphwright_status glyphwright_path_numbered(int64_t number, glyphwright_path** path,
                                             const glyphwright_message* message) {
  return c::guarded(message, [&] {
    c::given(path, "path");
    std::optional<UIBezierPath> icon = UIBezierPath::pathForIcon(static_cast<VNTLIconType>(number));
    if (!icon) {
      throw c::Failure{GLYPHWRIGHT_UNKNOWN_NAME,
                       "no icon has the number " + std::to_string(number) +
                           "; they run from 0 to " + std::to_string(iconTypes.size() - 1)};
    }
    *path = new glyphwright_path{std::move(*icon)};
  });
}

glyphwright_status glyphwright_path_made(const glyphwright_elements* elements,
                                         glyphwright_path** path,
                                         const glyphwright_message* message) {
  return c::guarded(message, [&] {
    const glyphwright_elements known = c::read(elements, "elements");
    c::given(path, "path");
    if (known.verb_count > 0) c::given(known.verbs, "elements->verbs");
    if (known.point_count > 0) c::given(known.points, "elements->points");
    *path = new glyphwright_path{pathOf(known)};
  });
}

void glyphwright_path_free(glyphwright_path* path) {
  delete path;
}

glyphwright_status glyphwright_path_elements(const glyphwright_path* path,
                                             glyphwright_elements* elements) {
  return c::guarded(nullptr, [&] {
    const CGPath& cgPath = c::given(path, "path").path.cgPath();
    c::give(elements, "elements",
            {0, reinterpret_cast<const std::uint8_t*>(cgPath.verbs().data()), cgPath.verbs().size(),
             reinterpret_cast<const glyphwright_point*>(cgPath.points().data()),
             cgPath.points().size()});
  });
}

glyphwright_status glyphwright_path_bounds(const glyphwright_path* path, glyphwright_rect* bounds) {
  return c::guarded(nullptr, [&] {
    const CGRect box = c::given(path, "path").path.bounds();
    c::given(bounds, "bounds") = {box.origin.x, box.origin.y, box.size.width, box.size.height};
  });
}

glyphwright_status glyphwright_path_pen(const glyphwright_path* path, glyphwright_pen* pen) {
  return c::guarded(nullptr, [&] {
    const UIBezierPath& p = c::given(path, "path").path;
    c::give(pen, "pen",
            {0, p.usesEvenOddFillRule(), static_cast<std::int32_t>(p.lineCapStyle()),
             static_cast<std::int32_t>(p.lineJoinStyle()), p.lineWidth(), p.miterLimit()});
  });
}

glyphwright_status glyphwright_path_set_pen(glyphwright_path* path, const glyphwright_pen* pen) {
  return c::guarded(nullptr, [&] {
    UIBezierPath& p = c::given(path, "path").path;
    const glyphwright_pen known = c::read(pen, "pen");
    if (known.cap < 0 || known.cap > GLYPHWRIGHT_CAP_SQUARE || known.join < 0 ||
        known.join > GLYPHWRIGHT_JOIN_BEVEL || (known.even_odd != 0 && known.even_odd != 1)) {
      c::refuse("a field of the pen has none of its values");
    }
    p.setUsesEvenOddFillRule(known.even_odd == 1);
    p.setLineCapStyle(static_cast<CGLineCap>(known.cap));
    p.setLineJoinStyle(static_cast<CGLineJoin>(known.join));
    p.setLineWidth(known.line_width);
    p.setMiterLimit(known.miter_limit);
  });
}
