// Separate from the editing control, because it needs no Windows.
#include "notes/word_stops.h"

#include <algorithm>

static bool IsLineEnd(wchar_t c) {
    return c == L'\r' || c == L'\n';
}

static bool IsBlank(wchar_t c) {
    return c == L' ' || c == L'\t';
}

static bool IsWordStop(std::wstring_view text, std::size_t place) {
    if (place == 0 || place == text.size()) return true;
    const wchar_t before = text[place - 1], behind = text[place];
    return IsLineEnd(before) || IsLineEnd(behind) || (IsBlank(before) && !IsBlank(behind));
}

std::size_t WordStopFrom(std::wstring_view text, std::size_t place) {
    place = std::min(place, text.size());
    while (!IsWordStop(text, place)) ++place;
    return place;
}

std::size_t WordStopUpTo(std::wstring_view text, std::size_t place) {
    place = std::min(place, text.size());
    while (!IsWordStop(text, place)) --place;
    return place;
}
