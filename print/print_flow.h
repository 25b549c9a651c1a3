// Layout of printed verses: words are placed from left to right and wrapped at the right edge, and a new page starts
// when the next line would cross the bottom edge. Ranges and the Verse List are printed by the same walk with different
// options.
//
// A word is measured with the blank after it, so a word that would only fit without its blank moves to the next line.
// Line height is that of the bold face, in notes that of the note face. A paragraph mark inside a verse, with its
// blank, is a word by itself.
//
// In notes a tab leaves the line blank up to the next tab stop. A word of a note that is wider than a line is broken at
// the right edge, so that nothing of it is lost; each line has at least one character, even if it is too narrow for it.
//
// A note in UTF-8 (notes/note_letters.h) is printed in the same way. Its blanks are drawn as well, so that a device
// that draws a line at once sees all of it: Hebrew words stand in a line from right to left.
#pragma once

#include <span>
#include <string_view>

#include "notes/note_source.h"
#include "output/format_options.h"
#include "scripture/scripture.h"
#include "typeset/reading_options.h"
#include "typeset/word_reader.h"

// ---- The page -------------------------------------------------------------------------------------------------------

// Margins in the unit of the page set-up dialog: thousandths of an inch, in metric locales hundredths of a millimetre.
struct PageMargins {
    int left = 1000, top = 1000, right = 1000, bottom = 1000;
};

struct PrinterResolution {
    int width = 0, height = 0;  // of the printable area, pixels
    int dotsPerInchX = 0, dotsPerInchY = 0;
};

// The area for text, in pixels.
struct PageBox {
    int left = 0, top = 0, right = 0, bottom = 0;
    bool operator==(const PageBox&) const = default;
};

// The area inside `margins`. Whatever their unit, they are divided by 1000 as integers and count as whole inches: 900
// becomes 0, 1500 becomes 1. Kept on purpose: users know their pages to be printed this way.
PageBox PageBoxFor(const PrinterResolution& printer, const PageMargins& margins);

// Distance of the tab stops of printed notes, in pixels, at least 1: half an inch, as in the Notes window and the note
// editor.
int TabDistanceFor(const PrinterResolution& printer);

// Font height for a printer: negative, which means a character height. `screenHeight` is the height on the screen, of
// either sign. It is converted to points first; points and pixels are both rounded down to whole numbers. Dots per inch
// must not be 0.
int PrinterFontHeight(int screenHeight, int screenDotsPerInch, int printerDotsPerInch);

// ---- The flow -------------------------------------------------------------------------------------------------------

// kUtf8Note is the note face for texts in UTF-8; all others are in the code page.
enum class PrintFace : unsigned char { kRegular, kBold, kItalic, kNote, kUtf8Note };
inline constexpr int kPrintFaceCount = 5;

// A printer, used for one page after the other. Positions and sizes are in its pixels, from the upper left corner.
struct PrinterPage {
    void* device = nullptr;                                                  // passed to all procedures
    int (*width)(void* device, PrintFace face, std::string_view) = nullptr;  // of a text
    int (*height)(void* device, PrintFace face) = nullptr;                   // of a character cell
    void (*draw)(void* device, PrintFace face, int x, int y, int width, std::string_view text) = nullptr;
    bool (*startPage)(void* device) = nullptr;  // false if it cannot be started
    bool (*endPage)(void* device) = nullptr;
    bool (*goesOn)(void* device) = nullptr;  // called before each verse: false once the user has cancelled
};

enum class PrintLabels {
    kByFormat,   // " Genesis 1:1 " in the format's styles; always full where a new book begins
    kReference,  // "Genesis 1:1 " before every verse
};

struct PrintOptions {
    PageBox box;
    BracketUse brackets = BracketUse::kShownRoundItalics;
    PrintLabels labels = PrintLabels::kByFormat;
    FormatOptions format;               // of labels
    bool withFirstMark = true;          // the paragraph mark at a verse's start is printed
    bool lineAfterVerse = true;         // each verse starts a new line
    const NoteSource* notes = nullptr;  // each printed after its verse; null: no notes
    int tabDistance = 1;                // of the tab stops in notes, from the left edge: pixels, at least 1
};

// The options for printing a range and the Verse List. `notes` may be null.
PrintOptions RangePrinting(const PageBox& box, const FormatOptions& format, const ReadingOptions& reading,
                           const NoteSource* notes);
PrintOptions ListPrinting(const PageBox& box, const ReadingOptions& reading);

enum class PrintResult {
    kPrinted,          // everything, or all verses before the user cancelled
    kCannotStartPage,  // printing stopped; no page is open
    kCannotReadNotes,  // printing stopped; the last page was ended
};

// Prints `verses` (verse indexes) in the given order, starting on a new page. Indexes without a verse are skipped.
PrintResult PrintVerses(const Scripture& scripture, std::span<const std::int32_t> verses, const PrintOptions& options,
                        const PrinterPage& page);
