#include "app/search_commands_win32.h"

#include <algorithm>
#include <utility>

#include "app/frame_win32.h"
#include "app/spare_memory_win32.h"
#include "notes/note_search.h"
#include "notes/notes_window.h"
#include "notes/search_notes_dialog.h"
#include "pane/status_bar_win32.h"
#include "resources/ids.h"
#include "scripture/scripture_win32.h"
#include "search/search_dialog.h"
#include "search/search_engine.h"
#include "search/text_kinds.h"
#include "verselist/list_content_win32.h"
#include "verselist/verse_list_window.h"
#include "win32/code_page.h"
#include "win32/controls.h"

static void ReportNoMatch(const SearchKind& kind) {
    EmptyVerseList();
    ShowStatus(StatusPart::kSearchSummary, "No Matches");
    ShowStatus(StatusPart::kListEntry, "");
    RefreshCommands();
    MessageBoxA(theFrame.window, "No verses matching search criteria.", "Search Results", MB_OK | MB_ICONINFORMATION);
    if (kind.summarizesNoMatches) ShowStatus(StatusPart::kSearchSummary, SearchSummary({}));
}

static void ShowFound(const SearchKind& kind, Query query, SearchResult found) {
    ShowStatus(StatusPart::kSearchSummary, SearchSummary(found));
    DropSelection();
    if (kind.focusesVerseList) SetFocus(theVerseList.window);
    ShowSearchResult(std::move(query), std::move(found.verses));
    RefreshCommands();
}

// Returns whether the search found any verses.
static bool RunSearch(const SearchKind& kind) {
    static HitCounters hits;
    const HCURSOR before = BeginWait(theFrame.window);
    Query query = kind.query == QueryKind::kNear ? NearQueryOf(theSearch)
                                                 : QueryOf(theSearch.searchText, theSearch.options, kind.query);
    SearchResult found = Search(theScripture, theWordIndex, query, theSearch.range, hits);
    NoteTextsRead();
    const bool hasFound = !found.verses.empty();
    if (hasFound) ShowFound(kind, std::move(query), std::move(found));
    EndWait(before);
    if (hasFound) ShowVerseListAtOnce();
    return hasFound;
}

static void Search(const SearchKind& kind) {
    const std::optional<bool> found = AskSearch(theFrame.window, kind, RunSearch);
    if (kind.hasNearOptions) NoteTextsRead();  // to count words
    if (found && !*found) ReportNoMatch(kind);
}

void SearchWords(int) {
    Search(kWordSearch);
}

void SearchWordList(int) {
    Search(kWordListSearch);
}

void SearchPhrase(int) {
    Search(kPhraseSearch);
}

void SearchNearWords(int) {
    Search(kNearSearch);
}

void SetRange(int) {
    AskSearchRange(theFrame.window);
}

void ShowRange(int) {
    ShowStatus(StatusPart::kSearchRange, SearchRangeText());
}

// The text selected in the note view, cut to `limit` characters.
static std::u16string SelectedNoteText(std::size_t limit) {
    return TextSelectedInNote().substr(0, limit);
}

void SearchNoteSelection(int command) {
    theSearch.searchText = KnownInCodePage(Wide(SelectedNoteText(kSearchTextLimit)));
    Search(command == IDM_NOTE_WORD_SEARCH ? kWordSearch : kPhraseSearch);
}

void SearchNotes(int) {
    AskNoteSearch(theFrame.window);
}

// Odd behaviour kept on purpose: the selection overwrites the beginning of the previous note search text and leaves the
// rest, and it is the text of the other searches that is cut to the selection's length.
void SearchNotesForSelection(int) {
    const CodePage& page = TheNoteFiles().codePage;
    const std::u16string selected = SelectedNoteText(kNoteSearchTextLimit);
    std::u16string text = LettersOfNote(page, theSearch.NoteSearchText);
    theSearch.NoteSearchText = NoteOfLetters(page, text.replace(0, selected.size(), selected));
    theSearch.searchText.resize(std::min(theSearch.searchText.size(), selected.size()));
    AskNoteSearch(theFrame.window);
}

bool PrepareSearchesInIdleTime() {
    if (!theScripture.textKinds.empty() || theScripture.text.empty()) return false;
    theScripture.textKinds = FindTextKinds(theScripture);
    NoteTextsRead();
    return !theScripture.textKinds.empty();
}
