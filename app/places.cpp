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

bool CanGoBack(const Places& places) {
    return places.present > 0;
}

bool CanGoForward(const Places& places) {
    return places.present + 1 < places.visited.size();
}

static bool HasList(const Places& places, int number) {
    return std::ranges::find(places.visited, number, &Place::list) != places.visited.end();
}

static void DropUnneededLists(Places& places) {
    std::erase_if(places.lists, [&](const KeptList& list) { return !HasList(places, list.number); });
    while (places.lists.size() > kMostLists - 1) places.lists.erase(places.lists.begin());
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

Place GoBack(Places& places, const Place& left) {
    return GoTo(places, left, places.present - 1);
}

Place GoForward(Places& places, const Place& left) {
    return GoTo(places, left, places.present + 1);
}

// ---- Lists ----------------------------------------------------------------------------------------------------------

void KeepList(Places& places, KeptList list) {
    const auto behind = std::ranges::upper_bound(places.lists, list.number, {}, &KeptList::number);
    places.lists.insert(behind, std::move(list));
    DropUnneededLists(places);
}

std::optional<KeptList> TakeList(Places& places, int number) {
    const auto kept = std::ranges::find(places.lists, number, &KeptList::number);
    if (kept == places.lists.end()) return std::nullopt;
    std::optional<KeptList> list = std::move(*kept);
    places.lists.erase(kept);
    return list;
}
