#include <windows.h>
// windows.h first: the next two build on it.
#include <objidl.h>
#include <spellcheck.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <utility>

#include "common/com_object.h"
#include "common/scenario_of_run.h"
#include "common/wide_text.h"

namespace orvane::standins {
namespace {

using simulation::SpellingDictionary;
using simulation::Text;

constexpr CLSID factoryClass = {0x7AB36653, 0x1796, 0x484B, {0xBD, 0xFA, 0xE7, 0x4F, 0x1D, 0xB7, 0xC1, 0xDC}};
constexpr IID factoryInterface = {0x8E018A9D, 0x2415, 0x4677, {0xBF, 0x08, 0x79, 0x4E, 0xA6, 0x1F, 0x94, 0xBB}};
constexpr IID checkerInterface = {0xB6FD0B71, 0xE2BC, 0x4653, {0x8D, 0x05, 0xF1, 0x97, 0xE4, 0x12, 0x77, 0x0B}};
constexpr IID errorInterface = {0xB7C82D61, 0xFBE8, 0x4B47, {0x9B, 0x27, 0x6C, 0x0D, 0x2E, 0x0D, 0xE0, 0xA3}};
constexpr IID errorsInterface = {0x803E3BD4, 0x2828, 0x4410, {0x82, 0x90, 0x41, 0x8D, 0x1D, 0x73, 0xC7, 0x62}};
constexpr IID stringsInterface = {0x00000101, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

// What the scenario knows of languages; none when it can't be read.
simulation::Spelling readSpelling() {
  try {
    return readScenarioOfRun().desktop.spelling;
  } catch (const std::exception&) {
    return {};
  }
}

const simulation::Spelling& spelling() {
  static const simulation::Spelling known = readSpelling();
  return known;
}

// By the tag in any case; null for a language that isn't supported.
const SpellingDictionary* findDictionary(LPCWSTR tag) {
  for (const auto& [known, dictionary] : spelling()) {
    if (::CompareStringOrdinal(wideFromUtf8(known).c_str(), -1, tag, -1, TRUE) == CSTR_EQUAL) return &dictionary;
  }
  return nullptr;
}

// The factory and one checker of each language are kept by whoever got them until the process ends:
// those are told from what is held by mistake. `what` is null for the factory.
std::map<const SpellingDictionary*, int>& keptObjects() {
  static std::map<const SpellingDictionary*, int> kept;
  return kept;
}

class Kept {
 public:
  explicit Kept(const SpellingDictionary* what) : what_(what) { ++keptObjects()[what_]; }
  ~Kept() {
    if (--keptObjects()[what_] == 0) keptObjects().erase(what_);
  }
  Kept(const Kept&) = delete;
  Kept& operator=(const Kept&) = delete;

 private:
  const SpellingDictionary* what_;
};

// A string that the caller frees.
LPOLESTR makeTaskString(const Text& text) {
  const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
  auto* const string = static_cast<LPOLESTR>(::CoTaskMemAlloc(bytes));
  if (string != nullptr) std::memcpy(string, text.c_str(), bytes);
  return string;
}

// An error that takes up the whole text.
class SpellingError final : public ComObject<ISpellingError> {
 public:
  explicit SpellingError(ULONG textUnits) : ComObject(errorInterface), textUnits_(textUnits) {}

  HRESULT STDMETHODCALLTYPE get_StartIndex(ULONG* index) override { return give(ULONG{0}, index); }
  HRESULT STDMETHODCALLTYPE get_Length(ULONG* length) override { return give(textUnits_, length); }
  HRESULT STDMETHODCALLTYPE get_CorrectiveAction(CORRECTIVE_ACTION* action) override {
    return give(CORRECTIVE_ACTION_GET_SUGGESTIONS, action);
  }
  HRESULT STDMETHODCALLTYPE get_Replacement(LPWSTR*) override { return E_NOTIMPL; }

 private:
  template <typename Fact>
  static HRESULT give(Fact fact, Fact* out) {
    if (out == nullptr) return E_POINTER;
    *out = fact;
    return S_OK;
  }

  ULONG textUnits_;
};

class SpellingErrors final : public ComObject<IEnumSpellingError> {
 public:
  SpellingErrors(bool isWrong, ULONG textUnits)
      : ComObject(errorsInterface), hasNext_(isWrong), textUnits_(textUnits) {}

  HRESULT STDMETHODCALLTYPE Next(ISpellingError** error) override {
    if (error == nullptr) return E_POINTER;
    if (!std::exchange(hasNext_, false)) return endInto(S_FALSE, error);
    *error = new SpellingError(textUnits_);
    return S_OK;
  }

 private:
  bool hasNext_;
  ULONG textUnits_;
};

class StringList final : public ComObject<IEnumString> {
 public:
  explicit StringList(std::vector<Text> strings) : ComObject(stringsInterface), strings_(std::move(strings)) {}

  HRESULT STDMETHODCALLTYPE Next(ULONG count, LPOLESTR* strings, ULONG* fetched) override {
    if (strings == nullptr) return E_POINTER;
    if (count != 1 && fetched == nullptr) return E_INVALIDARG;
    std::fill_n(strings, count, nullptr);
    const auto given = static_cast<ULONG>(std::min<std::size_t>(count, strings_.size() - next_));
    for (ULONG index = 0; index < given; ++index) strings[index] = makeTaskString(strings_[next_++]);
    if (fetched != nullptr) *fetched = given;
    return given == count ? S_OK : S_FALSE;
  }

  HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Reset() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Clone(IEnumString**) override { return E_NOTIMPL; }

 private:
  std::vector<Text> strings_;
  std::size_t next_ = 0;
};

// What the host asks of the checker.
class SpellChecker final : public ComObject<ISpellChecker> {
 public:
  explicit SpellChecker(const SpellingDictionary& dictionary)
      : ComObject(checkerInterface), dictionary_(dictionary), kept_(&dictionary) {}

  HRESULT STDMETHODCALLTYPE Check(LPCWSTR text, IEnumSpellingError** errors) override {
    if (errors == nullptr) return E_POINTER;
    if (text == nullptr) return endInto(E_INVALIDARG, errors);
    const Text checked = textFromWide(text);
    *errors = new SpellingErrors(!dictionary_.words.contains(checked), static_cast<ULONG>(checked.size()));
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE Suggest(LPCWSTR word, IEnumString** suggestions) override {
    if (suggestions == nullptr) return E_POINTER;
    if (word == nullptr) return endInto(E_INVALIDARG, suggestions);
    const auto found = dictionary_.suggestions.find(textFromWide(word));
    const bool hasAny = found != dictionary_.suggestions.end() && !found->second.empty();
    *suggestions = new StringList(hasAny ? found->second : std::vector<Text>{});
    return hasAny ? S_OK : S_FALSE;
  }

  HRESULT STDMETHODCALLTYPE get_LanguageTag(LPWSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Add(LPCWSTR) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Ignore(LPCWSTR) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE AutoCorrect(LPCWSTR, LPCWSTR) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetOptionValue(LPCWSTR, BYTE*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_OptionIds(IEnumString**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_Id(LPWSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_LocalizedName(LPWSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE add_SpellCheckerChanged(ISpellCheckerChangedEventHandler*, DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE remove_SpellCheckerChanged(DWORD) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetOptionDescription(LPCWSTR, IOptionDescription**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE ComprehensiveCheck(LPCWSTR, IEnumSpellingError**) override { return E_NOTIMPL; }

 private:
  const SpellingDictionary& dictionary_;
  Kept kept_;
};

class Factory final : public ComObject<ISpellCheckerFactory> {
 public:
  Factory() : ComObject(factoryInterface) {}

  HRESULT STDMETHODCALLTYPE get_SupportedLanguages(IEnumString**) override { return E_NOTIMPL; }

  HRESULT STDMETHODCALLTYPE IsSupported(LPCWSTR tag, BOOL* isSupported) override {
    if (isSupported == nullptr) return E_POINTER;
    if (tag == nullptr) return endInto(E_INVALIDARG, isSupported);
    *isSupported = findDictionary(tag) != nullptr ? TRUE : FALSE;
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE CreateSpellChecker(LPCWSTR tag, ISpellChecker** checker) override {
    if (checker == nullptr) return E_POINTER;
    const SpellingDictionary* dictionary = tag == nullptr ? nullptr : findDictionary(tag);
    if (dictionary == nullptr) return endInto(E_INVALIDARG, checker);
    *checker = new SpellChecker(*dictionary);
    return S_OK;
  }

 private:
  Kept kept_{nullptr};
};

int countHeldObjects() { return liveObjects() - static_cast<int>(keptObjects().size()); }

}  // namespace
}  // namespace orvane::standins

extern "C" __declspec(dllexport) HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID wanted, REFIID iid, void** object) {
  using namespace orvane::standins;
  return giveClassObject<Factory>(factoryClass, wanted, iid, object);
}

extern "C" __declspec(dllexport) HRESULT STDAPICALLTYPE DllCanUnloadNow() {
  return orvane::standins::liveObjects() == 0 ? S_OK : S_FALSE;
}

// Objects that clients still hold, those that are kept by design left out.
extern "C" __declspec(dllexport) int OrvaneSpellingLiveObjects() { return orvane::standins::countHeldObjects(); }
