#include "failing_memory.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <limits>
#include <new>

#include <malloc.h>

namespace {

constexpr std::size_t kNever = std::numeric_limits<std::size_t>::max();

struct Account {
  std::size_t allocations = 0;
  std::size_t refusedFrom = kNever;  // of the allocations
  std::size_t refusedUntil = kNever;
  std::ptrdiff_t held = 0;
  std::ptrdiff_t peak = 0;
};

constinit thread_local Account account;
constinit std::atomic<std::size_t> allHeld = 0;

void* given(void* memory) {
  if (memory == nullptr) throw std::bad_alloc();
  const std::size_t bytes = malloc_usable_size(memory);
  allHeld += bytes;
  account.held += static_cast<std::ptrdiff_t>(bytes);
  account.peak = std::max(account.peak, account.held);
  return memory;
}

void count() {
  const std::size_t number = account.allocations++;
  if (number >= account.refusedFrom && number < account.refusedUntil) throw std::bad_alloc();
}

void take(void* memory) {
  if (memory == nullptr) return;
  const std::size_t bytes = malloc_usable_size(memory);
  allHeld -= bytes;
  account.held -= static_cast<std::ptrdiff_t>(bytes);
  std::free(memory);
}

}  // namespace

void* operator new(std::size_t size) {
  count();
  return given(std::malloc(std::max(size, std::size_t{1})));
}

void* operator new(std::size_t size, std::align_val_t alignment) {
  count();
  const auto line = static_cast<std::size_t>(alignment);
  return given(std::aligned_alloc(line, (std::max(size, line) + line - 1) / line * line));
}

// The sanitizers' own would not end in the above.
void* operator new(std::size_t size, const std::nothrow_t& /*nothrow*/) noexcept {
  try {
    return ::operator new(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

void operator delete(void* memory) noexcept {
  take(memory);
}
void operator delete(void* memory, const std::nothrow_t& /*nothrow*/) noexcept {
  take(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept {
  take(memory);
}
void operator delete(void* memory, std::align_val_t /*alignment*/) noexcept {
  take(memory);
}
void operator delete(void* memory, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept {
  take(memory);
}

namespace glyphwright::memory {

FailsAfter::FailsAfter(std::size_t count, Refusal refusal) {
  account.refusedFrom = account.allocations + count;
  account.refusedUntil = refusal == Refusal::once ? account.refusedFrom + 1 : kNever;
}
FailsAfter::~FailsAfter() {
  account.refusedFrom = account.refusedUntil = kNever;
}

Watch::Watch() : allocationsBefore_(account.allocations), heldBefore_(account.held) {
  account.peak = account.held;
}
std::size_t Watch::allocations() const {
  return account.allocations - allocationsBefore_;
}
std::size_t Watch::peak() const {
  return static_cast<std::size_t>(account.peak - heldBefore_);
}

std::size_t bytesHeld() {
  return allHeld;
}

}  // namespace glyphwright::memory
