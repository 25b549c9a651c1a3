#include "pane/pane_look_win32.h"

#include "win32/system_library.h"

PaneLook thePaneLook;

// ---- What the system tells ------------------------------------------------------------------------------------------

static bool IsHighContrast() {
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

// Systems that do not know the choice have no such value.
static bool PrefersDark() {
    static constexpr wchar_t kKey[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize";
    DWORD light = 1, size = sizeof light;
    RegGetValueW(HKEY_CURRENT_USER, kKey, L"AppsUseLightTheme", RRF_RT_REG_DWORD, nullptr, &light, &size);
    return light == 0;
}

static SystemLook LookOfSystem() {
    return {.window = GetSysColor(COLOR_WINDOW),
            .windowText = GetSysColor(COLOR_WINDOWTEXT),
            .highlight = GetSysColor(COLOR_HIGHLIGHT),
            .isHighContrast = IsHighContrast(),
            .prefersDark = thePaneLook.DarkPanes == kDarkAsSystem && PrefersDark()};
}

COLORREF KeyColorToShow(COLORREF chosen) {
    return thePaneLook.isKeyColorChosen ? chosen : GetSysColor(COLOR_HIGHLIGHT);
}

bool FollowSystemLook(COLORREF keyHighlightColor) {
    const PaneColors before = thePaneLook.colors;
    thePaneLook.colors =
        PaneColorsFor(LookOfSystem(), {thePaneLook.DarkPanes, thePaneLook.isKeyColorChosen, keyHighlightColor});
    return thePaneLook.colors != before;
}

// ---- Controls -------------------------------------------------------------------------------------------------------

// Unless the panes are dark, the control takes the system's colours itself.
void ColorRichEdit(HWND richEdit) {
    const PaneColors& colors = thePaneLook.colors;
    CHARFORMATA format{};
    format.cbSize = sizeof format;
    format.dwMask = CFM_COLOR;
    format.dwEffects = colors.isDark ? 0 : CFE_AUTOCOLOR;
    format.crTextColor = colors.text;
    SendMessageA(richEdit, EM_SETBKGNDCOLOR, !colors.isDark, static_cast<LPARAM>(colors.paper));
    for (const WPARAM range : {SCF_DEFAULT, SCF_ALL})
        SendMessageA(richEdit, EM_SETCHARFORMAT, range, reinterpret_cast<LPARAM>(&format));
}

HBRUSH ColorListBox(HDC dc) {
    SetTextColor(dc, thePaneLook.colors.text);
    SetBkColor(dc, thePaneLook.colors.paper);
    SetDCBrushColor(dc, thePaneLook.colors.paper);
    return static_cast<HBRUSH>(GetStockObject(DC_BRUSH));
}

// ---- What the system draws ------------------------------------------------------------------------------------------

// A procedure of a system library that not every version of Windows has; null if it is missing.
template <typename Procedure>
static Procedure FindIn(const wchar_t* library, const char* name) {
    Procedure procedure = nullptr;
    FindProcedure(SystemLibrary(library), name, procedure);
    return procedure;
}

void DarkenScrollBars(HWND pane) {
    using SetTheme = HRESULT(WINAPI*)(HWND, const wchar_t* application, const wchar_t* classes);
    static const auto setTheme = FindIn<SetTheme>(L"uxtheme.dll", "SetWindowTheme");
    if (setTheme) setTheme(pane, thePaneLook.colors.isDark ? L"DarkMode_Explorer" : nullptr, nullptr);
}

void DarkenNewRichEdit(HWND richEdit) {
    if (!thePaneLook.colors.isDark) return;
    DarkenScrollBars(richEdit);
    ColorRichEdit(richEdit);
}

void DarkenTitle(HWND frame) {
    // DWMWA_USE_IMMERSIVE_DARK_MODE; Windows 10 before version 2004 has another number for it.
    static constexpr DWORD kDarkMode = 20, kDarkModeBefore = 19;
    using SetAttribute = HRESULT(WINAPI*)(HWND, DWORD attribute, const void* value, DWORD size);
    const auto setAttribute = FindIn<SetAttribute>(L"dwmapi.dll", "DwmSetWindowAttribute");
    if (!setAttribute) return;
    const BOOL isDark = thePaneLook.colors.isDark;
    if (FAILED(setAttribute(frame, kDarkMode, &isDark, sizeof isDark)))
        setAttribute(frame, kDarkModeBefore, &isDark, sizeof isDark);
    SetWindowPos(frame, nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}
