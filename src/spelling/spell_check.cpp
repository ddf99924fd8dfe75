#include "spelling/spell_check.h"

#include <objbase.h>
#include <spellcheck.h>

#include <map>
#include <utility>

#include "composer/com_owners.h"
#include "embedding/unique_resource.h"
#include "embedding/utf_conversion.h"
#include "spelling/word_case.h"

namespace orvane {
namespace {

constexpr GUID spellCheckerFactoryClass = {
    0x7AB36653, 0x1796, 0x484B, {0xBD, 0xFA, 0xE7, 0x4F, 0x1D, 0xB7, 0xC1, 0xDC}};
constexpr GUID spellCheckerFactoryInterface = {
    0x8E018A9D, 0x2415, 0x4677, {0xBF, 0x08, 0x79, 0x4E, 0xA6, 0x1F, 0x94, 0xBB}};
constexpr int greatestSuggestionCount = 8;

struct TaskStringTraits {
  using Value = LPOLESTR;
  static constexpr Value invalid() noexcept { return nullptr; }
  static void release(Value value) noexcept { ::CoTaskMemFree(value); }
};
using TaskString = UniqueResource<TaskStringTraits>;

// What outlives a call. Refusals aren't kept: a language may be installed meanwhile.
struct SpellingState {
  ComReference<ISpellCheckerFactory> factory;
  std::map<std::wstring, ComReference<ISpellChecker>> checkers;
};

// Never destroyed: the process leaves its apartment before its statics end.
SpellingState& spellingState() {
  static auto& state = *new SpellingState;
  return state;
}

bool ensureFactory(SpellingState& state) {
  if (!state.factory) {
    ::CoCreateInstance(spellCheckerFactoryClass, nullptr, CLSCTX_INPROC_SERVER, spellCheckerFactoryInterface,
                       state.factory.putVoid());
  }
  return static_cast<bool>(state.factory);
}

// No checker when the language isn't supported or a call fails.
ComReference<ISpellChecker> checkerFor(SpellingState& state, const std::wstring& language) {
  const auto kept = state.checkers.find(language);
  if (kept != state.checkers.end()) {
    return kept->second;
  }
  BOOL isSupported = FALSE;
  if (FAILED(state.factory->IsSupported(language.c_str(), &isSupported)) || isSupported == FALSE) {
    return {};
  }
  ComReference<ISpellChecker> checker;
  if (FAILED(state.factory->CreateSpellChecker(language.c_str(), checker.put())) || !checker) {
    return {};
  }
  state.checkers.emplace(language, checker);
  return checker;
}

// One error suffices.
bool hasError(ISpellChecker& checker, const std::wstring& text) {
  ComReference<IEnumSpellingError> errors;
  if (FAILED(checker.Check(text.c_str(), errors.put())) || !errors) {
    return false;
  }
  ComReference<ISpellingError> error;
  return SUCCEEDED(errors->Next(error.put())) && error;
}

std::vector<std::string> suggestionsFor(ISpellChecker& checker, const std::wstring& text, bool raises) {
  std::vector<std::string> suggestions;
  ComReference<IEnumString> strings;
  if (FAILED(checker.Suggest(text.c_str(), strings.put())) || !strings) {
    return suggestions;
  }
  for (int count = 0; count < greatestSuggestionCount; ++count) {
    TaskString string;
    ULONG fetched = 0;
    if (strings->Next(1, string.put(), &fetched) != S_OK || !string) {
      break;
    }
    std::wstring suggestion = string.get();
    if (raises) {
      suggestion = raisedUnits(std::move(suggestion));
    }
    suggestions.push_back(utf8FromWide(suggestion));
  }
  return suggestions;
}

}  // namespace

SpellingResult checkSpelling(const std::string& word, const std::string& language) {
  SpellingResult result;
  SpellingState& state = spellingState();
  if (!ensureFactory(state)) {
    return result;
  }
  const ComReference<ISpellChecker> checker = checkerFor(state, wideFromUtf8(language));
  if (!checker) {
    return result;
  }
  result.supported = true;
  std::wstring text = wideFromUtf8(word);
  const WordCase written = classifyWord(text);
  if (written.hasLetter && written.allCaps) {
    text = loweredUnits(std::move(text));
  }
  if (written.mixedCase || !hasError(*checker.get(), text)) {
    return result;
  }
  result.misspelled = true;
  result.suggestions = suggestionsFor(*checker.get(), text, written.allCaps);
  return result;
}

}  // namespace orvane
