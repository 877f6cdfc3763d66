#pragma once

#include <glyphwright/platform/geometry.h>

/// The main screen as the platform knows it: only its scale.
namespace glyphwright::screen {

/// Pixels per point, 2 unless it was set. May be read and set from any thread.
CGFloat scale();
/// A scale that is not above 0 or not finite is ignored.
void setScale(CGFloat scale);

/// Another scale for this thread and the length of a scope, whatever others set.
class ScaleInScope {
 public:
  /// Above 0 and finite.
  explicit ScaleInScope(CGFloat scale);
  ~ScaleInScope();
  ScaleInScope(const ScaleInScope&) = delete;
  ScaleInScope& operator=(const ScaleInScope&) = delete;

 private:
  CGFloat before_;
};

}  // namespace glyphwright::screen
