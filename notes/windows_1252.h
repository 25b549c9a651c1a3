// The code page of most systems in the West, Windows-1252, where there is no Windows to ask.
#pragma once

#include "notes/note_letters.h"

// The bytes that it leaves unassigned are the control codes of the same number.
extern const CodePage kWindows1252;
