// The words of the Verse List's entries with their key words marked, split into pieces and measured. Marking and
// measuring take most of the time of a layout, and neither depends on the place of an entry or on the width of the
// pane.
#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "scripture/scripture.h"
#include "search/query.h"
#include "typeset/text_measure.h"
#include "typeset/word_reader.h"

struct EntryPiece {
    Face face = Face::kRegular;
    bool keyWord = false;
    int width = 0;                    // pixels
    std::size_t start = 0, size = 0;  // in EntryWords::text
};

struct EntryWord {
    int width = 0;
    std::size_t endPiece = 0;  // the word's pieces begin where those of the word before end
};

// How many lines an entry needs in a pane of a width, after a label of a width.
struct EntryLines {
    int paneWidth = -1;
    int labelWidth = 0;
    int lines = 0;
};

struct EntryWords {
    std::string text;  // of all pieces, one after the other
    std::vector<EntryPiece> pieces;
    std::vector<EntryWord> words;
    EntryLines counted;  // the last count
};

// Words of entries kept between layouts, by their verse. They belong to one scripture, query and font: whoever changes
// one of these starts with an empty one.
struct KnownEntries {
    BracketUse brackets = BracketUse::kDropped;  // of all words
    std::unordered_map<int, EntryWords> byVerse;
};

// As many entries are kept: some pages of the largest screens, about half a megabyte.
inline constexpr std::size_t kMostKnownEntries = 512;

// How the words of an entry are made.
struct EntryMaking {
    const Scripture& scripture;
    const Query* query = nullptr;  // null: nothing is marked
    const TextMeasure& measure;
    BracketUse brackets = BracketUse::kDropped;
};

// The words of the entry for `verse`, made if they are not known. All known ones are dropped if they were made with
// other brackets or are too many. Valid until the next call.
EntryWords& WordsOfEntry(KnownEntries& known, const EntryMaking& making, int verse);
