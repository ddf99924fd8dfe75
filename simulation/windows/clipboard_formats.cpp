#include "windows/clipboard_formats.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

#include "windows/call.h"
#include "windows/wide_text.h"

namespace orvane::simulation {
namespace {

constexpr UINT firstRegistered = 0xC000;
constexpr std::size_t longestName = 255;

enum class Form { text, html, png, dib, dibv5, other };

// Folded names; the nth one is format `firstRegistered` + n.
std::vector<std::wstring>& registeredNames() {
  static std::vector<std::wstring> names;
  return names;
}

Form registeredForm(UINT format) {
  const std::size_t index = format - firstRegistered;
  if (index >= registeredNames().size()) return Form::other;
  const std::wstring& name = registeredNames()[index];
  return name == L"html format" ? Form::html : name == L"png" ? Form::png : Form::other;
}

Form formOf(std::string_view call, UINT format) {
  switch (format) {
    case 0:
      return Form::other;  // what a registration that failed leaves behind
    case CF_UNICODETEXT:
      return Form::text;
    case CF_DIB:
      return Form::dib;
    case CF_DIBV5:
      return Form::dibv5;
    default:
      if (format < firstRegistered) stopRun(call, "a format that isn't modelled");
      return registeredForm(format);
  }
}

std::vector<std::uint8_t> bytesOfHtml(const std::string& html) { return {html.begin(), html.end()}; }

UINT registerName(std::wstring folded) {
  std::vector<std::wstring>& names = registeredNames();
  const auto found = std::find(names.begin(), names.end(), folded);
  const auto index = static_cast<UINT>(found - names.begin());
  if (found == names.end()) names.push_back(std::move(folded));
  return firstRegistered + index;
}

}  // namespace

std::optional<std::vector<std::uint8_t>> bytesOfFormat(std::string_view call, const ClipboardContent& content,
                                                       UINT format) {
  switch (formOf(call, format)) {
    case Form::text:
      return content.bytesOfText();
    case Form::html:
      return content.html ? std::optional(bytesOfHtml(*content.html)) : std::nullopt;
    case Form::png:
      return content.png;
    case Form::dib:
      return content.dib;
    case Form::dibv5:
      return content.dibv5;
    case Form::other:
      return std::nullopt;
  }
  return std::nullopt;
}

void putFormat(std::string_view call, ClipboardContent& content, UINT format, std::vector<std::uint8_t> bytes) {
  switch (formOf(call, format)) {
    case Form::text:
      return content.setTextBlock(std::move(bytes));
    case Form::html:
      content.html = std::string(bytes.begin(), bytes.end());
      return;
    case Form::png:
      content.png = std::move(bytes);
      return;
    case Form::dib:
      content.dib = std::move(bytes);
      return;
    case Form::dibv5:
      content.dibv5 = std::move(bytes);
      return;
    case Form::other:
      stopRun(call, "a format that the desktop has no place for");
  }
}

}  // namespace orvane::simulation

using namespace orvane::simulation;

UINT RegisterClipboardFormatW(LPCWSTR name) {
  if (const auto fault = enter("RegisterClipboardFormatW")) return faulted<UINT>(*fault);
  if (name == nullptr || *name == L'\0') return failWith<UINT>(ERROR_INVALID_NAME);
  std::wstring folded = foldedName(name);
  if (folded.size() > longestName) return failWith<UINT>(ERROR_INVALID_PARAMETER);
  return registerName(std::move(folded));
}
