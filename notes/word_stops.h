// The places where Ctrl with an arrow key stops: the starts of words, and both ends of the text and of each line.
#pragma once

#include <cstddef>
#include <string_view>

// The first stop of `text` at `place` or behind it; the end of the text if `place` is beyond it. Line ends are CR, LF
// or both, and blanks are spaces and tabs. `place` must not be inside a line end, and then the stop is not.
std::size_t WordStopFrom(std::u16string_view text, std::size_t place);

// The last stop at `place` or before it.
std::size_t WordStopUpTo(std::u16string_view text, std::size_t place);
