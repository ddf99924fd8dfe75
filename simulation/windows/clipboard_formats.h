#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "world/clipboard.h"

namespace orvane::simulation {

// The bytes that the clipboard has of a format; nullopt when it isn't there. A format of the
// platform that isn't modelled ends the run.
std::optional<std::vector<std::uint8_t>> bytesOfFormat(std::string_view call, const ClipboardContent& content,
                                                       UINT format);

// Puts a form in. A format that the desktop has no place for ends the run.
void putFormat(std::string_view call, ClipboardContent& content, UINT format, std::vector<std::uint8_t> bytes);

}  // namespace orvane::simulation
