#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

namespace fs = std::filesystem;

std::set<fs::path> filesBelow(const fs::path& place) {
  if (!fs::is_directory(place)) {
    return {place};
  }
  std::set<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(place)) {
    if (entry.is_regular_file()) {
      files.insert(entry.path());
    }
  }
  return files;
}

// False when it can't be read.
bool replay(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  if (!stream.is_open() || stream.bad()) {
    return false;
  }
  // The last line printed names the input of a crash.
  std::printf("%s\n", file.c_str());
  std::fflush(stdout);
  // A block of just this size, so that a read behind its end is seen.
  const std::vector<std::uint8_t> input(bytes.begin(), bytes.end());
  LLVMFuzzerTestOneInput(input.data(), input.size());
  return true;
}

}  // namespace

// Feeds the files, and those of the folders, that the command line names.
int main(int argumentCount, char** arguments) {
  std::size_t count = 0;
  for (int index = 1; index < argumentCount; ++index) {
    for (const fs::path& file : filesBelow(arguments[index])) {
      if (!replay(file)) {
        std::fprintf(stderr, "%s: can't be read\n", file.c_str());
        return EXIT_FAILURE;
      }
      ++count;
    }
  }
  std::printf("%zu inputs replayed\n", count);
  return count == 0 ? EXIT_FAILURE : EXIT_SUCCESS;
}
