#include "tests/windows/search_steps.h"

HWND ReferenceListOf(const Program& program) {
    return Child(program.frame, {IDC_LIST_TABS, IDC_REFERENCE_LIST});
}

static const char* TitleOf(int command) {
    switch (command) {
        case IDM_PHRASE_SEARCH: return "Phrase Search";
        case IDM_NEAR_SEARCH: return "Words Near Each Other";
        case IDM_SET_RANGE: return "Set Search Range";
        case IDM_SEARCH_NOTES: return "Search Note Set My Notes";
        default: return "Word Search";
    }
}

static void WatchAgain(Program& program) {
    HookProbe(program);
    Settle(program);
}

HWND OpenSearchDialog(Program& program, int command) {
    program.probe.reset();
    PostMessageA(program.frame, WM_COMMAND, static_cast<WPARAM>(command), 0);
    const HWND dialog = WaitForDialog(program, TitleOf(command));
    WatchAgain(program);
    return dialog;
}

static void PressOk(HWND dialog) {
    PostMessageA(dialog, WM_COMMAND, IDOK, 0);
}

// Starts the search and leaves the program without a probe.
static void Ask(Program& program, const Query& query) {
    const HWND dialog = OpenSearchDialog(program, query.command);
    SetDlgItemTextA(dialog, IDC_SEARCH_TEXT, query.text.c_str());
    CheckDlgButton(dialog, IDC_CASE_SENSITIVE, query.caseSensitive ? BST_CHECKED : BST_UNCHECKED);
    if (query.command != IDM_PHRASE_SEARCH && query.command != IDM_NEAR_SEARCH)
        CheckRadioButton(dialog, IDC_ALL_WORDS, IDC_ONE_WORD, query.combination);
    if (query.command != IDM_PHRASE_SEARCH)
        CheckDlgButton(dialog, IDC_SUBSTRING, query.substrings ? BST_CHECKED : BST_UNCHECKED);
    program.probe.reset();
    PressOk(dialog);
}

// The program handles no messages until the search is finished.
static void WaitForSearch(const Program& program) {
    WaitUntil(program, "the search dialog to be closed", [&] { return !HasDialog(program); });
    DWORD_PTR answer = 0;
    if (!SendMessageTimeoutA(program.frame, WM_NULL, 0, 0, SMTO_NORMAL, static_cast<UINT>(kPatience.count()), &answer))
        Fail(&program, "the search does not end");
}

void SearchFor(Program& program, const Query& query) {
    Ask(program, query);
    WaitForSearch(program);
    WatchAgain(program);
    if (HasDialog(program)) Fail(&program, "\"" + query.text + "\" is not found");
}

HWND SearchInVain(Program& program, const Query& query) {
    Ask(program, query);
    const HWND box = WaitForDialog(program, "Search Results");
    WatchAgain(program);
    return box;
}

void SetSearchRange(Program& program, std::string_view range) {
    const HWND dialog = OpenSearchDialog(program, IDM_SET_RANGE);
    SetDlgItemTextA(dialog, IDC_RANGE, std::string(range).c_str());
    PressOk(dialog);
    WaitForNoDialog(program);
}
