#pragma once

#include <stdexcept>

namespace glyphwright::cli {

/// The command line is wrong; the message says how, without the program's name.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace glyphwright::cli
