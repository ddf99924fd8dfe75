#include <gtest/gtest.h>
#include <windows.h>
// windows.h first: the next two build on it.
#include <objbase.h>
#include <spellcheck.h>

#include <string>
#include <vector>

#include "support/simulated_desktop.h"
#include "windows/spelling.h"

namespace orvane::simulation {
namespace {

constexpr const char* english = R"({"spelling": {
  "en-US": {"words": ["word", ""], "suggest": {"wrod": ["word", "wood", "rod"], "wxyz": []}},
  "de-DE": {"words": ["Wort"]}}})";

class WindowsSpellingTest : public ::testing::Test {
 protected:
  static ISpellCheckerFactory* makeFactory() {
    void* object = nullptr;
    EXPECT_EQ(::CoCreateInstance(spellCheckerFactoryClass, nullptr, CLSCTX_INPROC_SERVER, spellCheckerFactoryInterface,
                                 &object),
              S_OK);
    return static_cast<ISpellCheckerFactory*>(object);
  }

  ISpellChecker* makeChecker(const wchar_t* tag = L"en-US") {
    ISpellChecker* checker = nullptr;
    EXPECT_EQ(factory->CreateSpellChecker(tag, &checker), S_OK);
    return checker;
  }

  // Whether the checker finds an error in the text.
  static bool isWrong(ISpellChecker* checker, const wchar_t* text) {
    IEnumSpellingError* errors = nullptr;
    EXPECT_EQ(checker->Check(text, &errors), S_OK);
    ISpellingError* error = nullptr;
    const HRESULT next = errors->Next(&error);
    EXPECT_EQ(next, error == nullptr ? S_FALSE : S_OK);
    if (error != nullptr) error->Release();
    errors->Release();
    return next == S_OK;
  }

  static std::vector<std::wstring> drain(IEnumString* strings) {
    std::vector<std::wstring> all;
    LPOLESTR text = nullptr;
    ULONG fetched = 0;
    while (strings->Next(1, &text, &fetched) == S_OK) {
      EXPECT_EQ(fetched, 1u);
      all.emplace_back(text);
      ::CoTaskMemFree(text);
    }
    EXPECT_EQ(fetched, 0u);
    EXPECT_EQ(text, nullptr);
    strings->Release();
    return all;
  }

  SimulatedDesktop desktop{english};
  ISpellCheckerFactory* factory = makeFactory();
};

TEST_F(WindowsSpellingTest, Languages_AreThoseOfTheDesktop_InAnyCase) {
  BOOL isSupported = FALSE;
  EXPECT_EQ(factory->IsSupported(L"en-US", &isSupported), S_OK);
  EXPECT_NE(isSupported, FALSE);
  EXPECT_EQ(factory->IsSupported(L"EN-us", &isSupported), S_OK);
  EXPECT_NE(isSupported, FALSE);
  EXPECT_EQ(factory->IsSupported(L"en", &isSupported), S_OK);
  EXPECT_EQ(isSupported, FALSE);
}

TEST_F(WindowsSpellingTest, Checker_IsRefused_ForALanguageThatIsNotThere) {
  ISpellChecker* checker = reinterpret_cast<ISpellChecker*>(8);
  EXPECT_EQ(factory->CreateSpellChecker(L"fr-FR", &checker), E_INVALIDARG);
  EXPECT_EQ(checker, nullptr);
}

TEST_F(WindowsSpellingTest, Text_IsRight_WhenItIsAmongTheWordsExactly) {
  ISpellChecker* const checker = makeChecker();
  EXPECT_FALSE(isWrong(checker, L"word"));
  EXPECT_TRUE(isWrong(checker, L"Word"));
  EXPECT_TRUE(isWrong(checker, L"word word"));
  EXPECT_FALSE(isWrong(checker, L""));
  EXPECT_TRUE(isWrong(makeChecker(L"de-DE"), L""));
}

TEST_F(WindowsSpellingTest, Error_TakesUpTheWholeText_AndIsTheOnlyOne) {
  IEnumSpellingError* errors = nullptr;
  ASSERT_EQ(makeChecker()->Check(L"wrod", &errors), S_OK);
  ISpellingError* error = nullptr;
  ASSERT_EQ(errors->Next(&error), S_OK);
  ULONG start = 9;
  ULONG length = 9;
  CORRECTIVE_ACTION action = CORRECTIVE_ACTION_NONE;
  EXPECT_EQ(error->get_StartIndex(&start), S_OK);
  EXPECT_EQ(error->get_Length(&length), S_OK);
  EXPECT_EQ(error->get_CorrectiveAction(&action), S_OK);
  EXPECT_EQ(start, 0u);
  EXPECT_EQ(length, 4u);
  EXPECT_EQ(action, CORRECTIVE_ACTION_GET_SUGGESTIONS);
  error->Release();
  EXPECT_EQ(errors->Next(&error), S_FALSE);
  EXPECT_EQ(error, nullptr);
  errors->Release();
}

TEST_F(WindowsSpellingTest, Suggestions_ComeInOrder_ByTheExactText) {
  ISpellChecker* const checker = makeChecker();
  IEnumString* suggestions = nullptr;
  EXPECT_EQ(checker->Suggest(L"wrod", &suggestions), S_OK);
  EXPECT_EQ(drain(suggestions), (std::vector<std::wstring>{L"word", L"wood", L"rod"}));
  for (const wchar_t* const text : {L"Wrod", L"wxyz"}) {
    EXPECT_EQ(checker->Suggest(text, &suggestions), S_FALSE);
    EXPECT_TRUE(drain(suggestions).empty());
  }
}

TEST_F(WindowsSpellingTest, Strings_ComeSeveralAtATime_WhenAskedFor) {
  IEnumString* suggestions = nullptr;
  ASSERT_EQ(makeChecker()->Suggest(L"wrod", &suggestions), S_OK);
  LPOLESTR strings[4];
  ULONG fetched = 0;
  EXPECT_EQ(suggestions->Next(4, strings, nullptr), E_INVALIDARG);
  EXPECT_EQ(suggestions->Next(4, strings, &fetched), S_FALSE);
  EXPECT_EQ(fetched, 3u);
  EXPECT_EQ(desktop.held("taskStrings"), 3);
  EXPECT_EQ(std::wstring(strings[2]), L"rod");
  EXPECT_EQ(strings[3], nullptr);
  std::for_each_n(strings, fetched, ::CoTaskMemFree);
  EXPECT_EQ(desktop.held("taskStrings"), 0);
  suggestions->Release();
}

TEST_F(WindowsSpellingTest, OneFactoryAndOneCheckerPerTag_CountNowhere) {
  makeChecker();
  makeChecker(L"de-DE");
  EXPECT_EQ(desktop.held("comReferences"), 0);
  makeChecker(L"EN-US");
  EXPECT_EQ(desktop.held("comReferences"), 0);
  ISpellChecker* const further = makeChecker(L"EN-US");
  EXPECT_EQ(desktop.held("comReferences"), 1);
  further->Release();
  makeFactory()->Release();
  EXPECT_EQ(desktop.held("comReferences"), 0);
  factory->AddRef();
  EXPECT_EQ(desktop.held("comReferences"), 1);
  factory->Release();
  EXPECT_EQ(desktop.held("comReferences"), 0);
  factory->Release();
  factory = makeFactory();
  EXPECT_EQ(desktop.held("comReferences"), 0);
}

TEST_F(WindowsSpellingTest, Apartment_MayBeLeft_WhileTheyAreKept) {
  makeChecker();
  ::CoUninitialize();
  BOOL isSupported = FALSE;
  EXPECT_EQ(factory->IsSupported(L"en-US", &isSupported), CO_E_NOTINITIALIZED);
  EXPECT_EQ(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
}

TEST_F(WindowsSpellingTest, Faults_GiveNothing) {
  ISpellChecker* const checker = makeChecker();
  IEnumSpellingError* errors = nullptr;
  IEnumString* suggestions = nullptr;
  ISpellingError* error = nullptr;
  ASSERT_EQ(checker->Suggest(L"wrod", &suggestions), S_OK);
  desktop.setFaults(R"([{"call": "ISpellCheckerFactory::IsSupported", "result": false},
    {"call": "ISpellCheckerFactory::CreateSpellChecker", "result": null},
    {"call": "ISpellChecker::Check", "result": "0x80004005"}, {"call": "ISpellChecker::Suggest", "result": null},
    {"call": "IEnumSpellingError::Next", "result": "0x8000FFFF"}, {"call": "IEnumString::Next", "result": null},
    {"call": "CoCreateInstance", "result": "0x80040154"}])");
  BOOL isSupported = TRUE;
  EXPECT_EQ(factory->IsSupported(L"en-US", &isSupported), S_OK);
  EXPECT_EQ(isSupported, FALSE);
  ISpellChecker* none = checker;
  EXPECT_EQ(factory->CreateSpellChecker(L"en-US", &none), S_OK);
  EXPECT_EQ(none, nullptr);
  EXPECT_EQ(checker->Check(L"wrod", &errors), E_FAIL);
  EXPECT_EQ(errors, nullptr);
  IEnumString* noSuggestions = suggestions;
  EXPECT_EQ(checker->Suggest(L"wrod", &noSuggestions), S_OK);
  EXPECT_EQ(noSuggestions, nullptr);
  ASSERT_EQ(checker->Check(L"wrod", &errors), S_OK);
  EXPECT_TRUE(FAILED(errors->Next(&error)));
  EXPECT_EQ(error, nullptr);
  LPOLESTR text = nullptr;
  ULONG fetched = 9;
  EXPECT_EQ(suggestions->Next(1, &text, &fetched), S_OK);
  EXPECT_EQ(text, nullptr);
  EXPECT_EQ(fetched, 0u);
  void* object = factory;
  EXPECT_EQ(::CoCreateInstance(spellCheckerFactoryClass, nullptr, CLSCTX_INPROC_SERVER, spellCheckerFactoryInterface,
                               &object),
            REGDB_E_CLASSNOTREG);
  EXPECT_EQ(object, nullptr);
  errors->Release();
  suggestions->Release();
}

TEST_F(WindowsSpellingTest, Leaks_ShowByTheirKind) {
  IEnumString* suggestions = nullptr;
  ASSERT_EQ(makeChecker()->Suggest(L"wrod", &suggestions), S_OK);
  LPOLESTR text = nullptr;
  ASSERT_EQ(suggestions->Next(1, &text, nullptr), S_OK);
  EXPECT_EQ(desktop.held("comReferences"), 1);
  EXPECT_EQ(desktop.held("taskStrings"), 1);
  ::CoTaskMemFree(text);
  ::CoTaskMemFree(nullptr);
  suggestions->Release();
}

using WindowsSpellingDeathTest = WindowsSpellingTest;

TEST_F(WindowsSpellingDeathTest, Run_Stops_AtWhatIsNotModelledOrNotHeld) {
  ISpellChecker* const checker = makeChecker();
  int local = 0;
  EXPECT_EXIT(::CoTaskMemFree(&local), ::testing::ExitedWithCode(3), "simulation: CoTaskMemFree: ");
  EXPECT_EXIT(checker->Add(L"word"), ::testing::ExitedWithCode(3), "simulation: ISpellChecker::Add: isn't modelled");
  EXPECT_EXIT(factory->get_SupportedLanguages(nullptr), ::testing::ExitedWithCode(3),
              "simulation: ISpellCheckerFactory::get_SupportedLanguages: isn't modelled");
  factory->Release();
  EXPECT_EXIT(factory->Release(), ::testing::ExitedWithCode(3), "simulation: Release: an object without a reference");
}

}  // namespace
}  // namespace orvane::simulation
