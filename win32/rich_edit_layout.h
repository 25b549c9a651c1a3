// The layout of long lines in Wine's rich-edit control (win32/long_lines.h).
#pragma once

#include "win32/windows_api.h"

// Lets the rich-edit controls of this process lay out long lines in pieces. To be called once, when their library is
// loaded. Does nothing on Windows, whose control has no need of it. Nothing of the controls' text, formats and messages
// changes.
void LayOutLongLinesInPieces();
