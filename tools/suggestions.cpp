#include "suggestions.h"

namespace glyphwright::cli {

std::string didYouMean(const std::vector<std::string>& names) {
  if (names.empty()) return {};
  std::string message = "; did you mean ";
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i > 0) message += i + 1 == names.size() ? " or " : ", ";
    message += names[i];
  }
  return message + '?';
}

}  // namespace glyphwright::cli
