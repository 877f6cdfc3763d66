#include "allocations.h"

#include <atomic>
#include <cstdlib>
#include <limits>
#include <new>

#include <malloc.h>

namespace {

constexpr std::size_t kNever = std::numeric_limits<std::size_t>::max();

// Plain values, so that nothing has to be made when a thread first allocates.
struct Thread {
  std::size_t count;
  std::ptrdiff_t inUse;  // may fall below zero where other threads' memory is freed
  std::ptrdiff_t peak;
  std::size_t refuseFrom;
  std::size_t refuseUntil;
  bool refused;
};
constinit thread_local Thread thread{0, 0, 0, kNever, kNever, false};
constinit std::atomic<std::size_t> inUse = 0;

void* allocate(std::size_t size, std::size_t alignment) {
  const std::size_t number = thread.count++;
  if (number >= thread.refuseFrom && number < thread.refuseUntil) {
    thread.refused = true;
    throw std::bad_alloc();
  }
  if (size == 0) size = 1;
  void* memory = alignment == 0 ? std::malloc(size)
                                : std::aligned_alloc(
                                      alignment, (size + alignment - 1) / alignment * alignment);
  if (memory == nullptr) throw std::bad_alloc();
  const std::size_t bytes = malloc_usable_size(memory);
  inUse += bytes;
  thread.inUse += static_cast<std::ptrdiff_t>(bytes);
  if (thread.inUse > thread.peak) thread.peak = thread.inUse;
  return memory;
}

void release(void* memory) noexcept {
  if (memory == nullptr) return;
  const std::size_t bytes = malloc_usable_size(memory);
  inUse -= bytes;
  thread.inUse -= static_cast<std::ptrdiff_t>(bytes);
  std::free(memory);
}

}  // namespace

// The other forms of the standard library end in these.
void* operator new(std::size_t size) {
  return allocate(size, 0);
}
void* operator new(std::size_t size, std::align_val_t alignment) {
  return allocate(size, static_cast<std::size_t>(alignment));
}
void operator delete(void* memory) noexcept {
  release(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept {
  release(memory);
}
void operator delete(void* memory, std::align_val_t /*alignment*/) noexcept {
  release(memory);
}
void operator delete(void* memory, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept {
  release(memory);
}

namespace glyphwright::memory {

Watch::Watch() {
  thread.count = 0;
  thread.inUse = 0;
  thread.peak = 0;
}

Watch::~Watch() = default;

std::size_t Watch::count() const {
  return thread.count;
}

std::size_t Watch::peak() const {
  return static_cast<std::size_t>(thread.peak);
}

Refuse::Refuse(std::size_t which, Refusal refusal) {
  thread.count = 0;
  thread.refused = false;
  thread.refuseFrom = which;
  thread.refuseUntil = refusal == Refusal::once ? which + 1 : kNever;
}

Refuse::~Refuse() {
  thread.refuseFrom = kNever;
  thread.refuseUntil = kNever;
}

bool Refuse::happened() {
  return thread.refused;
}

std::size_t bytesInUse() {
  return inUse;
}

}  // namespace glyphwright::memory
