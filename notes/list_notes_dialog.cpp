#include "notes/list_notes_dialog.h"

#include <utility>

#include "notes/note_capitals_win32.h"
#include "notes/note_files_win32.h"
#include "notes/search_progress_dialog.h"
#include "resources/help_topics.h"
#include "resources/ids.h"
#include "search/search_dialog.h"
#include "win32/code_page.h"
#include "win32/controls.h"
#include "win32/dialogs.h"
#include "win32/help_viewer.h"

ListNotesChoices theListNotes;

static ListedNotes theListed;          // of the open dialog
static ListedQuestion theQuestion;     // that it answers
static SearchProgressBox theProgress;  // hidden between its searches

static void Fill(HWND dialog) {
    SendDlgItemMessageA(dialog, IDC_LISTED_WORDS, EM_LIMITTEXT, kNoteSearchTextLimit, 0);
    SetDlgItemTextW(dialog, IDC_LISTED_WORDS, theListNotes.words.c_str());
    SetChecked(dialog, IDC_SUBSTRING, theListNotes.options.SubString != 0);
    SetChecked(dialog, theListNotes.options.AllSets != 0 ? IDC_LIST_ALL_SETS : IDC_LIST_CURRENT_SET, true);
    SetChecked(dialog, IDC_LIST_IN_RANGE, theListNotes.options.InRange != 0);
}

static void Read(HWND dialog) {
    theListNotes.words = WideControlText(dialog, IDC_LISTED_WORDS, kNoteSearchTextLimit);
    theListNotes.options = {.SubString = IsChecked(dialog, IDC_SUBSTRING),
                            .AllSets = IsChecked(dialog, IDC_LIST_ALL_SETS),
                            .InRange = IsChecked(dialog, IDC_LIST_IN_RANGE)};
}

static ListedNotesQuery QueryOfChoices(const LetterTable& letters) {
    ListedNotesQuery query;
    for (const std::u16string& word : WordsTyped(LettersOf(theListNotes.words)))
        query.words.push_back(TextInCapitals(letters, NoteOfLetters(TheNoteFiles().codePage, word)));
    query.substrings = theListNotes.options.SubString != 0;
    if (theListNotes.options.InRange != 0) query.range = theSearch.range;
    return query;
}

static std::span<NoteSet> ChosenSets() {
    if (theListNotes.options.AllSets != 0) return theNoteSets.sets;
    return {CurrentSet(theNoteSets), 1};
}

// The mouse is not captured as in other searches, because it may press Cancel.
static ListedNotes Search(HWND dialog) {
    const LetterTable letters = SystemLetters();
    const ListedNotesQuery query = QueryOfChoices(letters);
    theQuestion = {theListNotes.options.AllSets != 0 ? "" : NoteSetName(*CurrentSet(theNoteSets)), query.words,
                   query.substrings};
    const HCURSOR before = SetCursor(LoadCursorA(nullptr, IDC_WAIT));
    BeginSearchProgress(theProgress, dialog, {0, ListingSteps(ChosenSets(), query)});
    ListedNotes listed = ListNotes(TheNoteFiles(), ChosenSets(), letters, query, ProgressOf(theProgress));
    HideSearchProgress(theProgress);
    SetCursor(before);
    return listed;
}

static const char* WhyNone() {
    if (theListed.unreadableSets > 0) return kCannotReadNote;
    return theListNotes.words.empty() ? "No verses with notes." : "No verses with notes that have these words.";
}

static void List(HWND dialog) {
    Read(dialog);
    theListed = Search(dialog);
    if (!theListed.isStopped && !theListed.verses.empty()) {
        EndDialog(dialog, IDOK);
        return;
    }
    if (!theListed.isStopped) MessageBoxA(dialog, WhyNone(), "Search Results", MB_OK | MB_ICONINFORMATION);
    SelectField(dialog, IDC_LISTED_WORDS);
}

static void OnCommand(HWND dialog, int control, UINT) {
    switch (control) {
        case IDOK: List(dialog); break;
        case IDC_RANGE: AskSearchRange(dialog); break;
        case IDC_HELP_BUTTON: OpenHelpTopic(dialog, kHelpFile, kTopicListNotes); break;
    }
}

std::optional<NotesToList> AskNotesToList(HWND frame) {
    if (theNoteSets.sets.empty()) return std::nullopt;
    theProgress.canStop = true;
    const bool isListed = RunDialog(frame, {"LISTNOTES", Fill, OnCommand}) == IDOK;
    theProgress = {};  // the box was the dialog's
    if (!isListed) return std::nullopt;
    return NotesToList{std::move(theListed), std::move(theQuestion)};
}
