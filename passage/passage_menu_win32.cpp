#include "passage/passage_menu_win32.h"

#include <algorithm>

#include "notes/notes_window.h"
#include "output/output_win32.h"
#include "passage/passage_window.h"
#include "resources/ids.h"
#include "scripture/books.h"
#include "scripture/scripture_win32.h"
#include "win32/controls.h"
#include "win32/popup_menu.h"

static constexpr int kBookmarks = IDM_SET_BOOKMARK - IDM_GOTO_BOOKMARK;

// Four columns stand on a small screen too.
static bool StartsColumn(int book) {
    static constexpr int kEcclesiastes = 21, kMatthew = 40, kJames = 59;
    return book == kEcclesiastes || book == kMatthew || book == kJames;
}

static std::vector<MenuRow> BookRows() {
    std::vector<MenuRow> rows;
    for (int book = 1; book <= kBookCount; ++book) {
        rows.push_back({.command = IDM_GOTO_BOOK + book, .text = BookName(book), .startsColumn = StartsColumn(book)});
    }
    return rows;
}

// The anchor of a selection, which need not be the verse that a bookmark takes: that is the first selected.
static std::string ReferenceInMenu() {
    const PassageView& view = thePassage.view;
    const int verse = AnchorPlace(theSelection, kPassageOwns, view.TopVerse, view.LastVisibleVerse);
    return ReferenceText(theScripture.records, verse, BookForm::kAbbreviation);
}

static std::vector<MenuRow> Rows() {
    const HWND frame = FrameOf(thePassage.window);
    const std::string verse = ReferenceInMenu();
    const bool noSelection = theSelection.SelectionOwner != kPassageOwns;
    const bool editing = theNotes.editing != 0;
    return {
        {IDM_COPY, "Copy Selected Text\tCtrl+C", noSelection},
        {IDM_COPY_RANGE, "Copy Range...\tF6"},
        {IDM_SAVE_RANGE, "Save Range..."},
        {IDM_PRINT_RANGE, "Print Range..."},
        {},
        {IDM_GOTO_VERSE, "Go to Verse...\tAlt+G"},
        {.text = "Go to Book", .submenu = BookRows()},
        {IDM_PREVIOUS_CHAPTER, "Previous Chapter\tCtrl+PgUp"},
        {IDM_NEXT_CHAPTER, "Next Chapter\tCtrl+PgDn"},
        {IDM_PREVIOUS_BOOK, "Previous Book\tCtrl+Home"},
        {IDM_NEXT_BOOK, "Next Book\tCtrl+End"},
        {},
        {IDM_TODAYS_PROVERB, "Today's Proverb"},
        {.text = "Go to Bookmark", .submenu = RowsOfFrameMenu(frame, IDM_GOTO_BOOKMARK, kBookmarks)},
        {.text = "Set a Bookmark to " + verse, .submenu = RowsOfFrameMenu(frame, IDM_SET_BOOKMARK, kBookmarks)},
        {},
        {IDM_NOTE_FOR_PASSAGE, "Go to Note for " + verse + "\tF10", editing},
        {},
        {IDM_WORD_SEARCH, "Word Search with Selected Text...", noSelection},
        {IDM_PHRASE_SEARCH, "Phrase Search with Selected Text...", noSelection},
        {IDM_SEARCH_NOTES, "Search Notes with Selected Text...", noSelection},
    };
}

void OpenPassageMenu(POINT onScreen) {
    OpenPopupMenu(thePassage.window, onScreen, Rows());
}

bool IsFrameCommandOfPassage(int command) {
    static constexpr struct {
        int first, last;
    } kForwarded[] = {
        {IDM_GOTO_VERSE, IDM_GOTO_VERSE},
        {IDM_PREVIOUS_CHAPTER, IDM_NEXT_BOOK},
        {IDM_COPY_RANGE, IDM_COPY_RANGE},
        {IDM_SAVE_RANGE, IDM_SAVE_RANGE},
        {IDM_GOTO_BOOKMARK, IDM_SET_BOOKMARK + kBookmarks - 1},
        {IDM_NOTE_FOR_PASSAGE, IDM_NOTE_FOR_PASSAGE},
        {IDM_TODAYS_PROVERB, IDM_TODAYS_PROVERB},
        {IDM_PRINT_RANGE, IDM_PRINT_RANGE},
        {IDM_GOTO_BOOK + 1, IDM_GOTO_BOOK + kBookCount + 1},  // one more than there are books: the frame knows none
    };
    return std::ranges::any_of(kForwarded,
                               [command](const auto& row) { return command >= row.first && command <= row.last; });
}
