// What tests of the Passage share: the pane, and ways to bring it to a verse.
#pragma once

#include <string>
#include <string_view>

#include "tests/driver/driver.h"

HWND PassageOf(const Program& program);
HWND VerseListOf(const Program& program);
HWND NoteViewOf(const Program& program);

// A folder whose program shows the Passage alone, at a verse index, as wide as the frame.
ScratchFolder FolderOnlyPassage(int verse);

// Reference of the top verse, as the status bar shows it.
std::string Top(const Program& program);

// Brings a verse to the top by the dialog for it; the Passage has the focus then.
void GoTo(const Program& program, std::string_view reference);

// A scroll bar message to the Passage: `code` SB_..., `thumb` as it comes, 16 bits and signed.
void ScrollPassage(const Program& program, UINT code, int thumb = 0);

// Where the thumb of the Passage's scroll bar stands.
int Thumb(const Program& program);
