#include <cstdint>
#include <string>
#include <vector>

#include "provider_identity/address_rules.h"
#include "provider_identity/candidate_rules.h"
#include "provider_identity/candidates.h"
#include "provider_identity/identity_model.h"
#include "provider_identity/title_rules.h"
#include "support/find.h"
#include "support/input_text.h"

// The rules about addresses, titles and tabs against their model. An input is lines of text, in the
// order of `Line`; what lacks is empty.
namespace orvane::fuzzing {
namespace {

namespace model = identity_model;

enum class Line : std::size_t {
  name,
  domain,
  patterns,  // between bars
  rememberedTitle,
  rememberedAutomationId,
  rememberedBrowser,
  title,
  address,
  automationId,
  browser,
  numbers,  // of the remembered window and tab, and of the tab's: one character each
  marks,    // s: selected, v: with proven content
};

class Input {
 public:
  explicit Input(const std::string& text) : lines_(splitText(text, '\n')) {}

  std::string bytes(Line line) const {
    const auto at = static_cast<std::size_t>(line);
    return at < lines_.size() ? lines_[at] : std::string();
  }
  std::wstring text(Line line) const { return wideFromLooseText(bytes(line)); }

  bool has(char mark) const { return bytes(Line::marks).find(mark) != std::string::npos; }

  // From 0 to 4.
  int number(std::size_t place) const {
    const std::string digits = bytes(Line::numbers);
    return place < digits.size() ? static_cast<unsigned char>(digits[place]) % 5 : 0;
  }

 private:
  std::vector<std::string> lines_;
};

HWND windowOf(int number) { return candidate_tests::windowOf(static_cast<std::uintptr_t>(number) * 0xA0); }

IdentityRequest makeRequest(const Input& input) {
  IdentityRequest request;
  request.name = input.text(Line::name);
  request.domain = input.text(Line::domain);
  for (const std::string& pattern : splitText(input.bytes(Line::patterns), '|')) {
    request.patterns.push_back(wideFromLooseText(pattern));
  }
  request.rememberedTitle = input.text(Line::rememberedTitle);
  request.rememberedAutomationId = input.text(Line::rememberedAutomationId);
  request.rememberedBrowser = input.text(Line::rememberedBrowser);
  request.rememberedWindow = windowOf(input.number(0));
  request.rememberedTabIndex = input.number(1) - 1;
  return request;
}

TabCandidate makeTab(const Input& input) {
  TabCandidate tab;
  tab.hwnd = windowOf(input.number(2));
  tab.tabIndex = input.number(3);
  tab.title = input.text(Line::title);
  tab.url = input.text(Line::address);
  tab.automationId = input.text(Line::automationId);
  tab.browser = input.text(Line::browser);
  tab.selected = input.has('s');
  tab.verifiedContent = input.has('v');
  return tab;
}

void checkTitles(const std::wstring& first, const std::wstring& second, const std::wstring& name) {
  require(cleanTitle(first) == model::clean(first), "a title is cleaned as by the model");
  require(providerFromTitle(first) == model::providerOfTitle(first), "a title names the model's provider");
  require(titlesMatch(first, second) == model::match(first, second), "titles match as in the model");
  require(titlesMatch(first, second) == titlesMatch(second, first), "titles match both ways");
  require(titleBelongsToOtherProvider(first, name) == model::belongsToOther(first, name),
          "a title belongs to another provider as in the model");
}

std::wstring expectedHost(const std::wstring& address) {
  std::wstring text = model::fold(address);
  const std::size_t scheme = text.find(L"://");
  if (scheme != std::wstring::npos) {
    text = text.substr(scheme + 3);
  }
  return text.substr(0, text.find_first_of(L"/:?#"));
}

void checkAddress(const std::wstring& address) {
  require(providerFromAddress(address) == model::providerOfAddress(address), "an address names the model's provider");
  require(isAddressText(address) == model::isAddress(address), "an address is one as in the model");
  require(isCompanyHomepageAddress(address) == model::isCompanyPage(address),
          "a company's page is one as in the model");
  require(isUsableClaudeAddress(address) == model::isUsableClaudePage(address),
          "Claude's pages are those of the model");
  require(hostOfAddress(address) == expectedHost(address), "the host is that of the model");
}

const char* nameOf(TabDecision decision) {
  switch (decision) {
    case TabDecision::rejectCompanyHomepage:
      return "REJECT_COMPANY_HOMEPAGE";
    case TabDecision::rejectNonChatClaudePage:
      return "REJECT_NON_CHAT_CLAUDE_PAGE";
    case TabDecision::rejectOtherProvider:
      return "REJECT_OTHER_PROVIDER";
    case TabDecision::noMatch:
      return "NO_MATCH";
    case TabDecision::accept:
      return "ACCEPT";
  }
  return "";
}

void checkAcceptance(TabCandidate tab, const IdentityRequest& request) {
  const model::Verdict expected = model::judge(tab, request);
  const IdentityTerms terms = makeIdentityTerms(request);
  const TabFlags flags = evaluateTab(tab, terms);
  const TabDecision decision = decideTab(tab, flags, terms);
  require(candidate_tests::namesOf(flags) == expected.flags, "the flags are those of the model");
  require(nameOf(decision) == expected.decision, "the decision is that of the model");
  const bool isAccepted = decision == TabDecision::accept;
  require(tab.providerMatch == isAccepted && tab.explicitMatch == expected.isExplicit &&
              tab.strictTitle == expected.isStrict && (!isAccepted || tab.score == expected.score),
          "the tab is marked as by the model");
  const std::string line = describeTabDecision(1, tab, flags, decision);
  require(line.find_first_of("\r\n") == std::string::npos, "a step of the trace is one line");
}

}  // namespace
}  // namespace orvane::fuzzing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace orvane::fuzzing;
  const Input input(textOf(data, size));
  const auto request = makeRequest(input);
  const orvane::TabCandidate tab = makeTab(input);
  checkTitles(tab.title, request.rememberedTitle, request.name);
  checkTitles(request.rememberedTitle, request.domain, tab.browser);
  checkAddress(tab.url);
  checkAddress(tab.title);
  checkAcceptance(tab, request);
  return 0;
}
