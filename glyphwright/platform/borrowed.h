#pragma once

#include <concepts>
#include <cstddef>
#include <initializer_list>
#include <span>
#include <vector>

namespace glyphwright {

/// How a function takes an object that it only looks at: as itself, by a pointer, by a
/// std::shared_ptr, or, with `nullptr` or `{}`, not at all. What a function keeps it takes as a
/// std::shared_ptr; so a shared object is passed as it is, everywhere. For parameters: nothing is
/// kept alive.
template <typename T>
class Borrowed {
 public:
  /// No object.
  constexpr Borrowed(std::nullptr_t = nullptr) {}
  /// The object has to outlive the call. A null pointer is no object.
  constexpr Borrowed(T& object) : object_(&object) {}
  constexpr Borrowed(T* object) : object_(object) {}
  /// Any pointer that knows its object, held by a smart one.
  template <typename Pointer>
  requires requires(const Pointer& pointer) {
    { pointer.get() } -> std::convertible_to<T*>;
  }
  constexpr Borrowed(const Pointer& pointer) : object_(pointer.get()) {}

  /// Whether there is an object.
  constexpr explicit operator bool() const { return object_ != nullptr; }
  /// Null without one.
  constexpr T* get() const { return object_; }
  /// Only where there is one; nothing checks it.
  constexpr T* operator->() const { return object_; }
  constexpr T& operator*() const { return *object_; }

 private:
  T* object_ = nullptr;
};

/// How a function takes a list that it only looks at: in braces, or as whatever a span can be made
/// of; a container of things that turn into `T` is copied. For parameters, as above.
template <typename T>
class BorrowedList : public std::span<const T> {
  using Span = std::span<const T>;

 public:
  constexpr BorrowedList() = default;
  /// In braces: good until the end of the full expression, as the elements live no longer.
  constexpr BorrowedList(std::initializer_list<T> list) : Span(list.begin(), list.size()) {}
  /// Looks at the elements where they are: the container has to outlive the call, unchanged.
  template <typename List>
  requires std::convertible_to<const List&, Span>
  constexpr BorrowedList(const List& list) : Span(list) {}
  /// Copies the elements, each turned into a `T`.
  template <typename List>
  requires(!std::convertible_to<const List&, Span> &&
           requires(const List& list) {
             { *list.begin() } -> std::convertible_to<T>;
             list.end();
           }) BorrowedList(const List& list)
      : own_(list.begin(), list.end()) {
    static_cast<Span&>(*this) = own_;
  }
  BorrowedList(const BorrowedList&) = delete;
  BorrowedList& operator=(const BorrowedList&) = delete;

 private:
  std::vector<T> own_;
};

}  // namespace glyphwright
