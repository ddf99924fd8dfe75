#include "snapshot/take_snapshot.h"

#include <filesystem>
#include <fstream>
#include <utility>

#include "embedding/utf_conversion.h"
#include "provider_identity/address_rules.h"
#include "snapshot/capture_desktop.h"
#include "snapshot/hide_texts.h"
#include "snapshot/scenario_text.h"
#include "version.h"

namespace orvane::snapshot {
namespace {

constexpr int nothingToWrite = 1;
constexpr int unusable = 2;

Outcome fail(int status, const std::string& what) { return {status, {}, "orvane-snapshot: " + what + "\n"}; }

std::string counted(std::size_t number, const std::string& thing) {
  return std::to_string(number) + " " + thing + (number == 1 ? "" : "s");
}

bool writeFile(const std::string& file, const std::string& text) {
  std::ofstream stream(std::filesystem::path(std::u8string(file.begin(), file.end())), std::ios::binary);
  stream << text;
  stream.close();
  return stream.good();
}

const ProviderCall* shownProvider(const CapturedDesktop& desktop) {
  for (const CapturedWindow& window : desktop.windows) {
    if (const ProviderCall* provider = providerOfAddress(window.address)) {
      return provider;
    }
  }
  return nullptr;
}

std::string describeWindow(const CapturedWindow& window) {
  std::string line = "  " + utf8FromWide(window.process) + ": " + counted(window.tabs.size(), "tab") + ", " +
                     counted(window.elements.size() + (window.addressBar ? 1 : 0), "control");
  const std::wstring host = hostOfAddress(window.address);
  line += host.empty() ? "" : ", " + utf8FromWide(host);
  line += window.isMinimized ? ", minimised" : "";
  line += window.isVisible ? "" : ", hidden";
  line += window.hasRoot ? "" : ", shows nothing to UI Automation";
  return line + "\n";
}

std::string describeHidden(const HiddenTexts& hidden) {
  std::string text = "Replaced by stand-ins: " + counted(hidden.titles, "title") + ", " +
                     counted(hidden.addresses, "address bar") + ", " + counted(hidden.values, "value") + ", " +
                     counted(hidden.names, "name") + "\n";
  if (hidden.windowsNotTold > 0) {
    text += "The stand-ins of " + counted(hidden.windowsNotTold, "window") +
            " don't tell the tabs apart as their titles do\n";
  }
  return text;
}

std::string describeLeftOut(const CapturedDesktop& desktop, const ScenarioText& scenario) {
  std::size_t otherTabs = 0;
  std::size_t minimised = 0;
  for (const CapturedWindow& window : desktop.windows) {
    otherTabs += window.tabs.empty() ? 0 : window.tabs.size() - 1;
    minimised += window.isMinimized ? 1 : 0;
  }
  std::string text = "Left out: what pages do when they are used; the keyboard focus; the clipboard; other windows";
  text += otherTabs == 0 ? "" : "; pages and addresses of " + counted(otherTabs, "tab") + " in the background";
  text += minimised == 0 ? "" : "; the size of " + counted(minimised, "minimised window");
  text +=
      scenario.droppedSelections == 0 ? "" : "; a further selection of " + counted(scenario.droppedSelections, "tab");
  return text + "\n";
}

std::string describeSteps(const ProviderCall* provider) {
  return provider == nullptr
             ? "Steps: none, for no window shows a provider's page; name one with --provider\n"
             : "Steps: find " + utf8FromWide(provider->name) + "'s tab, deliver a prompt of the scenario's own\n";
}

Outcome writeDesktop(const Request& request, CapturedDesktop desktop) {
  const ProviderCall* provider = request.provider != nullptr ? request.provider : shownProvider(desktop);
  const HiddenTexts hidden = request.isPlain ? HiddenTexts{} : hideTexts(desktop);
  const ScenarioText scenario = writeScenario(desktop, provider);
  const std::string file = utf8FromWide(request.output);
  if (!writeFile(file, scenario.json)) {
    return fail(unusable, file + ": can't be written");
  }
  Outcome outcome;
  outcome.told = "Wrote " + file + ": " + counted(desktop.windows.size(), "window") + "\n";
  for (const CapturedWindow& window : desktop.windows) {
    outcome.told += describeWindow(window);
  }
  outcome.told += describeSteps(provider);
  outcome.told +=
      request.isPlain ? "All texts are as they were: the file is as private as the pages\n" : describeHidden(hidden);
  outcome.told += describeLeftOut(desktop, scenario) + "Nothing was pressed, typed, selected or sent\n";
  return outcome;
}

}  // namespace

Outcome takeSnapshot(const Request& request) {
  if (!request.complaint.empty()) {
    return fail(unusable, request.complaint);
  }
  if (request.wantsHelp) {
    return {0, usage(), {}};
  }
  if (request.wantsVersion) {
    return {0, "orvane-snapshot " ORVANE_VERSION_TEXT "\n", {}};
  }
  ::Sleep(request.delayMs);
  CaptureResult result = captureDesktop(request.imageNames);
  if (!result.hasAutomation) {
    return fail(nothingToWrite, "UI Automation is unavailable");
  }
  if (result.desktop.windows.empty()) {
    std::string names;
    for (const std::wstring& name : request.imageNames) {
      names += (names.empty() ? "" : ", ") + utf8FromWide(name);
    }
    return fail(nothingToWrite, "no window of " + names + " is open");
  }
  return writeDesktop(request, std::move(result.desktop));
}

}  // namespace orvane::snapshot
