#include "clipboard/draft_clipboard.h"

#include <cstddef>
#include <cstring>
#include <utility>

#include "clipboard/clipboard_block.h"
#include "clipboard/clipboard_owners.h"
#include "clipboard/clipboard_text.h"
#include "clipboard/html_format.h"
#include "embedding/utf_conversion.h"

namespace orvane {
namespace {

constexpr const wchar_t* htmlFormatName = L"HTML Format";
constexpr std::size_t greatestTextUnits = greatestTextBlockBytes / clipboardUnitBytes;

std::string readHtmlForm() {
  const ClipboardBlock block(::RegisterClipboardFormatW(htmlFormatName), {1, greatestTextBlockBytes});
  if (block.bytes().empty()) {
    return {};
  }
  const auto* const bytes = reinterpret_cast<const char*>(block.bytes().data());
  return extractHtmlFragment({bytes, ::strnlen(bytes, block.bytes().size())});
}

// A movable block whose bytes `fill` writes; none when a step fails.
template <typename Fill>
GlobalBlock makeBlock(std::size_t sizeBytes, Fill fill) {
  GlobalBlock block(::GlobalAlloc(GMEM_MOVEABLE, sizeBytes));
  if (!block) {
    return {};
  }
  auto* const bytes = static_cast<char*>(::GlobalLock(block.get()));
  if (bytes == nullptr) {
    return {};
  }
  const LockedBlock locked(block.get());
  fill(bytes);
  return block;
}

GlobalBlock makeHtmlBlock(std::string_view html) {
  const std::string content = buildHtmlBlock(html);
  const std::size_t sizeBytes = content.size() + 1;
  return makeBlock(sizeBytes, [&](char* bytes) { std::memcpy(bytes, content.c_str(), sizeBytes); });
}

GlobalBlock makeTextBlock(const std::wstring& text) {
  return makeBlock((text.size() + 1) * clipboardUnitBytes, [&](char* bytes) {
    for (std::size_t at = 0; at <= text.size(); ++at) {
      const auto unit = at < text.size() ? static_cast<char16_t>(text[at]) : u'\0';
      std::memcpy(bytes + at * clipboardUnitBytes, &unit, clipboardUnitBytes);
    }
  });
}

// What the clipboard has taken is its own from then on.
bool handOver(UINT format, GlobalBlock block) {
  if (::SetClipboardData(format, block.get()) == nullptr) {
    return false;
  }
  static_cast<void>(block.release());
  return true;
}

}  // namespace

std::optional<DraftClipboard> readDraftClipboard(HWND owner) {
  const OpenedClipboard clipboard(::OpenClipboard(owner) != FALSE);
  if (!clipboard) {
    return std::nullopt;
  }
  DraftClipboard draft;
  draft.html = readHtmlForm();
  draft.text = utf8FromWide(readClipboardText());
  return draft;
}

bool writeDraftClipboard(HWND owner, std::string_view text, std::string_view html) {
  const std::wstring wideText = wideFromUtf8(text);
  if (html.size() > greatestTextBlockBytes || wideText.size() > greatestTextUnits) {
    return false;
  }
  // Everything is built before the clipboard is opened: nobody else can use it meanwhile.
  GlobalBlock htmlBlock = makeHtmlBlock(html);
  GlobalBlock textBlock = makeTextBlock(wideText);
  if (!htmlBlock || !textBlock) {
    return false;
  }
  const OpenedClipboard clipboard(::OpenClipboard(owner) != FALSE);
  if (!clipboard || ::EmptyClipboard() == FALSE) {
    return false;
  }
  const bool isHtmlSet = handOver(::RegisterClipboardFormatW(htmlFormatName), std::move(htmlBlock));
  const bool isTextSet = handOver(CF_UNICODETEXT, std::move(textBlock));
  return isHtmlSet && isTextSet;
}

}  // namespace orvane
