#include "win32/column_list.h"

#include <algorithm>
#include <string>
#include <string_view>

#include <usp10.h>

#include "win32/system_library.h"

static constexpr wchar_t kDots[] = L"...";

// ---- Text in several fonts ------------------------------------------------------------------------------------------

namespace {

// Looked up at run time (win32/system_library.h); null where they are missing.
struct TextShaping {
    decltype(&ScriptStringAnalyse) analyse = nullptr;
    decltype(&ScriptStringOut) draw = nullptr;
    decltype(&ScriptStringFree) release = nullptr;
    decltype(&ScriptString_pSize) size = nullptr;
};

}  // namespace

static TextShaping FindShaping() {
    const HMODULE library = SystemLibrary(L"usp10.dll");
    TextShaping shaping;
    const bool isWhole = FindProcedure(library, "ScriptStringAnalyse", shaping.analyse) &&
                         FindProcedure(library, "ScriptStringOut", shaping.draw) &&
                         FindProcedure(library, "ScriptStringFree", shaping.release) &&
                         FindProcedure(library, "ScriptString_pSize", shaping.size);
    return isWhole ? shaping : TextShaping{};
}

static const TextShaping& TheShaping() {
    static const TextShaping shaping = FindShaping();
    return shaping;
}

// Every font of the system has the letters of Latin 1.
static bool NeedsOtherFonts(std::wstring_view text) {
    return TheShaping().analyse != nullptr && std::ranges::any_of(text, [](wchar_t c) { return c > 0xFF; });
}

static SCRIPT_STRING_ANALYSIS Analysed(HDC dc, std::wstring_view text) {
    static constexpr DWORD kHow = SSA_GLYPHS | SSA_FALLBACK | SSA_LINK;
    SCRIPT_STRING_ANALYSIS analysis = nullptr;
    const int length = static_cast<int>(text.size());
    const HRESULT result = TheShaping().analyse(dc, text.data(), length, length * 3 / 2 + 16, -1, kHow, 0, nullptr,
                                                nullptr, nullptr, nullptr, nullptr, &analysis);
    return SUCCEEDED(result) ? analysis : nullptr;
}

static int PlainWidth(HDC dc, std::wstring_view text) {
    SIZE size{};
    GetTextExtentPoint32W(dc, text.data(), static_cast<int>(text.size()), &size);
    return size.cx;
}

static int WidthOf(HDC dc, std::wstring_view text) {
    SCRIPT_STRING_ANALYSIS analysis = NeedsOtherFonts(text) ? Analysed(dc, text) : nullptr;
    const SIZE* size = analysis == nullptr ? nullptr : TheShaping().size(analysis);
    const int width = size == nullptr ? PlainWidth(dc, text) : size->cx;
    if (analysis != nullptr) TheShaping().release(&analysis);
    return width;
}

static void Draw(HDC dc, std::wstring_view text, const RECT& place) {
    SCRIPT_STRING_ANALYSIS analysis = NeedsOtherFonts(text) ? Analysed(dc, text) : nullptr;
    if (analysis == nullptr) {
        ExtTextOutW(dc, place.left, place.top, ETO_CLIPPED, &place, text.data(), static_cast<UINT>(text.size()),
                    nullptr);
        return;
    }
    TheShaping().draw(analysis, place.left, place.top, ETO_CLIPPED, &place, 0, 0, FALSE);
    TheShaping().release(&analysis);
}

// As much of the beginning of `text` as has room, with dots for the rest. A letter of two halves is not divided.
static std::wstring Fitting(HDC dc, std::wstring_view text, int room) {
    if (WidthOf(dc, text) <= room) return std::wstring(text);
    std::size_t fits = 0, tooLong = text.size();
    while (tooLong - fits > 1) {
        const std::size_t middle = (fits + tooLong) / 2;
        const bool isFitting = WidthOf(dc, std::wstring(text.substr(0, middle)) + kDots) <= room;
        (isFitting ? fits : tooLong) = middle;
    }
    if (fits > 0 && IS_HIGH_SURROGATE(text[fits - 1])) --fits;
    return std::wstring(text.substr(0, fits)) + kDots;
}

// ---- Lines ----------------------------------------------------------------------------------------------------------

void FitLines(HWND dialog, const ListColumns& columns) {
    const HWND list = GetDlgItem(dialog, columns.list);
    const HDC dc = GetDC(list);
    const HGDIOBJ before = SelectObject(dc, GetWindowFont(list));
    TEXTMETRICW metrics{};
    GetTextMetricsW(dc, &metrics);
    SelectObject(dc, before);
    ReleaseDC(list, dc);
    SendMessageW(list, LB_SETITEMHEIGHT, 0, metrics.tmHeight);
    InvalidateRect(list, nullptr, TRUE);
}

static std::wstring LineText(HWND list, UINT line) {
    const LRESULT length = SendMessageW(list, LB_GETTEXTLEN, line, 0);
    if (length <= 0) return {};
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    SendMessageW(list, LB_GETTEXT, line, reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

static int Pixels(HWND dialog, int units) {
    RECT place{0, 0, units, 0};
    MapDialogRect(dialog, &place);
    return place.right;
}

static void DrawColumns(HWND dialog, const ListColumns& columns, const DRAWITEMSTRUCT& line) {
    static constexpr int kMargin = 1, kGap = 4;  // in pixels, and in units of the dialog
    const std::wstring text = LineText(line.hwndItem, line.itemID);
    std::wstring_view rest = text;
    RECT place = line.rcItem;
    place.left += kMargin;
    for (std::size_t column = 0; column <= columns.starts.size(); ++column) {
        const bool isLast = column == columns.starts.size();
        const int end = isLast ? line.rcItem.right : line.rcItem.left + Pixels(dialog, columns.starts[column]);
        place.right = isLast ? end - kMargin : end - Pixels(dialog, kGap);
        const std::wstring_view part = isLast ? rest : rest.substr(0, rest.find(L'\t'));
        Draw(line.hDC, Fitting(line.hDC, part, place.right - place.left), place);
        rest.remove_prefix(std::min(rest.size(), part.size() + 1));
        place.left = end;
    }
}

void DrawLine(HWND dialog, const ListColumns& columns, const DRAWITEMSTRUCT& line) {
    const bool isSelected = (line.itemState & ODS_SELECTED) != 0, isEnabled = IsWindowEnabled(line.hwndItem);
    const int textColor = isSelected ? COLOR_HIGHLIGHTTEXT : isEnabled ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT;
    FillRect(line.hDC, &line.rcItem, GetSysColorBrush(isSelected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    SetTextColor(line.hDC, GetSysColor(textColor));
    SetBkMode(line.hDC, TRANSPARENT);
    if (line.itemID != static_cast<UINT>(-1)) DrawColumns(dialog, columns, line);
    SetTextColor(line.hDC, GetSysColor(COLOR_WINDOWTEXT));  // of the dots of the focus
    if ((line.itemState & (ODS_FOCUS | ODS_NOFOCUSRECT)) == ODS_FOCUS) DrawFocusRect(line.hDC, &line.rcItem);
}
