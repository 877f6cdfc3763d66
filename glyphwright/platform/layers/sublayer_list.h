#pragma once

#include <cstddef>
#include <iterator>
#include <utility>
#include <vector>

namespace glyphwright {

/// A list in one piece that gives up an entry at the cost of the way to its nearer end: taking
/// layers off from the front one by one, or moving them to the end, costs no more than off the end.
template <typename T>
class SublayerList {
 public:
  const T* begin() const { return entries_.data() + first_; }
  const T* end() const { return entries_.data() + entries_.size(); }
  std::size_t size() const { return entries_.size() - first_; }
  const T& operator[](std::size_t index) const { return entries_[first_ + index]; }
  const T& back() const { return entries_.back(); }
  void reserve(std::size_t count) { entries_.reserve(first_ + count); }

  void push_back(T entry) {
    // Once as much room as this has been left in front, it is used again.
    if (first_ > size() && entries_.size() == entries_.capacity()) {
      entries_.erase(entries_.begin(), entries_.begin() + static_cast<std::ptrdiff_t>(first_));
      first_ = 0;
    }
    entries_.push_back(std::move(entry));
  }

  /// Takes the entry out that `is` holds for, looked for from both ends; an empty one if none.
  template <typename Predicate>
  T take(const Predicate& is) {
    std::size_t low = first_;
    for (std::size_t high = entries_.size(); low < high; ++low) {
      if (is(entries_[low])) return takeFromFront(low);
      if (is(entries_[--high])) return takeFromBack(high);
    }
    return T{};
  }

 private:
  T takeFromFront(std::size_t index) {
    T taken = std::move(entries_[index]);
    for (; index > first_; --index) entries_[index] = std::move(entries_[index - 1]);
    ++first_;
    return taken;
  }
  T takeFromBack(std::size_t index) {
    T taken = std::move(entries_[index]);
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(index));
    return taken;
  }

  std::vector<T> entries_;
  std::size_t first_ = 0;  // those before it have been taken
};

}  // namespace glyphwright
