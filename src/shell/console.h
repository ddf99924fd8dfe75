#pragma once

namespace orvane {

// Opens a console for a process that has none and leads stdout and stderr to it. When there is no
// console to be had, nothing changes.
void CreateAndAttachConsole();

}  // namespace orvane
