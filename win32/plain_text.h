// Plain text in rich-edit controls. The controls' own procedures interpret text that begins with "{\rtf" as rich text,
// and keep the formatting of pasted text.
#pragma once

#include <string>
#include <string_view>

#include "win32/windows_api.h"

// Shows `text` unchanged, with the caret at its start and an empty undo buffer.
void SetPlainText(HWND richEdit, std::string_view text);

// All of the control's text; lines end with CR LF.
std::string PlainText(HWND richEdit);

// The selected characters, as offsets into that text. Excludes the invisible end of the last line, which the control
// counts.
CHARRANGE SelectedPlainText(HWND richEdit);
