#include "verselist/verse_list_menu_win32.h"

#include "notes/notes_window.h"
#include "output/output_win32.h"
#include "resources/ids.h"
#include "scripture/scripture_win32.h"
#include "verselist/verselist_window.h"
#include "win32/popup_menu.h"

// F10 in the row of the note is as it always was, though the key is F9.
static std::vector<MenuRow> Rows(const std::string& verse) {
    const bool noSelection = theSelection.SelectionOwner != kVerseListOwns;
    const bool editing = theNotes.editing != 0;
    return {
        {IDM_COPY, "Copy Selected Text\tCtrl+C", noSelection},
        {IDM_COPY_VERSE_LIST, "Copy Verse List\tF7"},
        {IDM_SAVE_VERSE_LIST, "Save Verse List..."},
        {IDM_PRINT_VERSE_LIST, "Print Verse List..."},
        {},
        {IDM_CONTEXT, "Read Context of " + verse + "\tEnter"},
        {},
        {IDM_DELETE_ENTRY, "Delete " + verse + " From List\tDelete"},
        {},
        {IDM_NOTE_FOR_LIST, "Go to Note (" + verse + ")\tF10", editing},
        {},
        {IDM_WORD_SEARCH, "Word Search with Selected Text...", noSelection},
        {IDM_PHRASE_SEARCH, "Phrase Search with Selected Text...", noSelection},
        {IDM_SEARCH_NOTES, "Search Notes with Selected Text...", noSelection},
    };
}

void OpenVerseListMenu(POINT onScreen) {
    const VerseList& list = theVerseList.list;
    const int entry = CurrentEntry(list, theSelection);
    if (entry < 0) return;
    const int verse = list.ListEntries[static_cast<std::size_t>(entry)];
    OpenPopupMenu(theVerseList.window, onScreen,
                  Rows(ReferenceText(theScripture.records, verse, BookForm::kAbbreviation)));
}
