#include "layers.h"

#include <functional>
#include <memory>

#include <glyphwright/layers/gradient_shape_layer.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/platform/layers/shape_layer.h>
#include <glyphwright/presets/chat_paintings.h>
#include <glyphwright/presets/painter.h>
#include <glyphwright/presets/preset_paintings.h>
#include <glyphwright/presets/referral_paintings.h>

#include "timing.h"

namespace glyphwright::bench {

namespace {

const UIColor kBlue(0.1, 0.4, 0.9, 1);
const std::vector<UIColor> kColors = {UIColor(1, 0.2, 0.3, 1), UIColor(0.9, 0.8, 0.1, 1), kBlue};

template <typename Draw>
void inImage(CGSize size, Draw draw) {
  UIGraphicsBeginImageContextWithOptions(size, false, 1);
  draw(UIGraphicsGetCurrentContext());
  const auto image = UIGraphicsGetImageFromCurrentImageContext();
  UIGraphicsEndImageContext();
}

/// Alternates two ways of drawing `count` pictures.
LayerRow timePair(std::string what, std::size_t side, std::size_t count, double seconds,
                  const std::function<void(std::size_t)>& described,
                  const std::function<void(std::size_t)>& direct) {
  const std::vector<double> medians = medianRounds({described, direct}, count, seconds);
  return {std::move(what), side, medians[0], medians[1]};
}

/// The pieces of a painting as somebody writes them down by hand.
struct ByHand {
  CGContextRef context;
  const CGGradient* gradient;

  void operator()(std::monostate) const {}
  void operator()(const presets::Fill& piece) const { fill(piece.area, piece.color); }
  void operator()(const presets::Stroke& piece) const {
    CGContextSetStrokeColor(context, piece.color);
    StrokeStyle style;
    style.width = piece.width;
    style.cap = piece.cap;
    style.miterLimit = piece.miterLimit;
    CGContextStrokePath(context, presets::pathOf(piece.area).cgPath(), style);
  }
  void operator()(const presets::ClippedGradient& piece) const {
    CGContextSaveGState(context);
    clip(piece.clip);
    CGContextDrawLinearGradient(context, *gradient, piece.start, piece.end,
                                CGGradientDrawingOptions::drawsBeforeAndAfter);
    CGContextRestoreGState(context);
  }
  void operator()(const presets::ClippedFill& piece) const {
    CGContextSaveGState(context);
    clip(piece.clip);
    fill(piece.area, piece.color);
    CGContextRestoreGState(context);
  }
  void operator()(const presets::Group& piece) const {
    CGContextSaveGState(context);
    clip(piece.clip);
    std::visit(*this, piece.content);
    CGContextRestoreGState(context);
  }
  void operator()(const presets::Translucent& piece) const {
    fill(piece.area, piece.color.colorWithAlphaComponent(piece.color.alpha() * piece.alpha));
  }
  void operator()(const presets::Turned& piece) const {
    CGContextSaveGState(context);
    CGContextTranslateCTM(context, piece.origin.x, piece.origin.y);
    CGContextRotateCTM(context, piece.angle);
    fill(piece.area, piece.color);
    CGContextRestoreGState(context);
  }
  void operator()(const presets::Ground& piece) const {
    CGContextSetFillColor(context, piece.color);
    CGContextFillRect(context, {{}, piece.size});
  }
  void operator()(const presets::LastingClip& piece) const { clip(piece.area); }
  void operator()(presets::EndImageContext) const {}

 private:
  void fill(const presets::Area& area, const UIColor& color) const {
    CGContextSetFillColor(context, color);
    CGContextFillPath(context, presets::pathOf(area).cgPath(), area.rule);
  }
  void clip(const presets::Area& area) const {
    CGContextClipToPath(context, presets::pathOf(area).cgPath(), area.rule);
  }
};

void paintByHand(const presets::Painting& painting) {
  inImage(painting.frame, [&](CGContextRef context) {
    std::optional<CGGradient> gradient;
    if (painting.gradient != nullptr) {
      gradient = CGGradientCreateWithColors(std::nullopt, painting.gradient->colors,
                                            painting.gradient->locations);
    }
    const ByHand byHand{context, gradient ? &*gradient : nullptr};
    for (const presets::Piece& piece : painting.pieces) std::visit(byHand, piece);
  });
}

}  // namespace

std::vector<LayerRow> timeLayers(const std::vector<Icon>& icons, std::size_t side, double seconds) {
  const auto points = static_cast<CGFloat>(side);
  const CGSize size{points, points};
  std::vector<std::shared_ptr<CAShapeLayer>> shapes;
  std::vector<std::shared_ptr<VNTLGradientShapeLayer>> gradients;
  for (const Icon& icon : icons) {
    shapes.push_back(icon.method().shapeLayerWithSize(size));
    shapes.back()->setFillColor(kBlue);
    gradients.push_back(icon.method().vntl_gradientShapeLayerWithSize(size));
    gradients.back()->setColors(kColors);
  }
  std::vector<LayerRow> rows;
  rows.push_back(timePair(
      "shape layer", side, shapes.size(), seconds,
      [&](std::size_t i) {
        inImage(size, [&](CGContextRef context) { shapes[i]->renderInContext(context); });
      },
      [&](std::size_t i) {
        inImage(size, [&](CGContextRef context) {
          CGContextSetFillColor(context, kBlue);
          CGContextFillPath(context, *shapes[i]->path(), FillRule::nonZero);
        });
      }));
  const CGPoint start{points / 2, 0};
  const CGPoint end{points / 2, points};
  rows.push_back(timePair(
      "gradient shape layer", side, gradients.size(), seconds,
      [&](std::size_t i) {
        inImage(size, [&](CGContextRef context) { gradients[i]->renderInContext(context); });
      },
      [&](std::size_t i) {
        inImage(size, [&](CGContextRef context) {
          CGContextSaveGState(context);
          CGContextClipToPath(context, *gradients[i]->path(), FillRule::nonZero);
          const auto gradient = CGGradientCreateWithColors(std::nullopt, kColors, std::nullopt);
          CGContextDrawLinearGradient(context, *gradient, start, end,
                                      CGGradientDrawingOptions::drawsBeforeAndAfter);
          CGContextRestoreGState(context);
        });
      }));
  return rows;
}

LayerRow timePaintings(double seconds) {
  const presets::Painting* const paintings[] = {
      &presets::stickerSelected, &presets::contactCardSelected, &presets::moodraWithBackground,
      &presets::moodraSelected,  &presets::pinChatAttribution,  &presets::loopPlay,
      &presets::referralHeader,  &presets::referralCopy,        &presets::referralReward};
  return timePair(
      "ready-made image", 0, std::size(paintings), seconds,
      [&](std::size_t i) { presets::imageOf(*paintings[i]); },
      [&](std::size_t i) { paintByHand(*paintings[i]); });
}

}  // namespace glyphwright::bench
