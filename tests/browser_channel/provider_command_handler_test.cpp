#include "browser_channel/provider_command_handler.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "embedding/recorded_result.h"
#include "support/call_record.h"
#include "support/row_name.h"
#include "support/simulated_desktop.h"

namespace orvane {
namespace {

using embedding_tests::RecordedResult;
using embedding_tests::ResultCalls;
using simulation::SimulatedDesktop;

const std::string twoWindows = R"({"windows": [
    {"id": "front", "process": "notepad.exe", "title": "Notes"},
    {"id": "back", "process": "notepad.exe", "title": "More notes", "minimized": true},
    {"id": "deaf", "process": "notepad.exe", "title": "Deaf", "foregroundRequests": "refused"}], "foreground": "front"})";

ResultCalls call(const ProviderCommandHandler& handler, const std::string& method,
                 std::optional<EncodableValue> arguments = std::nullopt) {
  ResultCalls calls;
  handler.HandleMethodCall(
      MethodCall(method, arguments ? std::make_unique<EncodableValue>(std::move(*arguments)) : nullptr),
      std::make_unique<RecordedResult>(calls));
  return calls;
}

ResultCalls call(const std::string& method, std::optional<EncodableValue> arguments = std::nullopt) {
  return call(ProviderCommandHandler([]() -> HWND { return nullptr; }), method, std::move(arguments));
}

EncodableValue mapWith(const char* key, const EncodableValue& value) {
  return EncodableMap{{EncodableValue(key), value}};
}

void expectSuccess(const ResultCalls& calls, const EncodableMap& reply) {
  EXPECT_EQ(calls.names, std::vector<std::string>{"Success"});
  EXPECT_EQ(calls.values, std::vector<EncodableValue>{EncodableValue(reply)});
}

const EncodableMap plainFailure{{EncodableValue("success"), EncodableValue(false)}};
const EncodableMap plainSuccess{{EncodableValue("success"), EncodableValue(true)}};

TEST(BrowserChannel, IsNotImplemented_WhenTheNameIsNotExactlyAMethods) {
  for (const char* method : {"", "openexternalurl", "OpenExternalUrl", "openExternalUrl ", "activateProvider\n",
                             "ActivateProvider", "pasteAndSubmi", "pasteAndSubmitt", "FOCUSPROVIDERINPUT",
                             "getproviderresponsestate", "foregroundwindowhandle", "activateOrvanewindow"}) {
    const ResultCalls calls = call(method, EncodableValue(EncodableMap()));
    EXPECT_EQ(calls.names, std::vector<std::string>{"NotImplemented"}) << method;
  }
  EXPECT_EQ(call(std::string("activateProvider\0", 17)).names, std::vector<std::string>{"NotImplemented"});
}

TEST(ActivateProvider, AnswersBadArguments_WhenTheyAreNoMap) {
  std::vector<std::optional<EncodableValue>> noMaps{std::nullopt, EncodableValue(), EncodableValue("name"),
                                                    EncodableValue(7), EncodableValue(EncodableList())};
  for (std::optional<EncodableValue>& arguments : noMaps) {
    const ResultCalls calls = call("activateProvider", std::move(arguments));
    EXPECT_EQ(calls.names, std::vector<std::string>{"Error"});
    EXPECT_EQ(calls.code, "bad_arguments");
    EXPECT_EQ(calls.message, "Expected a provider argument map.");
    EXPECT_TRUE(calls.values.empty()) << "no details";
  }
}

TEST(OpenExternalUrl, StartsNothing_WhenTheAddressIsEmptyOrMissing) {
  SimulatedDesktop desktop("{}");
  expectSuccess(call("openExternalUrl"), plainFailure);
  expectSuccess(call("openExternalUrl", EncodableValue("https://example.org")), plainFailure);
  expectSuccess(call("openExternalUrl", mapWith("url", EncodableValue(""))), plainFailure);
  expectSuccess(call("openExternalUrl", mapWith("url", EncodableValue(7))), plainFailure);
  expectSuccess(call("openExternalUrl", mapWith("Url", EncodableValue("https://example.org"))), plainFailure);
  EXPECT_EQ(desktop.platformCalls("ShellExecuteW"), 0);
  EXPECT_TRUE(desktop.platform().records().shell.empty());
}

TEST(OpenExternalUrl, HandsTheAddressToTheShell) {
  SimulatedDesktop desktop("{}");
  expectSuccess(call("openExternalUrl", mapWith("url", EncodableValue("https://example.org/é?q=豆"))), plainSuccess);

  ASSERT_EQ(desktop.platform().records().shell.size(), 1U);
  const simulation::ShellCall& shell = desktop.platform().records().shell[0];
  EXPECT_EQ(shell.owner, std::nullopt);
  EXPECT_EQ(shell.verb, u"open");
  EXPECT_EQ(shell.file, u"https://example.org/é?q=豆");
  EXPECT_EQ(shell.parameters, std::nullopt);
  EXPECT_EQ(shell.directory, std::nullopt);
  EXPECT_EQ(shell.show, SW_SHOWNORMAL);
}

struct ShellAnswer {
  const char* test;
  const char* result;
  bool isSuccess;
};

class ShellAnswers : public ::testing::TestWithParam<ShellAnswer> {};

TEST_P(ShellAnswers, AreSuccess_WhenGreaterThan32AsASignedNumber) {
  SimulatedDesktop desktop(std::string(R"({"faults": [{"call": "ShellExecuteW", "result": )") + GetParam().result +
                           "}]}");
  expectSuccess(call("openExternalUrl", mapWith("url", EncodableValue("https://example.org"))),
                GetParam().isSuccess ? plainSuccess : plainFailure);
}

INSTANTIATE_TEST_SUITE_P(Each, ShellAnswers,
                         ::testing::Values(ShellAnswer{"Zero", "0", false}, ShellAnswer{"NotFound", "2", false},
                                           ShellAnswer{"NoAssociation", "31", false}, ShellAnswer{"Limit", "32", false},
                                           ShellAnswer{"AboveLimit", "33", true}, ShellAnswer{"Negative", "-1", false}),
                         nameOfRow<ShellAnswer>);

const std::vector<std::string> restoring{"ShowWindow back", "SetForegroundWindow back"};

TEST(ForegroundWindowHandle, RestoresTheWindow_WhicheverIntegerItIs) {
  for (const bool isNarrow : {true, false}) {
    SimulatedDesktop desktop(twoWindows);
    const auto handle = reinterpret_cast<std::intptr_t>(desktop.window("back"));
    const EncodableValue number = isNarrow ? EncodableValue(static_cast<std::int32_t>(handle))
                                           : EncodableValue(static_cast<std::int64_t>(handle));

    const simulation::CallRecord record(desktop, {"ShowWindow", "SetForegroundWindow"});
    expectSuccess(call("foregroundWindowHandle", mapWith("windowHandle", number)), plainSuccess);

    EXPECT_EQ(record.calls(), restoring);
    EXPECT_EQ(desktop.foreground(), "back");
    EXPECT_FALSE(::IsIconic(desktop.window("back")));
  }
}

TEST(ForegroundWindowHandle, TouchesNothing_WhenThereIsNoSuchWindow) {
  SimulatedDesktop desktop(twoWindows);
  const auto handle = static_cast<double>(reinterpret_cast<std::intptr_t>(desktop.window("back")));
  for (const EncodableValue& value :
       {EncodableValue(0), EncodableValue(std::int64_t{0}), EncodableValue(std::int64_t{0x7FFFFFFF}),
        EncodableValue(-1), EncodableValue(handle), EncodableValue("66000"), EncodableValue(true), EncodableValue()}) {
    expectSuccess(call("foregroundWindowHandle", mapWith("windowHandle", value)), plainFailure);
  }
  expectSuccess(call("foregroundWindowHandle"), plainFailure);
  expectSuccess(call("foregroundWindowHandle", EncodableValue(EncodableMap())), plainFailure);
  EXPECT_EQ(desktop.platformCalls("ShowWindow"), 0);
  EXPECT_EQ(desktop.platformCalls("SetForegroundWindow"), 0);
  EXPECT_EQ(desktop.foreground(), "front");
}

TEST(ForegroundWindowHandle, TellsTheRequestsOwnAnswer_WhenItWasRefused) {
  SimulatedDesktop desktop(twoWindows);
  const auto handle = reinterpret_cast<std::intptr_t>(desktop.window("deaf"));
  expectSuccess(call("foregroundWindowHandle", mapWith("windowHandle", EncodableValue(std::int64_t{handle}))),
                plainFailure);
  EXPECT_EQ(desktop.foreground(), "front");
  EXPECT_EQ(desktop.platformCalls("ShowWindow"), 1);
}

EncodableMap orvaneReply(bool isRestored) {
  return {{EncodableValue("success"), EncodableValue(isRestored)},
          {EncodableValue("message"), EncodableValue(isRestored ? "PASS: Orvane restored after quiet multi-AI send"
                                                                : "FAIL: Orvane could not be restored")}};
}

TEST(ActivateOrvaneWindow, RestoresTheViewsWindow) {
  SimulatedDesktop desktop(twoWindows);
  const ProviderCommandHandler handler([&desktop] { return desktop.window("back"); });
  const simulation::CallRecord record(desktop, {"ShowWindow", "SetForegroundWindow"});
  expectSuccess(call(handler, "activateOrvaneWindow"), orvaneReply(true));
  EXPECT_EQ(record.calls(), restoring);
  EXPECT_EQ(desktop.foreground(), "back");
  EXPECT_FALSE(::IsIconic(desktop.window("back")));
}

TEST(ActivateOrvaneWindow, Fails_WhenThereIsNoViewOrNoLivingWindow) {
  SimulatedDesktop desktop(twoWindows);
  expectSuccess(call("activateOrvaneWindow"), orvaneReply(false));
  desktop.perform("front", R"([{"closeWindow": "back"}])");
  const ProviderCommandHandler handler([&desktop] { return desktop.window("back"); });
  expectSuccess(call(handler, "activateOrvaneWindow"), orvaneReply(false));
  EXPECT_EQ(desktop.platformCalls("ShowWindow"), 0);
  EXPECT_EQ(desktop.platformCalls("SetForegroundWindow"), 0);
}

TEST(ActivateOrvaneWindow, Fails_WhenTheRequestIsRefused) {
  SimulatedDesktop desktop(twoWindows);
  const ProviderCommandHandler handler([&desktop] { return desktop.window("deaf"); });
  expectSuccess(call(handler, "activateOrvaneWindow", EncodableValue("ignored")), orvaneReply(false));
}

TEST(FocusProviderInput, HasNoDetail_WhenNoWindowIsInFront) {
  SimulatedDesktop desktop(R"({"windows": []})");
  expectSuccess(
      call("focusProviderInput", mapWith("name", EncodableValue("Claude"))),
      {{EncodableValue("success"), EncodableValue(false)}, {EncodableValue("message"), EncodableValue("FAIL: ")}});
  EXPECT_EQ(desktop.platformCalls("CoCreateInstance"), 0);
}

TEST(GetProviderResponseState, NeverReportsResponding_WhenNothingWasObserved) {
  SimulatedDesktop desktop(twoWindows);
  for (const EncodableValue& arguments :
       {EncodableValue(), EncodableValue(EncodableMap()), mapWith("expectedWindowHandle", EncodableValue(0)),
        mapWith("name", EncodableValue("Claude"))}) {
    const ResultCalls calls = call("getProviderResponseState", arguments);
    ASSERT_EQ(calls.names, std::vector<std::string>{"Success"});
    const auto& reply = std::get<EncodableMap>(calls.values[0]);
    EXPECT_EQ(reply.size(), 3U);
    EXPECT_EQ(reply.at(EncodableValue("observed")), EncodableValue(false));
    EXPECT_EQ(reply.at(EncodableValue("responding")), EncodableValue(false));
    EXPECT_TRUE(std::get<std::string>(reply.at(EncodableValue("detail"))).starts_with("FAIL: foreground "));
  }
  EXPECT_EQ(desktop.platformCalls("CoCreateInstance"), 0);
}

}  // namespace
}  // namespace orvane
