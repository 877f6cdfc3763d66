#include "attributes_file.h"

#include <cmath>
#include <fstream>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include <nlohmann/json.hpp>

#include "paint_text.h"
#include "usage_error.h"

namespace glyphwright::cli {
namespace {

using Json = nlohmann::json;

[[noreturn]] void refuse(const std::string& what) {
  throw UsageError("is not " + what);
}

double number(const Json& value) {
  if (!value.is_number()) refuse("a number");
  return value.get<double>();
}

double length(const Json& value) {
  const double points = number(value);
  if (!(points >= 0) || !std::isfinite(points)) refuse("a length in points, from 0");
  return points;
}

std::string text(const Json& value) {
  if (!value.is_string()) refuse("text");
  return value.get<std::string>();
}

UIColor color(const Json& value) {
  return colorFrom(text(value));
}

/// Two numbers.
CGPoint pair(const Json& value) {
  if (!value.is_array() || value.size() != 2) refuse("a list of two numbers");
  return {number(value[0]), number(value[1])};
}

/// Reads an object key by key; every key has to be in the table.
using Readers = std::map<std::string, std::function<void(const Json&)>>;

void readObject(const Json& object, const Readers& readers) {
  if (!object.is_object()) refuse("an object");
  for (const auto& [key, value] : object.items()) {
    const auto reader = readers.find(key);
    if (reader == readers.end()) {
      std::string message = ": there is no \"" + key + "\"; the keys are ";
      const char* between = "";
      for (const auto& [name, ignored] : readers) {
        message.append(std::exchange(between, ", ")).append(name);
      }
      throw UsageError(message);
    }
    try {
      reader->second(value);
    } catch (const UsageError& error) {
      throw UsageError(": " + key + ' ' + error.what());
    }
  }
}

std::vector<CGSize> sizes(const Json& value) {
  if (value.is_string()) return sizesFrom(value.get<std::string>());
  const CGSize size = value.is_array() ? CGSize{pair(value).x, pair(value).y}
                                       : CGSize{number(value), number(value)};
  if (!(size.width > 0) || !(size.height > 0)) refuse("a size above 0");
  return {size};
}

/// A colour and a width, as text or as an object.
template <class Line>
Line line(const Json& value, Line (*fromText)(const std::string&)) {
  if (value.is_string()) return fromText(value.get<std::string>());
  Line result(UIColor::blackColor(), 1);
  readObject(value, {{"color", [&](const Json& v) { result.color = color(v); }},
                     {"width", [&](const Json& v) { result.width = length(v); }}});
  return result;
}

IconBorder border(const Json& value) {
  const IconBorder result = line(value, borderFrom);
  if (result.width != std::floor(result.width)) refuse("a ring of whole points");
  return result;
}

IconShadow shadow(const Json& value) {
  if (value.is_string()) return shadowFrom(value.get<std::string>());
  UIColor tint = UIColor::blackColor();
  CGPoint offset;
  double blur = 0;
  readObject(value, {{"color", [&](const Json& v) { tint = color(v); }},
                     {"offset", [&](const Json& v) { offset = pair(v); }},
                     {"blur", [&](const Json& v) { blur = length(v); }}});
  return {tint, {offset.x, offset.y}, blur};
}

IconGradient gradient(const Json& value) {
  if (value.is_string()) return gradientFrom(value.get<std::string>());
  std::vector<UIColor> colors;
  std::vector<CGPoint> locations;
  std::vector<CGFloat> points;
  IconGradient::Direction direction = IconGradient::Direction::topToBottom;
  const auto each = [](const Json& list, auto read) {
    if (!list.is_array()) refuse("a list");
    for (const Json& item : list) read(item);
  };
  readObject(
      value,
      {{"colors",
        [&](const Json& v) { each(v, [&](const Json& c) { colors.push_back(color(c)); }); }},
       {"direction", [&](const Json& v) { direction = directionFrom(text(v)); }},
       {"locations",
        [&](const Json& v) { each(v, [&](const Json& p) { locations.push_back(pair(p)); }); }},
       {"points",
        [&](const Json& v) { each(v, [&](const Json& p) { points.push_back(number(p)); }); }}});
  if (colors.size() < 2) refuse("a gradient: it needs two colors or more");
  if (!points.empty() && points.size() != colors.size()) {
    refuse("a gradient: it needs as many points as colors");
  }
  IconGradient result(std::move(colors), std::move(locations), direction);
  if (!points.empty()) result.points = std::move(points);
  return result;
}

Json parsed(const std::string& file) {
  try {
    std::ifstream stream(file, std::ios::binary);
    if (stream.is_open()) return Json::parse(stream, nullptr, false);
  } catch (const std::ios_base::failure&) {
    // Opened, but a folder.
  }
  throw UsageError("cannot read " + file);
}

}  // namespace

void readAttributes(const std::string& file, Paint& paint) {
  const Json json = parsed(file);
  if (json.is_discarded()) throw UsageError(file + " is no JSON");
  IconAttributes& attributes = paint.attributes;
  const Readers readers = {
      {"size", [&](const Json& v) { paint.setSizes(sizes(v)); }},
      {"fillColor", [&](const Json& v) { attributes.fillColor = color(v); }},
      {"backgroundColor", [&](const Json& v) { attributes.backgroundColor = color(v); }},
      {"stroke", [&](const Json& v) { attributes.stroke = line(v, strokeFrom); }},
      {"border", [&](const Json& v) { attributes.border = border(v); }},
      {"dropShadow", [&](const Json& v) { attributes.dropShadow = shadow(v); }},
      {"insetShadow", [&](const Json& v) { attributes.insetShadow = shadow(v); }},
      {"gradient", [&](const Json& v) { attributes.gradient = gradient(v); }}};
  try {
    readObject(json, readers);
  } catch (const UsageError& error) {
    const std::string why = error.what();
    throw UsageError(file + (why.starts_with(':') ? why : ' ' + why));
  }
}

}  // namespace glyphwright::cli
