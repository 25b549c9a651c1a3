#include "app/places.h"

#include <algorithm>
#include <cassert>
#include <functional>
#include <iterator>
#include <utility>

bool IsSamePlace(const Place& a, const Place& b) {
    return a.topVerse == b.topVerse && a.noteVerse == b.noteVerse && a.noteSet == b.noteSet && a.list == b.list;
}

// ---- Verses ---------------------------------------------------------------------------------------------------------

static constexpr int kBits = 16;
static constexpr std::size_t kWordsOfSet = (kVerseCount + kBits - 1) / kBits;

static bool IsAscending(std::span<const std::int32_t> verses) {
    return std::ranges::adjacent_find(verses, std::greater_equal<>()) == verses.end();
}

PackedVerses Packed(std::span<const std::int32_t> verses) {
    if (verses.size() <= kWordsOfSet || !IsAscending(verses)) return {false, {verses.begin(), verses.end()}};
    PackedVerses packed{true, std::vector<std::uint16_t>(kWordsOfSet)};
    for (const std::int32_t verse : verses) {
        std::uint16_t& word = packed.words[static_cast<std::size_t>(verse / kBits)];
        word = static_cast<std::uint16_t>(word | 1u << verse % kBits);
    }
    return packed;
}

std::vector<std::int32_t> Unpacked(const PackedVerses& packed) {
    if (!packed.isSet) return {packed.words.begin(), packed.words.end()};
    std::vector<std::int32_t> verses;
    for (int verse = 0; verse < kVerseCount; ++verse)
        if (packed.words[static_cast<std::size_t>(verse / kBits)] & 1u << verse % kBits) verses.push_back(verse);
    return verses;
}

// ---- Places ---------------------------------------------------------------------------------------------------------

static int NumberOf(const KeptList& list) {
    return list.content.number;
}

static bool HasOtherLines(const Place& place, const Place& shown) {
    if (place.caretLine < 0 || shown.caretLine < 0) return false;  // one of them does not show lines
    return place.caretLine != shown.caretLine || place.topLine != shown.topLine;
}

static bool ShowsOtherList(const Places& places, const Place& place, const ShownPlace& shown) {
    if (place.list == shown.place.list)
        return place.listTop != shown.place.listTop || HasOtherLines(place, shown.place);
    const auto kept = std::ranges::find(places.lists, place.list, NumberOf);
    return kept != places.lists.end() && !(shown.listIsEmpty && kept->verses.words.empty());
}

static bool ShowsSomethingElse(const Places& places, const Place& place, const ShownPlace& shown) {
    const Place& now = shown.place;
    const bool isOtherSet = place.noteSet != now.noteSet && shown.hasSet(place.noteSet);
    return place.topVerse != now.topVerse || place.noteVerse != now.noteVerse || isOtherSet ||
           ShowsOtherList(places, place, shown);
}

static constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);

static std::size_t PlaceBack(const Places& places, const ShownPlace& shown) {
    for (std::size_t next = places.present; next > 0; --next)
        if (ShowsSomethingElse(places, places.visited[next - 1], shown)) return next - 1;
    return kNowhere;
}

static std::size_t PlaceForward(const Places& places, const ShownPlace& shown) {
    for (std::size_t next = places.present + 1; next < places.visited.size(); ++next)
        if (ShowsSomethingElse(places, places.visited[next], shown)) return next;
    return kNowhere;
}

bool CanGoBack(const Places& places, const ShownPlace& shown) {
    return PlaceBack(places, shown) != kNowhere;
}

bool CanGoForward(const Places& places, const ShownPlace& shown) {
    return PlaceForward(places, shown) != kNowhere;
}

static bool HasList(const Places& places, int number) {
    return std::ranges::find(places.visited, number, &Place::list) != places.visited.end();
}

static void DropUnneededLists(Places& places) {
    std::erase_if(places.lists, [&](const KeptList& list) { return !HasList(places, NumberOf(list)); });
    while (places.lists.size() > kMostLists) places.lists.erase(places.lists.begin());
}

void KeepJump(Places& places, const Place& left) {
    places.visited.resize(places.present);
    places.visited.push_back(left);
    places.visited.push_back({.list = -1});  // none, until it is left
    if (places.visited.size() > kMostPlaces) places.visited.erase(places.visited.begin());
    places.present = places.visited.size() - 1;
    DropUnneededLists(places);
}

static Place GoTo(Places& places, const Place& left, std::size_t next) {
    assert(next < places.visited.size());
    places.visited[places.present] = left;
    places.present = next;
    return places.visited[next];
}

Place GoBack(Places& places, const ShownPlace& left) {
    return GoTo(places, left.place, PlaceBack(places, left));
}

Place GoForward(Places& places, const ShownPlace& left) {
    return GoTo(places, left.place, PlaceForward(places, left));
}

// ---- Lists ----------------------------------------------------------------------------------------------------------

KeptList Kept(ListContent content, std::string summary) {
    PackedVerses verses = Packed(std::exchange(content.verses, {}));
    return {std::move(content), std::move(verses), std::move(summary)};
}

ListContent ContentOf(KeptList list) {
    list.content.verses = Unpacked(list.verses);
    return std::move(list.content);
}

static std::size_t BytesOf(const Deletion& deletion) {
    return sizeof deletion + deletion.entries.size() * sizeof(DeletedEntry) + deletion.summary.size();
}

static void DropOldDeletions(KeptList& list) {
    std::size_t bytes = list.verses.words.size() * sizeof(std::uint16_t);
    std::vector<Deletion>& deletions = list.content.deletions;
    auto kept = deletions.end();
    while (kept != deletions.begin() && bytes + BytesOf(*std::prev(kept)) <= kMostBytesOfList)
        bytes += BytesOf(*--kept);
    deletions.erase(deletions.begin(), kept);
}

void RenameSet(Places& places, const std::string& before, const EntrySets::Set& now) {
    for (Place& place : places.visited)
        if (place.noteSet == before) place.noteSet = now.name;
    for (KeptList& list : places.lists) {
        RenameSet(list.content.sets, before, now);
        if (list.content.question.set == before) list.content.question.set = now.name;
    }
}

void DropGoneEntries(Places& places, const RemainingNotes& remaining) {
    for (KeptList& list : places.lists) {
        ListContent content = ContentOf(list);
        if (DropGoneEntries(content, remaining)) list = Kept(std::move(content), "");
    }
}

void KeepList(Places& places, KeptList list) {
    DropOldDeletions(list);
    const auto behind = std::ranges::upper_bound(places.lists, NumberOf(list), {}, NumberOf);
    places.lists.insert(behind, std::move(list));
    DropUnneededLists(places);
}

std::optional<KeptList> TakeList(Places& places, int number) {
    const auto kept = std::ranges::find(places.lists, number, NumberOf);
    if (kept == places.lists.end()) return std::nullopt;
    std::optional<KeptList> list = std::move(*kept);
    places.lists.erase(kept);
    return list;
}
