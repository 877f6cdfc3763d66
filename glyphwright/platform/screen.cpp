#include <glyphwright/platform/screen.h>

#include <atomic>
#include <cmath>
#include <utility>

namespace glyphwright::screen {
namespace {

// The one value that the application tells the library about itself. It stands alone, so relaxed
// order is enough.
constinit std::atomic<CGFloat> mainScreenScale{2};

// Of a scope; 0 outside any.
constinit thread_local CGFloat scaleInScope = 0;

}  // namespace

CGFloat scale() {
  return scaleInScope > 0 ? scaleInScope : mainScreenScale.load(std::memory_order_relaxed);
}

void setScale(CGFloat scale) {
  if (scale > 0 && std::isfinite(scale)) mainScreenScale.store(scale, std::memory_order_relaxed);
}

ScaleInScope::ScaleInScope(CGFloat scale) : before_(std::exchange(scaleInScope, scale)) {}

ScaleInScope::~ScaleInScope() {
  scaleInScope = before_;
}

}  // namespace glyphwright::screen
