#pragma once

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "scenario/scenario_reader.h"

namespace orvane::standins {

// The value of an environment variable; empty when it isn't set.
inline std::wstring environmentText(const wchar_t* name) {
  std::wstring value(::GetEnvironmentVariableW(name, nullptr, 0), L'\0');
  value.resize(::GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
  return value;
}

// The scenario that all processes of this run play. Throws std::runtime_error with one line that
// says what is wrong with the variable or with the file.
inline simulation::Scenario readScenarioOfRun() {
  const std::wstring path = environmentText(L"ORVANE_SCENARIO");
  if (path.empty()) throw std::runtime_error("ORVANE_SCENARIO names no file");
  std::ifstream stream(std::filesystem::path(path), std::ios::binary);
  if (!stream.is_open()) throw std::runtime_error("the file that ORVANE_SCENARIO names can't be opened");
  return simulation::readScenario({std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()});
}

}  // namespace orvane::standins
