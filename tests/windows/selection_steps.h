// Selections by the mouse: where words stand on the picture, and what a selection shows and copies.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/windows/painted_lines.h"

// A word of lines in which every word is a piece of its own, labels and headings too.
struct WordPlace {
    std::size_t line = 0;
    std::size_t piece = 0;
};

// The words of `text`, each a piece with the blank behind it.
std::vector<PaintedPiece> WordPieces(std::string_view text, Style style = Style::kRegular);

// A line of a bold label and plain words.
PaintedLine LabelledLine(const std::string& label, std::string_view words, bool goesOn = true);

POINT MiddleOf(const std::vector<PaintedLine>& lines, const WordPlace& word, const PaintedFont& font = {});

// The lines with the words `from` to `to` selected, whichever comes first.
std::vector<PaintedLine> WithSelected(std::vector<PaintedLine> lines, WordPlace from, WordPlace to);

// Drags from the middle of one word to that of another; the pane must have the focus. "" or what the picture shows
// otherwise than `lines` with these words selected.
std::string WrongAfterDrag(const Program& program, HWND pane, const std::vector<PaintedLine>& lines,
                           const WordPlace& from, const WordPlace& to);

// What Ctrl+c copies; "(nothing)" when the clipboard stays as it was.
std::string Copied(const Program& program);

// Is Copy enabled in menu and toolbar, or in neither? Anything else fails the test.
bool CanCopy(const Program& program);

// A command as the pane's own menu sends it.
void CommandToPane(const Program& program, HWND pane, int command);

// Copies for the pane while another program, this one, holds the clipboard, and looks at what is said.
void CopyWhileClipboardIsHeld(const Program& program, HWND pane);

// Sends each search for the pane's selection and looks at what its dialog begins with; the selection is gone then.
// `select` makes it anew.
void SearchWithSelection(Program& program, HWND pane, const std::function<void()>& select);
