#include "desktop/window_command_handler.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "clipboard/clipboard_image.h"
#include "clipboard/draft_clipboard.h"
#include "desktop/clean_background.h"
#include "desktop/content_process.h"
#include "desktop/logical_scale.h"
#include "desktop/native_menu.h"
#include "desktop/synthetic_keys.h"
#include "desktop/tool_launchers.h"
#include "desktop/window_geometry.h"
#include "embedding/call_arguments.h"
#include "embedding/reply_map.h"
#include "spelling/spell_check.h"

namespace orvane {
namespace {

// The system's move command with the hit code of the caption: the drag begins once the reply has left.
constexpr WPARAM moveByCaption = SC_MOVE | HTCAPTION;
constexpr const char* standardLanguage = "en-US";

// What a command sees of the call and of the window that owns the channel.
struct WindowCommandContext {
  MainWindow window;
  const HostWindow& host;
  const EncodableMap* arguments;  // null when the call brought no map
};

EncodableMap readOrvaneDraftClipboard(const WindowCommandContext& context) {
  std::optional<DraftClipboard> draft = readDraftClipboard(context.window.handle);
  EncodableMap reply = successReply(draft.has_value());
  if (draft) {
    addToReply(reply, "html", std::move(draft->html));
    addToReply(reply, "text", std::move(draft->text));
  }
  return reply;
}

EncodableMap writeOrvaneDraftClipboard(const WindowCommandContext& context) {
  return successReply(writeDraftClipboard(context.window.handle, stringEntry(context.arguments, "text"),
                                          stringEntry(context.arguments, "html")));
}

EncodableMap activateContentProcessCommand(const WindowCommandContext& context) {
  return successReply(activateContentProcess(context.arguments));
}

EncodableMap checkSpellingCommand(const WindowCommandContext& context) {
  const std::string language = stringEntry(context.arguments, "language");
  SpellingResult checked =
      checkSpelling(stringEntry(context.arguments, "word"), language.empty() ? standardLanguage : language);
  EncodableMap reply;
  addToReply(reply, "supported", checked.supported);
  addToReply(reply, "misspelled", checked.misspelled);
  addToReply(reply, "suggestions", EncodableList(checked.suggestions.begin(), checked.suggestions.end()));
  return reply;
}

EncodableMap restoreCleanBackgroundCommand(const WindowCommandContext&) {
  return successReply(restoreCleanBackground());
}

EncodableMap syncCleanBackgroundCommand(const WindowCommandContext& context) {
  return syncCleanBackground(context.window.handle, context.window.scale, context.arguments);
}

EncodableMap getWorkAreaCommand(const WindowCommandContext& context) { return getWorkArea(context.window); }

EncodableMap getBoundsCommand(const WindowCommandContext& context) { return getBounds(context.window); }

EncodableMap clipboardSequenceNumber(const WindowCommandContext&) {
  EncodableMap reply = successReply(true);
  addToReply(reply, "sequence", static_cast<std::int64_t>(::GetClipboardSequenceNumber()));
  return reply;
}

EncodableMap readClipboardImageCommand(const WindowCommandContext& context) {
  std::vector<std::uint8_t> bytes = readClipboardImage(context.window.handle);
  EncodableMap reply = successReply(!bytes.empty());
  if (!bytes.empty()) {
    addToReply(reply, "bytes", std::move(bytes));
  }
  return reply;
}

EncodableMap openScreenCaptureCommand(const WindowCommandContext&) { return successReply(openScreenCapture()); }

EncodableMap openTaskManagerCommand(const WindowCommandContext&) { return successReply(openTaskManager()); }

EncodableMap openCommandPromptAtCommand(const WindowCommandContext& context) {
  return successReply(openCommandPromptAt(context.window.handle, context.arguments));
}

EncodableMap openCommandWindowCommand(const WindowCommandContext& context) {
  return successReply(openCommandWindow(context.window.handle, context.arguments));
}

EncodableMap runBatchFileCommand(const WindowCommandContext& context) {
  return runBatchFile(context.window.handle, context.arguments);
}

EncodableMap openTextFileCommand(const WindowCommandContext& context) {
  return openTextFile(context.window.handle, context.arguments);
}

EncodableMap sendWindowsHotKeyCommand(const WindowCommandContext& context) {
  return successReply(sendWindowsHotKey(stringEntry(context.arguments, "keys")));
}

EncodableMap sendNewLineToPreviousWindowCommand(const WindowCommandContext& context) {
  return successReply(sendNewLineToPreviousWindow(context.window.handle));
}

EncodableMap showNativeHotKeysMenuCommand(const WindowCommandContext& context) {
  std::string action = showNativeHotKeysMenu(context.window.handle, context.arguments);
  EncodableMap reply = successReply(!action.empty());
  addToReply(reply, "action", std::move(action));
  return reply;
}

EncodableMap minimizeWindow(const WindowCommandContext& context) {
  ::ShowWindow(context.window.handle, SW_MINIMIZE);
  return successReply(true);
}

EncodableMap closeWindow(const WindowCommandContext& context) {
  ::PostMessageW(context.window.handle, WM_CLOSE, 0, 0);
  return successReply(true);
}

EncodableMap beginWindowDrag(const WindowCommandContext& context) {
  ::ReleaseCapture();
  ::SetForegroundWindow(context.window.handle);
  return successReply(::PostMessageW(context.window.handle, WM_SYSCOMMAND, moveByCaption, 0) != FALSE);
}

EncodableMap setBoundsCommand(const WindowCommandContext& context) {
  return successReply(setBounds(context.window, context.host, context.arguments));
}

EncodableMap emergencyRestoreCommand(const WindowCommandContext& context) {
  return successReply(emergencyRestore(context.window, context.host));
}

struct WindowCommand {
  std::string_view name;
  EncodableMap (*run)(const WindowCommandContext& context);
};

constexpr std::array<WindowCommand, 24> commands{{
    {"readOrvaneDraftClipboard", readOrvaneDraftClipboard},
    {"writeOrvaneDraftClipboard", writeOrvaneDraftClipboard},
    {"activateContentProcess", activateContentProcessCommand},
    {"checkSpelling", checkSpellingCommand},
    {"restoreCleanBackground", restoreCleanBackgroundCommand},
    {"syncCleanBackground", syncCleanBackgroundCommand},
    {"getWorkArea", getWorkAreaCommand},
    {"getBounds", getBoundsCommand},
    {"clipboardSequenceNumber", clipboardSequenceNumber},
    {"readClipboardImage", readClipboardImageCommand},
    {"openScreenCapture", openScreenCaptureCommand},
    {"openTaskManager", openTaskManagerCommand},
    {"openCommandPromptAt", openCommandPromptAtCommand},
    {"openCommandWindow", openCommandWindowCommand},
    {"runBatchFile", runBatchFileCommand},
    {"openTextFile", openTextFileCommand},
    {"sendWindowsHotKey", sendWindowsHotKeyCommand},
    {"sendNewLineToPreviousWindow", sendNewLineToPreviousWindowCommand},
    {"showNativeHotKeysMenu", showNativeHotKeysMenuCommand},
    {"minimizeWindow", minimizeWindow},
    {"closeWindow", closeWindow},
    {"beginWindowDrag", beginWindowDrag},
    {"setBounds", setBoundsCommand},
    {"emergencyRestore", emergencyRestoreCommand},
}};

}  // namespace

WindowCommandHandler::WindowCommandHandler(HostWindow host) : host_(std::move(host)) {}

void WindowCommandHandler::HandleMethodCall(const MethodCall& call, std::unique_ptr<MethodResult> result) const {
  const HWND window = host_.readHandle();
  if (window == nullptr || ::IsWindow(window) == FALSE) {
    result->Success(EncodableValue(successReply(false)));
    return;
  }
  const WindowCommandContext context{{window, logicalScale(window)}, host_, argumentMap(call.arguments())};
  for (const WindowCommand& command : commands) {
    if (call.method_name() == command.name) {
      result->Success(EncodableValue(command.run(context)));
      return;
    }
  }
  result->NotImplemented();
}

}  // namespace orvane
