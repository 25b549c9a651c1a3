#include "tests/windows/painted_lines.h"

#include <algorithm>
#include <type_traits>

struct DeleteObjectDeleter {
    void operator()(HGDIOBJ object) const { DeleteObject(object); }
};
struct DeleteDcDeleter {
    void operator()(HDC dc) const { DeleteDC(dc); }
};
using UniqueFont = std::unique_ptr<std::remove_pointer_t<HFONT>, DeleteObjectDeleter>;
using UniqueBitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, DeleteObjectDeleter>;
using UniqueDc = std::unique_ptr<std::remove_pointer_t<HDC>, DeleteDcDeleter>;

// A sheet of the window's colour to draw on; its pixels can be read.
struct Sheet {
    UniqueDc dc;
    UniqueBitmap bitmap;
    std::uint32_t* pixels = nullptr;
    int width = 0, height = 0;
};

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

// Draws `text` and gives where more would stand. Each letter stands where the width of those before it says: left
// alone, Wine draws some faces narrower than it measures them.
static int DrawLetters(HDC dc, int x, const std::string& text) {
    const int count = static_cast<int>(text.size());
    std::vector<int> ends(text.size());
    SIZE size{};
    GetTextExtentExPointA(dc, text.data(), count, 0, nullptr, ends.data(), &size);
    for (int letter = 0; letter < count; ++letter)
        TextOutA(dc, x + (letter > 0 ? ends[letter - 1] : 0), 0, text.data() + letter, 1);
    return x + static_cast<int>(size.cx);
}

static int DrawLine(const Sheet& sheet, const PaintedLine& line, const PaintedFont& font) {
    int x = line.left;
    for (const PaintedPiece& piece : line.pieces) {
        const UniqueFont face = FontOf(font, piece.style);
        const HGDIOBJ before = SelectObject(sheet.dc.get(), face.get());
        SetTextColor(sheet.dc.get(), piece.color);
        x = DrawLetters(sheet.dc.get(), x, piece.text);
        SelectObject(sheet.dc.get(), before);
    }
    GdiFlush();
    return x;
}

int WidthOf(const std::vector<PaintedPiece>& pieces, const PaintedFont& font) {
    return DrawLine(EmptySheet(1, 1), {pieces}, font);
}

// How many pixels of the first `width` columns differ.
static int CountDifferences(const Picture& shown, int top, const Sheet& expected, int width) {
    int count = 0;
    for (int y = 0; y < expected.height && top + y < shown.height; ++y)
        for (int x = 0; x < width; ++x)
            if (ColorAt(shown, x, top + y) != (expected.pixels[y * expected.width + x] & 0xFFFFFF)) ++count;
    return count;
}

static std::string TextOf(const PaintedLine& line) {
    std::string text;
    for (const PaintedPiece& piece : line.pieces) text += piece.text;
    return text;
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
        const int differences = CountDifferences(shown, top, expected, compared);
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
