#include <glyphwright/catalogue/words.h>

#include <algorithm>
#include <numeric>
#include <utility>

namespace glyphwright {
namespace {

constexpr bool isUpper(char c) {
  return c >= 'A' && c <= 'Z';
}
constexpr char lower(char c) {
  return isUpper(c) ? static_cast<char>(c - 'A' + 'a') : c;
}
constexpr bool isWordCharacter(char c) {
  return (lower(c) >= 'a' && lower(c) <= 'z') || (c >= '0' && c <= '9');
}

}  // namespace

std::string lowered(std::string_view text) {
  std::string result(text);
  std::ranges::transform(result, result.begin(), lower);
  return result;
}

std::vector<std::string> splitWords(std::string_view text) {
  std::vector<std::string> words;
  bool begin = true;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (!isWordCharacter(text[i])) {
      begin = true;
      continue;
    }
    if (begin || (isUpper(text[i]) && !isUpper(text[i - 1]))) words.emplace_back();
    words.back() += lower(text[i]);
    begin = false;
  }
  return words;
}

std::size_t editDistance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> beforeLast(b.size() + 1), last(b.size() + 1), row(b.size() + 1);
  std::iota(last.begin(), last.end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t change = a[i - 1] == b[j - 1] ? 0 : 1;
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + change});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
        row[j] = std::min(row[j], beforeLast[j - 2] + 1);
      }
    }
    std::swap(beforeLast, last);
    std::swap(last, row);
  }
  return last[b.size()];
}

}  // namespace glyphwright
