#pragma once

#include <optional>
#include <string>
#include <vector>

#include "scenario/json.h"

namespace orvane::simulation {

// The file that a page is written to.
class PageFile {
 public:
  // Looks whether it can be written, without touching what stands in it.
  explicit PageFile(std::string path);
  PageFile(const PageFile&) = delete;
  PageFile& operator=(const PageFile&) = delete;
  // Leaves no empty file behind when nothing was written.
  ~PageFile();

  const std::string& path() const { return path_; }
  const std::string& problem() const { return problem_; }  // empty: it can be written

  // Puts `text` in place of what the file held; false, with a problem, when it couldn't be.
  bool write(const std::string& text);

 private:
  std::string path_;
  std::string problem_;
  bool isNew_ = false;
  bool hasText_ = false;
};

// A scenario file as it is written, with `prompt` on its clipboard if there is one; nullopt when the file
// can't be read any more (it was a pipe).
std::optional<Json> readScenarioText(const std::string& file, const std::optional<std::string>& prompt);

}  // namespace orvane::simulation
