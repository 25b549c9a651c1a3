// Separate from the frame, which creates the bar, because the panes below the frame write to it.
#include "pane/status_bar_win32.h"

#include "pane/fitted_text.h"
#include "resources/ids.h"
#include "win32/controls.h"
#include "win32/panes.h"

static std::string TextOfPart(HWND statusBar, WPARAM part) {
    const auto length = LOWORD(SendMessageA(statusBar, SB_GETTEXTLENGTHA, part, 0));
    std::string text(length + 1u, '\0');
    SendMessageA(statusBar, SB_GETTEXTA, part, reinterpret_cast<LPARAM>(text.data()));
    text.resize(length);
    return text;
}

// ---- Texts that are cut ---------------------------------------------------------------------------------------------

static constexpr int kEdge = 1;         // around a part, pixels
static constexpr int kTextMargins = 4;  // left and right of a text, together

static WPARAM PartCount(HWND statusBar) {
    return static_cast<WPARAM>(SendMessageA(statusBar, SB_GETPARTS, 0, 0));
}

static RECT InsideOf(HWND statusBar, WPARAM part) {
    RECT place{};
    SendMessageA(statusBar, SB_GETRECT, part, reinterpret_cast<LPARAM>(&place));
    InflateRect(&place, -kEdge, -kEdge);
    return place;
}

static int WidthOnDc(void* dc, std::string_view text) {
    SIZE size{};
    GetTextExtentPoint32A(static_cast<HDC>(dc), text.data(), static_cast<int>(text.size()), &size);
    return static_cast<int>(size.cx);
}

static std::string FittedTo(HDC dc, const RECT& inside, const std::string& text) {
    return FittedText(text, static_cast<int>(inside.right - inside.left) - kTextMargins, {dc, WidthOnDc});
}

namespace {

// A device context with the control's font.
struct StatusDc {
    explicit StatusDc(HWND bar) : statusBar(bar), dc(GetDC(bar)) {
        const auto font = reinterpret_cast<HFONT>(SendMessageA(bar, WM_GETFONT, 0, 0));
        if (font != nullptr) fontBefore = SelectObject(dc, font);
    }
    ~StatusDc() {
        if (fontBefore != nullptr) SelectObject(dc, fontBefore);
        ReleaseDC(statusBar, dc);
    }
    StatusDc(const StatusDc&) = delete;
    StatusDc& operator=(const StatusDc&) = delete;

    HWND statusBar;
    HDC dc;
    HGDIOBJ fontBefore = nullptr;
};

}  // namespace

// Paints over the control's own text, which simply ends at the part's edge. The control keeps the whole text for those
// who ask for it, such as screen readers, and because it is cut, Windows shows the tool tip.
static void PaintCutParts(HWND statusBar) {
    const StatusDc device(statusBar);
    for (WPARAM part = 0; part < PartCount(statusBar); ++part) {
        const RECT inside = InsideOf(statusBar, part);
        const std::string text = TextOfPart(statusBar, part), fitted = FittedTo(device.dc, inside, text);
        if (fitted == text || IsRectEmpty(&inside)) continue;
        const int saved = SaveDC(device.dc);
        IntersectClipRect(device.dc, inside.left, inside.top, inside.right, inside.bottom);
        FillRect(device.dc, &inside, GetSysColorBrush(COLOR_BTNFACE));
        SetTextColor(device.dc, GetSysColor(COLOR_BTNTEXT));
        DrawStatusTextA(device.dc, &inside, fitted.c_str(), SBT_NOBORDERS);
        RestoreDC(device.dc, saved);
    }
}

// Wine shows every tool tip that is not empty; Windows only those of texts that are cut.
static void SetToolTips(HWND statusBar) {
    const StatusDc device(statusBar);
    for (WPARAM part = 0; part < PartCount(statusBar); ++part) {
        const std::string text = TextOfPart(statusBar, part);
        const bool isCut = FittedTo(device.dc, InsideOf(statusBar, part), text) != text;
        SendMessageA(statusBar, SB_SETTIPTEXTA, part, reinterpret_cast<LPARAM>(isCut ? text.c_str() : ""));
    }
}

static WNDPROC controlProcedure;

static LRESULT CALLBACK StatusBarProcedure(HWND statusBar, UINT message, WPARAM wParam, LPARAM lParam) {
    const LRESULT result = CallWindowProcA(controlProcedure, statusBar, message, wParam, lParam);
    switch (message) {
        case WM_PAINT: PaintCutParts(statusBar); break;
        case SB_SETTEXTA:
        case SB_SETPARTS:
        case WM_SIZE:
        case WM_SETFONT:
        case WM_SETTINGCHANGE: SetToolTips(statusBar); break;
    }
    return result;
}

HWND CreateStatusBar(HWND frame) {
    const HWND statusBar = CreateChild(frame, STATUSCLASSNAMEA, "", WS_VISIBLE | SBARS_TOOLTIPS, 0, IDC_STATUS_BAR);
    if (statusBar) controlProcedure = Subclass(statusBar, StatusBarProcedure);
    return statusBar;
}

// ---- Texts ----------------------------------------------------------------------------------------------------------

static HWND StatusBarOf(HWND window) {
    return GetDlgItem(FrameOf(window), IDC_STATUS_BAR);
}

std::string StatusText(HWND window, StatusPart part) {
    return TextOfPart(StatusBarOf(window), static_cast<WPARAM>(part));
}

void ShowStatus(HWND window, StatusPart part, const std::string& text) {
    const HWND statusBar = StatusBarOf(window);
    const auto number = static_cast<WPARAM>(part);
    if (TextOfPart(statusBar, number) == text) return;
    SendMessageA(statusBar, SB_SETTEXTA, number, reinterpret_cast<LPARAM>(text.c_str()));
}
