// Scrolling the Passage: scroll bar, keys, wheel, and the effects of a move.

#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/passage_pane.h"

TEST(PassageScrolling, ThumbReachesEveryVerse) {
    Program program = StartProgram(FolderWithScripture());
    const ScrollState bar = VerticalScroll(program, PassageOf(program));
    EXPECT_EQ(bar.lowest, 0);
    EXPECT_EQ(bar.highest, 31101);
    EXPECT_EQ(bar.position, 0);
    const struct {
        UINT code;
        int thumb;
        const char* top;
        int position;
    } kMoves[] = {
        {SB_THUMBTRACK, 23145, "Matthew 1:1", 23145},
        {SB_THUMBTRACK, 31101, "Revelation 22:21", 31101},
        {SB_THUMBTRACK, 30, "Genesis 1:31", 30},
        {SB_THUMBPOSITION, 13940, "Psalms 1:1", 13940},
        {SB_THUMBPOSITION, 32767, "Revelation 22:21", 31101},
        {SB_THUMBPOSITION, -5, "Genesis 1:1", 0},
    };
    for (const auto& move : kMoves) {
        ScrollPassage(program, move.code, move.thumb);
        EXPECT_EQ(Top(program), move.top) << move.thumb;
        EXPECT_EQ(Thumb(program), move.position) << move.thumb;
    }
}

TEST(PassageScrolling, StopsAtBothEndsOfTheBible) {
    Program program = StartProgram(FolderWithScripture());
    for (const UINT code : {SB_LINEUP, SB_PAGEUP}) {
        ScrollPassage(program, code);
        EXPECT_EQ(Top(program), "Genesis 1:1") << code;
    }
    ScrollPassage(program, SB_LINEDOWN);
    EXPECT_EQ(Top(program), "Genesis 1:2");
    ScrollPassage(program, SB_THUMBPOSITION, 31101);
    for (const UINT code : {SB_LINEDOWN, SB_PAGEDOWN}) {
        ScrollPassage(program, code);
        EXPECT_EQ(Top(program), "Revelation 22:21") << code;
    }
    ScrollPassage(program, SB_LINEUP);
    EXPECT_EQ(Top(program), "Revelation 22:20");
    ScrollPassage(program, SB_PAGEDOWN);
    EXPECT_EQ(Top(program), "Revelation 22:21");
}

namespace {

struct Page {
    const char* name;
    int verse;
    int width, height;  // of the frame
    const char* inParagraphs;
    const char* italics;
};

void PrintTo(const Page& page, std::ostream* out) {
    *out << page.name;
}

struct PassagePages : testing::TestWithParam<Page> {};

}  // namespace

static Program ProgramOnPage(const Page& page) {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "OPTIONS", "Paragraph Format", page.inParagraphs);
    WriteSetting(folder, "OPTIONS", "Italics", page.italics);
    WriteSetting(folder, "MISC", "ReadVerse", std::to_string(page.verse));
    Program program = StartProgram(folder);
    PlaceFrame(program, {20, 20, 20 + page.width, 20 + page.height});
    return program;
}

// Page up moves the old top verse to the bottom of the pane, so page down returns to it. One verse further up, the old
// top must no longer be visible, so page down must not reach it.
TEST_P(PassagePages, PageDownUndoesPageUp) {
    Program program = ProgramOnPage(GetParam());
    const std::string start = Top(program);
    ScrollPassage(program, SB_PAGEUP);
    const int earliest = Thumb(program);
    EXPECT_LT(earliest, GetParam().verse);
    ScrollPassage(program, SB_PAGEDOWN);
    EXPECT_EQ(Top(program), start);

    ScrollPassage(program, SB_THUMBPOSITION, earliest - 1);
    ScrollPassage(program, SB_PAGEDOWN);
    EXPECT_LT(Thumb(program), GetParam().verse);
}

INSTANTIATE_TEST_SUITE_P(Passage, PassagePages,
                         testing::Values(Page{"Lines", 500, 900, 700, "0", "2"},
                                         Page{"Paragraphs", 500, 900, 700, "1", "2"},
                                         Page{"Psalms", 15870, 900, 700, "0", "2"},
                                         Page{"AcrossBooks", 23147, 1200, 900, "1", "1"},
                                         Page{"NearTheEnd", 31101, 900, 700, "0", "2"},
                                         Page{"OneVerseFillsThePane", 12747, 300, 260, "0", "2"}),
                         [](const auto& row) { return row.param.name; });

TEST(PassageScrolling, PageMovesOneVerseWhenOneFillsThePane) {
    Program program = StartProgram(FolderWithScripture());
    PlaceFrame(program, {20, 20, 320, 220});
    GoTo(program, "Esther 8:9");
    for (const char* next : {"Esther 8:10", "Esther 8:11", "Esther 8:12"}) {
        ScrollPassage(program, SB_PAGEDOWN);
        EXPECT_EQ(Top(program), next);
    }
    for (const char* next : {"Esther 8:11", "Esther 8:10", "Esther 8:9"}) {
        ScrollPassage(program, SB_PAGEUP);
        EXPECT_EQ(Top(program), next);
    }
}

TEST(PassageScrolling, FollowsTheKeys) {
    Program program = StartProgram(FolderWithScripture());
    GoTo(program, "Ps 119:1");
    ASSERT_EQ(FocusOf(program), PassageOf(program));
    const int start = Thumb(program);
    Press(program, "Down");
    EXPECT_EQ(Top(program), "Psalms 119:2");
    Press(program, "Up");
    Press(program, "Up");
    EXPECT_EQ(Top(program), "Psalms 118:29");
    Press(program, "Down");
    Press(program, "PgDn");
    EXPECT_GT(Thumb(program), start + 1);
    Press(program, "PgUp");
    EXPECT_EQ(Top(program), "Psalms 119:1");
    for (const char* key : {"Home", "End", "Right", "Enter", "Space", "a"}) {
        Press(program, key);
        EXPECT_EQ(Top(program), "Psalms 119:1") << key;
        EXPECT_EQ(FocusOf(program), PassageOf(program)) << key;
    }
    Press(program, "Left");
    EXPECT_EQ(FocusOf(program), VerseListOf(program));
    Press(program, "Down");
    EXPECT_EQ(Top(program), "Psalms 119:1");
}

namespace {

// Changes the system's setting of lines per notch while it exists.
struct WheelSetting {
    UINT before = 3;

    explicit WheelSetting(UINT lines) {
        SystemParametersInfoA(SPI_GETWHEELSCROLLLINES, 0, &before, 0);
        Set(lines);
    }
    ~WheelSetting() { Set(before); }
    static void Set(UINT lines) {
        SystemParametersInfoA(SPI_SETWHEELSCROLLLINES, lines, nullptr, SPIF_UPDATEINIFILE | SPIF_SENDCHANGE);
    }
};

struct Turn {
    UINT lines;  // per notch
    int notches;
    const char* top;  // top verse after the turn, starting at Genesis 5:10
};

void PrintTo(const Turn& turn, std::ostream* out) {
    *out << turn.notches << " notches of " << turn.lines;
}

struct PassageWheel : testing::TestWithParam<Turn> {};

}  // namespace

TEST_P(PassageWheel, MovesByTheSystemsNumberOfLines) {
    const WheelSetting setting(GetParam().lines);
    Program program = StartProgram(FolderWithScripture());
    GoTo(program, "Ge 5:10");
    Wheel(program, PassageOf(program), GetParam().notches);
    EXPECT_EQ(Top(program), GetParam().top);
}

INSTANTIATE_TEST_SUITE_P(Passage, PassageWheel,
                         testing::Values(Turn{3, -1, "Genesis 5:13"}, Turn{3, 1, "Genesis 5:7"},
                                         Turn{1, -2, "Genesis 5:12"}, Turn{0, -1, "Genesis 5:10"},
                                         Turn{200, 1, "Genesis 1:1"}, Turn{7, 2, "Genesis 4:22"}));

TEST(PassageScrolling, WheelMovesByPagesWhenTheSystemSaysSo) {
    const WheelSetting setting(WHEEL_PAGESCROLL);
    Program program = StartProgram(FolderWithScripture());
    GoTo(program, "Ge 5:10");
    ScrollPassage(program, SB_PAGEDOWN);
    const std::string below = Top(program);
    ScrollPassage(program, SB_PAGEUP);
    const std::string above = Top(program);
    GoTo(program, "Ge 5:10");
    Wheel(program, PassageOf(program), -1);
    EXPECT_EQ(Top(program), below);
    Wheel(program, PassageOf(program), 1);
    EXPECT_EQ(Top(program), above);
}

// A touch pad sends fractions of a notch, which is 120. Gives the verse at the top afterwards.
static std::string TurnBy(const Program& program, int delta) {
    const RECT pane = RectOnScreen(PassageOf(program));
    PostMessageA(PassageOf(program), WM_MOUSEWHEEL, MAKEWPARAM(0, delta), MAKELPARAM(pane.left + 50, pane.top + 50));
    return Top(program);
}

TEST(PassageScrolling, AddsUpPartialWheelNotches) {
    const WheelSetting setting(3);
    Program program = StartProgram(FolderWithScripture());
    GoTo(program, "Ge 5:10");
    EXPECT_EQ(TurnBy(program, -30), "Genesis 5:10");
    EXPECT_EQ(TurnBy(program, -30), "Genesis 5:11");
    EXPECT_EQ(TurnBy(program, -30), "Genesis 5:12");
    EXPECT_EQ(TurnBy(program, -30), "Genesis 5:13");
    EXPECT_EQ(TurnBy(program, 20), "Genesis 5:13");
    EXPECT_EQ(TurnBy(program, 20), "Genesis 5:12");
}

// What is left of a turn counts for nothing once the wheel goes the other way.
TEST(PassageScrolling, ForgetsPartOfANotchWhenTheWheelTurnsBack) {
    const WheelSetting setting(1);
    Program program = StartProgram(FolderWithScripture());
    GoTo(program, "Ge 5:10");
    EXPECT_EQ(TurnBy(program, -60), "Genesis 5:10");
    EXPECT_EQ(TurnBy(program, 60), "Genesis 5:10");
    EXPECT_EQ(TurnBy(program, 60), "Genesis 5:9") << "a whole notch back";
    EXPECT_EQ(TurnBy(program, 90), "Genesis 5:9");
    EXPECT_EQ(TurnBy(program, -120), "Genesis 5:10") << "a whole notch forth";
}

TEST(PassageScrolling, WheelScrollsThePaneUnderTheMouse) {
    Program program = StartProgram(FolderWithScripture());
    GoTo(program, "Ge 5:10");
    Wheel(program, VerseListOf(program), -1);
    EXPECT_EQ(Top(program), "Genesis 5:10");
    Command(program, IDM_FOCUS_LIST);
    Wheel(program, PassageOf(program), -1);
    EXPECT_EQ(Top(program), "Genesis 5:13");
    EXPECT_EQ(FocusOf(program), VerseListOf(program));
}

TEST(PassageScrolling, KeepsTheTopVerseWhenResized) {
    Program program = StartProgram(FolderWithScripture());
    GoTo(program, "Ro 8:28");
    for (const RECT& place : {RECT{10, 10, 400, 300}, RECT{0, 0, 1200, 1000}}) {
        PlaceFrame(program, place);
        EXPECT_EQ(Top(program), "Romans 8:28");
    }
    Command(program, IDM_PARAGRAPH_FORMAT);
    EXPECT_EQ(Top(program), "Romans 8:28");
}

// The status bar is updated when the Passage is painted, so not while it is hidden.
TEST(PassageScrolling, DoesNotUpdateTheStatusBarWhileHidden) {
    Program program = StartProgram(FolderWithScripture());
    GoTo(program, "Ge 5:10");
    Command(program, IDM_VIEW_PASSAGE);
    Command(program, IDM_GOTO_BOOK + 19);
    EXPECT_EQ(Top(program), "Genesis 5:10");
    EXPECT_EQ(Thumb(program), 115);
    Command(program, IDM_VIEW_PASSAGE);
    EXPECT_EQ(Top(program), "Psalms 1:1");
    EXPECT_EQ(Thumb(program), 13940);
}

TEST(PassageScrolling, UpdatesTheNoteOnlyWhenBound) {
    Program program = StartProgram(FolderWithScripture());
    ScrollPassage(program, SB_LINEDOWN);
    EXPECT_EQ(StatusPart(program, 2), "Genesis 1:2");
    EXPECT_EQ(TextOf(NoteViewOf(program)), "No note for Genesis 1:2.");
    Command(program, IDM_BIND_NOTES);
    ScrollPassage(program, SB_LINEDOWN);
    GoTo(program, "Ps 1:1");
    EXPECT_EQ(StatusPart(program, 2), "Genesis 1:2");
    EXPECT_EQ(Top(program), "Psalms 1:1");
}

// A command that goes to the current top verse still shows its note; scrolling that cannot move does not.
TEST(PassageScrolling, GoToTheCurrentVerseStillShowsItsNote) {
    Program program = StartProgram(FolderWithScripture());
    Command(program, IDM_NEXT_NOTE);
    ASSERT_EQ(StatusPart(program, 2), "Genesis 1:2");
    ScrollPassage(program, SB_LINEUP);
    EXPECT_EQ(StatusPart(program, 2), "Genesis 1:2");
    GoTo(program, "Ge 1:1");
    EXPECT_EQ(StatusPart(program, 2), "Genesis 1:1");
}
