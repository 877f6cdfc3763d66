#pragma once

#include <glyphwright/bezier_path.h>
#include <glyphwright/paths/registry.h>
#include <glyphwright/platform/context_stack.h>
#include <glyphwright/platform/contexts/graphics_context.h>
#include <glyphwright/rendering/shadows.h>

/// Pictures that meet every condition in the table of ways, for whoever compares the ways.
namespace glyphwright::drawing {

/// Draws a picture by a row of whole numbers, random ones or a fuzzer's, in which every task, state
/// and surface turns up in the end. `Numbers` gives the next one, and a copy of it gives the same.
template <typename Numbers>
class Scene {
 public:
  Scene(Numbers numbers, Task task) : first_(numbers), numbers_(numbers), task_(task) {}

  UIImage drawn(Plans plans) {
    numbers_ = first_;
    side_ = 20 + 12 * below(4) + (one(8) ? 250 : 0);
    contexts::Scope scope({side_, side_}, one(6), one(3) ? 1.5 : 1 + below(2), false);
    CGContext& context = *scope.context();
    context.usePlans(plans);
    const int pieces = one(2) ? 1 : 2;
    if (one(3)) context.fill(one(2) ? CGRect{0, 0, side_, side_} : box(1));
    if (one(3)) context.setShadow({around(30), around(6)}, below(9), shade());
    if (one(5)) context.clipTo(one(2) ? CGRect{3, 2, side_ - 5, side_ - 9} : box(1));
    if (one(4)) context.clipTo(one(2) ? path() : wideOval(), FillRule::nonZero);
    if (one(4)) context.beginGroup();
    if (one(5)) context.concat({1, around(0.4), around(0.4), one(2) ? 1.25 : 1, 2.5, around(9)});
    if (one(4)) context.concat(CGAffineTransformMakeTranslation(below(7), around(40)));
    if (one(5)) context.setAlpha(0.5);
    for (int i = 0; i < pieces; ++i) draw(context);
    while (context.isInGroup()) context.endGroup();
    return scope.image();
  }

 private:
  int below(int end) { return static_cast<int>(numbers_() % static_cast<unsigned>(end)); }
  bool one(int in) { return below(in) == 0; }
  CGFloat around(CGFloat most) { return most * (below(2001) - 1000) / 1000; }
  UIColor shade() { return UIColor(0.25 * below(5), 0.25 * below(5), 0.5, 0.25 * below(5)); }
  CGRect box(CGFloat part) {
    return {around(side_ * part), around(side_), side_ * part, side_ * (0.4 + 0.2 * below(4))};
  }

  CGPath wideOval() {
    return UIBezierPath::bezierPathWithOvalInRect({-1, -2, side_ + 3, side_ + 3}).cgPath();
  }

  CGPath path() {
    const char* const names[] = {"heartPath", "vantelTextLogoPath", "checkmarkPath"};
    UIBezierPath made = one(2) ? UIBezierPath::bezierPathWithOvalInRect({0, 0, 20, 30})
                               : findClassMethod(names[below(3)])();
    // Of many edges through a pixel each is rounded, and otherwise where another region cuts them:
    // a level that a way may be off would be one for every few edges.
    if (one(8) && task_ != Task::caster && task_ != Task::inset) {
      for (CGFloat in = 0; in < 8; in += 0.2) {
        made.appendPath(UIBezierPath::bezierPathWithRect({in, in, 20 - in, 20 - in}));
      }
    }
    made.translateToZeroPoint();
    made.scaleToFitSize({side_ * (one(6) ? 4 : 0.3 + 0.2 * below(4)), 4 * side_});
    const CGFloat off = one(3) ? side_ : 4;
    made.applyTransform(
        CGAffineTransformMakeTranslation(one(2) ? 3 : around(off), one(4) ? around(90) : 1));
    return made.cgPath();
  }

  void draw(CGContext& context) {
    context.setFillColor(one(3) ? shade() : UIColor(0.1, 0.4, 0.9, 1));
    context.setStrokeColor(one(3) ? shade() : UIColor(0.9, 0.3, 0.1, 0.7));
    const FillRule rule = one(2) ? FillRule::evenOdd : FillRule::nonZero;
    const NSShadow inset = insetShadow();
    UIBezierPath shape;
    shape.setUsesEvenOddFillRule(rule == FillRule::evenOdd);
    switch (task_) {
      case Task::rectangle:
        context.fill(one(2) ? CGRect{0, 0, side_, side_} : box(one(2) ? 1 : 0.25));
        break;
      case Task::area:
        drawGradient(context);
        break;
      case Task::caster:
        context.setShadow({around(9), around(9)}, one(4) ? 0 : below(40), shade());
        context.fill(path(), rule);
        break;
      case Task::fillAndStroke:
        // Halved and doubled again, which nothing is lost by.
        context.fillAndStroke(halved(path()), CGAffineTransformMakeScale(2, 2), rule,
                              {0.5 * below(20)});
        break;
      case Task::fillAndInset:
      case Task::inset:
        shape.appendPath(UIBezierPath::bezierPathWithCGPath(path()));
        if (task_ == Task::inset) {
          rendering::drawInsetShadow(&context, shape, inset);
        } else {
          rendering::fillWithInsetShadow(&context, shape, inset);
        }
        break;
    }
  }

  NSShadow insetShadow() {
    NSShadow shadow;
    shadow.setShadowOffset({around(one(5) ? 100 : 4), around(4)});
    shadow.setShadowBlurRadius(0.5 * below(20) + (one(9) ? 20 : 0));
    shadow.setShadowColor(shade());
    return shadow;
  }

  static CGPath halved(CGPath path) {
    path.applyTransform(CGAffineTransformMakeScale(0.5, 0.5));
    return path;
  }

  void drawGradient(CGContext& context) {
    const UIColor colors[] = {shade(), UIColor(0, 1, 0, 1)};
    const CGFloat stops[] = {0, 1};
    const auto gradient = CGGradientCreateWithColors(CGColorSpaceCreateDeviceRGB(), colors, stops);
    if (one(2)) context.clipTo(path(), FillRule::nonZero);
    if (one(4)) context.clipTo(CGRect{5, 4, 11, 12});
    context.drawLinearGradient(*gradient, {0, 0}, {around(9), side_},
                               CGGradientDrawingOptions::drawsBeforeStartLocation);
  }

  Numbers first_;
  Numbers numbers_;
  Task task_;
  CGFloat side_ = 0;
};

}  // namespace glyphwright::drawing
