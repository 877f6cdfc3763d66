#include <glyphwright/glyphwright.h>

#include <charconv>
#include <cstdio>
#include <optional>
#include <string_view>

#include "png.h"

using namespace glyphwright;

// What somebody typed as an icon's number: digits and nothing else, of an icon that there is.
std::optional<UIBezierPath> iconNumbered(std::string_view typed) {
  std::int64_t number = 0;
  const char* end = typed.data() + typed.size();
  const auto [stop, error] = std::from_chars(typed.data(), end, number);
  if (error != std::errc() || stop != end) return std::nullopt;
  return UIBezierPath::pathForIcon(static_cast<VNTLIconType>(number));
}

int main(int argc, char** argv) {
  const std::string_view typed = argc > 1 ? argv[1] : "42";
  const std::optional<UIBezierPath> path = iconNumbered(typed);
  if (!path) {
    std::fprintf(stderr, "no icon has the number \"%.*s\": give one from 0 to %zu\n",
                 int(typed.size()), typed.data(), iconTypes.size() - 1);
    return 1;
  }
  const UIImage icon = path->makeImage({.fillColor = UIColor(0.1, 0.5, 0.4, 1),
                                        .backgroundColor = UIColor::clearColor(),
                                        .stroke = IconStroke(UIColor::clearColor(), 0),
                                        .size = {96, 96}});
  if (!cookbook::writePng("by_number.png", icon.cgImage())) return 1;
}
