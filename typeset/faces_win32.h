// The faces of a pane's font, and drawing of text laid out in them.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "typeset/letter_widths_win32.h"
#include "typeset/reading_options.h"
#include "typeset/text_measure.h"
#include "win32/panes.h"

struct FaceFont {
    OwnedFont font;  // null until first used
    LetterWidths letters;
};

struct Faces {
    bool isChosen = false;  // ChooseFaces has been called
    LOGFONTA record{};
    std::array<FaceFont, kFaceCount> fonts;
    int lineHeight = 0;  // cell height of the bold face, pixels; 0 until first used
};

// The font record of `choice`: the stored height scaled and negated, stroke precisions, everything else default.
LOGFONTA FontRecord(const FontChoice& choice);

// Sets the font for the four faces: as chosen, weight 700, and italics of weight 400 and 700. Each face is created when
// it is first measured or drawn.
void ChooseFaces(Faces& faces, const FontChoice& choice);
bool HasFaces(const Faces& faces);

// Measures text with `faces`, which must outlive the result.
TextMeasure MeasureOf(Faces& faces);

enum class TextColor : unsigned char { kNormal, kSelected, kKeyWord };

// The text of one paint, collected so that it can be drawn face by face: changing the font costs more than drawing
// words.
struct TextRuns {
    struct Run {
        Face face;
        TextColor color;
        int x, y;
        int end;  // x where the next piece of the same run must begin
        std::size_t textStart, textLength;
    };
    std::vector<Run> runs;
    std::string text;
    std::vector<int> advances;  // letter advances of the run being drawn
};

// Adds a piece of text, `width` pixels wide. It extends the last run if it continues it in the same line, face and
// colour. A face whose widths do not add up is drawn piece by piece.
void AddText(TextRuns& runs, const Faces& faces, Face face, TextColor color, int x, int y, int width,
             std::string_view text);

// Fills `client` of the canvas with the window colour, draws the runs there and clears them. Key words are drawn in
// `keyWordColor`, everything else in system colours.
void DrawRuns(HDC canvas, Faces& faces, TextRuns& runs, const RECT& client, COLORREF keyWordColor);
