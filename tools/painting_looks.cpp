#include "painting_looks.h"

#include "numbers.h"

namespace glyphwright::cli {

std::string PaintingLook::fileName() const {
  std::string name(preset->name);
  if (!look.empty()) name += '-';
  for (const char c : look) {
    if (c != ',') name += c == ' ' ? '-' : c;
  }
  return name;
}

std::vector<PaintingLook> allPaintingLooks() {
  std::vector<PaintingLook> looks;
  for (const Preset& preset : allPresets()) {
    PresetArguments arguments;
    arguments.size = preset.usualSize.value_or(CGSize{});
    if (preset.takesFlags) {
      for (const bool background : {true, false}) {
        for (const bool selected : {false, true}) {
          arguments.selected = selected;
          arguments.withBackground = background;
          looks.push_back({&preset, arguments,
                           std::string(selected ? "selected" : "normal") +
                               (background ? ", on its disc" : "")});
        }
      }
    } else {
      looks.push_back({&preset, arguments, {}});
    }
  }
  return looks;
}

std::string PaintingLook::inCpp() const {
  std::string call;
  for (const char c : preset->name) call += c == '.' ? std::string("::") : std::string(1, c);
  call += '(';
  if (preset->usualSize) {
    call += '{' + textOf(preset->usualSize->width) + ", " + textOf(preset->usualSize->height) + '}';
  }
  if (preset->takesFlags) {
    for (const bool flag : {arguments.selected, arguments.withBackground}) {
      call += flag ? ", true" : ", false";
    }
  }
  if (preset->takesBackgroundColor) call += ", UIColor::clearColor()";
  return call + ')';
}

std::string PaintingLook::command() const {
  return "glyphwright preset " + std::string(preset->name) +
         (arguments.selected ? " --selected" : "") +
         (arguments.withBackground ? " --with-background" : "") + " --scale 2 -o " + fileName() +
         ".png";
}

}  // namespace glyphwright::cli
