// What the two views of the Verse List are filled with (verselist/list_content_win32.h).
#pragma once

#include <cstdint>
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
