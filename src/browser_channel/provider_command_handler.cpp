#include "browser_channel/provider_command_handler.h"

#include <shellapi.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "activation/standard_activation.h"
#include "browser_channel/paste_and_submit.h"
#include "composer/foreground.h"
#include "composer/prompt_box.h"
#include "composer/prompt_state.h"
#include "embedding/call_arguments.h"
#include "embedding/reply_map.h"
#include "embedding/shell_result.h"
#include "embedding/utf_conversion.h"

namespace orvane {
namespace {

// What a command sees of the call and of the window that owns the channel.
struct CommandContext {
  const EncodableMap* arguments;  // null when the call brought no map
  const ViewWindowReader& readViewWindow;
};

EncodableMap messageReply(bool success, const std::string& message) {
  EncodableMap reply = successReply(success);
  addToReply(reply, "message", message);
  return reply;
}

bool restoreToFront(HWND window) {
  if (window == nullptr || ::IsWindow(window) == FALSE) {
    return false;
  }
  ::ShowWindow(window, SW_RESTORE);
  return ::SetForegroundWindow(window) != FALSE;
}

EncodableMap openExternalUrl(const CommandContext& context) {
  const std::string url = stringEntry(context.arguments, "url");
  if (url.empty()) {
    return successReply(false);
  }
  const HINSTANCE result =
      ::ShellExecuteW(nullptr, L"open", wideFromUtf8(url).c_str(), nullptr, nullptr, SW_SHOWNORMAL);
  return successReply(reinterpret_cast<INT_PTR>(result) > greatestShellError);
}

EncodableMap activateOrvaneWindow(const CommandContext& context) {
  const bool isRestored = restoreToFront(context.readViewWindow());
  return messageReply(isRestored, isRestored ? "PASS: Orvane restored after quiet multi-AI send"
                                             : "FAIL: Orvane could not be restored");
}

EncodableMap foregroundWindowHandle(const CommandContext& context) {
  const std::int64_t handle = integerEntry(context.arguments, "windowHandle").value_or(0);
  return successReply(restoreToFront(reinterpret_cast<HWND>(static_cast<std::intptr_t>(handle))));
}

EncodableMap focusProviderInput(const CommandContext& context) {
  const HWND foreground = ::GetForegroundWindow();
  const std::string name = stringEntry(context.arguments, "name");
  std::string detail;
  const bool isFocused = foreground != nullptr && verifyPromptBox(foreground, name, &detail);
  return messageReply(isFocused, isFocused ? "PASS: cursor placed in final AI chat input" : "FAIL: " + detail);
}

EncodableMap getProviderResponseState(const CommandContext& context) {
  const HWND foreground = ::GetForegroundWindow();
  std::string detail;
  const bool isObserved = verifyForeground(foreground, context.arguments, &detail);
  bool isResponding = false;
  if (isObserved) {
    detail.clear();
    isResponding = isRespondingControlVisible(foreground, &detail);
  }
  EncodableMap reply;
  addToReply(reply, "observed", isObserved);
  addToReply(reply, "responding", isResponding);
  addToReply(reply, "detail", detail);
  return reply;
}

EncodableMap pasteAndSubmitCommand(const CommandContext& context) { return pasteAndSubmit(context.arguments); }

// No reply map: the arguments were no map, which only this command can't do without.
std::optional<EncodableMap> activateProviderCommand(const CommandContext& context) {
  if (context.arguments == nullptr) {
    return std::nullopt;
  }
  return activateProvider(*context.arguments);
}

struct Command {
  std::string_view name;
  std::optional<EncodableMap> (*run)(const CommandContext& context);
};

template <EncodableMap (*command)(const CommandContext&)>
std::optional<EncodableMap> always(const CommandContext& context) {
  return command(context);
}

constexpr std::array<Command, 7> commands{{
    {"openExternalUrl", always<openExternalUrl>},
    {"activateOrvaneWindow", always<activateOrvaneWindow>},
    {"foregroundWindowHandle", always<foregroundWindowHandle>},
    {"focusProviderInput", always<focusProviderInput>},
    {"getProviderResponseState", always<getProviderResponseState>},
    {"pasteAndSubmit", always<pasteAndSubmitCommand>},
    {"activateProvider", activateProviderCommand},
}};

}  // namespace

ProviderCommandHandler::ProviderCommandHandler(ViewWindowReader readViewWindow)
    : readViewWindow_(std::move(readViewWindow)) {}

void ProviderCommandHandler::HandleMethodCall(const MethodCall& call, std::unique_ptr<MethodResult> result) const {
  for (const Command& command : commands) {
    if (call.method_name() != command.name) {
      continue;
    }
    std::optional<EncodableMap> reply = command.run({argumentMap(call.arguments()), readViewWindow_});
    if (reply) {
      result->Success(EncodableValue(std::move(*reply)));
    } else {
      result->Error("bad_arguments", "Expected a provider argument map.");
    }
    return;
  }
  result->NotImplemented();
}

}  // namespace orvane
