#pragma once

#include <string>
#include <string_view>

/// Where the tests find things. Only places.cpp knows the folders, so that every other object file
/// is the same in every clone and the compiler's cache serves them all.
namespace glyphwright::places {

std::string inSource(std::string_view file);  ///< of the project's own files
std::string inFrozen(std::string_view file);  ///< what is compared with: tests/frozen
std::string inOutput(std::string_view file);  ///< where tests may write
std::string program();                        ///< the command line program

}  // namespace glyphwright::places
