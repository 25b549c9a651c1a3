// Ten bookmarks, each a verse.
#pragma once

#include <array>
#include <string>

#include "scripture/verse_records.h"

inline constexpr int kBookmarkCount = 10;

struct Bookmarks {
    std::array<int, kBookmarkCount> verses{};  // verse indexes 0..31101
};

// Text of the menu item that goes to bookmark `number` (0..9): "Genesis 1:1\tCtrl+1", the tenth "...\tCtrl+0".
std::string BookmarkLabel(const VerseRecords& records, const Bookmarks& bookmarks, int number);
