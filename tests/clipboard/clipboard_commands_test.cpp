// The replies of the window channel's clipboard methods.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "desktop/window_command_handler.h"
#include "embedding/recorded_result.h"
#include "support/simulated_desktop.h"

namespace orvane {
namespace {

using embedding_tests::RecordedResult;
using embedding_tests::ResultCalls;
using simulation::SimulatedDesktop;

const EncodableMap plainFailure{{EncodableValue("success"), EncodableValue(false)}};
const EncodableMap plainSuccess{{EncodableValue("success"), EncodableValue(true)}};

class ClipboardCommands : public testing::Test {
 protected:
  // What the method answers to a map of arguments.
  EncodableMap call(const std::string& method, const EncodableMap& arguments = {}) {
    ResultCalls calls;
    WindowCommandHandler({[this] { return owner; }, [](bool) {}})
        .HandleMethodCall(MethodCall(method, std::make_unique<EncodableValue>(arguments)),
                          std::make_unique<RecordedResult>(calls));
    EXPECT_EQ(calls.names, std::vector<std::string>{"Success"});
    return calls.values.empty() ? EncodableMap() : std::get<EncodableMap>(calls.values.front());
  }

  simulation::ClipboardContent& content() { return desktop.world().clipboard.content; }

  SimulatedDesktop desktop{R"({"windows": [{"id": "editor", "process": "Code.exe"}]})"};
  HWND owner =
      reinterpret_cast<HWND>(static_cast<std::uintptr_t>(desktop.world().addHostWindow("main", nullptr).handle));
};

TEST_F(ClipboardCommands, ReadDraft_AnswersBothTexts) {
  content().html = "<!--StartFragment--><b>é</b><!--EndFragment-->";
  content().setText(u"é");

  EncodableMap reply = plainSuccess;
  reply.emplace(EncodableValue("html"), EncodableValue("<b>é</b>"));
  reply.emplace(EncodableValue("text"), EncodableValue("é"));
  EXPECT_EQ(call("readOrvaneDraftClipboard"), reply);
}

TEST_F(ClipboardCommands, ReadDraft_AnswersEmptyTexts_WhenNothingIsThere) {
  EncodableMap reply = plainSuccess;
  reply.emplace(EncodableValue("html"), EncodableValue(""));
  reply.emplace(EncodableValue("text"), EncodableValue(""));
  EXPECT_EQ(call("readOrvaneDraftClipboard"), reply);
}

TEST_F(ClipboardCommands, ReadDraft_AnswersFailureAndNothingMore_WhenTheClipboardIsHeld) {
  content().lockedBy = "editor";
  EXPECT_EQ(call("readOrvaneDraftClipboard"), plainFailure);
}

TEST_F(ClipboardCommands, WriteDraft_PutsEachTextInItsForm) {
  EXPECT_EQ(call("writeOrvaneDraftClipboard", {{EncodableValue("text"), EncodableValue("plain")},
                                               {EncodableValue("html"), EncodableValue("<i>rich</i>")}}),
            plainSuccess);

  EXPECT_EQ(content().text, u"plain");
  ASSERT_TRUE(content().html);
  EXPECT_NE(content().html->find("<!--StartFragment--><i>rich</i><!--EndFragment-->"), std::string::npos);
}

TEST_F(ClipboardCommands, WriteDraft_TakesWhatIsAbsentOrNoTextAsEmpty) {
  for (const EncodableMap& arguments :
       {EncodableMap(), EncodableMap{{EncodableValue("text"), EncodableValue(7)},
                                     {EncodableValue("html"), EncodableValue(EncodableList())}}}) {
    content().setText(u"old");
    EXPECT_EQ(call("writeOrvaneDraftClipboard", arguments), plainSuccess);
    EXPECT_EQ(content().text, u"");
  }
}

TEST_F(ClipboardCommands, WriteDraft_AnswersFailure_WhenALimitIsPassed) {
  EXPECT_EQ(call("writeOrvaneDraftClipboard", {{EncodableValue("html"), EncodableValue(std::string(8'388'609, 'x'))}}),
            plainFailure);
  EXPECT_EQ(desktop.platformCalls("OpenClipboard"), 0);
}

TEST_F(ClipboardCommands, Sequence_IsThePlatformsNumber_WithoutOpening) {
  for (const std::uint32_t number : {0U, 7U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
    desktop.world().clipboard.sequence = number;
    EncodableMap reply = plainSuccess;
    reply.emplace(EncodableValue("sequence"), EncodableValue(std::int64_t{number}));
    EXPECT_EQ(call("clipboardSequenceNumber"), reply);
  }
  EXPECT_EQ(desktop.platformCalls("OpenClipboard"), 0);
  EXPECT_EQ(desktop.platformCalls("GetClipboardSequenceNumber"), 5);
}

TEST_F(ClipboardCommands, Sequence_IsAnsweredWhileAnotherHoldsTheClipboard) {
  content().lockedBy = "editor";
  EncodableMap reply = plainSuccess;
  reply.emplace(EncodableValue("sequence"), EncodableValue(std::int64_t{1}));
  EXPECT_EQ(call("clipboardSequenceNumber"), reply);
}

TEST_F(ClipboardCommands, ReadImage_AnswersBytes) {
  content().png = std::vector<std::uint8_t>{1, 0, 255};
  EncodableMap reply = plainSuccess;
  reply.emplace(EncodableValue("bytes"), EncodableValue(std::vector<std::uint8_t>{1, 0, 255}));
  EXPECT_EQ(call("readClipboardImage"), reply);
}

TEST_F(ClipboardCommands, ReadImage_AnswersFailureAndNothingMore_WhenThereIsNone) {
  content().setText(u"text");
  EXPECT_EQ(call("readClipboardImage"), plainFailure);
  content().lockedBy = "editor";
  EXPECT_EQ(call("readClipboardImage"), plainFailure);
}

}  // namespace
}  // namespace orvane
