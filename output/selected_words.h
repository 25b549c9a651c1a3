// What the copies of both panes have in common: their words, and the text of a search that is begun with them.
//
// Words are counted as the panes count them: 0 is the label of a verse, 1 its first word, and a word keeps the blank
// behind it. The last word of a verse gets a blank of its own.
#pragma once

#include <string>
#include <string_view>

#include "output/selection.h"
#include "output/word_pieces.h"

struct WordSpan {
    int first = 0;
    int last = 0;
};

// Words of `place` that lie in the selection; `last` is beyond every word where all from `first` on do.
WordSpan SelectedWords(const OrderedSelection& selection, int place);

// A reader that keeps or leaves out the brackets round supplied words.
WordReader CopyingReader(bool keepBrackets);

// Appends the words of `span` that `verse` has; its label is the caller's. True when the verse's last word is the last
// one appended, or comes before all of the span.
bool AppendWords(std::string& text, WordReader& reader, std::string_view verse, const WordSpan& span);

// Characters of a copy that a search for words or a phrase looks at, and a search of the notes.
inline constexpr int kWordSearchScan = 200;
inline constexpr int kNoteSearchScan = 149;

// The blanks and the letters A-Z and a-z among the first `limit` characters of `copy`, the letters of its labels too;
// never more than a search takes: 199.
std::string SearchTextOf(std::string_view copy, int limit);
