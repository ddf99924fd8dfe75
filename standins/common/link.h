#pragma once

#include <windows.h>

#include <functional>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>

namespace orvane::standins {

using Json = nlohmann::json;

// How the stand-ins of different processes talk: one JSON request in shared memory, a message that
// says so to a window of the other process, and the JSON answer in the same memory when the message
// returns. The answer is worked out on the thread of that window.

// Does what a request asks for. What it throws is the answer {"error": TEXT}.
using Answerer = std::function<Json(const Json& request)>;

// The message by which a stand-in's window is asked; its procedure gives it to serveLink.
UINT linkMessage();
LRESULT serveLink(WPARAM wparam, LPARAM lparam, const Answerer& answer);

// Asks the process that owns `window`, waiting for at most 10 s. No value when the window is no
// stand-in's, is gone or hangs.
std::optional<Json> askOwner(HWND window, const Json& request);

// The same for what only reads. Who has just answered still listens, and answers without a message,
// whose way there and back takes longer here than all the rest. One who hangs while listening is asked
// by a message too, which makes it 20 s at most.
std::optional<Json> askFact(HWND window, const Json& request);

// Answers by itself what the one whom it answered last goes on to ask of `window`. Returns when
// nothing has come for a moment, or after `longestMs`.
void listenOnLink(HWND window, DWORD longestMs, const Answerer& answer);

// Stand-in windows are found by the id that the scenario gives them.
void nameWindow(HWND window, std::string_view id);
std::optional<std::string> nameOfWindow(HWND window);
HWND findNamedWindow(std::string_view id);  // null: there is none

// Milliseconds since `originTicks` of QueryPerformanceCounter, which all processes share.
std::int64_t millisecondsSince(std::int64_t originTicks);
std::int64_t nowTicks();

}  // namespace orvane::standins
