// Separate from the frame, which creates the bar, because the panes below the frame write to it.
#include "pane/status_bar_win32.h"

#include <vector>

#include "pane/fitted_text.h"
#include "resources/ids.h"
#include "win32/dpi.h"
#include "win32/panes.h"

namespace {

struct Part {
    std::string text{};    // as the control has it
    std::string fitted{};  // as shown
    int room = 0;          // pixels for the text
};

struct StatusBar {
    HWND window = nullptr;
    WNDPROC procedure = nullptr;  // the control's own
    std::vector<Part> parts;
};

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
static StatusBar theStatusBar;

static LRESULT AskControl(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    return CallWindowProcA(theStatusBar.procedure, theStatusBar.window, message, wParam, lParam);
}

// ---- Texts that are cut ---------------------------------------------------------------------------------------------

static bool IsCut(const Part& part) {
    return part.fitted != part.text;
}

static RECT InsideOf(std::size_t part) {
    RECT place{};
    AskControl(SB_GETRECT, part, reinterpret_cast<LPARAM>(&place));
    const int edge = SystemMetric(theStatusBar.window, SM_CXBORDER);
    InflateRect(&place, -edge, -edge);
    return place;
}

static int WidthOnDc(void* dc, std::string_view text) {
    SIZE size{};
    GetTextExtentPoint32A(static_cast<HDC>(dc), text.data(), static_cast<int>(text.size()), &size);
    return static_cast<int>(size.cx);
}

static std::string Fitted(const std::string& text, int room) {
    if (text.empty()) return text;
    const StatusDc device(theStatusBar.window);
    return FittedText(text, room, {device.dc, WidthOnDc});
}

// Wine shows every tool tip that is not empty; Windows only those of texts that are cut.
static std::string TipOf(const Part& part) {
    return IsCut(part) ? part.text : "";
}

static void Fit(std::size_t number, const std::string& text, int room) {
    Part& part = theStatusBar.parts[number];
    const std::string tipBefore = TipOf(part);
    part = {text, Fitted(text, room), room};
    const std::string tip = TipOf(part);
    if (tip != tipBefore) AskControl(SB_SETTIPTEXTA, number, reinterpret_cast<LPARAM>(tip.c_str()));
}

// Measuring texts takes longer than all else that the bar does while the frame is being resized.
static void FitPartsOfOtherWidth() {
    const int textMargins = 2 * SystemMetric(theStatusBar.window, SM_CXEDGE);
    std::vector<Part>& parts = theStatusBar.parts;
    parts.resize(static_cast<std::size_t>(AskControl(SB_GETPARTS)));
    for (std::size_t number = 0; number < parts.size(); ++number) {
        const RECT inside = InsideOf(number);
        const int room = static_cast<int>(inside.right - inside.left) - textMargins;
        if (room != parts[number].room) Fit(number, std::string(parts[number].text), room);
    }
}

static void FitAllParts() {
    for (std::size_t number = 0; number < theStatusBar.parts.size(); ++number) {
        const Part part = theStatusBar.parts[number];
        Fit(number, part.text, part.room);
    }
}

static void FitNewText(std::size_t number, const char* text) {
    if (number < theStatusBar.parts.size()) Fit(number, text ? text : "", theStatusBar.parts[number].room);
}

static void PaintCutPart(std::size_t number) {
    const RECT inside = InsideOf(number);
    if (IsRectEmpty(&inside)) return;
    const StatusDc device(theStatusBar.window);
    const int saved = SaveDC(device.dc);
    IntersectClipRect(device.dc, inside.left, inside.top, inside.right, inside.bottom);
    FillRect(device.dc, &inside, GetSysColorBrush(COLOR_BTNFACE));
    SetTextColor(device.dc, GetSysColor(COLOR_BTNTEXT));
    DrawStatusTextA(device.dc, &inside, theStatusBar.parts[number].fitted.c_str(), SBT_NOBORDERS);
    RestoreDC(device.dc, saved);
}

// Paints over the control's own text, which simply ends at the part's edge. The control keeps the whole text for those
// who ask for it, such as screen readers, and because it is cut, Windows shows the tool tip.
static void PaintCutParts() {
    for (std::size_t number = 0; number < theStatusBar.parts.size(); ++number)
        if (IsCut(theStatusBar.parts[number])) PaintCutPart(number);
}

// A new text is fitted before the control has it, because the control paints at once. The frame sets the parts again
// after every change of the bar's width.
static LRESULT CALLBACK StatusBarProcedure(HWND statusBar, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == SB_SETTEXTA) FitNewText(LOBYTE(wParam), reinterpret_cast<const char*>(lParam));
    const LRESULT result = CallWindowProcA(theStatusBar.procedure, statusBar, message, wParam, lParam);
    switch (message) {
        case WM_PAINT: PaintCutParts(); break;
        case SB_SETPARTS: FitPartsOfOtherWidth(); break;
        case WM_SETFONT:
        case WM_SETTINGCHANGE: FitAllParts(); break;
    }
    return result;
}

HWND CreateStatusBar(HWND frame) {
    const HWND statusBar = CreateChild(frame, STATUSCLASSNAMEA, "", WS_VISIBLE | SBARS_TOOLTIPS, 0, IDC_STATUS_BAR);
    if (!statusBar) return nullptr;
    theStatusBar.window = statusBar;
    theStatusBar.procedure = Subclass(statusBar, StatusBarProcedure);
    ScaleStatusBar();
    FitPartsOfOtherWidth();
    return statusBar;
}

void ScaleStatusBar() {
    const HWND statusBar = theStatusBar.window;
    SendMessageA(statusBar, WM_SETFONT, reinterpret_cast<WPARAM>(StatusFont(statusBar)), TRUE);
}

// ---- Texts ----------------------------------------------------------------------------------------------------------

std::string StatusText(StatusPart part) {
    const auto number = static_cast<std::size_t>(part);
    return number < theStatusBar.parts.size() ? theStatusBar.parts[number].text : "";
}

void ShowStatus(StatusPart part, const std::string& text) {
    if (StatusText(part) != text)
        SendMessageA(theStatusBar.window, SB_SETTEXTA, static_cast<WPARAM>(part),
                     reinterpret_cast<LPARAM>(text.c_str()));
}
