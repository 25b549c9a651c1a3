#include "win32/dpi.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <cwchar>
#include <map>
#include <utility>

#include "win32/handles.h"
#include "win32/system_library.h"

namespace {

struct TakenDpi {
    HWND frame = nullptr;
    int dpi = kUnscaledDpi;
};

// Of user32.dll since version 1607 of Windows 10; otherwise null.
struct DpiProcedures {
    UINT(WINAPI* ofWindow)(HWND) = nullptr;
    int(WINAPI* metric)(int, UINT) = nullptr;
    BOOL(WINAPI* parameters)(UINT, UINT, void*, UINT, UINT) = nullptr;
};

struct SystemFonts {
    LOGFONTW ofMessage{}, ofStatus{};  // what the system says
    OwnedFont message;
    OwnedFont status;
};

}  // namespace

static TakenDpi taken;

// ---- Windows --------------------------------------------------------------------------------------------------------

static DpiProcedures FindProcedures() {
    DpiProcedures found;
    const HMODULE user = GetModuleHandleA("user32");
    FindProcedure(user, "GetDpiForWindow", found.ofWindow);
    FindProcedure(user, "GetSystemMetricsForDpi", found.metric);
    FindProcedure(user, "SystemParametersInfoForDpi", found.parameters);
    return found;
}

static const DpiProcedures& Procedures() {
    static const DpiProcedures procedures = FindProcedures();
    return procedures;
}

static int ReadSystemDpi() {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return dpi;
}

static int SystemDpi() {
    static const int dpi = ReadSystemDpi();  // constant while the program runs
    return dpi;
}

static bool HasTaken(HWND window) {
    return taken.frame != nullptr && (window == taken.frame || IsChild(taken.frame, window));
}

int DpiOf(HWND window) {
    if (window == nullptr) return SystemDpi();
    if (HasTaken(window)) return taken.dpi;
    const auto ofWindow = Procedures().ofWindow;
    const int dpi = ofWindow != nullptr ? static_cast<int>(ofWindow(window)) : 0;
    return dpi > 0 ? dpi : SystemDpi();
}

void TakeDpi(HWND frame, int dpi) {
    taken = {frame, dpi};
}

// ---- Sizes ----------------------------------------------------------------------------------------------------------

int ScaledTo(int dpi, int pixels) {
    return MulDiv(pixels, dpi, kUnscaledDpi);
}

int Scaled(HWND window, int pixels) {
    return ScaledTo(DpiOf(window), pixels);
}

int UnscaledFrom(int dpi, int pixels) {
    return MulDiv(pixels, kUnscaledDpi, dpi);
}

int SystemMetric(HWND window, int metric) {
    const auto metricAt = Procedures().metric;
    return metricAt != nullptr ? metricAt(metric, static_cast<UINT>(DpiOf(window))) : GetSystemMetrics(metric);
}

// ---- Fonts ----------------------------------------------------------------------------------------------------------

static NONCLIENTMETRICSW MetricsAt(int dpi) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    const auto parametersAt = Procedures().parameters;
    const bool isTold = parametersAt != nullptr &&
                        parametersAt(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, static_cast<UINT>(dpi));
    if (!isTold) SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return metrics;
}

static SystemFonts FontsAt(int dpi) {
    const NONCLIENTMETRICSW metrics = MetricsAt(dpi);
    return {metrics.lfMessageFont, metrics.lfStatusFont, OwnedFont(CreateFontIndirectW(&metrics.lfMessageFont)),
            OwnedFont(CreateFontIndirectW(&metrics.lfStatusFont))};
}

// By dots per inch. Those of other screens, and those of before, stay, because controls may still have them.
static std::map<int, SystemFonts> fonts, fontsBefore;

static const SystemFonts& FontsOf(HWND window) {
    const int dpi = DpiOf(window);
    const auto known = fonts.find(dpi);
    return known != fonts.end() ? known->second : fonts.emplace(dpi, FontsAt(dpi)).first->second;
}

HFONT MessageFont(HWND window) {
    return FontsOf(window).message.get();
}

HFONT StatusFont(HWND window) {
    return FontsOf(window).status.get();
}

static bool IsSameFont(const LOGFONTW& one, const LOGFONTW& other) {
    return std::memcmp(&one, &other, offsetof(LOGFONTW, lfFaceName)) == 0 &&
           std::wcscmp(one.lfFaceName, other.lfFaceName) == 0;
}

bool FollowSystemFonts(bool isSmoothedAnew) {
    const bool isSame = std::ranges::all_of(fonts, [](const auto& known) {
        const NONCLIENTMETRICSW metrics = MetricsAt(known.first);
        return IsSameFont(metrics.lfMessageFont, known.second.ofMessage) &&
               IsSameFont(metrics.lfStatusFont, known.second.ofStatus);
    });
    if (isSame && !isSmoothedAnew) return false;
    fontsBefore = std::exchange(fonts, {});
    return true;
}
