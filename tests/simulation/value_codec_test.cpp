#include "scenario/value_codec.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace orvane::simulation {
namespace {

const ValueSources sources{[](const std::string& id) { return id == "w" ? 0x10104u : 0x1'0000'0000u; },
                           [](const std::string& reference) {
                             return reference == "a.handle" ? Json::parse(R"({"$int64":7})") : Json(nullptr);
                           }};

struct Form {
  const char* json;
  const char* hex;
};

void PrintTo(const Form& row, std::ostream* out) { *out << row.json; }

// The bytes are worked out by hand from the published format.
constexpr Form sameBothWays[] = {
    {"null", "00"},
    {"true", "01"},
    {"false", "02"},
    {"-2", "03feffffff"},
    {"4294967296", "040000000001000000"},
    {R"({"$int64":5})", "040500000000000000"},
    {"1.0", "0600000000000000000000000000f03f"},
    {R"({"$double":"NaN"})", "0600000000000000000000000000f87f"},
    {R"("hé")", "070368c3a9"},
    {R"({"$bytes":"AQI="})", "08020102"},
    {R"({"$bytes":""})", "0800"},
    {R"({"$int32List":[1,-1]})", "0902000001000000ffffffff"},
    {R"({"$int32List":[]})", "0900"},
    {R"({"$int64List":[1]})", "0a010000000000000100000000000000"},
    {R"({"$doubleList":[1.0]})", "0b01000000000000000000000000f03f"},
    {R"({"$floatList":[1.0]})", "0e0100000000803f"},
    {R"([1,"a"])",
     "0c0203010000000701"
     "61"},
    {R"({"b":null,"a":[]})",
     "0d0207016200070161"
     "0c00"},
    {R"({"$map":[[1,true]]})", "0d01030100000001"},
    {R"({"$map":[["$x",true]]})", "0d010702247801"},
};

class ValueForms : public ::testing::TestWithParam<Form> {};

TEST_P(ValueForms, Value_IsWrittenAsPublished) {
  EXPECT_EQ(hexFromBytes(encodeValue(Json::parse(GetParam().json), sources)), GetParam().hex);
}

TEST_P(ValueForms, Value_IsReadBackInItsForm) {
  // Alignment counts from the start of the bytes: here as an argument behind an empty name.
  const auto message = encodeMethodCall("", Json::parse(GetParam().json), sources);
  const auto call = decodeMethodCall(message);
  ASSERT_TRUE(call);
  EXPECT_EQ(writeJson(call->arguments), writeJson(Json::parse(GetParam().json)));
}

INSTANTIATE_TEST_SUITE_P(Rows, ValueForms, ::testing::ValuesIn(sameBothWays));

constexpr Form onlyWritten[] = {
    {R"({"$int32":5})", "0305000000"},
    {R"({"$double":2})", "06000000000000000000000000000040"},
    {R"({"$window":"w"})", "0304010100"},
    {R"({"$window":"high"})", "040000000001000000"},
    {R"({"$windowText":"w"})", "07053635373936"},
    {R"({"$from":"a.handle"})", "040700000000000000"},
    {R"({"$fromText":"a.handle"})", "070137"},
    {R"({"$from":"a.absent"})", "00"},
    {R"({"$fromText":"a.absent"})", "0700"},
};

class WrittenForms : public ::testing::TestWithParam<Form> {};

TEST_P(WrittenForms, Form_StandsForItsValue) {
  EXPECT_EQ(hexFromBytes(encodeValue(Json::parse(GetParam().json), sources)), GetParam().hex);
}

INSTANTIATE_TEST_SUITE_P(Rows, WrittenForms, ::testing::ValuesIn(onlyWritten));

TEST(ValueEncoder, SizePrefix_GrowsAtTheBounds) {
  const auto prefixOf = [](std::size_t length) {
    const auto bytes = encodeValue(Json(std::string(length, 'x')), sources);
    return hexFromBytes({bytes.begin(), bytes.end() - static_cast<std::ptrdiff_t>(length)});
  };
  EXPECT_EQ(prefixOf(253), "07fd");
  EXPECT_EQ(prefixOf(254), "07fefe00");
  EXPECT_EQ(prefixOf(65535), "07feffff");
  EXPECT_EQ(prefixOf(65536), "07ff00000100");
}

struct Reply {
  const char* name;
  std::optional<std::vector<std::uint8_t>> bytes;
  const char* kind;
  const char* value;
  const char* error;
};

void PrintTo(const Reply& row, std::ostream* out) { *out << row.name; }

class ReplyDecoding : public ::testing::TestWithParam<Reply> {};

TEST_P(ReplyDecoding, Reply_IsToldByItsEnvelope) {
  const DecodedReply reply = decodeReply(GetParam().bytes);
  EXPECT_EQ(reply.kind, GetParam().kind);
  EXPECT_EQ(writeJson(reply.value), GetParam().value);
  EXPECT_EQ(writeJson(reply.error), GetParam().error);
}

const Reply replies[] = {
    {"None", std::nullopt, "none", "null", "null"},
    {"NotImplemented", bytesFromHex(""), "notImplemented", "null", "null"},
    {"SuccessWithNull", bytesFromHex("0000"), "success", "null", "null"},
    {"Success", bytesFromHex("000305000000"), "success", "5", "null"},
    {"Error", bytesFromHex("010701650000"), "error", "null", R"({"code":"e","message":null,"details":null})"},
    {"UnknownEnvelope", bytesFromHex("02"), "malformed", "null", "null"},
    {"UnknownTag", bytesFromHex("000f"), "malformed", "null", "null"},
    {"TooShort", bytesFromHex("0003"), "malformed", "null", "null"},
    {"TooLong", bytesFromHex("000000"), "malformed", "null", "null"},
    {"BrokenText", bytesFromHex("000701ff"), "success", "\"\xEF\xBF\xBD\"", "null"},
};

INSTANTIATE_TEST_SUITE_P(Rows, ReplyDecoding, ::testing::ValuesIn(replies), [](const auto& row) { return row.param.name; });

TEST(ValueDecoder, Message_IsNoCall_WhenItsNameIsNoText) {
  EXPECT_FALSE(decodeMethodCall(*bytesFromHex("0000")));
  EXPECT_FALSE(decodeMethodCall({}));
}

TEST(ValueDecoder, ForeignBytes_NeverStopTheProgram) {
  std::mt19937 random(20'240'501);
  int readable = 0;
  for (int turn = 0; turn < 20'000; ++turn) {
    std::vector<std::uint8_t> bytes(random() % 24);
    for (auto& byte : bytes) byte = static_cast<std::uint8_t>(random() % 16);
    if (!bytes.empty()) bytes.front() = 0;
    readable += decodeReply(bytes).kind == "success" ? 1 : 0;
  }
  EXPECT_GT(readable, 100);
  const std::vector<std::uint8_t> endless(100'000, 12);
  EXPECT_EQ(decodeReply(endless).kind, "malformed");
}

}  // namespace
}  // namespace orvane::simulation
