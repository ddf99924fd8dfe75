#include "shell/command_line.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "support/find.h"
#include "support/input_text.h"
#include "windows/call.h"
#include "windows/platform.h"
#include "windows/state.h"
#include "windows/wide_text.h"

// A command line, and a list of arguments quoted into one, as the program reads them.
namespace orvane::fuzzing {
namespace {

using simulation::PlatformState;

constexpr std::size_t longestArgument = 32767;

class Model {
 public:
  explicit Model(const std::wstring& line) : line_(line) {}

  std::vector<std::wstring> arguments() {
    skipProgram();
    std::vector<std::wstring> found;
    while (skipBlanks()) {
      found.push_back(argument());
    }
    return found;
  }

 private:
  bool isAt(wchar_t unit) const { return at_ < line_.size() && line_[at_] == unit; }
  bool isAtBlank() const { return isAt(L' ') || isAt(L'\t'); }

  bool skipBlanks() {
    while (isAtBlank()) {
      ++at_;
    }
    return at_ < line_.size();
  }

  void skipProgram() {
    const bool isQuoted = isAt(L'"');
    if (isQuoted) {
      ++at_;
    }
    while (at_ < line_.size() && (isQuoted ? !isAt(L'"') : !isAtBlank())) {
      ++at_;
    }
    if (isQuoted && at_ < line_.size()) {
      ++at_;
    }
  }

  std::wstring argument() {
    std::wstring text;
    int quotes = 0;  // open ones; each third of a row is a plain one and closes
    while (at_ < line_.size() && (quotes == 1 || !isAtBlank())) {
      std::size_t backslashes = 0;
      for (; isAt(L'\\'); ++at_) {
        ++backslashes;
      }
      if (!isAt(L'"')) {
        text.append(backslashes, L'\\');
        if (backslashes == 0) {
          text += line_[at_++];
        }
        continue;
      }
      text.append(backslashes / 2, L'\\');
      if (backslashes % 2 == 1) {
        text += L'"';
        ++at_;
        continue;
      }
      for (; isAt(L'"'); ++at_) {
        if (++quotes == 3) {
          text += L'"';
          quotes = 0;
        }
      }
      quotes %= 2;
    }
    return text;
  }

  const std::wstring& line_;
  std::size_t at_ = 0;
};

bool isFirstHalf(wchar_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool isSecondHalf(wchar_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

void appendUtf8(std::uint32_t code, std::string& utf8) {
  const auto more = [&](int shift) { utf8 += static_cast<char>(0x80 | (code >> shift & 0x3F)); };
  if (code < 0x80) {
    utf8 += static_cast<char>(code);
  } else if (code < 0x800) {
    utf8 += static_cast<char>(0xC0 | code >> 6);
    more(0);
  } else if (code < 0x10000) {
    utf8 += static_cast<char>(0xE0 | code >> 12);
    more(6);
    more(0);
  } else {
    utf8 += static_cast<char>(0xF0 | code >> 18);
    more(12);
    more(6);
    more(0);
  }
}

// Empty for a text that holds half a pair.
std::string utf8Of(const std::wstring& whole) {
  const std::wstring text = whole.substr(0, longestArgument);
  std::string utf8;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const wchar_t unit = text[at];
    const bool isPair = isFirstHalf(unit) && at + 1 < text.size() && isSecondHalf(text[at + 1]);
    if (isPair) {
      const auto high = static_cast<std::uint32_t>(unit - 0xD800);
      const auto low = static_cast<std::uint32_t>(text[++at] - 0xDC00);
      appendUtf8(0x10000 + (high << 10 | low), utf8);
    } else if (isFirstHalf(unit) || isSecondHalf(unit)) {
      return {};
    } else {
      appendUtf8(static_cast<std::uint32_t>(unit), utf8);
    }
  }
  return utf8;
}

bool isOffscreenExpected(const std::vector<std::string>& arguments) {
  const std::string page = "--orvane-content-page=";
  bool isAsked = false;
  for (const std::string& argument : arguments) {
    isAsked = isAsked || argument.substr(0, page.size()) == page || argument == "--orvane-open-toolbox";
  }
  return isAsked;
}

PlatformState& standingState() {
  static simulation::Books books;
  static simulation::Desktop desktop(*new simulation::Clock, books);
  static simulation::Platform platform(desktop, nullptr, {});
  return *simulation::currentState();
}

void requireRead(const std::wstring& line, const std::vector<std::string>& expected, const char* promise) {
  standingState().commandLine = line;
  const std::vector<std::string> arguments = GetCommandLineArguments();
  require(arguments == expected, promise);
  require(asksForOffscreenStart(arguments) == isOffscreenExpected(expected), "the flags are found as by the model");
  for (const auto& [kind, count] : standingState().desktop.books().held()) {
    require(count == 0, "nothing is held behind the reading");
  }
}

void checkLine(const std::wstring& line) {
  // The program's name of an empty line comes from elsewhere.
  if (line.empty()) {
    return;
  }
  std::vector<std::string> expected;
  for (const std::wstring& argument : Model(line).arguments()) {
    expected.push_back(utf8Of(argument));
  }
  requireRead(line, expected, "the arguments are those of the model");
}

std::wstring quoted(const std::wstring& argument) {
  std::wstring text = L"\"";
  std::size_t backslashes = 0;
  for (const wchar_t unit : argument) {
    if (unit == L'"') {
      text.append(backslashes + 1, L'\\');
    }
    backslashes = unit == L'\\' ? backslashes + 1 : 0;
    text += unit;
  }
  return text.append(backslashes, L'\\') + L'"';
}

void checkList(const std::vector<std::string>& arguments) {
  std::wstring line = L"\"C:\\Program Files\\Orvane\\orvane.exe\"";
  std::vector<std::string> expected;
  for (const std::string& argument : arguments) {
    const std::wstring wide = wideFromLooseText(argument);
    line += L' ' + quoted(wide);
    expected.push_back(utf8Of(wide));
  }
  requireRead(line, expected, "arguments that were quoted come back");
}

}  // namespace
}  // namespace orvane::fuzzing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace orvane::fuzzing;
  std::string text = textOf(data, size);
  // A command line ends at its first zero.
  text.resize(std::min(text.find('\0'), text.size()));
  checkLine(wideFromLooseText(text));
  checkList(splitText(text, '\n'));
  return 0;
}
