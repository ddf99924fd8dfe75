#include "activation/process_image.h"

#include <gtest/gtest.h>

#include <string>

#include "provider_identity/provider_tables.h"
#include "support/row_name.h"
#include "support/simulated_desktop.h"

namespace orvane {
namespace {

using simulation::SimulatedDesktop;

constexpr DWORD processId = 4711;

std::string processOf(const std::string& path, const std::string& faults = "[]") {
  return R"({"windows": [{"id": "w", "process": "Chrome.EXE", "pid": 4711, "path": ")" + path +
         R"(", "title": "x"}], "faults": )" + faults + "}";
}

struct PathRow {
  const char* test;
  const char* path;  // as JSON writes it
  const wchar_t* image;
};

class ImagePath : public ::testing::TestWithParam<PathRow> {};

TEST_P(ImagePath, GivesItsLastPartInLowerCase) {
  const SimulatedDesktop desktop(processOf(GetParam().path));
  EXPECT_EQ(processImageName(processId), GetParam().image);
  EXPECT_EQ(desktop.platformCalls("CloseHandle"), 1);
}

INSTANTIATE_TEST_SUITE_P(
    Each, ImagePath,
    ::testing::Values(PathRow{"Backslashes", R"(C:\\Program Files\\Google\\Chrome.EXE)", L"chrome.exe"},
                      PathRow{"Slashes", "C:/Apps/Brave.exe", L"brave.exe"},
                      PathRow{"Both", R"(C:\\Apps/x\\Vivaldi.exe)", L"vivaldi.exe"},
                      PathRow{"SlashLast", R"(C:\\Apps/Firefox.exe)", L"firefox.exe"},
                      PathRow{"Neither", "MSEdge.exe", L"msedge.exe"}, PathRow{"NothingBehind", R"(C:\\Apps\\)", L""}),
    nameOfRow<PathRow>);

TEST(ProcessImageName, IsThatOfThePath_WhenTheBufferOf1040UnitsHoldsItWithItsEnd) {
  const std::string folder = R"(C:\\)";
  const std::string name = R"(\\chrome.exe)";
  // Each doubled backslash is one unit of the path.
  for (const std::size_t units : {std::size_t{1039}, std::size_t{1040}}) {
    const std::string middle(units - (folder.size() - 1) - (name.size() - 1), 'x');
    const SimulatedDesktop desktop(processOf(folder + middle + name));
    EXPECT_EQ(processImageName(processId), units == 1039 ? L"chrome.exe" : L"") << units;
    EXPECT_EQ(isSupportedBrowserImage(processImageName(processId)), units == 1039) << units;
  }
}

TEST(ProcessImageName, IsSupported_WhateverItsCase) {
  const SimulatedDesktop desktop(processOf(R"(C:\\Chrome.EXE)"));
  EXPECT_TRUE(isSupportedBrowserImage(processImageName(processId)));
  EXPECT_FALSE(isSupportedBrowserImage(L"Chrome.EXE"));
}

TEST(ProcessImageName, IsEmpty_WhenThereIsNoSuchProcess) {
  const SimulatedDesktop desktop(processOf(R"(C:\\x.exe)"));
  EXPECT_EQ(processImageName(0), L"");
  EXPECT_EQ(processImageName(4712), L"");
}

TEST(ProcessImageName, IsEmpty_WhenTheProcessCantBeOpened) {
  const SimulatedDesktop desktop(processOf(R"(C:\\x.exe)", R"([{"call": "OpenProcess", "result": null}])"));
  EXPECT_EQ(processImageName(processId), L"");
  EXPECT_EQ(desktop.platformCalls("QueryFullProcessImageNameW"), 0);
}

TEST(ProcessImageName, IsEmpty_AndHoldsNoHandle_WhenTheProcessCantBeAsked) {
  const SimulatedDesktop desktop(
      processOf(R"(C:\\x.exe)", R"([{"call": "QueryFullProcessImageNameW", "result": false}])"));
  EXPECT_EQ(processImageName(processId), L"");
  EXPECT_EQ(desktop.platformCalls("CloseHandle"), 1);
}

}  // namespace
}  // namespace orvane
