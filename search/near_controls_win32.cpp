#include "search/near_controls_win32.h"

#include <cstdlib>
#include <vector>

#include "resources/ids.h"
#include "scripture/scripture_win32.h"
#include "search/near_text.h"
#include "win32/code_page.h"
#include "win32/controls.h"

static constexpr int kDistanceLimit = 3;  // digits

// Of the open dialog, as soon as they are needed.
static std::vector<std::string> theSpellings;

static std::u16string TextOfField(HWND dialog) {
    return LettersOf(WideControlText(dialog, IDC_SEARCH_TEXT, kSearchTextLimit));
}

// ---- The words that are meant ---------------------------------------------------------------------------------------

static KnownWords WordsKnown(HWND dialog, const WordIndex& index) {
    if (!IsChecked(dialog, IDC_CASE_SENSITIVE)) return {index};
    if (theSpellings.empty()) theSpellings = SpellingsOf(theScripture);
    return {index, &theSpellings};
}

// Is not set again while it is the same, because screen readers read what is set.
static void ShowCounts(HWND dialog, const std::u16string& text, const WordIndex& index) {
    std::wstring counts;
    if (!text.empty()) counts = Wide(NearCounts(WordsKnown(dialog, index), text, IsChecked(dialog, IDC_SUBSTRING)));
    const int enough = static_cast<int>(counts.size()) + 1;
    if (WideControlText(dialog, IDC_NEAR_COUNTS, enough) != counts)
        SetDlgItemTextW(dialog, IDC_NEAR_COUNTS, counts.c_str());
}

// A search that is chosen in the list comes into the field only after the notification.
static std::u16string ChosenText(HWND dialog) {
    const HWND field = GetDlgItem(dialog, IDC_SEARCH_TEXT);
    const LRESULT chosen = SendMessageA(field, CB_GETCURSEL, 0, 0);
    const LRESULT size = SendMessageA(field, CB_GETLBTEXTLEN, static_cast<WPARAM>(chosen), 0);
    if (size < 0) return TextOfField(dialog);
    std::string text(static_cast<std::size_t>(size), '\0');
    SendMessageA(field, CB_GETLBTEXT, static_cast<WPARAM>(chosen), reinterpret_cast<LPARAM>(text.data()));
    return LettersOf(WideOfCodePage(text));
}

// ---- The distance ---------------------------------------------------------------------------------------------------

static int RadioOf(NearUnit unit) {
    return unit == kNearInVerse ? IDC_NEAR_IN_VERSE : unit == kNearInVerses ? IDC_NEAR_IN_VERSES : IDC_NEAR_IN_WORDS;
}

static void LetDistanceBeTyped(HWND dialog) {
    EnableWindow(GetDlgItem(dialog, IDC_NEAR_DISTANCE), !IsChecked(dialog, IDC_NEAR_IN_VERSE));
}

static NearOptions CheckedOptions(HWND dialog) {
    const NearUnit unit = IsChecked(dialog, IDC_NEAR_IN_VERSE)    ? kNearInVerse
                          : IsChecked(dialog, IDC_NEAR_IN_VERSES) ? kNearInVerses
                                                                  : kNearInWords;
    const std::string distance = ControlText(dialog, IDC_NEAR_DISTANCE, kDistanceLimit);
    return {unit, std::atoi(distance.c_str()), IsChecked(dialog, IDC_NEAR_IN_ORDER)};
}

// ---- The dialog -----------------------------------------------------------------------------------------------------

void FillNearControls(HWND dialog, const SearchState& search, const WordIndex& index) {
    SetChecked(dialog, IDC_SUBSTRING, search.options.SubString != 0);
    CheckRadioButton(dialog, IDC_NEAR_IN_WORDS, IDC_NEAR_IN_VERSES, RadioOf(NearUnitOf(search.nearOptions)));
    SendDlgItemMessageA(dialog, IDC_NEAR_DISTANCE, EM_LIMITTEXT, kDistanceLimit, 0);
    SetDlgItemTextA(dialog, IDC_NEAR_DISTANCE, std::to_string(ShownNearDistance(search.nearOptions)).c_str());
    SetChecked(dialog, IDC_NEAR_IN_ORDER, search.nearOptions.InOrder != 0);
    LetDistanceBeTyped(dialog);
    ShowCounts(dialog, TextOfField(dialog), index);
}

void OnNearControl(HWND dialog, int control, UINT notification, const WordIndex& index) {
    switch (control) {
        case IDC_SEARCH_TEXT:
            if (notification == CBN_EDITCHANGE) ShowCounts(dialog, TextOfField(dialog), index);
            if (notification == CBN_SELCHANGE) ShowCounts(dialog, ChosenText(dialog), index);
            break;
        case IDC_CASE_SENSITIVE:
        case IDC_SUBSTRING: ShowCounts(dialog, TextOfField(dialog), index); break;
        case IDC_NEAR_IN_WORDS:
        case IDC_NEAR_IN_VERSE:
        case IDC_NEAR_IN_VERSES: LetDistanceBeTyped(dialog); break;
    }
}

static bool SayWhy(HWND dialog, const std::wstring& problem, int field) {
    if (problem.empty()) return false;
    Complain(dialog, problem);
    SelectField(dialog, field);
    if (field == IDC_SEARCH_TEXT) SendDlgItemMessageA(dialog, field, CB_SETEDITSEL, 0, MAKELPARAM(0, -1));
    return true;
}

bool CanSearchNear(HWND dialog) {
    const std::u16string text = TextOfField(dialog);
    if (SayWhy(dialog, Wide(ProblemOfNearText(text)), IDC_SEARCH_TEXT)) return false;
    const char* problem = ProblemOfNearDistance(CheckedOptions(dialog), CountNearWords(text));
    return problem == nullptr || !SayWhy(dialog, WideOfCodePage(problem), IDC_NEAR_DISTANCE);
}

void ForgetSpellings() {
    theSpellings = {};
}

// The distance stays as it was if it does not count, because its field is not checked then.
void ReadNearControls(HWND dialog, SearchState& search) {
    const int before = search.nearOptions.Distance;
    search.nearOptions = CheckedOptions(dialog);
    if (search.nearOptions.Unit == kNearInVerse) search.nearOptions.Distance = before;
    search.options.SubString = IsChecked(dialog, IDC_SUBSTRING);
}
