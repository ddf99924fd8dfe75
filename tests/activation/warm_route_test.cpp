// What the fast route takes for the tab that the person was on. All else of it is told by scenarios.
#include "activation/warm_route.h"

#include <gtest/gtest.h>

#include "activation/browser_tabs.h"
#include "support/simulated_desktop.h"
#include "support/trace_steps.h"

namespace orvane {
namespace {

using simulation::SimulatedDesktop;

using Results = std::vector<std::string>;

// The browser comes to this tab while its tab item is read for the first time, so that it and the one
// before both say that they are selected.
void selectWhileItIsRead(SimulatedDesktop& desktop, const std::string& title) {
  desktop.world().books().watch([&desktop, title, isRead = false](std::string_view call, const auto*,
                                                                  const auto* element) mutable {
    if (!isRead && call == "IUIAutomationElement::get_CurrentName" && element == &desktop.element("browser", title)) {
      isRead = true;
      desktop.perform("browser", R"([{"selectTab": ")" + title + R"("}])");
    }
  });
}

TEST(WarmRoute, GoesBackToTheLastTabThatSaysItIsSelected_WhenSeveralDo) {
  SimulatedDesktop desktop(browserTabs("[" + selectedTab("Mail") + "," + tab("Report") + "," + tab("Notes") + "]"));
  RememberedTarget remembered;
  remembered.title = L"Notes";
  remembered.browser = L"Chrome";
  remembered.windowHandle = desktop.window("browser");
  remembered.tabIndex = 2;
  const UiaSession session;
  TraceLog trace;
  ActivatedTarget target;
  selectWhileItIsRead(desktop, "Report");

  EXPECT_FALSE(activateWarmTarget(session, L"Gemini", remembered, trace, target));
  desktop.world().books().watch({});

  const Results requested = resultsOf(trace, "Activation target");
  ASSERT_EQ(requested.size(), 2U) << "the remembered tab, and the way back";
  EXPECT_TRUE(requested[1].starts_with("requestedIndex=1; requestedTitle=\"Report\"")) << requested[1];
  EXPECT_EQ(resultsOf(trace, "Warm restoration"), Results{"PASS: original tab restored"});
  EXPECT_EQ(desktop.selectedTab("browser"), "Report");
}

}  // namespace
}  // namespace orvane
