#include "app/bookmarks.h"

#include <cassert>

std::string BookmarkLabel(const VerseRecords& records, const Bookmarks& bookmarks, int number) {
    assert(number >= 0 && number < kBookmarkCount);
    const int verse = bookmarks.verses[static_cast<std::size_t>(number)];
    const int key = (number + 1) % kBookmarkCount;  // the tenth bookmark has the key 0
    return ReferenceText(records, verse, BookForm::kName) + "\tCtrl+" + std::to_string(key);
}
