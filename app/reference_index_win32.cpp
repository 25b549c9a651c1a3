#include "app/reference_index_win32.h"

#include <cstdint>

#include "app/frame_win32.h"
#include "notes/note_editor_window.h"
#include "notes/note_files_win32.h"
#include "notes/note_refresh.h"
#include "notes/notes_window.h"
#include "notes/search_progress_dialog.h"
#include "scripture/scripture_win32.h"

// Long enough that a user who reads on, or a start that is measured, has none of the work.
static constexpr std::uint64_t kRest = 3000;  // milliseconds

static ReferenceIndex theReferences;
static std::uint64_t indexesAt = 0;
static bool mayHaveMore = true;  // otherwise nothing can be done before the next message

const ReferenceIndex& TheReferences() {
    return theReferences;
}

static bool IndexPiece() {
    static bool isMade = false;
    if (!isMade) theReferences = ReferenceIndexFor(theScripture.records);
    isMade = true;
    return IndexSome(TheNoteFiles(), theScripture.records, theNoteSets, theReferences, kIndexedAtOnce);
}

// ---- Idle time ------------------------------------------------------------------------------------------------------

void PutOffIndexing() {
    indexesAt = GetTickCount64() + kRest;
    mayHaveMore = true;
}

DWORD TimeToIndex() {
    if (indexesAt == 0) PutOffIndexing();  // the start is no message
    if (!mayHaveMore || !theFrame.startUpComplete || IsEditingNote()) return INFINITE;
    const std::uint64_t now = GetTickCount64();
    return indexesAt > now ? static_cast<DWORD>(indexesAt - now) : 0;
}

bool IndexInIdleTime() {
    if (TimeToIndex() != 0 || GetCapture() != nullptr) return false;
    mayHaveMore = IndexPiece();
    if (mayHaveMore) TellChangedNotes();  // a set may have been read again
    return mayHaveMore;
}

void IndexShownNote() {
    const int verse = theNoteSets.currentVerse;
    const bool isThere = NoteExists(TheNoteFiles(), theNoteSets, verse);  // otherwise a line says that there is none
    IndexSavedNote(theScripture.records, theNoteSets, theReferences, theNoteSets.currentSet, verse,
                   isThere ? std::string_view(theNoteSets.noteText) : std::string_view());
}

// ---- At once --------------------------------------------------------------------------------------------------------

// Their first use checks the sets that the idle time has not come to.
static bool CheckSets(const SearchProgress& progress) {
    for (NoteSet& set : theNoteSets.sets) {
        if (!progress.goesOn(progress.device)) return false;
        if (set.isUnchecked) RefreshSet(TheNoteFiles(), set);
    }
    return true;
}

static bool IndexAll(const SearchProgress& progress) {
    if (!CheckSets(progress)) return false;
    while (IndexPiece()) {
        progress.reached(progress.device, IndexedVerses(theReferences));
        if (!progress.goesOn(progress.device)) return false;
    }
    return true;
}

bool FinishReferenceIndex() {
    static SearchProgressBox box;
    RefreshNotes();
    if (IsWhole(theReferences, theNoteSets)) return true;
    box.canStop = true;
    const HCURSOR before = SetCursor(LoadCursorA(nullptr, IDC_WAIT));
    BeginSearchProgress(box, theFrame.window, {0, static_cast<int>(theNoteSets.sets.size()) * kVerseCount});
    const bool isDone = IndexAll(ProgressOf(box));
    HideSearchProgress(box);
    SetCursor(before);
    TellChangedNotes();
    return isDone;
}
