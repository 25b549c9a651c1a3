// Lines with italic words, which are narrower than regular ones: the mouse finds each word on the line where it is
// seen.

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "resources/ids.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/real_scripture.h"
#include "tests/windows/selection_steps.h"

namespace {

struct SeenWord {
    std::string text;  // without brackets, with its blank
    std::size_t line = 0;
    int left = 0, width = 0;
    bool beginsLine = false;  // nothing but a label is before it on its line
};

// The lines of the Passage with one verse per line, laid out by the test with its own fonts.
struct SeenLines {
    int limit = 0;  // width of the pane, pixels
    std::vector<PaintedLine> lines{};
    std::vector<SeenWord> words{};
    int x = 0;
};

}  // namespace

static int WidthAlone(const std::vector<PaintedPiece>& pieces) {
    return WidthOf(pieces) - WidthOf({});
}

// The word's pieces in their faces. `italic` is the face at its start, and then that at its end.
static std::vector<PaintedPiece> PiecesOf(const std::string& word, bool& italic) {
    std::vector<PaintedPiece> pieces(1, {italic ? Style::kItalic : Style::kRegular, ""});
    for (const char letter : word) {
        if (letter != '[' && letter != ']') {
            pieces.back().text += letter;
            continue;
        }
        italic = letter == '[';
        pieces.push_back({italic ? Style::kItalic : Style::kRegular, ""});
    }
    std::erase_if(pieces, [](const PaintedPiece& piece) { return piece.text.empty(); });
    return pieces;
}

static void AddWord(SeenLines& seen, const std::vector<PaintedPiece>& pieces) {
    const int width = WidthAlone(pieces);
    if (seen.x + width >= seen.limit) {
        seen.lines.push_back({{}, false});
        seen.x = WidthOf({});
    }
    PaintedLine& line = seen.lines.back();
    const bool beginsLine = line.pieces.empty() || line.pieces.back().style == Style::kBold;
    SeenWord word{"", seen.lines.size() - 1, seen.x, width, beginsLine};
    for (const PaintedPiece& piece : pieces) word.text += piece.text;
    seen.words.push_back(word);
    line.pieces.insert(line.pieces.end(), pieces.begin(), pieces.end());
    seen.x += width;
}

static void AddVerse(SeenLines& seen, const std::string& label, const std::string& text) {
    seen.lines.push_back({{{Style::kBold, label}}, false});
    seen.x = WidthOf(seen.lines.back().pieces);
    bool italic = false;
    std::istringstream words(text);
    for (std::string word; words >> word;) AddWord(seen, PiecesOf(word + ' ', italic));
}

// From Isaiah 41:2 to the last verse that is needed here.
static SeenLines LinesOfIsaiah(int limit) {
    SeenLines seen{limit};
    for (int verse = 2; verse <= 13; ++verse) {
        const std::string reference = "Isa 41:" + std::to_string(verse);
        AddVerse(seen, ' ' + (verse == 2 ? reference : std::to_string(verse)) + ' ',
                 WithBlankAfterMark(TextAt(reference)));
    }
    return seen;
}

static POINT MiddleOf(const SeenWord& word) {
    const int height = LineHeightOf();
    return {word.left + word.width / 2, static_cast<int>(word.line) * height + height / 2};
}

// Shows only the Passage, `width` pixels wide.
static Program StartAtIsaiah(int width) {
    const ScratchFolder folder = FolderOnlyPassage(0);
    WriteSetting(folder, "FORMAT", "Brackets", "0");
    Program program = StartProgram(folder);
    const RECT frame = RectOnScreen(program.frame);
    const int wider = width - static_cast<int>(ClientRectOf(PassageOf(program)).right);
    PlaceFrame(program, {frame.left, frame.top, frame.right + wider, frame.top + 900});
    EXPECT_EQ(ClientRectOf(PassageOf(program)).right, width);
    GoTo(program, "Isa 41:2");
    return program;
}

TEST(ItalicLines, TheWordThatIsClickedIsTaken) {
    for (const int width : {604, 480}) {
        SCOPED_TRACE(width);
        const Program program = StartAtIsaiah(width);
        const HWND pane = PassageOf(program);
        const SeenLines seen = LinesOfIsaiah(width);
        EXPECT_EQ(WrongLines(pane, seen.lines), "") << "the test's own lines must be those that are painted";
        for (const SeenWord& word : seen.words) {
            if (!word.beginsLine) continue;
            Click(program, pane, MiddleOf(word));
            EXPECT_EQ(Copied(program), word.text) << "line " << word.line;
        }
    }
}

static const SeenWord* FirstOf(const SeenLines& seen, const std::vector<std::string>& texts) {
    const auto same = [](const SeenWord& word, const std::string& text) { return word.text == text; };
    const auto found = std::ranges::search(seen.words, texts, same);
    return found.empty() ? nullptr : &found.front();
}

TEST(ItalicLines, ADragTakesTheWordsUnderTheMouse) {
    const Program program = StartAtIsaiah(604);
    const HWND pane = PassageOf(program);
    const SeenLines seen = LinesOfIsaiah(604);
    const std::vector<std::string> texts = {"the ", "LORD ", "thy ", "God ", "will ", "hold ", "thy "};
    const SeenWord* first = FirstOf(seen, texts);
    ASSERT_NE(first, nullptr);
    Drag(program, pane, MiddleOf(first[0]), MiddleOf(first[texts.size() - 1]));
    EXPECT_EQ(Copied(program), "the LORD thy God will hold thy ");
    SavePicture(PictureOfWindow(program.frame), "passage-selection-italic-lines");
}
