#include "app/passage_commands_win32.h"

#include "app/frame_win32.h"
#include "app/jump_list_win32.h"
#include "app/navigation.h"
#include "notes/note_editor_window.h"
#include "notes/notes_window.h"
#include "passage/passage_window.h"
#include "resources/help_topics.h"
#include "resources/ids.h"
#include "scripture/reference_dialog.h"
#include "scripture/scripture_win32.h"
#include "verselist/verse_list_window.h"
#include "win32/controls.h"

static void ShowPassage() {
    RunIfEnabled(theFrame.window, IDM_VIEW_PASSAGE);
}

static void GoToAsked(int verse) {
    ScrollToVerse(verse);
    RememberVerse(verse);
}

void GoToVerse(int) {
    const std::string start = ReferenceText(theScripture.records, thePassage.view.TopVerse, BookForm::kAbbreviation);
    AskVerse(theFrame.window, {"GOTOVERSE", kTopicGotoVerse, start, GoToAsked});
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

void ReadCurrentEntry(int) {
    const int verse = VerseListCurrentVerse();
    if (verse != kNoVerse) ScrollToVerse(verse);
}

void ToggleParagraphFormat(int) {
    theReading.ParagraphFormat = theReading.ParagraphFormat ? 0 : 1;
    if (theSelection.SelectionOwner == kPassageOwns) DropSelection();  // word ordinals may differ now
    RefreshCommands();
    RedisplayPassage();
}

void SetItalics(int command) {
    theReading.Italics = static_cast<std::int8_t>(command - IDM_ITALIC_TEXT);
    RefreshCommands();
    RedisplayPassage();
    RedisplayVerseList();
}

// ---- The day --------------------------------------------------------------------------------------------------------

static Date Today() {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return {now.wMonth, now.wDay};
}

void OpenDevotional(int verse) {
    const int set = theNoteSets.devotionalSet;
    if (set == kNoDevotionalSet || verse > kLastVerse) return;
    ScrollToVerse(verse);
    SendCommand(theFrame.window, IDM_NOTE_FOR_PASSAGE);
    RunIfEnabled(theFrame.window, IDM_VIEW_NOTES);
    ShowNoteOfSet(set, verse);
    RepaintNoteMarks();
}

void OpenTodaysDevotional(int command) {
    const TimeOfDay time = command == IDM_THIS_MORNING ? TimeOfDay::kMorning : TimeOfDay::kEvening;
    OpenDevotional(VerseOfDevotional(theNoteSets, Today(), time));
}

void OpenTodaysProverb(int) {
    RunIfEnabled(theFrame.window, IDM_VIEW_PASSAGE);
    ScrollToVerse(TodaysProverb(theScripture.records, Today()));
}
