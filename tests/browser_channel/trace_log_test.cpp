#include "browser_channel/trace_log.h"

#include <gtest/gtest.h>

#include <string>

namespace orvane {
namespace {

EncodableMap stepMap(const std::string& step, const std::string& result) {
  return {{EncodableValue("step"), EncodableValue(step)}, {EncodableValue("result"), EncodableValue(result)}};
}

TEST(TraceLog, HoldsOneMapOfTwoTexts_ForEachStep) {
  TraceLog trace;
  appendTrace(trace, "Paste", "FAIL: Windows could not send Ctrl+V");

  ASSERT_EQ(trace.size(), 1U);
  const EncodableMap& step = std::get<EncodableMap>(trace[0]);
  EXPECT_EQ(step, stepMap("Paste", "FAIL: Windows could not send Ctrl+V"));
  EXPECT_EQ(step.size(), 2U);
  EXPECT_EQ(std::get<std::string>(step.begin()->first), "result") << "in front of \"step\" on the wire";
}

TEST(TraceLog, KeepsTheOrderAndRepeatedSteps) {
  TraceLog trace;
  appendTrace(trace, "B", "1");
  appendTrace(trace, "A", "2");
  appendTrace(trace, "B", "1");

  EXPECT_EQ(trace, (TraceLog{stepMap("B", "1"), stepMap("A", "2"), stepMap("B", "1")}));
}

TEST(TraceLog, KeepsTheOpening_WhenTheDetailIsEmpty) {
  TraceLog trace;
  const std::string detail;
  appendTrace(trace, "Send", "INFO: " + detail);
  appendTrace(trace, "", "");

  EXPECT_EQ(trace, (TraceLog{stepMap("Send", "INFO: "), stepMap("", "")}));
}

TEST(TraceLog, KeepsEveryByte_WhenATextIsLongOrHoldsNul) {
  TraceLog trace;
  const std::string text = std::string(5000, 'x') + '\0' + "\n豆包";
  appendTrace(trace, "Title", text);
  EXPECT_EQ(trace, TraceLog{stepMap("Title", text)});
}

TEST(ProviderReply, HoldsVerdictMessageAndTrace) {
  TraceLog trace;
  appendTrace(trace, "Foreground Verification", "FAIL: foreground title is x");

  const EncodableMap reply = makeProviderReply(false, "Wrong AI is in the foreground; send blocked", trace);

  const EncodableMap expected{
      {EncodableValue("success"), EncodableValue(false)},
      {EncodableValue("message"), EncodableValue("Wrong AI is in the foreground; send blocked")},
      {EncodableValue("logs"), EncodableValue(trace)}};
  EXPECT_EQ(reply, expected);
}

TEST(ProviderReply, CopiesTheTrace_SoThatLaterStepsStayOut) {
  TraceLog trace;
  appendTrace(trace, "Result", "PASS: x");
  const EncodableMap reply = makeProviderReply(true, "Prompt pasted and submitted", trace);
  appendTrace(trace, "Later", "x");
  EXPECT_EQ(std::get<EncodableList>(reply.at(EncodableValue("logs"))).size(), 1U);
}

}  // namespace
}  // namespace orvane
