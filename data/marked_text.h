// Converts entries of SWORD modules, which have OSIS, ThML, TEI or no mark-up, to paragraphs of plain text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

struct Paragraph {
    std::string text;  // UTF-8, words separated by single blanks, lines by "\n"; never empty
    bool isTitle = false;
    bool isRow = false;                   // of a table
    std::string boldStart;                // the bold text that it begins with
    std::vector<std::string> references;  // as in the mark-up: "Matt.15.13", "lu 17:26-29 lu 17:32"
};

// Unknown tags are removed, but not their content; footnotes are put in parentheses. Malformed entries are converted as
// far as possible.
std::vector<Paragraph> ParagraphsOf(std::string_view entry);
