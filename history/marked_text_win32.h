// A read-only text in a rich-edit control with the words marked that another state of it has not, and those that only
// the other state has. The marks are lines, which do not depend on seeing colours, and colours of the system.
#pragma once

#include <string_view>

#include "win32/windows_api.h"

// Shows `note`, as it is stored, in the control and in the font of the notes, underlined where it differs from `other`;
// what only `other` has stands struck out at its place.
void ShowMarkedText(HWND richEdit, std::string_view note, std::string_view other);
