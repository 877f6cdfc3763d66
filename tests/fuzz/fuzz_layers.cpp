// A gradient shape layer pushed about by its setters, and drawn.

#include <stdexcept>

#include <glyphwright/layers/gradient_shape_layer.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/platform/image.h>

#include "input.h"

namespace {

using namespace glyphwright;

void change(fuzz::Input& input, VNTLGradientShapeLayer& layer) {
  switch (input.below(10)) {
    case 0:
      layer.setFrame(input.rect());
      break;
    case 1:
      layer.setBounds(input.rect());
      break;
    case 2:
      layer.setPosition(input.point());
      break;
    case 3:
      layer.setPath(input.path());
      break;
    case 4: {
      std::vector<CGColor> colors;
      for (std::size_t count = input.below(5); count > 0; --count) colors.push_back(input.color());
      layer.setColors(std::move(colors));
      break;
    }
    case 5: {
      std::vector<CGFloat> locations;
      for (std::size_t n = input.below(5); n > 0; --n) locations.push_back(input.number());
      layer.setLocations(std::move(locations));
      break;
    }
    case 6:
      layer.setStartPoint(input.point());
      layer.setEndPoint(input.point());
      break;
    case 7:
      layer.strokeLayer()->setStrokeColor(input.color());
      layer.strokeLayer()->setLineWidth(input.number());
      layer.strokeLayer()->setStrokeStart(input.number());
      layer.strokeLayer()->setStrokeEnd(input.number());
      break;
    case 8:
      layer.setType(input.coin() ? "radial" : "conic");
      break;
    default:
      layer.presentationLayer();
      break;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const auto layer = VNTLGradientShapeLayer::layer();
  for (int steps = 0; steps < 12 && !input.isEmpty(); ++steps) {
    try {
      change(input, *layer);
    } catch (const std::invalid_argument&) {
      // A NaN in the geometry is refused.
    }
  }
  UIGraphicsBeginImageContextWithOptions({32, 32}, false, 1);
  layer->renderInContext(UIGraphicsGetCurrentContext());
  UIGraphicsEndImageContext();
  return 0;
}
