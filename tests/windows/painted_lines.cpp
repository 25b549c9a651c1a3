#include "tests/windows/painted_lines.h"

#include <algorithm>
#include <type_traits>

namespace {

struct DeleteObjectDeleter {
    void operator()(HGDIOBJ object) const { DeleteObject(object); }
};

}  // namespace
namespace {

struct DeleteDcDeleter {
    void operator()(HDC dc) const { DeleteDC(dc); }
};

}  // namespace
using UniqueFont = std::unique_ptr<std::remove_pointer_t<HFONT>, DeleteObjectDeleter>;
using UniqueBitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, DeleteObjectDeleter>;
using UniqueDc = std::unique_ptr<std::remove_pointer_t<HDC>, DeleteDcDeleter>;

namespace {

// A bitmap in the window's background colour to draw on; its pixels can be read.
struct Sheet {
    UniqueDc dc;
    UniqueBitmap bitmap;
    std::uint32_t* pixels = nullptr;
    int width = 0, height = 0;
};

}  // namespace

static Sheet EmptySheet(int width, int height) {
    Sheet sheet{UniqueDc(CreateCompatibleDC(nullptr)), nullptr, nullptr, width, height};
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    sheet.bitmap.reset(CreateDIBSection(sheet.dc.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    sheet.pixels = static_cast<std::uint32_t*>(bits);
    SelectObject(sheet.dc.get(), sheet.bitmap.get());
    const RECT all{0, 0, width, height};
    FillRect(sheet.dc.get(), &all, GetSysColorBrush(COLOR_WINDOW));
    SetBkMode(sheet.dc.get(), TRANSPARENT);
    return sheet;
}

static UniqueFont FontOf(const PaintedFont& font, Style style) {
    const bool isBold = style == Style::kBold || style == Style::kBoldItalic;
    const bool isItalic = style == Style::kItalic || style == Style::kBoldItalic;
    const int weight = isBold ? 700 : isItalic ? 400 : font.weight;
    return UniqueFont(CreateFontA(-font.height, 0, 0, 0, weight, isItalic, 0, 0, ANSI_CHARSET, OUT_STROKE_PRECIS,
                                  CLIP_STROKE_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH, font.name.c_str()));
}

int LineHeightOf(const PaintedFont& font) {
    const UniqueDc dc(CreateCompatibleDC(nullptr));
    const UniqueFont bold = FontOf(font, Style::kBold);
    const HGDIOBJ before = SelectObject(dc.get(), bold.get());
    TEXTMETRICA metrics;
    GetTextMetricsA(dc.get(), &metrics);
    SelectObject(dc.get(), before);
    return metrics.tmHeight;
}

int LinesDown(int lines) {
    return LineHeightOf() * lines + LineHeightOf() / 2;
}

static int ExtentOf(HDC dc, const std::string& text) {
    SIZE size{};
    GetTextExtentPoint32A(dc, text.data(), static_cast<int>(text.size()), &size);
    return static_cast<int>(size.cx);
}

// Draws a piece that is `width` wide; its font is already selected.
using DrawPiece = void (*)(const Sheet& sheet, int x, int width, const PaintedPiece& piece);

static void FillBehind(const Sheet& sheet, int x, int width, const PaintedPiece& piece) {
    const RECT area{x, 0, x + width, sheet.height};
    if (piece.selected) FillRect(sheet.dc.get(), &area, GetSysColorBrush(COLOR_WINDOWTEXT));
}

// Each letter is placed by the measured width of those before it, because Wine draws some faces narrower than it
// measures them.
static void DrawLetters(const Sheet& sheet, int x, int, const PaintedPiece& piece) {
    const HDC dc = sheet.dc.get();
    const int count = static_cast<int>(piece.text.size());
    std::vector<int> ends(piece.text.size());
    SIZE size{};
    GetTextExtentExPointA(dc, piece.text.data(), count, 0, nullptr, ends.data(), &size);
    SetTextColor(dc, piece.selected ? GetSysColor(COLOR_WINDOW) : piece.color);
    for (int letter = 0; letter < count; ++letter)
        TextOutA(dc, x + (letter > 0 ? ends[letter - 1] : 0), 0, piece.text.data() + letter, 1);
}

// Returns the x coordinate after the last piece.
static int DrawPieces(const Sheet& sheet, const PaintedLine& line, const PaintedFont& font, DrawPiece draw) {
    int x = line.left;
    for (const PaintedPiece& piece : line.pieces) {
        const UniqueFont face = FontOf(font, piece.style);
        const HGDIOBJ before = SelectObject(sheet.dc.get(), face.get());
        const int width = ExtentOf(sheet.dc.get(), piece.text);
        draw(sheet, x, width, piece);
        x += width;
        SelectObject(sheet.dc.get(), before);
    }
    return x;
}

// Slanted letters reach into the next piece, so all backgrounds are drawn before all letters.
static int DrawLine(const Sheet& sheet, const PaintedLine& line, const PaintedFont& font) {
    DrawPieces(sheet, line, font, FillBehind);
    const int end = DrawPieces(sheet, line, font, DrawLetters);
    GdiFlush();
    return end;
}

int WidthOf(const std::vector<PaintedPiece>& pieces, const PaintedFont& font) {
    return DrawLine(EmptySheet(1, 1), {pieces}, font);
}

// Number of pixels that differ in the columns `left` to `right`.
static int CountDifferences(const Picture& shown, int top, const Sheet& expected, int left, int right) {
    int count = 0;
    for (int y = 0; y < expected.height && top + y < shown.height; ++y)
        for (int x = left; x < right; ++x)
            if (ColorAt(shown, x, top + y) != (expected.pixels[y * expected.width + x] & 0xFFFFFF)) ++count;
    return count;
}

static std::string TextOf(const PaintedLine& line) {
    std::string text;
    for (const PaintedPiece& piece : line.pieces) text += piece.text;
    return text;
}

static int CaretWidthIn(HWND pane) {
    GUITHREADINFO state{};
    state.cbSize = sizeof state;
    GetGUIThreadInfo(GetWindowThreadProcessId(pane, nullptr), &state);
    return state.hwndCaret == pane ? static_cast<int>(state.rcCaret.right - state.rcCaret.left) : 0;
}

std::string WrongLines(HWND pane, const std::vector<PaintedLine>& lines, const PaintedFont& font) {
    const Picture shown = PictureOfClient(pane);
    const int lineHeight = LineHeightOf(font);
    std::string wrong;
    int top = 0;
    for (const PaintedLine& line : lines) {
        const Sheet expected = EmptySheet(shown.width, lineHeight);
        const int end = DrawLine(expected, line, font);
        const int compared = line.goesOn && !line.pieces.empty() ? std::min(end, shown.width) : shown.width;
        const int differences = CountDifferences(shown, top, expected, top == 0 ? CaretWidthIn(pane) : 0, compared);
        if (differences > 0)
            wrong += "not at y " + std::to_string(top) + ": \"" + TextOf(line) + "\" (" + std::to_string(differences) +
                     " pixels)\n";
        top += lineHeight;
    }
    return wrong;
}

Picture PictureOfClient(HWND window) {
    RECT area;
    GetClientRect(window, &area);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&area), 2);
    return PictureOfScreen(area);
}

static constexpr RECT kSpot{100, 300, 140, 340};

void DropSpot(HWND pane) {
    RECT place = kSpot;
    MapWindowPoints(pane, nullptr, reinterpret_cast<POINT*>(&place), 2);
    const HDC screen = GetDC(nullptr);
    const HBRUSH ink = CreateSolidBrush(RGB(255, 0, 0));
    FillRect(screen, &place, ink);
    DeleteObject(ink);
    ReleaseDC(nullptr, screen);
}

bool HasSpot(HWND pane) {
    return CountPixels(PictureOfClient(pane), kSpot, 0xFF0000) == 40 * 40;
}
