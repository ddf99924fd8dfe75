#include <cwctype>
#include <initializer_list>

#include "contract/contract_world.h"

namespace orvane::contract {
namespace {

using Characters = ContractTest;

TEST_F(Characters, Iswspace_KnowsTheBlanksOfUnicode) {
  for (const int blank : {0x09, 0x0D, 0x20, 0xA0, 0x1680, 0x2003, 0x2028, 0x202F, 0x3000}) {
    EXPECT_NE(std::iswspace(static_cast<wint_t>(blank)), 0) << std::hex << blank;
  }
  for (const int other : {0x1C, 0x41, 0x180E, 0x200B, 0xFEFF}) {
    EXPECT_EQ(std::iswspace(static_cast<wint_t>(other)), 0) << std::hex << other;
  }
}

TEST_F(Characters, Iswalpha_KnowsTheLettersOfUnicode) {
  for (const int letter : {0x41, 0x7A, 0xC9, 0xDF, 0xE9, 0x416, 0x5D0, 0x8C46, 0xAC00, 0xFF21}) {
    EXPECT_NE(std::iswalpha(static_cast<wint_t>(letter)), 0) << std::hex << letter;
  }
  for (const int other : {0x30, 0x27, 0xB2, 0xD83D}) {
    EXPECT_EQ(std::iswalpha(static_cast<wint_t>(other)), 0) << std::hex << other;
  }
}

TEST_F(Characters, CaseOfALetter_IsKnownForUnicode) {
  for (const int upper : {0x41, 0xC9, 0x130, 0x416, 0xFF21}) {
    EXPECT_NE(std::iswupper(static_cast<wint_t>(upper)), 0) << std::hex << upper;
    EXPECT_EQ(std::iswlower(static_cast<wint_t>(upper)), 0) << std::hex << upper;
  }
  for (const int lower : {0x61, 0xDF, 0xE9, 0x436, 0xFF41}) {
    EXPECT_NE(std::iswlower(static_cast<wint_t>(lower)), 0) << std::hex << lower;
    EXPECT_EQ(std::iswupper(static_cast<wint_t>(lower)), 0) << std::hex << lower;
  }
}

TEST_F(Characters, CaseIsChanged_ForAsciiAlone) {
  EXPECT_EQ(std::towlower(L'A'), static_cast<wint_t>(L'a'));
  EXPECT_EQ(std::towupper(L'z'), static_cast<wint_t>(L'Z'));
  for (const int other : {0xC9, 0xE9, 0x130, 0x416, 0x436}) {
    EXPECT_EQ(std::towlower(static_cast<wint_t>(other)), static_cast<wint_t>(other));
    EXPECT_EQ(std::towupper(static_cast<wint_t>(other)), static_cast<wint_t>(other));
  }
}

}  // namespace
}  // namespace orvane::contract
