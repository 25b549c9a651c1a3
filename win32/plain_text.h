// Plain text in rich-edit controls. Their own ways take text that begins with "{\rtf" for rich text, or bring the looks
// of other programs with what is pasted.
#pragma once

#include <string>
#include <string_view>

#include "win32/windows_api.h"

// Shows `text` as it stands, with the caret before it and nothing to undo.
void SetPlainText(HWND richEdit, std::string_view text);

// All of the control's text, lines ended by CR LF.
std::string PlainText(HWND richEdit);

// The characters selected, as offsets into that text. The unseen end of the last line, which the control counts too,
// is left out.
CHARRANGE SelectedPlainText(HWND richEdit);
