// The text of a selection in the Passage, as the pane shows it.
#pragma once

#include <string>

#include "pane/selection.h"
#include "scripture/scripture.h"
#include "typeset/reading_options.h"

// The selected labels and words, with line ends ("\r\n") where the pane begins lines of its own accord: before a verse
// where each has a line (a blank stands before its label then), before a paragraph in paragraphs, and round the heading
// of a chapter. The first label has book and chapter; no label has the mark of a note. Brackets round supplied words
// stay where `keepBrackets`, whatever the pane shows. Empty where the selection has no place at either end.
std::string PassageCopyText(const Scripture& scripture, const ReadingOptions& options, bool keepBrackets,
                            const Selection& selection);
