// Which control names itself a composer, on which window, and the route called by itself.
#include "composer/best_effort_delivery.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "provider_identity/text_rules.h"
#include "support/browser_page.h"
#include "support/row_name.h"
#include "support/simulated_desktop.h"
#include "support/trace_steps.h"

namespace orvane {
namespace {

using simulation::desktopJson;
using simulation::SimulatedDesktop;

struct NameRow {
  const char* test;
  std::wstring provider;  // the profile's key
  std::wstring name;      // as the control has it
  bool isComposer;
};

class ControlName : public testing::TestWithParam<NameRow> {};
INSTANTIATE_TEST_SUITE_P(
    Each, ControlName,
    testing::Values(
        NameRow{"DeepSeekWithBothWords", L"deepseek", L"Message DeepSeek", true},
        NameRow{"DeepSeekWithOneWord", L"deepseek", L"Your message", true},
        NameRow{"DeepSeekWithinAWord", L"deepseek", L"Messages", true},
        NameRow{"DeepSeekInCapitals", L"deepseek", L"MESSAGE", true},
        NameRow{"DeepSeekInChinese", L"deepseek", L"给 DeepSeek 发送消息", true},
        NameRow{"DeepSeekByItsAddressee", L"deepseek", L"给 DeepSeek 写信", true},
        NameRow{"DeepSeekByInput", L"deepseek", L"请输入", true},
        NameRow{"DeepSeekByQuestion", L"deepseek", L"提问", true},
        NameRow{"DeepSeekWithAWordOfQwen", L"deepseek", L"Ask anything", false},
        NameRow{"DeepSeekWithItsNameAlone", L"deepseek", L"DeepSeek", false},
        NameRow{"QwenByAsk", L"qwen", L"Ask anything", true}, NameRow{"QwenByPrompt", L"qwen", L"Prompt", true},
        NameRow{"QwenByMessage", L"qwen", L"Message", true}, NameRow{"QwenBySend", L"qwen", L"发送消息", true},
        NameRow{"QwenByInput", L"qwen", L"输入问题", true}, NameRow{"QwenByQuestion", L"qwen", L"向千问提问", true},
        NameRow{"QwenWithAWordOfDoubao", L"qwen", L"问豆包", false},
        NameRow{"DoubaoByItsMessage", L"doubao", L"发消息", true},
        NameRow{"DoubaoBySend", L"doubao", L"发送消息", true}, NameRow{"DoubaoByInput", L"doubao", L"输入", true},
        NameRow{"DoubaoByItsQuestion", L"doubao", L"问豆包任何问题", true},
        NameRow{"DoubaoByMessage", L"doubao", L"Message", true}, NameRow{"DoubaoByAsk", L"doubao", L"Ask", true},
        NameRow{"DoubaoByPrompt", L"doubao", L"Prompt", false}, NameRow{"DoubaoByQuestion", L"doubao", L"提问", false},
        NameRow{"Nothing", L"doubao", L"", false}, NameRow{"NoWord", L"qwen", L"Write here", false},
        NameRow{"SearchMessages", L"deepseek", L"Search messages", false},
        NameRow{"DenyWordBehindTheWord", L"deepseek", L"Message search", false},
        NameRow{"DenyWordWithinAWord", L"deepseek", L"message researcher", false},
        NameRow{"Address", L"qwen", L"Ask by address", false},
        NameRow{"Email", L"qwen", L"Message by E-Mail or email", false},
        NameRow{"HyphenatedEmailAlone", L"qwen", L"Message by e-mail", true},
        NameRow{"Password", L"qwen", L"Ask for the password", false},
        NameRow{"Phone", L"qwen", L"Message to my phone", false},
        NameRow{"Verification", L"qwen", L"Prompt for Verification", false},
        NameRow{"ChineseSearch", L"doubao", L"搜索消息 message", false},
        NameRow{"ChineseMailbox", L"doubao", L"输入邮箱", false},
        NameRow{"ChinesePassword", L"doubao", L"输入密码", false},
        NameRow{"ChineseMobile", L"doubao", L"输入手机号", false},
        NameRow{"ChineseCode", L"doubao", L"输入验证码", false}),
    nameOfRow<NameRow>);

TEST_P(ControlName, TellsWhetherItIsAComposer) {
  const BestEffortProfile profile = makeBestEffortProfile(GetParam().provider);
  ASSERT_FALSE(profile.displayName.empty());

  EXPECT_EQ(isNamedComposer(profile, toLower(GetParam().name)), GetParam().isComposer);
}

TEST(ControlName, IsNoComposer_WhenTheProfileHasNoWords) {
  EXPECT_FALSE(isNamedComposer(BestEffortProfile{}, L"message deepseek"));
}

std::string pageOn(const std::string& address) {
  return desktopJson({.otherWindows = R"(, {"id": "editor", "process": "Code.exe"})", .address = address});
}

TEST(ExactHost, IsTriedInTheOrderOfTheProfile_UntilOneFits) {
  const BestEffortProfile profile = makeBestEffortProfile(L"qwen");
  {
    SimulatedDesktop first(pageOn("https://chat.qwen.ai/c/1"));
    EXPECT_TRUE(isForegroundOnExactHost(first.window("browser"), profile));
    EXPECT_EQ(first.platformCalls("CoCreateInstance"), 1);
  }
  {
    SimulatedDesktop second(pageOn("https://www.qianwen.com/"));
    EXPECT_TRUE(isForegroundOnExactHost(second.window("browser"), profile));
    EXPECT_EQ(second.platformCalls("CoCreateInstance"), 2);
  }
  SimulatedDesktop other(pageOn("https://qwen.ai/"));
  EXPECT_FALSE(isForegroundOnExactHost(other.window("browser"), profile));
  EXPECT_EQ(other.platformCalls("CoCreateInstance"), 2);
}

TEST(ExactHost, IsNotLookedAt_WhenAnotherWindowIsInFront) {
  SimulatedDesktop desktop(pageOn("https://chat.qwen.ai/c/1"));
  desktop.bringToFront("editor");

  EXPECT_FALSE(isForegroundOnExactHost(desktop.window("browser"), makeBestEffortProfile(L"qwen")));

  EXPECT_EQ(desktop.platformCalls("CoCreateInstance"), 0);
}

TEST(ExactHost, IsNone_WhenNoWindowIsMeantAndNoneIsInFront) {
  SimulatedDesktop desktop(pageOn("https://chat.qwen.ai/c/1"));
  desktop.bringToFront("");

  EXPECT_FALSE(isForegroundOnExactHost(nullptr, makeBestEffortProfile(L"qwen")));
}

TEST(ExactHost, IsNone_WhenTheProfileHasNoHost) {
  SimulatedDesktop desktop(pageOn("https://chat.qwen.ai/c/1"));

  EXPECT_FALSE(isForegroundOnExactHost(desktop.window("browser"), BestEffortProfile{}));
}

constexpr const char* emptyComposer =
    R"([{"id": "composer", "type": "edit", "name": "Message DeepSeek", "value": "", "bounds": [300, 640, 1100, 700]}])";
constexpr const char* clearsOnEnter =
    R"([{"on": {"key": "Enter"}, "do": [{"set": {"element": "composer", "value": ""}}]}])";

std::string deepSeekPage(const std::string& rules = "[]") {
  return desktopJson({.page = emptyComposer, .rules = rules, .address = "https://chat.deepseek.com/"});
}

bool deliver(const SimulatedDesktop& desktop, TraceLog& trace) {
  return deliverBestEffort(desktop.window("browser"), makeBestEffortProfile(L"deepseek"), trace);
}

TEST(BestEffortRoute, TakesItsTimesFromItsOwnBeginning) {
  SimulatedDesktop desktop(deepSeekPage(clearsOnEnter));
  desktop.world().clipboard.content.text = u"prompt";
  ::Sleep(5000);
  TraceLog trace;

  EXPECT_TRUE(deliver(desktop, trace));

  EXPECT_EQ(
      resultsOf(trace, "Experimental Delivery"),
      (std::vector<std::string>{"OBSERVED: verified composer cleared after Enter; server receipt not independently "
                                "verified; elapsed=450 ms"}));
  EXPECT_EQ(desktop.nowMs(), 5450);
  EXPECT_EQ(desktop.keys(), (std::vector<std::string>{"down 17", "down 86", "up 86", "up 17", "down 13", "up 13"}));
}

TEST(BestEffortRoute, AddsToATraceThatHasSteps) {
  SimulatedDesktop desktop(deepSeekPage());
  TraceLog trace;
  appendTrace(trace, "Dispatch Context", "before");

  EXPECT_FALSE(deliver(desktop, trace));

  EXPECT_EQ(stepNames(trace),
            (std::vector<std::string>{"Dispatch Context", "Experimental Profile", "Experimental Identity",
                                      "Experimental Input Scan", "Experimental Focus", "Experimental Clipboard"}));
  EXPECT_TRUE(desktop.keys().empty());
}

TEST(BestEffortRoute, TellsNoLabelAndNoValueInItsTrace_WhereverItStops) {
  const std::string prompt = "the very prompt";
  const std::vector<std::string> waysOut = {R"([])", R"([{"call": "SendInput", "result": 0}])",
                                            R"([{"call": "SendInput", "nth": 2, "result": 0}])",
                                            R"([{"call": "IUIAutomation::GetFocusedElement", "result": null}])",
                                            R"([{"call": "OpenClipboard", "result": 0}])"};
  for (const std::string& faults : waysOut) {
    SimulatedDesktop desktop(deepSeekPage());
    desktop.world().clipboard.content.text = simulation::textFromUtf8(prompt);
    desktop.setFaults(faults);
    TraceLog trace;

    EXPECT_FALSE(deliver(desktop, trace)) << faults;

    for (const EncodableValue& step : trace) {
      const std::string result = traceEntry(step, "result");
      EXPECT_EQ(result.find(prompt), std::string::npos) << result;
      EXPECT_EQ(result.find("Message DeepSeek"), std::string::npos) << result;
      EXPECT_TRUE(traceEntry(step, "step").starts_with("Experimental "));
      EXPECT_NE(result.find("; elapsed="), std::string::npos) << result;
      EXPECT_TRUE(result.ends_with(" ms")) << result;
    }
  }
}

}  // namespace
}  // namespace orvane
