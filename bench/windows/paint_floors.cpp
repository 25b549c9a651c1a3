#include "bench/windows/paint_floors.h"

FaceFonts FontsOf(const FontChoice& choice) {
    FaceFonts fonts;
    for (int face = 0; face < kFaceCount; ++face) {
        LOGFONTA record = FontRecord(choice, kUnscaledDpi);
        record.lfItalic = face >= static_cast<int>(Face::kItalic);
        record.lfWeight = face % 2 == 0 ? FW_NORMAL : FW_BOLD;
        fonts[static_cast<std::size_t>(face)].reset(CreateFontIndirectA(&record));
    }
    return fonts;
}

static HFONT FontOf(const FaceFonts& fonts, Face face) {
    return fonts[static_cast<std::size_t>(face)].get();
}

void DrawWordByWord(HDC target, const FaceFonts& fonts, const std::vector<PlacedWord>& words, int width,
                    int lineHeight) {
    const HGDIOBJ fontBefore = GetCurrentObject(target, OBJ_FONT);
    int x = 1, y = 0;
    Face face = Face::kRegular;
    SelectObject(target, FontOf(fonts, face));
    for (const PlacedWord& word : words) {
        if (word.face != face) SelectObject(target, FontOf(fonts, word.face));
        face = word.face;
        const int length = static_cast<int>(word.text.size());
        SIZE size{};
        GetTextExtentPoint32A(target, word.text.data(), length, &size);
        if (x + size.cx >= width) {
            x = 1;
            y += lineHeight;
        }
        TextOutA(target, x, y, word.text.data(), length);
        x += size.cx;
    }
    SelectObject(target, fontBefore);
}

void DrawFaceByFace(HDC target, HDC canvas, const FaceFonts& fonts, const TextRuns& runs, const RECT& client) {
    const HGDIOBJ fontBefore = GetCurrentObject(canvas, OBJ_FONT);
    FillRect(canvas, &client, GetSysColorBrush(COLOR_WINDOW));
    SetBkMode(canvas, TRANSPARENT);
    for (const Face face : {Face::kRegular, Face::kBold, Face::kItalic, Face::kBoldItalic}) {
        bool taken = false;
        for (const PlacedRun& run : runs.runs) {
            if (run.face != face) continue;
            if (!taken) SelectObject(canvas, FontOf(fonts, face));
            taken = true;
            TextOutA(canvas, run.x, run.y, runs.text.data() + run.textStart, static_cast<int>(run.textLength));
        }
    }
    SelectObject(canvas, fontBefore);
    BitBlt(target, 0, 0, client.right, client.bottom, canvas, 0, 0, SRCCOPY);
}
