#include "animations_page.h"

#include <string_view>
#include <vector>

#include "numbers.h"
#include "web_sources.h"

namespace glyphwright::cli {
namespace {

constexpr std::string_view kStyle = R"(
.top a { color: var(--quiet); }
.pieces { display: grid; grid-template-columns: repeat(auto-fill, minmax(11rem, 1fr)); gap: .8rem; margin: 0; padding: 0; list-style: none; }
.piece { overflow: hidden; background: #eef0f4; border: 1px solid var(--line); border-radius: var(--radius); }
.piece picture { display: flex; align-items: center; justify-content: center; height: 10rem; }
.piece p { margin: 0; padding: .6rem .9rem; background: var(--card); overflow-wrap: anywhere; }
.piece small { display: block; color: var(--quiet); }
)";

Showpiece piece(AnimationKind kind, std::string name, std::string to, std::string caption,
                double still) {
  Showpiece result{{}, std::move(caption), still};
  result.options.kind = kind;
  result.options.name = std::move(name);
  result.options.to = std::move(to);
  result.options.scale = 1;
  result.options.framesPerSecond = 10;
  result.options.duration = 2;
  result.options.color = UIColor(0.13, 0.15, 0.2, 1);
  return result;
}

std::string card(const Showpiece& piece) {
  const std::string file = "animations/" + piece.fileName();
  const CGSize size = piece.options.size;
  return "<li class=\"piece\"><picture><source media=\"(prefers-reduced-motion: reduce)\" "
         "srcset=\"" +
         file + "-still.png\"><img src=\"" + file + ".png\" alt=\"" + piece.caption +
         "\" width=\"" + textOf(size.width) + "\" height=\"" + textOf(size.height) +
         "\"></picture><p>" + piece.options.name +
         (piece.options.to.empty() ? "" : " → " + piece.options.to) + "<small>" + piece.caption +
         "</small></p></li>\n";
}

}  // namespace

std::string Showpiece::fileName() const {
  std::string name = options.kind == AnimationKind::sweep    ? "sweep-"
                     : options.kind == AnimationKind::stroke ? "stroke-"
                                                             : "morph-";
  name += options.name;
  return options.to.empty() ? name : name + "-" + options.to;
}

std::vector<Showpiece> showpieces() {
  using enum AnimationKind;
  std::vector<Showpiece> pieces{
      piece(sweep, "heartPath", "", "a gradient sweeping through a heart", 0),
      piece(sweep, "cloud", "", "a gradient sweeping through a cloud", 0),
      piece(stroke, "starPath", "", "a star being drawn", 0),
      piece(stroke, "schoolOutlineIconPath", "", "an outline being drawn", 0),
      piece(morph, "heartPath", "checkmarkPath", "a heart turning into a tick", 0.3),
      piece(morph, "playPath", "stopPath", "play turning into stop", 0.3),
      piece(morph, "peopleBadge", "heartPath", "a badge turning into a heart", 0.3),
      piece(morph, "chatBubble", "closedEnvelopePath", "a bubble turning into an envelope", 0.3),
  };
  pieces[1].options.gradient = IconGradient(
      {UIColor(0.2, 0.55, 1, 1), UIColor(0.35, 0.9, 0.85, 1), UIColor(0.55, 0.4, 1, 1)}, {},
      IconGradient::Direction::leftToRight);
  return pieces;
}

std::string animationsPage() {
  std::string html =
      "<!doctype html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
      "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
      "<meta name=\"color-scheme\" content=\"light dark\">\n"
      "<title>Glyphwright animations</title>\n<style>\n";
  html += galleryCss;
  html += kStyle;
  html +=
      "</style>\n</head>\n<body>\n<header class=\"top\"><h1><span>Animations</span></h1>"
      "<a href=\"index.html\">All icons</a></header>\n<main>\n<div class=\"tab\">\n"
      "<ul class=\"pieces\">\n";
  for (const Showpiece& piece : showpieces()) html += card(piece);
  return html + "</ul>\n</div>\n</main>\n</body>\n</html>\n";
}

}  // namespace glyphwright::cli
