#include "activation/xray.h"

#include <string>

#include "provider_identity/text_rules.h"

namespace orvane {
namespace {

constexpr const char* windowStep = "X-Ray window";
constexpr const char* rootStep = "X-Ray root";
constexpr const char* tabsStep = "X-Ray tabs";
constexpr const char* tabStep = "X-Ray tab";

std::string quoted(const std::wstring& text) { return "\"" + traceSafeText(text) + "\""; }

}  // namespace

void XrayDump::writeWindow() const {
  if (trace_ == nullptr) {
    return;
  }
  const bool isVisible = ::IsWindowVisible(browser_.window) != FALSE;
  const bool isMinimized = ::IsIconic(browser_.window) != FALSE;
  const bool isForeground = ::GetForegroundWindow() == browser_.window;
  appendTrace(*trace_, windowStep,
              head() + "; pid=" + std::to_string(browser_.pid) + "; process=" + traceSafeText(browser_.imageName) +
                  "; browser=" + traceSafeText(browser_.displayName) + "; visible=" + yesNo(isVisible) +
                  "; minimized=" + yesNo(isMinimized) + "; foreground=" + yesNo(isForeground) +
                  "; windowTitle=" + quoted(browser_.title));
}

void XrayDump::writeRootFailure(HRESULT result) const {
  if (trace_ != nullptr) {
    appendTrace(*trace_, rootStep, handleText() + "; FAILED hr=" + formatHresult(result));
  }
}

void XrayDump::writeConditionFailure(HRESULT result) const {
  if (trace_ != nullptr) {
    appendTrace(*trace_, tabsStep, ordinalText() + "; FAILED creating TabItem condition hr=" + formatHresult(result));
  }
}

void XrayDump::writeSearchFailure(HRESULT result) const {
  if (trace_ != nullptr) {
    appendTrace(*trace_, tabsStep,
                ordinalText() + "; " + handleText() + "; tabControls=" + std::to_string(browser_.tabControls) +
                    "; FAILED FindAll(TabItem) hr=" + formatHresult(result));
  }
}

void XrayDump::writeTabs() const {
  if (trace_ != nullptr) {
    appendTrace(*trace_, tabsStep,
                head() + "; tabControls=" + std::to_string(browser_.tabControls) +
                    "; tabItems=" + std::to_string(browser_.tabItems) + "; address=" + quoted(browser_.address));
  }
}

void XrayDump::writeTabFailure(int index, HRESULT result) const {
  if (trace_ != nullptr) {
    appendTrace(*trace_, tabStep,
                ordinalText() + "; index=" + std::to_string(index) + "; FAILED GetElement hr=" + formatHresult(result));
  }
}

void XrayDump::writeTab(const UiaElement& item, const TabItemFacts& facts) const {
  if (trace_ == nullptr) {
    return;
  }
  const bool isOffscreen = item.isOffscreenForTrace();
  const std::string bounds = elementBoundsText(item);
  appendTrace(*trace_, tabStep,
              head() + "; index=" + std::to_string(facts.index) + "; selected=" + yesNo(facts.isSelected()) +
                  "; uiaSelected=" + yesNo(facts.isUiaSelected) +
                  "; windowTitleSelected=" + yesNo(facts.isWindowTitleSelected) + "; offscreen=" + yesNo(isOffscreen) +
                  "; title=" + quoted(facts.name) + "; automationId=" + quoted(facts.automationId) + "; class=" +
                  quoted(facts.className) + "; framework=" + quoted(facts.frameworkId) + "; bounds=" + bounds);
}

std::string XrayDump::head() const {
  return "pass=" + std::to_string(pass_) + "; " + ordinalText() + "; " + handleText();
}

std::string XrayDump::ordinalText() const { return "browser#=" + std::to_string(browserOrdinal_); }

std::string XrayDump::handleText() const {
  return "hwnd=" + formatHandle(reinterpret_cast<std::uintptr_t>(browser_.window));
}

}  // namespace orvane
