#include "activation/candidate_evaluation.h"

#include <string>

#include "browser_channel/elapsed_trace.h"
#include "provider_identity/candidate_rules.h"
#include "provider_identity/text_rules.h"

namespace orvane {
namespace {

void appendClosingSteps(const DiscoveryRequest& request, const IdentityTerms& terms) {
  if (request.candidates.empty() && terms.key == provider_key::chatGpt) {
    appendTrace(request.trace, "ChatGPT inactive-tab probes", "DISABLED: provider isolation safeguard");
    appendTrace(request.trace, "ChatGPT fallback", "No explicit candidate or verified session tab was found");
  }
  if (!terms.rememberedAutomationId.empty()) {
    appendTrace(request.trace, "Remembered AutomationId", traceSafeText(terms.rememberedAutomationId));
  }
  if (terms.rememberedTitleIgnored) {
    appendTrace(request.trace, "Remembered title", "Ignored because it belongs to another provider");
  } else if (!terms.rememberedTitle.empty()) {
    appendTrace(request.trace, "Remembered title", traceSafeText(terms.rememberedTitle));
  }
}

}  // namespace

void evaluateInventory(const DiscoveryRequest& request, const DiscoveryPass& pass, const ElapsedTimer& timer) {
  const IdentityTerms terms = makeIdentityTerms({.name = pass.name,
                                                 .domain = pass.domain,
                                                 .patterns = pass.patterns,
                                                 .rememberedTitle = pass.rememberedTitle,
                                                 .rememberedAutomationId = request.rememberedAutomationId,
                                                 .rememberedBrowser = request.rememberedBrowser,
                                                 .rememberedWindow = request.rememberedWindowHandle,
                                                 .rememberedTabIndex = request.rememberedTabIndex});
  std::size_t ordinal = 0;
  for (TabCandidate& tab : request.inventory) {
    const TabFlags flags = evaluateTab(tab, terms);
    const TabDecision decision = decideTab(tab, flags, terms);
    appendTrace(request.trace, "Trace tab", describeTabDecision(++ordinal, tab, flags, decision));
    if (decision == TabDecision::accept) {
      request.candidates.push_back(tab);
    }
  }
  appendClosingSteps(request, terms);
  appendTiming(request.trace, "discovery pass " + std::to_string(pass.passNumber), timer.elapsedMs());
}

}  // namespace orvane
