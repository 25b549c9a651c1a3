#include "typeset/faces_win32.h"

#include <algorithm>
#include <memory>

#include "win32/screen.h"

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

LOGFONTA FontRecord(const FontChoice& choice) {
    LOGFONTA record{};
    record.lfHeight = -Scaled(choice.height);
    record.lfWeight = choice.weight;
    record.lfOutPrecision = OUT_STROKE_PRECIS;
    record.lfClipPrecision = CLIP_STROKE_PRECIS;
    const std::size_t length = std::min<std::size_t>(choice.name.size(), LF_FACESIZE - 1);
    std::copy_n(choice.name.begin(), length, record.lfFaceName);
    return record;
}

void ChooseFaces(Faces& faces, const FontChoice& choice) {
    SelectObject(MeasuringDc(), GetStockObject(SYSTEM_FONT));  // a font must not be deleted while it is selected
    for (FaceFont& face : faces.fonts) face.font.reset();
    faces.record = FontRecord(choice);
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

void AddText(TextRuns& runs, const Faces& faces, Face face, TextColor color, int x, int y, int width,
             std::string_view text) {
    if (!runs.runs.empty() && faces.fonts[static_cast<std::size_t>(face)].letters.addUp) {
        TextRuns::Run& last = runs.runs.back();
        if (last.face == face && last.color == color && last.y == y && last.end == x) {
            runs.text += text;
            last.textLength += text.size();
            last.end += width;
            return;
        }
    }
    runs.runs.push_back({face, color, x, y, x + width, runs.text.size(), text.size()});
    runs.text += text;
}

static void TakeColors(HDC canvas, TextColor color, COLORREF keyWordColor) {
    const COLORREF letters = GetSysColor(COLOR_WINDOWTEXT);
    const COLORREF paper = GetSysColor(COLOR_WINDOW);
    const bool selected = color == TextColor::kSelected;
    SetTextColor(canvas, color == TextColor::kKeyWord ? keyWordColor : selected ? paper : letters);
    SetBkColor(canvas, selected ? letters : paper);
}

// Positions each letter at the sum of the widths before it, because a device may draw a whole line narrower or wider.
static void DrawRun(HDC canvas, FaceFont& face, TextRuns& runs, const TextRuns::Run& run) {
    const std::string_view text = std::string_view(runs.text).substr(run.textStart, run.textLength);
    runs.advances.clear();
    for (const char letter : text) runs.advances.push_back(face.letters.widths[static_cast<unsigned char>(letter)]);
    ExtTextOutA(canvas, run.x, run.y, 0, nullptr, text.data(), static_cast<UINT>(text.size()),
                face.letters.addUp ? runs.advances.data() : nullptr);
}

void DrawRuns(HDC canvas, Faces& faces, TextRuns& runs, const RECT& client, COLORREF keyWordColor) {
    FillRect(canvas, &client, GetSysColorBrush(COLOR_WINDOW));
    SetBkMode(canvas, OPAQUE);
    const HGDIOBJ fontBefore = GetCurrentObject(canvas, OBJ_FONT);
    for (std::size_t face = 0; face < faces.fonts.size(); ++face) {
        bool fontTaken = false;
        for (const TextRuns::Run& run : runs.runs) {
            if (static_cast<std::size_t>(run.face) != face) continue;
            if (!fontTaken) SelectObject(canvas, FontOf(faces, run.face).font.get());
            fontTaken = true;
            TakeColors(canvas, run.color, keyWordColor);
            DrawRun(canvas, faces.fonts[face], runs, run);
        }
    }
    SelectObject(canvas, fontBefore);
    runs.runs.clear();
    runs.text.clear();
}
