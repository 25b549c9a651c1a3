#include "tests/windows/selection_steps.h"

#include <windows.h>

#include <commctrl.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "resources/ids.h"

std::vector<PaintedPiece> WordPieces(std::string_view text, Style style) {
    std::vector<PaintedPiece> pieces;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(' '), text.size() - 1) + 1;
        pieces.push_back({style, std::string(text.substr(0, end))});
        text.remove_prefix(end);
    }
    return pieces;
}

PaintedLine LabelledLine(const std::string& label, std::string_view words, bool goesOn) {
    PaintedLine line{WordPieces(words), goesOn};
    line.pieces.insert(line.pieces.begin(), {Style::kBold, label});
    return line;
}

POINT MiddleOf(const std::vector<PaintedLine>& lines, const WordPlace& word, const PaintedFont& font) {
    const PaintedLine& line = lines.at(word.line);
    const auto widthUpTo = [&line, &font](std::size_t count) {
        const auto first = line.pieces.begin();
        return WidthOf({first, first + static_cast<std::ptrdiff_t>(count)}, font);
    };
    const int x = (widthUpTo(word.piece) + widthUpTo(word.piece + 1)) / 2;
    const int lineHeight = LineHeightOf(font);
    return {x, static_cast<int>(word.line) * lineHeight + lineHeight / 2};
}

static bool ComesBefore(const WordPlace& one, const WordPlace& other) {
    return std::pair(one.line, one.piece) < std::pair(other.line, other.piece);
}

std::vector<PaintedLine> WithSelected(std::vector<PaintedLine> lines, WordPlace from, WordPlace to) {
    if (ComesBefore(to, from)) std::swap(from, to);
    for (std::size_t line = from.line; line <= to.line; ++line) {
        std::vector<PaintedPiece>& pieces = lines.at(line).pieces;
        const std::size_t first = line == from.line ? from.piece : 0;
        const std::size_t last = line == to.line ? to.piece + 1 : pieces.size();
        for (std::size_t piece = first; piece < last; ++piece) pieces.at(piece).selected = true;
    }
    return lines;
}

std::string WrongAfterDrag(const Program& program, HWND pane, const std::vector<PaintedLine>& lines,
                           const WordPlace& from, const WordPlace& to) {
    Drag(program, pane, MiddleOf(lines, from), MiddleOf(lines, to));
    return WrongLines(pane, WithSelected(lines, from, to));
}

std::string Copied(const Program& program) {
    SetClipboardText("(nothing)");
    Press(program, "Ctrl+c");
    return ClipboardText();
}

bool CanCopy(const Program& program) {
    const bool inMenu = !IsGreyed(program, IDM_COPY);
    const bool inToolbar = (ToolState(program, IDM_COPY) & TBSTATE_INDETERMINATE) == 0;
    EXPECT_EQ(inMenu, inToolbar) << "menu and toolbar differ";
    return inMenu;
}

void CommandToPane(const Program& program, HWND pane, int command) {
    PostMessageA(pane, WM_COMMAND, static_cast<WPARAM>(command), 0);
    Settle(program);
}

void CopyWhileClipboardIsHeld(const Program& program, HWND pane) {
    SetClipboardText("before");
    ASSERT_TRUE(OpenClipboard(nullptr));
    CommandToPane(program, pane, IDM_COPY);
    const HWND box = WaitForDialog(program, "Copy Error");
    EXPECT_EQ(MessageText(box), "Could not open Clipboard");
    CloseClipboard();
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_EQ(ClipboardText(), "before");
    EXPECT_EQ(FocusOf(program), pane);
}

namespace {

struct SearchDialogRow {
    int command;
    const char* title;
    int field;
    std::size_t scanned;  // how many characters of the selection are used
    std::size_t limit;    // how many characters the field accepts
};

}  // namespace

// Letters and blanks of the copied text, as the field shows them.
static std::string LettersOf(const std::string& copy, const SearchDialogRow& row) {
    std::string letters = copy.substr(0, row.scanned);
    std::erase_if(letters, [](char c) { return c != ' ' && (c & 0x80 || !isalpha(c)); });
    return letters.substr(0, row.limit);
}

void SearchWithSelection(Program& program, HWND pane, const std::function<void()>& select) {
    static constexpr SearchDialogRow kRows[] = {
        {IDM_WORD_SEARCH, "Word Search", IDC_SEARCH_TEXT, 200, 199},
        {IDM_PHRASE_SEARCH, "Phrase Search", IDC_SEARCH_TEXT, 200, 199},
        {IDM_SEARCH_NOTES, "Search Note Set My Notes", IDC_NOTE_TEXT, 149, 149},
    };
    for (const SearchDialogRow& row : kRows) {
        select();
        const std::string letters = LettersOf(Copied(program), row);
        CommandToPane(program, pane, row.command);
        const HWND dialog = WaitForDialog(program, row.title);
        EXPECT_EQ(TextOf(dialog, row.field), letters);
        EXPECT_GT(letters.size(), 100u);
        Press(program, "Esc");
        WaitForNoDialog(program);
        EXPECT_FALSE(CanCopy(program)) << "the dialog takes the focus, which clears the selection";
    }
}
