#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "world/text.h"

namespace orvane::simulation {

// What the platform knows of one language. A text is right exactly when it is among the words.
struct SpellingDictionary {
  std::set<Text> words;
  std::map<Text, std::vector<Text>> suggestions;  // by the exact text
};

// By language tag: "en-US".
using Spelling = std::map<std::string, SpellingDictionary>;

}  // namespace orvane::simulation
