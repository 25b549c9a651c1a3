// Search history, word list and search range in the search dialogs.

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/windows/search_steps.h"

using testing::ElementsAre;
using testing::IsEmpty;

// ---- History --------------------------------------------------------------------------------------------------------

static std::vector<std::string> History(Program& program, int command) {
    std::vector<std::string> entries = ComboStrings(Child(OpenSearchDialog(program, command), {IDC_SEARCH_TEXT}));
    Press(program, "Esc");
    WaitForNoDialog(program);
    return entries;
}

TEST(SearchHistory, KeepsTheLastTenNewestFirst) {
    Program program = StartProgram(FolderWithScripture());
    EXPECT_THAT(History(program, IDM_WORD_SEARCH), IsEmpty());
    const std::vector<std::string> words = {"ark",  "beam", "cart", "dove",   "elder", "fig",
                                            "gate", "harp", "iron", "jasper", "key"};
    for (std::size_t i = 0; i < words.size(); ++i) SearchFor(program, {words[i], kSearchCommands[i % 3]});
    const auto expected = ElementsAre("key", "jasper", "iron", "harp", "gate", "fig", "elder", "dove", "cart", "beam");
    for (const int command : kSearchCommands) EXPECT_THAT(History(program, command), expected);

    const ScratchFolder folder = program.folder;
    CloseProgram(program);
    EXPECT_EQ(Setting(folder, "SEARCH", "PreviousSearch0"), "key");
    EXPECT_EQ(Setting(folder, "SEARCH", "PreviousSearch9"), "beam");
    Program again = StartProgram(folder);
    EXPECT_THAT(History(again, IDM_PHRASE_SEARCH), expected);
}

TEST(SearchHistory, KeepsRepeatedAndUnsuccessfulQueries) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"grace"});
    SearchFor(program, {"grace"});
    for (const Query& query : {Query{"xyzzy"}, Query{""}, Query{"12 34", IDM_PHRASE_SEARCH}}) {
        SearchInVain(program, query);
        Press(program, "Enter");
        WaitForNoDialog(program);
    }
    // The empty query takes a place in the history but is not listed.
    EXPECT_THAT(History(program, IDM_WORD_SEARCH), ElementsAre("12 34", "xyzzy", "grace", "grace"));
    const ScratchFolder folder = program.folder;
    CloseProgram(program);
    const char* kStored[] = {"12 34", "", "xyzzy", "grace", "grace", ""};
    for (std::size_t i = 0; i < std::size(kStored); ++i)
        EXPECT_EQ(Setting(folder, "SEARCH", "PreviousSearch" + std::to_string(i)), kStored[i]) << i;
}

TEST(SearchHistory, EntriesCanBeChosenFromTheDropDown) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"grace"});
    SearchFor(program, {"the"});
    Press(program, "Alt+w");
    const HWND dialog = WaitForDialog(program, "Word Search");
    Press(program, "Alt+Down");
    Press(program, "Down");
    Press(program, "Enter");  // closes the list
    EXPECT_EQ(TextOf(dialog, IDC_SEARCH_TEXT), "grace");
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_EQ(StatusPart(program, 0), "159 verses, 170 occurrences");
}

// ---- The list of all words ------------------------------------------------------------------------------------------

static std::vector<std::string> WordsOfFile(const ScratchFolder& folder) {
    const std::string bytes = ReadFile(folder, "_avwrds.dat");
    std::vector<std::string> words;
    for (std::size_t at = 0; at < bytes.size(); at += words.back().size() + 1) words.emplace_back(bytes.c_str() + at);
    return words;
}

// Wine passes this message between processes completely only in its wide form.
static std::string WordOfList(HWND list, int place) {
    wchar_t word[100] = L"";
    SendMessageW(list, CB_GETLBTEXT, static_cast<WPARAM>(place), reinterpret_cast<LPARAM>(word));
    std::string narrow;
    for (const wchar_t* letter = word; *letter != 0; ++letter) narrow += static_cast<char>(*letter);
    return narrow;
}

// Reading every word takes too long; a sample is enough to check the order.
TEST(WordListDialog, ListsAllWordsInFileOrder) {
    Program program = StartProgram(FolderWithScripture());
    const HWND list = Child(OpenSearchDialog(program, IDM_WORD_LIST_SEARCH), {IDC_WORD_LIST});
    EXPECT_EQ(GetWindowLongA(list, GWL_STYLE) & (CBS_SIMPLE | CBS_DROPDOWN | CBS_SORT), CBS_SIMPLE);
    const std::vector<std::string> words = WordsOfFile(program.folder);
    ASSERT_EQ(SendMessageA(list, CB_GETCOUNT, 0, 0), 12729);
    ASSERT_EQ(words.size(), 12729u);
    EXPECT_EQ(WordOfList(list, 12729), words[12729]);
    for (int place = 0; place < 12729; place += 97)
        EXPECT_EQ(WordOfList(list, place), words[static_cast<std::size_t>(place)]);
}

namespace {

struct Addition {
    const char* field;
    std::string listText;
    std::string result;
};

}  // namespace

TEST(WordListDialog, AddAppendsTheWordToTheField) {
    static const Addition kRows[] = {
        {"", "grace", "grace"},
        {"amazing", "grace", "amazing grace"},
        {"grace", "", "grace "},  // only the blank is added
        {"", "", ""},
        {"grace", std::string(60, 'x'), "grace " + std::string(49, 'x')},
    };
    Program program = StartProgram(FolderWithScripture());
    const HWND dialog = OpenSearchDialog(program, IDM_WORD_LIST_SEARCH);
    for (const Addition& row : kRows) {
        SetDlgItemTextA(dialog, IDC_SEARCH_TEXT, row.field);
        SetDlgItemTextA(dialog, IDC_WORD_LIST, row.listText.c_str());
        Press(program, "Alt+d");
        EXPECT_EQ(TextOf(dialog, IDC_SEARCH_TEXT), row.result);
        EXPECT_EQ(TextOf(dialog, IDC_WORD_LIST), row.listText);
    }
}

static HWND OpenListOf(HWND dialog) {
    return FindWindowExA(Child(dialog, {IDC_WORD_LIST}), nullptr, "ComboLBox", nullptr);
}

TEST(WordListDialog, DoubleClickAddsAWord) {
    Program program = StartProgram(FolderWithScripture());
    const HWND dialog = OpenSearchDialog(program, IDM_WORD_LIST_SEARCH);
    const std::string first = WordsOfFile(program.folder)[0];
    const std::string third = WordsOfFile(program.folder)[2];
    const HWND list = OpenListOf(dialog);
    ASSERT_NE(list, nullptr);
    const int height = static_cast<int>(SendMessageA(list, LB_GETITEMHEIGHT, 0, 0));
    DoubleClick(program, list, {20, height / 2});
    EXPECT_EQ(TextOf(dialog, IDC_SEARCH_TEXT), first);
    Click(program, list, {20, 2 * height + height / 2});
    EXPECT_EQ(TextOf(dialog, IDC_SEARCH_TEXT), first);
    EXPECT_EQ(TextOf(dialog, IDC_WORD_LIST), third);
    Click(program, Child(dialog, {IDC_ADD_WORD}));
    EXPECT_EQ(TextOf(dialog, IDC_SEARCH_TEXT), first + " " + third);
}

static HWND OpenWithFocusInList(Program& program) {
    const HWND dialog = OpenSearchDialog(program, IDM_WORD_LIST_SEARCH);
    Press(program, "Alt+i");
    return dialog;
}

TEST(WordListDialog, EnterInTheListsFieldAddsTheWord) {
    Program program = StartProgram(FolderWithScripture());
    const HWND dialog = OpenWithFocusInList(program);
    const HWND field = FocusOf(program);
    Type(program, "amazing");
    Press(program, "Enter");
    EXPECT_EQ(TextOf(dialog, IDC_SEARCH_TEXT), "amazing");
    EXPECT_EQ(TextOf(dialog, IDC_WORD_LIST), "amazing");
    EXPECT_EQ(FocusOf(program), field);
    Type(program, "grace");
    EXPECT_EQ(TextOf(dialog, IDC_WORD_LIST), "grace") << "the word that was added was selected";
    Press(program, "Enter");
    EXPECT_EQ(TextOf(dialog, IDC_SEARCH_TEXT), "amazing grace");
    ASSERT_TRUE(IsWindow(dialog));
    EXPECT_EQ(StatusPart(program, 0), "") << "nothing was searched for";
}

TEST(WordListDialog, EnterAddsAWordChosenWithTheArrowKeys) {
    Program program = StartProgram(FolderWithScripture());
    const HWND dialog = OpenWithFocusInList(program);
    Press(program, "Down");
    Press(program, "Down");
    Press(program, "Enter");
    EXPECT_EQ(TextOf(dialog, IDC_SEARCH_TEXT), WordsOfFile(program.folder)[1]);
    ASSERT_TRUE(IsWindow(dialog));
    Press(program, "Down");
    Press(program, "Enter");
    EXPECT_EQ(TextOf(dialog, IDC_SEARCH_TEXT), WordsOfFile(program.folder)[1] + " " + WordsOfFile(program.folder)[2]);
}

TEST(WordListDialog, HoldingEnterAddsTheWordOnce) {
    Program program = StartProgram(FolderWithScripture());
    const HWND dialog = OpenWithFocusInList(program);
    Type(program, "grace");
    Press(program, "Enter");
    static constexpr LPARAM kRepeated = 0x401C0001;
    for (int times = 3; times > 0; --times) PostMessageA(FocusOf(program), WM_KEYDOWN, VK_RETURN, kRepeated);
    Settle(program);
    EXPECT_EQ(TextOf(dialog, IDC_SEARCH_TEXT), "grace");
    ASSERT_TRUE(IsWindow(dialog));
}

// Also in the list's own field while it is empty, and there with Ctrl.
TEST(WordListDialog, EnterElsewhereSearches) {
    static constexpr struct {
        const char* word;
        const char* listText;
        const char* toFocus;
        const char* key;
    } kRows[] = {
        {"dove", "ark", "Alt+w", "Enter"}, {"elder", "ark", "Alt+a", "Enter"},     {"fig", "ark", "Alt+s", "Enter"},
        {"gate", "", "Alt+i", "Enter"},    {"harp", "ark", "Alt+i", "Ctrl+Enter"},
    };
    Program program = StartProgram(FolderWithScripture());
    for (const auto& [word, listText, toFocus, key] : kRows) {
        OpenSearchDialog(program, IDM_WORD_LIST_SEARCH);
        Type(program, word);
        Press(program, "Alt+i");
        Type(program, listText);
        Press(program, toFocus);
        Press(program, key);
        WaitForNoDialog(program);
        EXPECT_EQ(TextOf(OpenSearchDialog(program, IDM_WORD_SEARCH), IDC_SEARCH_TEXT), word);
        Press(program, "Esc");
        WaitForNoDialog(program);
    }
}

static int DefaultButton(HWND dialog) {
    const int id = LOWORD(SendMessageA(dialog, DM_GETDEFID, 0, 0));
    for (const int button : {IDOK, IDC_ADD_WORD}) {
        const LONG type = GetWindowLongA(GetDlgItem(dialog, button), GWL_STYLE) & BS_TYPEMASK;
        EXPECT_EQ(type == BS_DEFPUSHBUTTON, button == id) << button;
    }
    return id;
}

TEST(WordListDialog, TheDefaultButtonShowsWhatEnterDoes) {
    Program program = StartProgram(FolderWithScripture());
    const HWND dialog = OpenSearchDialog(program, IDM_WORD_LIST_SEARCH);
    EXPECT_EQ(DefaultButton(dialog), IDOK);
    Press(program, "Alt+i");
    EXPECT_EQ(DefaultButton(dialog), IDOK) << "the list's field is empty";
    Type(program, "g");
    EXPECT_EQ(DefaultButton(dialog), IDC_ADD_WORD);
    SavePicture(PictureOfWindow(dialog), "dialog-word-list-enter-adds");
    Press(program, "Alt+w");
    EXPECT_EQ(DefaultButton(dialog), IDOK);
    Press(program, "Alt+i");
    EXPECT_EQ(DefaultButton(dialog), IDC_ADD_WORD);
    Press(program, "Back");
    EXPECT_EQ(DefaultButton(dialog), IDOK);
    Press(program, "Down");
    EXPECT_EQ(DefaultButton(dialog), IDC_ADD_WORD);
    Press(program, "Shift+Tab");
    EXPECT_EQ(DefaultButton(dialog), IDOK);
}

TEST(WordListDialog, SearchesForAddedWords) {
    Program program = StartProgram(FolderWithScripture());
    const HWND dialog = OpenSearchDialog(program, IDM_WORD_LIST_SEARCH);
    Press(program, "Alt+i");
    Type(program, "grace");
    Press(program, "Alt+d");
    SavePicture(PictureOfWindow(dialog), "dialog-word-list-in-use");
    Press(program, "Alt+w");
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_EQ(StatusPart(program, 0), "159 verses, 170 occurrences");
}

// ---- The range ------------------------------------------------------------------------------------------------------

namespace {

struct TypedRange {
    const char* typed;
    const char* shown;
};

}  // namespace

TEST(SearchRange, ShowsTheRangeAsParsed) {
    static constexpr TypedRange kRows[] = {
        {"Joh 3:16", "Joh 3:16 - Joh 3:16"},        {"Ps 23", "Ps 23:1 - Ps 23:6"},
        {"jude", "Jude 1:1 - Jude 1:25"},           {"Mt 5:3 - Mt 5:12", "Mt 5:3 - Mt 5:12"},
        {"Re 22:21 - Ge 1:1", "Ge 1:1 - Re 22:21"}, {"Mal - Mt", "Mal 1:1 - Mt 28:20"},
        {"Exodus 3 - 5", "Ex 3:1 - Ex 5:23"},       {"", "Ex 3:1 - Ex 5:23"},  // an empty field changes nothing
    };
    Program program = StartProgram(FolderWithScripture());
    for (const TypedRange& row : kRows) {
        SetSearchRange(program, row.typed);
        EXPECT_EQ(StatusPart(program, 4), row.shown) << row.typed;
        EXPECT_EQ(TextOf(OpenSearchDialog(program, IDM_SET_RANGE), IDC_RANGE), row.shown);
        Press(program, "Esc");
        WaitForNoDialog(program);
    }
}

TEST(SearchRange, HasButtonsForTheTestaments) {
    struct Row {
        const char* key;
        const char* text;
        const char* shown;
    };
    static constexpr Row kRows[] = {
        {"Alt+o", "Ge - Mal", "Ge 1:1 - Mal 4:6"},
        {"Alt+n", "Mt - Re", "Mt 1:1 - Re 22:21"},
        {"Alt+e", "Ge - Re", "Ge 1:1 - Re 22:21"},
    };
    Program program = StartProgram(FolderWithScripture());
    for (const Row& row : kRows) {
        const HWND dialog = OpenSearchDialog(program, IDM_SET_RANGE);
        Press(program, row.key);
        EXPECT_EQ(TextOf(dialog, IDC_RANGE), row.text);
        PostMessageA(dialog, WM_COMMAND, IDOK, 0);
        WaitForNoDialog(program);
        EXPECT_EQ(StatusPart(program, 4), row.shown);
    }
}

TEST(SearchRange, DialogStaysOpenForAnInvalidRange) {
    Program program = StartProgram(FolderWithScripture());
    const HWND dialog = OpenSearchDialog(program, IDM_SET_RANGE);
    Type(program, "Xyz 3");
    Press(program, "Enter");
    const HWND box = WaitForDialog(program, "Error");
    EXPECT_EQ(MessageText(box), "Unrecognized Refrence");  // (sic)
    EXPECT_THAT(ButtonsOf(box), ElementsAre("OK"));
    SavePicture(PictureOfWindow(program.frame), "range-not-understood");
    Press(program, "Enter");
    WaitUntil(program, "the message to be closed", [&] { return !IsWindow(box); });
    EXPECT_EQ(TextOf(dialog, IDC_RANGE), "Xyz 3");
    EXPECT_EQ(StatusPart(program, 4), "Ge 1:1 - Re 22:21");
    EXPECT_EQ(FocusOf(program), Child(dialog, {IDC_RANGE}));
    Type(program, "Ruth");  // replaces the invalid text
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_EQ(StatusPart(program, 4), "Ru 1:1 - Ru 4:22");
}

TEST(SearchRange, IsKeptWhenTheSearchIsCancelled) {
    Program program = StartProgram(FolderWithScripture());
    for (const int command : kSearchCommands) {
        SetSearchRange(program, "Ge - Re");
        const HWND search = OpenSearchDialog(program, command);
        Press(program, "Alt+r");
        const HWND range = WaitForDialog(program, "Set Search Range");
        EXPECT_FALSE(IsWindowEnabled(search));
        Type(program, "Mt");
        Press(program, "Enter");
        WaitUntil(program, "the range to be closed", [&] { return !IsWindow(range); });
        EXPECT_TRUE(IsWindowEnabled(search));
        Press(program, "Esc");
        WaitForNoDialog(program);
        EXPECT_EQ(StatusPart(program, 4), "Mt 1:1 - Mt 28:20") << command;
    }
}

TEST(SearchRange, IsSavedForTheNextRun) {
    Program program = StartProgram(FolderWithScripture());
    SetSearchRange(program, "Joh 3:16");
    const ScratchFolder folder = program.folder;
    CloseProgram(program);
    EXPECT_EQ(Setting(folder, "SEARCH", "StartVerse"), "26136");
    EXPECT_EQ(Setting(folder, "SEARCH", "EndVerse"), "26136");
    Program again = StartProgram(folder);
    EXPECT_EQ(StatusPart(again, 4), "Joh 3:16 - Joh 3:16");
    SearchFor(again, {"god"});
    EXPECT_EQ(StatusPart(again, 0), "1 verse, 1 occurance");  // (sic)
    EXPECT_THAT(ListStrings(ReferenceListOf(again)), ElementsAre("John 3:16"));
}
