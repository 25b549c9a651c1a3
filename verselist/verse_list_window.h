// The Verse List window and the Reference List: the two views of the verses in verse_list.h.
#pragma once

#include <vector>

#include "pane/reading_pane_win32.h"
#include "verselist/entry_words.h"
#include "verselist/list_content.h"
#include "verselist/reference_list_win32.h"
#include "verselist/verse_list.h"

struct VerseListPane : ReadingPane {
    ReferenceList references;
    VerseList list;
    Query query;                // the search that filled the list; empty for cross-references
    bool isOfNotes = false;     // the frame is told when another entry is the current one
    ListedQuestion question;    // that the notes answer
    int content = 0;            // its number
    ListPosition followed;      // of the entry whose note was shown last, because the user came to it
                                // (no verse after a click: its note is shown even if it is the same entry, because
                                // another one may have been read meanwhile)
    int contents = 0;           // the highest number yet
    ListContent replaced;       // by the last filling, until it is taken
    KnownEntries known;         // for this query and the pane's font
    int verseOfRow = kNoVerse;  // named by the context menu's row whose command is running; kNoVerse: none is
};
extern VerseListPane theVerseList;

bool RegisterVerseListClass();

// Creates both views inside `tabs`, the Reference List hidden.
void CreateVerseList(HWND tabs);

// Shows other entries in both views, the Reference List with the books in this form.
void ShowNewEntries(BookForm form);

// Paints the visible view and updates the screen now, without waiting until the program is idle.
void ShowVerseListAtOnce();

// Shows `view` (kVerseListView or kReferenceListView) and hides the other one.
void SwitchListView(int view);

// The window of the view that is chosen, also while the whole list is hidden.
HWND ShownListView();

// Sets the focus to that view.
void FocusVerseList();

void RedisplayVerseList();
void SetVerseListFont(const FontChoice& choice);

// Verse that commands of the frame act on. For a row of the pane's context menu, the verse that the row names.
// Otherwise, if the Reference List is shown and has the focus or a marked line, the verse of the line with the caret.
// Otherwise the verse of the first selected entry if the Verse List has the focus and all of its selection is visible,
// else that of the top entry. -1 in an empty list.
int VerseListTargetVerse();

// Verse that Enter acts on and that the rows of the context menu name: that of the current entry or, if the Reference
// List is shown, of its line with the caret. -1 in an empty list.
int VerseListCurrentVerse();

// The set of that entry; null if there is none, or in a list of verses.
const EntrySets::Set* VerseListCurrentSet();

// Verses of the marked lines of the Reference List, in their order.
std::vector<std::int32_t> MarkedVerses();

// Removes entries for good; no others that were deleted come back. Does nothing if there are no such places.
void DropEntries(const std::vector<int>& places);

// Has the visible view the focus, and were entries deleted from the present list? RestoreDeletedEntries, which may
// only be called then, puts those that were deleted last back in their places in both views.
bool CanRestoreEntries();
void RestoreDeletedEntries();
