// The text of a selection in the Verse List.
#pragma once

#include <string>

#include "pane/selection.h"
#include "scripture/scripture.h"
#include "verselist/verse_list.h"

// The selected labels and words, an entry a line; neither the italics mode nor the Passage's format counts. Each line
// begins with a blank and a label with book and chapter. The line of the first entry ends in " \r\n", those that
// follow in "\r\n" alone: a difference kept on purpose. The last line is cut behind the last selected word and its
// blank, so a following entry whose last word is selected keeps its line end, and a selection in one entry has none.
// Brackets round supplied words stay where `keepBrackets`. Empty where the selection has no entry at either end.
std::string VerseListCopyText(const Scripture& scripture, const VerseList& list, bool keepBrackets,
                              const Selection& selection);
