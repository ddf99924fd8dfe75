#include "scenario/build_desktop.h"

namespace orvane::simulation {

void buildDesktop(Desktop& desktop, const DesktopPlan& plan) {
  desktop.monitors = plan.monitors;
  desktop.lightTheme = plan.lightTheme;
  desktop.clipboard.content = plan.clipboard;
  desktop.spelling = plan.spelling;
  desktop.books().setFaults(plan.faults);
  for (const WindowPlan& window : plan.windows) desktop.addWindow(window);
}

}  // namespace orvane::simulation
