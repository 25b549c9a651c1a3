// Separate from the session, which only uses the same pauses of the message loop.
#include "app/spare_memory_win32.h"

#include <cstdint>

#include "pane/reading_pane_win32.h"
#include "scripture/scripture_win32.h"
#include "search/search_dialog.h"

// Longer than from one repeat of a key that is held down to the next, and shorter than a blink of the caret.
static constexpr std::uint64_t kTimeToRest = 200;  // milliseconds

static bool haveTextsBeenRead = false;
static std::uint64_t restsAt = 0;

void NoteTextsRead() {
    haveTextsBeenRead = true;
}

void PutOffRest() {
    restsAt = GetTickCount64() + kTimeToRest;
}

DWORD TimeToRest() {
    if (!haveTextsBeenRead && !HasPaintBitmap()) return INFINITE;
    const std::uint64_t now = GetTickCount64();
    return restsAt > now ? static_cast<DWORD>(restsAt - now) : 0;
}

// Only the words of the index stay as they are: the list of words is made of pointers into them.
void GiveBackSpareMemory() {
    if (TimeToRest() != 0) return;
    GiveBackPaintBitmap();
    if (!haveTextsBeenRead) return;
    haveTextsBeenRead = false;
    MapAnew(theScripture);
    MapAnew(theWordIndex.pointers);
    MapAnew(theWordIndex.verseLists);
}
