#include <glyphwright/catalogue/search.h>

#include <algorithm>
#include <array>
#include <string>

#include <glyphwright/catalogue/catalogue.h>
#include <glyphwright/catalogue/icon_type.h>
#include <glyphwright/catalogue/icons.h>
#include <glyphwright/catalogue/keywords.h>
#include <glyphwright/catalogue/words.h>

// web/search.js is this file once more, for a page without the library; a test holds both equal.
namespace glyphwright {
namespace {

// What a word is worth by where it was found. A longer name and a later keyword are worth a little
// less; no such deduction reaches down to the next kind of place.
constexpr int wholeName = 1000, nameWord = 100, keyword = 84, startOfNameWord = 64,
              startOfKeyword = 56, sectionWord = 40, insideNameWord = 36, startOfSectionWord = 30,
              nearNameWord = 24, nearKeyword = 18;
constexpr std::size_t mostDeducted = 6;

constexpr std::size_t longestText = 128;

// Words that people write without meaning a difference.
constexpr std::array<std::string_view, 13> empty = {
    "a", "an", "and", "for", "icon", "icons", "in", "of", "path", "symbol", "the", "to", "with"};

using Words = std::vector<std::string>;

/// "hearts" is "heart".
std::string singular(std::string word) {
  if (word.size() > 3 && word.ends_with('s') && !word.ends_with("ss")) word.pop_back();
  return word;
}

Words tellingWords(std::string_view text) {
  Words words = splitWords(text);
  const auto isEmpty = [](const std::string& word) {
    return std::ranges::find(empty, word) != empty.end();
  };
  if (!std::ranges::all_of(words, isEmpty)) std::erase_if(words, isEmpty);
  std::ranges::transform(words, words.begin(), singular);
  return words;
}

std::string runTogether(const Words& words) {
  std::string all;
  for (const std::string& word : words) all += word;
  return all;
}

/// Everything that one icon or image can be found by.
struct Entry {
  std::string_view name;
  /// Each name in its words; beside it, in one.
  std::vector<Words> names;
  Words wholeNames;
  Words keywords;
  Words sections;

  void addName(std::string_view text) {
    names.push_back(tellingWords(text));
    wholeNames.push_back(runTogether(names.back()));
    wholeNames.push_back(lowered(text));
  }
  void add(const EnumerationRecord& enumeration) {
    bool listed = false;
    for (const CaseRecord& record : enumeration.cases) {
      if (record.rawValue != name) continue;
      addName(record.name);
      listed = true;
    }
    if (!listed) return;
    for (const std::string_view text : {enumeration.name, enumeration.title}) {
      for (std::string& word : tellingWords(text)) sections.push_back(std::move(word));
    }
  }
};

Entry entryOf(const KeywordRecord& record) {
  Entry entry{record.name, {}, {}, tellingWords(record.keywords), {}};
  if (record.isImage()) {
    const std::size_t dot = record.name.rfind('.');
    entry.addName(record.name.substr(dot + 1));
    entry.sections = tellingWords(record.name.substr(0, dot));
    return entry;
  }
  entry.addName(record.name);
  for (const EnumerationRecord* enumeration : catalogueEnumerations) entry.add(*enumeration);
  for (const CaseRecord& each : Icons::enumeration.cases) {
    if (each.rawValue == record.name) entry.addName(each.name);
  }
  return entry;
}

int less(int worth, std::size_t deducted) {
  return worth - 2 * static_cast<int>(std::min(deducted, mostDeducted));
}

/// What a word of a name, a keyword or a section is worth when it fits the word asked for.
struct Worth {
  int same, start, inside;
};

int fit(const std::string& asked, const std::string& word, const Worth& worth) {
  if (word == asked) return worth.same;
  if (word.starts_with(asked)) return worth.start;
  return asked.size() > 3 && word.find(asked) != std::string::npos ? worth.inside : 0;
}

int worthOf(const std::string& asked, const Entry& entry) {
  int best = 0;
  for (const Words& name : entry.names) {
    for (const std::string& word : name) {
      const int worth = fit(asked, word, {nameWord, startOfNameWord, insideNameWord});
      best = std::max(best, worth == nameWord ? less(worth, name.size() - 1) : worth);
    }
  }
  for (std::size_t i = 0; i < entry.keywords.size(); ++i) {
    const int worth = fit(asked, entry.keywords[i], {keyword, startOfKeyword, 0});
    if (worth > 0) best = std::max(best, less(worth, i));
  }
  for (const std::string& word : entry.sections) {
    best = std::max(best, fit(asked, word, {sectionWord, startOfSectionWord, 0}));
  }
  return best;
}

/// A letter in four or five may be wrong, two in more; swapped neighbours are one.
bool isNear(const std::string& asked, const std::string& word) {
  if (asked.size() < 4) return false;
  const std::size_t allowed = asked.size() < 7 ? 1 : 2;
  return word.size() + allowed >= asked.size() && asked.size() + allowed >= word.size() &&
         editDistance(asked, word) <= allowed;
}

int nearWorthOf(const std::string& asked, const Entry& entry) {
  int best = 0;
  for (const Words& name : entry.names) {
    for (const std::string& word : name) {
      if (isNear(asked, word)) best = std::max(best, less(nearNameWord, name.size() - 1));
    }
  }
  for (std::size_t i = 0; i < entry.keywords.size(); ++i) {
    if (isNear(asked, entry.keywords[i])) best = std::max(best, less(nearKeyword, i));
  }
  return best;
}

/// What was asked for: a name in full, words, or both.
struct Question {
  /// The one that has the name, if any has.
  std::string_view named;
  /// Whether the name is in a form that is nothing but a name.
  bool onlyName = false;
  Words words;
};

std::string_view methodOfType(std::string_view digits) {
  if (digits.empty() || digits.size() > 3) return {};
  std::size_t number = 0;
  for (const char c : digits) {
    if (c < '0' || c > '9') return {};
    number = number * 10 + static_cast<std::size_t>(c - '0');
  }
  return number < iconTypes.size() ? iconTypes[number].method : std::string_view();
}

std::string_view entryNamed(std::string_view name) {
  for (const KeywordRecord& record : iconKeywords) {
    if (record.name == name) return record.name;
  }
  return {};
}

std::string_view entryOfCase(const EnumerationRecord& enumeration, std::string_view qualified) {
  if (!qualified.starts_with(enumeration.name)) return {};
  qualified.remove_prefix(enumeration.name.size());
  for (const CaseRecord& record : enumeration.cases) {
    if (qualified.starts_with('.') && qualified.substr(1) == record.name) {
      return entryNamed(record.rawValue);
    }
  }
  return {};
}

std::string_view entryQualified(std::string_view name) {
  if (const std::string_view found = entryNamed(name); !found.empty()) return found;
  for (const EnumerationRecord* enumeration : catalogueEnumerations) {
    if (const auto found = entryOfCase(*enumeration, name); !found.empty()) return found;
  }
  return entryOfCase(Icons::enumeration, name);
}

Question questionOf(std::string_view text) {
  text = text.substr(0, longestText);
  std::string name;
  for (const char c : text) {
    if (c == ' ' || c == '\t') continue;
    if (c == ':' && name.ends_with(':'))
      name.back() = '.';
    else
      name += c;
  }
  Question question{{}, false, tellingWords(text)};
  std::string_view rest = name;
  for (const std::string_view ending : {";", "()", ".path"}) {
    if (rest.ends_with(ending)) rest.remove_suffix(ending.size());
  }
  for (const std::string_view beginning : {"glyphwright.", "UIBezierPath."}) {
    if (rest.starts_with(beginning)) rest.remove_prefix(beginning.size());
  }
  const bool numbered = rest.starts_with('#');
  if (numbered) rest.remove_prefix(1);
  question.named = methodOfType(rest);
  if (question.named.empty() && !numbered) question.named = entryQualified(rest);
  question.onlyName = !question.named.empty() && name.find_first_of(".#(") != std::string::npos;
  return question;
}

struct Found {
  SearchHit hit;
  Entry entry;
  std::size_t words = 0;
  int worth = 0;
};

/// Adds what each has of the word.
void weighWord(const std::string& word, std::vector<Found>& all) {
  std::vector<int> worths;
  worths.reserve(all.size());
  for (const Found& each : all) worths.push_back(worthOf(word, each.entry));
  const bool guess = std::ranges::all_of(worths, [](int worth) { return worth == 0; });
  for (std::size_t i = 0; i < all.size(); ++i) {
    const int worth = guess ? nearWorthOf(word, all[i].entry) : worths[i];
    if (worth == 0) continue;
    all[i].worth += worth;
    ++all[i].words;
    all[i].hit.isGuess |= guess;
  }
}

/// Raises what has all of the question at once: "check mark" is "checkmark", "log out" is "logout".
void weighWhole(const Question& question, Found& each) {
  const auto in = [together = runTogether(question.words)](const Words& words) {
    return std::ranges::find(words, together) != words.end();
  };
  const bool named = each.entry.name == question.named;
  const bool whole = named || in(each.entry.wholeNames);
  if (!whole && (question.words.size() == 1 || !in(each.entry.keywords))) return;
  const int oneKeyword = keyword * static_cast<int>(question.words.size());
  each.hit.isGuess = false;
  each.words = question.words.size();
  each.worth = named   ? 2 * wholeName
               : whole ? wholeName + each.worth
                       : std::max(each.worth, oneKeyword);
}

/// Of equal ones the plainest: "love" means the heart before the heart that comes flying.
bool isBetter(const Found& a, const Found& b) {
  if (a.worth != b.worth) return a.worth > b.worth;
  return a.entry.names.front().size() < b.entry.names.front().size();
}

}  // namespace

std::vector<SearchHit> searchIcons(std::string_view text, std::size_t limit) {
  const Question question = questionOf(text);
  if (limit == 0) return {};
  if (question.onlyName) return {{question.named}};
  if (question.words.empty()) return {};

  std::vector<Found> found;
  found.reserve(std::size(iconKeywords));
  for (const KeywordRecord& record : iconKeywords) {
    found.push_back({{record.name}, entryOf(record)});
  }
  for (const std::string& word : question.words) weighWord(word, found);
  for (Found& each : found) weighWhole(question, each);

  std::size_t most = (question.words.size() + 1) / 2;
  for (const Found& each : found) most = std::max(most, each.words);
  std::erase_if(found, [most](const Found& each) { return each.words < most; });
  std::ranges::stable_sort(found, isBetter);
  std::vector<SearchHit> hits;
  for (std::size_t i = 0; i < std::min(limit, found.size()); ++i) hits.push_back(found[i].hit);
  return hits;
}

}  // namespace glyphwright
