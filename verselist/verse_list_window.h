// The Verse List window and the Reference List beside it: the two views of what the last search found.
#pragma once

#include <optional>
#include <vector>

#include "pane/reading_pane_win32.h"
#include "scripture/verse_records.h"
#include "search/query.h"
#include "verselist/verse_list.h"

struct VerseListPane : ReadingPane {
    HWND references = nullptr;                  // the list box
    WNDPROC referencesProcedure = nullptr;      // its own
    WNDPROC referencesWideProcedure = nullptr;  // the same, to be called with wide text
    std::optional<BookForm> awaitedLines;       // of the list box, once there is a use for them
    VerseList list;
    Query query;  // that filled the list
};
extern VerseListPane theVerseList;

bool RegisterVerseListClass();

// Creates both views inside `tabs`, the Reference List hidden.
void CreateVerseList(HWND tabs);

// Takes over the verses that `query` has found, in both views, and gives the focus to the visible one.
void ShowSearchResult(Query query, std::vector<std::int32_t> verses);

// Takes over the verses of a cross-reference line, in both views. Their lines in the Reference List have abbreviations,
// no key word is marked, and the focus stays.
void ShowReferences(const std::vector<std::int32_t>& verses);

// Paints the visible view now and brings it to the screen, before anything else is done.
void ShowVerseListAtOnce();

// Empties both views.
void EmptyVerseList();

// Shows `view` (kVerseListView, kReferenceListView) in place of the other.
void SwitchListView(int view);

// Gives the focus to the visible view.
void FocusVerseList();

void RedisplayVerseList();
void SetVerseListFont(const FontChoice& choice);

// Verse that commands of the frame mean: that of the line chosen in the Reference List while that view is shown; that
// of the first selected entry while the pane has the focus and its selection lies wholly within the entries shown;
// otherwise of the top entry. -1 in an empty list.
int VerseListTargetVerse();

// Verse that Read Context means: that of the current entry, or of the chosen line of the Reference List. -1 in an empty
// list.
int VerseListCurrentVerse();
