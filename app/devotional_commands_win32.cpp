#include "app/devotional_commands_win32.h"

#include "app/devotional.h"
#include "app/frame_window.h"
#include "notes/notes_window.h"
#include "passage/passage_window.h"
#include "resources/ids.h"
#include "scripture/scripture_win32.h"
#include "win32/controls.h"

static Date Today() {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return {now.wMonth, now.wDay};
}

void OpenReading(int verse) {
    const int set = theNotes.sets.devotionalSet;
    if (set == kNoDevotionalSet || verse > kLastVerse) return;
    ScrollToVerse(verse);
    SendCommand(theFrame.window, IDM_NOTE_FOR_PASSAGE);
    RunIfEnabled(theFrame.window, IDM_VIEW_NOTES);
    if (theNotes.editing) return;  // the note in the editor stays the current one
    theNotes.sets.currentSet = set;
    ReadNote(verse);
    TabCtrl_SetCurSel(theNotes.tabs, set);
    RepaintNoteMarks();
}

void OpenDaysReading(int command) {
    const ReadingTime reading = command == IDM_THIS_MORNING ? ReadingTime::kMorning : ReadingTime::kEvening;
    OpenReading(VerseOfReading(theNotes.sets, Today(), reading));
}

void OpenTodaysProverb(int) {
    RunIfEnabled(theFrame.window, IDM_VIEW_PASSAGE);
    ScrollToVerse(TodaysProverb(theScripture.records, Today()));
}
