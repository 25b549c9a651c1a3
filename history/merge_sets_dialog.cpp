#include "history/merge_sets_dialog.h"

#include <algorithm>

#include "history/set_merging.h"
#include "notes/conflict_copies.h"
#include "notes/note_files_win32.h"
#include "notes/notes_window.h"
#include "resources/help_topics.h"
#include "resources/ids.h"
#include "scripture/letters.h"
#include "scripture/scripture_win32.h"
#include "win32/code_page.h"
#include "win32/controls.h"
#include "win32/dialogs.h"
#include "win32/help_viewer.h"

namespace {

// Of the open dialog.
struct MergeDialog {
    std::vector<ConflictCopy> copies;  // those of conflicts
    std::vector<std::string> names;    // of the sets, then of copies that are no sets
    int setCount = 0;
    std::optional<SetMerge> merge;  // of the two that are chosen; nullopt if they cannot be merged
    bool isMerged = false;
};

struct ChosenSets {
    std::string copy, set;
};

}  // namespace

static MergeDialog theMergeDialog;

// ---- The two lists of sets ------------------------------------------------------------------------------------------

static bool HasName(const std::vector<std::string>& names, const std::string& name) {
    return std::ranges::any_of(names, [&](const std::string& other) { return EqualIgnoringCase(name, other); });
}

static void ReadNames() {
    MergeDialog& state = theMergeDialog;
    for (const NoteSet& set : theNoteSets.sets) state.names.push_back(NoteSetName(set));
    state.setCount = static_cast<int>(state.names.size());
    state.copies = FindConflictCopies(TheNoteFiles());
    for (const ConflictCopy& copy : state.copies)
        if (!HasName(state.names, copy.name)) state.names.push_back(copy.name);
}

static ChosenSets FirstChoice(const ChosenSets& asked) {
    const MergeDialog& state = theMergeDialog;
    if (HasName(state.names, asked.copy)) return asked;
    const auto certain = std::ranges::find_if(state.copies, [](const ConflictCopy& copy) { return copy.of.isCertain; });
    if (certain != state.copies.end()) return {certain->name, certain->of.set};
    if (!state.copies.empty()) return {state.copies[0].name, state.copies[0].of.set};
    const std::string current = CurrentSet(theNoteSets) ? NoteSetName(*CurrentSet(theNoteSets)) : "";
    const auto other = std::ranges::find_if(state.names, [&](const std::string& name) { return name != current; });
    return {other == state.names.end() ? "" : *other, current};
}

static void AddNames(HWND dialog, int list, int count) {
    for (const std::string& name : std::span(theMergeDialog.names).first(static_cast<std::size_t>(count)))
        SendDlgItemMessageA(dialog, list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
}

static void Choose(HWND dialog, int list, const std::string& name) {
    const auto found = std::ranges::find_if(theMergeDialog.names,
                                            [&](const std::string& other) { return EqualIgnoringCase(name, other); });
    if (found != theMergeDialog.names.end())
        SendDlgItemMessageA(dialog, list, CB_SETCURSEL, static_cast<WPARAM>(found - theMergeDialog.names.begin()), 0);
}

static std::string Chosen(HWND dialog, int list) {
    const auto place = SendDlgItemMessageA(dialog, list, CB_GETCURSEL, 0, 0);
    return place < 0 ? "" : theMergeDialog.names[static_cast<std::size_t>(place)];
}

// ---- The list of notes ----------------------------------------------------------------------------------------------

static const char* TextOf(const MergedNote& note) {
    switch (note.kind) {
        case MergeKind::kStays: return "stays";
        case MergeKind::kFromCopy: return note.result.empty() ? "emptied" : "from the copy";
        case MergeKind::kBoth: return "both texts";
        case MergeKind::kTooLong: return "stays (too long)";
    }
    return "";
}

static std::wstring WideNote(const std::string& note) {
    return Wide(LettersOfNote(TheNoteFiles().codePage, note));
}

// In one line, and more of it than a column can show.
static std::wstring FirstWords(const std::string& note) {
    static constexpr std::size_t kLength = 120;
    const std::wstring text = WideNote(note);
    std::wstring line = text.substr(0, kLength);
    std::ranges::replace_if(
        line, [](wchar_t c) { return c < L' '; }, L' ');
    return text.size() > kLength ? line + L"..." : line;
}

static std::wstring RowOf(const MergedNote& note) {
    return WideOfCodePage(ReferenceText(theScripture.records, note.verse, BookForm::kName) + '\t' + TextOf(note) +
                          '\t') +
           FirstWords(note.mine) + L'\t' + FirstWords(note.other);
}

static std::string Counted(std::ptrdiff_t count, const char* one, const char* many) {
    return std::to_string(count) + ' ' + (count == 1 ? one : many);
}

static std::string CountsOf(const SetMerge& merge) {
    const auto count = [&](MergeKind kind) { return std::ranges::count(merge.notes, kind, &MergedNote::kind); };
    const auto emptied = std::ranges::count_if(
        merge.notes, [](const MergedNote& note) { return note.kind == MergeKind::kFromCopy && note.result.empty(); });
    std::string text =
        Counted(count(MergeKind::kFromCopy) - emptied, "note is", "notes are") + " taken from the copy, " +
        (emptied > 0 ? Counted(emptied, "is", "are") + " emptied as in the copy, " : "") +
        Counted(count(MergeKind::kBoth), "gets", "get") + " both texts, " +
        Counted(count(MergeKind::kStays), "stays", "stay") + ", " + Counted(merge.equalNotes, "is", "are") + " equal.";
    const auto tooLong = count(MergeKind::kTooLong);
    if (tooLong > 0)
        text += " For " + std::to_string(tooLong) + " there is no room: the copy's text goes to the earlier notes.";
    return text;
}

static std::string WhyNot(const ChosenSets& chosen) {
    if (chosen.copy.empty() || EqualIgnoringCase(chosen.copy, chosen.set)) return "Choose two different sets.";
    return "One of the two cannot be read, or it is damaged.";
}

static void ShowTexts(HWND dialog) {
    const auto row = SendDlgItemMessageA(dialog, IDC_MERGED_NOTES, LB_GETCURSEL, 0, 0);
    const bool isChosen = theMergeDialog.merge && row >= 0;
    const MergedNote none;
    const MergedNote& note = isChosen ? theMergeDialog.merge->notes[static_cast<std::size_t>(row)] : none;
    for (const int text : {IDC_TEXT_IN_SET, IDC_TEXT_IN_COPY}) UseNotesFont(GetDlgItem(dialog, text));
    SetDlgItemTextW(dialog, IDC_TEXT_IN_SET, WideNote(note.mine).c_str());
    SetDlgItemTextW(dialog, IDC_TEXT_IN_COPY, WideNote(note.other).c_str());
}

static void ShowRows(HWND dialog) {
    const HWND list = GetDlgItem(dialog, IDC_MERGED_NOTES);
    SetWindowRedraw(list, FALSE);
    ListBox_ResetContent(list);
    if (theMergeDialog.merge)
        for (const MergedNote& note : theMergeDialog.merge->notes)
            SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(RowOf(note).c_str()));
    ListBox_SetCurSel(list, 0);
    SetWindowRedraw(list, TRUE);
    InvalidateRect(list, nullptr, TRUE);
}

static void Plan(HWND dialog) {
    const ChosenSets chosen{Chosen(dialog, IDC_MERGED_COPY), Chosen(dialog, IDC_MERGED_SET)};
    const bool areTwo = !chosen.copy.empty() && !EqualIgnoringCase(chosen.copy, chosen.set);
    const HCURSOR before = SetCursor(LoadCursorA(nullptr, IDC_WAIT));
    theMergeDialog.merge = areTwo ? PlanSetMerge(TheNoteFiles(), chosen.copy, chosen.set) : std::nullopt;
    ShowRows(dialog);
    SetCursor(before);
    ShowTexts(dialog);
    const std::optional<SetMerge>& merge = theMergeDialog.merge;
    SetDlgItemTextA(dialog, IDC_MERGE_COUNTS, (merge ? CountsOf(*merge) : WhyNot(chosen)).c_str());
    EnableWindow(GetDlgItem(dialog, IDOK), merge.has_value());
}

// A copy of a conflict is merged into its own set, unless the user chooses another one.
static void OnCopyChosen(HWND dialog) {
    const std::string name = Chosen(dialog, IDC_MERGED_COPY);
    for (const ConflictCopy& copy : theMergeDialog.copies)
        if (copy.name == name) Choose(dialog, IDC_MERGED_SET, copy.of.set);
    Plan(dialog);
}

// ---- The dialog -----------------------------------------------------------------------------------------------------

static constexpr int kColumns[] = {76, 140, 240};
static constexpr ListColumns kLists[] = {{IDC_MERGED_NOTES, kColumns}};

static void Fill(HWND dialog) {
    const ChosenSets asked = FirstChoice(*static_cast<const ChosenSets*>(DataOf(dialog)));
    AddNames(dialog, IDC_MERGED_COPY, static_cast<int>(theMergeDialog.names.size()));
    AddNames(dialog, IDC_MERGED_SET, theMergeDialog.setCount);
    Choose(dialog, IDC_MERGED_COPY, asked.copy);
    Choose(dialog, IDC_MERGED_SET, asked.set);
    Plan(dialog);
}

static constexpr char kCaption[] = "Merge Sets";

static void TellOf(HWND dialog, SetMergeEnd end) {
    switch (end) {
        case SetMergeEnd::kMerged: break;
        case SetMergeEnd::kChangedOnDisk:
            MessageBoxA(dialog,
                        "The files of the sets have changed since they were read, and nothing was written. The list "
                        "now shows what a merge would do.",
                        kCaption, MB_OK | MB_ICONEXCLAMATION);
            break;
        case SetMergeEnd::kCannotWrite:
            Complain(dialog, "The merged notes cannot be written. Disk may be full! All notes are as they were.");
            break;
        case SetMergeEnd::kNotMovedAway:
            MessageBoxA(dialog,
                        "The notes are merged, but the copy is still there, because another program has its files "
                        "open. Merge the two again later: nothing is added twice.",
                        kCaption, MB_OK | MB_ICONEXCLAMATION);
            break;
    }
}

static void OnOk(HWND dialog) {
    if (!theMergeDialog.merge) return;
    const HCURSOR before = SetCursor(LoadCursorA(nullptr, IDC_WAIT));
    const SetMergeEnd end = MergeSets(TheNoteFiles(), theNoteSets, *theMergeDialog.merge, NoteTimeNow());
    SetCursor(before);
    theMergeDialog.isMerged = end == SetMergeEnd::kMerged || end == SetMergeEnd::kNotMovedAway;
    if (end == SetMergeEnd::kChangedOnDisk) Plan(dialog);
    TellOf(dialog, end);
    if (theMergeDialog.isMerged) EndDialog(dialog, IDOK);
}

static void OnCommand(HWND dialog, int control, UINT notification) {
    switch (control) {
        case IDOK: OnOk(dialog); break;
        case IDC_MERGED_COPY:
            if (notification == CBN_SELCHANGE) OnCopyChosen(dialog);
            break;
        case IDC_MERGED_SET:
            if (notification == CBN_SELCHANGE) Plan(dialog);
            break;
        case IDC_MERGED_NOTES:
            if (notification == LBN_SELCHANGE) ShowTexts(dialog);
            break;
        case IDC_HELP_BUTTON: OpenHelpTopic(dialog, kHelpFile, kTopicMergeSets); break;
    }
}

bool AskMergeSets(HWND frame, const std::string& copy, const std::string& set) {
    const ChosenSets asked{copy, set};
    theMergeDialog = {};
    ReadNames();
    RunDialog(frame, {.name = "MERGESETS",
                      .fill = Fill,
                      .command = OnCommand,
                      .data = &asked,
                      .rescaled = ShowTexts,  // in the font of the notes
                      .lists = kLists});
    const bool isMerged = theMergeDialog.isMerged;
    theMergeDialog = {};
    return isMerged;
}
