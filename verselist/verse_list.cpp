#include "verselist/verse_list.h"

#include <algorithm>
#include <utility>

#include "pane/scrolling.h"

int ListCount(const VerseList& list) {
    return static_cast<int>(list.ListEntries.size());
}

std::string SpokenListName(const VerseList& list) {
    const int count = ListCount(list);
    if (count == 0) return "Verse List, no verses";
    return "Verse List, " + std::to_string(count) + (count == 1 ? " verse" : " verses");
}

void FillWithReferences(VerseList& list, std::vector<std::int32_t> verses) {
    list.ListEntries = std::move(verses);
    list.deletions.clear();
    list.sets = {};
    list.ListTop = 0;
    list.ListLastVisible = 0;
    CorrectLastVisible(list);
}

void FillVerseList(VerseList& list, std::vector<std::int32_t> verses) {
    FillWithReferences(list, std::move(verses));
    list.canBeSaved = !list.ListEntries.empty();
}

void FillWithNotes(VerseList& list, std::vector<std::int32_t> verses, EntrySets sets) {
    FillVerseList(list, std::move(verses));
    list.sets = std::move(sets);
}

void ClearVerseList(VerseList& list) {
    FillVerseList(list, {});
}

// ---- Sets -----------------------------------------------------------------------------------------------------------

static bool HasSets(const VerseList& list) {
    return !list.sets.sets.empty();
}

static std::uint8_t NumberOfSet(const VerseList& list, int entry) {
    return HasSets(list) ? list.sets.ofEntries[static_cast<std::size_t>(entry)] : std::uint8_t{0};
}

const EntrySets::Set* SetOfEntry(const VerseList& list, int entry) {
    return HasSets(list) ? &list.sets.sets[NumberOfSet(list, entry)] : nullptr;
}

void RenameSet(EntrySets& sets, const std::string& before, const EntrySets::Set& now) {
    for (EntrySets::Set& set : sets.sets)
        if (set.name == before) set = now;
}

VerseList EntryAlone(const VerseList& list, int entry) {
    VerseList alone;
    alone.ListEntries = {list.ListEntries[static_cast<std::size_t>(entry)]};
    if (const EntrySets::Set* set = SetOfEntry(list, entry)) alone.sets = {{*set}, {0}, list.sets.about};
    return alone;
}

// ---- Deleting -------------------------------------------------------------------------------------------------------

static std::vector<DeletedEntry> EntriesAt(const VerseList& list, std::span<const int> places) {
    std::vector<DeletedEntry> entries;
    for (const int place : places) {
        if (place < 0 || place >= ListCount(list)) continue;
        entries.push_back({place, list.ListEntries[static_cast<std::size_t>(place)], NumberOfSet(list, place)});
    }
    return entries;
}

// From the verses, or from their sets.
template <class Value>
static void TakeOut(std::vector<Value>& values, const std::vector<DeletedEntry>& entries) {
    auto next = entries.begin();
    auto kept = values.begin() + next->place;
    for (auto value = kept; value != values.end(); ++value) {
        if (next != entries.end() && value - values.begin() == next->place) {
            ++next;
        } else {
            *kept++ = *value;
        }
    }
    values.erase(kept, values.end());
}

void DeleteEntries(VerseList& list, std::span<const int> places, std::string summary) {
    Deletion deletion{EntriesAt(list, places), list.canBeSaved, std::move(summary)};
    if (deletion.entries.empty()) return;
    TakeOut(list.ListEntries, deletion.entries);
    if (HasSets(list)) TakeOut(list.sets.ofEntries, deletion.entries);
    const auto above = std::ranges::lower_bound(deletion.entries, list.ListTop, {}, &DeletedEntry::place);
    list.canBeSaved = list.canBeSaved && !list.ListEntries.empty();
    list.ListTop = ClampEntry(list, list.ListTop - static_cast<int>(above - deletion.entries.begin()));
    list.ListLastVisible = std::min(list.ListLastVisible, ListCount(list) - 1);
    list.deletions.push_back(std::move(deletion));
}

// From the end, so that each value moves once.
template <class Value>
static void PutBack(std::vector<Value>& values, const std::vector<DeletedEntry>& entries, Value DeletedEntry::*value) {
    std::size_t kept = values.size();
    std::size_t place = kept + entries.size();
    values.resize(place);
    for (auto next = entries.rbegin(); next != entries.rend();) {
        --place;
        values[place] = static_cast<std::size_t>(next->place) == place ? *next++.*value : values[--kept];
    }
}

// Where the entry at `place` is after the others are back.
static int PlaceWith(const std::vector<DeletedEntry>& entries, int place) {
    for (const DeletedEntry& entry : entries) {
        if (entry.place > place) break;
        ++place;
    }
    return place;
}

Deletion RestoreEntries(VerseList& list) {
    if (list.deletions.empty()) return {};
    Deletion deletion = std::move(list.deletions.back());
    list.deletions.pop_back();
    const int first = deletion.entries.front().place;
    const int top = PlaceWith(deletion.entries, list.ListTop);
    const int lastVisible = PlaceWith(deletion.entries, list.ListLastVisible);
    PutBack(list.ListEntries, deletion.entries, &DeletedEntry::verse);
    if (HasSets(list)) PutBack(list.sets.ofEntries, deletion.entries, &DeletedEntry::set);
    list.canBeSaved = deletion.couldBeSaved;
    list.ListTop = first >= top && first <= lastVisible ? top : first;
    list.ListLastVisible = std::max(list.ListTop, lastVisible);
    CorrectLastVisible(list);
    return deletion;
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

bool FollowEntry(ListPosition& position, const ListPosition& now) {
    const bool isOtherList = now.content != position.content;
    const bool hasMoved = now.isChosen || now.top != position.top || now.count != position.count;
    if (now.verse == kNoVerse || !(isOtherList || hasMoved)) return false;
    const ListPosition before = std::exchange(position, now);
    return isOtherList || now.verse != before.verse || now.set != before.set;
}

int TargetEntry(const VerseList& list, const Selection& selection, bool listHasFocus) {
    if (!listHasFocus) return EntryThatIs(list, list.ListTop);
    return EntryThatIs(list, FirstSelectedPlace(selection, kVerseListOwns, list.ListTop, list.ListLastVisible));
}
