#include <windows.h>

#include <string>
#include <string_view>

#include "contract/contract_world.h"

namespace orvane::contract {
namespace {

using Conversion = ContractTest;

std::wstring units(std::initializer_list<int> values) {
  std::wstring text;
  for (const int value : values) text.push_back(static_cast<wchar_t>(value));
  return text;
}

std::wstring wideOf(std::string_view bytes, DWORD flags = 0) {
  wchar_t buffer[64];
  const int count = ::MultiByteToWideChar(CP_UTF8, flags, bytes.data(), static_cast<int>(bytes.size()), buffer, 64);
  return std::wstring(buffer, static_cast<std::size_t>(count));
}

std::string utf8Of(std::wstring_view wide, DWORD flags = 0) {
  char buffer[64];
  const int count =
      ::WideCharToMultiByte(CP_UTF8, flags, wide.data(), static_cast<int>(wide.size()), buffer, 64, nullptr, nullptr);
  return std::string(buffer, static_cast<std::size_t>(count));
}

TEST_F(Conversion, Utf8_BecomesUnits_OfEveryLength) {
  EXPECT_EQ(wideOf("a"), L"a");
  EXPECT_EQ(wideOf("\xC3\xA9"), units({0xE9}));
  EXPECT_EQ(wideOf("\xE8\xB1\x86"), units({0x8C46}));
  EXPECT_EQ(wideOf("\xF0\x9F\x98\x80"), units({0xD83D, 0xDE00}));
  EXPECT_EQ(wideOf(std::string_view("a\0b", 3)), units({'a', 0, 'b'}));
}

TEST_F(Conversion, Units_BecomeUtf8_OfEveryLength) {
  EXPECT_EQ(utf8Of(L"a"), "a");
  EXPECT_EQ(utf8Of(units({0xE9})), "\xC3\xA9");
  EXPECT_EQ(utf8Of(units({0x8C46})), "\xE8\xB1\x86");
  EXPECT_EQ(utf8Of(units({0xD83D, 0xDE00})), "\xF0\x9F\x98\x80");
}

struct IllFormedBytes {
  std::string_view bytes;
  std::initializer_list<int> expected;
};

TEST_F(Conversion, IllFormedUtf8_BecomesOneReplacementForEachLongestPiece) {
  const IllFormedBytes rows[] = {
      {"\x80", {0xFFFD}},
      {"a\xC3", {'a', 0xFFFD}},
      {"\xC0\xAF", {0xFFFD, 0xFFFD}},
      {"\xE8\xB1", {0xFFFD}},
      {"\xE8\xB1z", {0xFFFD, 'z'}},
      {"\xE0\x80\x80", {0xFFFD, 0xFFFD, 0xFFFD}},
      {"\xED\xA0\x80", {0xFFFD, 0xFFFD, 0xFFFD}},
      {"\xF0\x9F\x98", {0xFFFD}},
      {"\xF4\x90\x80\x80", {0xFFFD, 0xFFFD, 0xFFFD, 0xFFFD}},
      {"\xFF\xFE", {0xFFFD, 0xFFFD}},
  };
  for (const IllFormedBytes& row : rows) EXPECT_EQ(wideOf(row.bytes), units(row.expected)) << row.bytes;
}

TEST_F(Conversion, LoneSurrogates_BecomeTheReplacement) {
  EXPECT_EQ(utf8Of(units({0xD83D})), "\xEF\xBF\xBD");
  EXPECT_EQ(utf8Of(units({0xDE00, 'a'})),
            "\xEF\xBF\xBD"
            "a");
  EXPECT_EQ(utf8Of(units({0xD83D, 0xD83D, 0xDE00})), "\xEF\xBF\xBD\xF0\x9F\x98\x80");
}

TEST_F(Conversion, Fails_WhenIllFormedAndStrict) {
  EXPECT_EQ(wideOf("a\xC3", MB_ERR_INVALID_CHARS), L"");
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_NO_UNICODE_TRANSLATION));
  EXPECT_EQ(utf8Of(units({'a', 0xD83D}), WC_ERR_INVALID_CHARS), "");
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_NO_UNICODE_TRANSLATION));
  EXPECT_EQ(utf8Of(units({'a', 0xD83D, 0xDE00}), WC_ERR_INVALID_CHARS), "a\xF0\x9F\x98\x80");
}

TEST_F(Conversion, GivesTheNeededSize_WhenThereIsNoRoomAskedFor) {
  EXPECT_EQ(::MultiByteToWideChar(CP_UTF8, 0, "\xF0\x9F\x98\x80x", 5, nullptr, 0), 3);
  EXPECT_EQ(::WideCharToMultiByte(CP_UTF8, 0, units({0x8C46, 'x'}).c_str(), 2, nullptr, 0, nullptr, nullptr), 4);
}

TEST_F(Conversion, CountsTheClosingNul_WhenTheLengthIsLeftToIt) {
  EXPECT_EQ(::MultiByteToWideChar(CP_UTF8, 0, "ab", -1, nullptr, 0), 3);
  wchar_t wide[3] = {L'x', L'x', L'x'};
  EXPECT_EQ(::MultiByteToWideChar(CP_UTF8, 0, "ab", -1, wide, 3), 3);
  EXPECT_EQ(std::wstring(wide), L"ab");
  EXPECT_EQ(::WideCharToMultiByte(CP_UTF8, 0, L"ab", -1, nullptr, 0, nullptr, nullptr), 3);
}

TEST_F(Conversion, Fails_WhenTheBufferIsTooSmall) {
  wchar_t wide[1];
  EXPECT_EQ(::MultiByteToWideChar(CP_UTF8, 0, "ab", 2, wide, 1), 0);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER));
  char bytes[2];
  EXPECT_EQ(::WideCharToMultiByte(CP_UTF8, 0, L"abc", 3, bytes, 2, nullptr, nullptr), 0);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER));
}

TEST_F(Conversion, Fails_WhenThereIsNothingToConvert) {
  wchar_t wide[4];
  EXPECT_EQ(::MultiByteToWideChar(CP_UTF8, 0, "ab", 0, wide, 4), 0);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
  char bytes[4];
  EXPECT_EQ(::WideCharToMultiByte(CP_UTF8, 0, L"ab", 0, bytes, 4, nullptr, nullptr), 0);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
}

}  // namespace
}  // namespace orvane::contract
