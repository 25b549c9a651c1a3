#include "search/search_dialog.h"

#include "resources/help_topics.h"
#include "resources/ids.h"
#include "scripture/reference_dialog.h"
#include "scripture/scripture_win32.h"
#include "search/near_controls_win32.h"
#include "win32/controls.h"
#include "win32/dialogs.h"
#include "win32/help_viewer.h"

WordIndex theWordIndex;
SearchState theSearch;

const SearchKind kWordSearch = {
    .query = QueryKind::kWords,
    .resource = "WORDSEARCH",
    .helpTopic = kTopicWordSearch,
    .hasWordOptions = true,
    .focusesVerseList = true,
};
const SearchKind kWordListSearch = {
    .query = QueryKind::kWords,
    .resource = "WORDLISTSEARCH",
    .helpTopic = kTopicWordListSearch,
    .hasWordOptions = true,
    .hasWordList = true,
    .summarizesNoMatches = true,
};
const SearchKind kPhraseSearch = {
    .query = QueryKind::kPhrase,
    .resource = "PHRASESEARCH",
    .helpTopic = kTopicPhraseSearch,
    .summarizesNoMatches = true,
};

const SearchKind kNearSearch = {
    .query = QueryKind::kNear,
    .resource = "NEARSEARCH",
    .helpTopic = kTopicNearSearch,
    .focusesVerseList = true,
    .hasNearOptions = true,
};

// ---- The list of all words ------------------------------------------------------------------------------------------

static constexpr int kListedWordLimit = 49;  // characters that Add copies

static void FillWordList(HWND list) {
    static constexpr LPARAM kBytesAWord = 12;
    const std::vector<std::string_view>& words = theWordIndex.words;
    SendMessageA(list, WM_SETREDRAW, FALSE, 0);
    SendMessageA(list, CB_INITSTORAGE, words.size(), static_cast<LPARAM>(words.size()) * kBytesAWord);
    for (const std::string_view word : words)
        SendMessageA(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(word.data()));
    SendMessageA(list, WM_SETREDRAW, TRUE, 0);
}

// If the field has text, a space is added even if no word is selected.
static void OnAdd(HWND dialog) {
    std::string text = ControlText(dialog, IDC_SEARCH_TEXT, kSearchTextLimit);
    if (!text.empty()) text += ' ';
    text += ControlText(dialog, IDC_WORD_LIST, kListedWordLimit);
    SetDlgItemTextA(dialog, IDC_SEARCH_TEXT, text.c_str());
}

static bool HasListedWord(HWND dialog) {
    return GetWindowTextLengthA(GetDlgItem(dialog, IDC_WORD_LIST)) > 0;
}

// Shows which button Enter presses.
static void SetDefaultButton(HWND dialog, int button) {
    if (LOWORD(SendMessageA(dialog, DM_GETDEFID, 0, 0)) == button) return;
    SendMessageA(dialog, DM_SETDEFID, static_cast<WPARAM>(button), 0);
    for (const int each : {IDOK, IDC_ADD_WORD})
        SendDlgItemMessageA(dialog, each, BM_SETSTYLE, each == button ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON, TRUE);
}

// A word that is chosen in the list comes into the field only after the notification.
static void OnWordList(HWND dialog, UINT notification) {
    switch (notification) {
        case CBN_DBLCLK: OnAdd(dialog); break;
        case CBN_SELCHANGE: SetDefaultButton(dialog, IDC_ADD_WORD); break;
        case CBN_SETFOCUS:
        case CBN_EDITCHANGE: SetDefaultButton(dialog, HasListedWord(dialog) ? IDC_ADD_WORD : IDOK); break;
        case CBN_KILLFOCUS: SetDefaultButton(dialog, IDOK); break;
    }
}

// The word that was added is selected, so that the next one replaces it.
static void OnEnterInList(HWND dialog) {
    if (IsControlDown() || !HasListedWord(dialog)) {
        FORWARD_WM_COMMAND(dialog, IDOK, GetDlgItem(dialog, IDOK), BN_CLICKED, SendMessageA);
        return;
    }
    OnAdd(dialog);
    SendDlgItemMessageA(dialog, IDC_WORD_LIST, CB_SETEDITSEL, 0, MAKELPARAM(0, -1));
}

// The list's own field takes Enter itself, because the field of an open list may keep the key from the dialog. While
// the key is held down it counts once. Its character would sound as a mistake.
static LRESULT CALLBACK ListFieldProcedure(HWND field, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                           DWORD_PTR dialog) {
    switch (message) {
        case WM_GETDLGCODE:
            if (wParam == VK_RETURN) return DLGC_WANTMESSAGE;
            break;
        case WM_KEYDOWN:
            if (wParam != VK_RETURN) break;
            if (!(HIWORD(lParam) & KF_REPEAT)) OnEnterInList(reinterpret_cast<HWND>(dialog));
            return 0;
        case WM_CHAR:
            if (wParam == '\r' || wParam == '\n') return 0;
            break;
        case WM_NCDESTROY: RemoveWindowSubclass(field, ListFieldProcedure, id); break;
    }
    return DefSubclassProc(field, message, wParam, lParam);
}

static void PrepareWordList(HWND dialog) {
    const HWND list = GetDlgItem(dialog, IDC_WORD_LIST);
    FillWordList(list);
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    if (GetComboBoxInfo(list, &parts))
        SetWindowSubclass(parts.hwndItem, ListFieldProcedure, 0, reinterpret_cast<DWORD_PTR>(dialog));
}

// ---- Filling --------------------------------------------------------------------------------------------------------

namespace {

struct SearchQuestion {
    const SearchKind& kind;
    bool (*search)(const SearchKind& kind);
    bool& found;
};

}  // namespace

static const SearchQuestion& QuestionOf(HWND dialog) {
    return *static_cast<const SearchQuestion*>(DataOf(dialog));
}

static const SearchKind& KindOf(HWND dialog) {
    return QuestionOf(dialog).kind;
}

static void FillHistory(HWND field) {
    for (const std::string& entry : theSearch.history) {
        if (entry.empty() || entry == " ") continue;  // an unused slot
        SendMessageA(field, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry.c_str()));
    }
}

static int RadioOf(int booleanType) {
    return booleanType == kAllWords ? IDC_ALL_WORDS : booleanType == kAnyWord ? IDC_ANY_WORD : IDC_ONE_WORD;
}

static void Fill(HWND dialog) {
    const SearchKind& kind = KindOf(dialog);
    const HWND field = GetDlgItem(dialog, IDC_SEARCH_TEXT);
    SendMessageA(field, CB_LIMITTEXT, kSearchTextLimit, 0);
    FillHistory(field);
    SetWindowTextA(field, theSearch.searchText.c_str());
    SetChecked(dialog, IDC_CASE_SENSITIVE, theSearch.options.CaseSensitive != 0);
    if (kind.hasWordOptions) {
        CheckRadioButton(dialog, IDC_ALL_WORDS, IDC_ONE_WORD, RadioOf(theSearch.options.BooleanType));
        SetChecked(dialog, IDC_SUBSTRING, theSearch.options.SubString != 0);
    }
    if (kind.hasWordList) PrepareWordList(dialog);
    if (kind.hasNearOptions) FillNearControls(dialog, theSearch, theWordIndex);
}

// ---- Reading --------------------------------------------------------------------------------------------------------

static int CheckedBooleanType(HWND dialog) {
    if (IsChecked(dialog, IDC_ALL_WORDS)) return kAllWords;
    return IsChecked(dialog, IDC_ANY_WORD) ? kAnyWord : kOneWord;
}

static void Read(HWND dialog) {
    theSearch.searchText = ControlText(dialog, IDC_SEARCH_TEXT, kSearchTextLimit);
    PushHistory(theSearch, theSearch.searchText);
    theSearch.options.CaseSensitive = IsChecked(dialog, IDC_CASE_SENSITIVE);
    if (KindOf(dialog).hasNearOptions) ReadNearControls(dialog, theSearch);
    if (!KindOf(dialog).hasWordOptions) return;
    theSearch.options.SubString = IsChecked(dialog, IDC_SUBSTRING);
    theSearch.options.BooleanType = CheckedBooleanType(dialog);
}

static void OnOk(HWND dialog) {
    if (KindOf(dialog).hasNearOptions && !CanSearchNear(dialog)) return;
    RunIfEnabled(FrameOf(dialog), IDM_VIEW_LIST);
    Read(dialog);
    EndDialog(dialog, IDOK);
    const SearchQuestion& question = QuestionOf(dialog);
    question.found = question.search(question.kind);
}

static void OnCommand(HWND dialog, int control, UINT notification) {
    if (KindOf(dialog).hasNearOptions) OnNearControl(dialog, control, notification, theWordIndex);
    switch (control) {
        case IDOK: OnOk(dialog); break;
        case IDC_RANGE: AskSearchRange(dialog); break;
        case IDC_HELP_BUTTON: OpenHelpTopic(dialog, kHelpFile, KindOf(dialog).helpTopic); break;
        case IDC_ADD_WORD: OnAdd(dialog); break;
        case IDC_WORD_LIST: OnWordList(dialog, notification); break;
    }
}

std::optional<bool> AskSearch(HWND frame, const SearchKind& kind, bool (*search)(const SearchKind& kind)) {
    bool found = false;
    const SearchQuestion question{kind, search, found};
    const INT_PTR answer = RunDialog(frame, {kind.resource, Fill, OnCommand, &question});
    ForgetSpellings();
    if (answer != IDOK) return std::nullopt;
    return found;
}

// ---- The range ------------------------------------------------------------------------------------------------------

std::string SearchRangeText() {
    return RangeText(theScripture.records, theSearch.range.StartVerse, theSearch.range.EndVerse);
}

static void FillRange(HWND dialog) {
    FillReferenceField(dialog, IDC_RANGE, SearchRangeText());
}

static void OnRangeOk(HWND dialog) {
    const ParsedRange range = TakeReference(dialog, IDC_RANGE, Asked::kRange);
    if (!range.ok) return;
    EndDialog(dialog, IDOK);
    theSearch.range = {range.first, range.last};
    SendCommand(FrameOf(dialog), IDM_SHOW_RANGE);
}

static void OnRangeCommand(HWND dialog, int control, UINT) {
    switch (control) {
        case IDOK: OnRangeOk(dialog); break;
        case IDC_HELP_BUTTON: OpenHelpTopic(dialog, kHelpFile, kTopicSetRange); break;
        case IDC_OLD_TESTAMENT: SetDlgItemTextA(dialog, IDC_RANGE, "Ge - Mal"); break;
        case IDC_NEW_TESTAMENT: SetDlgItemTextA(dialog, IDC_RANGE, "Mt - Re"); break;
        case IDC_ENTIRE_BIBLE: SetDlgItemTextA(dialog, IDC_RANGE, "Ge - Re"); break;
    }
}

void AskSearchRange(HWND owner) {
    RunDialog(owner, {"SETRANGE", FillRange, OnRangeCommand, nullptr, MeaningOfReference(IDC_RANGE, Asked::kRange)});
}
