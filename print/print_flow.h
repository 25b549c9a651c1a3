// Verses on pages: words placed from left to right, wrapped at the right limit, a new page where the next line would
// cross the bottom. One walk prints ranges and the Verse List; what differs between them are options.
//
// A word keeps the blank behind it, also where it is measured: one that would only fit without its blank moves to the
// next line. A line is as high as the bold face, a line of a note as high as the note's. A paragraph mark inside a
// verse and its blank are a word of their own.
#pragma once

#include <span>
#include <string_view>

#include "notes/note_source.h"
#include "output/format_options.h"
#include "scripture/scripture.h"
#include "typeset/reading_options.h"
#include "typeset/word_reader.h"

// ---- The page
// --------------------------------------------------------------------------------------------------------

// Margins as the page set-up gives them: thousandths of an inch, in metric locales hundredths of a millimetre.
struct PageMargins {
    int left = 1000, top = 1000, right = 1000, bottom = 1000;
};

struct PrinterResolution {
    int width = 0, height = 0;  // of what can be printed on, pixels
    int dotsPerInchX = 0, dotsPerInchY = 0;
};

// Where words may stand: from `left` up to `right`, from `top` down to `bottom`.
struct PageBox {
    int left = 0, top = 0, right = 0, bottom = 0;
    bool operator==(const PageBox&) const = default;
};

// Each margin is divided by 1000 in integers whatever its unit, so that it counts in whole inches: 900 are none, 1500
// are one. Pages are known to come out this way.
PageBox PageBoxFor(const PrinterResolution& printer, const PageMargins& margins);

// Font height for a printer, negative: a character height. `screenHeight` is the one on the screen, of either sign.
// Points and pixels are whole numbers on the way, points first. Dots per inch are not 0.
int PrinterFontHeight(int screenHeight, int screenDotsPerInch, int printerDotsPerInch);

// ---- The flow
// --------------------------------------------------------------------------------------------------------

enum class PrintFace : unsigned char { kRegular, kBold, kItalic, kNote };
inline constexpr int kPrintFaceCount = 4;

// A printer that takes page after page. Places and sizes are its pixels, from the upper left corner.
struct PrinterPage {
    void* device = nullptr;                                                  // handed back to all
    int (*width)(void* device, PrintFace face, std::string_view) = nullptr;  // of a text
    int (*height)(void* device, PrintFace face) = nullptr;                   // of a character cell
    void (*draw)(void* device, PrintFace face, int x, int y, int width, std::string_view text) = nullptr;
    bool (*startPage)(void* device) = nullptr;  // false when it cannot be started
    bool (*endPage)(void* device) = nullptr;
    bool (*goesOn)(void* device) = nullptr;  // asked before each verse: false once the user has had enough
};

enum class PrintLabels {
    kByFormat,   // " Genesis 1:1 " as the format's styles have it; in full where a new book begins
    kReference,  // "Genesis 1:1 " before every verse
};

struct PrintOptions {
    PageBox box;
    BracketUse brackets = BracketUse::kShownRoundItalics;
    PrintLabels labels = PrintLabels::kByFormat;
    FormatOptions format;               // of labels
    bool withFirstMark = true;          // the paragraph mark at a verse's start is printed
    bool lineAfterVerse = true;         // each verse begins a line
    const NoteSource* notes = nullptr;  // printed behind their verses; none: no notes
};

// How the Passage's verses and those of the Verse List are printed; `notes` may be null.
PrintOptions RangePrinting(const PageBox& box, const FormatOptions& format, const ReadingOptions& reading,
                           const NoteSource* notes);
PrintOptions ListPrinting(const PageBox& box, const ReadingOptions& reading);

enum class PrintResult {
    kPrinted,          // all, or up to the verse after which the user had enough
    kCannotStartPage,  // the job is over; no page is open
    kCannotReadNotes,  // the job is over; its last page was ended
};

// Prints `verses`, verse indexes, in their order on pages of their own. Indexes without a verse are left out.
PrintResult PrintVerses(const Scripture& scripture, std::span<const std::int32_t> verses, const PrintOptions& options,
                        const PrinterPage& page);
