#include "notes/note_text.h"

#include <algorithm>

// How many characters of the line end at the start of `text`; 0 where none stands there.
static std::size_t LineEndLength(std::string_view text) {
    if (text.starts_with("\r\n")) return 2;
    return text.front() == '\r' || text.front() == '\n' ? 1 : 0;
}

std::string TextForNote(std::string_view text, std::size_t room) {
    text = text.substr(0, text.find('\0'));
    std::string lines;
    lines.reserve(std::min(text.size(), room));
    while (!text.empty()) {
        const std::size_t lineEnd = LineEndLength(text);
        const std::string_view next = lineEnd ? "\r\n" : text.substr(0, 1);
        if (lines.size() + next.size() > room) break;
        lines += next;
        text.remove_prefix(std::max<std::size_t>(lineEnd, 1));
    }
    return lines;
}
