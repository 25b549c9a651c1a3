// The faces of a pane's font, and the drawing of what a flow has laid out in them.
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
    OwnedFont font;  // null until the face is first asked for
    LetterWidths letters;
};

struct Faces {
    LOGFONTA record{};
    std::array<FaceFont, kFaceCount> fonts;
    int lineHeight = 0;  // cell height of the bold face, pixels; 0 until it is first asked for
};

// The font record of `choice`: height minus the stored one, stroke precisions, all else by default.
LOGFONTA FontRecord(const FontChoice& choice);

// Takes the font for the four faces: as chosen, weight 700, and italics of weight 400 and 700. Each is made when it is
// first measured or drawn.
void ChooseFaces(Faces& faces, const FontChoice& choice);
bool HasFaces(const Faces& faces);

// Measures with `faces`, which must outlive it.
TextMeasure MeasureOf(Faces& faces);

enum class TextColor : unsigned char { kNormal, kSelected, kKeyWord };

// What one paint draws, gathered so that it is drawn face by face: a change of font costs more than the words.
struct TextRuns {
    struct Run {
        Face face;
        TextColor color;
        int x, y;
        int end;  // where the next piece of the same run must begin
        std::size_t textStart, textLength;
    };
    std::vector<Run> runs;
    std::string text;
    std::vector<int> advances;  // from letter to letter, of the run being drawn
};

// Adds a piece of text, `width` wide, behind the last one where it goes on in the same line, face and colour. A face
// whose widths do not add up is drawn piece by piece.
void AddText(TextRuns& runs, const Faces& faces, Face face, TextColor color, int x, int y, int width,
             std::string_view text);

// Clears `client` of the canvas to the window colour, draws the runs there and empties them. Key words take
// `keyWordColor`; all else the system's colours.
void DrawRuns(HDC canvas, Faces& faces, TextRuns& runs, const RECT& client, COLORREF keyWordColor);
