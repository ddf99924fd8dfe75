#include "snapshot/hide_texts.h"

#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "composer/uia_interfaces.h"
#include "snapshot/rule_words.h"
#include "snapshot/stand_in.h"
#include "snapshot/title_stand_ins.h"

namespace orvane::snapshot {
namespace {

using Words = std::span<const std::wstring_view>;

// 1 when the text has changed.
std::size_t replaceText(std::wstring& text, std::wstring replacement) {
  const bool isChanged = text != replacement;
  text = std::move(replacement);
  return isChanged ? 1 : 0;
}

std::size_t hide(std::wstring& text, Words words) { return replaceText(text, standIn(text, words)); }

std::size_t hide(std::optional<std::wstring>& text, Words words) { return text ? hide(*text, words) : 0; }

void hideElement(CapturedElement& element, std::size_t& valueCount, HiddenTexts& hidden) {
  if (element.type != UIA_TabItemControlTypeId) {
    hidden.names += hide(element.name, nameWords());
  }
  hidden.names += hide(element.automationId, nameWords());
  hidden.names += hide(element.className, nameWords());
  valueCount += hide(element.value, addressWords());
  valueCount += hide(element.helpText, addressWords());
  valueCount += hide(element.legacyValue, addressWords());
}

// Of all tab items: discovery takes those of a page for tabs as well.
std::vector<std::wstring*> tabTitles(CapturedWindow& window) {
  std::vector<std::wstring*> titles;
  for (CapturedTab& tab : window.tabs) {
    titles.push_back(&tab.title);
  }
  for (CapturedElement& element : window.elements) {
    if (element.type == UIA_TabItemControlTypeId && element.name) {
      titles.push_back(&*element.name);
    }
  }
  return titles;
}

void hideTitles(CapturedWindow& window, HiddenTexts& hidden) {
  const std::vector<std::wstring*> places = tabTitles(window);
  Titles titles{window.title, {}};
  for (const std::wstring* title : places) {
    titles.tabs.push_back(*title);
  }
  TitleStandIns standIns = standInTitles(titles);
  hidden.windowsNotTold += standIns.areTellingApart ? 0 : 1;
  hidden.titles += replaceText(window.title, std::move(standIns.titles.window));
  for (std::size_t tab = 0; tab < places.size(); ++tab) {
    hidden.titles += replaceText(*places[tab], std::move(standIns.titles.tabs[tab]));
  }
}

}  // namespace

HiddenTexts hideTexts(CapturedDesktop& desktop) {
  HiddenTexts hidden;
  for (CapturedWindow& window : desktop.windows) {
    hideTitles(window, hidden);
    // The bar's own value says it.
    hide(window.address, addressWords());
    if (window.addressBar) {
      hideElement(*window.addressBar, hidden.addresses, hidden);
    }
    for (CapturedElement& element : window.elements) {
      hideElement(element, hidden.values, hidden);
    }
  }
  return hidden;
}

}  // namespace orvane::snapshot
