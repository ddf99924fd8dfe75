#pragma once

#include <array>
#include <cstddef>
#include <span>

namespace orvane::fuzzing {

// What the interface can call: the browser channel's methods, then the window channel's.
inline constexpr std::array<const char*, 31> methods{"openExternalUrl",
                                                     "activateOrvaneWindow",
                                                     "foregroundWindowHandle",
                                                     "focusProviderInput",
                                                     "getProviderResponseState",
                                                     "pasteAndSubmit",
                                                     "activateProvider",
                                                     "readOrvaneDraftClipboard",
                                                     "writeOrvaneDraftClipboard",
                                                     "activateContentProcess",
                                                     "checkSpelling",
                                                     "restoreCleanBackground",
                                                     "syncCleanBackground",
                                                     "getWorkArea",
                                                     "getBounds",
                                                     "clipboardSequenceNumber",
                                                     "readClipboardImage",
                                                     "openScreenCapture",
                                                     "openTaskManager",
                                                     "openCommandPromptAt",
                                                     "openCommandWindow",
                                                     "runBatchFile",
                                                     "openTextFile",
                                                     "sendWindowsHotKey",
                                                     "sendNewLineToPreviousWindow",
                                                     "showNativeHotKeysMenu",
                                                     "minimizeWindow",
                                                     "closeWindow",
                                                     "beginWindowDrag",
                                                     "setBounds",
                                                     "emergencyRestore"};
inline constexpr std::size_t browserMethods = 7;

inline constexpr std::span<const char* const> browserChannel = std::span(methods).first(browserMethods);
inline constexpr std::span<const char* const> windowChannel = std::span(methods).subspan(browserMethods);

}  // namespace orvane::fuzzing
