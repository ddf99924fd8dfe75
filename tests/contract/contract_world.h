#pragma once

#include <gtest/gtest.h>

#include <string>

namespace orvane::contract {

// A program's own world, fresh for each test: on Windows it is simply there.
class ContractTest : public ::testing::Test {
 protected:
  ContractTest();

  // Another program empties the clipboard and leaves this text on it, or no form at all.
  static void leaveOnClipboard(const std::wstring& text);
  static void leaveClipboardEmpty();
};

}  // namespace orvane::contract
