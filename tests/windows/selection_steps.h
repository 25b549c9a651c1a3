// Helpers for selections with the mouse: positions of words, and what a selection shows and copies.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/windows/painted_lines.h"

// Position of a word in lines where every word, label and heading is a separate piece.
struct WordPlace {
    std::size_t line = 0;
    std::size_t piece = 0;
};

// The words of `text`, each a piece with the blank after it.
std::vector<PaintedPiece> WordPieces(std::string_view text, Style style = Style::kRegular);

// A line with a bold label and regular words.
PaintedLine LabelledLine(const std::string& label, std::string_view words, bool goesOn = true);

POINT MiddleOf(const std::vector<PaintedLine>& lines, const WordPlace& word, const PaintedFont& font = {});

// The lines with the words from `from` to `to` selected, in either order.
std::vector<PaintedLine> WithSelected(std::vector<PaintedLine> lines, WordPlace from, WordPlace to);

// Drags from the middle of one word to the middle of another; the pane must have the focus. Returns "" if the pane then
// shows `lines` with these words selected, otherwise a description of the difference.
std::string WrongAfterDrag(const Program& program, HWND pane, const std::vector<PaintedLine>& lines,
                           const WordPlace& from, const WordPlace& to);

// What Ctrl+C copies; "(nothing)" when the clipboard does not change.
std::string Copied(const Program& program);

// Whether Copy is enabled. The test fails if menu and toolbar disagree.
bool CanCopy(const Program& program);

// Sends the pane a command as its context menu does.
void CommandToPane(const Program& program, HWND pane, int command);

// Copies from the pane while this process holds the clipboard, and checks the message box.
void CopyWhileClipboardIsHeld(const Program& program, HWND pane);

// Opens each search dialog for the pane's selection and checks its text. Each search clears the selection; `select`
// makes it again.
void SearchWithSelection(Program& program, HWND pane, const std::function<void()>& select);
