#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include <glyphwright/bezier_path.h>
#include <glyphwright/paths/registry.h>

/// What is timed, and who does it.
namespace glyphwright::bench {

/// One way of painting an icon into a square image.
enum class Operation : std::uint8_t {
  fill,         // flat fill
  hairline,     // flat fill and an outline one pixel wide
  gradient,     // three colours from top to foot
  slanted,      // the same from corner to corner
  radial,       // the same from the middle out
  conic,        // the same round the middle; others may take circles for it
  stroke,       // flat fill and an outline of two pixels
  dropShadow,   // flat fill with a shadow of blur 8 (sigma 4), offset (0, 2)
  insetShadow,  // flat fill with an inner shadow of blur 8, offset (0, 2)
};

struct OperationInfo {
  Operation operation;
  std::string_view name;
};
inline constexpr OperationInfo kOperations[] = {
    {Operation::fill, "fill"},
    {Operation::hairline, "hairline"},
    {Operation::gradient, "gradient"},
    {Operation::slanted, "slanted"},
    {Operation::radial, "radial"},
    {Operation::conic, "conic"},
    {Operation::stroke, "stroke"},
    {Operation::dropShadow, "drop-shadow"},
    {Operation::insetShadow, "inset-shadow"},
};

/// The colours of all gradients: red, green and blue of stops at 0, a half and 1.
inline constexpr double kStops[][3] = {{1, 0.2, 0.3}, {0.9, 0.8, 0.1}, {0.1, 0.4, 0.9}};
inline constexpr double kStrokeWidth = 2;
inline constexpr double kBlur = 8;
inline constexpr double kShadowOffsetY = 2;

/// An icon as the others get it: its elements, handed over call by call each time.
struct Icon {
  std::string_view name;
  ClassMethod method;
  CGPath path;
};

/// All icons in the order of their declaration.
std::vector<Icon> allIcons();

/// How the path goes into a square of `side` pixels under `operation`: the longer side spread over
/// what outline and shadow leave, centred, the origin of its bounds taken off first.
CGAffineTransform fitting(const CGPath& path, Operation operation, std::size_t side);

/// Premultiplied pixels of four bytes, rows without padding; only to look at.
struct Pixels {
  std::size_t alphaByte = 3;
  std::vector<std::uint8_t> bytes;
};

class Renderer {
 public:
  Renderer() = default;
  Renderer(const Renderer&) = delete;
  Renderer& operator=(const Renderer&) = delete;
  virtual ~Renderer() = default;

  virtual std::string_view name() const = 0;
  /// Allocates a fresh image of `side` × `side`, builds, fits and paints the icon, and drops the
  /// image again; `copy`, when given, gets the pixels first.
  virtual void paint(const Icon& icon, Operation operation, std::size_t side,
                     Pixels* copy = nullptr) const = 0;
};

/// Whether every picture gets memory of its own, or one size's pictures all the same, which a
/// renderer then keeps and clears; such a one serves one thread.
enum class Memory : std::uint8_t { fresh, reused };

std::unique_ptr<Renderer> makeGlyphwright(Memory memory = Memory::fresh);
std::unique_ptr<Renderer> makeCairo(Memory memory = Memory::fresh);
std::unique_ptr<Renderer> makeAgg();
/// Allocates the image's memory and clears it.
std::unique_ptr<Renderer> makeClearing();

}  // namespace glyphwright::bench
