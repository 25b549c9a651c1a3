#include "app/dividers_win32.h"

#include <utility>

#include "app/frame_win32.h"
#include "win32/dpi.h"

namespace {

struct HeldDivider {
    Divider divider = Divider::kNone;
    int fromMouse = 0;  // from the mouse to the divider, pixels
    PaneShares sharesBefore;
};

}  // namespace

static HeldDivider theHeld;

// The borders of two tab controls side by side are eight pixels wide.
static DividerPlace DividerUnder(POINT point) {
    static constexpr int kReach = 5;
    return DividerNear(CurrentLayout(), static_cast<int>(point.x), static_cast<int>(point.y),
                       Scaled(theFrame.window, kReach));
}

static int AlongDrag(Divider divider, POINT point) {
    return static_cast<int>(divider == Divider::kBesideList ? point.x : point.y);
}

static void Divide(const PaneShares& shares) {
    if (std::exchange(theFrame.shares, shares) != shares) LayOut();
}

bool ShowDividerCursor(HWND under, UINT hitTest) {
    if (under != theFrame.window || hitTest != HTCLIENT || !theFrame.startUpComplete) return false;
    POINT mouse{};
    GetCursorPos(&mouse);
    ScreenToClient(theFrame.window, &mouse);
    const Divider divider = DividerUnder(mouse).divider;
    if (divider == Divider::kNone) return false;
    SetCursor(LoadCursorA(nullptr, divider == Divider::kBesideList ? IDC_SIZEWE : IDC_SIZENS));
    return true;
}

void GrabDivider(POINT point) {
    const auto [divider, at] = DividerUnder(point);
    if (divider == Divider::kNone) return;
    theHeld = {divider, at - AlongDrag(divider, point), theFrame.shares};
    SetCapture(theFrame.window);
}

void PutDividerBack(POINT point) {
    Divide(SharesWithDividerReset(theFrame.shares, DividerUnder(point).divider));
}

void DragDivider(POINT point) {
    if (theHeld.divider == Divider::kNone) return;
    const int at = AlongDrag(theHeld.divider, point) + theHeld.fromMouse;
    Divide(SharesWithDividerAt(theFrame.shares, theHeld.divider, at, CurrentFrameSize(), theFrame.shown));
}

void LetDividerGo() {
    if (std::exchange(theHeld, {}).divider == Divider::kNone) return;
    if (GetCapture() == theFrame.window) ReleaseCapture();
}

bool CancelsDrag(const MSG& message) {
    if (theHeld.divider == Divider::kNone || message.message != WM_KEYDOWN || message.wParam != VK_ESCAPE) return false;
    const PaneShares before = theHeld.sharesBefore;
    LetDividerGo();
    Divide(before);
    return true;
}
