#pragma once

#include <cstddef>

/// Memory of this thread's tests: it can be made to fail, and it is counted. The tests' program
/// replaces the operators new and delete for that.
namespace glyphwright::memory {

enum class Refusal { once, fromThereOn };

/// The next `count` allocations of this thread succeed; the one after them throws std::bad_alloc,
/// and so do the others, or none, until the scope ends.
class FailsAfter {
 public:
  explicit FailsAfter(std::size_t count, Refusal refusal = Refusal::fromThereOn);
  FailsAfter(const FailsAfter&) = delete;
  FailsAfter& operator=(const FailsAfter&) = delete;
  ~FailsAfter();
};

/// What this thread has allocated since the scope began.
class Watch {
 public:
  Watch();
  std::size_t allocations() const;
  /// The most bytes that it has held at once beyond what it held at first.
  std::size_t peak() const;

 private:
  std::size_t allocationsBefore_;
  std::ptrdiff_t heldBefore_;
};

/// Bytes that all threads hold.
std::size_t bytesHeld();

}  // namespace glyphwright::memory
