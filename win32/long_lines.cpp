// Separate from the control, because it needs no Windows.
#include "win32/long_lines.h"

// Blanks belong to the letters beside them. Some of the characters beyond ASCII end a stretch, too; that they are
// counted as letters costs a little time.
static bool IsInStretch(char c) {
    static constexpr unsigned kFirstBeyondAscii = 0x80;
    const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    return isLetter || c == ' ' || static_cast<unsigned char>(c) >= kFirstBeyondAscii;
}

std::vector<std::size_t> EndsInLongStretches(std::string_view text) {
    std::vector<std::size_t> ends;
    for (std::size_t begin = 0; begin < text.size(); ++begin) {
        std::size_t end = begin;
        while (end < text.size() && IsInStretch(text[end])) ++end;
        for (std::size_t place = begin + kPieceOfLongStretch; end - begin > kLongStretch && place < end;
             place += kPieceOfLongStretch)
            ends.push_back(place);
        begin = end;
    }
    return ends;
}
