#include <windows.h>

#include <string>

#include "drawing_window.h"
#include "scenario/painted_report.h"
#include "support/simulated_desktop.h"

namespace orvane::simulation {
namespace {

class WindowsDrawingTest : public ::testing::Test {
 protected:
  WindowsDrawingTest() { window.show(); }

  std::string report() { return writeJson(describePainted(desktop.platform().records().painted)); }

  SIZE extentOf(HDC context, const wchar_t* text, int length) {
    SIZE extent{};
    EXPECT_NE(::GetTextExtentPoint32W(context, text, length, &extent), FALSE);
    return extent;
  }

  SimulatedDesktop desktop{"{}"};
  DrawingWindow window;
  RECT area{1, 2, 101, 42};
};

TEST_F(WindowsDrawingTest, Report_HasWhatWasDrawn_InOrderAndWithItsKeysInOrder) {
  const HDC context = ::GetDC(window.get());
  const HBRUSH brush = ::CreateSolidBrush(RGB(0x20, 0x21, 0x24));
  const HFONT font = makeFont(14);
  EXPECT_EQ(::FillRect(context, &area, brush), 1);
  ::SetBkMode(context, TRANSPARENT);
  ::SetTextColor(context, RGB(255, 0, 0));
  const HGDIOBJ former = ::SelectObject(context, font);
  ::DrawTextW(context, L"R&D", -1, &area, 0x20826);
  ::SelectObject(context, former);
  EXPECT_EQ(report(),
            R"([{"window":"main","fill":2367776,"bounds":[1,2,101,42]},)"
            R"({"window":"main","text":"R&D","font":{"face":"Segoe UI","height":-14,"weight":400,"charset":1,)"
            R"("quality":5},"textColor":255,"flags":133158,"bounds":[1,2,101,42],"bkMode":"transparent"}])");
  ::ReleaseDC(window.get(), context);
  ::DeleteObject(font);
  ::DeleteObject(brush);
}

TEST_F(WindowsDrawingTest, Report_NamesTheStockFontAndTakesTheLengthGiven) {
  const HDC context = ::GetDC(window.get());
  const HGDIOBJ former = ::SelectObject(context, ::GetStockObject(DEFAULT_GUI_FONT));
  ::DrawTextW(context, L"Orvane", 2, &area, DT_SINGLELINE | DT_NOPREFIX);
  ::SelectObject(context, former);
  EXPECT_EQ(report(), R"([{"window":"main","text":"Or","font":"DEFAULT_GUI_FONT","textColor":0,"flags":2080,)"
                      R"("bounds":[1,2,101,42],"bkMode":"opaque"}])");
  ::ReleaseDC(window.get(), context);
}

TEST_F(WindowsDrawingTest, Report_IsEmpty_WhenWhatIsDrawnDoesNotShow) {
  ::ShowWindow(window.get(), SW_HIDE);
  const HDC context = ::GetDC(window.get());
  const HBRUSH brush = ::CreateSolidBrush(RGB(1, 1, 1));
  EXPECT_EQ(::FillRect(context, &area, brush), 1);
  ::ReleaseDC(window.get(), context);

  PAINTSTRUCT paint{};
  ::FillRect(::BeginPaint(window.get(), &paint), &area, brush);
  ::EndPaint(window.get(), &paint);
  ::DeleteObject(brush);
  EXPECT_EQ(report(), "[]");
}

TEST_F(WindowsDrawingTest, Texts_MeasureByTheModel) {
  const HDC context = ::GetDC(window.get());
  const HFONT font = makeFont(14);
  const HGDIOBJ former = ::SelectObject(context, font);
  const SIZE extent = extentOf(context, L"Orvane", 6);
  TEXTMETRICW metrics{};
  ::GetTextMetricsW(context, &metrics);
  EXPECT_EQ(extent.cx, 42);
  EXPECT_EQ(extent.cy, 19);
  EXPECT_EQ(metrics.tmHeight, 19);
  EXPECT_EQ(metrics.tmInternalLeading, 5);
  EXPECT_EQ(metrics.tmWeight, 400);

  ::SelectObject(context, ::GetStockObject(DEFAULT_GUI_FONT));
  EXPECT_EQ(extentOf(context, L"Or", 2).cx, 12);
  EXPECT_EQ(extentOf(context, L"Or", 2).cy, 15);
  EXPECT_EQ(::DrawTextW(context, L"Or", -1, &area, DT_SINGLELINE | DT_NOPREFIX), 15);
  EXPECT_EQ(::DrawTextW(context, L"Or", -1, &area, DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX), 28);
  ::SelectObject(context, former);
  EXPECT_EQ(extentOf(context, L"\xD83D\xDE00", 2).cy, 16);
  ::ReleaseDC(window.get(), context);
  ::DeleteObject(font);
}

TEST_F(WindowsDrawingTest, Books_CountObjectsAndContexts) {
  const HBRUSH brush = ::CreateSolidBrush(RGB(1, 1, 1));
  const HFONT font = makeFont(14);
  const HDC context = ::GetDC(window.get());
  PAINTSTRUCT paint{};
  ::BeginPaint(window.get(), &paint);
  EXPECT_EQ(desktop.held("gdiObjects"), 4);
  ::EndPaint(window.get(), &paint);
  ::ReleaseDC(window.get(), context);
  ::GetStockObject(DEFAULT_GUI_FONT);
  EXPECT_EQ(desktop.held("gdiObjects"), 2);
  ::DeleteObject(font);
  ::DeleteObject(brush);
  EXPECT_EQ(desktop.held("gdiObjects"), 0);
}

TEST_F(WindowsDrawingTest, Faults_GiveTheirResultAndHaveNoEffect) {
  desktop.setFaults(R"([{"call": "CreateSolidBrush", "result": null}, {"call": "CreateFontW", "result": null},
    {"call": "GetDC", "result": null}, {"call": "FillRect", "result": 0}, {"call": "SelectObject", "result": null},
    {"call": "SetTextColor", "result": 4294967295}, {"call": "DrawTextW", "result": 0},
    {"call": "GetTextMetricsW", "result": false}, {"call": "GetTextExtentPoint32W", "result": false}])");
  EXPECT_EQ(::CreateSolidBrush(RGB(1, 1, 1)), nullptr);
  EXPECT_EQ(makeFont(14), nullptr);
  EXPECT_EQ(::GetDC(window.get()), nullptr);
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INTERNAL_ERROR));
  EXPECT_EQ(desktop.held("gdiObjects"), 0);

  const HDC context = ::GetDC(window.get());
  SIZE extent{7, 7};
  TEXTMETRICW metrics{};
  EXPECT_EQ(::FillRect(context, &area, nullptr), 0);
  EXPECT_EQ(::SelectObject(context, ::GetStockObject(DEFAULT_GUI_FONT)), nullptr);
  EXPECT_EQ(::SetTextColor(context, RGB(255, 0, 0)), CLR_INVALID);
  EXPECT_EQ(::SetTextColor(context, RGB(0, 255, 0)), RGB(0, 0, 0));
  EXPECT_EQ(::DrawTextW(context, L"Or", -1, &area, DT_SINGLELINE | DT_NOPREFIX), 0);
  EXPECT_EQ(::GetTextMetricsW(context, &metrics), FALSE);
  EXPECT_EQ(::GetTextExtentPoint32W(context, L"Or", 2, &extent), FALSE);
  EXPECT_EQ(extent.cx, 7);
  EXPECT_EQ(report(), "[]");
  ::ReleaseDC(window.get(), context);
}

// The host can't put back what a selection that was made to fail left in place.
TEST_F(WindowsDrawingTest, Context_MayKeepAnObject_WhenASelectionWasMadeToFail) {
  desktop.setFaults(R"([{"call": "SelectObject", "nth": 2, "result": null}])");
  const HDC context = ::GetDC(window.get());
  const HFONT font = makeFont(14);
  const HGDIOBJ former = ::SelectObject(context, font);
  EXPECT_EQ(::SelectObject(context, former), nullptr);
  EXPECT_EQ(::ReleaseDC(window.get(), context), 1);
  EXPECT_NE(::DeleteObject(font), FALSE);
}

TEST_F(WindowsDrawingTest, Painting_IsAskedForAgain_WhenItsBeginningFails) {
  int asked = 0;
  window.handle([&asked](HWND own, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
    if (message != WM_PAINT) return ::DefWindowProcW(own, message, wParam, lParam);
    ++asked;
    PAINTSTRUCT paint{};
    ::BeginPaint(own, &paint);
    ::EndPaint(own, &paint);
    return 0;
  });
  desktop.setFaults(R"([{"call": "BeginPaint", "result": null}])");
  handleNextMessage();
  handleNextMessage();
  EXPECT_EQ(asked, 2);
  ::PostQuitMessage(0);
  EXPECT_FALSE(handleNextMessage());
}

TEST_F(WindowsDrawingTest, Quit_ComesBeforePainting) {
  ::PostQuitMessage(0);
  EXPECT_FALSE(handleNextMessage());
}

using WindowsDrawingDeathTest = WindowsDrawingTest;

TEST_F(WindowsDrawingDeathTest, Run_Stops_WhenAWindowIsNeverDrawn) {
  window.handle([](HWND own, UINT message, WPARAM wParam, LPARAM lParam) {
    return message == WM_PAINT ? 0 : ::DefWindowProcW(own, message, wParam, lParam);
  });
  EXPECT_EXIT(
      {
        while (handleNextMessage()) {
        }
      },
      ::testing::ExitedWithCode(3), "simulation: WM_PAINT: the window \"main\" never validates");
}

TEST_F(WindowsDrawingDeathTest, Run_Stops_WhenAnObjectIsStillSelected) {
  const HDC context = ::GetDC(window.get());
  const HFONT font = makeFont(14);
  const HGDIOBJ former = ::SelectObject(context, font);
  EXPECT_EXIT(::ReleaseDC(window.get(), context), ::testing::ExitedWithCode(3),
              "simulation: ReleaseDC: an object is still selected");
  EXPECT_EXIT(::DeleteObject(font), ::testing::ExitedWithCode(3),
              "simulation: DeleteObject: the object is selected into a device context");
  ::SelectObject(context, former);
  ::ReleaseDC(window.get(), context);
  ::DeleteObject(font);
}

TEST_F(WindowsDrawingDeathTest, Run_Stops_WhenAHandleIsUsedBehindItsTime) {
  const HDC context = ::GetDC(window.get());
  const HBRUSH brush = ::CreateSolidBrush(RGB(1, 1, 1));
  ::DeleteObject(brush);
  EXPECT_EXIT(::DeleteObject(brush), ::testing::ExitedWithCode(3),
              "simulation: DeleteObject: an object that was deleted");
  EXPECT_EXIT(::FillRect(context, &area, brush), ::testing::ExitedWithCode(3),
              "simulation: FillRect: an object that was deleted");
  EXPECT_EXIT(::SelectObject(context, brush), ::testing::ExitedWithCode(3),
              "simulation: SelectObject: an object that was deleted");
  ::ReleaseDC(window.get(), context);
  EXPECT_EXIT(::ReleaseDC(window.get(), context), ::testing::ExitedWithCode(3),
              "simulation: ReleaseDC: a device context that isn't held");
  EXPECT_EXIT(::SetBkMode(context, OPAQUE), ::testing::ExitedWithCode(3),
              "simulation: SetBkMode: a device context that isn't held");
}

TEST_F(WindowsDrawingDeathTest, Run_Stops_WhenAContextIsGivenBackByTheWrongCall) {
  PAINTSTRUCT paint{};
  ::BeginPaint(window.get(), &paint);
  EXPECT_EXIT(::ReleaseDC(window.get(), paint.hdc), ::testing::ExitedWithCode(3), "simulation: ReleaseDC: ");
  ::EndPaint(window.get(), &paint);
  paint.hdc = ::GetDC(window.get());
  EXPECT_EXIT(::EndPaint(window.get(), &paint), ::testing::ExitedWithCode(3), "simulation: EndPaint: ");
  ::ReleaseDC(window.get(), paint.hdc);
}

TEST_F(WindowsDrawingDeathTest, Run_Stops_AtWhatIsNotModelled) {
  const HDC context = ::GetDC(window.get());
  EXPECT_EXIT(::GetDC(nullptr), ::testing::ExitedWithCode(3), "simulation: GetDC: ");
  EXPECT_EXIT(::GetStockObject(0), ::testing::ExitedWithCode(3), "simulation: GetStockObject: ");
  EXPECT_EXIT(makeFont(-14), ::testing::ExitedWithCode(3), "simulation: CreateFontW: ");
  EXPECT_EXIT(::DrawTextW(context, L"Or", -1, &area, 0), ::testing::ExitedWithCode(3), "simulation: DrawTextW: ");
  EXPECT_EXIT(::InvalidateRect(window.get(), &area, TRUE), ::testing::ExitedWithCode(3),
              "simulation: InvalidateRect: ");
  EXPECT_EXIT(::InvalidateRect(nullptr, nullptr, TRUE), ::testing::ExitedWithCode(3), "simulation: InvalidateRect: ");
  ::ReleaseDC(window.get(), context);
}

}  // namespace
}  // namespace orvane::simulation
