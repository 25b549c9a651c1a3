// The faces of a pane's font, and drawing of text laid out in them.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "typeset/letter_widths_win32.h"
#include "typeset/pane_colors.h"
#include "typeset/reading_options.h"
#include "typeset/text_measure.h"
#include "typeset/text_runs.h"
#include "win32/dpi.h"
#include "win32/panes.h"

struct FaceFont {
    OwnedFont font;  // null until first used
    LetterWidths letters;
};

struct Faces {
    bool isChosen = false;  // ChooseFaces has been called
    LOGFONTA record{};
    std::array<FaceFont, kFaceCount> fonts;
    std::array<OwnedFont, kFaceCount> underlined;  // the same underlined, with the same widths; null until first used
    int lineHeight = 0;                            // cell height of the bold face, pixels; 0 until first used
    std::vector<int> advances;                     // of the letters of the run being drawn
};

// The font record of `choice`: the shown height scaled to `dpi` and negated, stroke precisions, everything else
// default.
LOGFONTA FontRecord(const FontChoice& choice, int dpi);

// Sets the font for the four faces, scaled to `dpi`: as chosen, weight 700, and italics of weight 400 and 700. Each
// face is created when it is first measured or drawn.
void ChooseFaces(Faces& faces, const FontChoice& choice, int dpi);
bool HasFaces(const Faces& faces);

// Measures text with `faces`, which must outlive the result.
TextMeasure MeasureOf(Faces& faces);

// Adds a piece of text, `width` pixels wide, to `text`. Pieces of a face whose widths do not add up do not join.
void AddText(TextRuns& text, const Faces& faces, Face face, TextColor color, int x, int y, int width,
             std::string_view piece);

// Paints all of `client` that the clipping region of `target` has: the paper and `text`, whose lines are those of
// MeasureOf(faces). A large area is painted in bands of two megabytes, each drawn on the canvas and copied in one step.
void PaintText(HDC target, Canvas& canvas, Faces& faces, const TextRuns& text, const RECT& client,
               const PaneColors& colors);
