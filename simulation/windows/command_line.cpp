#include "windows/command_line.h"

#include <cstddef>

namespace orvane::simulation {
namespace {

constexpr std::wstring_view blanks = L" \t";

bool isBlank(wchar_t unit) { return blanks.find(unit) != std::wstring_view::npos; }

std::size_t countOf(std::wstring_view text, std::size_t from, wchar_t unit) {
  const std::size_t end = text.find_first_not_of(unit, from);
  return (end == std::wstring_view::npos ? text.size() : end) - from;
}

// The program's path knows no escapes: up to the closing quote, or to the first blank.
std::size_t readProgram(std::wstring_view text, std::wstring& program) {
  const bool isQuoted = text.starts_with(L'"');
  const std::size_t begin = isQuoted ? 1 : 0;
  std::size_t end = isQuoted ? text.find(L'"', begin) : text.find_first_of(blanks);
  if (end == std::wstring_view::npos) end = text.size();
  program = text.substr(begin, end - begin);
  return isQuoted && end < text.size() ? end + 1 : end;
}

class ArgumentReader {
 public:
  explicit ArgumentReader(std::wstring_view text) : text_(text) {}

  // The argument that begins at `at`; moves `at` behind it.
  std::wstring read(std::size_t& at) {
    while (at < text_.size() && (isQuoted_ || !isBlank(text_[at]))) readPiece(at);
    return argument_;
  }

 private:
  void readPiece(std::size_t& at) {
    const wchar_t unit = text_[at];
    if (unit == L'\\') return readBackslashes(at);
    if (unit == L'"') return readQuote(at);
    argument_ += unit;
    ++at;
  }

  // Backslashes mean themselves but in front of a quote, where two stand for one and an odd one
  // makes the quote a plain character.
  void readBackslashes(std::size_t& at) {
    const std::size_t count = countOf(text_, at, L'\\');
    at += count;
    const bool isBeforeQuote = at < text_.size() && text_[at] == L'"';
    argument_.append(isBeforeQuote ? count / 2 : count, L'\\');
    if (isBeforeQuote && count % 2 == 1) {
      argument_ += L'"';
      ++at;
    }
  }

  // Inside quotes a doubled quote is a plain one and ends the quoted stretch.
  void readQuote(std::size_t& at) {
    ++at;
    const bool isDoubled = isQuoted_ && at < text_.size() && text_[at] == L'"';
    isQuoted_ = !isQuoted_;
    if (isDoubled) {
      argument_ += L'"';
      ++at;
    }
  }

  std::wstring_view text_;
  std::wstring argument_;
  bool isQuoted_ = false;
};

}  // namespace

std::vector<std::wstring> splitCommandLine(std::wstring_view commandLine) {
  std::vector<std::wstring> arguments(1);
  std::size_t at = readProgram(commandLine, arguments.front());
  while (true) {
    while (at < commandLine.size() && isBlank(commandLine[at])) ++at;
    if (at == commandLine.size()) return arguments;
    arguments.push_back(ArgumentReader(commandLine).read(at));
  }
}

std::wstring quotedProgram(std::wstring_view path) { return L'"' + std::wstring(path) + L'"'; }

std::wstring quotedArgument(std::wstring_view argument) {
  std::wstring quoted = L"\"";
  for (std::size_t at = 0; at < argument.size();) {
    const std::size_t count = countOf(argument, at, L'\\');
    at += count;
    const bool isAtEnd = at == argument.size();
    const bool isBeforeQuote = !isAtEnd && argument[at] == L'"';
    quoted.append(isAtEnd || isBeforeQuote ? 2 * count : count, L'\\');
    if (isAtEnd) break;
    if (isBeforeQuote) quoted += L'\\';
    quoted += argument[at++];
  }
  return quoted + L'"';
}

}  // namespace orvane::simulation
