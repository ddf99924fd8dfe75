#pragma once

#include <string>

#include "composer/prompt_box.h"
#include "support/simulated_desktop.h"

namespace orvane {

// What verifyPromptBox says of the window "browser".
struct Verdict {
  bool isVerified = false;
  std::string message;
};

inline Verdict verify(const simulation::SimulatedDesktop& desktop, const std::string& provider = "Claude") {
  Verdict verdict;
  verdict.isVerified = verifyPromptBox(desktop.window("browser"), provider, &verdict.message);
  return verdict;
}

}  // namespace orvane
