#include "search_command.h"

#include <nlohmann/json.hpp>

#include <glyphwright/catalogue/search.h>

namespace glyphwright::cli {

int runSearch(const SearchOptions& options, Console& console) {
  std::string words;
  for (const std::string& word : options.words) words += (words.empty() ? "" : " ") + word;
  const std::vector<SearchHit> hits = searchIcons(words, options.limit);
  if (options.json) {
    auto list = nlohmann::ordered_json::array();
    for (const SearchHit& hit : hits) list.push_back({{"name", hit.name}, {"guess", hit.isGuess}});
    console.out << list.dump(2) << '\n';
  } else {
    for (const SearchHit& hit : hits) console.out << hit.name << '\n';
  }
  if (hits.empty()) {
    console.err << "glyphwright: nothing is near \"" << words
                << "\"; `glyphwright list` shows all names\n";
    return statusFailed;
  }
  return statusDone;
}

}  // namespace glyphwright::cli
