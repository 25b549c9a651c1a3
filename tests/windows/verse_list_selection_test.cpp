// Selecting words in the Verse List with the mouse: what is inverted and copied, and which entry commands use.

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"
#include "tests/windows/selection_steps.h"

using testing::StartsWith;

// Starts the program with a wide frame and red key words.
static Program StartWide(const char* brackets = "0") {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "OPTIONS", "KeyHighlightColor", std::to_string(kRed));
    WriteSetting(folder, "FORMAT", "Brackets", brackets);
    for (const auto& [key, value] : {std::pair{"XPos", "20"}, {"YPos", "20"}, {"Width", "1240"}, {"Height", "600"}})
        WriteSetting(folder, "MISC", key, value);
    return StartProgram(folder);
}

static void Find(Program& program, const Query& query, const char* range = "Ge - Re") {
    SetSearchRange(program, range);
    SearchFor(program, query);
}

// Lists John 11:35 and 36 and focuses the list.
static void FindWeeping(Program& program) {
    Find(program, {"Jesus Jews", IDM_WORD_SEARCH, IDC_ANY_WORD}, "Joh 11:35 - Joh 11:36");
}

static std::vector<PaintedLine> Weeping() {
    std::vector<PaintedLine> lines = {LabelledLine("Joh 11:35 ", "wept. ", false),
                                      LabelledLine("Joh 11:36 ", "Then said the Behold how he loved him! ", false)};
    const auto insert = [](PaintedLine& line, int at, std::vector<PaintedPiece> pieces) {
        line.pieces.insert(line.pieces.begin() + at, pieces.begin(), pieces.end());
    };
    insert(lines[0], 1, {{Style::kBold, "Jesus", kRed}, {Style::kRegular, " "}});
    insert(lines[1], 4, {{Style::kBold, "Jews", kRed}, {Style::kRegular, ", "}});
    return lines;
}

// ---- Words ----------------------------------------------------------------------------------------------------------

TEST(VerseListSelection, IsInvertedAndCopiedAcrossEntries) {
    Program program = StartWide();
    FindWeeping(program);
    const HWND pane = VerseListOf(program);
    const std::vector<PaintedLine> lines = Weeping();
    const struct {
        WordPlace from, to;
        const char* copy;
    } kDrags[] = {
        {{0, 3}, {1, 2}, "wept. \r\n Joh 11:36 Then said "},
        {{0, 0}, {1, 1}, " Joh 11:35 Jesus wept. \r\n Joh 11:36 Then "},
        {{0, 0}, {1, 0}, " Joh 11:35 Jesus wept. \r\n Joh 11:36 "},
        {{0, 0}, {0, 0}, " Joh 11:35 "},
        {{0, 3}, {0, 3}, "wept. "},
        // If the last word of a later entry is selected, its line end is copied too.
        {{0, 3}, {1, 10}, "wept. \r\n Joh 11:36 Then said the Jews, Behold how he loved him!\r\n"},
        {{1, 10}, {1, 10}, "him! "},
    };
    for (const auto& [from, to, copy] : kDrags) {
        EXPECT_EQ(WrongAfterDrag(program, pane, lines, from, to), "") << copy;
        EXPECT_EQ(Copied(program), copy);
        EXPECT_EQ(WrongAfterDrag(program, pane, lines, to, from), "") << copy;
        EXPECT_EQ(Copied(program), copy) << "dragged the other way";
    }
    // A selected key word has the colours of the selection, including the blank or punctuation after it.
    Drag(program, pane, MiddleOf(lines, {1, 4}), MiddleOf(lines, {0, 1}));
    EXPECT_EQ(WrongLines(pane, WithSelected(lines, {0, 1}, {1, 5})), "");
    EXPECT_EQ(Copied(program), "Jesus wept. \r\n Joh 11:36 Then said the Jews, ");
    SavePicture(PictureOfWindow(program.frame), "verse-list-selection");
}

TEST(VerseListSelection, CopyIsTheSameInEveryItalicsMode) {
    for (const char* brackets : {"0", "1"}) {
        Program program = StartWide(brackets);
        Find(program, {"Reuben"}, "Ge 37:21");
        const HWND pane = VerseListOf(program);
        for (const int italics : {0, 1, 2}) {
            Command(program, IDM_ITALIC_TEXT + italics);
            std::vector<PaintedLine> lines = {{{{Style::kBold, "Ge 37:21 "},
                                                {Style::kRegular, "And "},
                                                {Style::kBold, "Reuben", kRed},
                                                {Style::kRegular, " "},
                                                {Style::kRegular, "heard "}}}};
            std::vector<PaintedPiece> rest = WordPieces(italics == 1 ? "[it], and he " : "it, and he ");
            if (italics == 0) {
                rest[0].text = ", ";
                rest.insert(rest.begin(), {Style::kItalic, "it"});
            }
            lines[0].pieces.insert(lines[0].pieces.end(), rest.begin(), rest.end());
            const WordPlace heard{0, 4}, he{0, lines[0].pieces.size() - 1};
            EXPECT_EQ(WrongAfterDrag(program, pane, lines, heard, he), "") << italics;
            EXPECT_EQ(Copied(program), *brackets == '1' ? "heard [it], and he " : "heard it, and he ");
            Command(program, IDM_PARAGRAPH_FORMAT);
            EXPECT_TRUE(CanCopy(program)) << "the list has no paragraphs";
        }
    }
}

TEST(VerseListSelection, ReachesTheEndOfALineButNotBelowTheLast) {
    Program program = StartWide();
    const HWND pane = VerseListOf(program);
    Command(program, IDM_FOCUS_LIST);
    Click(program, pane, {100, LinesDown(0)});
    EXPECT_FALSE(CanCopy(program)) << "an empty list has no words";
    FindWeeping(program);
    const std::vector<PaintedLine> lines = Weeping();
    const int right = ClientRectOf(pane).right - 3;
    Click(program, pane, {right, LinesDown(0)});
    EXPECT_EQ(WrongLines(pane, WithSelected(lines, {0, 3}, {0, 3})), "");
    EXPECT_EQ(Copied(program), "wept. ");
    Click(program, pane, {100, LinesDown(2)});
    EXPECT_FALSE(CanCopy(program));
    EXPECT_EQ(WrongLines(pane, lines), "");

    HoldMouse(program, pane, MiddleOf(lines, {1, 1}));
    MoveMouse(program, pane, MiddleOf(lines, {1, 3}));
    MoveMouse(program, pane, {100, LinesDown(4)});
    LetMouseGo(program);
    EXPECT_EQ(Copied(program), "Then said the ") << "the last word that the mouse was on";
}

// ---- The mouse at the edges -----------------------------------------------------------------------------------------

TEST(VerseListSelection, ScrollsOneEntryPerMoveNearTheEdges) {
    Program program = StartWide();
    Find(program, {"grace"});
    const HWND pane = VerseListOf(program);
    const int bottom = ClientRectOf(pane).bottom;
    const auto position = [&] { return VerticalScroll(program, pane).position; };
    HoldMouse(program, pane, {20, LinesDown(0)});
    const struct {
        int y, position;
    } kMoves[] = {{3, 0},          {bottom - 5, 1}, {bottom - 1, 2}, {bottom + 30, 3},
                  {bottom - 6, 3}, {6, 3},          {5, 2},          {-20, 1}};
    int x = 20;
    for (const auto& [y, expected] : kMoves) {
        MoveMouse(program, pane, {++x, y});
        EXPECT_EQ(position(), expected) << "y " << y;
    }
    LetMouseGo(program);
    EXPECT_THAT(Copied(program), StartsWith(" Ge 6:8 ")) << "where it began";
    Press(program, "End");
    HoldMouse(program, pane, {20, LinesDown(0)});
    MoveMouse(program, pane, {21, bottom - 2});
    EXPECT_EQ(position(), 158) << "the last entry";
    LetMouseGo(program);
}

TEST(VerseListSelection, DoesNotRepaintWhileTheMouseStaysOnAWord) {
    Program program = StartWide();
    Command(program, IDM_VIEW_NOTES);  // hides the notes to make the pane high enough for the spot
    FindWeeping(program);
    const HWND pane = VerseListOf(program);
    const POINT then = MiddleOf(Weeping(), {1, 1});
    HoldMouse(program, pane, then);
    DropSpot(pane);
    MoveMouse(program, pane, {then.x + 3, then.y});
    MoveMouse(program, pane, {then.x - 3, then.y + 2});
    EXPECT_TRUE(HasSpot(pane));
    MoveMouse(program, pane, MiddleOf(Weeping(), {1, 2}));
    EXPECT_FALSE(HasSpot(pane));
    LetMouseGo(program);
}

// ---- Focus, commands, searches, the clipboard -----------------------------------------------------------------------

TEST(VerseListSelection, IsClearedWhenTheFocusIsLost) {
    Program program = StartWide();
    FindWeeping(program);
    const HWND pane = VerseListOf(program);
    const std::vector<PaintedLine> lines = Weeping();
    const HWND others[] = {PassageOf(program), NoteViewOf(program)};
    for (const HWND other : others) {
        EXPECT_EQ(WrongAfterDrag(program, pane, lines, {0, 0}, {0, 3}), "");
        EXPECT_TRUE(CanCopy(program));
        Click(program, other);
        EXPECT_FALSE(CanCopy(program));
        EXPECT_EQ(WrongLines(pane, lines), "");
        EXPECT_EQ(Copied(program), "(nothing)");
        Drag(program, pane, MiddleOf(lines, {1, 1}), MiddleOf(lines, {1, 3}));
        EXPECT_EQ(FocusOf(program), pane);
        EXPECT_FALSE(CanCopy(program)) << "the first click only sets the focus";
        EXPECT_EQ(WrongLines(pane, lines), "");
    }
}

TEST(VerseListSelection, CommandsUseTheEntryWhereItBegan) {
    Program program = StartWide();
    FindWeeping(program);
    const HWND pane = VerseListOf(program);
    const std::vector<PaintedLine> lines = Weeping();
    Drag(program, pane, MiddleOf(lines, {1, 2}), MiddleOf(lines, {0, 3}));
    Press(program, "Enter");
    EXPECT_EQ(Top(program), "John 11:36") << "Enter uses the entry where the drag began";
    Press(program, "F12");
    EXPECT_EQ(Top(program), "John 11:35") << "F12 uses the first selected entry";
    Press(program, "Delete");
    EXPECT_FALSE(CanCopy(program));
    EXPECT_THAT(ListStrings(ReferenceListOf(program)), testing::ElementsAre("John 11:35"));
    EXPECT_EQ(WrongLines(pane, {lines[0], {{}, false}}), "");
}

TEST(VerseListSelection, IsUsedAsSearchTextAndCopyReportsAHeldClipboard) {
    Program program = StartWide();
    Find(program, {"grace"});
    const HWND pane = VerseListOf(program);
    const auto select = [&] {
        Command(program, IDM_FOCUS_LIST);
        Drag(program, pane, {20, LinesDown(0)}, {300, LinesDown(6)});
    };
    SearchWithSelection(program, pane, select);
    Command(program, IDM_FOCUS_LIST);
    CommandToPane(program, pane, IDM_PHRASE_SEARCH);
    EXPECT_FALSE(HasDialog(program)) << "there is no selection to search for";
    select();
    CopyWhileClipboardIsHeld(program, pane);
}
