// Text on its way into a note.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// `text` with every line ended by CR LF, whatever ended it before, up to its first NUL and cut to `room` characters; no
// line end is cut in two.
std::string TextForNote(std::string_view text, std::size_t room);
