// What the two views of the Verse List are filled with (verselist/list_content_win32.h).
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "notes/listed_notes.h"
#include "scripture/verse_records.h"
#include "search/query.h"
#include "verselist/verse_list.h"

struct ListContent {
    int number = -1;  // of the fillings since the start; 0: the empty list of the start; -1: none
    std::vector<std::int32_t> verses{};
    Query query{};
    BookForm form = BookForm::kName;  // of the Reference List
    bool canBeSaved = false;          // this one and the others as in the list or its pane
    bool isOfNotes = false;
    EntrySets sets{};
    ListedQuestion question{};
    std::vector<Deletion> deletions{};  // the latest last
};

// The notes that there are after a set has gone.
struct RemainingNotes {
    std::function<bool(const std::string& name)> hasSet;
    std::function<std::vector<std::int32_t>(const ListedQuestion&, const std::vector<std::int32_t>&)> stillListed;
};

// The ascending places of the entries whose note has gone with its set.
std::vector<int> GoneEntries(const std::vector<std::int32_t>& verses, const EntrySets& sets,
                             const ListedQuestion& question, const RemainingNotes& remaining);

// Takes these entries out for good if the list is one of notes. Entries that were deleted do not come back then,
// because some of them may be of the set. Returns whether there were any.
bool DropGoneEntries(ListContent& content, const RemainingNotes& remaining);
