#include "glob.h"

#include <algorithm>
#include <cctype>

#include "usage_error.h"

namespace glyphwright::cli {
namespace {

constexpr std::size_t kMostAlternatives = 1000;
constexpr auto kNowhere = std::string_view::npos;

std::string inSmallLetters(std::string_view text) {
  std::string small;
  for (const char c : text) {
    small += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  }
  return small;
}

[[noreturn]] void refuse(std::string_view pattern, std::string_view why) {
  throw UsageError("the pattern \"" + std::string(pattern) + "\" has " + std::string(why));
}

/// What the first braces of the pattern leave open, each way once; braces do not stand in braces.
std::vector<std::string> withoutFirstBraces(const std::string& pattern, std::string_view whole) {
  const std::size_t open = pattern.find('{');
  const std::size_t close = pattern.find('}', open);
  if (close == kNowhere || pattern.find('{', open + 1) < close) {
    refuse(whole, "a { without a } of its own");
  }
  std::vector<std::string> ways;
  for (std::size_t at = open + 1; at <= close;) {
    const std::size_t end = std::min(pattern.find(',', at), close);
    ways.push_back(pattern.substr(0, open) + pattern.substr(at, end - at) +
                   pattern.substr(close + 1));
    at = end + 1;
  }
  return ways;
}

/// The length of the part that stands for one character, at the pattern's begin.
std::size_t unitLength(std::string_view pattern) {
  if (pattern.front() != '[') return 1;
  const std::size_t close = pattern.find(']', pattern.starts_with("[!") ? 3 : 2);
  return close == kNowhere ? kNowhere : close + 1;
}

bool unitMatches(std::string_view unit, char c) {
  if (unit.front() == '?') return true;
  if (unit.front() != '[') return unit.front() == c;
  unit = unit.substr(1, unit.size() - 2);
  const bool inverted = unit.starts_with('!');
  if (inverted) unit.remove_prefix(1);
  bool found = false;
  for (std::size_t i = 0; i < unit.size(); ++i) {
    const bool range = i + 2 < unit.size() && unit[i + 1] == '-';
    found = found || (range ? unit[i] <= c && c <= unit[i + 2] : unit[i] == c);
    if (range) i += 2;
  }
  return found != inverted;
}

/// Goes back to the last star only, so that no pattern takes longer than its length times the
/// text's.
bool matchesAll(std::string_view pattern, std::string_view text) {
  std::size_t at = 0;
  std::size_t read = 0;
  std::size_t afterStar = kNowhere;
  std::size_t starReads = 0;
  while (read < text.size()) {
    if (at < pattern.size() && pattern[at] == '*') {
      afterStar = ++at;
      starReads = read;
      continue;
    }
    const std::size_t length = at < pattern.size() ? unitLength(pattern.substr(at)) : 0;
    if (length > 0 && unitMatches(pattern.substr(at, length), text[read])) {
      at += length;
      ++read;
    } else if (afterStar != kNowhere) {
      at = afterStar;
      read = ++starReads;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', at) == kNowhere;
}

void checkBrackets(std::string_view pattern, std::string_view whole) {
  while (!pattern.empty()) {
    const std::size_t length = unitLength(pattern);
    if (length == kNowhere) refuse(whole, "a [ without its ]");
    pattern.remove_prefix(length);
  }
}

}  // namespace

bool isGlob(std::string_view text) {
  return text.find_first_of("*?[{") != kNowhere;
}

Glob::Glob(std::string_view pattern) : alternatives_{inSmallLetters(pattern)} {
  while (alternatives_.front().find('{') != kNowhere) {
    std::vector<std::string> ways;
    for (const std::string& alternative : alternatives_) {
      for (std::string& way : withoutFirstBraces(alternative, pattern)) {
        ways.push_back(std::move(way));
      }
      if (ways.size() > kMostAlternatives) refuse(pattern, "too many alternatives");
    }
    alternatives_ = std::move(ways);
  }
  for (const std::string& alternative : alternatives_) checkBrackets(alternative, pattern);
}

bool Glob::matches(std::string_view text) const {
  const std::string small = inSmallLetters(text);
  return std::ranges::any_of(alternatives_, [&](const std::string& alternative) {
    return matchesAll(alternative, small);
  });
}

}  // namespace glyphwright::cli
