#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

namespace orvane {

// The two forms of a draft on the clipboard, both UTF-8; a form that isn't usable is empty.
struct DraftClipboard {
  std::string html;  // the fragment of "HTML Format"
  std::string text;  // of CF_UNICODETEXT
};

// Both forms in one opening of the clipboard for `owner`; nullopt when OpenClipboard fails.
std::optional<DraftClipboard> readDraftClipboard(HWND owner);

// Puts `html` (a fragment of at most 8,388,608 bytes) and `text` (at most 4,194,304 UTF-16 units) on
// the clipboard. False when a limit is passed (the clipboard isn't touched then) or a step fails: then
// the clipboard may be empty or hold one form alone.
bool writeDraftClipboard(HWND owner, std::string_view text, std::string_view html);

}  // namespace orvane
