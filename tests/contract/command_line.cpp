#include <windows.h>
// windows.h first: the next builds on it.
#include <shellapi.h>

#include <string>
#include <vector>

#include "contract/contract_world.h"

namespace orvane::contract {
namespace {

using CommandLine = ContractTest;
using Arguments = std::vector<std::wstring>;

Arguments split(const wchar_t* commandLine) {
  int count = -1;
  LPWSTR* const list = ::CommandLineToArgvW(commandLine, &count);
  if (list == nullptr) return {};
  const Arguments arguments(list, list + count);
  EXPECT_EQ(::LocalFree(list), nullptr);
  return arguments;
}

TEST_F(CommandLine, Program_EndsAtABlankOrAtItsClosingQuote) {
  EXPECT_EQ(split(L"p.exe"), (Arguments{L"p.exe"}));
  EXPECT_EQ(split(L"p.exe a b"), (Arguments{L"p.exe", L"a", L"b"}));
  EXPECT_EQ(split(L"\"c:\\with blank\\p.exe\" a"), (Arguments{L"c:\\with blank\\p.exe", L"a"}));
}

TEST_F(CommandLine, Program_TakesBackslashesAsTheyAre) {
  EXPECT_EQ(split(L"\"c:\\dir\\\" a"), (Arguments{L"c:\\dir\\", L"a"}));
}

TEST_F(CommandLine, Arguments_AreParted_ByBlanksAndTabs) {
  EXPECT_EQ(split(L"p \t a\tb   c  "), (Arguments{L"p", L"a", L"b", L"c"}));
}

TEST_F(CommandLine, QuotedArgument_KeepsItsBlanks) {
  EXPECT_EQ(split(L"p \"a b\" c\" d\"e"), (Arguments{L"p", L"a b", L"c de"}));
  EXPECT_EQ(split(L"p \"\" x"), (Arguments{L"p", L"", L"x"}));
}

TEST_F(CommandLine, Backslashes_AreThemselves_AwayFromAQuote) {
  EXPECT_EQ(split(L"p a\\\\b c\\d\\"), (Arguments{L"p", L"a\\\\b", L"c\\d\\"}));
}

TEST_F(CommandLine, Backslashes_AreHalved_InFrontOfAQuote) {
  EXPECT_EQ(split(L"p a\\\\\"b c\" d"), (Arguments{L"p", L"a\\b c", L"d"}));
  EXPECT_EQ(split(L"p a\\\"b c"), (Arguments{L"p", L"a\"b", L"c"}));
  EXPECT_EQ(split(L"p a\\\\\\\"b c"), (Arguments{L"p", L"a\\\"b", L"c"}));
}

TEST_F(CommandLine, DoubledQuote_InsideQuotes_IsAQuote) {
  EXPECT_EQ(split(L"p \"a\"\"b\""), (Arguments{L"p", L"a\"b"}));
}

TEST_F(CommandLine, EmptyLine_GivesTheProgramsPath) {
  const Arguments arguments = split(L"");
  ASSERT_EQ(arguments.size(), 1u);
  EXPECT_NE(arguments[0].find(L".exe"), std::wstring::npos);
}

TEST_F(CommandLine, OwnLine_BeginsWithTheProgram) {
  const Arguments arguments = split(::GetCommandLineW());
  ASSERT_FALSE(arguments.empty());
  EXPECT_NE(arguments[0].find(L".exe"), std::wstring::npos);
}

}  // namespace
}  // namespace orvane::contract
