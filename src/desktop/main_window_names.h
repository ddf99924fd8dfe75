#pragma once

namespace orvane {

// By which another instance of the program knows a main window.
inline constexpr const wchar_t* mainWindowClassName = L"FLUTTER_RUNNER_WIN32_WINDOW";

// In the normal form; the compact form has a shorter one.
inline constexpr const wchar_t* mainWindowTitle = L"Orvane: The Desk for Every Assistant";

}  // namespace orvane
