#include "app/print_commands_win32.h"

#include <numeric>

#include "app/frame_win32.h"
#include "app/spare_memory_win32.h"
#include "notes/note_source.h"
#include "notes/notes_window.h"
#include "output/format_dialog.h"
#include "output/range_dialog.h"
#include "passage/passage_window.h"
#include "print/printer_dialogs_win32.h"
#include "print/printing_win32.h"
#include "scripture/scripture_win32.h"
#include "verselist/verse_list_window.h"
#include "win32/controls.h"
#include "win32/dpi.h"

static std::vector<std::int32_t> VersesOf(const ParsedRange& range) {
    std::vector<std::int32_t> verses(static_cast<std::size_t>(range.last - range.first + 1));
    std::iota(verses.begin(), verses.end(), range.first);
    return verses;
}

static bool CanReadNotesOfCurrentSet() {
    return CanReadNotes(TheNoteFiles(), *CurrentSet(theNoteSets));
}

static void PrintVersesOf(const ParsedRange& range, const NoteSource* notes) {
    OwnedDc printer = AskPrinter(theFrame.window, theFrame.printerSetup);
    if (!printer) return;
    if (notes && !CanReadNotesOfCurrentSet()) return Complain(theFrame.window, kCannotOpenNotes, kPrintErrorCaption);
    PrintDocument(theFrame.window, std::move(printer), theFrame.printerSetup.page.rtMargin,
                  {"Range of Verses", theScripture, VersesOf(range), RangePrinting({}, theFormat, theReading, notes),
                   FontRecord(theFrame.fonts.passage, kUnscaledDpi), FontRecord(theFrame.fonts.notes, kUnscaledDpi)});
    NoteTextsRead();
}

// The set whose notes are printed is the current one during printing.
static void PrintWithNotes(const ParsedRange& range, int noteSet) {
    const int setBefore = theNoteSets.currentSet;
    SelectSet(theNoteSets, noteSet);
    NoteReader notes{TheNoteFiles(), *CurrentSet(theNoteSets)};
    const NoteSource source = SourceOf(notes);
    PrintVersesOf(range, &source);
    SelectSet(theNoteSets, setBefore);
    ReadNote(theNoteSets.currentVerse);
    if (setBefore != noteSet) RepaintNoteMarks();  // parts painted during printing show those of the other set
}

void ChoosePageSetup(int) {
    if (!IsPrinting()) AskPageSetup(theFrame.window, theFrame.printerSetup);
}

void PrintRange(int) {
    if (IsPrinting()) return;
    const auto asked = AskRange(theFrame.window, kPrintRange, thePassage.view.TopVerse);
    if (!asked) return;
    const HCURSOR before = BeginWait(theFrame.window);
    if (asked->noteSet == kWithoutNotes) {
        PrintVersesOf(asked->range, nullptr);
    } else {
        PrintWithNotes(asked->range, asked->noteSet);
    }
    EndWait(before);
}

void PrintVerseList(int) {
    if (IsPrinting() || theVerseList.list.ListEntries.empty()) return;
    OwnedDc printer = AskPrinter(theFrame.window, theFrame.printerSetup);
    if (!printer) return;
    const LOGFONTA font = FontRecord(theFrame.fonts.verseList, kUnscaledDpi);
    PrintDocument(
        theFrame.window, std::move(printer), theFrame.printerSetup.page.rtMargin,
        {"Verse List", theScripture, theVerseList.list.ListEntries, ListPrinting({}, theReading), font, font});
    NoteTextsRead();
}
