#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <exception>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <glyphwright/bezier_path.h>
#include <glyphwright/c/glyphwright.h>
#include <glyphwright/platform/pixel_buffer.h>

/// What lies behind the handles.
struct glyphwright_path {
  glyphwright::UIBezierPath path;
};

struct glyphwright_image {
  std::vector<std::uint8_t> pixels;
  std::size_t width = 0;
  std::size_t height = 0;
  glyphwright::PixelFormat format = glyphwright::PixelFormat::premultipliedRGBA;
};

/// Between C and C++: nothing that C cannot take gets through.
namespace glyphwright::c {

/// Ends a call early with a status and what to say about it.
struct Failure {
  glyphwright_status status;
  std::string text;
};

[[noreturn]] inline void refuse(std::string text) {
  throw Failure{GLYPHWRIGHT_INVALID_ARGUMENT, std::move(text)};
}

inline void write(const glyphwright_message* message, std::string_view text) noexcept {
  if (message == nullptr || message->text == nullptr || message->capacity == 0) return;
  const std::size_t length = std::min(text.size(), message->capacity - 1);
  std::copy_n(text.data(), length, message->text);
  message->text[length] = '\0';
}

/// Runs the body of a call.
template <typename Body>
glyphwright_status guarded(const glyphwright_message* message, const Body& body) noexcept {
  try {
    body();
    write(message, {});
    return GLYPHWRIGHT_OK;
  } catch (const Failure& failure) {
    write(message, failure.text);
    return failure.status;
  } catch (const std::bad_alloc&) {
    write(message, "not enough memory");
    return GLYPHWRIGHT_OUT_OF_MEMORY;
  } catch (const std::exception& error) {
    write(message, error.what());
    return GLYPHWRIGHT_INTERNAL_ERROR;
  } catch (...) {
    write(message, "a fault of the library's own");
    return GLYPHWRIGHT_INTERNAL_ERROR;
  }
}

template <typename T>
T& given(T* argument, const char* name) {
  if (argument == nullptr) refuse(std::string(name) + " is null");
  return *argument;
}

/// A struct as this library knows it, from one that may have been compiled with fewer or more
/// fields. `firstSize` is that of the oldest version.
template <typename Struct>
Struct read(const Struct* argument, const char* name, std::size_t firstSize = sizeof(Struct)) {
  const std::size_t size = given(argument, name).struct_size;
  const std::string where = std::string(name) + "->struct_size";
  if (size < firstSize) refuse(where + " must be the struct's sizeof");
  const auto* bytes = reinterpret_cast<const unsigned char*>(argument);
  if (size > sizeof(Struct)) {
    const auto isSet = [](unsigned char byte) { return byte != 0; };
    if (size > 4096) refuse(where + " must be the struct's sizeof");
    if (std::any_of(bytes + sizeof(Struct), bytes + size, isSet)) {
      refuse(std::string(name) + " asks for what only a newer library knows");
    }
  }
  Struct known{};
  std::memcpy(&known, bytes, std::min(size, sizeof(Struct)));
  return known;
}

/// Hands out as much of a struct as the caller has room for.
template <typename Struct>
void give(Struct* argument, const char* name, Struct known,
          std::size_t firstSize = sizeof(Struct)) {
  const std::uint32_t size = given(argument, name).struct_size;
  if (size < firstSize) refuse(std::string(name) + "->struct_size must be the struct's sizeof");
  known.struct_size = size;
  std::memcpy(argument, &known, std::min(std::size_t{size}, sizeof(Struct)));
}

PixelFormat formatOf(std::int32_t format);
/// The caller's memory, for an image of these pixels.
PixelBuffer bufferOf(const glyphwright_buffer* buffer, std::size_t width, std::size_t height);

}  // namespace glyphwright::c
