#include "search/search_dialog.h"

#include "resources/help_topics.h"
#include "resources/ids.h"
#include "search/search_win32.h"
#include "search/set_range_dialog.h"
#include "win32/controls.h"
#include "win32/dialogs.h"
#include "win32/help_viewer.h"

static constexpr int kListedWordLimit = 49;  // characters that Add takes

struct SearchDialog {
    const char* resource;
    const char* helpTopic;
    bool hasWordOptions;  // boolean type and substrings
    bool hasWordList;
};

static const SearchDialog& DialogFor(SearchKind kind) {
    static constexpr SearchDialog kWords{"WORDSEARCH", kTopicWordSearch, true, false};
    static constexpr SearchDialog kWordList{"WORDLISTSEARCH", kTopicWordListSearch, true, true};
    static constexpr SearchDialog kPhrase{"PHRASESEARCH", kTopicPhraseSearch, false, false};
    return kind == SearchKind::kWords ? kWords : kind == SearchKind::kWordList ? kWordList : kPhrase;
}

struct SearchQuestion {
    SearchKind kind;
    void (*search)(SearchKind kind);
};

static const SearchQuestion& QuestionOf(HWND dialog) {
    return *static_cast<const SearchQuestion*>(DataOf(dialog));
}

static const SearchDialog& KindOf(HWND dialog) {
    return DialogFor(QuestionOf(dialog).kind);
}

static void FillHistory(HWND field) {
    for (const std::string& entry : theSearch.history) {
        if (entry.empty() || entry == " ") continue;  // a slot never used
        SendMessageA(field, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry.c_str()));
    }
}

static void FillWordList(HWND list) {
    static constexpr LPARAM kBytesAWord = 12;
    const std::vector<std::string_view>& words = theWordIndex.words;
    SendMessageA(list, WM_SETREDRAW, FALSE, 0);
    SendMessageA(list, CB_INITSTORAGE, words.size(), static_cast<LPARAM>(words.size()) * kBytesAWord);
    for (const std::string_view word : words)
        SendMessageA(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(word.data()));
    SendMessageA(list, WM_SETREDRAW, TRUE, 0);
}

static int RadioOf(int booleanType) {
    return booleanType == kAllWords ? IDC_ALL_WORDS : booleanType == kAnyWord ? IDC_ANY_WORD : IDC_ONE_WORD;
}

static void Fill(HWND dialog) {
    const SearchDialog& kind = KindOf(dialog);
    const HWND field = GetDlgItem(dialog, IDC_SEARCH_TEXT);
    SendMessageA(field, CB_LIMITTEXT, kSearchTextLimit, 0);
    FillHistory(field);
    SetWindowTextA(field, theSearch.searchText.c_str());
    SetChecked(dialog, IDC_CASE_SENSITIVE, theSearch.options.CaseSensitive != 0);
    if (kind.hasWordOptions) {
        CheckRadioButton(dialog, IDC_ALL_WORDS, IDC_ONE_WORD, RadioOf(theSearch.options.BooleanType));
        SetChecked(dialog, IDC_SUBSTRING, theSearch.options.SubString != 0);
    }
    if (kind.hasWordList) FillWordList(GetDlgItem(dialog, IDC_WORD_LIST));
}

static void Read(HWND dialog) {
    theSearch.searchText = ControlText(dialog, IDC_SEARCH_TEXT, kSearchTextLimit);
    PushHistory(theSearch, theSearch.searchText);
    theSearch.options.CaseSensitive = IsChecked(dialog, IDC_CASE_SENSITIVE);
    if (!KindOf(dialog).hasWordOptions) return;
    theSearch.options.SubString = IsChecked(dialog, IDC_SUBSTRING);
    theSearch.options.BooleanType = IsChecked(dialog, IDC_ALL_WORDS)  ? kAllWords
                                    : IsChecked(dialog, IDC_ANY_WORD) ? kAnyWord
                                                                      : kOneWord;
}

static void OnOk(HWND dialog) {
    RunIfEnabled(FrameOf(dialog), IDM_VIEW_LIST);
    Read(dialog);
    EndDialog(dialog, IDOK);
    QuestionOf(dialog).search(QuestionOf(dialog).kind);
}

// A blank is added even where no word is chosen, if something stands in the field.
static void OnAdd(HWND dialog) {
    std::string text = ControlText(dialog, IDC_SEARCH_TEXT, kSearchTextLimit);
    if (!text.empty()) text += ' ';
    text += ControlText(dialog, IDC_WORD_LIST, kListedWordLimit);
    SetDlgItemTextA(dialog, IDC_SEARCH_TEXT, text.c_str());
}

static void OnCommand(HWND dialog, int control, UINT notification) {
    switch (control) {
        case IDOK: OnOk(dialog); break;
        case IDC_RANGE: AskSearchRange(dialog); break;
        case IDC_HELP_BUTTON: OpenHelpTopic(dialog, kHelpFile, KindOf(dialog).helpTopic); break;
        case IDC_ADD_WORD: OnAdd(dialog); break;
        case IDC_WORD_LIST:
            if (notification == CBN_DBLCLK) OnAdd(dialog);
            break;
    }
}

bool AskSearch(HWND frame, SearchKind kind, void (*search)(SearchKind kind)) {
    const SearchQuestion question{kind, search};
    return RunDialog(frame, {DialogFor(kind).resource, Fill, OnCommand, &question}) == IDOK;
}
