#include "typeset/faces_win32.h"

#include <algorithm>
#include <memory>
#include <optional>

namespace {

// A device context for measuring, kept until the program ends; each use selects its own font. It needs a bitmap
// compatible with the screen, because on a monochrome one letters have different widths.
struct MeasuringPlace {
    OwnedBitmap bitmap;
    OwnedDc dc;
};

}  // namespace

static MeasuringPlace MakeMeasuringPlace() {
    const HDC screen = GetDC(nullptr);
    MeasuringPlace place{OwnedBitmap(CreateCompatibleBitmap(screen, 1, 1)), OwnedDc(CreateCompatibleDC(screen))};
    ReleaseDC(nullptr, screen);
    SelectObject(place.dc.get(), place.bitmap.get());
    return place;
}

static HDC MeasuringDc() {
    static const MeasuringPlace place = MakeMeasuringPlace();
    return place.dc.get();
}

LOGFONTA FontRecord(const FontChoice& choice, int dpi) {
    LOGFONTA record{};
    record.lfHeight = -ScaledTo(dpi, ShownHeight(choice));
    record.lfWeight = choice.weight;
    record.lfOutPrecision = OUT_STROKE_PRECIS;
    record.lfClipPrecision = CLIP_STROKE_PRECIS;
    const std::size_t length = std::min<std::size_t>(choice.name.size(), LF_FACESIZE - 1);
    std::copy_n(choice.name.begin(), length, record.lfFaceName);
    return record;
}

void ChooseFaces(Faces& faces, const FontChoice& choice, int dpi) {
    SelectObject(MeasuringDc(), GetStockObject(SYSTEM_FONT));  // a font must not be deleted while it is selected
    for (FaceFont& face : faces.fonts) face.font.reset();
    for (OwnedFont& font : faces.underlined) font.reset();
    faces.record = FontRecord(choice, dpi);
    faces.isChosen = true;
    faces.lineHeight = 0;
}

bool HasFaces(const Faces& faces) {
    return faces.isChosen;
}

static LOGFONTA RecordOf(const Faces& faces, Face face) {
    LOGFONTA record = faces.record;
    record.lfItalic = face == Face::kItalic || face == Face::kBoldItalic;
    if (face == Face::kItalic) record.lfWeight = FW_NORMAL;
    if (face == Face::kBold || face == Face::kBoldItalic) record.lfWeight = FW_BOLD;
    return record;
}

// The font of the face, created on first use.
static FaceFont& FontOf(Faces& faces, Face face) {
    FaceFont& font = faces.fonts[static_cast<std::size_t>(face)];
    if (font.font) return font;
    const LOGFONTA record = RecordOf(faces, face);
    font.font.reset(CreateFontIndirectA(&record));
    ReadLetterWidths(font.letters, MeasuringDc(), font.font.get());
    return font;
}

static HFONT UnderlinedFontOf(Faces& faces, Face face) {
    OwnedFont& font = faces.underlined[static_cast<std::size_t>(face)];
    if (font) return font.get();
    LOGFONTA record = RecordOf(faces, face);
    record.lfUnderline = TRUE;
    font.reset(CreateFontIndirectA(&record));
    return font.get();
}

static int WidthIn(void* device, Face face, std::string_view text) {
    return WidthOf(FontOf(*static_cast<Faces*>(device), face).letters, text);
}

static int LineHeightIn(void* device) {
    Faces& faces = *static_cast<Faces*>(device);
    if (faces.lineHeight == 0) faces.lineHeight = CellHeight(FontOf(faces, Face::kBold).letters);
    return faces.lineHeight;
}

TextMeasure MeasureOf(Faces& faces) {
    return {&faces, WidthIn, LineHeightIn};
}

void AddText(TextRuns& text, const Faces& faces, Face face, TextColor color, int x, int y, int width,
             std::string_view piece) {
    AddPiece(text, faces.fonts[static_cast<std::size_t>(face)].letters.addUp, face, color, x, y, width, piece);
}

// ---- Painting -------------------------------------------------------------------------------------------------------

namespace {

// Where a part of the text is drawn.
struct Band {
    HDC canvas;
    int top = 0;  // of the pane, which is the upper edge of the canvas
    int width = 0, height = 0;
};

}  // namespace

static void TakeColors(HDC canvas, TextColor color, const PaneColors& colors) {
    const bool selected = color == TextColor::kSelected;
    SetTextColor(canvas, color == TextColor::kKeyWord ? colors.keyWord : selected ? colors.paper : colors.text);
    SetBkColor(canvas, selected ? colors.text : colors.paper);
}

// Positions each letter at the sum of the widths before it, because a device may draw a whole line narrower or wider.
static void DrawRun(const Band& band, Faces& faces, const PlacedRun& run, std::string_view letters) {
    const FaceFont& face = faces.fonts[static_cast<std::size_t>(run.face)];
    faces.advances.clear();
    for (const char letter : letters) faces.advances.push_back(face.letters.widths[static_cast<unsigned char>(letter)]);
    ExtTextOutA(band.canvas, run.x, run.y - band.top, 0, nullptr, letters.data(), static_cast<UINT>(letters.size()),
                face.letters.addUp ? faces.advances.data() : nullptr);
}

// Changing the font costs more than drawing words, so one face is drawn after the other.
static void DrawFace(const Band& band, Faces& faces, Face face, const TextRuns& text, const RunSpan& span,
                     const PaneColors& colors) {
    std::optional<TextColor> color;  // taken last
    std::optional<bool> underlined;  // the font selected last
    for (std::size_t at = span.first; at < span.end; ++at) {
        const PlacedRun& run = text.runs[at];
        if (run.face != face) continue;
        const bool isUnderlined = colors.underlinesKeyWords && run.color == TextColor::kKeyWord;
        if (underlined != isUnderlined)
            SelectObject(band.canvas, isUnderlined ? UnderlinedFontOf(faces, face) : FontOf(faces, face).font.get());
        if (color != run.color) TakeColors(band.canvas, run.color, colors);
        underlined = isUnderlined;
        color = run.color;
        DrawRun(band, faces, run, TextOf(text, run));
    }
}

static void DrawBand(const Band& band, Faces& faces, const TextRuns& text, int lineHeight, const PaneColors& colors) {
    const RECT whole{0, 0, band.width, band.height};
    FillWithColor(band.canvas, whole, colors.paper);
    SetBkMode(band.canvas, OPAQUE);
    const HGDIOBJ fontBefore = GetCurrentObject(band.canvas, OBJ_FONT);
    // Letters may reach into the lines above and below.
    const RunSpan span = RunsBetween(text, band.top - lineHeight, band.top + band.height + lineHeight);
    for (int face = 0; face < kFaceCount; ++face) DrawFace(band, faces, static_cast<Face>(face), text, span, colors);
    SelectObject(band.canvas, fontBefore);
}

static bool IsLineVisible(HDC target, const RECT& client, int top, int lineHeight) {
    const RECT line{0, top, client.right, std::min<LONG>(top + lineHeight, client.bottom)};
    return RectVisible(target, &line) != 0;
}

void PaintText(HDC target, Canvas& canvas, Faces& faces, const TextRuns& text, const RECT& client,
               const PaneColors& colors) {
    static constexpr int kMostPixels = 1 << 19;
    const int lineHeight = LineHeightOf(MeasureOf(faces));
    const int width = std::max(1, static_cast<int>(client.right)), bottom = static_cast<int>(client.bottom);
    const int mostHeight = std::max(1, kMostPixels / width / lineHeight) * lineHeight;
    for (int top = 0; top < bottom;) {
        const int start = top;
        const int most = std::min(start + mostHeight, bottom);
        while (top < most && IsLineVisible(target, client, top, lineHeight)) top += lineHeight;
        if (top == start) {
            top += lineHeight;
            continue;
        }
        const int height = std::min(top, bottom) - start;
        const Band band{CanvasFor(canvas, target, width, std::min(mostHeight, bottom)), start, width, height};
        DrawBand(band, faces, text, lineHeight, colors);
        BitBlt(target, 0, start, width, height, band.canvas, 0, 0, SRCCOPY);
    }
}
