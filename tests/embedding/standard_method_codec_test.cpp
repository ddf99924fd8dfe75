#include "embedding/standard_method_codec.h"

#include <gtest/gtest.h>

#include "embedding/captured_errors.h"
#include "embedding/codec_bytes.h"
#include "embedding/recorded_result.h"

namespace orvane::embedding_tests {
namespace {

const StandardMethodCodec& codec() { return StandardMethodCodec::instance(); }

std::unique_ptr<MethodCall> decoded(const Bytes& bytes) { return codec().DecodeMethodCall(bytes.data(), bytes.size()); }

bool process(const Bytes& bytes, ResultCalls& calls) {
  RecordedResult result(calls);
  return codec().DecodeAndProcessResponseEnvelope(bytes.data(), bytes.size(), result);
}

TEST(StandardMethodCodec, WritesNameAndArguments_ForACall) {
  const MethodCall call("go", std::make_unique<EncodableValue>(EncodableMap{{"x", true}}));

  const auto bytes = codec().EncodeMethodCall(call);

  EXPECT_EQ(*bytes, (Bytes{7, 2, 'g', 'o', 13, 1, 7, 1, 'x', 1}));
}

TEST(StandardMethodCodec, WritesNullArguments_WhenThereAreNone) {
  const MethodCall call("showToolBoxMenu", nullptr);

  const auto bytes = codec().EncodeMethodCall(call);

  EXPECT_EQ(*bytes, Bytes{7} + Bytes{15} + bytesOf("showToolBoxMenu") + Bytes{0});
}

TEST(StandardMethodCodec, ReadsNameAndArgumentsBack) {
  const Bytes bytes = {7, 2, 'g', 'o', 12, 1, 2};

  const auto call = decoded(bytes);

  ASSERT_NE(call, nullptr);
  EXPECT_EQ(call->method_name(), "go");
  EXPECT_EQ(*call->arguments(), EncodableValue(EncodableList{false}));
}

TEST(StandardMethodCodec, AlignsArgumentsFromTheStartOfTheCall) {
  const MethodCall call("abc", std::make_unique<EncodableValue>(2.0));

  const auto bytes = codec().EncodeMethodCall(call);
  const auto readBack = decoded(*bytes);

  EXPECT_EQ(*bytes, (Bytes{7, 3, 'a', 'b', 'c', 6, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x40}));
  EXPECT_EQ(*readBack->arguments(), EncodableValue(2.0));
}

TEST(StandardMethodCodec, IgnoresBytesBehindTheArguments) {
  CapturedErrors errors;

  const auto call = decoded({7, 1, 'm', 1, 99, 99, 99});

  ASSERT_NE(call, nullptr);
  EXPECT_EQ(*call->arguments(), EncodableValue(true));
  EXPECT_EQ(errors.lines(), Lines{});
}

TEST(StandardMethodCodec, GivesNullArguments_WhenTheCallEndsBehindItsName) {
  CapturedErrors errors;

  const auto call = decoded({7, 1, 'm'});

  ASSERT_NE(call, nullptr);
  EXPECT_EQ(call->method_name(), "m");
  EXPECT_TRUE(call->arguments()->isNull());
  EXPECT_EQ(errors.lines(), Lines{invalidRead});
}

TEST(StandardMethodCodec, GivesNoCallAndLogs_WhenTheNameIsNoString) {
  for (const Bytes& bytes : {Bytes{0, 0}, Bytes{1, 0}, Bytes{3, 1, 0, 0, 0, 0}, Bytes{8, 1, 'm', 0}, Bytes{12, 0, 0}}) {
    CapturedErrors errors;

    const auto call = decoded(bytes);

    EXPECT_EQ(call, nullptr);
    EXPECT_EQ(errors.lines(), Lines{"Invalid method call; method name is not a string."});
  }
}

TEST(StandardMethodCodec, GivesNoCallAndLogs_WhenThereAreNoBytes) {
  CapturedErrors errors;

  const auto call = codec().DecodeMethodCall(nullptr, 0);

  EXPECT_EQ(call, nullptr);
  EXPECT_EQ(errors.lines(), (Lines{invalidRead, "Invalid method call; method name is not a string."}));
}

TEST(StandardMethodCodec, WritesTwoZeros_ForSuccessWithoutValue) {
  const auto bytes = codec().EncodeSuccessEnvelope(nullptr);

  EXPECT_EQ(*bytes, (Bytes{0, 0}));
}

TEST(StandardMethodCodec, WritesTheValueBehindAZero_ForSuccess) {
  const EncodableValue value("ok");

  const auto bytes = codec().EncodeSuccessEnvelope(&value);

  EXPECT_EQ(*bytes, (Bytes{0, 7, 2, 'o', 'k'}));
}

TEST(StandardMethodCodec, WritesCodeMessageAndDetailsBehindAOne_ForAnError) {
  const EncodableValue details(true);

  const auto full = codec().EncodeErrorEnvelope("c", "m", &details);
  const auto bare = codec().EncodeErrorEnvelope("c", "", nullptr);

  EXPECT_EQ(*full, (Bytes{1, 7, 1, 'c', 7, 1, 'm', 1}));
  EXPECT_EQ(*bare, (Bytes{1, 7, 1, 'c', 0, 0}));
}

TEST(StandardMethodCodec, CallsSuccess_ForASuccessEnvelope) {
  ResultCalls calls;

  const bool isTaken = process({0, 3, 5, 0, 0, 0}, calls);

  EXPECT_TRUE(isTaken);
  EXPECT_EQ(calls.names, Lines{"Success"});
  EXPECT_EQ(calls.values, EncodableList{5});
}

TEST(StandardMethodCodec, CallsSuccessWithoutValue_WhenItIsNull) {
  ResultCalls calls;

  const bool isTaken = process({0, 0}, calls);

  EXPECT_TRUE(isTaken);
  EXPECT_EQ(calls.names, Lines{"Success"});
  EXPECT_TRUE(calls.values.empty());
}

TEST(StandardMethodCodec, CallsError_ForAnErrorEnvelope) {
  ResultCalls calls;

  const bool isTaken = process({1, 7, 1, 'c', 7, 1, 'm', 1}, calls);

  EXPECT_TRUE(isTaken);
  EXPECT_EQ(calls.names, Lines{"Error"});
  EXPECT_EQ(calls.code, "c");
  EXPECT_EQ(calls.message, "m");
  EXPECT_EQ(calls.values, EncodableList{true});
}

TEST(StandardMethodCodec, CallsErrorWithEmptyMessageAndNoDetails_WhenBothAreNull) {
  ResultCalls calls;

  const bool isTaken = process({1, 7, 1, 'c', 0, 0}, calls);

  EXPECT_TRUE(isTaken);
  EXPECT_EQ(calls.names, Lines{"Error"});
  EXPECT_EQ(calls.message, "");
  EXPECT_TRUE(calls.values.empty());
}

TEST(StandardMethodCodec, ReturnsFalseWithoutACall_ForAnyOtherFirstByte) {
  for (int first = 2; first <= 255; ++first) {
    ResultCalls calls;

    const bool isTaken = process({static_cast<std::uint8_t>(first), 0}, calls);

    EXPECT_FALSE(isTaken);
    EXPECT_TRUE(calls.names.empty());
  }
}

TEST(StandardMethodCodec, Throws_WhenAnErrorHasNoTextsWhereTheyBelong) {
  ResultCalls calls;

  const Bytes codeIsNull = {1, 0, 0, 0};
  const Bytes codeIsNumber = {1, 3, 0, 0, 0, 0, 0, 0};
  const Bytes messageIsBool = {1, 7, 1, 'c', 1, 0};

  EXPECT_THROW(process(codeIsNull, calls), std::bad_variant_access);
  EXPECT_THROW(process(codeIsNumber, calls), std::bad_variant_access);
  EXPECT_THROW(process(messageIsBool, calls), std::bad_variant_access);
  EXPECT_TRUE(calls.names.empty());
}

TEST(StandardMethodCodec, GoesOnWithWhatTheReadsGive_WhenAnEnvelopeEndsEarly) {
  ResultCalls calls;
  CapturedErrors errors;

  const bool isTaken = process({0}, calls);

  EXPECT_TRUE(isTaken);
  EXPECT_EQ(calls.names, Lines{"Success"});
  EXPECT_TRUE(calls.values.empty());
  EXPECT_EQ(errors.lines(), Lines{invalidRead});
}

TEST(MethodResult, ForwardsWhatItsCallerSays) {
  ResultCalls calls;
  RecordedResult result(calls);

  result.Success();
  result.Success(EncodableValue(1));
  result.Error("c1");
  result.Error("c2", "m2", EncodableValue(2));
  result.NotImplemented();

  EXPECT_EQ(calls.names, (Lines{"Success", "Success", "Error", "Error", "NotImplemented"}));
  EXPECT_EQ(calls.values, (EncodableList{1, 2}));
  EXPECT_EQ(calls.code, "c2");
  EXPECT_EQ(calls.message, "m2");
}

}  // namespace
}  // namespace orvane::embedding_tests
