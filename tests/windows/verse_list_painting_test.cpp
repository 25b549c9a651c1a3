// Painting of the Verse List: labels, key words, italics, line breaks, marks of notes.

#include <windows.h>

#include <gtest/gtest.h>

#include "tests/windows/note_set_files.h"
#include "tests/windows/painted_lines.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"

static constexpr auto kRegular = Style::kRegular;
static constexpr auto kBold = Style::kBold;
static constexpr auto kItalic = Style::kItalic;
static constexpr auto kBoldItalic = Style::kBoldItalic;

// A folder whose settings make key words red and the list about 600 pixels wide.
static ScratchFolder FolderWithRedKeyWords(int italics = 0) {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "OPTIONS", "KeyHighlightColor", std::to_string(kRed));
    WriteSetting(folder, "OPTIONS", "Italics", std::to_string(italics));
    for (const auto& [key, value] : {std::pair{"XPos", "20"}, {"YPos", "20"}, {"Width", "1240"}, {"Height", "600"}})
        WriteSetting(folder, "MISC", key, value);
    return folder;
}

// Searches, then gives the Passage the focus, because the caret of a focused list would be in its first line.
static void Show(Program& program, const Query& query, const char* range = "Ge - Re") {
    SetSearchRange(program, range);
    SearchFor(program, query);
    Command(program, IDM_FOCUS_PASSAGE);
}

namespace {

struct ListPainting {
    const char* name;
    Query query;
    const char* range;
    int italics;
    std::vector<PaintedLine> lines;
};

void PrintTo(const ListPainting& painting, std::ostream* out) {
    *out << painting.name;
}

}  // namespace

static const ListPainting kPaintings[] = {
    {"KeyWord",
     {"GRACE"},
     "Ge - Re",
     0,
     {{{{kBold, "Ge 6:8 "},
        {kRegular, "But Noah found "},
        {kBold, "grace", kRed},
        {kRegular, " in the eyes of the "},
        {kRegular, "LORD. "}},
       false},
      {{{kBold, "Ge 19:19 "}, {kRegular, "Behold now, thy servant hath found "}, {kBold, "grace", kRed}}}}},
    // The other "the" is too far from "Noah".
    {"NearWords",
     {"the noah", IDM_NEAR_SEARCH},
     "Ge 6:8",
     0,
     {{{{kBold, "Ge 6:8 "},
        {kRegular, "But "},
        {kBold, "Noah", kRed},
        {kRegular, " found grace in "},
        {kBold, "the", kRed},
        {kRegular, " eyes of the "}}}}},
    {"PartOfAWord",
     {"oun", IDM_WORD_SEARCH, IDC_ALL_WORDS, false, true},
     "Ge 6:8",
     0,
     {{{{kBold, "Ge 6:8 "}, {kRegular, "But Noah f"}, {kBold, "oun", kRed}, {kRegular, "d grace in the eyes "}}}}},
    {"EveryPartOfAWord",
     {"o", IDM_WORD_SEARCH, IDC_ALL_WORDS, false, true},
     "Ge 6:8",
     0,
     {{{{kBold, "Ge 6:8 "},
        {kRegular, "But N"},
        {kBold, "o", kRed},
        {kRegular, "ah f"},
        {kBold, "o", kRed},
        {kRegular, "und grace in the eyes "}}}}},
    // A word that is typed twice is marked twice; the second mark must not be drawn as text.
    {"DoubleMarks",
     {"end end"},
     "Ge 6:13",
     0,
     {{{{kBold, "Ge 6:13 "},
        {kRegular, "And God said unto Noah, The "},
        {kBold, "end", kRed},
        {kRegular, " of all flesh "}}}}},
    {"PhraseWordByWord",
     {"holy holy holy", IDM_PHRASE_SEARCH},
     "Isa 6:3",
     0,
     {{{{kBold, "Isa 6:3 "},
        {kRegular, "And one cried unto another, and said, "},
        {kBold, "Holy", kRed},
        {kRegular, ", "},
        {kBold, "holy", kRed},
        {kRegular, ", "},
        {kBold, "holy", kRed},
        {kRegular, ", "},
        {kItalic, "is "}}}}},
    {"PhraseFromWithinAWord",
     {"he said", IDM_PHRASE_SEARCH},
     "Ex 4:26",
     0,
     {{{{kBold, "Ex 4:26 "},
        {kRegular, "So he let him go: then s"},
        {kBold, "he", kRed},
        {kRegular, " "},
        {kBold, "said", kRed},
        {kRegular, ", A bloody "}}}}},
    // A phrase of one word is marked like a word.
    {"PhraseOfOneWord",
     {"he", IDM_PHRASE_SEARCH},
     "Ge 3:1",
     0,
     {{{{kBold, "Ge 3:1 "}, {kRegular, "\xB6 Now the serpent was more subtil than any beast of the field "}}}}},
    {"ParagraphMarkBeforeAKeyWord",
     {"in"},
     "Ge 1:1",
     0,
     {{{{kBold, "Ge 1:1 "}, {kRegular, "\xB6 "}, {kBold, "In", kRed}, {kRegular, " the beginning God created "}}}}},
    {"KeyWordInItalics",
     {"was"},
     "Ge 1:2",
     0,
     {{{{kBold, "Ge 1:2 "},
        {kRegular, "And the earth "},
        {kBold, "was", kRed},
        {kRegular, " without form, and void; and darkness "},
        {kBoldItalic, "was", kRed}}}}},
    {"KeyWordInBrackets",
     {"was"},
     "Ge 1:2",
     1,
     {{{{kBold, "Ge 1:2 "},
        {kRegular, "And the earth "},
        {kBold, "was", kRed},
        {kRegular, " without form, and void; and darkness ["},
        {kBold, "was", kRed},
        {kRegular, "] upon "}}}}},
    {"KeyWordInNormalText",
     {"was"},
     "Ge 1:2",
     2,
     {{{{kBold, "Ge 1:2 "},
        {kRegular, "And the earth "},
        {kBold, "was", kRed},
        {kRegular, " without form, and void; and darkness "},
        {kBold, "was", kRed},
        {kRegular, " upon "}}}}},
};

namespace {

struct VerseListPaintingCase : testing::TestWithParam<ListPainting> {};

}  // namespace
INSTANTIATE_TEST_SUITE_P(Entry, VerseListPaintingCase, testing::ValuesIn(kPaintings),
                         [](const auto& row) { return row.param.name; });

TEST_P(VerseListPaintingCase, ShowsTheExpectedLines) {
    Program program = StartProgram(FolderWithRedKeyWords(GetParam().italics));
    Show(program, GetParam().query, GetParam().range);
    EXPECT_EQ(WrongLines(VerseListOf(program), GetParam().lines), "");
    SavePicture(PictureOfWindow(program.frame), std::string("verse-list-") + GetParam().name);
}

// ---- Line breaks ----------------------------------------------------------------------------------------------------

using Word = std::vector<PaintedPiece>;

// The words wrapped into lines as expected for a pane of this width.
static std::vector<PaintedLine> Broken(const std::vector<Word>& words, int width) {
    std::vector<PaintedLine> lines{{{}, false}};
    int x = lines.back().left;
    for (const Word& word : words) {
        const int wordWidth = WidthOf(word) - 1;
        if (x + wordWidth >= width) {
            lines.push_back({{}, false, LineHeightOf()});  // continuation lines are indented
            x = LineHeightOf();
        }
        lines.back().pieces.insert(lines.back().pieces.end(), word.begin(), word.end());
        x += wordWidth;
    }
    return lines;
}

static std::vector<Word> PlainWords(const std::string& text) {
    std::vector<Word> words;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text.find(' ', at) + 1;
        words.push_back({{kRegular, text.substr(at, end - at)}});
        at = end;
    }
    return words;
}

TEST(VerseListPainting, IndentsContinuationLines) {
    Program program = StartProgram(FolderWithRedKeyWords());
    Show(program, {"grace"}, "Ge 6:8");
    std::vector<Word> words = PlainWords("But Noah found grace in the eyes of the LORD. ");
    words.insert(words.begin(), {{kBold, "Ge 6:8 "}});
    words[4] = {{kBold, "grace", kRed}, {kRegular, " "}};
    const HWND pane = VerseListOf(program);
    for (const int width : {500, 420, 380, 300}) {
        PlaceFrame(program, {20, 20, 20 + width, 620});
        const std::vector<PaintedLine> lines = Broken(words, ClientRectOf(pane).right);
        EXPECT_EQ(WrongLines(pane, lines), "") << width;
        EXPECT_GE(lines.size(), width > 400 ? 2u : 3u) << width;
    }
    SavePicture(PictureOfWindow(program.frame), "verse-list-narrow");
}

// A word must end at least one pixel before the right edge, or it goes to the next line.
TEST(VerseListPainting, WrapsBeforeAWordThatEndsAtTheEdge) {
    Program program = StartProgram(FolderWithRedKeyWords());
    Show(program, {"Jesus wept", IDM_PHRASE_SEARCH});
    const HWND pane = VerseListOf(program);
    const int whole =
        WidthOf({{kBold, "Joh 11:35 "}, {kBold, "Jesus"}, {kRegular, " "}, {kBold, "wept"}, {kRegular, ". "}});
    const std::vector<Word> words = {
        {{kBold, "Joh 11:35 "}}, {{kBold, "Jesus", kRed}, {kRegular, " "}}, {{kBold, "wept", kRed}, {kRegular, ". "}}};
    for (const int room : {whole + 1, whole, whole - 1}) {
        // The list takes half of the width, so the frame must grow by two pixels for each pixel of the list.
        const int missing = room - static_cast<int>(ClientRectOf(pane).right);
        const RECT frame = RectOnScreen(program.frame);
        PlaceFrame(program, {frame.left, frame.top, frame.right + 2 * missing, frame.bottom});
        ASSERT_EQ(ClientRectOf(pane).right, room);
        const std::vector<PaintedLine> lines = Broken(words, room);
        EXPECT_EQ(lines.size(), room > whole ? 1u : 2u);
        EXPECT_EQ(WrongLines(pane, lines), "") << room - whole;
    }
}

// "([is]": what precedes the bracket is not in italics.
TEST(VerseListPainting, CanStartItalicsWithinAWord) {
    for (const int italics : {0, 1, 2}) {
        Program program = StartProgram(FolderWithRedKeyWords(italics));
        Show(program, {"escape"}, "Ge 19:20");
        const auto added = [italics](const char* word) -> Word {
            if (italics == 1) return {{kRegular, std::string("[") + word + "] "}};
            return {{italics == 0 ? kItalic : kRegular, word}, {kRegular, " "}};
        };
        std::vector<Word> words = {{{kBold, "Ge 19:20 "}}};
        const auto add = [&words](const std::vector<Word>& more) {
            words.insert(words.end(), more.begin(), more.end());
        };
        add(PlainWords("Behold now, this city "));
        add({added("is")});
        add(PlainWords("near to flee unto, and it "));
        add({added("is")});
        add(PlainWords("a little one: Oh, let me "));
        add({{{kBold, "escape", kRed}, {kRegular, " "}}});
        add(PlainWords("thither, "));
        Word doubted = added("is");
        doubted.insert(doubted.begin(), {kRegular, "("});
        add({doubted});
        add(PlainWords("it not a little one?) and my soul shall live. "));
        const HWND pane = VerseListOf(program);
        EXPECT_EQ(WrongLines(pane, Broken(words, ClientRectOf(pane).right)), "") << italics;
    }
}

// ---- Marks and colours ----------------------------------------------------------------------------------------------

TEST(VerseListPainting, MarksVersesThatHaveANote) {
    const ScratchFolder folder = FolderWithRedKeyWords();
    WriteNoteSet(folder, "Mine", {{145, "Grace."}});
    Program program = StartProgram(folder);
    Show(program, {"grace"});
    EXPECT_EQ(WrongLines(VerseListOf(program), {{{{kBold, "*Ge 6:8 "}, {kRegular, "But Noah found "}}},
                                                {{{kBold, "Ge 19:19 "}, {kRegular, "Behold now, "}}}}),
              "");
}

TEST(VerseListPainting, UsesTheSystemHighlightColorByDefault) {
    Program program = StartProgram(FolderWithScripture());
    Show(program, {"grace"}, "Ge 6:8");
    EXPECT_EQ(
        WrongLines(
            VerseListOf(program),
            {{{{kBold, "Ge 6:8 "}, {kRegular, "But Noah found "}, {kBold, "grace", GetSysColor(COLOR_HIGHLIGHT)}}}}),
        "");
}

TEST(VerseListPainting, ShowsNothingForAnEmptyList) {
    Program program = StartProgram(FolderWithRedKeyWords());
    Show(program, {"grace"});
    const HWND pane = VerseListOf(program);
    EXPECT_GT(CountPixels(PictureOfClient(pane), ClientRectOf(pane), 0xFF0000), 0);
    SearchInVain(program, {"xyzzy"});
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_EQ(CountColors(PictureOfClient(pane), ClientRectOf(pane)), 1);
}

TEST(VerseListPainting, UsesTheChosenFont) {
    const ScratchFolder folder = FolderWithRedKeyWords();
    WriteSetting(folder, "OPTIONS", "VerseListFontName", "Arial");
    WriteSetting(folder, "OPTIONS", "VerseListFontHeight", "24");
    WriteSetting(folder, "OPTIONS", "VerseListFontWeight", "700");
    Program program = StartProgram(folder);
    Show(program, {"grace"});
    EXPECT_EQ(
        WrongLines(VerseListOf(program),
                   {{{{kBold, "Ge 6:8 "}, {kRegular, "But Noah found "}, {kBold, "grace", kRed}}}}, {"Arial", 24, 700}),
        "");
}
