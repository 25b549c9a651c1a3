#include "app/reading_commands_win32.h"

#include "app/commands_win32.h"
#include "app/frame_window.h"
#include "app/navigation.h"
#include "output/output_win32.h"
#include "passage/goto_verse_dialog.h"
#include "passage/passage_window.h"
#include "resources/ids.h"
#include "scripture/scripture_win32.h"
#include "verselist/verselist_window.h"
#include "win32/controls.h"

static void ShowPassage() {
    RunIfEnabled(theFrame.window, IDM_VIEW_PASSAGE);
}

void GoToVerse(int) {
    AskGotoVerse(theFrame.window);
    ShowPassage();
    SetFocus(thePassage.window);
}

static int NeighbourOf(int verse, int command) {
    const VerseRecords& records = theScripture.records;
    switch (command) {
        case IDM_PREVIOUS_VERSE: return verse - 1;
        case IDM_NEXT_VERSE: return verse + 1;
        case IDM_PREVIOUS_CHAPTER: return PreviousChapter(records, verse);
        case IDM_NEXT_CHAPTER: return NextChapter(records, verse);
        case IDM_PREVIOUS_BOOK: return PreviousBook(records, verse);
        case IDM_NEXT_BOOK: return NextBook(records, verse);
    }
    return verse;
}

void GoToNeighbour(int command) {
    ShowPassage();
    ScrollToVerse(NeighbourOf(thePassage.view.TopVerse, command));
}

void GoToBook(int number) {
    ScrollToVerse(VerseLookup(theScripture.records, number + 1, 1, 1));
}

void GoToBookmark(int number) {
    ScrollToVerse(theFrame.bookmarks.verses[static_cast<std::size_t>(number)]);
}

static void LabelBookmark(int number) {
    std::string label = BookmarkLabel(theScripture.records, theFrame.bookmarks, number);
    MENUITEMINFOA item{};
    item.cbSize = sizeof item;
    item.fMask = MIIM_STRING;
    item.dwTypeData = label.data();
    SetMenuItemInfoA(theFrame.menu, static_cast<UINT>(IDM_GOTO_BOOKMARK + number), FALSE, &item);
}

void SetBookmark(int number) {
    theFrame.bookmarks.verses[static_cast<std::size_t>(number)] = PassageTargetVerse();
    LabelBookmark(number);
}

void LabelBookmarks() {
    for (int number = 0; number < kBookmarkCount; ++number) LabelBookmark(number);
}

void ReadListContext(int) {
    const int verse = VerseListTargetVerse();
    if (verse != kNoVerse) ScrollToVerse(verse);
    ShowPassage();
}

void ToggleParagraphFormat(int) {
    theReading.ParagraphFormat = theReading.ParagraphFormat ? 0 : 1;
    if (theSelection.SelectionOwner == kPassageOwns) DropSelection();  // its words are counted otherwise now
    RefreshCommands();
    RedisplayPassage();
}

void SetItalics(int command) {
    theReading.Italics = static_cast<std::int8_t>(command - IDM_ITALIC_TEXT);
    RefreshCommands();
    RedisplayPassage();
    RedisplayVerseList();
}
