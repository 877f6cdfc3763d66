#include "show_command.h"

#include <algorithm>
#include <cstdlib>
#include <span>
#include <stdexcept>
#include <string_view>
#include <vector>

#include <glyphwright/bezier_path.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/platform/vantel_kit.h>

#include "icon_names.h"
#include "png.h"
#include "terminal.h"
#include "usage_error.h"

namespace glyphwright::cli {
namespace {

constexpr std::size_t kUsualColumns = 40;
constexpr std::string_view kReset = "\x1b[0m";

std::string base64(std::span<const std::uint8_t> bytes) {
  constexpr std::string_view digits =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const std::size_t count = std::min<std::size_t>(3, bytes.size() - i);
    unsigned bits = 0;
    for (std::size_t k = 0; k < 3; ++k) bits = bits << 8 | (k < count ? bytes[i + k] : 0U);
    for (std::size_t k = 0; k < 4; ++k) {
      text += k <= count ? digits[bits >> (18 - 6 * k) & 63U] : '=';
    }
  }
  return text;
}

/// The picture for a terminal that takes it in pieces, each an application command.
std::string graphicsCommands(std::string_view data) {
  constexpr std::size_t pieceSize = 4096;
  std::string text;
  for (std::size_t at = 0; at < data.size(); at += pieceSize) {
    const bool last = at + pieceSize >= data.size();
    text += "\x1b_G";
    if (at == 0) text += "a=T,f=100,";
    text.append(last ? "m=0;" : "m=1;").append(data.substr(at, pieceSize)).append("\x1b\\");
  }
  return text + '\n';
}

std::string inlineFile(std::string_view data, std::size_t size) {
  return "\x1b]1337;File=inline=1;size=" + std::to_string(size) + ':' + std::string(data) + "\a\n";
}

/// One half of a character.
struct Half {
  bool isSet = false;
  unsigned red = 0;
  unsigned green = 0;
  unsigned blue = 0;
};

Half halfAt(const CGImage& image, std::size_t x, std::size_t y) {
  if (y >= image.pixelHeight()) return {};
  const auto pixel = image.rgba().subspan((y * image.pixelWidth() + x) * 4).first<4>();
  const unsigned alpha = pixel[3];
  // What lies below is not known: half covered and more counts as covered.
  if (alpha < 128) return {};
  const auto straight = [&](unsigned value) {
    return std::min(255U, (value * 255 + alpha / 2) / alpha);
  };
  return {true, straight(pixel[0]), straight(pixel[1]), straight(pixel[2])};
}

/// The colour as a parameter of the terminal's command for text (38) or ground (48).
std::string colorCode(unsigned where, const Half& half, TerminalColors colors) {
  const std::string start = std::to_string(where);
  if (colors == TerminalColors::full) {
    return start + ";2;" + std::to_string(half.red) + ';' + std::to_string(half.green) + ';' +
           std::to_string(half.blue);
  }
  // The cube of six levels a channel, which begins at 16.
  const auto level = [](unsigned value) { return (value * 5 + 127) / 255; };
  return start + ";5;" +
         std::to_string(16 + 36 * level(half.red) + 6 * level(half.green) + level(half.blue));
}

std::string character(const Half& upper, const Half& lower, TerminalColors colors) {
  const std::string_view glyph = upper.isSet && (colors != TerminalColors::none || !lower.isSet)
                                     ? "▀"
                                 : upper.isSet ? "█"
                                 : lower.isSet ? "▄"
                                               : " ";
  if (colors == TerminalColors::none || glyph == " ") return std::string(glyph);
  std::string codes = colorCode(38, upper.isSet ? upper : lower, colors);
  if (upper.isSet && lower.isSet) codes += ';' + colorCode(48, lower, colors);
  return "\x1b[" + codes + 'm' + std::string(glyph) + std::string(kReset);
}

std::string blocks(const CGImage& image, TerminalColors colors) {
  std::string text;
  for (std::size_t y = 0; y < image.pixelHeight(); y += 2) {
    std::string line;
    std::size_t used = 0;
    for (std::size_t x = 0; x < image.pixelWidth(); ++x) {
      const std::string next = character(halfAt(image, x, y), halfAt(image, x, y + 1), colors);
      line += next;
      if (next != " ") used = line.size();
    }
    text += line.substr(0, used) + '\n';
  }
  return text;
}

Terminal terminalOf(const ShowOptions& options, const Console& console) {
  Terminal terminal = terminalFrom([](const char* name) -> std::optional<std::string> {
    const char* const value = std::getenv(name);
    return value ? std::optional<std::string>(value) : std::nullopt;
  });
  if (options.form == ShowForm::automatic) return console.outIsTerminal ? terminal : Terminal{};
  if (options.form == ShowForm::plain) return {};
  if (options.form == ShowForm::blocks) {
    terminal.pictures = TerminalPictures::none;
    if (terminal.colors == TerminalColors::none) terminal.colors = TerminalColors::full;
  } else if (terminal.pictures == TerminalPictures::none) {
    terminal.pictures = TerminalPictures::graphicsCommand;
  }
  return terminal;
}

}  // namespace

ShowOptions::ShowOptions() {
  // Can be seen on dark and on light ground.
  paint.attributes.fillColor = UIColor(0.93, 0.27, 0.42, 1);
}

ShowForm showFormFrom(const std::string& text) {
  if (text == "auto") return ShowForm::automatic;
  if (text == "picture") return ShowForm::picture;
  if (text == "blocks") return ShowForm::blocks;
  if (text == "plain") return ShowForm::plain;
  throw UsageError("\"" + text + "\" is none of auto, picture, blocks and plain");
}

int runShow(const ShowOptions& options, Console& console) {
  requireOnePicture(options.paint);
  const NamedIcon named = iconsNamed({&options.name, 1}).front();
  if (named.icon.builder == nullptr) throw std::runtime_error(named.name + " has no drawing");
  const Terminal terminal = terminalOf(options, console);
  IconAttributes attributes = options.paint.attributes;
  const bool picture = terminal.pictures != TerminalPictures::none;
  const std::size_t room = console.columns > 0 ? console.columns : kUsualColumns;
  const std::size_t columns = options.columns > 0 ? options.columns : std::min(room, kUsualColumns);
  // The size asked for, in whole characters: one is a pixel wide and two high.
  const CGFloat scale = picture ? 2 : static_cast<CGFloat>(columns) / attributes.size.width;
  VantelKit::Screen::setScale(scale);
  const UIImage image = named.icon.builder().makeStandaloneImage(attributes);
  if (!image.hasPixels()) throw std::runtime_error(named.name + " cannot be drawn at this size");
  const CGImage& pixels = image.cgImage();
  if (!picture) {
    console.out << blocks(pixels, terminal.colors);
    return statusDone;
  }
  const auto file = encodePng(pixels.pixelWidth(), pixels.pixelHeight(), pixels.rgba());
  console.out << (terminal.pictures == TerminalPictures::inlineFile
                      ? inlineFile(base64(file), file.size())
                      : graphicsCommands(base64(file)));
  return statusDone;
}

}  // namespace glyphwright::cli
