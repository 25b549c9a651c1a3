#include "exchange/import_notes_dialog.h"

#include <algorithm>
#include <utility>

#include "exchange/import_lines.h"
#include "exchange/import_source_win32.h"
#include "exchange/new_set_import.h"
#include "exchange/note_formats.h"
#include "history/marked_text_win32.h"
#include "history/state_lines.h"
#include "notes/note_files_win32.h"
#include "notes/note_set_changes.h"
#include "notes/notes_window.h"
#include "notes/search_progress_dialog.h"
#include "resources/help_topics.h"
#include "resources/ids.h"
#include "scripture/scripture_win32.h"
#include "win32/code_page.h"
#include "win32/controls.h"
#include "win32/dialogs.h"
#include "win32/file_dialogs.h"
#include "win32/files.h"
#include "win32/folder_dialog.h"
#include "win32/help_viewer.h"
#include "win32/plain_text.h"

namespace {

// Of the open dialog.
struct ImportDialog {
    std::optional<ExchangedNotes> read;  // what the file or folder has
    std::optional<ImportPlan> plan;      // for the chosen set; nullopt if nothing can be imported into it
    std::optional<ImportedNotes> imported;
    SearchProgressBox progress{.canStop = true, .title = "Reading..."};
};

}  // namespace

static ImportDialog theImport;

// ---- The set --------------------------------------------------------------------------------------------------------

// The line behind the sets is that of a new one.
static int ChosenSet(HWND dialog) {
    return static_cast<int>(SendDlgItemMessageA(dialog, IDC_IMPORT_SET, CB_GETCURSEL, 0, 0));
}

static bool IsNewSet(HWND dialog) {
    return ChosenSet(dialog) >= static_cast<int>(theNoteSets.sets.size());
}

static NoteSet& OldSet(HWND dialog) {
    return theNoteSets.sets[static_cast<std::size_t>(ChosenSet(dialog))];
}

static void ChooseSet(HWND dialog, std::size_t number) {
    SendDlgItemMessageA(dialog, IDC_IMPORT_SET, CB_SETCURSEL, number, 0);
    EnableWindow(GetDlgItem(dialog, IDC_NEW_SET_NAME), IsNewSet(dialog));
}

// Notes of a file that names its set go into that one, which may be new.
static void ChooseSetOfFile(HWND dialog, const std::string& name) {
    if (name.empty()) return;
    const int set = SetNamed(theNoteSets, name);
    if (set == kNoSet) SetDlgItemTextA(dialog, IDC_NEW_SET_NAME, name.c_str());
    ChooseSet(dialog, set == kNoSet ? theNoteSets.sets.size() : static_cast<std::size_t>(set));
}

// ---- The list of notes ----------------------------------------------------------------------------------------------

static std::wstring WideOfUtf8(const std::string& text) {
    return Wide(LettersOfUtf8(text));
}

static std::wstring FirstWordsOf(const std::string& note) {
    static constexpr std::size_t kLength = 120;  // more than a column can show
    return Wide(FirstWords(LettersOfNote(TheNoteFiles().codePage, note), kLength));
}

static std::wstring RowOf(const PlannedNote& note) {
    const std::string verse = ReferenceText(theScripture.records, note.verse, BookForm::kName);
    return WideOfCodePage(verse + '\t' + KindText(note.kind) + '\t' + ChoiceText(note) + '\t') +
           (note.mine.empty() ? L"" : FirstWordsOf(note.mine)) + L'\t' + FirstWordsOf(note.imported);
}

static std::wstring RowOf(const UnplacedText& text) {
    return WideOfUtf8(text.where + "\tnot placed\t" + (text.line == 0 ? "" : "line " + std::to_string(text.line)) +
                      '\t' + text.reason + '\t') +
           FirstWordsOf(text.text);
}

static HWND ListOf(HWND dialog) {
    return GetDlgItem(dialog, IDC_IMPORTED_NOTES);
}

static void AddRow(HWND list, const std::wstring& row) {
    SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row.c_str()));
}

// Texts that are not placed stand first, because something has to be done about them.
static void ShowRows(HWND dialog) {
    static constexpr std::size_t kRowSize = 300;  // bytes, about
    const HWND list = ListOf(dialog);
    SetWindowRedraw(list, FALSE);
    ListBox_ResetContent(list);
    if (theImport.plan) {
        const std::size_t rows = theImport.plan->unplaced.size() + theImport.plan->notes.size();
        SendMessageW(list, LB_INITSTORAGE, rows, static_cast<LPARAM>(rows * kRowSize));
        for (const UnplacedText& text : theImport.plan->unplaced) AddRow(list, RowOf(text));
        for (const PlannedNote& note : theImport.plan->notes) AddRow(list, RowOf(note));
    }
    ListBox_SetCurSel(list, 0);
    SetWindowRedraw(list, TRUE);
    InvalidateRect(list, nullptr, TRUE);
}

// The note of the selected row; null if none is selected.
static PlannedNote* SelectedNote(HWND dialog) {
    const int row = ListBox_GetCurSel(ListOf(dialog));
    if (!theImport.plan || row < 0) return nullptr;
    const auto unplaced = static_cast<int>(theImport.plan->unplaced.size());
    return row < unplaced ? nullptr : &theImport.plan->notes[static_cast<std::size_t>(row - unplaced)];
}

static const UnplacedText* SelectedUnplaced(HWND dialog) {
    const int row = ListBox_GetCurSel(ListOf(dialog));
    if (!theImport.plan || row < 0) return nullptr;
    const std::vector<UnplacedText>& unplaced = theImport.plan->unplaced;
    return static_cast<std::size_t>(row) < unplaced.size() ? &unplaced[static_cast<std::size_t>(row)] : nullptr;
}

// ---- The selected note ----------------------------------------------------------------------------------------------

static constexpr int kChoices[] = {IDC_KEEP_SETS, IDC_TAKE_IMPORTED, IDC_KEEP_BOTH};  // as in ImportChoice

static void ShowText(HWND dialog) {
    const HWND text = GetDlgItem(dialog, IDC_IMPORTED_TEXT);
    if (const PlannedNote* note = SelectedNote(dialog)) return ShowMarkedText(text, note->imported, note->mine);
    UseNotesFont(text);
    const UnplacedText* unplaced = SelectedUnplaced(dialog);
    if (unplaced == nullptr) return SetPlainText(text, u"");
    static constexpr std::size_t kShownLetters = 10'000;  // the field lays all of them out: millions take minutes
    const std::u16string why = LettersOfUtf8(UnplacedLine(*unplaced));
    const std::u16string letters = LettersOfNote(TheNoteFiles().codePage, unplaced->text);
    const bool isWhole = letters.size() <= kShownLetters;
    SetPlainText(text, why + u"\r\n\r\n" + letters.substr(0, kShownLetters) + (isWhole ? u"" : u"..."));
}

// Of a new note there is only one text to choose.
static void ShowChoice(HWND dialog) {
    const PlannedNote* note = SelectedNote(dialog);
    for (int i = 0; i < 3; ++i) {
        const bool needsBoth = kChoices[i] == IDC_KEEP_BOTH;
        const bool hasBoth = note != nullptr && !note->mine.empty() && !note->imported.empty();
        EnableWindow(GetDlgItem(dialog, kChoices[i]), note != nullptr && (!needsBoth || hasBoth));
        SetChecked(dialog, kChoices[i], note != nullptr && static_cast<int>(note->choice) == i);
    }
    EnableWindow(GetDlgItem(dialog, IDC_FOR_ALL_ALIKE), note != nullptr);
}

static void ShowSelected(HWND dialog) {
    ShowText(dialog);
    ShowChoice(dialog);
}

// ---- The plan -------------------------------------------------------------------------------------------------------

static std::string SummaryOf(const ImportDialog& state) {
    if (!state.read) return "Choose a file, or a folder of text files that are named by verses.";
    if (!state.read->error.empty()) return state.read->error;
    if (!state.plan) return "The files of this set cannot be read, or they are damaged.";
    const int notes = static_cast<int>(state.plan->notes.size()) + state.plan->sameNotes;
    const std::string summary = PlanSummary(*state.plan) + ".";
    return notes == 0 ? summary : std::to_string(notes) + (notes == 1 ? " note: " : " notes: ") + summary;
}

static void ShowSummary(HWND dialog) {
    SetDlgItemTextW(dialog, IDC_IMPORT_COUNTS, WideOfUtf8(SummaryOf(theImport)).c_str());
    const bool canImport = theImport.plan && ChangesOf(*theImport.plan) > 0;
    EnableWindow(GetDlgItem(dialog, IDOK), canImport);
    // Enter would press a disabled button, that is, do nothing.
    SendMessageA(dialog, DM_SETDEFID, canImport ? IDOK : IDC_IMPORT_FILE, 0);
}

static void Plan(HWND dialog) {
    const HCURSOR before = SetCursor(LoadCursorA(nullptr, IDC_WAIT));
    theImport.plan.reset();
    if (theImport.read && theImport.read->error.empty())
        theImport.plan = IsNewSet(dialog) ? PlanForNewSet("", *theImport.read)
                                          : PlanImport(TheNoteFiles(), OldSet(dialog), *theImport.read);
    ShowRows(dialog);
    ShowSelected(dialog);
    ShowSummary(dialog);
    SetCursor(before);
}

static void ShowRow(HWND dialog, int row, const PlannedNote& note) {
    const HWND list = ListOf(dialog);
    SendMessageW(list, LB_DELETESTRING, static_cast<WPARAM>(row), 0);
    SendMessageW(list, LB_INSERTSTRING, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(RowOf(note).c_str()));
}

static void Choose(HWND dialog, int button) {
    PlannedNote* note = SelectedNote(dialog);
    if (note == nullptr) return;
    note->choice = static_cast<ImportChoice>(std::ranges::find(kChoices, button) - kChoices);
    const int row = ListBox_GetCurSel(ListOf(dialog));
    ShowRow(dialog, row, *note);
    ListBox_SetCurSel(ListOf(dialog), row);
    ShowSummary(dialog);
}

static void ChooseForAllAlike(HWND dialog) {
    const PlannedNote* note = SelectedNote(dialog);
    if (note == nullptr) return;
    ChooseForAll(*theImport.plan, note->kind, note->choice);
    const int row = ListBox_GetCurSel(ListOf(dialog)), top = ListBox_GetTopIndex(ListOf(dialog));
    ShowRows(dialog);
    ListBox_SetTopIndex(ListOf(dialog), top);
    ListBox_SetCurSel(ListOf(dialog), row);
    ShowSummary(dialog);
}

// ---- The file -------------------------------------------------------------------------------------------------------

using Reading = ExchangedNotes (*)(const std::wstring& path, const SearchProgress& progress);

// nullopt if the user has cancelled it.
static std::optional<ExchangedNotes> NotesOf(HWND dialog, const std::wstring& path, Reading read) {
    const HCURSOR before = SetCursor(LoadCursorA(nullptr, IDC_WAIT));
    BeginSearchProgress(theImport.progress, dialog, {0, kExchangeSteps});
    ExchangedNotes notes = read(path, ProgressOf(theImport.progress));
    HideSearchProgress(theImport.progress);
    SetCursor(before);
    if (theImport.progress.isStopped) return std::nullopt;
    return notes;
}

// If it is cancelled, what was chosen before stays.
static void Take(HWND dialog, const std::wstring& path, Reading read) {
    if (path.empty()) return;
    std::optional<ExchangedNotes> notes = NotesOf(dialog, path, read);
    if (!notes) return;
    theImport.read = std::move(notes);
    SetDlgItemTextW(dialog, IDC_IMPORT_FROM, WithoutLongPrefix(path).c_str());
    ChooseSetOfFile(dialog, theImport.read->setName);
    Plan(dialog);
    if (!theImport.read->error.empty()) return Complain(dialog, WideOfUtf8(theImport.read->error));
    // From there, Enter imports; on the button that has been pressed it would ask for a file again.
    SendMessageA(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(ListOf(dialog)), TRUE);
}

static std::vector<FileKind> KindsToRead() {
    std::vector<FileKind> kinds = {{L"Files with Notes", L""}};
    for (const NoteFormat& format : NoteFormats()) {
        if (!kinds[0].patterns.empty()) kinds[0].patterns += L';';
        kinds[0].patterns += Wide(format.patterns);
        kinds.push_back({Wide(std::string(format.name) + " (" + format.patterns + ")"), Wide(format.patterns)});
    }
    return kinds;
}

static void AskFile(HWND dialog) {
    Take(dialog, AskFileToOpen(dialog, KindsToRead()), ReadNoteFile);
}

static void AskFolderOfFiles(HWND dialog) {
    Take(dialog, AskFolder(dialog, L"Folder of text files that are named by verses"), ReadNoteFilesIn);
}

// ---- Importing ------------------------------------------------------------------------------------------------------

static void ComplainOfName(HWND dialog, const std::string& problem) {
    Complain(dialog, problem.c_str());
    SelectField(dialog, IDC_NEW_SET_NAME);
}

// A sentence for the user if no new set can have the name; otherwise empty.
static std::string ProblemOfName(const std::u16string& typed) {
    if (typed.empty()) return "Type a name for the new set.";
    const NoteFiles& files = TheNoteFiles();
    const std::string inUse = NameInUse(files, typed);
    if (!inUse.empty()) return inUse + ".";
    const std::optional<std::string> name = SetNameOf(files, typed);
    return name ? ReasonAgainstNewSet(files, theNoteSets, *name) : kNameNotInCodePage;
}

// `set` is the number of the set that was to get the notes.
static void End(HWND dialog, const ImportResult& result, int set, bool isNewSet) {
    const std::string report = ResultText(*theImport.plan, result);
    if (result.end == ImportEnd::kImported) {
        theImport.imported = {.set = set, .isNewSet = isNewSet, .report = report};
        EndDialog(dialog, IDOK);
        return;
    }
    if (result.end == ImportEnd::kChangedOnDisk) Plan(dialog);
    Complain(dialog, report.c_str());
}

static void ImportIntoNew(HWND dialog) {
    const std::u16string typed = LettersOf(WideControlText(dialog, IDC_NEW_SET_NAME, kNoteSetNameLimit));
    const std::string problem = ProblemOfName(typed);
    if (!problem.empty()) return ComplainOfName(dialog, problem);
    theImport.plan->setName = *SetNameOf(TheNoteFiles(), typed);
    const int set = ChosenSet(dialog);
    const HCURSOR before = SetCursor(LoadCursorA(nullptr, IDC_WAIT));
    const NewSetImport done = ImportIntoNewSet(TheNoteFiles(), theNoteSets, *theImport.plan, NoteTimeNow());
    SetCursor(before);
    if (!done.problem.empty()) return ComplainOfName(dialog, done.problem);
    End(dialog, done.result, set, true);
}

static void ImportIntoOld(HWND dialog) {
    const HCURSOR before = SetCursor(LoadCursorA(nullptr, IDC_WAIT));
    const ImportResult result = ImportNotes(TheNoteFiles(), theNoteSets, *theImport.plan, NoteTimeNow());
    SetCursor(before);
    End(dialog, result, ChosenSet(dialog), false);
}

static void OnOk(HWND dialog) {
    if (!theImport.plan || ChangesOf(*theImport.plan) == 0) return;
    IsNewSet(dialog) ? ImportIntoNew(dialog) : ImportIntoOld(dialog);
}

// ---- The dialog -----------------------------------------------------------------------------------------------------

static constexpr int kColumns[] = {76, 150, 216, 291};
static constexpr ListColumns kLists[] = {{IDC_IMPORTED_NOTES, kColumns}};

static void Fill(HWND dialog) {
    for (const NoteSet& set : theNoteSets.sets)
        SendDlgItemMessageA(dialog, IDC_IMPORT_SET, CB_ADDSTRING, 0,
                            reinterpret_cast<LPARAM>(NoteSetName(set).c_str()));
    SendDlgItemMessageA(dialog, IDC_IMPORT_SET, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>("(a new set)"));
    SendDlgItemMessageA(dialog, IDC_NEW_SET_NAME, EM_LIMITTEXT, kNoteSetNameLimit, 0);
    ChooseSet(dialog, static_cast<std::size_t>(theNoteSets.currentSet));
    Plan(dialog);
    SetFocus(GetDlgItem(dialog, IDC_IMPORT_FILE));
}

static void OnCommand(HWND dialog, int control, UINT notification) {
    switch (control) {
        case IDOK: OnOk(dialog); break;
        case IDC_IMPORT_FILE: AskFile(dialog); break;
        case IDC_IMPORT_FOLDER: AskFolderOfFiles(dialog); break;
        case IDC_IMPORT_SET:
            if (notification == CBN_SELCHANGE) ChooseSet(dialog, static_cast<std::size_t>(ChosenSet(dialog)));
            if (notification == CBN_SELCHANGE) Plan(dialog);
            break;
        case IDC_IMPORTED_NOTES:
            if (notification == LBN_SELCHANGE) ShowSelected(dialog);
            break;
        case IDC_KEEP_SETS:
        case IDC_TAKE_IMPORTED:
        case IDC_KEEP_BOTH:
            if (notification == BN_CLICKED) Choose(dialog, control);
            break;
        case IDC_FOR_ALL_ALIKE: ChooseForAllAlike(dialog); break;
        case IDC_HELP_BUTTON: OpenHelpTopic(dialog, kHelpFile, kTopicImportNotes); break;
    }
}

std::optional<ImportedNotes> AskImport(HWND frame) {
    theImport = {};
    RunDialog(frame, {.name = "IMPORTNOTES",
                      .fill = Fill,
                      .command = OnCommand,
                      .rescaled = ShowText,  // in the font of the notes
                      .recolored = ShowText,
                      .lists = kLists});
    return std::exchange(theImport, {}).imported;
}
