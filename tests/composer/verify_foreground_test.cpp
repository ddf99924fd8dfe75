#include <gtest/gtest.h>

#include <cstdint>

#include "composer/foreground.h"
#include "composer/foreground_windows.h"

namespace orvane {
namespace {

using simulation::SimulatedDesktop;

constexpr const char* handleMatches = "PASS: foreground HWND matches activated AI window";
constexpr const char* handleDiffers = "FAIL: foreground HWND does not match activated AI window";
constexpr const char* titleMatches = "PASS: foreground title is Plan - Claude";
constexpr const char* titleDiffers = "FAIL: foreground title is Plan - Claude";

struct Verdict {
  bool isVerified = false;
  std::string message;
};

Verdict verify(const SimulatedDesktop& desktop, const EncodableMap& arguments) {
  Verdict verdict;
  verdict.isVerified = verifyForeground(desktop.window("browser"), &arguments, &verdict.message);
  EXPECT_EQ(verifyForeground(desktop.window("browser"), &arguments, nullptr), verdict.isVerified);
  EXPECT_EQ(desktop.foreground(), "editor") << "nothing is brought forward";
  EXPECT_EQ(desktop.nowMs(), 0);
  return verdict;
}

std::int64_t handleOf(const SimulatedDesktop& desktop) {
  return static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(desktop.window("browser")));
}

TEST(VerifyForeground, IsReported_WhenThereIsNoWindow) {
  SimulatedDesktop desktop(twoWindows());
  desktop.perform("editor", R"([{"closeWindow": "browser"}])");
  const EncodableMap arguments{{"name", "Claude"}};
  for (const HWND window : {HWND{}, desktop.window("browser")}) {
    std::string message;

    EXPECT_FALSE(verifyForeground(window, &arguments, &message));

    EXPECT_EQ(message, "No foreground window");
  }
}

TEST(VerifyForeground, ComparesTheHandle_WhenItIsExpectedIn32Or64Bits) {
  const SimulatedDesktop desktop(twoWindows());
  const auto small = static_cast<std::int32_t>(handleOf(desktop));

  EXPECT_EQ(verify(desktop, {{"expectedWindowHandle", small}}).message, handleMatches);
  EXPECT_EQ(verify(desktop, {{"expectedWindowHandle", handleOf(desktop)}}).message, handleMatches);
  EXPECT_TRUE(verify(desktop, {{"expectedWindowHandle", small}}).isVerified);
  EXPECT_EQ(verify(desktop, {{"expectedWindowHandle", small + 2}}).message, handleDiffers);
  EXPECT_EQ(verify(desktop, {{"expectedWindowHandle", handleOf(desktop) + (std::int64_t{1} << 32)}}).message,
            handleDiffers);
  EXPECT_FALSE(verify(desktop, {{"expectedWindowHandle", small + 2}}).isVerified);
}

TEST(VerifyForeground, Fails_WhenTheExpectedHandleIsZero) {
  const SimulatedDesktop desktop(twoWindows());

  EXPECT_EQ(verify(desktop, {{"expectedWindowHandle", std::int32_t{0}}, {"name", "Claude"}}).message, handleDiffers);
}

TEST(VerifyForeground, LooksAtNoPattern_WhenAHandleIsExpected) {
  const SimulatedDesktop desktop(twoWindows());
  const EncodableList patterns{"claude"};

  EXPECT_EQ(verify(desktop, {{"expectedWindowHandle", std::int32_t{7}}, {"patterns", patterns}}).message,
            handleDiffers);
  EXPECT_EQ(
      verify(desktop, {{"expectedWindowHandle", handleOf(desktop)}, {"patterns", EncodableList{"no such"}}}).message,
      handleMatches);
  EXPECT_EQ(desktop.platformCalls("GetWindowTextW"), 0);
}

TEST(VerifyForeground, TakesTheHandleForAbsent_WhenItIsOfAnotherType) {
  const SimulatedDesktop desktop(twoWindows());
  for (const EncodableValue& handle : {EncodableValue("65796"), EncodableValue(65796.0), EncodableValue(true),
                                       EncodableValue(), EncodableValue(EncodableList{})}) {
    EXPECT_EQ(verify(desktop, {{"expectedWindowHandle", handle}, {"name", "Claude"}}).message, titleMatches);
  }
}

TEST(VerifyForeground, FindsALowerCasePatternInAMixedCaseTitle_WhenThePatternHoldsAnyLetters) {
  const SimulatedDesktop desktop(twoWindows());
  for (const char* pattern : {"claude", "CLAUDE", "plan - c", "an"}) {
    const Verdict verdict = verify(desktop, {{"patterns", EncodableList{pattern}}});

    EXPECT_TRUE(verdict.isVerified) << pattern;
    EXPECT_EQ(verdict.message, titleMatches);
  }
}

TEST(VerifyForeground, FindsTheName_WhenNoPatternMatches) {
  const SimulatedDesktop desktop(twoWindows());

  EXPECT_EQ(verify(desktop, {{"patterns", EncodableList{"gemini"}}, {"name", "ClaUDE"}}).message, titleMatches);
}

TEST(VerifyForeground, SkipsWhatIsNoPattern_WhenTheListHoldsOtherTypesAndEmptyTexts) {
  const SimulatedDesktop desktop(twoWindows());
  const EncodableList mixed{"", std::int32_t{3}, EncodableValue(), EncodableList{"claude"}, "plan"};

  EXPECT_EQ(verify(desktop, {{"patterns", mixed}}).message, titleMatches);
}

TEST(VerifyForeground, FailsWithTheTitle_WhenThereIsNothingToFind) {
  const SimulatedDesktop desktop(twoWindows());
  const EncodableMap nothing;

  EXPECT_EQ(verify(desktop, nothing).message, titleDiffers);
  EXPECT_EQ(verify(desktop, {{"patterns", EncodableList{"", ""}}, {"name", ""}}).message, titleDiffers);
  EXPECT_EQ(verify(desktop, {{"patterns", "claude"}}).message, titleDiffers) << "no list";
  EXPECT_EQ(verify(desktop, {{"name", std::int32_t{1}}}).message, titleDiffers);
  EXPECT_FALSE(verify(desktop, nothing).isVerified);
}

TEST(VerifyForeground, FailsWithTheTitle_WhenThereAreNoArguments) {
  const SimulatedDesktop desktop(twoWindows());
  std::string message;

  EXPECT_FALSE(verifyForeground(desktop.window("browser"), nullptr, &message));

  EXPECT_EQ(message, titleDiffers);
}

TEST(VerifyForeground, FailsWithAnEmptyTitle_WhenTheWindowHasNoneOrItCannotBeRead) {
  {
    SimulatedDesktop desktop(twoWindows());
    desktop.perform("browser", R"([{"windowTitle": ""}])");
    EXPECT_EQ(verify(desktop, {{"name", "Claude"}}).message, "FAIL: foreground title is ");
  }
  for (const char* call : {"GetWindowTextLengthW", "GetWindowTextW"}) {
    const SimulatedDesktop desktop(
        twoWindows("", R"([{"call": ")" + std::string(call) + R"(", "times": 9, "result": 0}])"));
    EXPECT_EQ(verify(desktop, {{"name", "Claude"}}).message, "FAIL: foreground title is ") << call;
  }
}

TEST(VerifyForeground, ShowsTheTitleInUtf8_WhenItHasOtherLetters) {
  SimulatedDesktop desktop(twoWindows());
  desktop.perform("browser", R"([{"windowTitle": "Élan 計画 😀"}])");

  EXPECT_EQ(verify(desktop, {{"name", "計画"}}).message, "PASS: foreground title is Élan 計画 😀");
}

}  // namespace
}  // namespace orvane
