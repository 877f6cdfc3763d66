#pragma once

#include <initializer_list>
#include <string_view>

namespace glyphwright {

/// Ends the process: writes "glyphwright: " and the pieces of `message`, one after the other, as a
/// line on stderr and aborts. For faults of the program, never for odd input.
[[noreturn]] void fatal(std::initializer_list<std::string_view> message);
[[noreturn]] void fatal(std::string_view message);

}  // namespace glyphwright
