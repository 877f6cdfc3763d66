#include <glyphwright/bezier_path.h>

#include <cstdio>

int main() {
  const glyphwright::UIBezierPath logo = glyphwright::UIBezierPath::facebookLogo();
  const glyphwright::CGRect bounds = logo.bounds();
  std::printf("%g x %g\n", bounds.size.width, bounds.size.height);
  return bounds == glyphwright::CGRect(0, 0, 18, 18) && logo.usesEvenOddFillRule() ? 0 : 1;
}
