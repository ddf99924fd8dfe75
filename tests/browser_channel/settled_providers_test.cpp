#include "browser_channel/settled_providers.h"

#include <gtest/gtest.h>

namespace orvane {
namespace {

TEST(SettledProviders, AreNoneAtTheStart_AndOneSetForTheProcess) {
  EXPECT_TRUE(settledProviders().names.empty());

  settledProviders().names.insert(L"claude");
  settledProviders().names.insert(L"");
  settledProviders().names.insert(L"claude");

  EXPECT_EQ(settledProviders().names, (std::set<std::wstring>{L"", L"claude"}));
  settledProviders().names.clear();
}

}  // namespace
}  // namespace orvane
