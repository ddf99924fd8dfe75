#include <gtest/gtest.h>

#include <stdexcept>
#include <thread>

#include "embedding/binary_messenger_impl.h"
#include "embedding/captured_errors.h"
#include "embedding/embedding_fixture.h"

namespace orvane::embedding_tests {
namespace {

using Calls = std::vector<std::string>;

const std::string duplicateResponse = "Error: Response can be set only once. Ignoring duplicate response.";

class Messenger : public EmbeddingTest {
 protected:
  BinaryMessengerImpl messenger_{fakeLibrary().messenger()};
};

TEST_F(Messenger, SendsPlainly_WithoutAReplyFunction) {
  const Bytes message = {1, 2};

  messenger_.Send("channel", message.data(), message.size(), nullptr);

  EXPECT_EQ(fakeLibrary().calls, Calls{"MessengerSend"});
  EXPECT_EQ(fakeLibrary().sent.front().channel, "channel");
  EXPECT_EQ(fakeLibrary().sent.front().bytes, message);
}

TEST_F(Messenger, HandsTheReplyOn_WithAReplyFunction) {
  const Bytes answer = {5, 6};
  Bytes received;
  messenger_.Send("channel", nullptr, 0,
                  [&](const std::uint8_t* bytes, std::size_t size) { received.assign(bytes, bytes + size); });

  const auto& sent = fakeLibrary().sent.front();
  sent.reply(answer.data(), answer.size(), sent.userData);

  EXPECT_EQ(fakeLibrary().calls, Calls{"MessengerSendWithReply"});
  EXPECT_EQ(received, answer);
}

TEST_F(Messenger, DropsTheReplyFunctionOnce_AfterItsUse) {
  auto token = std::make_shared<int>(0);
  messenger_.Send("channel", nullptr, 0, [token](const std::uint8_t*, std::size_t) { ++*token; });
  const long usesBefore = token.use_count();

  const auto& sent = fakeLibrary().sent.front();
  sent.reply(nullptr, 0, sent.userData);

  EXPECT_EQ(usesBefore, 2);
  EXPECT_EQ(*token, 1);
  EXPECT_EQ(token.use_count(), 1);
}

TEST_F(Messenger, DropsTheReplyFunctionUncalled_WhenSendingFails) {
  fakeLibrary().sends = false;
  auto token = std::make_shared<int>(0);

  messenger_.Send("channel", nullptr, 0, [token](const std::uint8_t*, std::size_t) { ++*token; });

  EXPECT_EQ(*token, 0);
  EXPECT_EQ(token.use_count(), 1);
}

TEST_F(Messenger, EndsExceptionsOfReplyFunctions_AtTheLibrary) {
  messenger_.Send("channel", nullptr, 0, [](const std::uint8_t*, std::size_t) { throw std::runtime_error("broken"); });
  const auto& sent = fakeLibrary().sent.front();
  CapturedErrors errors;

  sent.reply(nullptr, 0, sent.userData);

  EXPECT_EQ(errors.lines(), Lines{"Error: An exception ended the handling of a reply: broken"});
}

TEST_F(Messenger, HandsMessagesToTheHandler_OfTheirChannel) {
  Bytes first;
  Bytes second;
  messenger_.SetMessageHandler("first", [&](const std::uint8_t* bytes, std::size_t size, const ReplyFunction&) {
    first.assign(bytes, bytes + size);
  });
  messenger_.SetMessageHandler("second", [&](const std::uint8_t* bytes, std::size_t size, const ReplyFunction&) {
    second.assign(bytes, bytes + size);
  });

  fakeLibrary().deliver("first", {1}, 11);
  fakeLibrary().deliver("second", {2}, 12);

  EXPECT_EQ(first, Bytes{1});
  EXPECT_EQ(second, Bytes{2});
}

TEST_F(Messenger, RespondsUnderTheLock_ToTheMessageOfTheReply) {
  messenger_.SetMessageHandler(
      "channel", [](const std::uint8_t* bytes, std::size_t size, const ReplyFunction& reply) { reply(bytes, size); });
  fakeLibrary().calls.clear();

  fakeLibrary().deliver("channel", {8, 9}, 42);

  EXPECT_EQ(fakeLibrary().calls, (Calls{"MessengerAddRef", "MessengerLock", "MessengerIsAvailable",
                                        "MessengerSendResponse", "MessengerUnlock", "MessengerRelease"}));
  ASSERT_EQ(fakeLibrary().responses.size(), 1U);
  EXPECT_EQ(fakeLibrary().responses.front().handle, 42U);
  EXPECT_EQ(fakeLibrary().responses.front().bytes, (Bytes{8, 9}));
}

TEST_F(Messenger, RespondsOnceAndLogs_WhenRepliedTwice) {
  messenger_.SetMessageHandler("channel", [](const std::uint8_t*, std::size_t, const ReplyFunction& reply) {
    const ReplyFunction copy = reply;
    reply(nullptr, 0);
    copy(nullptr, 0);
  });
  CapturedErrors errors;

  fakeLibrary().deliver("channel", {}, 42);

  EXPECT_EQ(fakeLibrary().responses.size(), 1U);
  EXPECT_EQ(errors.lines(), Lines{duplicateResponse});
}

TEST_F(Messenger, SendsNothingAndLogs_WhenTheMessageTakesNoResponse) {
  messenger_.SetMessageHandler("channel",
                               [](const std::uint8_t*, std::size_t, const ReplyFunction& reply) { reply(nullptr, 0); });
  CapturedErrors errors;

  fakeLibrary().deliver("channel", {}, 0);

  EXPECT_TRUE(fakeLibrary().responses.empty());
  EXPECT_EQ(errors.lines(), Lines{duplicateResponse});
}

TEST_F(Messenger, DropsTheResponseSilently_WhenTheEngineHasGone) {
  ReplyFunction kept;
  messenger_.SetMessageHandler("channel", [&](const std::uint8_t*, std::size_t, ReplyFunction reply) { kept = reply; });
  fakeLibrary().deliver("channel", {}, 42);
  fakeLibrary().isAvailable = false;
  fakeLibrary().calls.clear();
  CapturedErrors errors;

  kept(nullptr, 0);
  kept = nullptr;

  EXPECT_EQ(fakeLibrary().calls,
            (Calls{"MessengerLock", "MessengerIsAvailable", "MessengerUnlock", "MessengerRelease"}));
  EXPECT_EQ(errors.lines(), Lines{});
}

TEST_F(Messenger, KeepsTheLibraryReferenced_WhileAReplyIsOwed) {
  ReplyFunction kept;
  messenger_.SetMessageHandler("channel", [&](const std::uint8_t*, std::size_t, ReplyFunction reply) { kept = reply; });

  fakeLibrary().deliver("channel", {}, 42);
  const int referencesWhileOwed = fakeLibrary().messengerReferences;
  std::thread([reply = std::move(kept)] { reply(nullptr, 0); }).join();
  kept = nullptr;

  EXPECT_EQ(referencesWhileOwed, 1);
  EXPECT_EQ(fakeLibrary().responses.size(), 1U);
  EXPECT_EQ(fakeLibrary().messengerReferences, 0);
}

TEST_F(Messenger, GivesTheLibraryOneStableAddress_WhenAHandlerIsReplaced) {
  Calls handled;
  const auto handlerNamed = [&handled](const std::string& name) {
    return [&handled, name](const std::uint8_t*, std::size_t, const ReplyFunction&) { handled.push_back(name); };
  };

  messenger_.SetMessageHandler("channel", handlerNamed("former"));
  messenger_.SetMessageHandler("other", handlerNamed("other"));
  messenger_.SetMessageHandler("channel", handlerNamed("present"));
  fakeLibrary().deliver("channel", {}, 1);

  const auto& callbacks = fakeLibrary().channelCallbacks;
  ASSERT_EQ(callbacks.size(), 3U);
  EXPECT_EQ(callbacks[0].userData, callbacks[2].userData);
  EXPECT_NE(callbacks[0].userData, callbacks[1].userData);
  EXPECT_EQ(handled, Calls{"present"});
}

TEST_F(Messenger, TakesTheCallbackBack_WithoutAHandler) {
  auto token = std::make_shared<int>(0);
  messenger_.SetMessageHandler("channel", [token](const std::uint8_t*, std::size_t, const ReplyFunction&) {});

  messenger_.SetMessageHandler("channel", nullptr);

  const auto& last = fakeLibrary().channelCallbacks.back();
  EXPECT_EQ(last.channel, "channel");
  EXPECT_EQ(last.callback, nullptr);
  EXPECT_EQ(last.userData, nullptr);
  EXPECT_EQ(token.use_count(), 1);
}

TEST_F(Messenger, KeepsARunningHandler_WhenItIsReplacedMeanwhile) {
  const auto token = std::make_shared<int>(7);
  int seen = 0;
  messenger_.SetMessageHandler("channel", [this, token, &seen](const std::uint8_t*, std::size_t, const ReplyFunction&) {
    messenger_.SetMessageHandler("channel", nullptr);
    seen = *token;
  });

  fakeLibrary().deliver("channel", {}, 1);

  EXPECT_EQ(seen, 7);
  EXPECT_EQ(token.use_count(), 1);
}

TEST_F(Messenger, EndsExceptionsOfHandlers_AtTheLibrary) {
  messenger_.SetMessageHandler(
      "first", [](const std::uint8_t*, std::size_t, const ReplyFunction&) { throw std::runtime_error("broken"); });
  messenger_.SetMessageHandler("second", [](const std::uint8_t*, std::size_t, const ReplyFunction&) { throw 5; });
  CapturedErrors errors;

  fakeLibrary().deliver("first", {}, 1);
  fakeLibrary().deliver("second", {}, 2);

  EXPECT_EQ(errors.lines(), (Lines{"Error: An exception ended the handling of a message: broken",
                                   "Error: An exception ended the handling of a message: unknown"}));
}

}  // namespace
}  // namespace orvane::embedding_tests
