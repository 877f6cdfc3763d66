#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace glyphwright {

/// A list that may stand in the program as a constant. Reading and copying it then costs nothing;
/// the first change makes it a list of its own.
template <typename T>
class LiteralList {
 public:
  LiteralList() = default;
  /// `literal` must outlive this list and all its copies, as constants do.
  explicit LiteralList(std::span<const T> literal) : literal_(literal) {}

  /// The elements, to be read; valid until the list changes.
  std::span<const T> view() const { return literal_.empty() ? std::span<const T>(own_) : literal_; }
  /// The elements, to be changed.
  std::vector<T>& edit() {
    if (!literal_.empty()) own_.assign(literal_.begin(), literal_.end());
    literal_ = {};
    return own_;
  }
  /// As many elements of any value, all of which are about to be set.
  std::vector<T>& renew(std::size_t size) {
    own_.resize(size);
    literal_ = {};
    return own_;
  }

 private:
  std::span<const T> literal_;
  std::vector<T> own_;
};

}  // namespace glyphwright
