#include "page/page_file.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <utility>

namespace orvane::simulation {
namespace {

std::string lastProblem() { return std::generic_category().message(errno == 0 ? EIO : errno); }

}  // namespace

PageFile::PageFile(std::string path) : path_(std::move(path)) {
  std::error_code ignored;
  isNew_ = !std::filesystem::exists(path_, ignored);
  errno = 0;
  if (!std::ofstream(path_, std::ios::binary | std::ios::app).is_open()) problem_ = lastProblem();
}

PageFile::~PageFile() {
  std::error_code ignored;
  if (isNew_ && !hasText_ && problem_.empty()) std::filesystem::remove(path_, ignored);
}

bool PageFile::write(const std::string& text) {
  errno = 0;
  std::ofstream stream(path_, std::ios::binary | std::ios::trunc);
  stream.write(text.data(), static_cast<std::streamsize>(text.size()));
  stream.close();
  hasText_ = stream.good();
  if (!hasText_) problem_ = lastProblem();
  return hasText_;
}

std::optional<Json> readScenarioText(const std::string& file, const std::optional<std::string>& prompt) {
  std::ifstream stream(file, std::ios::binary);
  Json scenario = Json::parse(stream, nullptr, false);
  if (!scenario.is_object()) return std::nullopt;
  if (prompt) {
    Json& clipboard = scenario["desktop"]["clipboard"];
    if (clipboard.is_object()) clipboard.erase("textBlock");
    clipboard["text"] = validUtf8(*prompt);
  }
  return scenario;
}

}  // namespace orvane::simulation
