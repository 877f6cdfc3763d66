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
  contexts::Scope scope(size_, format_.opaque, format_.scale, false);
  if (actions) actions(UIGraphicsImageRendererContext(scope.context()));
  return scope.image();
}

}  // namespace glyphwright
