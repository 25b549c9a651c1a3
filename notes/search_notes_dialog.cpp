#include "notes/search_notes_dialog.h"

#include "notes/note_capitals_win32.h"
#include "notes/note_search.h"
#include "notes/notes_window.h"
#include "notes/search_progress_dialog.h"
#include "resources/help_topics.h"
#include "resources/ids.h"
#include "search/search_dialog.h"
#include "win32/code_page.h"
#include "win32/controls.h"
#include "win32/dialogs.h"
#include "win32/help_viewer.h"

static constexpr int kDialogIsShown = 9000;  // a command that the dialog posts to itself; no control has this id

static ResumePoint theResumePoint;     // of the open dialog
static SearchProgressBox theProgress;  // hidden between its searches

static const CodePage& Page() {
    return TheNoteFiles().codePage;
}

static ResumePoint BehindSelection() {
    return {theNoteSets.currentVerse, static_cast<std::size_t>(SelectionInNote().end)};
}

static void Fill(HWND dialog) {
    SetWindowTextA(dialog, ("Search Note Set " + NoteSetName(*CurrentSet(theNoteSets))).c_str());
    SendDlgItemMessageA(dialog, IDC_NOTE_TEXT, EM_LIMITTEXT, kNoteSearchTextLimit, 0);
    SetDlgItemTextW(dialog, IDC_NOTE_TEXT, Wide(LettersOfNote(Page(), theSearch.NoteSearchText)).c_str());
    SetChecked(dialog, IDC_CASE_SENSITIVE, theSearch.options.CaseSensitive != 0);
    SetChecked(dialog, IDC_SUBSTRING, theSearch.options.SubString != 0);
    theResumePoint = BehindSelection();
    PostMessageA(dialog, WM_COMMAND, kDialogIsShown, 0);
}

static void Read(HWND dialog) {
    const std::wstring text = WideControlText(dialog, IDC_NOTE_TEXT, kNoteSearchTextLimit);
    theSearch.NoteSearchText = NoteOfLetters(Page(), LettersOf(text));
    theSearch.options.CaseSensitive = IsChecked(dialog, IDC_CASE_SENSITIVE);
    theSearch.options.SubString = IsChecked(dialog, IDC_SUBSTRING);
}

static NoteMatch Search(HWND frame, const LetterTable& letters, SearchProgressBox& progress) {
    const SearchOptions& options = theSearch.options;
    const NoteQuery query{theSearch.NoteSearchText, options.CaseSensitive != 0, options.SubString != 0,
                          theSearch.range};
    const HCURSOR before = BeginWait(frame);
    const NoteMatch match =
        FindInNotes(TheNoteFiles(), *CurrentSet(theNoteSets), letters, query, theResumePoint, ProgressOf(progress));
    EndWait(before);
    return match;
}

static void ShowMatch(HWND frame, const NoteMatch& match) {
    RunIfEnabled(frame, IDM_VIEW_NOTES);
    ReadNote(match.verse);
    SelectInNote({static_cast<int>(match.offset), static_cast<int>(match.offset + match.size)});
}

static void Tell(HWND dialog, const NoteMatch& match, SearchProgressBox& progress) {
    switch (match.end) {
        case NoteSearchEnd::kFound: ShowMatch(FrameOf(dialog), match); break;
        case NoteSearchEnd::kNotFound:
            ShowSearchEnd(progress, theSearch.range.EndVerse);
            MessageBoxA(dialog, "Text not found", "Search Notes", MB_OK | MB_ICONINFORMATION);
            break;
        case NoteSearchEnd::kUnreadable:
            ShowSearchEnd(progress, match.verse);
            Complain(dialog, kCannotReadNote);
            break;
    }
}

static void Find(HWND dialog) {
    Read(dialog);
    if (theSearch.NoteSearchText.empty()) {
        EndDialog(dialog, IDCANCEL);
        return;
    }
    const LetterTable letters = SystemLetters();
    if (!theSearch.options.CaseSensitive) theSearch.NoteSearchText = TextInCapitals(letters, theSearch.NoteSearchText);
    BeginSearchProgress(theProgress, dialog, theSearch.range);
    Tell(dialog, Search(FrameOf(dialog), letters, theProgress), theProgress);
    HideSearchProgress(theProgress);
    theResumePoint = BehindSelection();
}

static void OnCommand(HWND dialog, int control, UINT) {
    switch (control) {
        case IDOK:  // Find First
            theResumePoint = {theSearch.range.StartVerse, 0};
            Find(dialog);
            break;
        case IDC_FIND_NEXT: Find(dialog); break;
        case kDialogIsShown: CreateSearchProgress(theProgress, dialog); break;
        case IDC_RANGE: AskSearchRange(dialog); break;
        case IDC_HELP_BUTTON: OpenHelpTopic(dialog, kHelpFile, kTopicSearchNotes); break;
    }
}

void AskNoteSearch(HWND frame) {
    if (theNoteSets.sets.empty()) return;
    KeepNoteSelectionShown(true);
    RunDialog(frame, {"SEARCHNOTES", Fill, OnCommand});
    theProgress = {};  // the box was the dialog's
    KeepNoteSelectionShown(false);
}
