#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace orvane {

// What an engine runs: the interface's files and the arguments that its entry point gets.
class DartProject {
 public:
  // `path` is the folder of the interface's files, absolute or relative to the current folder.
  explicit DartProject(const std::wstring& path)
      : assetsPath_(path + L"\\flutter_assets"),
        icuDataPath_(path + L"\\icudtl.dat"),
        aotLibraryPath_(path + L"\\app.so") {}

  [[nodiscard]] const std::wstring& assetsPath() const noexcept { return assetsPath_; }
  [[nodiscard]] const std::wstring& icuDataPath() const noexcept { return icuDataPath_; }
  [[nodiscard]] const std::wstring& aotLibraryPath() const noexcept { return aotLibraryPath_; }

  // UTF-8; empty for the interface's own choice.
  [[nodiscard]] const std::string& entryPoint() const noexcept { return entryPoint_; }

  // UTF-8.
  [[nodiscard]] const std::vector<std::string>& entryPointArguments() const noexcept { return entryPointArguments_; }
  void setEntryPointArguments(std::vector<std::string> arguments) { entryPointArguments_ = std::move(arguments); }

  // The library's options, which have no other names than these; 0 is its own choice in each.
  [[nodiscard]] std::int32_t firstOption() const noexcept { return firstOption_; }
  [[nodiscard]] std::int32_t secondOption() const noexcept { return secondOption_; }
  [[nodiscard]] std::int32_t thirdOption() const noexcept { return thirdOption_; }

 private:
  std::wstring assetsPath_;
  std::wstring icuDataPath_;
  std::wstring aotLibraryPath_;
  std::string entryPoint_;
  std::vector<std::string> entryPointArguments_;
  std::int32_t firstOption_ = 0;
  std::int32_t secondOption_ = 0;
  std::int32_t thirdOption_ = 0;
};

}  // namespace orvane
