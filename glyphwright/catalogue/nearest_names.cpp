#include <algorithm>
#include <utility>

#include <glyphwright/catalogue/catalogue.h>
#include <glyphwright/catalogue/icons.h>
#include <glyphwright/catalogue/resolve.h>
#include <glyphwright/catalogue/words.h>
#include <glyphwright/paths/method_names.h>

namespace glyphwright {
namespace {

// Closeness runs from 0 (nothing in common) to 1 (the same but for upper and lower case).
constexpr double leastCloseness = 0.6;
constexpr double exactWord = 1, startOfWord = 0.85, mistypedWord = 0.8, runTogetherWord = 0.7;
constexpr double costOfExtraWord = 0.03;

constexpr std::size_t longestText = 128;

/// The words of a name or a phrase. "icon" and "path" say nothing and are left out, unless there is
/// nothing else.
std::vector<std::string> wordsOf(std::string_view text) {
  std::vector<std::string> words = splitWords(text);
  const auto saysNothing = [](const std::string& word) { return word == "icon" || word == "path"; };
  if (!std::ranges::all_of(words, saysNothing)) std::erase_if(words, saysNothing);
  return words;
}

double spellingCloseness(std::string_view a, std::string_view b) {
  const auto longer = static_cast<double>(std::max(a.size(), b.size()));
  return longer == 0 ? 0 : 1 - static_cast<double>(editDistance(a, b)) / longer;
}

double wordCloseness(std::string_view asked, std::string_view word) {
  if (asked == word) return exactWord;
  if (asked.size() < 3) return 0;
  if (word.starts_with(asked)) return startOfWord;
  return asked.size() > 3 && editDistance(asked, word) == 1 ? mistypedWord : 0;
}

/// How much of the words asked for the name has, one by one or run together ("checkmark" is in
/// "checkMark").
double phraseCloseness(const std::vector<std::string>& asked, std::string_view name) {
  if (asked.empty()) return 0;
  const std::vector<std::string> words = wordsOf(name);
  const std::string runTogether = lowered(name);
  double sum = 0;
  for (const std::string& one : asked) {
    const bool inside = one.size() > 3 && runTogether.find(one) != std::string::npos;
    double best = inside ? runTogetherWord : 0;
    for (const std::string& word : words) best = std::max(best, wordCloseness(one, word));
    sum += best;
  }
  const std::size_t extra = words.size() > asked.size() ? words.size() - asked.size() : 0;
  return sum / static_cast<double>(asked.size()) - costOfExtraWord * static_cast<double>(extra);
}

std::string_view withoutEnding(std::string_view name) {
  for (const std::string_view ending : {"path", "icon"}) {
    if (name.size() > ending.size() && name.ends_with(ending)) name.remove_suffix(ending.size());
  }
  return name;
}

/// What was asked for, taken apart once.
class Question {
 public:
  explicit Question(std::string_view text)
      : dotted_(text.find('.') != std::string_view::npos),
        text_(lowered(text.substr(0, longestText))),
        words_(wordsOf(text.substr(0, longestText))) {}

  bool dotted() const { return dotted_; }

  double closeness(std::string_view name) const {
    // Somebody who writes no dot means the last component.
    const std::string_view compared = dotted_ ? name : name.substr(name.rfind('.') + 1);
    const std::string plain = lowered(compared);
    return std::max({spellingCloseness(text_, plain),
                     spellingCloseness(withoutEnding(text_), withoutEnding(plain)),
                     phraseCloseness(words_, compared)});
  }

 private:
  bool dotted_;
  std::string text_;
  std::vector<std::string> words_;
};

struct Suggestion {
  double closeness;
  std::string_view method;
  std::string name;
};

class Suggestions {
 public:
  explicit Suggestions(std::string_view text) : question_(text) {}

  void consider(std::string name, std::string_view method) {
    const double closeness = question_.closeness(name);
    if (closeness >= leastCloseness) found_.push_back({closeness, method, std::move(name)});
  }
  void consider(const EnumerationRecord& enumeration) {
    for (const CaseRecord& record : enumeration.cases) {
      consider(std::string(enumeration.name).append(".").append(record.name), record.rawValue);
    }
  }
  bool dotted() const { return question_.dotted(); }

  /// Best first; of equal ones, the one considered first.
  std::vector<std::string> best(std::size_t count) && {
    std::ranges::stable_sort(found_, std::greater<>(), &Suggestion::closeness);
    std::vector<std::string> names;
    std::vector<std::string_view> methods;
    for (Suggestion& suggestion : found_) {
      if (names.size() == count) break;
      if (std::ranges::find(methods, suggestion.method) != methods.end()) continue;
      methods.push_back(suggestion.method);
      names.push_back(std::move(suggestion.name));
    }
    return names;
  }

 private:
  Question question_;
  std::vector<Suggestion> found_;
};

}  // namespace

std::vector<std::string> nearestNames(std::string_view text, std::size_t count) {
  Suggestions suggestions(text);
  const auto considerMethods = [&] {
    for (const std::string_view name : iconMethodNames) {
      suggestions.consider(std::string(name), name);
    }
  };
  if (!suggestions.dotted()) considerMethods();
  for (const EnumerationRecord* enumeration : catalogueEnumerations) {
    suggestions.consider(*enumeration);
  }
  suggestions.consider(Icons::enumeration);
  if (suggestions.dotted()) considerMethods();
  return std::move(suggestions).best(count);
}

std::vector<std::string> nearestNames(std::string_view text,
                                      std::span<const std::string_view> among, std::size_t count) {
  Suggestions suggestions(text);
  for (const std::string_view name : among) suggestions.consider(std::string(name), name);
  return std::move(suggestions).best(count);
}

}  // namespace glyphwright
