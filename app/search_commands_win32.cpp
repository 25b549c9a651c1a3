#include "app/search_commands_win32.h"

#include <algorithm>

#include "app/commands_win32.h"
#include "app/frame_window.h"
#include "notes/note_search.h"
#include "notes/notes_window.h"
#include "notes/search_notes_dialog.h"
#include "output/output_win32.h"
#include "resources/ids.h"
#include "scripture/scripture_win32.h"
#include "search/search_dialog.h"
#include "search/search_engine.h"
#include "search/search_win32.h"
#include "search/set_range_dialog.h"
#include "verselist/verselist_window.h"
#include "win32/controls.h"

static constexpr int kSummaryPart = 0;  // of the status bar
static constexpr int kEntryPart = 1;

static bool Find(SearchKind kind) {
    return kind == SearchKind::kPhrase ? PhraseSearch(theScripture, theWordIndex, theSearch)
                                       : WordSearch(theScripture, theWordIndex, theSearch);
}

static void ReportNoMatch() {
    EmptyVerseList();
    SetStatusPart(theFrame.statusBar, kSummaryPart, "No Matches");
    SetStatusPart(theFrame.statusBar, kEntryPart, "");
    RefreshCommands();
    MessageBoxA(theFrame.window, "No verses matching search criteria.", "Search Results", MB_OK | MB_ICONINFORMATION);
}

static void ShowSummary() {
    SetStatusPart(theFrame.statusBar, kSummaryPart, SearchSummary(theSearch.result));
}

static void ShowFound(SearchKind kind) {
    ShowSummary();  // before a paint adds to its count
    DropSelection();
    if (kind == SearchKind::kWords) SetFocus(theVerseList.window);
    ShowSearchResult();
    RefreshCommands();
}

static bool HasFound() {
    return !theSearch.result.verses.empty();
}

static void RunSearch(SearchKind kind) {
    const HCURSOR before = BeginWait(theFrame.window);
    if (Find(kind)) ShowFound(kind);
    EndWait(before);
    if (HasFound()) ShowVerseListAtOnce();
}

static void Search(SearchKind kind) {
    if (!AskSearch(theFrame.window, kind, RunSearch) || HasFound()) return;
    ReportNoMatch();
    if (kind != SearchKind::kWords) ShowSummary();  // these dialogs say so even where they found nothing
}

void SearchWords(int) {
    Search(SearchKind::kWords);
}

void SearchWordList(int) {
    Search(SearchKind::kWordList);
}

void SearchPhrase(int) {
    Search(SearchKind::kPhrase);
}

void SetRange(int) {
    AskSearchRange(theFrame.window);
}

// The text selected in the note view, cut to `limit` characters.
static std::string SelectedNoteText(int limit) {
    const auto [start, end] = SelectionInNote();
    const int length = std::min(end - start, limit);
    return theNotes.sets.noteText.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(length));
}

void SearchNoteSelection(int command) {
    theSearch.searchText = SelectedNoteText(kSearchTextLimit);
    Search(command == IDM_NOTE_WORD_SEARCH ? SearchKind::kWords : SearchKind::kPhrase);
}

void SearchNotes(int) {
    AskNoteSearch(theFrame.window);
}

// The selection is laid over the beginning of the text searched for last, whose rest stays; it is the text of the other
// searches that is cut to its length. Odd, and kept on purpose.
void SearchNotesForSelection(int) {
    const std::string selected = SelectedNoteText(kNoteSearchTextLimit);
    theSearch.NoteSearchText.replace(0, selected.size(), selected);
    theSearch.searchText.resize(std::min(theSearch.searchText.size(), selected.size()));
    AskNoteSearch(theFrame.window);
}
