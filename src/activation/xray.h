#pragma once

#include <windows.h>

#include <cstdint>

#include "activation/tab_item_facts.h"
#include "browser_channel/trace_log.h"
#include "composer/uia_operations.h"

namespace orvane {

// The diagnostic dump of one browser window in one discovery pass: what it exposed, line by line,
// as the facts are read. Nothing reads these lines back. Without a trace nothing is written, and the
// window's state and the place of its tab items aren't read.
class XrayDump {
 public:
  // `pass` and `browserOrdinal` count from 1; `trace` may be null.
  XrayDump(TraceLog* trace, std::uint32_t pass, std::uint32_t browserOrdinal, const BrowserWindow& browser)
      : trace_(trace), pass_(pass), browserOrdinal_(browserOrdinal), browser_(browser) {}

  // The step "X-Ray window".
  void writeWindow() const;
  // The step "X-Ray root": ElementFromHandle gave no element.
  void writeRootFailure(HRESULT result) const;
  // The step "X-Ray tabs", with what was counted or which call gave nothing.
  void writeTabs() const;
  void writeConditionFailure(HRESULT result) const;
  void writeSearchFailure(HRESULT result) const;
  // The step "X-Ray tab": one tab item, or that GetElement gave none at this index.
  void writeTab(const UiaElement& item, const TabItemFacts& facts) const;
  void writeTabFailure(int index, HRESULT result) const;

 private:
  // "pass=…; browser#=…; hwnd=…", with which the normal lines begin.
  std::string head() const;
  std::string ordinalText() const;
  std::string handleText() const;

  TraceLog* trace_;
  std::uint32_t pass_;
  std::uint32_t browserOrdinal_;
  const BrowserWindow& browser_;
};

}  // namespace orvane
