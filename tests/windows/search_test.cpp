// Search results, and the state of the program after a search. The numbers are for the real text; a native test
// (search/search_by_hand_test.cpp) checks the results of the search engine independently.

#include <windows.h>

#include <commctrl.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

static constexpr int kSummary = 0;  // parts of the status bar
static constexpr int kEntry = 1;

static constexpr bool kAnyCase = false, kCase = true;
static constexpr bool kWhole = false, kSubstrings = true;

// ---- What is found --------------------------------------------------------------------------------------------------

namespace {

struct SearchRow {
    Query query;
    const char* summary;  // "": nothing is found
    const char* first = "";
    const char* range = "Ge - Re";
};

void PrintTo(const SearchRow& row, std::ostream* out) {
    *out << row.query.command << " \"" << row.query.text << "\" " << row.query.combination
         << (row.query.caseSensitive ? " case" : "") << (row.query.substrings ? " substrings" : "") << " in "
         << row.range;
}

}  // namespace

static void ExpectSearch(Program& program, const SearchRow& row, std::string& range) {
    if (range != row.range) SetSearchRange(program, row.range);
    range = row.range;
    if (*row.summary == '\0') {
        SearchInVain(program, row.query);
        Press(program, "Enter");
        WaitForNoDialog(program);
        EXPECT_EQ(StatusPart(program, kEntry), "") << testing::PrintToString(row);
        return;
    }
    SearchFor(program, row.query);
    EXPECT_EQ(StatusPart(program, kSummary), row.summary) << testing::PrintToString(row);
    EXPECT_THAT(StatusPart(program, kEntry), HasSubstr(row.first)) << testing::PrintToString(row);
}

namespace {

struct Searches {
    const char* name;
    std::vector<SearchRow> rows;
};

void PrintTo(const Searches& searches, std::ostream* out) {
    *out << searches.name;
}

}  // namespace

static const Searches kSearches[] = {
    {"Words",
     {
         {{"grace"}, "159 verses, 170 occurrences", "Genesis 6:8"},
         {{"GRACE", IDM_WORD_LIST_SEARCH}, "159 verses, 170 occurrences", "Genesis 6:8"},
         {{"Jehovah-jireh"}, "1 verse, 2 occurrences", "Genesis 22:14"},  // the hyphen separates two words
         {{"jah"}, "1 verse, 1 occurance", "Psalms 68:4"},                // (sic)
         {{"xyzzy"}, ""},
         {{""}, ""},
         {{"12 ; 34"}, ""},
         {{"grace xyzzy"}, ""},
         {{"grace xyzzy", IDM_WORD_SEARCH, IDC_ANY_WORD}, "159 verses, 170 occurrences"},
         {{"maher-shalal-hash-baz"}, "2 verses, 8 occurrences", "Isaiah 8:1"},
         {{std::string(199, 'a')}, ""},  // longer than any word
     }},
    {"Combinations",
     {
         {{"lord god"}, "1593 verses, 3785 occurrences", "Genesis 2:4"},
         {{"lord god", IDM_WORD_SEARCH, IDC_ANY_WORD}, "8951 verses, 12344 occurrences", "Genesis 1:1"},
         {{"lord god", IDM_WORD_LIST_SEARCH, IDC_ONE_WORD}, "7358 verses, 8559 occurrences", "Genesis 1:1"},
         // Deliberate: a word that is typed twice is counted and marked twice.
         {{"end end"}, "291 verses, 614 occurrences", "Genesis 6:13"},
         {{"end end", IDM_WORD_SEARCH, IDC_ONE_WORD}, ""},
     }},
    {"CaseSensitive",
     {
         {{"LORD", IDM_WORD_SEARCH, IDC_ALL_WORDS, kCase}, "5485 verses, 6504 occurrences"},
         // Deliberate: only the first place in a verse is examined, and a word right after a paragraph mark does not
         // match. Genesis 1:1 is therefore missing.
         {{"In", IDM_WORD_SEARCH, IDC_ALL_WORDS, kCase}, "251 verses, 251 occurrences", "Genesis 3:19"},
         {{"in", IDM_WORD_SEARCH, IDC_ALL_WORDS, kCase}, "5918 verses, 8065 occurrences", "Genesis 1:6"},
         {{"And", IDM_WORD_SEARCH, IDC_ALL_WORDS, kCase}, "10266 verses, 10989 occurrences", "Genesis 1:2"},
         {{"Love", IDM_WORD_SEARCH, IDC_ALL_WORDS, kCase, kSubstrings}, "9 verses, 9 occurrences"},
         {{"LOVE", IDM_WORD_SEARCH, IDC_ALL_WORDS, kCase, kSubstrings}, ""},
     }},
    {"Substrings",
     {
         {{"love", IDM_WORD_SEARCH, IDC_ALL_WORDS, kAnyCase, kSubstrings}, "546 verses, 645 occurrences"},
         {{"loved lovely", IDM_WORD_SEARCH, IDC_ALL_WORDS, kAnyCase, kSubstrings},
          "1 verse, 2 occurrences",
          "Song of Solomon 5:16"},
         {{"love loved", IDM_WORD_SEARCH, IDC_ONE_WORD, kAnyCase, kSubstrings}, "348 verses, 394 occurrences"},
         {{"jah", IDM_WORD_LIST_SEARCH, IDC_ALL_WORDS, kAnyCase, kSubstrings}, "195 verses, 209 occurrences"},
     }},
    {"Phrases",
     {
         {{"in the beginning", IDM_PHRASE_SEARCH}, "17 verses, 17 occurrences", "Genesis 1:1"},
         {{"he said", IDM_PHRASE_SEARCH}, "700 verses, 738 occurrences", "Genesis 3:1"},  // includes "she said"
         {{"He said", IDM_PHRASE_SEARCH, 0, kCase}, "21 verses, 21 occurrences", "Ruth 2:21"},
         {{"the lord god", IDM_PHRASE_SEARCH, 0, kCase}, ""},
         {{"Jesus wept", IDM_PHRASE_SEARCH}, "1 verse, 1 occurance", "John 11:35"},  // (sic)
         {{"holy, holy, holy", IDM_PHRASE_SEARCH}, "2 verses, 2 occurrences", "Isaiah 6:3"},
         {{"Jehovah-jireh", IDM_PHRASE_SEARCH}, ""},
         {{"let there be xyzzy", IDM_PHRASE_SEARCH}, ""},
         {{"shal", IDM_PHRASE_SEARCH}, ""},
         {{"", IDM_PHRASE_SEARCH}, ""},
         // A phrase of one word is marked like a word, including substrings if the last word search included them.
         {{"wept", IDM_WORD_SEARCH, IDC_ALL_WORDS, kAnyCase, kSubstrings}, "72 verses, 75 occurrences"},
         {{"end", IDM_PHRASE_SEARCH}, "291 verses, 319 occurrences", "Genesis 6:13"},
         {{"wept", IDM_WORD_SEARCH, IDC_ALL_WORDS, kAnyCase, kWhole}, "68 verses, 71 occurrences"},
         {{"end", IDM_PHRASE_SEARCH}, "291 verses, 307 occurrences", "Genesis 6:13"},
     }},
    {"Ranges",
     {
         {{"god"}, "1 verse, 1 occurance", "John 3:16", "Joh 3:16"},  // (sic)
         {{"grace"}, "", "", "Joh 3:16"},
         {{"grace"}, "37 verses, 39 occurrences", "Genesis 6:8", "Ge - Mal"},
         {{"grace"}, "122 verses, 131 occurrences", "Luke 2:40", "Mt - Re"},
         {{"Jesus wept", IDM_PHRASE_SEARCH}, "", "", "Mt - Lu"},
         {{"LORD", IDM_WORD_SEARCH, IDC_ALL_WORDS, kCase}, "6 verses, 7 occurrences", "Psalms 23:1", "Ps 23 - Ps 24"},
     }},
};

namespace {

struct Search : testing::TestWithParam<Searches> {};

}  // namespace
INSTANTIATE_TEST_SUITE_P(Of, Search, testing::ValuesIn(kSearches), [](const auto& row) { return row.param.name; });

TEST_P(Search, FindsTheExpectedVerses) {
    Program program = StartProgram(FolderWithScripture());
    std::string range = "Ge - Re";
    for (const SearchRow& row : GetParam().rows) ExpectSearch(program, row, range);
}

TEST(SearchResult, IsShownInBothViews) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"propitiation"});
    EXPECT_THAT(ListStrings(ReferenceListOf(program)), ElementsAre("Romans 3:25", "1 John 2:2", "1 John 4:10"));
    EXPECT_EQ(FocusOf(program), VerseListOf(program));
    EXPECT_EQ(StatusPart(program, kEntry), "Romans 3:25");
    EXPECT_EQ(VerticalScroll(program, VerseListOf(program)).highest, 2);

    // A new list starts at its first entry even if the old one was scrolled.
    Press(program, "End");
    SearchFor(program, {"Jesus wept", IDM_PHRASE_SEARCH});
    EXPECT_THAT(ListStrings(ReferenceListOf(program)), ElementsAre("John 11:35"));
    EXPECT_EQ(StatusPart(program, kEntry), "John 11:35");
    EXPECT_EQ(VerticalScroll(program, VerseListOf(program)).position, 0);
    EXPECT_EQ(VerticalScroll(program, VerseListOf(program)).highest, 0);
}

TEST(SearchResult, FocusesTheReferenceListWhenThatIsShown) {
    Program program = StartProgram(FolderWithScripture());
    ClickTab(program, Child(program.frame, {IDC_LIST_TABS}), 1);
    for (const int command : kSearchCommands) {
        Command(program, IDM_FOCUS_PASSAGE);
        SearchFor(program, {"propitiation", command});
        EXPECT_EQ(FocusOf(program), ReferenceListOf(program)) << command;
        EXPECT_EQ(StatusPart(program, kSummary), "3 verses, 3 occurrences");
        EXPECT_EQ(StatusPart(program, kEntry), "");  // only shown for the other view
        EXPECT_EQ(SendMessageA(ReferenceListOf(program), LB_GETTOPINDEX, 0, 0), 0);
    }
    SavePicture(PictureOfWindow(program.frame), "reference-list");
}

TEST(SearchResult, ShowsAHiddenListEvenWhenEmpty) {
    for (const bool found : {true, false}) {
        Program program = StartProgram(FolderWithScripture());
        Press(program, "F2");
        EXPECT_FALSE(IsTicked(program, IDM_VIEW_LIST));
        if (found) {
            SearchFor(program, {"grace"});
            EXPECT_EQ(FocusOf(program), VerseListOf(program));
        } else {
            SearchInVain(program, {"xyzzy"});
        }
        EXPECT_TRUE(IsTicked(program, IDM_VIEW_LIST));
        EXPECT_NE(ToolState(program, IDM_VIEW_LIST) & TBSTATE_CHECKED, 0);
        EXPECT_TRUE(IsShown(VerseListOf(program)));
    }
}

// ---- The program's state --------------------------------------------------------------------------------------------

static bool HasCapture(const Program& program) {
    GUITHREADINFO state{};
    state.cbSize = sizeof state;
    GetGUIThreadInfo(program.threadId, &state);
    return state.hwndCapture != nullptr;
}

// Each process has its own handles of the system's cursors, so they can only be compared with each other.
static HCURSOR ShownCursor() {
    CURSORINFO cursor{};
    cursor.cbSize = sizeof cursor;
    GetCursorInfo(&cursor);
    return cursor.hCursor;
}

// The mouse stays there: the next move would give it another cursor.
static HCURSOR ArrowOver(const Program& program) {
    PointAt(program.frame, {100, 200});
    Settle(program);
    return ShownCursor();
}

static void ExpectGreyed(const Program& program, int command, bool greyed) {
    EXPECT_EQ(IsGreyed(program, command), greyed) << command;
    EXPECT_EQ((ToolState(program, command) & TBSTATE_INDETERMINATE) != 0, greyed) << command;
}

// Checks the commands that need entries in the list.
static void ExpectListCommands(const Program& program, bool enabled) {
    ExpectGreyed(program, IDM_CONTEXT, !enabled);
    ExpectGreyed(program, IDM_NOTE_FOR_LIST, !enabled);
    if (enabled) return;
    ExpectGreyed(program, IDM_COPY_VERSE_LIST, true);
    ExpectGreyed(program, IDM_COPY_REFERENCES, true);
    EXPECT_TRUE(IsGreyed(program, IDM_PRINT_VERSE_LIST));
    EXPECT_TRUE(IsGreyed(program, IDM_SAVE_VERSE_LIST));
}

TEST(SearchResult, EnablesTheListCommands) {
    Program program = StartProgram(FolderWithScripture());
    ExpectListCommands(program, false);
    EXPECT_EQ(ToolTip(program, IDM_CONTEXT), "Read Context of Verse in Verse List (F12)");
    const HCURSOR arrow = ArrowOver(program);
    SearchFor(program, {"grace"});
    ExpectListCommands(program, true);
    EXPECT_FALSE(HasCapture(program));
    EXPECT_EQ(ShownCursor(), arrow) << "no hourglass";
    EXPECT_EQ(ToolTip(program, IDM_CONTEXT), "Read Context of Ge 6:8 (F12)");
    EXPECT_EQ(ToolTip(program, IDM_NOTE_FOR_LIST), "Note for Ge 6:8 (F9)");
    SearchInVain(program, {"xyzzy"});
    ExpectListCommands(program, false);
    Press(program, "Enter");
    WaitForNoDialog(program);
    ExpectListCommands(program, false);
    SearchFor(program, {"grace"});
    ExpectListCommands(program, true);
}

namespace {

struct NoMatch : testing::TestWithParam<int> {};

}  // namespace
INSTANTIATE_TEST_SUITE_P(Searches, NoMatch, testing::ValuesIn(kSearchCommands));

TEST_P(NoMatch, EmptiesTheListAndShowsAMessage) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"grace"});
    Press(program, "End");
    Command(program, IDM_FOCUS_PASSAGE);
    const HCURSOR arrow = ArrowOver(program);
    const HWND box = SearchInVain(program, {"grace xyzzy", GetParam()});
    EXPECT_EQ(MessageText(box), "No verses matching search criteria.");
    EXPECT_THAT(ButtonsOf(box), ElementsAre("OK"));
    EXPECT_EQ(StatusPart(program, kSummary), "No Matches");
    EXPECT_EQ(StatusPart(program, kEntry), "");
    EXPECT_FALSE(HasCapture(program));
    EXPECT_EQ(ShownCursor(), arrow) << "no hourglass";
    EXPECT_THAT(ListStrings(ReferenceListOf(program)), IsEmpty());
    const ScrollState scroll = VerticalScroll(program, VerseListOf(program));
    EXPECT_EQ(scroll.highest, 0);
    EXPECT_EQ(scroll.position, 0);
    EXPECT_EQ(CountColors(PictureOfWindow(VerseListOf(program)), {5, 5, 300, 200}), 1) << "something is still drawn";
    SavePicture(PictureOfWindow(program.frame), "no-match-" + std::to_string(GetParam()));

    Press(program, "Enter");
    WaitForNoDialog(program);
    // Deliberate: only the word search keeps the text "No Matches".
    EXPECT_EQ(StatusPart(program, kSummary), GetParam() == IDM_WORD_SEARCH ? "No Matches" : "0 verses, 0 occurrences");
    EXPECT_EQ(StatusPart(program, kEntry), "");
    EXPECT_EQ(FocusOf(program), PassageOf(program));
}

// So many marks do not fit in the buffer for a marked verse.
TEST(SearchResult, HandlesMoreKeyWordMarksThanFitInAVerse) {
    Program program = StartProgram(FolderWithScripture());
    SetSearchRange(program, "Es 8");
    std::string everyE;
    while (everyE.size() < 198) everyE += "e ";
    SearchFor(program, {everyE, IDM_WORD_SEARCH, IDC_ALL_WORDS, kAnyCase, kSubstrings});
    EXPECT_EQ(StatusPart(program, kEntry), "Esther 8:1");
    Press(program, "End");
    EXPECT_EQ(StatusPart(program, kEntry), "Esther 8:17");
    EXPECT_EQ(ListStrings(ReferenceListOf(program)).size(), 17u);
}
