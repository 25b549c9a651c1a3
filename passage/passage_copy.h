// The text of a selection in the Passage, as the pane shows it.
#pragma once

#include <string>

#include "pane/selection.h"
#include "scripture/scripture.h"
#include "typeset/reading_options.h"

// The selected labels and words, with "\r\n" at the forced line breaks of the pane but not where it wraps: before each
// verse with one verse a line (its label then begins with a blank), before each paragraph in paragraph format, and
// around chapter headings. The label of the first selected verse has book and chapter. Labels never have the mark of a
// note. Brackets round supplied words are kept if `keepBrackets`, whatever the pane shows. Empty if either end of the
// selection has no place (-1). As marked text it has the same text besides its marks.
std::string PassageCopyText(const Scripture& scripture, const ReadingOptions& options, bool keepBrackets,
                            const Selection& selection, CopyMarks marks = CopyMarks::kNone);
