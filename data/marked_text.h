// Entries of SWORD modules, which are marked up as OSIS, ThML, TEI or not at all, as paragraphs of plain text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

struct Paragraph {
    std::string text;  // UTF-8, words parted by single blanks, lines by "\n"; never empty
    bool isTitle = false;
    bool isRow = false;                   // of a table
    std::string boldStart;                // the bold text that it begins with
    std::vector<std::string> references;  // as the mark-up has them: "Matt.15.13", "lu 17:26-29 lu 17:32"
};

// Tags that are not known go without a trace, their content stays; footnotes stand in parentheses. An entry that is not
// well formed gives what can be had of it.
std::vector<Paragraph> ParagraphsOf(std::string_view entry);
