// Lines that Wine's rich-edit control lays out slowly.
//
// The control divides a line into items, each of characters of one kind, and keeps each row of an item as a run. For
// each row that it breaks off an item, it measures the rest of the item anew. For each item that it divides off a line
// without blanks, it looks at the rest of the line, and again when it joins the items before the next layout. So a line
// of 65,000 characters takes many seconds, and again for each key. With items of some hundred characters, whatever
// these are, it takes less than a tenth of a second.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

// An item reaches up to the next one, the last one up to the end of the line.
struct LineItem {
    std::size_t begin = 0;
    std::uint32_t kind = 0;  // what the system tells about its characters
};

// In characters.
inline constexpr std::size_t kLongLine = 3000;        // of the longest one whose items stay as they are
inline constexpr std::size_t kLongItem = 1000;        // of the longest one that is not divided
inline constexpr std::size_t kPieceOfLongLine = 500;  // what is divided or joined at once

// Is each character one that is written from left to right, as all letters of the code pages of European languages?
// Then the items do not depend on what is before and behind a character.
bool IsLeftToRight(std::wstring_view line);

// The items by which `line`, with or without its line end, is to be laid out, where `items` are those of the system,
// the first of which begins at 0. In a long line, long items are divided into pieces; and if `mayJoin`, a piece of very
// many items, or of more than one and without any blank, becomes one item of the kind `letters`.
std::vector<LineItem> ItemsForLayout(std::wstring_view line, std::span<const LineItem> items, bool mayJoin,
                                     std::uint32_t letters);
