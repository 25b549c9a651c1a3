#include "app/font_commands_win32.h"

#include <cstdlib>

#include "app/frame_look_win32.h"
#include "app/frame_win32.h"
#include "notes/notes_window.h"
#include "pane/pane_look_win32.h"
#include "passage/passage_window.h"
#include "verselist/verse_list_window.h"
#include "win32/dpi.h"

static bool ChooseFontFor(FontChoice& choice) {
    const int dpi = DpiOf(nullptr);  // of the dialog, whatever screen the frame is on
    LOGFONTA record = FontRecord(choice, dpi);
    CHOOSEFONTA dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = theFrame.window;
    dialog.lpLogFont = &record;
    dialog.Flags = CF_SCREENFONTS | CF_INITTOLOGFONTSTRUCT | CF_FORCEFONTEXIST;
    if (!ChooseFontA(&dialog)) return false;
    choice = {UnscaledFrom(dpi, std::abs(record.lfHeight)), static_cast<int>(record.lfWeight), record.lfFaceName};
    return true;
}

void ChooseListFont(int) {
    if (ChooseFontFor(theFrame.fonts.verseList)) SetVerseListFont(theFrame.fonts.verseList);
}

void ChoosePassageFont(int) {
    if (ChooseFontFor(theFrame.fonts.passage)) SetPassageFont(theFrame.fonts.passage);
}

void ChooseNotesFont(int) {
    if (!ChooseFontFor(theFrame.fonts.notes)) return;
    SetNotesFont(theFrame.fonts.notes);
    ReadNote(theNoteSets.currentVerse);
}

void ChooseHighlightColor(int) {
    CHOOSECOLORA dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = theFrame.window;
    dialog.rgbResult = KeyColorToShow(theReading.KeyHighlightColor);
    dialog.lpCustColors = theFrame.customColors.data();
    dialog.Flags = CC_RGBINIT | CC_FULLOPEN;
    if (!ChooseColorA(&dialog)) return;
    theReading.KeyHighlightColor = dialog.rgbResult;
    thePaneLook.isKeyColorChosen = true;
    ShowChosenColors();
}
