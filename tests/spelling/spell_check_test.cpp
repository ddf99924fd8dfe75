// One word and the platform's checker: what is asked, what is kept, and what every failing call leaves.
#include "spelling/spell_check.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "desktop/window_command_handler.h"
#include "embedding/recorded_result.h"
#include "scenario/json.h"
#include "support/row_name.h"
#include "support/simulated_desktop.h"

namespace orvane {
namespace {

using simulation::Json;
using simulation::SimulatedDesktop;
using Texts = std::vector<std::string>;

std::string shown(const SpellingResult& result) {
  std::string text = std::string(result.supported ? "supported" : "unsupported") + (result.misspelled ? " wrong" : "");
  for (const std::string& suggestion : result.suggestions) text += " [" + suggestion + "]";
  return text;
}

// Checkers are kept for the life of the process, so each test has a language of its own.
class SpellCheck : public testing::Test {
 protected:
  // A desktop that knows this language alone.
  void know(const std::string& dictionary) {
    Json plan = Json::object();
    plan["spelling"][tag] = Json::parse(dictionary);
    desktop.emplace(plan.dump());
  }

  void TearDown() override {
    if (!desktop) return;
    EXPECT_EQ(desktop->held("taskStrings"), 0);
    EXPECT_EQ(desktop->held("comReferences"), 0) << "what is kept counts nowhere";
  }

  std::string check(const std::string& word) { return shown(checkSpelling(word, tag)); }
  std::int64_t calls(std::string_view name) { return desktop->platformCalls(name); }

  static std::string makeTag() {
    static int count = 0;
    return "x-test-" + std::to_string(++count);
  }

  const std::string tag = makeTag();
  std::optional<SimulatedDesktop> desktop;
};

TEST_F(SpellCheck, AsksForNoSuggestion_WhenTheWordIsRight) {
  know(R"({"words": ["word"], "suggest": {"word": ["sword"]}})");

  EXPECT_EQ(check("word"), "supported");

  EXPECT_EQ(calls("ISpellChecker::Check"), 1);
  EXPECT_EQ(calls("IEnumSpellingError::Next"), 1);
  EXPECT_EQ(calls("ISpellChecker::Suggest"), 0);
}

TEST_F(SpellCheck, GivesTheSuggestionsInOrder_WhenTheWordIsWrong) {
  know(R"({"suggest": {"wrod": ["word", "Wood", "röd", "豆🚀", ""]}})");

  EXPECT_EQ(check("wrod"), "supported wrong [word] [Wood] [röd] [豆🚀] []");

  EXPECT_EQ(calls("IEnumSpellingError::Next"), 1) << "one error suffices";
  EXPECT_EQ(calls("CoTaskMemFree"), 5);
}

TEST_F(SpellCheck, GivesNoSuggestion_WhenTheCheckerHasNone) {
  know("{}");
  EXPECT_EQ(check("wrod"), "supported wrong");
}

TEST_F(SpellCheck, NeverFetchesANinthSuggestion) {
  know(R"({"suggest": {"wrod": ["1", "2", "3", "4", "5", "6", "7", "8", "9", "10"]}})");

  EXPECT_EQ(check("wrod"), "supported wrong [1] [2] [3] [4] [5] [6] [7] [8]");

  EXPECT_EQ(calls("IEnumString::Next"), 8);
  EXPECT_EQ(calls("CoTaskMemFree"), 8);
}

TEST_F(SpellCheck, GivesAllEight_WhenThereAreJustEight) {
  know(R"({"suggest": {"wrod": ["1", "2", "3", "4", "5", "6", "7", "8"]}})");

  EXPECT_EQ(check("wrod"), "supported wrong [1] [2] [3] [4] [5] [6] [7] [8]");

  EXPECT_EQ(calls("IEnumString::Next"), 8);
}

TEST_F(SpellCheck, StopsAtTheEnd_WhenThereAreFewer) {
  know(R"({"suggest": {"wrod": ["1", "2", "3", "4", "5", "6", "7"]}})");

  EXPECT_EQ(check("wrod"), "supported wrong [1] [2] [3] [4] [5] [6] [7]");

  EXPECT_EQ(calls("IEnumString::Next"), 8);
}

TEST_F(SpellCheck, LowersAWordInCapitals_AndRaisesItsSuggestions) {
  know(R"({"words": ["nasa"], "suggest": {"nsaa": ["nasa", "McKay", "n-2"], "NSAA": ["wrong one"]}})");

  EXPECT_EQ(check("NASA"), "supported");
  EXPECT_EQ(check("NSAA"), "supported wrong [NASA] [MCKAY] [N-2]");
}

TEST_F(SpellCheck, LowersCapitalsWithADigit) {
  know(R"({"words": ["word2"], "suggest": {"wrod2": ["word2"]}})");

  EXPECT_EQ(check("WORD2"), "supported");
  EXPECT_EQ(check("WROD2"), "supported wrong [WORD2]");
}

// A sign outside the first plane is two units that are no letters.
TEST_F(SpellCheck, LowersCapitalsAroundASurrogatePair) {
  know(R"({"words": ["a🚀b"], "suggest": {"x🚀b": ["a🚀b"]}})");

  EXPECT_EQ(check("A🚀B"), "supported");
  EXPECT_EQ(check("X🚀B"), "supported wrong [A🚀B]");
}

TEST_F(SpellCheck, LeavesThreeCapitalsAsTheyStand) {
  know(R"({"words": ["USA", "uas"], "suggest": {"UAS": ["usa"]}})");

  EXPECT_EQ(check("USA"), "supported");
  EXPECT_EQ(check("UAS"), "supported wrong [usa]");
}

TEST_F(SpellCheck, LeavesACapitalisedWordAsItStands) {
  know(R"({"words": ["Paris", "prais"], "suggest": {"Prais": ["Paris", "praise"]}})");

  EXPECT_EQ(check("Paris"), "supported");
  EXPECT_EQ(check("Prais"), "supported wrong [Paris] [praise]");
}

TEST_F(SpellCheck, LeavesWhatHasNoLetterAsItStands) {
  know(R"({"words": ["1234"], "suggest": {"12345": ["1234"]}})");

  EXPECT_EQ(check("1234"), "supported");
  EXPECT_EQ(check("12345"), "supported wrong [1234]");
}

TEST_F(SpellCheck, ChecksTheEmptyWordToo) {
  know(R"({"suggest": {"": ["a"]}})");
  EXPECT_EQ(check(""), "supported wrong [a]");
}

TEST_F(SpellCheck, ChecksAWordAsOneUnit) {
  know(R"({"words": ["new", "york"], "suggest": {"new york": ["york"]}})");
  EXPECT_EQ(check("new york"), "supported wrong [york]");
}

TEST_F(SpellCheck, DoesNotAskTheChecker_WhenTheCaseIsMixed) {
  know(R"({"suggest": {"eBook": ["ebook"], "McKay": ["mckay"]}})");

  EXPECT_EQ(check("eBook"), "supported");
  EXPECT_EQ(check("McKay"), "supported");

  EXPECT_EQ(calls("ISpellChecker::Check"), 0);
  EXPECT_EQ(calls("ISpellChecker::Suggest"), 0);
}

TEST_F(SpellCheck, IsUnsupported_WhenTheLanguageIsNotThere) {
  know("{}");
  for (const char* const language : {"x-none", "", "x", "豆"}) {
    EXPECT_EQ(shown(checkSpelling("wrod", language)), "unsupported") << language;
    EXPECT_EQ(shown(checkSpelling("eBook", language)), "unsupported") << language;
  }
  EXPECT_EQ(calls("ISpellCheckerFactory::CreateSpellChecker"), 0);
  EXPECT_EQ(calls("ISpellCheckerFactory::IsSupported"), 8) << "a refusal isn't kept";
}

TEST_F(SpellCheck, KeepsOneCheckerForALanguage) {
  know(R"({"words": ["word"]})");
  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(check("word"), "supported");
    EXPECT_EQ(check("wrod"), "supported wrong");
  }
  EXPECT_EQ(calls("ISpellCheckerFactory::IsSupported"), 1);
  EXPECT_EQ(calls("ISpellCheckerFactory::CreateSpellChecker"), 1);
  EXPECT_EQ(calls("ISpellChecker::Check"), 6);
}

TEST_F(SpellCheck, KeepsACheckerForEachLanguage) {
  const std::string other = makeTag();
  Json plan = Json::object();
  plan["spelling"][tag] = Json::parse(R"({"words": ["word"]})");
  plan["spelling"][other] = Json::parse(R"({"words": ["Wort"]})");
  desktop.emplace(plan.dump());
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(shown(checkSpelling("Wort", other)), "supported");
    EXPECT_EQ(shown(checkSpelling("Wort", tag)), "supported wrong");
  }
  EXPECT_EQ(calls("ISpellCheckerFactory::CreateSpellChecker"), 2);
}

// The platform takes a tag in any case; the kept checkers go by the exact one.
TEST_F(SpellCheck, TellsKeptLanguagesApartByCase) {
  know(R"({"words": ["word"]})");
  std::string raised = tag;
  raised[0] = 'X';
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(shown(checkSpelling("word", tag)), "supported");
    EXPECT_EQ(shown(checkSpelling("word", raised)), "supported");
  }
  EXPECT_EQ(calls("ISpellCheckerFactory::IsSupported"), 2);
  EXPECT_EQ(calls("ISpellCheckerFactory::CreateSpellChecker"), 2);
}

struct SpellingFaultRow {
  const char* test;
  const char* call;
  int nth;
  const char* result;
  const char* outcome;
};

class SpellCheckFaults : public SpellCheck, public testing::WithParamInterface<SpellingFaultRow> {};

constexpr const char* unsupported = "unsupported";
constexpr const char* right = "supported";
constexpr const char* plainlyWrong = "supported wrong";
constexpr const char* oneSuggestion = "supported wrong [word]";

INSTANTIATE_TEST_SUITE_P(
    Language, SpellCheckFaults,
    testing::Values(SpellingFaultRow{"Support", "ISpellCheckerFactory::IsSupported", 1, R"("0x80004005")", unsupported},
                    SpellingFaultRow{"SupportUntold", "ISpellCheckerFactory::IsSupported", 1, "null", unsupported},
                    SpellingFaultRow{"Checker", "ISpellCheckerFactory::CreateSpellChecker", 1, R"("0x80070057")",
                                     unsupported},
                    SpellingFaultRow{"NullChecker", "ISpellCheckerFactory::CreateSpellChecker", 1, "null", unsupported},
                    SpellingFaultRow{"TagSizing", "MultiByteToWideChar", 1, "0", unsupported},
                    SpellingFaultRow{"TagConverting", "MultiByteToWideChar", 2, "0", unsupported}),
    nameOfRow<SpellingFaultRow>);
INSTANTIATE_TEST_SUITE_P(
    Check, SpellCheckFaults,
    testing::Values(SpellingFaultRow{"Failing", "ISpellChecker::Check", 1, R"("0x80004005")", right},
                    SpellingFaultRow{"NullErrors", "ISpellChecker::Check", 1, "null", right},
                    SpellingFaultRow{"ErrorFailing", "IEnumSpellingError::Next", 1, R"("0x8000FFFF")", right},
                    SpellingFaultRow{"NullError", "IEnumSpellingError::Next", 1, "null", right},
                    SpellingFaultRow{"NoError", "IEnumSpellingError::Next", 1, R"("0x00000001")", right}),
    nameOfRow<SpellingFaultRow>);
INSTANTIATE_TEST_SUITE_P(
    Suggestions, SpellCheckFaults,
    testing::Values(SpellingFaultRow{"Failing", "ISpellChecker::Suggest", 1, R"("0x80004005")", plainlyWrong},
                    SpellingFaultRow{"NullStrings", "ISpellChecker::Suggest", 1, "null", plainlyWrong},
                    SpellingFaultRow{"FirstFailing", "IEnumString::Next", 1, R"("0x80004005")", plainlyWrong},
                    SpellingFaultRow{"FirstNull", "IEnumString::Next", 1, "null", plainlyWrong},
                    SpellingFaultRow{"FirstMissing", "IEnumString::Next", 1, R"("0x00000001")", plainlyWrong},
                    SpellingFaultRow{"SecondFailing", "IEnumString::Next", 2, R"("0x80004005")", oneSuggestion},
                    SpellingFaultRow{"SecondNull", "IEnumString::Next", 2, "null", oneSuggestion},
                    SpellingFaultRow{"SecondMissing", "IEnumString::Next", 2, R"("0x00000001")", oneSuggestion}),
    nameOfRow<SpellingFaultRow>);

TEST_P(SpellCheckFaults, KeepWhatWasReached_AndAreForgottenByTheNextCheck) {
  know(R"({"suggest": {"wrod": ["word", "rod"]}})");
  desktop->setFaults(R"([{"call": ")" + std::string(GetParam().call) + R"(", "nth": )" +
                     std::to_string(GetParam().nth) + R"(, "result": )" + GetParam().result + "}]");

  EXPECT_EQ(check("wrod"), GetParam().outcome);
  EXPECT_EQ(desktop->held("comReferences"), 0);
  EXPECT_EQ(desktop->held("taskStrings"), 0);

  desktop->setFaults("[]");
  EXPECT_EQ(check("wrod"), "supported wrong [word] [rod]");
}

TEST_F(SpellCheck, AsksAgain_WhenNoCheckerCameOfALanguageThatIsSupported) {
  know("{}");
  desktop->setFaults(R"([{"call": "ISpellCheckerFactory::CreateSpellChecker", "result": null, "times": 2}])");
  EXPECT_EQ(check("wrod"), unsupported);
  EXPECT_EQ(check("wrod"), unsupported);
  EXPECT_EQ(check("wrod"), plainlyWrong);
  EXPECT_EQ(check("wrod"), plainlyWrong);

  EXPECT_EQ(calls("ISpellCheckerFactory::IsSupported"), 3);
  EXPECT_EQ(calls("ISpellCheckerFactory::CreateSpellChecker"), 3);
}

TEST_F(SpellCheck, StopsAtTheFirstMissingString) {
  know(R"({"suggest": {"wrod": ["word", "rod", "wood"]}})");
  desktop->setFaults(R"([{"call": "IEnumString::Next", "nth": 2, "result": "0x80004005"}])");
  EXPECT_EQ(check("wrod"), oneSuggestion);

  EXPECT_EQ(calls("IEnumString::Next"), 2);
}

// The conversion of the word is the third and fourth, behind that of the language.
TEST_F(SpellCheck, ChecksTheEmptyText_WhenTheWordCannotBeConverted) {
  know(R"({"words": [""], "suggest": {"wrod": ["word"]}})");
  for (const int nth : {3, 4}) {
    desktop->setFaults(R"([{"call": "MultiByteToWideChar", "result": 0, "nth": )" + std::to_string(nth) + "}]");
    EXPECT_EQ(check("wrod"), right) << nth;
  }
}

// In a process of its own the factory isn't made yet.
class SpellCheckDeathTest : public testing::Test {
 protected:
  SpellCheckDeathTest() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
  ~SpellCheckDeathTest() override { GTEST_FLAG_SET(death_test_style, "fast"); }

  // Ends the process: 0 when every check so far held.
  [[noreturn]] static void leave() { std::exit(testing::Test::HasFailure() ? 1 : 0); }
};

void expectFactoryIsMadeAtNeed(const std::string& result) {
  SimulatedDesktop desktop(R"({"spelling": {"en-US": {"suggest": {"wrod": ["word"]}}},
    "faults": [{"call": "CoCreateInstance", "times": 2, "result": )" +
                           result + "}]}");
  EXPECT_EQ(shown(checkSpelling("wrod", "en-US")), unsupported);
  EXPECT_EQ(shown(checkSpelling("eBook", "en-US")), unsupported);
  EXPECT_EQ(desktop.platformCalls("ISpellCheckerFactory::IsSupported"), 0);
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(shown(checkSpelling("wrod", "en-US")), oneSuggestion);
  }
  EXPECT_EQ(desktop.platformCalls("CoCreateInstance"), 3) << "once made, it is kept";
  EXPECT_EQ(desktop.held("comReferences"), 0);
}

TEST_F(SpellCheckDeathTest, Factory_IsTriedAgain_WhenItCouldNotBeMade) {
  for (const char* const result : {R"("0x80040154")", "null"}) {
    EXPECT_EXIT((expectFactoryIsMadeAtNeed(result), leave()), testing::ExitedWithCode(0), "") << result;
  }
}

void expectNothingIsMadeForARefusedLanguage() {
  const SimulatedDesktop desktop(R"({"spelling": {}})");
  EXPECT_EQ(shown(checkSpelling("wrod", "en-US")), unsupported);
  EXPECT_EQ(desktop.platformCalls("CoCreateInstance"), 1);
  EXPECT_EQ(desktop.platformCalls("ISpellCheckerFactory::CreateSpellChecker"), 0);
}

TEST_F(SpellCheckDeathTest, Factory_IsMadeOnFirstUse_WhateverTheLanguage) {
  EXPECT_EXIT((expectNothingIsMadeForARefusedLanguage(), leave()), testing::ExitedWithCode(0), "");
}

// The reply of the window channel's method.
class SpellCommand : public testing::Test {
 protected:
  EncodableMap call(const EncodableMap& arguments) {
    embedding_tests::ResultCalls calls;
    WindowCommandHandler({[this] { return owner; }, [](bool) {}})
        .HandleMethodCall(MethodCall("checkSpelling", std::make_unique<EncodableValue>(arguments)),
                          std::make_unique<embedding_tests::RecordedResult>(calls));
    EXPECT_EQ(calls.names, Texts{"Success"});
    return calls.values.empty() ? EncodableMap() : std::get<EncodableMap>(calls.values.front());
  }

  static EncodableMap reply(bool supported, bool misspelled, const EncodableList& suggestions) {
    return {{EncodableValue("supported"), EncodableValue(supported)},
            {EncodableValue("misspelled"), EncodableValue(misspelled)},
            {EncodableValue("suggestions"), EncodableValue(suggestions)}};
  }

  SimulatedDesktop desktop{R"({"spelling": {"en-US": {"words": ["word"], "suggest": {"wrod": ["word", "rod"]}},
                                            "sv-SE": {"words": ["wrod"]}}})"};
  HWND owner =
      reinterpret_cast<HWND>(static_cast<std::uintptr_t>(desktop.world().addHostWindow("main", nullptr).handle));
};

TEST_F(SpellCommand, AnswersThreeKeysAlways) {
  const auto arguments = [](const char* word, const char* language) {
    return EncodableMap{{EncodableValue("word"), EncodableValue(word)},
                        {EncodableValue("language"), EncodableValue(language)}};
  };
  EXPECT_EQ(call(arguments("wrod", "en-US")), reply(true, true, {EncodableValue("word"), EncodableValue("rod")}));
  EXPECT_EQ(call(arguments("word", "en-US")), reply(true, false, {}));
  EXPECT_EQ(call(arguments("wrod", "sv-SE")), reply(true, false, {}));
  EXPECT_EQ(call(arguments("wrod", "x-none")), reply(false, false, {}));
}

TEST_F(SpellCommand, ChecksAgainstAmericanEnglish_WhenTheLanguageIsNoText) {
  const EncodableValue word("wrod");
  const EncodableMap wrong = reply(true, true, {EncodableValue("word"), EncodableValue("rod")});
  EXPECT_EQ(call({{EncodableValue("word"), word}}), wrong);
  EXPECT_EQ(call({{EncodableValue("word"), word}, {EncodableValue("language"), EncodableValue("")}}), wrong);
  EXPECT_EQ(call({{EncodableValue("word"), word}, {EncodableValue("language"), EncodableValue(7)}}), wrong);
}

TEST_F(SpellCommand, ChecksTheEmptyWord_WhenNoneIsGiven) { EXPECT_EQ(call({}), reply(true, true, {})); }

}  // namespace
}  // namespace orvane
