#pragma once

#include <cstddef>

/// Every allocation of this program goes through here: counted, and refused when a test wants that.
/// What one thread watches or refuses does not touch another.
namespace glyphwright::memory {

/// Counts what this thread allocates while it stands.
class Watch {
 public:
  Watch();
  ~Watch();
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;

  /// Allocations so far.
  std::size_t count() const;
  /// The most bytes that were in use at once beyond those at the start.
  std::size_t peak() const;
};

enum class Refusal { once, fromThereOn };

/// While it stands, this thread's allocation number `which` (from 0) throws std::bad_alloc, and
/// with `fromThereOn` every later one does, too.
class Refuse {
 public:
  Refuse(std::size_t which, Refusal refusal);
  ~Refuse();
  Refuse(const Refuse&) = delete;
  Refuse& operator=(const Refuse&) = delete;

  /// Whether one was refused.
  static bool happened();
};

/// Bytes in use in the whole program.
std::size_t bytesInUse();

}  // namespace glyphwright::memory
