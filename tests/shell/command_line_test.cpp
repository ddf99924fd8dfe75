#include "shell/command_line.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/row_name.h"
#include "windows/platform.h"
#include "world/desktop.h"

namespace orvane {
namespace {

using Texts = std::vector<std::string>;

// A process that was started with these arguments; what stands in it lives to the end.
class StartedProcess {
 public:
  explicit StartedProcess(std::vector<simulation::Text> arguments)
      : desktop_(*new simulation::Clock, books_), platform_(desktop_, nullptr, std::move(arguments)) {}

  // The nth call from now on gives null.
  void failCall(const std::string& call, int nth = 1) {
    simulation::Fault fault;
    fault.call = call;
    fault.nth = nth;
    fault.result.kind = simulation::FaultResult::Kind::null;
    books_.setFaults({fault});
  }

  std::int64_t calls(const std::string& name) const {
    const auto found = books_.calls().find(name);
    return found == books_.calls().end() ? 0 : found->second;
  }

 private:
  simulation::Books books_;
  simulation::Desktop desktop_;
  simulation::Platform platform_;
};

TEST(CommandLineArguments, LeaveTheProgramsPathOut) {
  const StartedProcess process({});
  EXPECT_EQ(GetCommandLineArguments(), Texts{});
  EXPECT_EQ(process.calls("CommandLineToArgvW"), 1);
  EXPECT_EQ(process.calls("LocalFree"), 1);
}

TEST(CommandLineArguments, KeepOrderBlanksQuotesAndEmptyOnes) {
  const StartedProcess process({u"--b", u"a b", u"", u"say \"hi\"", u"C:\\x\\", u"é豆\U0001F600", u"--b"});
  EXPECT_EQ(GetCommandLineArguments(), (Texts{"--b", "a b", "", "say \"hi\"", "C:\\x\\", "é豆\U0001F600", "--b"}));
}

TEST(CommandLineArguments, KeepABadlyFormedOne_AsAnEmptyText) {
  const StartedProcess process({u"first", u"bad\xD800", u"\xDC00", u"last"});
  EXPECT_EQ(GetCommandLineArguments(), (Texts{"first", "", "", "last"}));
}

TEST(CommandLineArguments, AreNone_WhenTheSplittingFails) {
  StartedProcess process({u"--orvane-open-toolbox"});
  process.failCall("CommandLineToArgvW");
  EXPECT_EQ(GetCommandLineArguments(), Texts{});
  EXPECT_EQ(process.calls("LocalFree"), 0);
}

TEST(Utf8FromUtf16, IsEmpty_WhenThePointerIsNullOrTheTextIs) {
  EXPECT_EQ(Utf8FromUtf16(nullptr), "");
  EXPECT_EQ(Utf8FromUtf16(L""), "");
}

TEST(Utf8FromUtf16, ConvertsPairsOfSurrogates) {
  EXPECT_EQ(Utf8FromUtf16(L"a\x00E9\x8C46\xD83D\xDE00z"), "a\xC3\xA9\xE8\xB1\x86\xF0\x9F\x98\x80z");
}

TEST(Utf8FromUtf16, IsEmpty_WhenASurrogateStandsAlone) {
  for (const wchar_t* text : {L"\xD800", L"\xDC00", L"a\xD83Dz", L"\xDE00\xD83D", L"abc\xD83D"}) {
    EXPECT_EQ(Utf8FromUtf16(text), "");
  }
}

TEST(Utf8FromUtf16, LooksAtNoMoreThan32767Units) {
  EXPECT_EQ(Utf8FromUtf16(std::wstring(32767, L'x').c_str()).size(), 32767U);
  EXPECT_EQ(Utf8FromUtf16(std::wstring(40000, L'x').c_str()).size(), 32767U);
}

TEST(Utf8FromUtf16, IsEmpty_WhenTheLimitCutsAPair) {
  const std::wstring text = std::wstring(32766, L'x') + L"\xD83D\xDE00";
  EXPECT_EQ(Utf8FromUtf16(text.c_str()), "");
}

TEST(Utf8FromUtf16, IsEmpty_WhenEitherPassFails) {
  StartedProcess process({});
  for (const int pass : {1, 2}) {
    process.failCall("WideCharToMultiByte", pass);
    EXPECT_EQ(Utf8FromUtf16(L"text"), "");
    EXPECT_EQ(Utf8FromUtf16(L"text"), "text") << "the fault is over";
  }
}

struct FlagRow {
  const char* test;
  Texts arguments;
  bool isOffscreen;
};

class StartFlags : public ::testing::TestWithParam<FlagRow> {};

TEST_P(StartFlags, DecideTheOrigin) { EXPECT_EQ(asksForOffscreenStart(GetParam().arguments), GetParam().isOffscreen); }

INSTANTIATE_TEST_SUITE_P(
    Each, StartFlags,
    ::testing::Values(FlagRow{"None", {}, false}, FlagRow{"Others", {"", "x", "--verbose"}, false},
                      FlagRow{"ContentPage", {"--orvane-content-page=7"}, true},
                      FlagRow{"ContentPageWithoutValue", {"--orvane-content-page="}, true},
                      FlagRow{"ContentPageWithoutEqualsSign", {"--orvane-content-page"}, false},
                      FlagRow{"ContentPageInAnotherCase", {"--Orvane-content-page=7"}, false},
                      FlagRow{"ContentPageInside", {"x--orvane-content-page=7"}, false},
                      FlagRow{"ToolBox", {"--orvane-open-toolbox"}, true},
                      FlagRow{"ToolBoxWithValue", {"--orvane-open-toolbox=1"}, false},
                      FlagRow{"ToolBoxCut", {"--orvane-open-toolbo"}, false},
                      FlagRow{"ToolBoxInAnotherCase", {"--orvane-open-ToolBox"}, false},
                      FlagRow{"Both", {"--orvane-open-toolbox", "--orvane-content-page=7"}, true},
                      FlagRow{"LastOfMany", {"a", "--orvane-open-toolbox=", "b", "--orvane-content-page=/x"}, true}),
    nameOfRow<FlagRow>);

}  // namespace
}  // namespace orvane
