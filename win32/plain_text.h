// Plain text in rich-edit controls. The controls' own procedures interpret text that begins with "{\rtf" as rich text,
// and keep the formatting of pasted text.
//
// The controls have UTF-16 inside, whatever kind of window they are; 8-bit messages would lose the letters that the
// system's code page lacks. All places are in units of UTF-16, and a line end has two.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "win32/windows_api.h"

// Does `work` while the control shows nothing of it, and then lets it be painted.
void WithoutRedraw(HWND richEdit, const std::function<void()>& work);

// Shows `text` unchanged, with the caret at its start and an empty undo buffer.
void SetPlainText(HWND richEdit, std::u16string_view text);

// To be called when the control has another size or font. If the text takes less height then, Wine's control stays
// scrolled to where it was, which may be below all of the text. Scrolls it to the text's end.
void ScrollBackToText(HWND richEdit);

// Gives the control `font`. Its first visible character stays the first, and a caret in its sight stays there while
// text can be typed. What can be undone stays the same.
void SetPlainTextFont(HWND richEdit, HFONT font);

// Does Wine's control take more than a tenth of a second to remove this text? For each tab and each line end it looks
// for its place from the start of the text, so 65,000 tabs take 44 seconds. A control with such a text is better
// destroyed.
bool IsRemovedSlowly(std::u16string_view text);

// Puts `text` in the place of the selection, as one change that can be undone.
void ReplaceSelectedText(HWND richEdit, std::u16string_view text);

// All of the control's text; lines end with CR LF.
std::u16string PlainText(HWND richEdit);
LONG PlainTextLength(HWND richEdit);

// The selected characters, as places in that text. Excludes the invisible end of the last line, which the control
// counts.
CHARRANGE SelectedPlainText(HWND richEdit);

// The text of the selection. It must be in order (PutSelectionInOrder).
std::u16string PlainTextOfSelection(HWND richEdit);

// With the arrow keys the caret can be moved to places that do not exist: between the CR and the LF of a line end,
// between the two units of one letter, and behind the end of the text. What is typed there tears the line end or the
// letter, is lost, or ends the program inside the control.

// Is one of the selection's ends inside a line end or a letter?
bool IsSelectionInLineEnd(HWND richEdit);

// Selects the letter before the caret, or behind it, if it has two units. Nothing may be selected.
void SelectLongLetter(HWND richEdit, bool isBefore);

// Moves the ends of the selection that are in no such place to the place before them.
void PutSelectionInOrder(HWND richEdit);

// After a click at `point`: a click just behind the end of a line may set the caret to the start of the next one, and
// Wine sets it behind a blank at the end of a line if the click was on the blank's left half, too. Moves it back.
void PutCaretWhereClicked(HWND richEdit, POINT point);

// After a mouse button was released at the height `y` over the right end of the selection: just behind the end of a
// line, the control also selects the line's end. Leaves that out.
void KeepSelectionInLineAt(HWND richEdit, int y);

// Shows the line of the character at `place` with lines before and behind it: unless it is in the upper two thirds of
// the control, it is moved to the end of the first third, as far as the text allows.
void ScrollToCharacter(HWND richEdit, LONG place);

// The first character of the line at the upper edge of the control.
LONG FirstVisibleCharacter(HWND richEdit);

// Shows the line of the character at `place` there, as far as the text allows.
void ScrollToTop(HWND richEdit, LONG place);

// Where the selection starts.
LONG SelectionStart(HWND richEdit);

// The upper left corner of the character at `place`, in the control's client area.
POINTL CornerOfCharacter(HWND richEdit, LONG place);
