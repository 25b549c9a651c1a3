// The places that were read: each jump to another one is kept, so that the user can go back and forward again.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "scripture/verse_records.h"
#include "verselist/list_content.h"

struct Place {
    int topVerse = 0;       // of the Passage
    int noteVerse = 0;      // of the note that is shown
    std::string noteSet{};  // its name; empty if there are no sets
    int list = 0;           // number of what the Verse List is filled with
    int listTop = 0;        // first entry shown
    int caretLine = -1;     // of the Reference List, and its first line shown; -1 if it is hidden
    int topLine = -1;
    std::int32_t noteTop = 0;  // first character of the note's first visible line
};

// Are Passage, note and list the same, however note and list are scrolled?
bool IsSamePlace(const Place& a, const Place& b);

// Verses of a list in little memory: 4 kB for any number in canonical order, 2 bytes for each one otherwise.
struct PackedVerses {
    bool isSet = false;                // one bit for each verse of the Bible
    std::vector<std::uint16_t> words;  // otherwise the verses
};

PackedVerses Packed(std::span<const std::int32_t> verses);
std::vector<std::int32_t> Unpacked(const PackedVerses& packed);

// What the Verse List was filled with, and what the status bar said of it.
struct KeptList {
    ListContent content{};  // without its verses
    PackedVerses verses{};
    std::string summary{};
};

// And back again.
KeptList Kept(ListContent content, std::string summary);
ListContent ContentOf(KeptList list);

inline constexpr std::size_t kMostPlaces = 200;
inline constexpr std::size_t kMostBytesOfList = 4096;  // of its verses and deletions
inline constexpr std::size_t kMostLists = 5;           // besides the one that is shown

struct Places {
    std::vector<Place> visited{1};  // the one at `present` is out of date: the panes show it
    std::size_t present = 0;
    std::vector<KeptList> lists;  // those of other places that are not shown, by ascending numbers
};

// What the panes show, and what places cannot bring back.
struct ShownPlace {
    Place place;
    bool listIsEmpty = false;
    bool (*hasSet)(const std::string& name) = nullptr;  // is there still a set of this name?
};

// Is there a place in that direction that shows something else? One is passed over if its list has been dropped, its
// set has gone, or the panes have come to the same again.
bool CanGoBack(const Places& places, const ShownPlace& shown);
bool CanGoForward(const Places& places, const ShownPlace& shown);

// A jump has led away from `left`, to a place of which only the panes know. Places forward of it are dropped.
void KeepJump(Places& places, const Place& left);

// The nearest such place, which becomes the present one; what is shown is kept as the place that is left. There must be
// one.
Place GoBack(Places& places, const ShownPlace& left);
Place GoForward(Places& places, const ShownPlace& left);

// To be called when a note set has got another name: places and lists go on with it.
void RenameSet(Places& places, const std::string& before, const EntrySets::Set& now);

// To be called when note sets have gone: their notes leave the lists, and what was said of these is no longer true.
void DropGoneEntries(Places& places, const RemainingNotes& remaining);

// Keeps a list that is no longer shown, unless no place has it, with as many of its deletions as fit into
// kMostBytesOfList. The oldest ones beyond kMostLists are dropped; of their
// places Passage and note remain.
void KeepList(Places& places, KeptList list);

// Takes the list with this number, to show it; nullopt if it is not kept.
std::optional<KeptList> TakeList(Places& places, int number);
