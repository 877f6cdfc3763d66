// Exceptions for wasm32, whose C++ library comes without them: what the compiler calls to throw and
// to catch, and the search for the clause that fits. Only what is thrown and caught within the
// module; a module has one thread.

#include <cstdint>
#include <cstdlib>
#include <exception>
#include <new>
#include <typeinfo>

namespace __cxxabiv1 {

// The virtual functions of every type_info of the C++ library, which only they know to tell whether
// a clause for one class catches an object of another.
class __shim_type_info : public std::type_info {
 public:
  ~__shim_type_info() override;
  virtual void noop1() const;
  virtual void noop2() const;
  virtual bool can_catch(const __shim_type_info* thrown, void*& adjusted) const = 0;
};

}  // namespace __cxxabiv1

namespace {

using TypeInfo = __cxxabiv1::__shim_type_info;
using Destructor = void* (*)(void*);

/// Stands before every thrown object.
struct alignas(16) Thrown {
  const std::type_info* type;
  Destructor destroy;
  /// The object as the clause sees it.
  void* adjusted;
  Thrown* outer;
  unsigned catches;

  void* object() { return this + 1; }
};

Thrown* caught = nullptr;

// The table that the compiler lays down for each function that catches, in the form of the Itanium
// C++ ABI: https://itanium-cxx-abi.github.io/cxx-abi/exceptions.pdf.
std::uintptr_t readUnsigned(const std::uint8_t*& at) {
  std::uintptr_t value = 0;
  for (unsigned shift = 0;; shift += 7) {
    const std::uint8_t byte = *at++;
    value |= static_cast<std::uintptr_t>(byte & 0x7F) << shift;
    if ((byte & 0x80) == 0) return value;
  }
}

std::intptr_t readSigned(const std::uint8_t*& at) {
  std::uintptr_t value = 0;
  unsigned shift = 0;
  std::uint8_t byte = 0;
  do {
    byte = *at++;
    value |= static_cast<std::uintptr_t>(byte & 0x7F) << shift;
    shift += 7;
  } while ((byte & 0x80) != 0);
  if ((byte & 0x40) != 0 && shift < 32) value |= ~std::uintptr_t{0} << shift;
  return static_cast<std::intptr_t>(value);
}

/// The number of the clause that catches, 0 for none: the first of the landing pad's actions whose
/// type fits. Clauses of type null catch everything.
std::intptr_t clauseFor(Thrown& thrown, const std::uint8_t* table, std::uintptr_t landingPad) {
  constexpr std::uint8_t omitted = 0xFF;
  const std::uint8_t* at = table;
  if (*at++ != omitted) std::abort();  // landing pads are numbers here
  const std::uint8_t* types = nullptr;
  if (*at++ != omitted) {
    const std::uintptr_t distance = readUnsigned(at);
    types = at + distance;
  }
  ++at;  // the call sites' encoding
  const std::uintptr_t length = readUnsigned(at);
  const std::uint8_t* actions = at + length;
  std::uintptr_t action = 0;
  for (std::uintptr_t i = 0; i <= landingPad; ++i) {
    if (at >= actions) return 0;
    readUnsigned(at);
    action = readUnsigned(at);
  }
  if (action == 0 || types == nullptr) return 0;
  for (const std::uint8_t* record = actions + action - 1;;) {
    const std::intptr_t clause = readSigned(record);
    const std::uint8_t* const from = record;
    const std::intptr_t next = readSigned(record);
    if (clause > 0) {
      const auto* type = reinterpret_cast<const TypeInfo* const*>(types)[-clause];
      thrown.adjusted = thrown.object();
      if (type == nullptr ||
          type->can_catch(static_cast<const TypeInfo*>(thrown.type), thrown.adjusted)) {
        return clause;
      }
    }
    if (next == 0) return 0;
    record = from + next;
  }
}

}  // namespace

extern "C" {

/// What a landing pad says about itself, and what it is told.
struct {
  std::uintptr_t landingPad;
  const std::uint8_t* table;
  std::uintptr_t clause;
} __wasm_lpad_context;

int _Unwind_CallPersonality(void* exception) {
  auto& pad = __wasm_lpad_context;
  pad.clause = static_cast<std::uintptr_t>(
      clauseFor(*static_cast<Thrown*>(exception), pad.table, pad.landingPad));
  return 0;
}

void* __cxa_allocate_exception(std::size_t size) {
  auto* const thrown = static_cast<Thrown*>(std::malloc(sizeof(Thrown) + size));
  if (thrown == nullptr) std::abort();
  return thrown->object();
}

void __cxa_free_exception(void* object) {
  std::free(static_cast<Thrown*>(object) - 1);
}

void __cxa_throw(void* object, std::type_info* type, Destructor destroy) {
  Thrown* const thrown = static_cast<Thrown*>(object) - 1;
  *thrown = {type, destroy, object, nullptr, 0};
  __builtin_wasm_throw(0, thrown);
}

void* __cxa_begin_catch(void* exception) {
  auto* const thrown = static_cast<Thrown*>(exception);
  if (thrown->catches++ == 0) {
    thrown->outer = caught;
    caught = thrown;
  }
  return thrown->adjusted;
}

void __cxa_end_catch() {
  Thrown* const thrown = caught;
  if (--thrown->catches > 0) return;
  caught = thrown->outer;
  if (thrown->destroy != nullptr) thrown->destroy(thrown->object());
  std::free(thrown);
}

void __cxa_rethrow() {
  Thrown* const thrown = caught;
  caught = thrown->outer;
  thrown->catches = 0;
  __builtin_wasm_throw(0, thrown);
}

}  // extern "C"

// The C++ library's own ends the module where it ought to throw.
void* operator new(std::size_t size) {
  void* const memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}
void* operator new[](std::size_t size) {
  return operator new(size);
}
