// Files that the program keeps and reads by itself. A text that the user saves must not replace one of them.
#pragma once

#include <string_view>

// Is this the name of a file of a note set (its parts, its earlier notes, an unfinished file), of the settings, of the
// session, or of the scripture? `name` has no folder. As for Windows, letters' case, dots and blanks at its end, and
// the name of a part of the file (after ":") do not matter.
bool IsOwnFileName(std::string_view name);
