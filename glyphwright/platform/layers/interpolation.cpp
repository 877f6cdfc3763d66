#include <glyphwright/platform/layers/animation_value.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <type_traits>

#include <glyphwright/platform/layers/transform_parts.h>

namespace glyphwright {
namespace {

// Every kind of value is combined component by component; `combine` says how two numbers become
// one.

template <typename Combine>
CGFloat combined(CGFloat a, CGFloat b, Combine combine) {
  return combine(a, b);
}

template <typename Combine>
CGPoint combined(CGPoint a, CGPoint b, Combine combine) {
  return {combine(a.x, b.x), combine(a.y, b.y)};
}

template <typename Combine>
CGSize combined(CGSize a, CGSize b, Combine combine) {
  return {combine(a.width, b.width), combine(a.height, b.height)};
}

template <typename Combine>
CGRect combined(const CGRect& a, const CGRect& b, Combine combine) {
  return {combined(a.origin, b.origin, combine), combined(a.size, b.size, combine)};
}

template <typename Combine>
CGColor combined(const CGColor& a, const CGColor& b, Combine combine) {
  const CGFloat alpha = combine(a.alpha(), b.alpha());
  if (a.model() == CGColor::Model::gray && b.model() == CGColor::Model::gray) {
    return CGColor::colorWithWhite(combine(a.red(), b.red()), alpha);
  }
  return {combine(a.red(), b.red()), combine(a.green(), b.green()), combine(a.blue(), b.blue()),
          alpha};
}

bool match(const CGPath& a, const CGPath& b) {
  return std::ranges::equal(a.verbs(), b.verbs());
}

template <typename Entry>
bool match(const std::vector<Entry>& a, const std::vector<Entry>& b) {
  return a.size() == b.size();
}

template <typename Entry, typename Combine>
std::vector<Entry> combined(const std::vector<Entry>& a, const std::vector<Entry>& b,
                            Combine combine) {
  std::vector<Entry> result;
  result.reserve(a.size());
  for (std::size_t i = 0; i < a.size(); ++i) result.push_back(combined(a[i], b[i], combine));
  return result;
}

template <typename Combine>
CGPath combined(const CGPath& a, const CGPath& b, Combine combine) {
  CGPath result;
  result.reserve(a.verbs().size(), a.points().size());
  const CGPoint* from = a.points().data();
  const CGPoint* to = b.points().data();
  const auto next = [&] { return combined(*from++, *to++, combine); };
  for (const PathVerb verb : a.verbs()) {
    switch (verb) {
      case PathVerb::move:
        result.moveToPoint(next());
        break;
      case PathVerb::line:
        result.addLineToPoint(next());
        break;
      case PathVerb::quad: {
        const CGPoint control = next();
        result.addQuadCurveToPoint(next(), control);
        break;
      }
      case PathVerb::cubic: {
        const CGPoint control1 = next();
        const CGPoint control2 = next();
        result.addCurveToPoint(next(), control1, control2);
        break;
      }
      case PathVerb::close:
        result.closeSubpath();
        break;
    }
  }
  return result;
}

template <typename Value>
constexpr bool kHasStructure =
    std::is_same_v<Value, CGPath> || std::is_same_v<Value, std::vector<CGColor>> ||
    std::is_same_v<Value, std::vector<CGFloat>>;

template <typename Value>
AnimationValue interpolated(const Value& from, const Value& to, double progress) {
  if constexpr (std::is_same_v<Value, CGAffineTransform>) {
    return interpolatedTransform(from, to, progress);
  } else {
    if constexpr (kHasStructure<Value>) {
      if (!match(from, to)) return progress < 0.5 ? from : to;
    }
    // Both ends come out exactly, which a + (b − a)·t does not give.
    return combined(from, to, [progress](CGFloat a, CGFloat b) {
      return a == b ? a : a * (1 - progress) + b * progress;
    });
  }
}

template <typename Value>
AnimationValue accumulated(const Value& base, const Value& value, double times) {
  if constexpr (std::is_same_v<Value, CGAffineTransform>) {
    return CGAffineTransformConcat(repeatedTransform(value, times), base);
  } else {
    if constexpr (kHasStructure<Value>) {
      if (!match(base, value)) return base;
    }
    return combined(base, value, [times](CGFloat a, CGFloat b) { return a + b * times; });
  }
}

}  // namespace

std::optional<AnimationValue> interpolate(const AnimationValue& from, const AnimationValue& to,
                                          double progress) {
  if (from.index() != to.index()) return std::nullopt;
  if (progress == 0) return from;
  if (progress == 1) return to;
  return std::visit(
      [&](const auto& start) {
        using Value = std::remove_cvref_t<decltype(start)>;
        return interpolated(start, std::get<Value>(to), progress);
      },
      from);
}

std::optional<AnimationValue> accumulate(const AnimationValue& base, const AnimationValue& value,
                                         double times) {
  if (base.index() != value.index()) return std::nullopt;
  return std::visit(
      [&](const auto& start) {
        using Value = std::remove_cvref_t<decltype(start)>;
        return accumulated(start, std::get<Value>(value), times);
      },
      base);
}

}  // namespace glyphwright
