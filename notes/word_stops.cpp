// Separate from the editing control, because it needs no Windows.
#include "notes/word_stops.h"

#include <algorithm>

static bool IsLineEnd(char16_t c) {
    return c == u'\r' || c == u'\n';
}

static bool IsBlank(char16_t c) {
    return c == u' ' || c == u'\t';
}

static bool IsWordStop(std::u16string_view text, std::size_t place) {
    if (place == 0 || place == text.size()) return true;
    const char16_t before = text[place - 1], behind = text[place];
    return IsLineEnd(before) || IsLineEnd(behind) || (IsBlank(before) && !IsBlank(behind));
}

std::size_t WordStopFrom(std::u16string_view text, std::size_t place) {
    place = std::min(place, text.size());
    while (!IsWordStop(text, place)) ++place;
    return place;
}

std::size_t WordStopUpTo(std::u16string_view text, std::size_t place) {
    place = std::min(place, text.size());
    while (!IsWordStop(text, place)) --place;
    return place;
}
