#include "history/earlier_states_dialog.h"

#include <algorithm>

#include "history/local_times_win32.h"
#include "history/marked_text_win32.h"
#include "history/set_states.h"
#include "history/state_lines.h"
#include "notes/note_files_win32.h"
#include "notes/note_set_changes.h"
#include "resources/help_topics.h"
#include "resources/ids.h"
#include "scripture/letters.h"
#include "scripture/scripture_win32.h"
#include "win32/code_page.h"
#include "win32/controls.h"
#include "win32/dialogs.h"
#include "win32/help_viewer.h"
#include "win32/plain_text.h"

static constexpr int kNoLine = -1;

namespace {

// What the open dialog shows.
struct ShownStates {
    std::string setName;  // at which it opens
    std::vector<SetBackup> states{};
    int firstLine = kNoLine;      // of the latest whole state of that set
    NotesInMemory then{}, now{};  // of the selected state, and of the set of its name as it is
    std::vector<int> verses{};    // those that differ, in the order of the list
    StateChoice choice{};
};

}  // namespace

static constexpr std::size_t kFirstWords = 160;  // more than a column can show

static ShownStates& ShownBy(HWND dialog) {
    return *const_cast<ShownStates*>(static_cast<const ShownStates*>(DataOf(dialog)));
}

static int SelectedLine(HWND dialog, int list) {
    const auto line = SendDlgItemMessageA(dialog, list, LB_GETCURSEL, 0, 0);
    return line == LB_ERR ? kNoLine : static_cast<int>(line);
}

static const SetBackup* SelectedState(HWND dialog) {
    const int line = SelectedLine(dialog, IDC_STATES);
    return line == kNoLine ? nullptr : &ShownBy(dialog).states[static_cast<std::size_t>(line)];
}

static int SelectedVerse(HWND dialog) {
    const int line = SelectedLine(dialog, IDC_STATE_VERSES);
    return line == kNoLine ? kNoVerse : ShownBy(dialog).verses[static_cast<std::size_t>(line)];
}

static void AddLine(HWND dialog, int list, const std::wstring& line) {
    SendDlgItemMessageW(dialog, list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
}

// ---- The states -----------------------------------------------------------------------------------------------------

static WORD Number(const std::string& text, std::size_t place, std::size_t length) {
    return static_cast<WORD>(std::stoi(text.substr(place, length)));
}

// As the user's settings write it, with the time of day if it is known; as in the file's name if it is none.
static std::string DayOf(const SetBackup& state) {
    SYSTEMTIME time{};
    time.wYear = Number(state.day, 0, 4);
    time.wMonth = Number(state.day, 5, 2);
    time.wDay = Number(state.day, 8, 2);
    if (state.clock.empty()) {
        const std::string date = LocalDate(time);
        return date.empty() ? state.day : date;
    }
    time.wHour = Number(state.clock, 0, 2);
    time.wMinute = Number(state.clock, 2, 2);
    time.wSecond = Number(state.clock, 4, 2);
    const std::string date = LocalDate(time), clock = LocalClock(time);
    return date.empty() || clock.empty() ? state.day + ' ' + state.clock : date + ' ' + clock;
}

// Reads the state and the set of its name, whose notes are none if it does not exist or cannot be read.
static void ReadState(ShownStates& shown, const SetBackup& state) {
    shown.then = {};
    shown.now = {};
    ReadNotesInMemory(TheNoteFiles(), BackupName(state) + kDataEnding, shown.then);
    const NoteSet* set = SetCalled(theNoteSets, state.setName);
    if (set != nullptr) ReadNotesInMemory(TheNoteFiles(), *set, shown.now);
}

static std::string DifferenceOf(const SetBackup& state, const NotesInMemory& then, std::size_t differing) {
    if (!then.isWhole) return "this copy is damaged";
    if (SetCalled(theNoteSets, state.setName) == nullptr) return "the set does not exist now";
    return DifferenceText(differing);
}

// Reads each set once: its states are gone through together, although the list is in the order of their days.
static void AddStates(HWND dialog) {
    ShownStates& shown = ShownBy(dialog);
    std::vector<std::string> lines(shown.states.size());
    for (std::size_t first = 0; first < lines.size(); ++first) {
        if (!lines[first].empty()) continue;
        shown.now = {};
        const std::string& setName = shown.states[first].setName;
        const NoteSet* set = SetCalled(theNoteSets, setName);
        if (set != nullptr) ReadNotesInMemory(TheNoteFiles(), *set, shown.now);
        for (std::size_t i = first; i < lines.size(); ++i) {
            const SetBackup& state = shown.states[i];
            if (state.setName != setName) continue;
            shown.then = {};
            ReadNotesInMemory(TheNoteFiles(), BackupName(state) + kDataEnding, shown.then);
            const std::size_t differing = DifferingVerses(shown.then, shown.now).size();
            if (shown.firstLine == kNoLine && EqualIgnoringCase(setName, shown.setName) && shown.then.isWhole)
                shown.firstLine = static_cast<int>(i);
            lines[i] = DayOf(state) + "\t" + setName + "\t" + DifferenceOf(state, shown.then, differing);
        }
    }
    for (const std::string& line : lines) AddLine(dialog, IDC_STATES, WideOfCodePage(line));
}

// ---- The notes of a state -------------------------------------------------------------------------------------------

static std::wstring FirstWordsIn(const NotesInMemory& notes, int verse) {
    return Wide(FirstWords(LettersOfNote(TheNoteFiles().codePage, NoteIn(notes, verse)), kFirstWords));
}

static std::wstring LineOf(const ShownStates& shown, int verse) {
    return WideOfCodePage(ReferenceText(theScripture.records, verse, BookForm::kName)) + L"\t" +
           FirstWordsIn(shown.then, verse) + L"\t" + FirstWordsIn(shown.now, verse);
}

static void Enable(HWND dialog, int control, bool isEnabled) {
    EnableWindow(GetDlgItem(dialog, control), isEnabled);
}

static void ShowVerse(HWND dialog) {
    const ShownStates& shown = ShownBy(dialog);
    const SetBackup* state = SelectedState(dialog);
    const int verse = SelectedVerse(dialog);
    const HWND text = GetDlgItem(dialog, IDC_STATE_TEXT);
    if (verse == kNoVerse) {
        SetPlainText(text, u"");
    } else {
        ShowMarkedText(text, NoteIn(shown.then, verse), NoteIn(shown.now, verse));
    }
    Enable(dialog, IDOK, verse != kNoVerse && SetCalled(theNoteSets, state->setName) != nullptr);
}

static void ShowVerses(HWND dialog) {
    const ShownStates& shown = ShownBy(dialog);
    const HWND list = GetDlgItem(dialog, IDC_STATE_VERSES);
    SendMessageA(list, WM_SETREDRAW, FALSE, 0);
    SendMessageA(list, LB_RESETCONTENT, 0, 0);
    for (const int verse : shown.verses) AddLine(dialog, IDC_STATE_VERSES, LineOf(shown, verse));
    SendMessageA(list, LB_SETCURSEL, 0, 0);
    SendMessageA(list, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list, nullptr, TRUE);
}

static void ShowState(HWND dialog) {
    ShownStates& shown = ShownBy(dialog);
    const SetBackup* state = SelectedState(dialog);
    if (state == nullptr) return;
    const HCURSOR before = SetCursor(LoadCursorA(nullptr, IDC_WAIT));
    ReadState(shown, *state);
    shown.verses = shown.then.isWhole ? DifferingVerses(shown.then, shown.now) : std::vector<int>{};
    SetDlgItemTextA(dialog, IDC_SET_NAME, state->setName.c_str());
    Enable(dialog, IDC_RESTORE_SET, shown.then.isWhole);
    ShowVerses(dialog);
    ShowVerse(dialog);
    SetCursor(before);
}

static constexpr int kOfStates[] = {94, 220}, kOfVerses[] = {84, 236};
static constexpr ListColumns kLists[] = {{IDC_STATES, kOfStates}, {IDC_STATE_VERSES, kOfVerses}};

static void Rescaled(HWND dialog) {
    if (SelectedState(dialog) != nullptr) ShowVerse(dialog);  // a new font takes away the marks
}

static void Fill(HWND dialog) {
    ShownStates& shown = ShownBy(dialog);
    SendDlgItemMessageA(dialog, IDC_SET_NAME, EM_LIMITTEXT, kNoteSetNameLimit, 0);
    const HCURSOR before = SetCursor(LoadCursorA(nullptr, IDC_WAIT));
    shown.states = SetStates(TheNoteFiles());
    AddStates(dialog);
    SetCursor(before);
    SendDlgItemMessageA(dialog, IDC_STATES, LB_SETCURSEL, static_cast<WPARAM>(std::max(shown.firstLine, 0)), 0);
    if (shown.states.empty()) {
        for (const int control : {IDOK, IDC_RESTORE_SET, IDC_SET_NAME}) Enable(dialog, control, false);
        SetPlainText(
            GetDlgItem(dialog, IDC_STATE_TEXT),
            u"There are no earlier states. The first save of a day in a note set keeps a copy of it as it was.");
    }
    ShowState(dialog);
}

// ---- Restoring ------------------------------------------------------------------------------------------------------

static void RestoreNote(HWND dialog) {
    ShownStates& shown = ShownBy(dialog);
    const SetBackup* state = SelectedState(dialog);
    const int verse = SelectedVerse(dialog);
    const NoteSet* set = state != nullptr ? SetCalled(theNoteSets, state->setName) : nullptr;
    if (verse == kNoVerse || set == nullptr) return;
    shown.choice.note = NoteDraft{NoteSetName(*set), verse, std::string(NoteIn(shown.now, verse)),
                                  std::string(NoteIn(shown.then, verse))};
    EndDialog(dialog, IDOK);
}

static std::string RestoreQuestion(const NoteSet& set, const SetBackup& state) {
    const NoteFiles& files = TheNoteFiles();
    if (!files.stamp(files.device, set.dataFileName).exists)
        return "The data file \"" + set.dataFileName + "\" is missing. Do you want the notes of " + DayOf(state) +
               " in its place?";
    return "Are you SURE you want to replace all notes of the note set \"" + state.setName + "\" by those of " +
           DayOf(state) + "? What is in it now is first copied into the folder \"backup\".";
}

static bool IsReplacingMeant(HWND dialog, const NoteSet& set, const SetBackup& state) {
    const std::string question = RestoreQuestion(set, state);
    return MessageBoxA(dialog, question.c_str(), "Restore Set", MB_YESNO | MB_ICONEXCLAMATION) == IDYES;
}

static void RestoreSet(HWND dialog) {
    const SetBackup* state = SelectedState(dialog);
    if (state == nullptr) return;
    const std::wstring typed = WideControlText(dialog, IDC_SET_NAME, kNoteSetNameLimit);
    const std::optional<std::string> name = SetNameOf(TheNoteFiles(), LettersOf(typed));
    if (!name) {
        Complain(dialog, kNameNotInCodePage);
        return SelectField(dialog, IDC_SET_NAME);
    }
    const NoteSet* set = SetCalled(theNoteSets, *name);
    const bool isReplacing = set != nullptr && SetCalled(theNoteSets, state->setName) == set;
    if (isReplacing && !IsReplacingMeant(dialog, *set, *state)) return;
    const HCURSOR before = SetCursor(LoadCursorA(nullptr, IDC_WAIT));
    const std::string problem = RestoreSetState(TheNoteFiles(), theNoteSets, *state, *name, NoteTimeNow());
    SetCursor(before);
    ShownBy(dialog).choice.hasRestoredSet = true;  // even with a problem: it may be that of the readings' table only
    if (!problem.empty()) {
        Complain(dialog, problem.c_str());
        return SelectField(dialog, IDC_SET_NAME);
    }
    EndDialog(dialog, IDC_RESTORE_SET);
}

static void OnCommand(HWND dialog, int control, UINT notification) {
    switch (control) {
        case IDOK: RestoreNote(dialog); break;
        case IDC_RESTORE_SET: RestoreSet(dialog); break;
        case IDC_STATES:
            if (notification == LBN_SELCHANGE) ShowState(dialog);
            break;
        case IDC_STATE_VERSES:
            if (notification == LBN_SELCHANGE) ShowVerse(dialog);
            if (notification == LBN_DBLCLK) RestoreNote(dialog);
            break;
        case IDC_HELP_BUTTON: OpenHelpTopic(dialog, kHelpFile, kTopicEarlierStates); break;
    }
}

StateChoice AskEarlierState(HWND frame, const std::string& setName) {
    ShownStates shown{.setName = setName};
    RunDialog(frame, {.name = "EARLIERSTATES",
                      .fill = Fill,
                      .command = OnCommand,
                      .data = &shown,
                      .rescaled = Rescaled,
                      .recolored = ShowVerse,
                      .lists = kLists});
    return shown.choice;
}
