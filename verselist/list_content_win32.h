// What the Verse List and the Reference List are filled with. Each filling has a number, and what it replaces is kept
// until the next one, so that it can be shown again.
#pragma once

#include <vector>

#include "notes/note_sets.h"
#include "search/query.h"
#include "verselist/verse_list_window.h"

// Shows the verses that `query` found in both views and sets the focus to the visible one.
void ShowSearchResult(Query query, std::vector<std::int32_t> verses);

// The same for verses with notes that answer `question`: no key words are marked, and while they are shown the list
// sends its frame IDM_FOLLOW_LIST.
void ShowVersesWithNotes(std::vector<std::int32_t> verses, ListedQuestion question);

// The same for notes: each entry is the verse of one, with its set in front.
void ShowNotesOfSets(std::vector<std::int32_t> verses, EntrySets sets);

// The set as it stands in front of entries.
EntrySets::Set AsEntrySet(const NoteSet& set);

// To be called when a note set has got another name.
void ShowRenamedSet(const std::string& before, const EntrySets::Set& now);

// To be called when note sets have gone: takes the entries of their notes out. The note that is shown stays.
void DropGoneEntriesShown(const RemainingNotes& remaining);

// Shows the verses of a cross-reference line in both views. The Reference List shows abbreviated references, no key
// words are marked, and the focus does not change.
void ShowReferences(const std::vector<std::int32_t>& verses);

// Empties both views.
void EmptyVerseList();

// Shows `content`, of this number, and returns what was there instead. The focus does not change.
ListContent ShowContent(ListContent content);

// Where the user is in the visible view.
ListPosition VerseListPosition();

// The line with the caret of the Reference List and its first visible one; -1 if the list is hidden.
struct ReferenceLines {
    int caret = -1, top = -1;
};
ReferenceLines ShownReferenceLines();

// Scrolls both views: the Verse List to the entry `top`, clamped, and the Reference List to `lines` if it is shown and
// they are known.
void ShowListPlace(int top, const ReferenceLines& lines);
