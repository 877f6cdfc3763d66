#include <glyphwright/platform/image_renderer.h>

#include <glyphwright/platform/context_stack.h>
#include <glyphwright/platform/screen.h>

namespace glyphwright {

UIGraphicsImageRendererFormat UIGraphicsImageRendererFormat::defaultFormat() {
  UIGraphicsImageRendererFormat format;
  format.scale = screen::scale();
  return format;
}

UIImage UIGraphicsImageRenderer::image(const Actions& actions) const {
  return image(UIImage(), actions);
}

UIImage UIGraphicsImageRenderer::image(UIImage&& reused, const Actions& actions) const {
  contexts::Scope scope(size_, format_.opaque, format_.scale, false,
                        contexts::ImageMemory::leftBy(std::move(reused), size_, format_.scale));
  if (actions) actions(UIGraphicsImageRendererContext(scope.context()));
  return scope.image();
}

bool UIGraphicsImageRenderer::draw(const PixelBuffer& into, const Actions& actions) const {
  if (!into.isUsable()) return false;
  contexts::Scope scope(size_, format_.opaque, format_.scale, false, into);
  if (!scope.isDrawable()) return false;
  if (actions) actions(UIGraphicsImageRendererContext(scope.context()));
  scope.finish(into);
  return true;
}

}  // namespace glyphwright
