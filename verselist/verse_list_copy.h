// The text of a selection in the Verse List.
#pragma once

#include <string>

#include "pane/selection.h"
#include "scripture/scripture.h"
#include "verselist/verse_list.h"

// The selected labels and words, one line for each entry, independent of the italics mode and the Passage's format.
// A selected label begins with a blank and has book and chapter. The line of the first entry ends with " \r\n", later
// ones with "\r\n"; this difference is kept on purpose. The last line ends after the last selected word and its blank,
// without "\r\n" unless that is the last word of an entry after the first. Brackets round supplied words are kept if
// `keepBrackets`. Empty if either end of the selection has no entry (-1). As marked text it has the same text besides
// its marks.
std::string VerseListCopyText(const Scripture& scripture, const VerseList& list, bool keepBrackets,
                              const Selection& selection, CopyMarks marks = CopyMarks::kNone);
