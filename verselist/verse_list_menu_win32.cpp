// Apart from the panes, which both have this menu.
#include "verselist/verse_list_menu_win32.h"

#include <string>

#include "notes/note_editor_window.h"
#include "pane/selection_win32.h"
#include "resources/ids.h"
#include "scripture/scripture_win32.h"

// "F10" in the row of the note is kept on purpose, although the key is F9. Enter and Delete work only in this pane.
std::vector<MenuRow> VerseListMenu(int verse) {
    const std::string name = ReferenceText(theScripture.records, verse, BookForm::kAbbreviation);
    const bool noSelection = theSelection.SelectionOwner != kVerseListOwns;
    const bool noMarks = theSelection.SelectionOwner != kReferenceListOwns;
    const bool editing = IsEditingNote();
    return {
        {IDM_COPY, "Copy Selected Text\t", noSelection && noMarks},
        {IDM_COPY_VERSE_LIST, "Copy Verse List\t"},
        {IDM_SAVE_VERSE_LIST, "Save Verse List..."},
        {IDM_PRINT_VERSE_LIST, "Print Verse List..."},
        {IDM_COPY_HITS, "Copy Hits by Book\t"},
        {},
        {IDM_CONTEXT, "Read Context of " + name + "\tEnter"},
        {},
        {IDM_DELETE_ENTRY, "Delete " + name + " From List\tDelete"},
        {},
        {IDM_NOTE_FOR_LIST, "Go to Note (" + name + ")\tF10", editing},
        {},
        {IDM_WORD_SEARCH, "Word Search with Selected Text...", noSelection},
        {IDM_PHRASE_SEARCH, "Phrase Search with Selected Text...", noSelection},
        {IDM_SEARCH_NOTES, "Search Notes with Selected Text...", noSelection},
    };
}
