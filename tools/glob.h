#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace glyphwright::cli {

/// Whether the text is a pattern and no name: it has one of * ? [ {.
bool isGlob(std::string_view text);

/// A pattern of names: * is any run of characters, ? any one, [a-c] one of these and [!a-c] none of
/// them, {one,two} either. Capitals and small letters are the same.
class Glob {
 public:
  /// Throws UsageError for a bracket without its partner and for more than a thousand alternatives.
  explicit Glob(std::string_view pattern);

  bool matches(std::string_view text) const;

 private:
  /// Without braces, in small letters.
  std::vector<std::string> alternatives_;
};

}  // namespace glyphwright::cli
