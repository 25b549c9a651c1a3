#include "verselist/verse_list.h"

#include <algorithm>
#include <utility>

#include "pane/scrolling.h"

int ListCount(const VerseList& list) {
    return static_cast<int>(list.ListEntries.size());
}

void FillWithReferences(VerseList& list, std::vector<std::int32_t> verses) {
    list.ListEntries = std::move(verses);
    list.ListTop = 0;
    list.ListLastVisible = 0;
    CorrectLastVisible(list);
}

void FillVerseList(VerseList& list, std::vector<std::int32_t> verses) {
    FillWithReferences(list, std::move(verses));
    list.canBeSaved = !list.ListEntries.empty();
}

void ClearVerseList(VerseList& list) {
    FillVerseList(list, {});
}

void DeleteEntry(VerseList& list, int entry) {
    if (entry < 0 || entry >= ListCount(list)) return;
    list.ListEntries.erase(list.ListEntries.begin() + entry);
    list.canBeSaved = list.canBeSaved && !list.ListEntries.empty();
    list.ListTop = ClampEntry(list, list.ListTop);
    list.ListLastVisible = std::min(list.ListLastVisible, ListCount(list) - 1);
}

int ClampEntry(const VerseList& list, int entry) {
    return std::max(0, std::min(entry, ListCount(list) - 1));
}

void CorrectLastVisible(VerseList& list) {
    list.ListLastVisible = CorrectedLastVisible({list.ListTop, list.ListLastVisible, ListCount(list) - 1});
}

// `entry`, or -1 if the list is empty. Clamped, because a selection may be left over from a longer list.
static int EntryThatIs(const VerseList& list, int entry) {
    return list.ListEntries.empty() ? -1 : ClampEntry(list, entry);
}

int CurrentEntry(const VerseList& list, const Selection& selection) {
    return EntryThatIs(list, AnchorPlace(selection, kVerseListOwns, list.ListTop, list.ListLastVisible));
}

int TargetEntry(const VerseList& list, const Selection& selection, bool listHasFocus) {
    if (!listHasFocus) return EntryThatIs(list, list.ListTop);
    return EntryThatIs(list, FirstSelectedPlace(selection, kVerseListOwns, list.ListTop, list.ListLastVisible));
}
