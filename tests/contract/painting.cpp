// When a window is asked to draw itself, and what ends the asking.
#include <windows.h>

#include <vector>

#include "contract/contract_world.h"
#include "contract/drawn_window.h"

namespace orvane::contract {
namespace {

struct Drawing {
  BOOL isLeftUnerased = FALSE;
  RECT area{};
  bool hasContext = false;
};

class Painting : public ContractTest {
 protected:
  explicit Painting(UINT classStyle = 0) : window_(classStyle) {
    window_.handle([this](HWND window, UINT message, WPARAM wParam, LPARAM, LRESULT& result) {
      if (message >= WM_APP) seen_.push_back(message);
      if (message == WM_ERASEBKGND) {
        ++erasings_;
        hasErasingContext_ = wParam != 0;
        result = erases_ ? 1 : 0;
        return true;
      }
      if (message != WM_PAINT) return false;
      seen_.push_back(message);
      drawings_.push_back(draw(window));
      return true;
    });
  }

  HWND window() const { return window_.get(); }

  // How often the window is asked to draw itself by all that waits.
  std::size_t handleAll() {
    seen_.clear();
    drawings_.clear();
    erasings_ = 0;
    EXPECT_TRUE(handleWaiting(window()));
    return drawings_.size();
  }

  // Shows the window and has it drawn.
  void show() {
    ::ShowWindow(window(), SW_SHOWNORMAL);
    handleAll();
  }

  static Drawing draw(HWND window) {
    PAINTSTRUCT paint{};
    const HDC context = ::BeginPaint(window, &paint);
    const Drawing drawing{paint.fErase, paint.rcPaint, context != nullptr && context == paint.hdc};
    EXPECT_NE(::EndPaint(window, &paint), FALSE);
    return drawing;
  }

  std::vector<UINT> seen_;
  std::vector<Drawing> drawings_;
  int erasings_ = 0;
  bool erases_ = true;
  bool hasErasingContext_ = false;
  DrawnWindow window_;
};

class PaintingWhole : public Painting {
 protected:
  PaintingWhole() : Painting(CS_HREDRAW | CS_VREDRAW) {}
};

TEST_F(Painting, IsAskedFor_WhenTheWindowIsShown) {
  ::ShowWindow(window(), SW_SHOWNORMAL);
  EXPECT_GE(handleAll(), 1u);
  EXPECT_EQ(handleAll(), 0u);
}

TEST_F(Painting, IsAskedForOnce_HoweverOftenItIsInvalidated) {
  show();
  EXPECT_NE(::InvalidateRect(window(), nullptr, TRUE), FALSE);
  EXPECT_NE(::InvalidateRect(window(), nullptr, TRUE), FALSE);
  EXPECT_EQ(handleAll(), 1u);
  EXPECT_EQ(handleAll(), 0u);
}

TEST_F(Painting, ComesBehindPostedMessages) {
  show();
  ::InvalidateRect(window(), nullptr, FALSE);
  ::PostMessageW(window(), WM_APP + 1, 0, 0);
  ::PostMessageW(window(), WM_APP + 2, 0, 0);
  handleAll();
  EXPECT_EQ(seen_, (std::vector<UINT>{WM_APP + 1, WM_APP + 2, WM_PAINT}));
}

TEST_F(Painting, CoversTheClientArea) {
  show();
  RECT client{};
  ASSERT_NE(::GetClientRect(window(), &client), FALSE);
  ::InvalidateRect(window(), nullptr, TRUE);
  ASSERT_EQ(handleAll(), 1u);
  EXPECT_TRUE(drawings_[0].hasContext);
  EXPECT_EQ(drawings_[0].area.left, 0);
  EXPECT_EQ(drawings_[0].area.top, 0);
  EXPECT_EQ(drawings_[0].area.right, client.right);
  EXPECT_EQ(drawings_[0].area.bottom, client.bottom);
}

TEST_F(Painting, ErasesTheBackgroundFirst_WhenItIsAskedTo) {
  show();
  ::InvalidateRect(window(), nullptr, TRUE);
  ASSERT_EQ(handleAll(), 1u);
  EXPECT_EQ(erasings_, 1);
  EXPECT_TRUE(hasErasingContext_);
  EXPECT_EQ(drawings_[0].isLeftUnerased, FALSE);
}

TEST_F(Painting, ErasesNothing_WhenItIsNotAskedTo) {
  show();
  ::InvalidateRect(window(), nullptr, FALSE);
  ASSERT_EQ(handleAll(), 1u);
  EXPECT_EQ(erasings_, 0);
  EXPECT_EQ(drawings_[0].isLeftUnerased, FALSE);
}

TEST_F(Painting, SaysThatNobodyErased) {
  show();
  erases_ = false;
  ::InvalidateRect(window(), nullptr, TRUE);
  ASSERT_EQ(handleAll(), 1u);
  EXPECT_NE(drawings_[0].isLeftUnerased, FALSE);
}

TEST_F(Painting, IsNotAskedFor_WhenTheWindowIsHidden) {
  EXPECT_NE(::InvalidateRect(window(), nullptr, TRUE), FALSE);
  EXPECT_EQ(handleAll(), 0u);
  show();
  ::InvalidateRect(window(), nullptr, TRUE);
  ::ShowWindow(window(), SW_HIDE);
  EXPECT_EQ(handleAll(), 0u);
}

TEST_F(Painting, CoversNothing_WhenNothingWaits) {
  const Drawing drawing = draw(window());
  EXPECT_TRUE(drawing.hasContext);
  EXPECT_EQ(drawing.area.right - drawing.area.left, 0);
  EXPECT_EQ(drawing.area.bottom - drawing.area.top, 0);
}

TEST_F(Painting, IsAskedFor_WhenTheWindowGrows) {
  show();
  ::SetWindowPos(window(), nullptr, 0, 0, 500, 400, SWP_NOMOVE | SWP_NOZORDER);
  EXPECT_GE(handleAll(), 1u);
}

TEST_F(PaintingWhole, IsAskedFor_WhenTheWindowShrinks) {
  show();
  ::SetWindowPos(window(), nullptr, 0, 0, 300, 200, SWP_NOMOVE | SWP_NOZORDER);
  EXPECT_GE(handleAll(), 1u);
}

TEST_F(Painting, IsAskedFor_WhenTheWindowIsRestored) {
  show();
  ::ShowWindow(window(), SW_MINIMIZE);
  handleAll();
  ::ShowWindow(window(), SW_RESTORE);
  EXPECT_GE(handleAll(), 1u);
}

// The platform's own procedure draws nothing, but ends the asking.
TEST_F(Painting, Ends_WhenItIsLeftToThePlatform) {
  show();
  int asked = 0;
  window_.handle([&asked](HWND, UINT message, WPARAM, LPARAM, LRESULT&) {
    if (message == WM_PAINT) ++asked;
    return false;
  });
  ::InvalidateRect(window(), nullptr, TRUE);
  EXPECT_TRUE(handleWaiting(window()));
  EXPECT_EQ(asked, 1);
}

TEST_F(Painting, Fails_WhenTheWindowIsGone) {
  const HWND gone = window();
  ::DestroyWindow(gone);
  PAINTSTRUCT paint{};
  EXPECT_EQ(::BeginPaint(gone, &paint), nullptr);
  EXPECT_EQ(::InvalidateRect(gone, nullptr, TRUE), FALSE);
}

}  // namespace
}  // namespace orvane::contract
