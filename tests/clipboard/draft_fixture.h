#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>

#include "clipboard/draft_clipboard.h"
#include "support/simulated_desktop.h"

namespace orvane {

inline constexpr std::size_t greatestHtmlBytes = 8'388'608;
inline constexpr std::size_t greatestTextUnits = 4'194'304;
inline constexpr std::size_t greatestBlockBytes = 8'388'608;  // on reading, of either form

// A clipboard with an old draft on it, and the window that reads and writes it.
class DraftClipboardTest : public testing::Test {
 protected:
  DraftClipboardTest() {
    content().html = "<!--StartFragment--><b>old</b><!--EndFragment-->";
    content().setText(u"old");
  }

  // Whatever happened, the clipboard is closed and no block is left over.
  void TearDown() override {
    EXPECT_EQ(desktop.held("openClipboard"), 0);
    EXPECT_EQ(desktop.held("globalBlocks"), 0);
  }

  simulation::ClipboardContent& content() { return desktop.world().clipboard.content; }
  std::uint32_t sequence() { return desktop.world().clipboard.sequence; }

  std::optional<DraftClipboard> read() { return readDraftClipboard(owner); }
  bool write(const std::string& text, const std::string& html) { return writeDraftClipboard(owner, text, html); }

  std::int64_t calls(std::string_view name) { return desktop.platformCalls(name); }

  // It was neither opened nor changed.
  void expectUntouched() {
    EXPECT_EQ(calls("OpenClipboard"), 0);
    expectUnchanged();
  }
  void expectUnchanged() {
    EXPECT_EQ(sequence(), 1U);
    EXPECT_EQ(content().html, "<!--StartFragment--><b>old</b><!--EndFragment-->");
    EXPECT_EQ(content().text, u"old");
  }

  simulation::SimulatedDesktop desktop{R"({"windows": [{"id": "editor", "process": "Code.exe"}]})"};
  HWND owner =
      reinterpret_cast<HWND>(static_cast<std::uintptr_t>(desktop.world().addHostWindow("main", nullptr).handle));
};

}  // namespace orvane
