// The search dialogs and Set Search Range: controls, placement, remembered choices, cancelling.

#include <windows.h>

#include <gtest/gtest.h>

#include "tests/windows/dialog_look.h"
#include "tests/windows/search_steps.h"

// ---- Controls -------------------------------------------------------------------------------------------------------

namespace {

struct DialogRow {
    const char* name;
    int command;
    const char* key;  // opens the dialog; none for Set Search Range
    DialogLook look;
};

void PrintTo(const DialogRow& row, std::ostream* out) {
    *out << row.name;
}

}  // namespace

static const DialogRow kDialogs[] = {
    {"Words",
     IDM_WORD_SEARCH,
     "Alt+w",
     {"Word Search",
      {{IDC_SEARCH_TEXT, "ComboBox", ""},
       {IDC_ALL_WORDS, "Button", "&all"},
       {IDC_ANY_WORD, "Button", "at &least one"},
       {IDC_ONE_WORD, "Button", "&only one"},
       {IDC_CASE_SENSITIVE, "Button", "&Case sensitive"},
       {IDC_SUBSTRING, "Button", "&Substring matches"},
       {IDOK, "Button", "OK"},
       {IDCANCEL, "Button", "Cancel"},
       {IDC_RANGE, "Button", "&Range..."},
       {IDC_HELP_BUTTON, "Button", "&Help"}},
      {"&Word(s):", "Find verses with", "of these words"},
      {IDC_SEARCH_TEXT, IDC_ALL_WORDS, IDC_CASE_SENSITIVE, IDC_SUBSTRING, IDOK, IDCANCEL, IDC_RANGE, IDC_HELP_BUTTON},
      {{"Alt+c", IDC_CASE_SENSITIVE},
       {"Alt+w", IDC_SEARCH_TEXT},
       {"Alt+s", IDC_SUBSTRING},
       {"Alt+l", IDC_ANY_WORD},
       {"Alt+o", IDC_ONE_WORD},
       {"Alt+a", IDC_ALL_WORDS}}}},
    {"WordList",
     IDM_WORD_LIST_SEARCH,
     "Alt+l",
     {"Word Search",
      {{IDC_SEARCH_TEXT, "ComboBox", ""},
       {IDC_ALL_WORDS, "Button", "&all"},
       {IDC_ANY_WORD, "Button", "at &least one"},
       {IDC_ONE_WORD, "Button", "&only one"},
       {IDC_CASE_SENSITIVE, "Button", "&Case sensitive"},
       {IDC_SUBSTRING, "Button", "&Substring matches"},
       {IDC_WORD_LIST, "ComboBox", ""},
       {IDC_ADD_WORD, "Button", "<< A&dd"},
       {IDOK, "Button", "OK"},
       {IDCANCEL, "Button", "Cancel"},
       {IDC_RANGE, "Button", "&Range..."},
       {IDC_HELP_BUTTON, "Button", "&Help"}},
      {"&Word(s):", "Find verses with", "of these words", "Word l&ist:"},
      {IDC_SEARCH_TEXT, IDC_ALL_WORDS, IDC_CASE_SENSITIVE, IDC_SUBSTRING, IDC_WORD_LIST, IDC_ADD_WORD, IDOK, IDCANCEL,
       IDC_RANGE, IDC_HELP_BUTTON},
      {{"Alt+i", IDC_WORD_LIST},
       {"Alt+w", IDC_SEARCH_TEXT},
       {"Alt+c", IDC_CASE_SENSITIVE},
       {"Alt+s", IDC_SUBSTRING},
       {"Alt+l", IDC_ANY_WORD},
       {"Alt+o", IDC_ONE_WORD},
       {"Alt+a", IDC_ALL_WORDS},
       {"Alt+d", IDC_ADD_WORD}}}},
    {"Phrase",
     IDM_PHRASE_SEARCH,
     "Alt+p",
     {"Phrase Search",
      {{IDC_SEARCH_TEXT, "ComboBox", ""},
       {IDC_CASE_SENSITIVE, "Button", "&Case sensitive"},
       {IDOK, "Button", "OK"},
       {IDCANCEL, "Button", "Cancel"},
       {IDC_RANGE, "Button", "&Range..."},
       {IDC_HELP_BUTTON, "Button", "&Help"}},
      {"&Phrase:"},
      {IDC_SEARCH_TEXT, IDC_CASE_SENSITIVE, IDOK, IDCANCEL, IDC_RANGE, IDC_HELP_BUTTON},
      {{"Alt+c", IDC_CASE_SENSITIVE}, {"Alt+p", IDC_SEARCH_TEXT}}}},
    {"Near",
     IDM_NEAR_SEARCH,
     "Alt+a",
     {"Words Near Each Other",
      {{IDC_SEARCH_TEXT, "ComboBox", ""},
       {IDC_NEAR_COUNTS, "Static", ""},
       {IDC_NEAR_IN_WORDS, "Button", "N w&ords of each other"},
       {IDC_NEAR_IN_VERSE, "Button", "one &verse"},
       {IDC_NEAR_IN_VERSES, "Button", "N v&erses of each other"},
       {IDC_NEAR_DISTANCE, "Edit", "5"},
       {IDC_NEAR_IN_ORDER, "Button", "In the order &typed"},
       {IDC_CASE_SENSITIVE, "Button", "&Case sensitive"},
       {IDC_SUBSTRING, "Button", "&Substring matches"},
       {IDOK, "Button", "OK"},
       {IDCANCEL, "Button", "Cancel"},
       {IDC_RANGE, "Button", "&Range..."},
       {IDC_HELP_BUTTON, "Button", "&Help"}},
      {"&Words (* stands for any letters, ? for one letter):", "Find verses with all of these words within",
       "&N, up to 50 words or 10 verses:"},
      {IDC_SEARCH_TEXT, IDC_NEAR_IN_WORDS, IDC_NEAR_DISTANCE, IDC_NEAR_IN_ORDER, IDC_CASE_SENSITIVE, IDC_SUBSTRING,
       IDOK, IDCANCEL, IDC_RANGE, IDC_HELP_BUTTON},
      {{"Alt+n", IDC_NEAR_DISTANCE},
       {"Alt+w", IDC_SEARCH_TEXT},
       {"Alt+v", IDC_NEAR_IN_VERSE},
       {"Alt+e", IDC_NEAR_IN_VERSES},
       {"Alt+o", IDC_NEAR_IN_WORDS},
       {"Alt+t", IDC_NEAR_IN_ORDER},
       {"Alt+c", IDC_CASE_SENSITIVE},
       {"Alt+s", IDC_SUBSTRING}}}},
    {"Notes",
     IDM_SEARCH_NOTES,
     "Alt+t",
     "Search Note Set My Notes",
     {{IDC_NOTE_TEXT, "Edit", ""},
      {IDC_CASE_SENSITIVE, "Button", "&Case sensitive"},
      {IDC_SUBSTRING, "Button", "&Substring Matches"},
      {IDOK, "Button", "&Find First"},
      {IDC_FIND_NEXT, "Button", "Find &Next"},
      {IDCANCEL, "Button", "Cancel"},
      {IDC_RANGE, "Button", "&Range..."},
      {IDC_HELP_BUTTON, "Button", "&Help"}},
     {"Find &What:"},
     {IDC_NOTE_TEXT, IDC_CASE_SENSITIVE, IDC_SUBSTRING, IDOK, IDC_FIND_NEXT, IDCANCEL, IDC_RANGE, IDC_HELP_BUTTON},
     {{"Alt+c", IDC_CASE_SENSITIVE}, {"Alt+w", IDC_NOTE_TEXT}, {"Alt+s", IDC_SUBSTRING}}},
    {"Range",
     IDM_SET_RANGE,
     "",
     {"Set Search Range",
      {{IDC_RANGE, "Edit", "Ge 1:1 - Re 22:21"},
       {IDC_REFERENCE_MEANING, "Static", "Genesis 1:1 to Revelation 22:21, 31102 verses"},
       {IDC_OLD_TESTAMENT, "Button", "&O. T."},
       {IDC_NEW_TESTAMENT, "Button", "&N. T."},
       {IDC_ENTIRE_BIBLE, "Button", "&Entire"},
       {IDOK, "Button", "OK"},
       {IDCANCEL, "Button", "Cancel"},
       {IDC_HELP_BUTTON, "Button", "&Help"}},
      {"&Range:"},
      {IDC_RANGE, IDC_OLD_TESTAMENT, IDC_NEW_TESTAMENT, IDC_ENTIRE_BIBLE, IDOK, IDCANCEL, IDC_HELP_BUTTON},
      {{"Alt+o", IDC_OLD_TESTAMENT}, {"Alt+r", IDC_RANGE}, {"Alt+n", IDC_NEW_TESTAMENT}, {"Alt+e", IDC_ENTIRE_BIBLE}}}},
};

namespace {

struct SearchDialog : testing::TestWithParam<DialogRow> {};

}  // namespace
INSTANTIATE_TEST_SUITE_P(Dialogs, SearchDialog, testing::ValuesIn(kDialogs),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_P(SearchDialog, HasTheExpectedControls) {
    const DialogRow& row = GetParam();
    Program program = StartProgram(FolderWithScripture());
    ExpectLook(program, OpenSearchDialog(program, row.command), row.look, std::string("dialog-") + row.name);
}

TEST_P(SearchDialog, RespondsToItsAccessKeys) {
    const DialogRow& row = GetParam();
    Program program = StartProgram(FolderWithScripture());
    const HWND before = FocusOf(program);
    const HWND dialog = OpenSearchDialog(program, row.command);
    ExpectAccessKeys(program, dialog, row.look.accessKeys);
    Press(program, "Esc");
    WaitForNoDialog(program);
    EXPECT_EQ(FocusOf(program), before);
    if (*row.key == '\0') return;
    Press(program, row.key);
    EXPECT_EQ(TextOf(WaitForDialog(program, row.look.title)), row.look.title);
}

// ---- Placement ------------------------------------------------------------------------------------------------------

static LONG KeptOnScreen(LONG place, LONG size, int screen) {
    if (place < 0) return 0;
    return place + size > screen ? screen - size : place;
}

static std::string PlaceOver(HWND frame, HWND dialog) {
    const RECT outer = RectOnScreen(frame);
    const RECT box = RectOnScreen(dialog);
    const LONG width = box.right - box.left;
    const LONG height = box.bottom - box.top;
    const LONG nineTenths = static_cast<LONG>((outer.bottom - outer.top) * 0.9);
    const LONG x = outer.left + (outer.right - outer.left - width) / 2;
    const LONG y = outer.top + (nineTenths - height) / 2;
    return std::to_string(KeptOnScreen(x, width, GetSystemMetrics(SM_CXSCREEN))) + "," +
           std::to_string(KeptOnScreen(y, height, GetSystemMetrics(SM_CYSCREEN)));
}

static std::string PlaceOf(HWND window) {
    const RECT place = RectOnScreen(window);
    return std::to_string(place.left) + "," + std::to_string(place.top);
}

TEST_P(SearchDialog, IsCentredOverTheFrame) {
    Program program = StartProgram(FolderWithScripture());
    const int right = GetSystemMetrics(SM_CXSCREEN);
    const int bottom = GetSystemMetrics(SM_CYSCREEN);
    const RECT kFrames[] = {
        {20, 20, 821, 567},
        {-500, -400, 100, 60},
        {right - 100, bottom - 90, right + 500, bottom + 300},
    };
    for (const RECT& place : kFrames) {
        PlaceFrame(program, place);
        const HWND dialog = OpenSearchDialog(program, GetParam().command);
        EXPECT_EQ(PlaceOf(dialog), PlaceOver(program.frame, dialog)) << place.left;
        if (GetParam().command != IDM_SET_RANGE) {
            Press(program, "Alt+r");
            const HWND range = WaitForDialog(program, "Set Search Range");
            EXPECT_EQ(PlaceOf(range), PlaceOver(program.frame, range)) << place.left;
            Press(program, "Esc");
            WaitUntil(program, "the range to be closed", [&] { return !IsWindow(range); });
        }
        Press(program, "Esc");
        WaitForNoDialog(program);
    }
}

// ---- What is remembered ---------------------------------------------------------------------------------------------

// The state of a search dialog: its text and the ids of the checked controls.
static std::string StateOf(HWND dialog) {
    std::string state = TextOf(dialog, IDC_SEARCH_TEXT);
    for (const int id : {IDC_ALL_WORDS, IDC_ANY_WORD, IDC_ONE_WORD, IDC_CASE_SENSITIVE, IDC_SUBSTRING})
        if (GetDlgItem(dialog, id) != nullptr && IsChecked(dialog, id)) state.append(" ").append(std::to_string(id));
    return state;
}

static std::string StateAtOpening(Program& program, int command) {
    const std::string state = StateOf(OpenSearchDialog(program, command));
    Press(program, "Esc");
    WaitForNoDialog(program);
    return state;
}

TEST(SearchDialogs, ShareTextAndOptions) {
    Program program = StartProgram(FolderWithScripture());
    EXPECT_EQ(StateAtOpening(program, IDM_WORD_SEARCH), " 11");
    SearchFor(program, {"Grace", IDM_WORD_SEARCH, IDC_ONE_WORD, true, true});
    EXPECT_EQ(StateAtOpening(program, IDM_WORD_SEARCH), "Grace 13 14 15");
    EXPECT_EQ(StateAtOpening(program, IDM_WORD_LIST_SEARCH), "Grace 13 14 15");
    EXPECT_EQ(StateAtOpening(program, IDM_PHRASE_SEARCH), "Grace 14");

    // The phrase dialog does not have these two options, so those of the word search stay unchanged.
    SearchFor(program, {"Jesus wept", IDM_PHRASE_SEARCH});
    EXPECT_EQ(StateAtOpening(program, IDM_WORD_SEARCH), "Jesus wept 13 15");
    SearchFor(program, {"jesus wept", IDM_WORD_LIST_SEARCH, IDC_ANY_WORD});
    EXPECT_EQ(StateAtOpening(program, IDM_WORD_SEARCH), "jesus wept 12");

    const ScratchFolder folder = program.folder;
    CloseProgram(program);
    EXPECT_EQ(Setting(folder, "SEARCH", "BooleanType"), "1");
    EXPECT_EQ(Setting(folder, "SEARCH", "CaseSensitive"), "0");
    EXPECT_EQ(Setting(folder, "SEARCH", "SubString"), "0");
}

TEST(SearchDialogs, StartEmptyWithTheOptionsOfTheLastRun) {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "SEARCH", "BooleanType", "2");
    WriteSetting(folder, "SEARCH", "CaseSensitive", "1");
    WriteSetting(folder, "SEARCH", "SubString", "1");
    WriteSetting(folder, "SEARCH", "PreviousSearch0", "grace");
    Program program = StartProgram(folder);
    EXPECT_EQ(StateAtOpening(program, IDM_WORD_SEARCH), " 13 14 15");
    EXPECT_EQ(StateAtOpening(program, IDM_PHRASE_SEARCH), " 14");
}

TEST(SearchDialogs, ChangeNothingWhenCancelled) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"grace", IDM_WORD_SEARCH, IDC_ANY_WORD, false, true});
    Press(program, "F2");
    for (const int command : kSearchCommands) {
        const HWND dialog = OpenSearchDialog(program, command);
        Type(program, "wrath");
        EXPECT_EQ(TextOf(dialog, IDC_SEARCH_TEXT), "wrath");  // the old text was selected
        for (const char* key : {"Alt+c", "Alt+s", "Alt+o"})
            if (command != IDM_PHRASE_SEARCH || key[4] == 'c') Press(program, key);
        Press(program, "Esc");
        WaitForNoDialog(program);
        EXPECT_EQ(StateAtOpening(program, IDM_WORD_SEARCH), "grace 12 15") << command;
    }
    EXPECT_FALSE(IsTicked(program, IDM_VIEW_LIST));
    EXPECT_EQ(StatusPart(program, 0), "160 verses, 171 occurrences");
    const ScratchFolder folder = program.folder;
    CloseProgram(program);
    EXPECT_EQ(Setting(folder, "SEARCH", "PreviousSearch0"), "grace");
    EXPECT_EQ(Setting(folder, "SEARCH", "PreviousSearch1"), "");
}

TEST(SearchDialogs, CanBeUsedWithoutAMouse) {
    Program program = StartProgram(FolderWithScripture());
    Press(program, "Alt+w");
    WaitForDialog(program, "Word Search");
    Type(program, "grace");
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_EQ(StatusPart(program, 0), "159 verses, 170 occurrences");
    Press(program, "Alt+p");
    WaitForDialog(program, "Phrase Search");
    Type(program, "Jesus wept");
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_EQ(StatusPart(program, 0), "1 verse, 1 occurance");  // (sic)
}

TEST(SearchDialogs, AcceptAtMost199Characters) {
    Program program = StartProgram(FolderWithScripture());
    const HWND dialog = OpenSearchDialog(program, IDM_WORD_SEARCH);
    SetDlgItemTextA(dialog, IDC_SEARCH_TEXT, std::string(199, 'a').c_str());
    Press(program, "End");
    Type(program, "b");
    EXPECT_EQ(TextOf(dialog, IDC_SEARCH_TEXT), std::string(199, 'a'));
    SetDlgItemTextA(dialog, IDC_SEARCH_TEXT, std::string(260, 'c').c_str());
    Press(program, "Enter");
    WaitForDialog(program, "Search Results");
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_EQ(StateAtOpening(program, IDM_WORD_SEARCH), std::string(199, 'c') + " 11");
}
