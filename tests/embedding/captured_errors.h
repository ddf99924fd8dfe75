#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace orvane::embedding_tests {

using Lines = std::vector<std::string>;

inline const std::string invalidRead = "Invalid read in StandardCodecByteStreamReader";

// Collects what is written to the error stream from its making on, until lines() is called.
class CapturedErrors {
 public:
  CapturedErrors() { ::testing::internal::CaptureStderr(); }
  ~CapturedErrors() { lines(); }
  CapturedErrors(const CapturedErrors&) = delete;
  CapturedErrors& operator=(const CapturedErrors&) = delete;

  const Lines& lines() {
    if (isCapturing_) {
      isCapturing_ = false;
      std::istringstream text(::testing::internal::GetCapturedStderr());
      for (std::string line; std::getline(text, line);) {
        lines_.push_back(line);
      }
    }
    return lines_;
  }

 private:
  bool isCapturing_ = true;
  Lines lines_;
};

}  // namespace orvane::embedding_tests
