#include "failing_memory.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <new>

#include <malloc.h>

namespace {

constexpr std::size_t kNever = std::numeric_limits<std::size_t>::max();

struct Account {
  std::size_t left = kNever;  // allocations that succeed
  std::ptrdiff_t held = 0;
  std::ptrdiff_t peak = 0;
};

thread_local Account account;

void* given(void* memory) {
  if (memory == nullptr) throw std::bad_alloc();
  account.held += static_cast<std::ptrdiff_t>(malloc_usable_size(memory));
  account.peak = std::max(account.peak, account.held);
  return memory;
}

void count() {
  if (account.left == kNever) return;
  if (account.left == 0) throw std::bad_alloc();
  --account.left;
}

void take(void* memory) {
  account.held -= static_cast<std::ptrdiff_t>(malloc_usable_size(memory));
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

void operator delete(void* memory) noexcept {
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

FailsAfter::FailsAfter(std::size_t count) {
  account.left = count;
}
FailsAfter::~FailsAfter() {
  account.left = kNever;
}

Peak::Peak() : before_(account.held) {
  account.peak = account.held;
}
std::size_t Peak::bytes() const {
  return static_cast<std::size_t>(account.peak - before_);
}

}  // namespace glyphwright::memory
