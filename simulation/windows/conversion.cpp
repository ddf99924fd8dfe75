#include <windows.h>

#include <algorithm>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

#include "windows/call.h"
#include "windows/wide_text.h"

using namespace orvane::simulation;

namespace {

constexpr char16_t replacement = 0xFFFD;

// One row of the table of well-formed UTF-8 sequences: what may follow a lead byte.
struct SequenceForm {
  unsigned char firstLead;
  unsigned char lastLead;
  unsigned char firstSecond;
  unsigned char lastSecond;
  int length;
  unsigned char leadMask;
};

constexpr SequenceForm sequenceForms[] = {
    {0xC2, 0xDF, 0x80, 0xBF, 2, 0x1F}, {0xE0, 0xE0, 0xA0, 0xBF, 3, 0x0F}, {0xE1, 0xEC, 0x80, 0xBF, 3, 0x0F},
    {0xED, 0xED, 0x80, 0x9F, 3, 0x0F}, {0xEE, 0xEF, 0x80, 0xBF, 3, 0x0F}, {0xF0, 0xF0, 0x90, 0xBF, 4, 0x07},
    {0xF1, 0xF3, 0x80, 0xBF, 4, 0x07}, {0xF4, 0xF4, 0x80, 0x8F, 4, 0x07},
};

const SequenceForm* formOf(unsigned char lead) {
  for (const SequenceForm& form : sequenceForms) {
    if (lead >= form.firstLead && lead <= form.lastLead) return &form;
  }
  return nullptr;
}

// One character, or the longest piece that could have begun one.
struct DecodedPiece {
  std::size_t byteCount = 1;
  std::optional<char32_t> character;  // nullopt: ill-formed
};

DecodedPiece decodePiece(std::string_view bytes) {
  const auto byteAt = [bytes](std::size_t at) { return static_cast<unsigned char>(bytes[at]); };
  if (byteAt(0) < 0x80) return {1, byteAt(0)};
  const SequenceForm* const form = formOf(byteAt(0));
  if (form == nullptr) return {};
  char32_t character = byteAt(0) & form->leadMask;
  const auto length = static_cast<std::size_t>(form->length);
  for (std::size_t at = 1; at < length; ++at) {
    const unsigned char first = at == 1 ? form->firstSecond : 0x80;
    const unsigned char last = at == 1 ? form->lastSecond : 0xBF;
    if (at == bytes.size() || byteAt(at) < first || byteAt(at) > last) return {at, std::nullopt};
    character = (character << 6) | (byteAt(at) & 0x3Fu);
  }
  return {length, character};
}

void appendUnits(std::u16string& units, char32_t character) {
  if (character < 0x10000) {
    units.push_back(static_cast<char16_t>(character));
    return;
  }
  units.push_back(static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10)));
  units.push_back(static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF)));
}

// nullopt: ill-formed, and that was not to be replaced.
std::optional<std::u16string> unitsFromUtf8(std::string_view bytes, bool isStrict) {
  std::u16string units;
  while (!bytes.empty()) {
    const DecodedPiece piece = decodePiece(bytes);
    if (!piece.character && isStrict) return std::nullopt;
    appendUnits(units, piece.character.value_or(replacement));
    bytes.remove_prefix(piece.byteCount);
  }
  return units;
}

bool isHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool isLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

void appendUtf8(std::string& bytes, char32_t character) {
  const auto append = [&bytes](char32_t byte) { bytes.push_back(static_cast<char>(byte)); };
  if (character < 0x80) return append(character);
  if (character < 0x800) {
    append(0xC0 | (character >> 6));
  } else if (character < 0x10000) {
    append(0xE0 | (character >> 12));
    append(0x80 | ((character >> 6) & 0x3F));
  } else {
    append(0xF0 | (character >> 18));
    append(0x80 | ((character >> 12) & 0x3F));
    append(0x80 | ((character >> 6) & 0x3F));
  }
  append(0x80 | (character & 0x3F));
}

std::optional<std::string> utf8FromUnits(std::wstring_view wide, bool isStrict) {
  std::string bytes;
  for (std::size_t at = 0; at < wide.size(); ++at) {
    char32_t character = unitOf(wide[at]);
    const bool hasNext = at + 1 < wide.size();
    if (isHighSurrogate(character) && hasNext && isLowSurrogate(unitOf(wide[at + 1]))) {
      character = 0x10000 + ((character - 0xD800) << 10) + (unitOf(wide[++at]) - 0xDC00u);
    } else if (isHighSurrogate(character) || isLowSurrogate(character)) {
      if (isStrict) return std::nullopt;
      character = replacement;
    }
    appendUtf8(bytes, character);
  }
  return bytes;
}

// Stores a converted text as both functions do; the number stored or, without room asked for, needed.
template <typename Unit, typename Converted>
int store(const std::optional<Converted>& converted, Unit* target, int capacity) {
  if (!converted) return failWith(ERROR_NO_UNICODE_TRANSLATION, 0);
  const int needed = static_cast<int>(converted->size());
  if (capacity == 0) return needed;
  const auto fitting = static_cast<std::size_t>(std::min(needed, capacity));
  std::copy_n(converted->begin(), fitting, target);
  return needed > capacity ? failWith(ERROR_INSUFFICIENT_BUFFER, 0) : needed;
}

bool areArgumentsUsable(const void* source, int count, const void* target, int capacity) {
  return source != nullptr && count != 0 && capacity >= 0 && (capacity == 0 || target != nullptr) && source != target;
}

void requireUtf8(const char* call, UINT codePage, DWORD flags, DWORD knownFlags) {
  if (codePage != CP_UTF8) stopRun(call, "a code page other than UTF-8 isn't modelled");
  if ((flags & ~knownFlags) != 0) stopRun(call, "an unknown flag");
}

}  // namespace

int MultiByteToWideChar(UINT codePage, DWORD flags, LPCCH bytes, int byteCount, LPWSTR units, int capacity) {
  if (const auto fault = enter("MultiByteToWideChar")) return faulted<int>(*fault);
  requireUtf8("MultiByteToWideChar", codePage, flags, MB_ERR_INVALID_CHARS);
  if (!areArgumentsUsable(bytes, byteCount, units, capacity)) return failWith(ERROR_INVALID_PARAMETER, 0);
  const std::size_t length = byteCount < 0 ? std::strlen(bytes) + 1 : static_cast<std::size_t>(byteCount);
  return store(unitsFromUtf8({bytes, length}, flags != 0), units, capacity);
}

int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWCH units, int unitCount, LPSTR bytes, int capacity,
                        LPCCH defaultCharacter, LPBOOL usedDefaultCharacter) {
  if (const auto fault = enter("WideCharToMultiByte")) return faulted<int>(*fault);
  requireUtf8("WideCharToMultiByte", codePage, flags, WC_ERR_INVALID_CHARS);
  const bool asksForDefault = defaultCharacter != nullptr || usedDefaultCharacter != nullptr;
  if (asksForDefault || !areArgumentsUsable(units, unitCount, bytes, capacity)) {
    return failWith(ERROR_INVALID_PARAMETER, 0);
  }
  const std::size_t length = unitCount < 0 ? std::wstring_view(units).size() + 1 : static_cast<std::size_t>(unitCount);
  return store(utf8FromUnits({units, length}, flags != 0), bytes, capacity);
}
