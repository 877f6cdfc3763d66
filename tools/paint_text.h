#pragma once

#include <string>
#include <vector>

#include <glyphwright/rendering/icon_attributes.h>

namespace glyphwright::cli {

// How paint is written on the command line. Each reads the whole text and throws UsageError, with
// the form expected, for anything else.

/// `#RGB`, `#RGBA`, `#RRGGBB`, `#RRGGBBAA`, a colour name of style sheets, or `transparent`.
UIColor colorFrom(const std::string& text);

/// `W` for a square or `WxH`, in points, above 0.
CGSize sizeFrom(const std::string& text);
/// `SIZE[,SIZE…]`.
std::vector<CGSize> sizesFrom(const std::string& text);
/// As `sizeFrom` reads it: "64", "64x32".
std::string textOfSize(CGSize size);

/// Pixels per point, above 0.
CGFloat scaleFrom(const std::string& text);
/// `S[,S…]`.
std::vector<CGFloat> scalesFrom(const std::string& text);

/// `C:W`, a colour and a width in points from 0.
IconStroke strokeFrom(const std::string& text);
/// The same, in whole points.
IconBorder borderFrom(const std::string& text);

/// `C:DX,DY:BLUR` in points; the blur from 0.
IconShadow shadowFrom(const std::string& text);

/// `C,C[,C…][:DIRECTION]`; the direction is topToBottom unless given.
IconGradient gradientFrom(const std::string& text);
IconGradient::Direction directionFrom(const std::string& text);

}  // namespace glyphwright::cli
