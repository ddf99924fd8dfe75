#include <cstddef>
#include <cstring>
#include <map>
#include <optional>
#include <utility>

#include "common/com_object.h"
#include "common/scenario_of_run.h"
#include "common/wide_text.h"
#include "windows/spelling_lists.h"

namespace orvane::standins {
namespace {

using simulation::SpellingDictionary;
using simulation::Text;

constexpr CLSID factoryClass = {0x7AB36653, 0x1796, 0x484B, {0xBD, 0xFA, 0xE7, 0x4F, 0x1D, 0xB7, 0xC1, 0xDC}};
constexpr IID factoryInterface = {0x8E018A9D, 0x2415, 0x4677, {0xBF, 0x08, 0x79, 0x4E, 0xA6, 0x1F, 0x94, 0xBB}};
constexpr IID checkerInterface = {0xB6FD0B71, 0xE2BC, 0x4653, {0x8D, 0x05, 0xF1, 0x97, 0xE4, 0x12, 0x77, 0x0B}};

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

// No call fails.
struct PlainServer {
  template <typename Interface>
  class Object : public ComObject<Interface> {
   public:
    using ComObject<Interface>::ComObject;

   protected:
    static std::optional<HRESULT> refusalOf(const char*, std::nullptr_t, std::nullptr_t) { return std::nullopt; }
  };

  template <typename Made, typename... Arguments>
  static Made* make(Arguments&&... arguments) {
    return new Made(std::forward<Arguments>(arguments)...);
  }

  template <typename Value>
  static HRESULT endInto(HRESULT result, Value* out) {
    return standins::endInto(result, out);
  }

  // A string that the caller frees.
  static LPWSTR makeTaskString(const Text& text) {
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    auto* const string = static_cast<LPWSTR>(::CoTaskMemAlloc(bytes));
    if (string != nullptr) std::memcpy(string, text.c_str(), bytes);
    return string;
  }

  static HRESULT answerUnused(const char*) { return E_NOTIMPL; }
};

using SpellingErrors = simulation::SpellingErrors<PlainServer>;
using StringList = simulation::StringList<PlainServer>;

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
