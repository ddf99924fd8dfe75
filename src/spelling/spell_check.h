#pragma once

#include <string>
#include <vector>

namespace orvane {

struct SpellingResult {
  bool supported = false;                // a checker for the language is at hand
  bool misspelled = false;               // it reported an error
  std::vector<std::string> suggestions;  // UTF-8, at most 8, in the checker's order
};

// Checks one word (UTF-8) in the language of a tag such as "en-US" by the platform's spell checker.
// What can't be checked never counts as misspelled. The factory and one checker for each language
// used are kept until the process ends.
SpellingResult checkSpelling(const std::string& word, const std::string& language);

}  // namespace orvane
