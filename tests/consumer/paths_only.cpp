// Builds and transforms paths, and draws nothing.

#include <glyphwright/platform/path.h>

#include <cstdio>

using namespace glyphwright;

int main() {
  CGPath path;
  path.addRoundedRect({0, 0, 20, 10}, UIRectCorner::allCorners, {3, 3});
  path.addEllipseInRect({4, 2, 6, 6});
  path.applyTransform(CGAffineTransformMakeScale(2, 3));
  const CGRect box = path.reversed().boundingBox();
  std::printf("%g x %g\n", box.size.width, box.size.height);
  return box == CGRect(0, 0, 40, 30) ? 0 : 1;
}
