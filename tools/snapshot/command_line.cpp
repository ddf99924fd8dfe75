#include "snapshot/command_line.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>

#include "embedding/utf_conversion.h"
#include "provider_identity/provider_tables.h"
#include "provider_identity/text_rules.h"

namespace orvane::snapshot {
namespace {

constexpr DWORD greatestDelaySeconds = 60;
constexpr DWORD millisecondsPerSecond = 1000;

std::string knownProviders() {
  std::string names;
  for (const ProviderCall& call : providerCalls()) {
    names += (names.empty() ? "" : ", ") + utf8FromWide(call.name);
  }
  return names;
}

// Nullopt for anything but whole seconds up to the greatest.
std::optional<DWORD> readSeconds(std::wstring_view text) {
  const bool isNumber = !text.empty() && text.size() <= 2 && std::all_of(text.begin(), text.end(), [](wchar_t sign) {
    return sign >= L'0' && sign <= L'9';
  });
  DWORD seconds = 0;
  for (const wchar_t digit : isNumber ? text : std::wstring_view()) {
    seconds = seconds * 10 + static_cast<DWORD>(digit - L'0');
  }
  return isNumber && seconds <= greatestDelaySeconds ? std::optional(seconds) : std::nullopt;
}

class Reader {
 public:
  explicit Reader(const std::vector<std::wstring>& arguments) : arguments_(arguments) {}

  Request read() {
    while (next_ < arguments_.size() && request_.complaint.empty()) {
      readOption(arguments_[next_++]);
    }
    if (request_.complaint.empty() && !request_.wantsHelp && !request_.wantsVersion && request_.output.empty()) {
      complain("where to? Name a file with --output");
    }
    if (request_.imageNames.empty()) {
      for (const BrowserKind& kind : browserKinds) {
        request_.imageNames.emplace_back(kind.imageName);
      }
    }
    return request_;
  }

 private:
  void readOption(const std::wstring& option) {
    if (option == L"--help" || option == L"-h") {
      request_.wantsHelp = true;
    } else if (option == L"--version") {
      request_.wantsVersion = true;
    } else if (option == L"--plain") {
      request_.isPlain = true;
    } else if (option == L"--window") {
      if (const std::wstring* name = takeValue(option)) request_.imageNames.push_back(toLower(*name));
    } else if (option == L"--output" || option == L"-o") {
      if (const std::wstring* file = takeValue(option)) request_.output = *file;
    } else if (option == L"--provider") {
      if (const std::wstring* name = takeValue(option)) readProvider(*name);
    } else if (option == L"--delay") {
      if (const std::wstring* seconds = takeValue(option)) readDelay(*seconds);
    } else {
      complain("unknown option " + utf8FromWide(option) + " (see orvane-snapshot --help)");
    }
  }

  void readProvider(const std::wstring& name) {
    request_.provider = findProvider(name);
    if (request_.provider == nullptr) {
      complain("unknown provider \"" + utf8FromWide(name) + "\"; known: " + knownProviders());
    }
  }

  void readDelay(const std::wstring& text) {
    const std::optional<DWORD> seconds = readSeconds(text);
    if (!seconds) {
      complain("--delay takes whole seconds, 0 to " + std::to_string(greatestDelaySeconds));
      return;
    }
    request_.delayMs = *seconds * millisecondsPerSecond;
  }

  // Null after a complaint.
  const std::wstring* takeValue(const std::wstring& option) {
    if (next_ == arguments_.size() || arguments_[next_].empty()) {
      complain(utf8FromWide(option) + " needs a value");
      return nullptr;
    }
    return &arguments_[next_++];
  }

  void complain(std::string complaint) { request_.complaint = std::move(complaint); }

  const std::vector<std::wstring>& arguments_;
  std::size_t next_ = 0;
  Request request_;
};

}  // namespace

Request readCommandLine(const std::vector<std::wstring>& arguments) { return Reader(arguments).read(); }

std::string usage() {
  return "Usage: orvane-snapshot -o FILE [--window IMAGE]... [--provider NAME] [--delay SECONDS] [--plain]\n"
         "\n"
         "Writes what UI Automation shows of the open browser windows as a scenario, which orvane-sim runs.\n"
         "It only reads: nothing is pressed, typed, selected or sent. Titles, names, values and addresses are\n"
         "replaced by stand-ins of the same length that keep hosts and the words which Orvane looks for.\n"
         "\n"
         "  -o, --output FILE   where to\n"
         "  --window IMAGE      windows of this program, such as chrome.exe; may be given again.\n"
         "                      Without it those of Chrome, Edge, Brave, Firefox and Vivaldi\n"
         "  --provider NAME     whose tab the scenario's steps look for; without it the one whose page\n"
         "                      the uppermost window shows\n"
         "  --delay SECONDS     wait first, to bring the page to the front (0 to 60)\n"
         "  --plain             keep all texts as they are\n"
         "  --version, --help\n"
         "\n"
         "Exit status: 0 written; 1 no such window is open, or UI Automation is unavailable; 2 the command\n"
         "line or the file can't be used.\n";
}

}  // namespace orvane::snapshot
