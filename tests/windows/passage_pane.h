// Helpers for tests of the Passage: finding the pane and moving it to a verse.
#pragma once

#include <string>
#include <string_view>

#include "tests/driver/driver.h"

HWND PassageOf(const Program& program);
HWND VerseListOf(const Program& program);
HWND NoteViewOf(const Program& program);

// A folder whose settings show only the Passage, as wide as the frame, at a verse index.
ScratchFolder FolderOnlyPassage(int verse);

// Reference of the top verse, as the status bar shows it.
std::string Top(const Program& program);

// Brings a verse to the top with the Go To Verse dialog, and gives the Passage the focus.
void GoTo(const Program& program, std::string_view reference);

// Sends the Passage a scroll bar message: `code` is SB_..., `thumb` is truncated to 16 bits as Windows does.
void ScrollPassage(const Program& program, UINT code, int thumb = 0);

// Position of the Passage's scroll bar.
int Thumb(const Program& program);
