#include "print/print_flow.h"

#include <algorithm>
#include <cstdlib>

#include "typeset/label_text.h"
#include "typeset/line_walk.h"

// ---- The page -------------------------------------------------------------------------------------------------------

static int WholeInches(int margin) {
    return margin / 1000;
}

PageBox PageBoxFor(const PrinterResolution& printer, const PageMargins& margins) {
    return {printer.dotsPerInchX * WholeInches(margins.left), printer.dotsPerInchY * WholeInches(margins.top),
            printer.width - printer.dotsPerInchX * WholeInches(margins.right),
            printer.height - printer.dotsPerInchY * WholeInches(margins.bottom)};
}

int TabDistanceFor(const PrinterResolution& printer) {
    return std::max(1, printer.dotsPerInchX / 2);
}

int PrinterFontHeight(int screenHeight, int screenDotsPerInch, int printerDotsPerInch) {
    static constexpr int kPointsPerInch = 72;
    const int points = std::abs(screenHeight) * kPointsPerInch / screenDotsPerInch;
    return -(points * printerDotsPerInch / kPointsPerInch);
}

// ---- The flow -------------------------------------------------------------------------------------------------------

static constexpr std::size_t kLongestNoteWord = 100;

namespace {

// State of a print job.
struct PrintWalk {
    const Scripture& scripture;
    const PrintOptions& options;
    const PrinterPage& page;
    LineWalk line{};
    int lineHeight = 0, noteLineHeight = 0;
    bool begun = false;  // the first verse was begun
    int previousBook = 0;
    WordReader reader{};
    std::string note{};
    PrintFace noteFace = PrintFace::kNote;
    PrintResult result = PrintResult::kPrinted;
};

}  // namespace

// ---- The pen --------------------------------------------------------------------------------------------------------

static void GoToTop(PrintWalk& walk) {
    walk.line.x = walk.options.box.left;
    walk.line.y = walk.options.box.top;
}

static void GoDown(PrintWalk& walk, int lineHeight) {
    walk.line.lineHeight = lineHeight;
    BreakLine(walk.line);
}

static bool StartPage(PrintWalk& walk) {
    if (walk.page.startPage(walk.page.device)) return true;
    walk.result = PrintResult::kCannotStartPage;
    return false;
}

static bool TurnPage(PrintWalk& walk) {
    GoToTop(walk);
    walk.page.endPage(walk.page.device);
    return StartPage(walk);
}

// Moves the pen to where a word of this size fits, if necessary on a new page. False if the page cannot be started.
static bool MakeRoom(PrintWalk& walk, int width, int height, int lineHeight) {
    walk.line.lineHeight = lineHeight;
    WrapBefore(walk.line, width);
    return walk.line.y + height <= walk.options.box.bottom || TurnPage(walk);
}

static void PlaceAtPen(PrintWalk& walk, PrintFace face, int width, std::string_view text) {
    walk.page.draw(walk.page.device, face, walk.line.x, walk.line.y, width, text);
    walk.line.x += width;
}

static bool PlaceText(PrintWalk& walk, PrintFace face, int lineHeight, std::string_view text) {
    const int width = walk.page.width(walk.page.device, face, text);
    if (!MakeRoom(walk, width, walk.page.height(walk.page.device, face), lineHeight)) return false;
    PlaceAtPen(walk, face, width, text);
    return true;
}

// ---- Labels ---------------------------------------------------------------------------------------------------------

static void AppendLabel(const PrintWalk& walk, const VerseRecord& record, LabelText& label) {
    const FormatOptions& format = walk.options.format;
    int style = walk.begun ? format.SubsequentVerseStyle : format.FirstVerseStyle;
    if (walk.begun && record.book != walk.previousBook) style = kFullLabel;
    if (style != kFullLabel && style != kPartialLabel) return;
    AppendText(label, " ");
    if (style == kFullLabel) {
        AppendReference(label, record, BookForm::kName);
    } else {
        AppendNumber(label, record.chapter);
        AppendText(label, ":");
        AppendNumber(label, record.verse);
    }
    AppendText(label, " ");
}

static bool PlaceLabel(PrintWalk& walk, const VerseRecord& record) {
    LabelText label;
    if (walk.options.labels == PrintLabels::kReference) {
        AppendReference(label, record, BookForm::kName);
        AppendText(label, " ");
    } else {
        AppendLabel(walk, record, label);
    }
    walk.begun = true;
    walk.previousBook = record.book;
    if (label.size > 0) return PlaceText(walk, PrintFace::kBold, walk.lineHeight, TextOf(label));
    // Verses without labels in one line are separated by a blank, as in copied text.
    if (walk.line.x > walk.options.box.left) walk.line.x += walk.page.width(walk.page.device, PrintFace::kRegular, " ");
    return true;
}

// ---- Words of a verse -----------------------------------------------------------------------------------------------

static PrintFace FaceOf(const WordPiece& piece) {
    switch (piece.face) {
        case Face::kBold: return PrintFace::kBold;
        case Face::kItalic:
        case Face::kBoldItalic: return PrintFace::kItalic;
        case Face::kRegular: break;
    }
    return PrintFace::kRegular;
}

static bool PlacePieces(PrintWalk& walk, std::span<WordPiece> pieces) {
    int width = 0, height = 0;
    for (WordPiece& piece : pieces) {
        piece.width = walk.page.width(walk.page.device, FaceOf(piece), piece.text);
        width += piece.width;
        height = std::max(height, walk.page.height(walk.page.device, FaceOf(piece)));
    }
    if (!MakeRoom(walk, width, height, walk.lineHeight)) return false;
    for (const WordPiece& piece : pieces) PlaceAtPen(walk, FaceOf(piece), piece.width, piece.text);
    return true;
}

// Removes the blank after the last word of a verse, because the label that follows begins with one.
static void TakeClosingBlank(std::vector<WordPiece>& pieces) {
    if (pieces.empty()) return;
    pieces.back().text.remove_suffix(1);
    if (pieces.back().text.empty()) pieces.pop_back();
}

static bool PlaceWord(PrintWalk& walk) {
    std::vector<WordPiece>& pieces = walk.reader.pieces;
    if (HasVerseEnded(walk.reader)) TakeClosingBlank(pieces);
    if (pieces.empty()) return true;
    const bool endsWithMark = pieces.back().text.front() == kParagraphMark;
    if (!endsWithMark || pieces.size() == 1) return PlacePieces(walk, pieces);
    const std::span<WordPiece> all(pieces);
    return PlacePieces(walk, all.first(all.size() - 1)) && PlacePieces(walk, all.last(1));
}

static bool PlaceWords(PrintWalk& walk, std::string_view text) {
    if (!walk.options.withFirstMark && BeginsParagraph(text)) text.remove_prefix(1);
    OpenVerse(walk.reader, text);
    while (ReadWord(walk.reader)) {
        if (!PlaceWord(walk)) return false;
    }
    return true;
}

// ---- Notes ----------------------------------------------------------------------------------------------------------

// Does a letter begin with this byte? Not if it belongs to the one before it.
static bool BeginsLetter(PrintFace face, char byte) {
    return face == PrintFace::kNote || (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

// In bytes. Marks that stand above or below another letter belong to it.
static std::size_t FirstLetterSize(PrintFace face, std::string_view text) {
    if (face == PrintFace::kNote) return 1;
    std::string_view rest = text;
    const auto isMark = [](char32_t letter) {
        return (letter >= 0x300 && letter < 0x370) || (letter >= 0x591 && letter < 0x5C8 && letter != 0x5BE);
    };
    for (bool isFirst = true; !rest.empty(); isFirst = false) {
        std::string_view behind = rest;
        const auto letter = TakeLetter(behind);
        if (!letter || (!isFirst && !isMark(*letter))) break;
        rest = behind;
    }
    return std::max<std::size_t>(1, text.size() - rest.size());
}

// How many bytes at the start of a word fit on an empty line; at least one letter, even if the line is too narrow.
static std::size_t BytesOnALine(const PrintWalk& walk, std::string_view word) {
    const auto fits = [&](std::size_t count) {
        const int width = walk.page.width(walk.page.device, walk.noteFace, word.substr(0, count));
        return walk.line.lineStart + width < walk.line.limit;
    };
    if (fits(word.size())) return word.size();
    std::size_t count = FirstLetterSize(walk.noteFace, word);
    while (count < word.size()) {
        const std::size_t next = count + FirstLetterSize(walk.noteFace, word.substr(count));
        if (next >= word.size() || !fits(next)) break;
        count = next;
    }
    return count;
}

// A word that is wider than a line is placed in parts as wide as a line.
static bool PlaceNoteWord(PrintWalk& walk, std::string& word) {
    std::string_view rest = word;
    while (!rest.empty()) {
        const std::string_view part = rest.substr(0, BytesOnALine(walk, rest));
        if (!PlaceText(walk, walk.noteFace, walk.noteLineHeight, part)) return false;
        rest.remove_prefix(part.size());
    }
    word.clear();
    return true;
}

// Moves the pen to the next tab stop.
static void PassTab(LineWalk& line, int distance) {
    line.x += distance - (line.x - line.lineStart) % distance;
}

static std::size_t LetterCount(PrintFace face, std::string_view word) {
    const auto begins = [face](char byte) { return BeginsLetter(face, byte); };
    return static_cast<std::size_t>(std::count_if(word.begin(), word.end(), begins));
}

static bool IsFullWord(PrintFace face, std::string_view word) {
    return word.size() >= kLongestNoteWord && LetterCount(face, word) >= kLongestNoteWord;
}

static void PlaceBlank(PrintWalk& walk, int width) {
    if (walk.noteFace == PrintFace::kUtf8Note)
        PlaceAtPen(walk, walk.noteFace, width, " ");
    else
        walk.line.x += width;
}

static bool PlaceNoteCharacter(PrintWalk& walk, int blankWidth, char character, std::string& word) {
    if (character == '\n') return true;
    if (character != ' ' && character != '\t' && character != '\r') {
        const bool isFull = BeginsLetter(walk.noteFace, character) && IsFullWord(walk.noteFace, word);
        if (isFull && !PlaceNoteWord(walk, word)) return false;
        word.push_back(character);
        return true;
    }
    if (!PlaceNoteWord(walk, word)) return false;
    if (character == ' ') PlaceBlank(walk, blankWidth);
    if (character == '\t') PassTab(walk.line, walk.options.tabDistance);
    if (character == '\r') GoDown(walk, walk.noteLineHeight);
    return true;
}

static bool PlaceNote(PrintWalk& walk) {
    const bool isInUtf8 = IsInUtf8(walk.note);
    walk.noteFace = isInUtf8 ? PrintFace::kUtf8Note : PrintFace::kNote;
    const int blankWidth = walk.page.width(walk.page.device, walk.noteFace, " ");
    walk.line.y += walk.lineHeight;
    std::string word;
    for (const char character : std::string_view(walk.note).substr(isInUtf8 ? kUtf8Mark.size() : 0)) {
        if (!PlaceNoteCharacter(walk, blankWidth, character, word)) return false;
    }
    if (!PlaceNoteWord(walk, word)) return false;
    GoDown(walk, walk.noteLineHeight);
    return true;
}

static bool EndVerse(PrintWalk& walk, int verse) {
    const NoteSource* notes = walk.options.notes;
    const NoteFound found = notes ? notes->noteOf(notes->device, verse, walk.note) : NoteFound::kNone;
    if (found == NoteFound::kUnreadable) {
        walk.result = PrintResult::kCannotReadNotes;
        return false;
    }
    const bool hasNote = found == NoteFound::kNote;
    if (walk.options.lineAfterVerse || hasNote) GoDown(walk, walk.lineHeight);
    return !hasNote || PlaceNote(walk);
}

// ---- The job --------------------------------------------------------------------------------------------------------

static bool PrintVerse(PrintWalk& walk, int verse) {
    const VerseRecord record = RecordOf(walk.scripture.records, verse);
    if (record.book == 0) return true;
    return PlaceLabel(walk, record) && PlaceWords(walk, VerseText(walk.scripture, verse)) && EndVerse(walk, verse);
}

static void PrintAll(PrintWalk& walk, std::span<const std::int32_t> verses) {
    for (const int verse : verses) {
        if (!walk.page.goesOn(walk.page.device) || !PrintVerse(walk, verse)) return;
    }
}

PrintResult PrintVerses(const Scripture& scripture, std::span<const std::int32_t> verses, const PrintOptions& options,
                        const PrinterPage& page) {
    PrintWalk walk{scripture, options, page};
    walk.lineHeight = page.height(page.device, PrintFace::kBold);
    walk.noteLineHeight = options.notes ? page.height(page.device, PrintFace::kNote) : 0;
    walk.reader.brackets = options.brackets;
    walk.line.lineStart = options.box.left;
    walk.line.limit = options.box.right + 1;  // a word may reach the right edge of the box
    if (!StartPage(walk)) return walk.result;
    GoToTop(walk);
    PrintAll(walk, verses);
    if (walk.result != PrintResult::kCannotStartPage) page.endPage(page.device);
    return walk.result;
}

// ---- Options --------------------------------------------------------------------------------------------------------

// Unlike on the screen, italic words are printed with their brackets.
static BracketUse PrintedBrackets(const ReadingOptions& reading) {
    return BracketsOf(reading, BracketUse::kShownRoundItalics);
}

PrintOptions RangePrinting(const PageBox& box, const FormatOptions& format, const ReadingOptions& reading,
                           const NoteSource* notes) {
    return {box,    PrintedBrackets(reading),   PrintLabels::kByFormat,
            format, format.ParagraphMarks != 0, format.LineBreaks != 0,
            notes};
}

PrintOptions ListPrinting(const PageBox& box, const ReadingOptions& reading) {
    PrintOptions options;
    options.box = box;
    options.brackets = PrintedBrackets(reading);
    options.labels = PrintLabels::kReference;
    return options;
}
