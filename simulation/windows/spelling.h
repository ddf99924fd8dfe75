#pragma once

#include <spellcheck.h>
#include <windows.h>

#include <string>
#include <vector>

#include "world/text.h"

namespace orvane::simulation {

inline constexpr CLSID spellCheckerFactoryClass = {
    0x7AB36653, 0x1796, 0x484B, {0xBD, 0xFA, 0xE7, 0x4F, 0x1D, 0xB7, 0xC1, 0xDC}};
inline constexpr IID spellCheckerFactoryInterface = {
    0x8E018A9D, 0x2415, 0x4677, {0xBF, 0x08, 0x79, 0x4E, 0xA6, 0x1F, 0x94, 0xBB}};

// Each with one reference that goes to the host. The host keeps one factory and one checker for each
// tag as written by design: their last reference counts as nothing held, that of any further one does.
ISpellCheckerFactory* makeSpellCheckerFactory();
ISpellChecker* makeSpellChecker(const std::wstring& tag);
// The errors of a text of this length: one over all of it, or none.
IEnumSpellingError* makeSpellingErrors(bool isWrong, ULONG textUnits);
IEnumString* makeStringList(std::vector<Text> strings);

}  // namespace orvane::simulation
