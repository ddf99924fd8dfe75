#pragma once

#include <string>
#include <vector>

namespace orvane::snapshot {

// The titles of one window and of its tabs.
struct Titles {
  std::wstring window;
  std::vector<std::wstring> tabs;
};

struct TitleStandIns {
  Titles titles;
  // The stand-ins stand to each other as the titles do: the same tabs are contained in the window's
  // title, and the same tabs have one title. False when no such ones were found.
  bool areTellingApart = true;
};

TitleStandIns standInTitles(const Titles& titles);

}  // namespace orvane::snapshot
