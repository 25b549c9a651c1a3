// Formats of text in a rich-edit control that nobody sees.
#pragma once

#include <cstddef>
#include <span>

#include "win32/windows_api.h"

// Gives the letters at `places`, in ascending order, another format, so that each ends a stretch (win32/long_lines.h).
// Nothing that can be undone changes. The control lays out the line of each, so it should not break lines meanwhile.
void EndStretches(HWND richEdit, std::span<const std::size_t> places);
