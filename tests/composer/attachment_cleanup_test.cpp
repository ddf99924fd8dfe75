#include "composer/attachment_cleanup.h"

#include <gtest/gtest.h>

#include "support/browser_page.h"
#include "support/simulated_desktop.h"

namespace orvane {
namespace {

using simulation::composer;
using simulation::desktopJson;
using simulation::disabledSend;
using simulation::everyCallFails;
using simulation::nthCallFails;
using simulation::pageWith;
using simulation::SimulatedDesktop;

using Names = std::vector<std::string>;

std::string buttonNamed(const std::string& id, const std::string& name, const std::string& facts = "") {
  return R"(, {"id": ")" + id + R"(", "type": "button", "name": ")" + name + R"(")" + facts + "}";
}

// The names of what was pressed.
Names remove(const SimulatedDesktop& desktop) {
  Names names;
  const int removed = removeAttachments(desktop.window("browser"), &names);
  EXPECT_EQ(removed, static_cast<int>(names.size()));
  return names;
}

TEST(AttachmentCleanup, PressesTheRemoveButtonAlone_WhenThePageHasOthers) {
  SimulatedDesktop desktop(
      desktopJson({.page = pageWith(buttonNamed("remove", "Remove attachment report.pdf") + composer + disabledSend)}));
  desktop.perform("browser", R"([{"focus": "composer"}, {"set": {"element": "composer", "value": "draft"}}])");

  EXPECT_EQ(remove(desktop), Names{"Remove attachment report.pdf"});

  EXPECT_EQ(desktop.invocations("browser", "remove"), 1);
  EXPECT_EQ(desktop.platformCalls("IUIAutomationInvokePattern::Invoke"), 1);
  EXPECT_EQ(desktop.value("browser", "composer"), "draft");
  EXPECT_EQ(desktop.focus(), "browser/composer");
  EXPECT_TRUE(desktop.keys().empty());
  EXPECT_EQ(desktop.nowMs(), 80);
}

struct NameRow {
  const char* name;
  bool isPressed;
};

class RemovalName : public testing::TestWithParam<NameRow> {};

TEST_P(RemovalName, DecidesByItsWords_WhenTheButtonIsEnabledOnScreen) {
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(buttonNamed("button", GetParam().name))}));

  EXPECT_EQ(remove(desktop).size(), GetParam().isPressed ? 1U : 0U);

  EXPECT_EQ(desktop.invocations("browser", "button"), GetParam().isPressed ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(Each, RemovalName,
                         testing::Values(NameRow{"Remove attachment report.pdf", true}, NameRow{"DELETE FILE", true},
                                         NameRow{"Clear file", true}, NameRow{"Clear all uploads", true},
                                         NameRow{"Delete upload", true}, NameRow{"File report.pdf: remove", true},
                                         NameRow{"Undelete file", true}, NameRow{"Autoremove: uploads", true},
                                         NameRow{"Clear profile of a page", false}, NameRow{"Remove reupload", false},
                                         NameRow{"Remove", false}, NameRow{"Upload file", false},
                                         NameRow{"Attachment", false}, NameRow{"Delete chat", false},
                                         NameRow{"", false}));

TEST(AttachmentCleanup, PressesTheTenLatest_WhenTwelveMatch) {
  std::string buttons;
  Names expected;
  for (int number = 1; number <= 12; ++number) {
    const std::string name = "Remove file " + std::to_string(number);
    buttons += buttonNamed("remove" + std::to_string(number), name);
    if (number > 2) {
      expected.insert(expected.begin(), name);
    }
  }
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(buttons)}));

  EXPECT_EQ(remove(desktop), expected);

  EXPECT_EQ(desktop.invocations("browser", "remove1"), 0);
  EXPECT_EQ(desktop.invocations("browser", "remove2"), 0);
  EXPECT_EQ(desktop.invocations("browser", "remove3"), 1);
  EXPECT_EQ(desktop.nowMs(), 800);
}

TEST(AttachmentCleanup, LeavesAButtonAlone_WhenItIsNotReady) {
  for (const char* facts : {R"(, "enabled": false)", R"(, "offscreen": true)", R"(, "unreadable": ["enabled"])",
                            R"(, "unreadable": ["offscreen"])", R"(, "unreadable": ["name"])", R"(, "invoke": null)"}) {
    const SimulatedDesktop desktop(desktopJson({.page = pageWith(buttonNamed("remove", "Remove file", facts))}));

    EXPECT_TRUE(remove(desktop).empty()) << facts;

    EXPECT_EQ(desktop.platformCalls("IUIAutomationInvokePattern::Invoke"), 0);
    EXPECT_EQ(desktop.nowMs(), 0);
  }
}

TEST(AttachmentCleanup, TriesNoButtonTwice_WhenOneRefuses) {
  const SimulatedDesktop desktop(
      desktopJson({.page = pageWith(buttonNamed("first", "Remove file 1") +
                                    buttonNamed("second", "Remove file 2", R"(, "invoke": "0x80004005")"))}));

  EXPECT_EQ(remove(desktop), Names{"Remove file 1"});

  EXPECT_EQ(desktop.platformCalls("IUIAutomationInvokePattern::Invoke"), 2);
  EXPECT_EQ(desktop.nowMs(), 80);
}

TEST(AttachmentCleanup, SkipsWhatHasGone_WhenThePageRemovesItMeanwhile) {
  const SimulatedDesktop desktop(
      desktopJson({.page = pageWith(buttonNamed("first", "Remove file 1") + buttonNamed("second", "Remove file 2")),
                   .rules = R"([{"on": {"invoke": "second"}, "do": [{"remove": "second"}, {"remove": "first"}]}])"}));

  EXPECT_EQ(remove(desktop), Names{"Remove file 2"});

  EXPECT_EQ(desktop.platformCalls("IUIAutomationInvokePattern::Invoke"), 1);
}

TEST(AttachmentCleanup, TakesTheArrayOnce_WhenThePageAddsAnother) {
  const SimulatedDesktop desktop(
      desktopJson({.page = pageWith(buttonNamed("first", "Remove file 1")), .rules = R"([{"on": {"invoke": "first"},
                     "do": [{"add": {"id": "late", "type": "button", "name": "Remove file 2"}}]}])"}));

  EXPECT_EQ(remove(desktop), Names{"Remove file 1"});

  EXPECT_EQ(desktop.invocations("browser", "late"), 0);
}

TEST(AttachmentCleanup, CountsTheButton_WhenThePageKeepsItsFile) {
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(buttonNamed("remove", "Remove file")),
                                              .faults = everyCallFails("IUIAutomationInvokePattern::Invoke", "null")}));

  EXPECT_EQ(remove(desktop), Names{"Remove file"});
}

TEST(AttachmentCleanup, HasTheSameCount_WhenNoListIsWanted) {
  const SimulatedDesktop desktop(
      desktopJson({.page = pageWith(buttonNamed("first", "Remove file 1") + buttonNamed("second", "Remove file 2"))}));

  EXPECT_EQ(removeAttachments(desktop.window("browser"), nullptr), 2);
}

TEST(AttachmentCleanup, AppendsToTheList_WhenItHoldsNamesAlready) {
  const SimulatedDesktop desktop(desktopJson({.page = pageWith(buttonNamed("remove", "Datei löschen, remove file"))}));
  Names names{"before"};

  EXPECT_EQ(removeAttachments(desktop.window("browser"), &names), 1);

  EXPECT_EQ(names, (Names{"before", "Datei löschen, remove file"}));
}

TEST(AttachmentCleanup, GoesOn_WhenGetElementSkipsAnIndex) {
  for (const char* result : {R"("0x80004005")", "null"}) {
    const SimulatedDesktop desktop(
        desktopJson({.page = pageWith(buttonNamed("first", "Remove file 1") + buttonNamed("second", "Remove file 2")),
                     .faults = nthCallFails("IUIAutomationElementArray::GetElement", 1, result)}));

    EXPECT_EQ(remove(desktop), Names{"Remove file 1"});
  }
}

TEST(AttachmentCleanup, PressesNothing_WhenThereIsNoWindow) {
  SimulatedDesktop desktop(desktopJson({.otherWindows = R"(, {"id": "closed", "process": "chrome.exe"})"}));
  desktop.perform("browser", R"([{"closeWindow": "closed"}])");

  EXPECT_EQ(removeAttachments(nullptr, nullptr), 0);
  EXPECT_EQ(removeAttachments(desktop.window("closed"), nullptr), 0);

  EXPECT_EQ(desktop.platformCalls("CoCreateInstance"), 0);
}

class CleanupFault : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Each, CleanupFault,
                         testing::Values("CoCreateInstance", "IUIAutomation::ElementFromHandle",
                                         "IUIAutomation::CreatePropertyCondition", "IUIAutomationElement::FindAll",
                                         "IUIAutomationElementArray::get_Length",
                                         "IUIAutomationElement::GetCurrentPatternAs"));

TEST_P(CleanupFault, PressesNothing_WhenTheCallFailsOrGivesNull) {
  for (const char* result : {R"("0x80004005")", "null"}) {
    const SimulatedDesktop desktop(desktopJson(
        {.page = pageWith(buttonNamed("remove", "Remove file")), .faults = everyCallFails(GetParam(), result)}));

    EXPECT_TRUE(remove(desktop).empty()) << result;

    EXPECT_EQ(desktop.invocations("browser", "remove"), 0);
    EXPECT_EQ(desktop.nowMs(), 0);
  }
}

}  // namespace
}  // namespace orvane
