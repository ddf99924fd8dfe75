#include "scenario/json.h"

#include <gtest/gtest.h>

#include "scenario/key_names.h"

namespace orvane::simulation {
namespace {

TEST(JsonWriter, Double_AlwaysHasAPoint) {
  EXPECT_EQ(writeJson(Json::parse("[5.0,1e20,0.5,-1.5e-7,5]")), "[5.0,1.0e+20,0.5,-1.5e-07,5]");
}

TEST(JsonWriter, Keys_KeepTheirOrder) {
  const char* text = R"({"b":[],"a":{},"c":[{"x":"\"\n"},null,true]})";
  EXPECT_EQ(writeJson(Json::parse(text)), text);
}

TEST(Base64, Bytes_ComeBack_WhateverTheirNumber) {
  for (std::size_t size = 0; size < 70; ++size) {
    std::vector<std::uint8_t> bytes;
    for (std::size_t index = 0; index < size; ++index) bytes.push_back(static_cast<std::uint8_t>(index * 37 + size));
    EXPECT_EQ(bytesFromBase64(base64FromBytes(bytes)), bytes);
  }
  EXPECT_EQ(base64FromBytes({'M', 'a'}), "TWE=");
}

TEST(Base64, OtherTexts_AreRefused) {
  for (const char* text : {"A", "AB=", "A===", "A*==", "=AAA"}) EXPECT_FALSE(bytesFromBase64(text)) << text;
}

TEST(Hex, Bytes_ComeBack_AndOtherTextsAreRefused) {
  EXPECT_EQ(bytesFromHex("00fFa1"), (std::vector<std::uint8_t>{0, 255, 161}));
  EXPECT_EQ(hexFromBytes({0, 255, 161}), "00ffa1");
  EXPECT_FALSE(bytesFromHex("0"));
  EXPECT_FALSE(bytesFromHex("0x"));
}

Json event(int virtualKey, bool up) { return Json{{"vk", virtualKey}, {"up", up}}; }

TEST(KeyWords, Keys_AreNamedWithThoseHeld) {
  EXPECT_EQ(describeKeys(Json::array()), "");
  EXPECT_EQ(describeKeys(Json::array({event(0x11, false), event('V', false), event('V', true), event(0x11, true),
                                      event(0x0D, false), event(0x0D, true)})),
            "Ctrl+V  Enter");
}

}  // namespace
}  // namespace orvane::simulation
