#include "output/brackets.h"

#include <algorithm>
#include <cstring>

// The next `letter` from `from` on; `end` where there is none.
static const char* Next(char letter, const char* from, const char* end) {
    const void* found = std::memchr(from, letter, static_cast<std::size_t>(end - from));
    return found ? static_cast<const char*>(found) : end;
}

// Brackets are few: what lies between them is searched and moved in one go.
void RemoveBrackets(std::string& text) {
    char* kept = text.data();
    const char* from = text.data();
    const char* const end = from + text.size();
    const char* open = Next('[', from, end);
    const char* close = Next(']', from, end);
    while (true) {
        const char* bracket = std::min(open, close);
        std::memmove(kept, from, static_cast<std::size_t>(bracket - from));
        kept += bracket - from;
        if (bracket == end) break;
        from = bracket + 1;
        (bracket == open ? open : close) = Next(*bracket, from, end);
    }
    text.resize(static_cast<std::size_t>(kept - text.data()));
}
