// Words Near Each Other: the dialog by keys, what it shows and refuses, what is found and kept. The searches themselves
// are compared natively with a search by hand (search/near_by_hand_test.cpp).

#include <iterator>

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/windows/dialog_look.h"
#include "tests/windows/search_steps.h"
#include "tests/windows/system_scaling.h"

using testing::ElementsAre;

static HWND OpenByKey(const Program& program) {
    Press(program, "Alt+a");
    return WaitForDialog(program, "Words Near Each Other");
}

static void ExpectCounts(const Program& program, HWND dialog, const std::string& counts) {
    WaitUntil(program, "the counts " + counts, [&] { return TextOf(dialog, IDC_NEAR_COUNTS) == counts; });
}

static std::wstring WideCounts(HWND dialog) {
    wchar_t counts[200] = L"";
    SendMessageW(GetDlgItem(dialog, IDC_NEAR_COUNTS), WM_GETTEXT, std::size(counts), reinterpret_cast<LPARAM>(counts));
    return counts;
}

static void ExpectRefused(const Program& program, HWND dialog, const char* why, int field) {
    Press(program, "Enter");
    ExpectComplaint(program, "Error", why);
    EXPECT_TRUE(IsWindow(dialog)) << why;
    const HWND focused = FocusOf(program);
    const HWND control = GetDlgItem(dialog, field);
    EXPECT_TRUE(focused == control || IsChild(control, focused)) << why;
}

static std::string Found(const Program& program) {
    Press(program, "Enter");
    WaitForNoDialog(program);
    return StatusPart(program, 0);
}

TEST(NearSearch, TellsTheWordsThatAreMeantWhileTheyAreTyped) {
    const Program program = StartProgram(FolderWithScripture());
    const HWND dialog = OpenByKey(program);
    Type(program, "grac*");
    ExpectCounts(program, dialog, "grac*: 3 words");
    Type(program, " xyzzy Truth");
    ExpectCounts(program, dialog, "grac*: 3 words; xyzzy: no word; Truth: 1 word");
    Press(program, "Alt+s");  // parts of words
    ExpectCounts(program, dialog, "grac*: 4 words; xyzzy: no word; Truth: 2 words");
    Press(program, "Alt+s");
    Press(program, "Alt+c");  // case
    for (const char* key : {"Alt+w", "Home", "Shift+End"}) Press(program, key);
    Type(program, "gOd GOD");
    ExpectCounts(program, dialog, "gOd: no word; GOD: 1 word");
}

TEST(NearSearch, RefusesWhatCannotBeSearchedFor) {
    const Program program = StartProgram(FolderWithScripture());
    const HWND dialog = OpenByKey(program);
    ExpectRefused(program, dialog, "Type the words to search for.", IDC_SEARCH_TEXT);
    Type(program, "faith *");
    ExpectRefused(program, dialog, "Type at least one letter beside each * and ?.", IDC_SEARCH_TEXT);
    Type(program, "a b c d e f g h i j k");  // replaces the text, which was selected
    EXPECT_EQ(TextOf(dialog, IDC_SEARCH_TEXT), "a b c d e f g h i j k");
    ExpectRefused(program, dialog, "Type at most 10 words.", IDC_SEARCH_TEXT);
    TypeWide(program, L"\x03BBord god");
    EXPECT_EQ(WideCounts(dialog), L"\x03BBord: no word; god: 1 word");
    Press(program, "Enter");
    const HWND box = WaitForDialog(program, "Error");
    EXPECT_EQ(WideMessageText(box), L"\"\x03BB\" is in no word of the text.");
    Press(program, "Enter");
    WaitUntil(program, "the box to be closed", [&] { return !IsWindow(box); });
    EXPECT_TRUE(ComboStrings(GetDlgItem(dialog, IDC_SEARCH_TEXT)).empty());
    Type(program, "faith hope charity");
    Press(program, "Alt+n");
    Type(program, "51");
    ExpectRefused(program, dialog, "For words, type a number from 1 to 50.", IDC_NEAR_DISTANCE);
    Type(program, "1");
    ExpectRefused(program, dialog, "So many words cannot stand so near each other. Type a larger number.",
                  IDC_NEAR_DISTANCE);
    Press(program, "Delete");
    ExpectRefused(program, dialog, "For words, type a number from 1 to 50.", IDC_NEAR_DISTANCE);
    Press(program, "Alt+e");
    Press(program, "Alt+n");
    Type(program, "11");
    ExpectRefused(program, dialog, "For verses, type a number from 1 to 10.", IDC_NEAR_DISTANCE);
    Press(program, "Alt+v");  // the distance does not count
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, IDC_NEAR_DISTANCE)));
    EXPECT_EQ(Found(program), "1 verse, 4 occurrences");
    EXPECT_THAT(ListStrings(ReferenceListOf(program)), ElementsAre("1 Corinthians 13:13"));
    OpenByKey(program);
    EXPECT_EQ(TextOf(WaitForDialog(program, "Words Near Each Other"), IDC_NEAR_DISTANCE), "5");
}

TEST(NearSearch, FindsShowsAndKeeps) {
    Program program = StartProgram(FolderWithScripture());
    SetSearchRange(program, "1 Co");
    HWND dialog = OpenByKey(program);
    Type(program, "fait* hope");
    Press(program, "Alt+e");
    Press(program, "Alt+n");
    Type(program, "2");
    EXPECT_EQ(Found(program), "3 verses, 4 occurrences");
    EXPECT_EQ(FocusOf(program), VerseListOf(program));
    SavePicture(PictureOfWindow(program.frame), "near-search");
    dialog = OpenByKey(program);
    EXPECT_EQ(TextOf(dialog, IDC_SEARCH_TEXT), "fait* hope");
    EXPECT_EQ(TextOf(dialog, IDC_NEAR_COUNTS), "fait*: 5 words; hope: 1 word");
    Press(program, "Alt+o");
    Press(program, "Alt+n");
    Type(program, "1");
    Press(program, "Alt+t");
    EXPECT_EQ(Found(program), "1 verse, 2 occurrences");
    EXPECT_THAT(ListStrings(ReferenceListOf(program)), ElementsAre("1 Corinthians 13:13"));

    // What is searched for in vain, and what is cancelled.
    dialog = OpenByKey(program);
    Type(program, "faith wrath");
    Press(program, "Enter");
    const HWND box = WaitForDialog(program, "Search Results");
    EXPECT_EQ(MessageText(box), "No verses matching search criteria.");
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_EQ(StatusPart(program, 0), "No Matches");
    dialog = OpenByKey(program);
    EXPECT_THAT(ComboStrings(Child(dialog, {IDC_SEARCH_TEXT})), ElementsAre("faith wrath", "fait* hope", "fait* hope"));
    Press(program, "Down");  // the first of the list, then the next one
    Press(program, "Down");
    ExpectCounts(program, dialog, "fait*: 5 words; hope: 1 word");
    Press(program, "Alt+v");
    Press(program, "Esc");
    WaitForNoDialog(program);

    const ScratchFolder folder = program.folder;
    CloseProgram(program);
    EXPECT_EQ(Setting(folder, "SEARCH", "PreviousSearch0"), "faith wrath");
    const std::string more = ReadFile(folder, "Versewell.more.ini");
    EXPECT_THAT(more, testing::HasSubstr("[SEARCH]\r\nNearDistance=1\r\nNearInOrder=1\r\n"));
    const Program again = StartProgram(folder);
    dialog = OpenByKey(again);
    EXPECT_EQ(TextOf(dialog, IDC_NEAR_DISTANCE), "1");
    EXPECT_TRUE(IsChecked(dialog, IDC_NEAR_IN_WORDS));
    EXPECT_TRUE(IsChecked(dialog, IDC_NEAR_IN_ORDER));
}

// Ten words that together fill the field, each with its count.
TEST(NearSearch, HasRoomForTheLongestCounts) {
    const Program program = StartProgram(FolderWithScripture());
    const HWND dialog = OpenByKey(program);
    std::string text;
    for (int i = 0; i < 10; ++i) text += std::string(i == 0 ? "" : " ") + "confectionaries'*a";
    SetDlgItemTextA(dialog, IDC_SEARCH_TEXT, text.c_str());
    Press(program, "End");
    Press(program, "Space");
    WaitUntil(program, "the counts", [&] { return TextOf(dialog, IDC_NEAR_COUNTS).size() == 10 * 29 - 2; });
    const HWND line = GetDlgItem(dialog, IDC_NEAR_COUNTS);
    const RECT room = RectOnScreen(line);
    const SIZE needed = SizeOfText(program, line, TextOf(line), room.right - room.left, DT_NOPREFIX);
    EXPECT_LE(needed.cy, room.bottom - room.top);
    EXPECT_LE(needed.cx, room.right - room.left);
    SavePicture(PictureOfWindow(dialog), "near-counts");
}
