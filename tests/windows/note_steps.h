// What tests of notes share: places in a note, and the note editor.
#pragma once

#include <string>
#include <string_view>

#include "tests/driver/driver.h"

// Where the character of this offset stands in a rich edit, in the middle of its line's height.
POINT PointOfCharacter(const Program& program, HWND richEdit, std::size_t offset);

// The note editor and its editing control, open or not.
HWND NoteEditorOf(const Program& program);
HWND NoteEditOf(const Program& program);

// Opens the editor on the current note, by its key.
void OpenNoteEditor(const Program& program);

// Clicks one of the editor's buttons and waits until the program has dealt with it, or has opened a message box.
void ClickEditorButton(const Program& program, int button);

// Double clicks on the first place of `text` in the note that is shown.
void DoubleClickNote(const Program& program, std::string_view text);
