#include "embedding/reply_map.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace orvane {
namespace {

TEST(SuccessReply, HoldsSuccessAlone) {
  EXPECT_EQ(successReply(true), (EncodableMap{{EncodableValue("success"), EncodableValue(true)}}));
  EXPECT_EQ(successReply(false), (EncodableMap{{EncodableValue("success"), EncodableValue(false)}}));
}

TEST(AddToReply, PutsTheValueUnderItsKey_InItsOwnKind) {
  EncodableMap reply = successReply(true);
  addToReply(reply, "count", std::int64_t{7});
  addToReply(reply, "narrow", std::int32_t{7});
  addToReply(reply, "text", std::string("seven"));
  addToReply(reply, "isSeven", false);
  addToReply(reply, "exact", 7.0);
  addToReply(reply, "bytes", std::vector<std::uint8_t>{7});
  addToReply(reply, "list", EncodableList{EncodableValue(7)});

  EXPECT_EQ(reply, (EncodableMap{{EncodableValue("success"), EncodableValue(true)},
                                 {EncodableValue("count"), EncodableValue(std::int64_t{7})},
                                 {EncodableValue("narrow"), EncodableValue(std::int32_t{7})},
                                 {EncodableValue("text"), EncodableValue("seven")},
                                 {EncodableValue("isSeven"), EncodableValue(false)},
                                 {EncodableValue("exact"), EncodableValue(7.0)},
                                 {EncodableValue("bytes"), EncodableValue(std::vector<std::uint8_t>{7})},
                                 {EncodableValue("list"), EncodableValue(EncodableList{EncodableValue(7)})}}));
  EXPECT_EQ(reply[EncodableValue("count")].kind(), EncodableKind::int64);
  EXPECT_EQ(reply[EncodableValue("narrow")].kind(), EncodableKind::int32);
}

TEST(AddToReply, KeepsTheFirstValue_WhenTheKeyIsThere) {
  EncodableMap reply = successReply(true);
  addToReply(reply, "success", false);
  EXPECT_EQ(reply, successReply(true));
}

}  // namespace
}  // namespace orvane
