#include <glyphwright/platform/layers/layer.h>

#include <cmath>
#include <stdexcept>

namespace glyphwright {
namespace {

bool isNumber(CGPoint point) {
  return !std::isnan(point.x) && !std::isnan(point.y);
}

bool isNumber(CGSize size) {
  return !std::isnan(size.width) && !std::isnan(size.height);
}

bool isNumber(const CGAffineTransform& t) {
  return isNumber(CGPoint{t.a, t.b}) && isNumber(CGPoint{t.c, t.d}) &&
         isNumber(CGPoint{t.tx, t.ty});
}

void require(bool isNumber, const char* message) {
  if (!isNumber) throw std::invalid_argument(message);
}

}  // namespace

std::shared_ptr<CALayer> CALayer::layer() {
  return std::make_shared<CALayer>();
}

void CALayer::setBounds(const CGRect& bounds) {
  require(isNumber(bounds.origin) && isNumber(bounds.size), "layer bounds contain NaN");
  model_.bounds = CGRectStandardize(bounds);
}

void CALayer::setPosition(CGPoint position) {
  require(isNumber(position), "layer position contains NaN");
  model_.position = position;
}

void CALayer::setAnchorPoint(CGPoint anchorPoint) {
  require(isNumber(anchorPoint), "layer anchor point contains NaN");
  model_.anchorPoint = anchorPoint;
}

void CALayer::setTransform(const CGAffineTransform& transform) {
  require(isNumber(transform), "layer transform contains NaN");
  model_.transform = transform;
}

void CALayer::setZPosition(CGFloat zPosition) {
  require(!std::isnan(zPosition), "layer z position is NaN");
  model_.zPosition = zPosition;
}

CGRect CALayer::frame() const {
  const CGSize size = model_.bounds.size;
  const CGPoint anchor{model_.anchorPoint.x * size.width, model_.anchorPoint.y * size.height};
  if (model_.transform == CGAffineTransformIdentity) {
    return {{model_.position.x - anchor.x, model_.position.y - anchor.y}, size};
  }
  // About the anchor, and then to the position.
  const CGRect box = CGRectApplyAffineTransform({{-anchor.x, -anchor.y}, size}, model_.transform);
  return CGRectOffset(box, model_.position.x, model_.position.y);
}

void CALayer::setFrame(const CGRect& frame) {
  const CGRect standard = CGRectStandardize(frame);
  const CGSize anchor{model_.anchorPoint.x, model_.anchorPoint.y};
  CGSize size = standard.size;
  CGPoint position{standard.origin.x + anchor.width * size.width,
                   standard.origin.y + anchor.height * size.height};
  const CGAffineTransform& transform = model_.transform;
  if (transform != CGAffineTransformIdentity) {
    const CGAffineTransform inverse = CGAffineTransformInvert(transform);
    size = CGRectApplyAffineTransform({CGPoint{}, size}, inverse).size;
    // The middle of the box falls on the middle of the frame.
    const CGRect box = CGRectApplyAffineTransform(
        {{-anchor.width * size.width, -anchor.height * size.height}, size}, transform);
    position = {CGRectGetMidX(standard) - CGRectGetMidX(box),
                CGRectGetMidY(standard) - CGRectGetMidY(box)};
  }
  setPosition(position);
  setBounds({model_.bounds.origin, size});
}

}  // namespace glyphwright
