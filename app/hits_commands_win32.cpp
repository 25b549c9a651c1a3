// Separate from the strip, which stands on nothing above the Verse List.
#include "app/hits_commands_win32.h"

#include "app/frame_win32.h"
#include "app/spare_memory_win32.h"
#include "verselist/hits_strip_window.h"
#include "verselist/verse_list_window.h"
#include "win32/clipboard.h"
#include "win32/controls.h"

static PerBook<HitsOfBook> CurrentHits() {
    bool hasReadTexts = false;
    const PerBook<HitsOfBook> hits = HitsOfList(&hasReadTexts);
    if (hasReadTexts) NoteTextsRead();
    return hits;
}

void ToggleHits(int) {
    theHitsStrip.HitsByBook = !theHitsStrip.HitsByBook;
    if (theHitsStrip.HitsByBook) CurrentHits();
    RefreshCommands();
    LayOut();
}

// The words of the books are counted before the strip asks for them, because the texts that this reads are to be noted.
void ShowHitsOfList(int) {
    if (!theHitsStrip.HitsByBook) return;
    CurrentHits();
    ShowChangedHits();
}

// Errors are reported after the clipboard is closed, so that a message box does not block other programs.
void CopyHits(int) {
    if (ListCount(theVerseList.list) == 0) return;
    HeldClipboard clipboard = OpenEmptyClipboard(theFrame.window);
    if (!clipboard) return;
    const bool put = PutText(clipboard, HitsTable(CurrentHits()));
    clipboard.reset();
    if (!put) Complain(theFrame.window, "Could not allocate memory for copy text", kCopyErrorCaption);
}
