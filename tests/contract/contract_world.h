#pragma once

#include <windows.h>

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

  // What a person does with the next menu that opens: takes the nth entry, from 1. Without it the
  // menu is dismissed.
  static void chooseInNextMenu(int entry);

  // A visible window of another program, behind all others.
  static HWND openOtherProgram();
  // A person brings a window to the front.
  static void bringToFront(HWND window);
};

}  // namespace orvane::contract
