// What tests of notes share: places in a note, and the note editor.
#pragma once

#include <string>
#include <string_view>

#include "tests/driver/driver.h"

// Where the character of this offset stands in a rich edit, in the middle of its line's height.
POINT PointOfCharacter(const Program& program, HWND richEdit, std::size_t offset);

// Double clicks on the first place of `text` in the note that is shown.
void DoubleClickNote(const Program& program, std::string_view text);
