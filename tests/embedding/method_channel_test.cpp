#include "embedding/method_channel.h"

#include <gtest/gtest.h>

#include "embedding/binary_messenger_impl.h"
#include "embedding/captured_errors.h"
#include "embedding/embedding_fixture.h"
#include "embedding/recorded_result.h"
#include "embedding/standard_method_codec.h"

namespace orvane::embedding_tests {
namespace {

using Calls = std::vector<std::string>;

const Bytes callWithoutArguments = {7, 1, 'm', 0};
const std::string unansweredWarning = "Warning: Failed to respond to a message. This is a memory leak.";
const std::string duplicateResult =
    "Error: Only one of Success, Error, or NotImplemented can be called, "
    "and it can be called exactly once. Ignoring duplicate result.";
const std::string undecodableReply = "Unable to decode reply to method invocation on channel orvane/test";

class Channel : public EmbeddingTest {
 protected:
  // The interface calls, and the handler does `act` with the result.
  void answerWith(const std::function<void(std::unique_ptr<MethodResult>)>& act) {
    channel_.SetMethodCallHandler(
        [act](const MethodCall&, std::unique_ptr<MethodResult> result) { act(std::move(result)); });
    fakeLibrary().deliver("orvane/test", callWithoutArguments, 42);
  }

  // The interface replies to the last call that was sent.
  static void replyWith(const Bytes& bytes) {
    const auto& sent = fakeLibrary().sent.back();
    sent.reply(bytes.empty() ? nullptr : bytes.data(), bytes.size(), sent.userData);
  }

  BinaryMessengerImpl messenger_{fakeLibrary().messenger()};
  MethodChannel channel_{&messenger_, "orvane/test", &StandardMethodCodec::instance()};
};

TEST_F(Channel, HandsTheCallToItsHandler) {
  std::string name;
  EncodableValue arguments;
  channel_.SetMethodCallHandler([&](const MethodCall& call, std::unique_ptr<MethodResult> result) {
    name = call.method_name();
    arguments = *call.arguments();
    result->NotImplemented();
  });

  fakeLibrary().deliver("orvane/test", {7, 2, 'g', 'o', 13, 1, 7, 1, 'k', 1}, 42);

  EXPECT_EQ(name, "go");
  EXPECT_EQ(arguments, EncodableValue(EncodableMap{{"k", true}}));
}

TEST_F(Channel, RespondsWithASuccessEnvelope) {
  answerWith([](std::unique_ptr<MethodResult> result) { result->Success(EncodableValue("ok")); });

  ASSERT_EQ(fakeLibrary().responses.size(), 1U);
  EXPECT_EQ(fakeLibrary().responses.front().handle, 42U);
  EXPECT_EQ(fakeLibrary().responses.front().bytes, (Bytes{0, 7, 2, 'o', 'k'}));
}

TEST_F(Channel, RespondsWithTwoZeros_ForSuccessWithoutValue) {
  answerWith([](std::unique_ptr<MethodResult> result) { result->Success(); });

  ASSERT_EQ(fakeLibrary().responses.size(), 1U);
  EXPECT_EQ(fakeLibrary().responses.front().bytes, (Bytes{0, 0}));
}

TEST_F(Channel, RespondsWithAnErrorEnvelope) {
  answerWith([](std::unique_ptr<MethodResult> result) { result->Error("bad", "why", EncodableValue(true)); });

  ASSERT_EQ(fakeLibrary().responses.size(), 1U);
  EXPECT_EQ(fakeLibrary().responses.front().bytes, (Bytes{1, 7, 3, 'b', 'a', 'd', 7, 3, 'w', 'h', 'y', 1}));
}

TEST_F(Channel, RespondsWithNoBytes_ForNotImplemented) {
  answerWith([](std::unique_ptr<MethodResult> result) { result->NotImplemented(); });

  ASSERT_EQ(fakeLibrary().responses.size(), 1U);
  EXPECT_TRUE(fakeLibrary().responses.front().isNull);
  EXPECT_EQ(fakeLibrary().responses.front().bytes, Bytes{});
}

TEST_F(Channel, RespondsOnceAndLogs_WhenSuccessIsCalledTwice) {
  CapturedErrors errors;

  answerWith([](std::unique_ptr<MethodResult> result) {
    result->Success(EncodableValue(true));
    result->Success(EncodableValue(false));
  });

  ASSERT_EQ(fakeLibrary().responses.size(), 1U);
  EXPECT_EQ(fakeLibrary().responses.front().bytes, (Bytes{0, 1}));
  EXPECT_EQ(errors.lines(), Lines{duplicateResult});
}

TEST_F(Channel, LogsEachFurtherAnswer_OfAnyKind) {
  CapturedErrors errors;

  answerWith([](std::unique_ptr<MethodResult> result) {
    result->NotImplemented();
    result->Error("bad");
    result->NotImplemented();
  });

  EXPECT_EQ(fakeLibrary().responses.size(), 1U);
  EXPECT_EQ(errors.lines(), (Lines{duplicateResult, duplicateResult}));
}

TEST_F(Channel, WarnsAndSendsNothing_WhenAResultIsDestroyedUnanswered) {
  CapturedErrors errors;

  answerWith([](std::unique_ptr<MethodResult> result) { result.reset(); });

  EXPECT_TRUE(fakeLibrary().responses.empty());
  EXPECT_EQ(errors.lines(), Lines{unansweredWarning});
}

TEST_F(Channel, RespondsLater_WhenTheResultIsKept) {
  std::unique_ptr<MethodResult> kept;
  answerWith([&](std::unique_ptr<MethodResult> result) { kept = std::move(result); });
  const bool isSilentAtFirst = fakeLibrary().responses.empty();

  kept->Success();
  kept.reset();

  EXPECT_TRUE(isSilentAtFirst);
  EXPECT_EQ(fakeLibrary().responses.size(), 1U);
}

TEST_F(Channel, DropsAKeptAnswerSilently_WhenTheEngineHasGone) {
  std::unique_ptr<MethodResult> kept;
  answerWith([&](std::unique_ptr<MethodResult> result) { kept = std::move(result); });
  fakeLibrary().isAvailable = false;
  CapturedErrors errors;

  kept->Success();
  kept.reset();

  EXPECT_TRUE(fakeLibrary().responses.empty());
  EXPECT_EQ(errors.lines(), Lines{});
}

TEST_F(Channel, RespondsWithNoBytesAndLogs_ForAnUndecodableCall) {
  bool isCalled = false;
  channel_.SetMethodCallHandler([&](const MethodCall&, const std::unique_ptr<MethodResult>&) { isCalled = true; });
  CapturedErrors errors;

  fakeLibrary().deliver("orvane/test", {99, 1, 2}, 42);

  EXPECT_FALSE(isCalled);
  ASSERT_EQ(fakeLibrary().responses.size(), 1U);
  EXPECT_TRUE(fakeLibrary().responses.front().isNull);
  EXPECT_EQ(errors.lines(), (Lines{"Unknown type in StandardCodecSerializer::ReadValueOfType: 99",
                                   "Invalid method call; method name is not a string.",
                                   "Unable to construct method call from message on channel orvane/test"}));
}

TEST_F(Channel, RespondsWithNoBytes_ForAnEmptyOrTooDeepCall) {
  channel_.SetMethodCallHandler(
      [](const MethodCall&, const std::unique_ptr<MethodResult>& result) { result->Success(); });
  Bytes tooDeep = {7, 1, 'm'};
  for (int level = 0; level < 100000; ++level) {
    tooDeep.insert(tooDeep.end(), {12, 1});
  }
  CapturedErrors errors;

  fakeLibrary().deliver("orvane/test", {}, 1);
  fakeLibrary().deliver("orvane/test", tooDeep, 2);

  ASSERT_EQ(fakeLibrary().responses.size(), 2U);
  EXPECT_TRUE(fakeLibrary().responses[0].isNull);
  EXPECT_TRUE(fakeLibrary().responses[1].isNull);
  EXPECT_EQ(errors.lines().back(), "Unable to construct method call from message on channel orvane/test");
}

TEST_F(Channel, RemovesTheMessageHandler_WithoutAHandler) {
  channel_.SetMethodCallHandler([](const MethodCall&, const std::unique_ptr<MethodResult>&) {});

  channel_.SetMethodCallHandler(nullptr);

  EXPECT_EQ(fakeLibrary().channelCallbacks.back().channel, "orvane/test");
  EXPECT_EQ(fakeLibrary().channelCallbacks.back().callback, nullptr);
}

TEST_F(Channel, LeavesItsHandlerInPlace_WhenItGoes) {
  {
    const MethodChannel passing(&messenger_, "orvane/test", &StandardMethodCodec::instance());
    passing.SetMethodCallHandler(
        [](const MethodCall&, const std::unique_ptr<MethodResult>& result) { result->Success(); });
  }

  fakeLibrary().deliver("orvane/test", callWithoutArguments, 42);

  EXPECT_EQ(fakeLibrary().responses.size(), 1U);
}

TEST_F(Channel, SendsPlainly_WhenInvokedWithoutAResult) {
  channel_.InvokeMethod("showToolBoxMenu", nullptr);

  EXPECT_EQ(fakeLibrary().calls, Calls{"MessengerSend"});
  EXPECT_EQ(fakeLibrary().sent.front().channel, "orvane/test");
  EXPECT_EQ(fakeLibrary().sent.front().bytes.size(), 2 + std::string("showToolBoxMenu").size() + 1);
}

TEST_F(Channel, HandsTheReplyToTheResult_WhenInvokedWithOne) {
  ResultCalls calls;
  channel_.InvokeMethod("m", std::make_unique<EncodableValue>(true), std::make_unique<RecordedResult>(calls));

  replyWith({0, 7, 1, 'r'});

  EXPECT_EQ(fakeLibrary().calls, Calls{"MessengerSendWithReply"});
  EXPECT_EQ(fakeLibrary().sent.front().bytes, (Bytes{7, 1, 'm', 1}));
  EXPECT_EQ(calls.names, Calls{"Success"});
  EXPECT_EQ(calls.values, EncodableList{"r"});
}

TEST_F(Channel, CallsNotImplemented_ForAnEmptyReply) {
  ResultCalls calls;
  channel_.InvokeMethod("m", nullptr, std::make_unique<RecordedResult>(calls));
  CapturedErrors errors;

  replyWith({});

  EXPECT_EQ(calls.names, Calls{"NotImplemented"});
  EXPECT_EQ(errors.lines(), Lines{});
}

TEST_F(Channel, CallsNotImplementedAndLogs_ForAnUndecodableReply) {
  ResultCalls calls;
  channel_.InvokeMethod("m", nullptr, std::make_unique<RecordedResult>(calls));
  CapturedErrors errors;

  replyWith({7});

  EXPECT_EQ(calls.names, Calls{"NotImplemented"});
  EXPECT_EQ(errors.lines(), Lines{undecodableReply});
}

TEST_F(Channel, CallsNothing_WhenTheCallCouldNotBeSent) {
  fakeLibrary().sends = false;
  ResultCalls calls;

  channel_.InvokeMethod("m", nullptr, std::make_unique<RecordedResult>(calls));

  EXPECT_TRUE(calls.names.empty());
}

TEST_F(Channel, LetsNoExceptionPassTheLibrary_WhenAnErrorReplyHasNoCode) {
  ResultCalls calls;
  channel_.InvokeMethod("m", nullptr, std::make_unique<RecordedResult>(calls));
  CapturedErrors errors;

  replyWith({1, 0, 0, 0});

  EXPECT_TRUE(calls.names.empty());
  ASSERT_EQ(errors.lines().size(), 1U);
  EXPECT_EQ(errors.lines().front().rfind("Error: An exception ended the handling of a reply: ", 0), 0U);
}

TEST_F(Channel, LetsNoExceptionPassTheLibrary_WhenAResultThrows) {
  channel_.InvokeMethod("m", nullptr, std::make_unique<ThrowingResult>());
  CapturedErrors errors;

  replyWith({0, 0});

  EXPECT_EQ(errors.lines(), Lines{"Error: An exception ended the handling of a reply: success"});
}

}  // namespace
}  // namespace orvane::embedding_tests
