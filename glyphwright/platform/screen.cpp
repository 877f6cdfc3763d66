#include <glyphwright/platform/screen.h>

#include <atomic>
#include <cmath>

namespace glyphwright::screen {
namespace {

// The one value that the application tells the library about itself. It stands alone, so relaxed
// order is enough.
constinit std::atomic<CGFloat> mainScreenScale{2};

}  // namespace

CGFloat scale() {
  return mainScreenScale.load(std::memory_order_relaxed);
}

void setScale(CGFloat scale) {
  if (scale > 0 && std::isfinite(scale)) mainScreenScale.store(scale, std::memory_order_relaxed);
}

}  // namespace glyphwright::screen
