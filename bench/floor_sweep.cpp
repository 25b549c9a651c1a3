#include "bench/floor_sweep.h"

#include <algorithm>
#include <span>

std::array<std::int32_t, kVerseCount + 1> theVerses;

[[gnu::noinline]] Stretch CopyWithBytesAround(const Stretch& stretch) {
    static std::array<char, kLongestVerse + 2 * kAround> copy;
    const auto size = static_cast<std::size_t>(stretch.end - stretch.begin);
    std::memcpy(copy.data() + kAround, stretch.begin, size);
    std::memset(copy.data() + kAround + size, 0, kAround);
    return {copy.data() + kAround, copy.data() + kAround + size};
}

// ---- Lists ----------------------------------------------------------------------------------------------------------

List ListOfNumber(const FloorText& text, int word) {
    const auto entries = EntriesOf(*text.index, word);
    const auto* begin = reinterpret_cast<const std::uint16_t*>(entries.data());
    return {begin, begin + entries.size() / 2};
}

List ListOf(const FloorText& text, std::string_view word) {
    return ListOfNumber(text, FindWord(*text.index, word));
}

std::vector<List> ListsOf(const FloorText& text, const std::vector<std::string>& words) {
    std::vector<List> lists;
    lists.reserve(words.size());
    for (const std::string& word : words) lists.push_back(ListOf(text, word));
    return lists;
}

void SortBySize(std::vector<List>& lists) {
    std::sort(lists.begin(), lists.end(), [](const List& a, const List& b) { return SizeOf(a) < SizeOf(b); });
}

std::size_t TakeVersesOf(const List& list) {
    return static_cast<std::size_t>(std::copy(list.begin, list.end, theVerses.begin()) - theVerses.begin());
}

// Halves the list without branches, so that the searches for several verses overlap.
VERSEWELL_FLOOR static bool HasVerse(const List& list, int verse) {
    const std::uint16_t* entry = list.begin;
    for (std::ptrdiff_t size = SizeOf(list); size > 1;) {
        const std::ptrdiff_t half = size / 2;
        entry += half & -static_cast<std::ptrdiff_t>(entry[half] <= verse);
        size -= half;
    }
    return *entry == verse;
}

std::size_t KeepByHalving(const List& list, std::int32_t* verses, std::size_t count) {
    std::size_t kept = 0;
    for (const std::int32_t verse : std::span(verses, count)) {
        verses[kept] = verse;
        kept += HasVerse(list, verse) ? 1 : 0;
    }
    return kept;
}

std::size_t KeepByMarks(const List& list, std::int32_t* verses, std::size_t count) {
    static VerseMarks marks;
    marks.fill(0);
    Mark(list, marks);
    std::size_t kept = 0;
    for (const std::int32_t verse : std::span(verses, count)) {
        verses[kept] = verse;
        kept += marks[static_cast<std::size_t>(verse)];
    }
    return kept;
}
