#include "app/frame_look_win32.h"

#include "app/frame_win32.h"
#include "notes/note_edit_control_win32.h"
#include "notes/notes_window.h"
#include "pane/pane_look_win32.h"
#include "passage/passage_window.h"
#include "resources/ids.h"
#include "verselist/hits_strip_window.h"
#include "verselist/verse_list_window.h"

static void DarkenPanes() {
    for (const HWND pane : {thePassage.window, theVerseList.window, theVerseList.references.window, theHitsStrip.window,
                            theNotes.view, theNoteEdit.window}) {
        DarkenScrollBars(pane);
    }
    DarkenTitle(theFrame.window);
}

static void ColorNotes() {
    for (const HWND text : {theNotes.view, theNoteEdit.window}) ColorRichEdit(text);
}

void RepaintAll() {
    RedrawWindow(theFrame.window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

bool TakeColors() {
    const bool wasDark = thePaneLook.colors.isDark;
    if (!FollowSystemLook(theReading.KeyHighlightColor)) return false;
    const bool isDark = thePaneLook.colors.isDark;
    if (isDark != wasDark) DarkenPanes();
    if (isDark || wasDark) ColorNotes();
    return true;
}

void ShowChosenColors() {
    if (TakeColors()) RepaintAll();
}

void ChooseDarkPanes(int command) {
    thePaneLook.DarkPanes = command - IDM_DARK_OFF;
    RefreshCommands();
    ShowChosenColors();
}
