#pragma once

#include <cstddef>

/// Memory of this thread's tests: it can be made to fail, and it is counted. The tests' program
/// replaces the operators new and delete for that.
namespace glyphwright::memory {

/// The next `count` allocations of this thread succeed, and those after it throw std::bad_alloc,
/// until the scope ends.
class FailsAfter {
 public:
  explicit FailsAfter(std::size_t count);
  FailsAfter(const FailsAfter&) = delete;
  FailsAfter& operator=(const FailsAfter&) = delete;
  ~FailsAfter();
};

/// The most bytes that this thread has held at once since the scope began, beyond what it held
/// then.
class Peak {
 public:
  Peak();
  std::size_t bytes() const;

 private:
  std::ptrdiff_t before_;
};

}  // namespace glyphwright::memory
