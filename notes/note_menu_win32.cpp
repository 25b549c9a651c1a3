#include "notes/note_menu_win32.h"

#include "notes/notes_window.h"
#include "output/output_win32.h"
#include "resources/ids.h"
#include "win32/controls.h"
#include "win32/popup_menu.h"

static std::vector<MenuRow> Rows(HWND frame) {
    const bool noSelection = theSelection.SelectionOwner != kNoteViewOwns;
    const bool emptyList = IsGreyedInFrame(frame, IDM_NOTE_FOR_LIST);
    const bool bound = theNotes.BindNotes != 0;
    return {
        {IDM_COPY, "Copy Selected Text\tCtrl+C", noSelection},
        {},
        {IDM_EDIT_NOTE, "Edit This Note\tAlt+E"},
        {},
        {IDM_PREVIOUS_NOTE, "Previous Note\tAlt+Up"},
        {IDM_NEXT_NOTE, "Next Note\tAlt+Down"},
        {IDM_PREVIOUS_NOTE_SET, "Previous Note Set\tAlt+Left"},
        {IDM_NEXT_NOTE_SET, "Next Note Set\tAlt+Right"},
        {},
        {IDM_NOTE_FOR_LIST, "Go to Note for Verse in Verse List\tF9", emptyList},
        {IDM_NOTE_FOR_PASSAGE, "Go to Note for Verse in Passage\tF10"},
        {IDM_GOTO_NOTE, "Go to Note for Verse...\tAlt+N"},
        {IDM_VERSE_FOR_NOTE, "Read Verse for this Note\tF11"},
        {},
        {.command = IDM_BIND_NOTES, .text = "Bind Notes to Passage Window", .checked = bound},
        {},
        {IDM_NOTE_WORD_SEARCH, "Word Search with Selected Text...", noSelection},
        {IDM_NOTE_PHRASE_SEARCH, "Phrase Search with Selected Text...", noSelection},
        {IDM_NOTE_NOTE_SEARCH, "Search Notes with Selected Text...", noSelection},
    };
}

void OpenNoteMenu(POINT onScreen) {
    const HWND frame = FrameOf(theNotes.window);
    OpenPopupMenu(frame, onScreen, Rows(frame));
}
