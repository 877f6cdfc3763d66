#include "paint_text.h"

#include <array>
#include <cmath>
#include <string_view>
#include <utility>
#include <vector>

#include "color_names.h"
#include "numbers.h"
#include "usage_error.h"

namespace glyphwright::cli {
namespace {

[[noreturn]] void refuse(std::string_view text, std::string_view form) {
  throw UsageError("\"" + std::string(text) + "\" is not " + std::string(form));
}

std::vector<std::string> split(std::string_view text, char separator) {
  std::vector<std::string> parts;
  for (;;) {
    const std::size_t end = text.find(separator);
    parts.emplace_back(text.substr(0, end));
    if (end == std::string_view::npos) return parts;
    text.remove_prefix(end + 1);
  }
}

int hexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

UIColor colorFromBytes(int red, int green, int blue, int alpha) {
  return UIColor(red / 255.0, green / 255.0, blue / 255.0, alpha / 255.0);
}

constexpr std::string_view colorForm =
    "a colour: #RGB, #RGBA, #RRGGBB, #RRGGBBAA or a CSS colour name";

UIColor hexColor(const std::string& text) {
  std::vector<int> digits;
  for (const char c : std::string_view(text).substr(1)) {
    digits.push_back(hexDigit(c));
    if (digits.back() < 0) refuse(text, colorForm);
  }
  if (digits.size() == 3 || digits.size() == 4) {
    if (digits.size() == 3) digits.push_back(15);
    return colorFromBytes(17 * digits[0], 17 * digits[1], 17 * digits[2], 17 * digits[3]);
  }
  if (digits.size() == 6) digits.insert(digits.end(), {15, 15});
  if (digits.size() != 8) refuse(text, colorForm);
  const auto byte = [&](std::size_t i) { return 16 * digits[2 * i] + digits[2 * i + 1]; };
  return colorFromBytes(byte(0), byte(1), byte(2), byte(3));
}

/// `C:W`.
std::pair<UIColor, CGFloat> colorAndWidth(const std::string& text) {
  constexpr std::string_view form = "COLOUR:WIDTH, such as black:2";
  const std::vector<std::string> parts = split(text, ':');
  if (parts.size() != 2) refuse(text, form);
  const auto width = numberOf(parts[1]);
  if (!width || *width < 0) refuse(text, form);
  return {colorFrom(parts[0]), *width};
}

constexpr std::array<std::pair<std::string_view, IconGradient::Direction>, 4> directions = {{
    {"topToBottom", IconGradient::Direction::topToBottom},
    {"leftToRight", IconGradient::Direction::leftToRight},
    {"topLeftToBottomRight", IconGradient::Direction::topLeftToBottomRight},
    {"bottomLeftToTopRight", IconGradient::Direction::bottomLeftToTopRight},
}};

}  // namespace

UIColor colorFrom(const std::string& text) {
  if (text.starts_with('#')) return hexColor(text);
  if (text == "transparent") return UIColor::clearColor();
  const auto rgb = colorNamed(text);
  if (!rgb) refuse(text, colorForm);
  const auto byte = [&](unsigned shift) { return static_cast<int>(*rgb >> shift & 0xFF); };
  return colorFromBytes(byte(16), byte(8), byte(0), 255);
}

CGSize sizeFrom(const std::string& text) {
  constexpr std::string_view form = "a size: W or WxH in points, above 0";
  const std::vector<std::string> parts = split(text, 'x');
  if (parts.size() > 2) refuse(text, form);
  const auto width = numberOf(parts.front());
  const auto height = numberOf(parts.back());
  if (!width || !height || !(*width > 0) || !(*height > 0)) refuse(text, form);
  return {*width, *height};
}

std::vector<CGSize> sizesFrom(const std::string& text) {
  std::vector<CGSize> sizes;
  for (const std::string& part : split(text, ',')) sizes.push_back(sizeFrom(part));
  return sizes;
}

std::string textOfSize(CGSize size) {
  const std::string width = textOf(size.width);
  return size.width == size.height ? width : width + 'x' + textOf(size.height);
}

CGFloat scaleFrom(const std::string& text) {
  const auto scale = numberOf(text);
  if (!scale || !(*scale > 0)) refuse(text, "a scale: pixels per point, above 0");
  return *scale;
}

std::vector<CGFloat> scalesFrom(const std::string& text) {
  std::vector<CGFloat> scales;
  for (const std::string& part : split(text, ',')) scales.push_back(scaleFrom(part));
  return scales;
}

IconStroke strokeFrom(const std::string& text) {
  const auto [color, width] = colorAndWidth(text);
  return {color, width};
}

IconBorder borderFrom(const std::string& text) {
  const auto [color, width] = colorAndWidth(text);
  // The library would take the whole points of it and leave the rest.
  if (width != std::floor(width)) refuse(text, "a ring of whole points, such as black:2");
  return {color, width};
}

IconShadow shadowFrom(const std::string& text) {
  constexpr std::string_view form = "COLOUR:DX,DY:BLUR, such as #0008:0,3:4";
  const std::vector<std::string> parts = split(text, ':');
  if (parts.size() != 3) refuse(text, form);
  const std::vector<std::string> offset = split(parts[1], ',');
  if (offset.size() != 2) refuse(text, form);
  const auto dx = numberOf(offset[0]);
  const auto dy = numberOf(offset[1]);
  const auto blur = numberOf(parts[2]);
  if (!dx || !dy || !blur || *blur < 0) refuse(text, form);
  return {colorFrom(parts[0]), {*dx, *dy}, *blur};
}

IconGradient::Direction directionFrom(const std::string& text) {
  for (const auto& [name, direction] : directions) {
    if (name == text) return direction;
  }
  refuse(text,
         "a direction: topToBottom, leftToRight, topLeftToBottomRight or bottomLeftToTopRight");
}

IconGradient gradientFrom(const std::string& text) {
  constexpr std::string_view form = "COLOUR,COLOUR[,COLOUR...][:DIRECTION]";
  const std::vector<std::string> parts = split(text, ':');
  if (parts.size() > 2) refuse(text, form);
  std::vector<UIColor> colors;
  for (const std::string& color : split(parts[0], ',')) colors.push_back(colorFrom(color));
  if (colors.size() < 2) refuse(text, form);
  const auto direction =
      parts.size() == 2 ? directionFrom(parts[1]) : IconGradient::Direction::topToBottom;
  return {std::move(colors), {}, direction};
}

}  // namespace glyphwright::cli
