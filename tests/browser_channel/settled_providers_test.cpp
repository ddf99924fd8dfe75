#include "browser_channel/settled_providers.h"

#include <gtest/gtest.h>

namespace orvane {
namespace {

TEST(SettledProviders, AreNoneAtTheStart_AndOneSetForTheProcess) {
  EXPECT_TRUE(settledProviders().empty());

  settledProviders().insert(L"claude");
  settledProviders().insert(L"");
  settledProviders().insert(L"claude");

  EXPECT_EQ(settledProviders(), (std::set<std::wstring>{L"", L"claude"}));
  settledProviders().clear();
}

}  // namespace
}  // namespace orvane
