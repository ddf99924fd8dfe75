// The text conversions over the platform's own, and what they give when that fails.
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "embedding/utf_conversion.h"
#include "support/simulated_desktop.h"

namespace orvane {
namespace {

using simulation::SimulatedDesktop;

std::string faultOf(const char* call, int nth, int result) {
  return R"({"faults": [{"call": ")" + std::string(call) + R"(", "nth": )" + std::to_string(nth) + R"(, "result": )" +
         std::to_string(result) + "}]}";
}

TEST(UtfConversion, GivesTheSameTextBothWays) {
  const SimulatedDesktop desktop("{}");
  const std::string utf8("a\0é豆🚀", 11);
  const std::wstring wide{L'a', L'\0', L'é', L'豆', wchar_t{0xD83D}, wchar_t{0xDE80}};

  EXPECT_EQ(wideFromUtf8(utf8), wide);
  EXPECT_EQ(utf8FromWide(wide), utf8);
  EXPECT_EQ(desktop.platformCalls("MultiByteToWideChar"), 2) << "sized by a first call";
  EXPECT_EQ(desktop.platformCalls("WideCharToMultiByte"), 2);
}

TEST(UtfConversion, ReplacesWhatIsNotValid) {
  const SimulatedDesktop desktop("{}");
  EXPECT_EQ(wideFromUtf8("a\xFF"), L"a\uFFFD");
  EXPECT_EQ(utf8FromWide(std::wstring{L'a', wchar_t{0xD83D}}), "a\uFFFD");
}

TEST(UtfConversion, DoesNotAskThePlatform_WhenTheTextIsEmpty) {
  const SimulatedDesktop desktop("{}");
  EXPECT_EQ(wideFromUtf8(""), L"");
  EXPECT_EQ(utf8FromWide(L""), "");
  EXPECT_EQ(desktop.platformCalls("MultiByteToWideChar"), 0);
  EXPECT_EQ(desktop.platformCalls("WideCharToMultiByte"), 0);
}

TEST(UtfConversion, IsEmpty_WhenEitherCallFails) {
  for (const int nth : {1, 2}) {
    for (const int result : {0, -1, std::numeric_limits<int>::min()}) {
      {
        const SimulatedDesktop desktop(faultOf("MultiByteToWideChar", nth, result));
        EXPECT_EQ(wideFromUtf8("text"), L"") << nth << " " << result;
        EXPECT_EQ(desktop.platformCalls("MultiByteToWideChar"), nth);
      }
      {
        const SimulatedDesktop desktop(faultOf("WideCharToMultiByte", nth, result));
        EXPECT_EQ(utf8FromWide(L"text"), "") << nth << " " << result;
        EXPECT_EQ(desktop.platformCalls("WideCharToMultiByte"), nth);
      }
    }
  }
}

}  // namespace
}  // namespace orvane
