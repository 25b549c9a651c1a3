#include "app/system_changes_win32.h"

#include "app/frame_look_win32.h"
#include "app/frame_win32.h"
#include "app/toolbar_win32.h"
#include "notes/note_editor_window.h"
#include "notes/notes_window.h"
#include "pane/status_bar_win32.h"
#include "passage/passage_window.h"
#include "verselist/verse_list_window.h"
#include "win32/dpi.h"
#include "win32/panes.h"

void RenewFonts() {
    RecreateToolbar();
    ScaleStatusBar();
    ScaleTabs();
    ScaleNoteEditor();
    ScaleReferenceList(theVerseList.references);
    SetPassageFont(theFrame.fonts.passage);
    SetVerseListFont(theFrame.fonts.verseList);
    SetNotesFont(theFrame.fonts.notes);
}

static bool HasSmoothingChanged(WPARAM parameter) {
    switch (parameter) {
        case SPI_SETFONTSMOOTHING:
        case SPI_SETFONTSMOOTHINGTYPE:
        case SPI_SETFONTSMOOTHINGCONTRAST:
        case SPI_SETFONTSMOOTHINGORIENTATION:
        case SPI_SETCLEARTYPE: return true;
    }
    return false;
}

static void FollowFonts(WPARAM parameter) {
    if (!FollowSystemFonts(HasSmoothingChanged(parameter))) return;
    RenewFonts();
    if (!IsIconic(theFrame.window)) LayOut();
}

// Windows tells of other colours, of another theme and of high contrast with one or several of the messages, in any
// order; WM_SETTINGCHANGE also tells of much that has no look.
void FollowSystem(UINT message, WPARAM wParam, LPARAM lParam) {
    PassToAllChildren(theFrame.window, message, wParam, lParam);
    if (!theFrame.startUpComplete) return;
    if (message == WM_SETTINGCHANGE) {
        FollowFonts(wParam);
        ShowChosenColors();
        return;
    }
    TakeColors();
    RecolorToolbar();
    RepaintAll();
}
