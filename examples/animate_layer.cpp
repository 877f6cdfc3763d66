// Animates a layer by hand: a heart beats, its gradient sweeps and its outline draws itself. There
// is no clock in the library; the program asks for the picture at each time it wants to show.
//
//     example_animate_layer [FOLDER]
//
// writes one PAM picture a frame into the folder, frame-00.pam and so on; without one it only says
// what it would draw.

#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include <glyphwright/bezier_path.h>
#include <glyphwright/layers/gradient_shape_layer.h>

using namespace glyphwright;

namespace {

constexpr CGFloat kSide = 96;          // points
constexpr CFTimeInterval kLength = 2;  // seconds
constexpr int kFrames = 24;

std::shared_ptr<VNTLGradientShapeLayer> makeHeart() {
  const UIColor pink(1, 0.18, 0.42, 1);
  const UIColor orange(1, 0.62, 0.2, 1);
  auto heart = UIBezierPath::heartPath().vntl_gradientShapeLayerWithSize({kSide, kSide});
  heart->setColors({{pink, orange, pink}});
  heart->setStartPoint({0, 0});
  heart->setEndPoint({1, 1});
  heart->strokeLayer()->setStrokeColor(UIColor::whiteColor());
  heart->strokeLayer()->setLineWidth(3);

  // Sweep: the stops move along the gradient. The layer hands this on to the one that has them.
  auto sweep = CABasicAnimation::animationWithKeyPath("locations");
  sweep->setFromValue(std::vector<CGFloat>{-0.5, 0, 0.5});
  sweep->setToValue(std::vector<CGFloat>{0.5, 1, 1.5});
  sweep->setDuration(kLength / 2);
  sweep->setAutoreverses(true);
  heart->addAnimation(sweep, "sweep");

  // Beat: two quick swells and a rest, on the gradient and the outline alike.
  auto beat = CAKeyframeAnimation::animationWithKeyPath("transform.scale");
  beat->setValues({0.8, 0.95, 0.8, 0.95, 0.8});
  beat->setKeyTimes({{0, 0.1, 0.25, 0.35, 0.6}});
  beat->setDuration(kLength / 2);
  beat->setRepeatCount(2);
  beat->setTimingFunction(
      CAMediaTimingFunction::functionWithName(CAMediaTimingFunctionName::easeOut));
  heart->gradientLayer()->addAnimation(beat, "beat");
  heart->strokeLayer()->addAnimation(beat, "beat");

  // Draw: the outline grows to its full length and stays.
  auto draw = CABasicAnimation::animationWithKeyPath("strokeEnd");
  draw->setFromValue(0.0);
  draw->setDuration(kLength * 0.75);
  draw->setTimingFunction(
      CAMediaTimingFunction::functionWithName(CAMediaTimingFunctionName::easeInEaseOut));
  heart->strokeLayer()->addAnimation(draw, "draw");
  return heart;
}

UIImage pictureAt(CALayer& layer, CFTimeInterval time) {
  UIGraphicsBeginImageContextWithOptions({kSide, kSide}, false, 2);
  layer.presentationLayerAtTime(time)->renderInContext(UIGraphicsGetCurrentContext());
  UIImage image = UIGraphicsGetImageFromCurrentImageContext().value_or(UIImage());
  UIGraphicsEndImageContext();
  return image;
}

bool writePam(const UIImage& image, const std::string& file) {
  const CGImage& pixels = image.cgImage();
  std::ofstream out(file, std::ios::binary);
  out << "P7\nWIDTH " << pixels.pixelWidth() << "\nHEIGHT " << pixels.pixelHeight()
      << "\nDEPTH 4\nMAXVAL 255\nTUPLTYPE RGB_ALPHA\nENDHDR\n";
  // PAM wants plain colour; the library's pixels carry it multiplied by the alpha.
  for (std::size_t i = 0; i < pixels.rgba().size(); i += 4) {
    const unsigned alpha = pixels.rgba()[i + 3];
    for (std::size_t c = i; c < i + 3; ++c) {
      const unsigned value = pixels.rgba()[c];
      out.put(static_cast<char>(alpha == 0 ? 0 : (value * 255 + alpha / 2) / alpha));
    }
    out.put(static_cast<char>(alpha));
  }
  return static_cast<bool>(out.flush());
}

}  // namespace

int main(int argc, char** argv) {
  const auto heart = makeHeart();
  std::printf("animations:");
  const std::vector<std::string> keys = heart->animationKeys().value();
  for (const std::string& key : keys) std::printf(" %s", key.c_str());
  std::printf("\n");
  for (int frame = 0; frame < kFrames; ++frame) {
    const CFTimeInterval time = kLength * frame / kFrames;
    const auto shown = heart->presentationLayerAtTime(time);
    const auto outline = std::dynamic_pointer_cast<CAShapeLayer>(shown->sublayers()->back());
    std::printf("%.3f s: outline %3.0f %%\n", time, outline->strokeEnd() * 100);
    if (argc < 2) continue;
    char name[32];
    std::snprintf(name, sizeof name, "/frame-%02d.pam", frame);
    if (!writePam(pictureAt(*heart, time), argv[1] + std::string(name))) {
      std::fprintf(stderr, "cannot write to %s\n", argv[1]);
      return 1;
    }
  }
  return 0;
}
