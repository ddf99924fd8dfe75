#include "provider_identity/identity_model.h"

namespace orvane::identity_model {
namespace {

bool startsWith(const std::wstring& text, const std::wstring& start) {
  return text.size() >= start.size() && text.compare(0, start.size(), start) == 0;
}

bool isNoChat(const std::wstring& title) {
  const std::set<std::wstring> pages{L"",           L"new tab",   L"settings", L"downloads",     L"history",
                                     L"extensions", L"bookmarks", L"chrome",   L"microsoft edge"};
  return pages.count(clean(title)) == 1;
}

bool isCompanyTitle(const std::wstring& title) {
  const std::wstring text = clean(title);
  return text == L"openai" || startsWith(text, L"openai |") || startsWith(text, L"openai:") ||
         startsWith(text, L"about openai");
}

bool isAnchored(const std::wstring& title, const std::wstring& key) {
  const std::wstring named = providerOfTitle(title);
  return clean(title) == key || (key == L"gemini" && clean(title) == L"google gemini") ||
         (named != L"" && named == key);
}

bool isInRememberedBrowser(const TabCandidate& tab, const IdentityRequest& request) {
  return request.rememberedBrowser != L"" && fold(request.rememberedBrowser) == fold(tab.browser);
}

bool isMentioned(const std::wstring& title, const IdentityRequest& request) {
  bool found = request.name != L"" && holds(fold(title), fold(request.name));
  for (const std::wstring& pattern : request.patterns) {
    found = found || (pattern != L"" && holds(fold(title), fold(pattern)));
  }
  return found;
}

void noteFlags(const TabCandidate& tab, const IdentityRequest& request, std::set<std::string>& flags) {
  const std::wstring key = fold(request.name);
  const std::wstring remembered = belongsToOther(request.rememberedTitle, request.name) ? L"" : request.rememberedTitle;
  const auto note = [&flags](const char* flag, bool isTrue) {
    if (isTrue) flags.insert(flag);
  };
  const bool isKnown = clean(remembered) != L"";
  const bool domain =
      tab.selected && tab.url != L"" && request.domain != L"" && holds(fold(tab.url), fold(request.domain));
  note("domain", domain);
  note("remembered", isKnown && match(tab.title, remembered));
  note("exactRememberedTitle", isKnown && clean(tab.title) == clean(remembered));
  note("rememberedAutomationId", flags.count("remembered") == 1 && request.rememberedAutomationId != L"" &&
                                     isInRememberedBrowser(tab, request) &&
                                     tab.automationId == request.rememberedAutomationId);
  note("rememberedPosition", key == L"chatgpt" && request.rememberedWindow != nullptr &&
                                 request.rememberedTabIndex >= 0 && tab.hwnd == request.rememberedWindow &&
                                 tab.tabIndex == request.rememberedTabIndex && isInRememberedBrowser(tab, request));
  note("anchoredTitle", isAnchored(tab.title, key));
  note("verifiedContent", key == L"chatgpt" && tab.selected && tab.verifiedContent);
  note("rawTitle", isMentioned(tab.title, request));
  note("companyHomepage", tab.selected && isCompanyPage(tab.url));
  note("otherProviderAddress", tab.selected && providerOfAddress(tab.url) != L"" && !domain);
  note("nonChatClaudePage", key == L"claude" && tab.selected && tab.url != L"" && !isUsableClaudePage(tab.url));
  const std::wstring named = providerOfTitle(tab.title);
  note("otherProviderTitle", (named != L"" && named != key) || belongsToOther(tab.title, request.name));
}

bool acceptChatGpt(const TabCandidate& tab, const IdentityRequest& request, Verdict& verdict) {
  const auto is = [&verdict](const char* flag) { return verdict.flags.count(flag) == 1; };
  const bool isCompany = isCompanyTitle(tab.title);
  const bool exact = !tab.selected && is("exactRememberedTitle") && isInRememberedBrowser(tab, request) &&
                     !isNoChat(tab.title) && !isCompany;
  const bool anchored = !tab.selected && is("anchoredTitle") && !isCompany;
  const bool position = !tab.selected && is("rememberedPosition") && !isNoChat(tab.title) && !isCompany;
  verdict.isExplicit = is("domain") || is("verifiedContent");
  verdict.isStrict = exact || anchored;
  return verdict.isExplicit || exact || anchored || position;
}

int scoreOf(const TabCandidate& tab, const std::wstring& key, const Verdict& verdict) {
  const auto is = [&verdict](const char* flag) { return verdict.flags.count(flag) == 1; };
  int score = 0;
  if (is("domain")) score += 300;
  if (is("anchoredTitle")) score += 200;
  if (is("remembered")) score += 260;
  if (is("verifiedContent")) score += 280;
  if (key == L"chatgpt" && verdict.isStrict) score += 250;
  if (is("rememberedPosition")) score += 320;
  if (is("rememberedAutomationId")) score += 40;
  if (is("rawTitle") && !is("anchoredTitle")) score += 60;
  if (tab.selected) score += 20;
  return score;
}

}  // namespace

std::wstring fold(std::wstring text) {
  for (wchar_t& unit : text) {
    if (unit >= L'A' && unit <= L'Z') unit = static_cast<wchar_t>(unit + (L'a' - L'A'));
  }
  return text;
}

bool holds(const std::wstring& text, const std::wstring& part) {
  for (std::size_t at = 0; at + part.size() <= text.size(); ++at) {
    if (text.compare(at, part.size(), part) == 0) return true;
  }
  return false;
}

std::wstring clean(const std::wstring& title) {
  std::wstring text = fold(title);
  for (const wchar_t* words :
       {L"high memory usage", L"memory usage", L"inactive tab", L"sleeping tab", L"memory saver", L"tab sleeping"}) {
    const std::wstring marker = std::wstring(L" - ") + words + L" - ";
    for (std::size_t at = 0; at + marker.size() <= text.size(); ++at) {
      if (text.compare(at, marker.size(), marker) == 0) text = text.substr(0, at);
    }
  }
  const std::wstring whiteSpace =
      L" \t\n\v\f\r\u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009\u200A"
      L"\u2028\u2029\u202F\u205F\u3000";
  while (text != L"" && whiteSpace.find(text[text.size() - 1]) != std::wstring::npos) text.pop_back();
  return text;
}

bool match(const std::wstring& first, const std::wstring& second) {
  const std::wstring a = clean(first);
  const std::wstring b = clean(second);
  if (a == L"" || b == L"") return false;
  if (a == b) return true;
  if (a.size() < 8 || b.size() < 8) return false;
  return a.size() > b.size() ? holds(a, b) : holds(b, a);
}

std::wstring providerOfTitle(const std::wstring& title) {
  const std::wstring text = fold(title);
  if (holds(text, L" - google gemini")) return L"gemini";
  if (holds(text, L"google gemini")) return L"gemini";
  if (holds(text, L" - claude")) return L"claude";
  if (holds(text, L" - chatgpt")) return L"chatgpt";
  return L"";
}

bool belongsToOther(const std::wstring& title, const std::wstring& name) {
  const std::wstring text = fold(title);
  const std::wstring own = fold(name);
  const bool claude = !holds(own, L"claude") && holds(text, L" - claude");
  const bool gemini = !holds(own, L"gemini") && (holds(text, L" - google gemini") || holds(text, L"google gemini"));
  const bool chatGpt = !holds(own, L"chatgpt") && holds(text, L" - chatgpt");
  return claude || gemini || chatGpt;
}

std::wstring providerOfAddress(const std::wstring& address) {
  const std::wstring text = fold(address);
  if (holds(text, L"chatgpt.com")) return L"chatgpt";
  if (holds(text, L"chat.openai.com")) return L"chatgpt";
  if (holds(text, L"gemini.google.com")) return L"gemini";
  if (holds(text, L"claude.ai")) return L"claude";
  if (holds(text, L"chat.deepseek.com")) return L"deepseek";
  if (holds(text, L"deepseek.com")) return L"deepseek";
  if (holds(text, L"grok.com")) return L"grok";
  if (holds(text, L"x.com/i/grok")) return L"grok";
  if (holds(text, L"perplexity.ai")) return L"perplexity";
  return L"";
}

bool isAddress(const std::wstring& text) {
  return startsWith(fold(text), L"http://") || startsWith(fold(text), L"https://") || providerOfAddress(text) != L"";
}

bool isCompanyPage(const std::wstring& address) {
  const std::wstring text = fold(address);
  const bool isCompany = holds(text, L"openai.com") || holds(text, L"anthropic.com") || holds(text, L"gemini.google") ||
                         holds(text, L"google.com");
  return address != L"" && providerOfAddress(address) == L"" && isCompany;
}

bool isUsableClaudePage(const std::wstring& address) {
  const std::wstring text = fold(address);
  return holds(text, L"claude.ai/chat/") || holds(text, L"claude.ai/new") || text == L"https://claude.ai/" ||
         text == L"https://claude.ai";
}

Verdict judge(const TabCandidate& tab, const IdentityRequest& request) {
  Verdict verdict;
  noteFlags(tab, request, verdict.flags);
  const auto is = [&verdict](const char* flag) { return verdict.flags.count(flag) == 1; };
  const std::wstring key = fold(request.name);
  if (is("companyHomepage")) {
    verdict.decision = "REJECT_COMPANY_HOMEPAGE";
  } else if (is("nonChatClaudePage")) {
    verdict.decision = "REJECT_NON_CHAT_CLAUDE_PAGE";
  } else if (is("otherProviderAddress") || is("otherProviderTitle")) {
    verdict.decision = "REJECT_OTHER_PROVIDER";
  } else {
    bool isAccepted = false;
    if (key == L"chatgpt") {
      isAccepted = acceptChatGpt(tab, request, verdict);
    } else {
      verdict.isExplicit = is("domain") || is("anchoredTitle");
      isAccepted = verdict.isExplicit || is("remembered") || is("rawTitle");
    }
    verdict.decision = isAccepted ? "ACCEPT" : "NO_MATCH";
    if (isAccepted) verdict.score = scoreOf(tab, key, verdict);
  }
  return verdict;
}

}  // namespace orvane::identity_model
