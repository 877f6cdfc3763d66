#include <glyphwright/platform/vantel_kit.h>

#include <cstddef>
#include <optional>

#include <glyphwright/platform/context_stack.h>
#include <glyphwright/platform/screen.h>

namespace glyphwright {
namespace VantelKit {
namespace {

std::optional<unsigned> hexDigit(char c) {
  if (c >= '0' && c <= '9') return static_cast<unsigned>(c - '0');
  if (c >= 'a' && c <= 'f') return static_cast<unsigned>(c - 'a') + 10;
  if (c >= 'A' && c <= 'F') return static_cast<unsigned>(c - 'A') + 10;
  return std::nullopt;
}

}  // namespace

CGFloat Screen::scale() {
  return screen::scale();
}

void Screen::setScale(CGFloat scale) {
  screen::setScale(scale);
}

UIImage drawImage(CGSize size, bool isOpaque, CGFloat scale,
                  const std::function<void(CGContext&)>& drawClosure) {
  contexts::Scope scope(size, isOpaque, scale, false);
  if (drawClosure) drawClosure(*scope.context());
  return scope.image();
}

UIColor inactiveTitle() {
  constexpr CGFloat level = 168.0 / 255.0;
  return UIColor::colorWithWhite(level, 1);
}

UIColor colorFromHex(std::string_view hex) {
  if (hex.size() != 7 || hex.front() != '#') return UIColor::clearColor();
  CGFloat channels[3];
  for (std::size_t i = 0; i < 3; ++i) {
    const std::optional<unsigned> high = hexDigit(hex[1 + 2 * i]);
    const std::optional<unsigned> low = hexDigit(hex[2 + 2 * i]);
    if (!high || !low) return UIColor::clearColor();
    channels[i] = static_cast<CGFloat>(*high * 16 + *low) / 255;
  }
  return UIColor(channels[0], channels[1], channels[2], 1);
}

}  // namespace VantelKit

std::optional<UIImage> UIImage::render(CGSize size, std::optional<CGFloat> scale,
                                       const std::function<void(CGContext&)>& actions) {
  contexts::Scope scope(size, false, scale.value_or(screen::scale()), false);
  if (!scope.isDrawable()) return std::nullopt;
  if (actions) actions(*scope.context());
  return scope.image();
}

}  // namespace glyphwright
