#include "windows/spelling.h"

#include <algorithm>
#include <utility>

#include "windows/com.h"
#include "windows/wide_text.h"

namespace orvane::simulation {
namespace {

constexpr IID spellCheckerInterface = {0xB6FD0B71, 0xE2BC, 0x4653, {0x8D, 0x05, 0xF1, 0x97, 0xE4, 0x12, 0x77, 0x0B}};

// By the tag in any case; null for a language that isn't supported.
const SpellingDictionary* findDictionary(const std::wstring& wanted) {
  const std::wstring foldedTag = foldedName(wanted);
  for (const auto& [tag, dictionary] : stateFor("spelling").desktop.spelling) {
    if (foldedName(wideFromText(textFromUtf8(tag))) == foldedTag) return &dictionary;
  }
  return nullptr;
}

// Whether such an object is held already.
template <typename Object, typename Fits>
bool isHeld(Fits fits) {
  const auto& objects = stateFor("spelling").comObjects;
  return std::any_of(objects.begin(), objects.end(), [&fits](const auto& shell) {
    const auto* const object = dynamic_cast<const Object*>(shell.get());
    return object != nullptr && object->isAlive() && fits(*object);
  });
}

// What the host asks of the checker; the rest of the interface ends the run.
class SpellChecker final : public ComObject<ISpellChecker> {
 public:
  explicit SpellChecker(std::wstring tag) : ComObject(spellCheckerInterface), tag_(std::move(tag)) {}

  const std::wstring& tag() const { return tag_; }

  HRESULT Check(LPCWSTR text, IEnumSpellingError** errors) override {
    if (const auto refused = refusalOf("ISpellChecker::Check", nullptr, nullptr)) return endInto(*refused, errors);
    if (errors == nullptr) return E_POINTER;
    if (text == nullptr) return endInto(E_INVALIDARG, errors);
    const Text checked = textFromWide(text);
    const bool isWrong = !dictionary("ISpellChecker::Check").words.contains(checked);
    *errors = makeSpellingErrors(isWrong, static_cast<ULONG>(checked.size()));
    return S_OK;
  }

  HRESULT Suggest(LPCWSTR word, IEnumString** suggestions) override {
    if (const auto refused = refusalOf("ISpellChecker::Suggest", nullptr, nullptr)) {
      return endInto(*refused, suggestions);
    }
    if (suggestions == nullptr) return E_POINTER;
    if (word == nullptr) return endInto(E_INVALIDARG, suggestions);
    const auto& known = dictionary("ISpellChecker::Suggest").suggestions;
    const auto found = known.find(textFromWide(word));
    const bool hasAny = found != known.end() && !found->second.empty();
    *suggestions = makeStringList(hasAny ? found->second : std::vector<Text>{});
    return hasAny ? S_OK : S_FALSE;
  }

  HRESULT get_LanguageTag(LPWSTR*) override { stopAt("get_LanguageTag"); }
  HRESULT Add(LPCWSTR) override { stopAt("Add"); }
  HRESULT Ignore(LPCWSTR) override { stopAt("Ignore"); }
  HRESULT AutoCorrect(LPCWSTR, LPCWSTR) override { stopAt("AutoCorrect"); }
  HRESULT GetOptionValue(LPCWSTR, BYTE*) override { stopAt("GetOptionValue"); }
  HRESULT get_OptionIds(IEnumString**) override { stopAt("get_OptionIds"); }
  HRESULT get_Id(LPWSTR*) override { stopAt("get_Id"); }
  HRESULT get_LocalizedName(LPWSTR*) override { stopAt("get_LocalizedName"); }
  HRESULT add_SpellCheckerChanged(ISpellCheckerChangedEventHandler*, DWORD*) override {
    stopAt("add_SpellCheckerChanged");
  }
  HRESULT remove_SpellCheckerChanged(DWORD) override { stopAt("remove_SpellCheckerChanged"); }
  HRESULT GetOptionDescription(LPCWSTR, IOptionDescription**) override { stopAt("GetOptionDescription"); }
  HRESULT ComprehensiveCheck(LPCWSTR, IEnumSpellingError**) override { stopAt("ComprehensiveCheck"); }

 private:
  [[noreturn]] static void stopAt(const std::string& method) { stopRun("ISpellChecker::" + method, "isn't modelled"); }

  const SpellingDictionary& dictionary(std::string_view call) const {
    const SpellingDictionary* const found = findDictionary(tag_);
    if (found == nullptr) stopRun(call, "a language that has gone isn't modelled");
    return *found;
  }

  std::wstring tag_;
};

class SpellCheckerFactory final : public ComObject<ISpellCheckerFactory> {
 public:
  SpellCheckerFactory() : ComObject(spellCheckerFactoryInterface) {}

  HRESULT get_SupportedLanguages(IEnumString**) override {
    stopRun("ISpellCheckerFactory::get_SupportedLanguages", "isn't modelled");
  }

  HRESULT IsSupported(LPCWSTR tag, BOOL* isSupported) override {
    if (const auto refused = refusalOf("ISpellCheckerFactory::IsSupported", nullptr, nullptr)) {
      return endInto(*refused, isSupported);
    }
    if (isSupported == nullptr) return E_POINTER;
    if (tag == nullptr) return endInto(E_INVALIDARG, isSupported);
    *isSupported = findDictionary(tag) != nullptr ? TRUE : FALSE;
    return S_OK;
  }

  HRESULT CreateSpellChecker(LPCWSTR tag, ISpellChecker** checker) override {
    if (const auto refused = refusalOf("ISpellCheckerFactory::CreateSpellChecker", nullptr, nullptr)) {
      return endInto(*refused, checker);
    }
    if (checker == nullptr) return E_POINTER;
    const bool isSupported = tag != nullptr && findDictionary(tag) != nullptr;
    if (!isSupported) return endInto(E_INVALIDARG, checker);
    *checker = makeSpellChecker(tag);
    return S_OK;
  }
};

}  // namespace

ISpellCheckerFactory* makeSpellCheckerFactory() {
  const bool isFurther = isHeld<SpellCheckerFactory>([](const auto&) { return true; });
  return isFurther ? makeComObject<SpellCheckerFactory>() : makeKeptComObject<SpellCheckerFactory>();
}

ISpellChecker* makeSpellChecker(const std::wstring& tag) {
  const bool isFurther = isHeld<SpellChecker>([&tag](const SpellChecker& other) { return other.tag() == tag; });
  return isFurther ? makeComObject<SpellChecker>(tag) : makeKeptComObject<SpellChecker>(tag);
}

}  // namespace orvane::simulation
