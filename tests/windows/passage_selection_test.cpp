// Selecting words in the Passage with the mouse: what is inverted and copied, and when the selection is cleared.

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/selection_steps.h"

using testing::EndsWith;
using testing::StartsWith;

static constexpr int kHeardIt = 1104;  // Genesis 37:21, which has the supplied word "it"
static constexpr int kWept = 26558;    // John 11:35
static constexpr int kFirstDays = 30;  // Genesis 1:31, the last of its chapter
static constexpr int kTheEnd = 31101;  // Revelation 22:21
static constexpr int kAmid = 15000;

// Starts the program with only the Passage shown, as wide as the frame and focused.
static Program StartAt(int verse, const char* brackets = "0") {
    const ScratchFolder folder = FolderOnlyPassage(verse);
    WriteSetting(folder, "FORMAT", "Brackets", brackets);
    Program program = StartProgram(folder);
    Command(program, IDM_FOCUS_PASSAGE);
    return program;
}

// Toggles between paragraphs and lines, and gives the pane the focus.
static void SwitchFormat(const Program& program) {
    Command(program, IDM_PARAGRAPH_FORMAT);
    Command(program, IDM_FOCUS_PASSAGE);
}

// ---- Words ----------------------------------------------------------------------------------------------------------

static PaintedLine HeardIt(int italics, bool inParagraphs) {
    PaintedLine line = LabelledLine(inParagraphs ? "Ge 37:21 " : " Ge 37:21 ", "And Reuben heard and he delivered ");
    std::vector<PaintedPiece> it = WordPieces(italics == 1 ? "[it], " : "it, ");
    if (italics == 0) it = {{Style::kItalic, "it"}, {Style::kRegular, ", "}};
    line.pieces.insert(line.pieces.begin() + 4, it.begin(), it.end());
    return line;
}

TEST(PassageSelection, IsInvertedAndCopiedInEveryModeAndFormat) {
    for (const char* brackets : {"0", "1"}) {
        Program program = StartAt(kHeardIt, brackets);
        const HWND pane = PassageOf(program);
        for (const bool inParagraphs : {false, true}) {
            for (const int italics : {0, 1, 2}) {
                Command(program, IDM_ITALIC_TEXT + italics);
                const std::vector<PaintedLine> lines = {HeardIt(italics, inParagraphs)};
                const WordPlace heard{0, 3}, he{0, italics == 0 ? 7u : 6u};
                const std::string copy = *brackets == '1' ? "heard [it], and he " : "heard it, and he ";
                EXPECT_EQ(WrongAfterDrag(program, pane, lines, heard, he), "") << italics << inParagraphs;
                EXPECT_EQ(Copied(program), copy);
                SavePicture(PictureOfWindow(program.frame), "passage-selection-" + std::to_string(italics));
                EXPECT_EQ(WrongAfterDrag(program, pane, lines, he, heard), "") << italics << inParagraphs;
                EXPECT_EQ(Copied(program), copy) << "dragged the other way";
            }
            SwitchFormat(program);
        }
    }
}

TEST(PassageSelection, ClickSelectsAWordOrALabel) {
    Program program = StartAt(kWept);
    const HWND pane = PassageOf(program);
    const std::vector<PaintedLine> inLines = {LabelledLine(" Joh 11:35 ", "Jesus wept. ", false),
                                              LabelledLine(" 36 ", "Then said the Jews, ")};
    const struct {
        WordPlace word;
        const char* copy;
    } kClicks[] = {{{0, 0}, " Joh 11:35 "}, {{0, 2}, "wept. "}, {{1, 1}, "Then "}, {{1, 0}, " Joh 11:36 "}};
    for (const auto& [word, copy] : kClicks) {
        Click(program, pane, MiddleOf(inLines, word));
        EXPECT_EQ(WrongLines(pane, WithSelected(inLines, word, word)), "") << copy;
        EXPECT_EQ(Copied(program), copy);
        EXPECT_TRUE(CanCopy(program));
    }
    Click(program, pane, {900, LinesDown(0)});  // right of the last word of a verse
    EXPECT_EQ(Copied(program), "wept. ");

    Click(program, pane, MiddleOf(inLines, {1, 2}));
    Command(program, IDM_NOTE_FOR_PASSAGE);
    EXPECT_EQ(StatusPart(program, 2), "John 11:36") << "the first selected verse";
}

TEST(PassageSelection, CanSpanVerses) {
    Program program = StartAt(kWept);
    const HWND pane = PassageOf(program);
    const std::vector<PaintedLine> inLines = {LabelledLine(" Joh 11:35 ", "Jesus wept. ", false),
                                              LabelledLine(" 36 ", "Then said the Jews, ")};
    EXPECT_EQ(WrongAfterDrag(program, pane, inLines, {0, 2}, {1, 2}), "");
    EXPECT_EQ(Copied(program), "wept. \r\n 36 Then said ");
    EXPECT_EQ(WrongAfterDrag(program, pane, inLines, {1, 0}, {0, 0}), "");
    EXPECT_EQ(Copied(program), " Joh 11:35 Jesus wept. \r\n 36 ");

    SwitchFormat(program);
    std::vector<PaintedLine> inParagraphs = {LabelledLine("Joh 11:35 ", "Jesus wept. Then said the Jews, ")};
    inParagraphs[0].pieces.insert(inParagraphs[0].pieces.begin() + 3, {Style::kBold, "36 "});
    EXPECT_EQ(WrongAfterDrag(program, pane, inParagraphs, {0, 2}, {0, 5}), "");
    EXPECT_EQ(Copied(program), "wept. 36 Then said ");
    EXPECT_EQ(WrongAfterDrag(program, pane, inParagraphs, {0, 3}, {0, 3}), "");
    EXPECT_EQ(Copied(program), "Joh 11:36 ");
}

// Clicking on the blank lines or the heading above a verse selects the verse's label.
TEST(PassageSelection, LinesAboveAChapterBelongToTheLabel) {
    Program program = StartAt(kFirstDays);
    const HWND pane = PassageOf(program);
    const PaintedLine empty{{}, false};
    for (const bool inParagraphs : {false, true}) {
        const PaintedLine heading{{{Style::kBold, "Genesis chapter 2"}}, false};
        const std::vector<PaintedLine> lines = {
            LabelledLine(inParagraphs ? "Ge 1:31 " : " Ge 1:31 ", "And God saw every thing "), empty, heading, empty,
            LabelledLine(inParagraphs ? "    1 " : " 1 ", inParagraphs ? "Thus the " : "\xB6 Thus the ")};
        std::vector<PaintedLine> selected = WithSelected(lines, {4, 0}, {4, 0});
        selected[2].pieces[0].selected = true;  // the heading is selected with the label
        for (const int line : {1, 2, 3}) {
            Click(program, pane, {500, LinesDown(line)});
            EXPECT_EQ(WrongLines(pane, selected), "") << "line " << line;
            EXPECT_EQ(Copied(program), inParagraphs ? "    Ge 2:1 " : " Ge 2:1 ");
        }
        SavePicture(PictureOfWindow(program.frame), "passage-selection-heading");
        Drag(program, pane, MiddleOf(lines, {0, 3}), {500, LinesDown(1)});
        const std::string copy = Copied(program);
        EXPECT_THAT(copy, StartsWith("saw every thing "));
        EXPECT_THAT(copy, EndsWith(inParagraphs ? "\r\n\r\nGenesis chapter 2\r\n\r\n    1 "
                                                : "\r\n\r\nGenesis chapter 2\r\n\r\n 1 "));
        SwitchFormat(program);
    }
}

TEST(PassageSelection, NothingBelowTheTextIsSelected) {
    Program program = StartAt(kTheEnd);
    const HWND pane = PassageOf(program);
    const std::vector<PaintedLine> lines = {LabelledLine(" Re 22:21 ", "The grace of our Lord ")};
    Click(program, pane, {300, LinesDown(3)});
    EXPECT_FALSE(CanCopy(program));
    EXPECT_EQ(Copied(program), "(nothing)");
    EXPECT_EQ(WrongLines(pane, lines), "");

    EXPECT_EQ(WrongAfterDrag(program, pane, lines, {0, 2}, {0, 4}), "");
    Click(program, pane, {300, LinesDown(3)});
    EXPECT_FALSE(CanCopy(program)) << "the selection is cleared";
    EXPECT_EQ(WrongLines(pane, lines), "");

    HoldMouse(program, pane, MiddleOf(lines, {0, 1}));
    MoveMouse(program, pane, MiddleOf(lines, {0, 3}));
    MoveMouse(program, pane, {300, LinesDown(5)});
    LetMouseGo(program);
    EXPECT_EQ(Copied(program), "The grace of ") << "the last word that the mouse was on";
}

// ---- The mouse at the edges -----------------------------------------------------------------------------------------

TEST(PassageSelection, ScrollsOneVersePerMoveNearTheEdges) {
    Program program = StartAt(kAmid);
    const HWND pane = PassageOf(program);
    const int bottom = ClientRectOf(pane).bottom;
    HoldMouse(program, pane, {200, LinesDown(2)});
    EXPECT_EQ(Thumb(program), kAmid);
    int expected = kAmid;
    // Near the edges, on them and beyond them; six pixels away from an edge nothing scrolls.
    const struct {
        int y, by;
    } kMoves[] = {{6, 0},          {5, -1},         {2, -1},         {0, -1},        {-40, -1},
                  {bottom - 6, 0}, {bottom - 5, 1}, {bottom - 1, 1}, {bottom + 9, 1}};
    int x = 200;
    for (const auto& [y, by] : kMoves) {
        for (int again = 0; again < 2; ++again) {
            MoveMouse(program, pane, {++x, y});
            expected += by;
            EXPECT_EQ(Thumb(program), expected) << "y " << y;
        }
    }
    LetMouseGo(program);
    MoveMouse(program, pane, {x, 2});
    EXPECT_EQ(Thumb(program), expected) << "the button is up";
}

TEST(PassageSelection, KeepsItsStartWhenTheTextScrolls) {
    Program program = StartAt(kWept);
    const HWND pane = PassageOf(program);
    const std::vector<PaintedLine> lines = {LabelledLine(" Joh 11:35 ", "Jesus wept. ", false)};
    HoldMouse(program, pane, MiddleOf(lines, {0, 2}));
    MoveMouse(program, pane, {3, 4});
    LetMouseGo(program);
    EXPECT_EQ(Top(program), "John 11:34");
    const std::string copy = Copied(program);
    EXPECT_THAT(copy, StartsWith(" Joh 11:34 "));
    EXPECT_THAT(copy, EndsWith("\r\n 35 Jesus wept. "));
}

TEST(PassageSelection, DoesNotScrollBeyondTheEndsOfTheText) {
    Program program = StartAt(0);
    const HWND pane = PassageOf(program);
    HoldMouse(program, pane, {200, LinesDown(0)});
    MoveMouse(program, pane, {201, 1});
    EXPECT_EQ(Thumb(program), 0);
    LetMouseGo(program);
    GoTo(program, "Re 22:21");
    HoldMouse(program, pane, {200, LinesDown(0)});
    MoveMouse(program, pane, {201, ClientRectOf(pane).bottom - 2});
    EXPECT_EQ(Thumb(program), kTheEnd);
    LetMouseGo(program);
}

TEST(PassageSelection, FollowsTheMouseOutsideThePane) {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "MISC", "ReadVerse", std::to_string(kWept));
    Program program = StartProgram(folder);
    Command(program, IDM_FOCUS_PASSAGE);
    const HWND pane = PassageOf(program);
    const std::vector<PaintedLine> lines = {LabelledLine(" Joh 11:35 ", "Jesus wept. ", false),
                                            LabelledLine(" 36 ", "Then said the ")};
    HoldMouse(program, pane, MiddleOf(lines, {1, 2}));
    MoveMouse(program, pane, {-60, LinesDown(0)});  // over the Verse List
    EXPECT_EQ(WrongLines(pane, WithSelected(lines, {0, 0}, {1, 2})), "");
    MoveMouse(program, pane, {2000, LinesDown(0)});
    EXPECT_EQ(WrongLines(pane, WithSelected(lines, {0, 2}, {1, 2})), "");
    LetMouseGo(program);
    MoveMouse(program, pane, MiddleOf(lines, {0, 1}));
    EXPECT_EQ(Copied(program), "wept. \r\n 36 Then said ") << "the button is up";
    EXPECT_EQ(FocusOf(program), pane);
}

TEST(PassageSelection, DoesNotRepaintWhileTheMouseStaysOnAWord) {
    Program program = StartAt(kWept);
    const HWND pane = PassageOf(program);
    const std::vector<PaintedLine> lines = {LabelledLine(" Joh 11:35 ", "Jesus wept. ", false)};
    const POINT jesus = MiddleOf(lines, {0, 1});
    HoldMouse(program, pane, jesus);
    DropSpot(pane);
    MoveMouse(program, pane, {jesus.x + 4, jesus.y});
    MoveMouse(program, pane, {jesus.x - 3, jesus.y + 2});
    EXPECT_TRUE(HasSpot(pane));
    MoveMouse(program, pane, MiddleOf(lines, {0, 2}));
    EXPECT_FALSE(HasSpot(pane));
    LetMouseGo(program);
}

// ---- Focus, searches, the clipboard ---------------------------------------------------------------------------------

TEST(PassageSelection, IsClearedWhenTheFocusIsLost) {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "MISC", "ReadVerse", std::to_string(kWept));
    Program program = StartProgram(folder);
    const HWND pane = PassageOf(program);
    const std::vector<PaintedLine> lines = {LabelledLine(" Joh 11:35 ", "Jesus wept. ", false)};
    Drag(program, pane, MiddleOf(lines, {0, 1}), MiddleOf(lines, {0, 2}));
    EXPECT_EQ(FocusOf(program), pane);
    EXPECT_FALSE(CanCopy(program)) << "the first click only sets the focus";
    EXPECT_EQ(WrongLines(pane, lines), "");

    const HWND others[] = {VerseListOf(program), NoteViewOf(program)};
    for (const HWND other : others) {
        EXPECT_EQ(WrongAfterDrag(program, pane, lines, {0, 1}, {0, 2}), "");
        EXPECT_TRUE(CanCopy(program));
        Click(program, other);
        EXPECT_FALSE(CanCopy(program));
        EXPECT_EQ(WrongLines(pane, lines), "");
        EXPECT_EQ(Copied(program), "(nothing)");
        Command(program, IDM_FOCUS_PASSAGE);
        EXPECT_FALSE(CanCopy(program)) << "the selection must not come back";
    }
}

TEST(PassageSelection, IsUsedAsSearchText) {
    Program program = StartAt(kFirstDays);
    const HWND pane = PassageOf(program);
    const int words = static_cast<int>(ClientRectOf(pane).right) / 2;
    SearchWithSelection(program, pane, [&] {
        Command(program, IDM_FOCUS_PASSAGE);
        Drag(program, pane, {30, LinesDown(0)}, {words, LinesDown(5)});
    });
    Command(program, IDM_FOCUS_PASSAGE);
    CommandToPane(program, pane, IDM_WORD_SEARCH);
    EXPECT_FALSE(HasDialog(program)) << "there is no selection to search for";
}

TEST(PassageSelection, CopyReportsAClipboardHeldByAnotherProgram) {
    Program program = StartAt(kWept);
    Click(program, PassageOf(program), {30, LinesDown(0)});
    CopyWhileClipboardIsHeld(program, PassageOf(program));
}
