// Copied text as HTML, for programs that show text in faces.
#pragma once

#include <string>
#include <string_view>

// "Marked text" is text in which these bytes, which no text has, tell what follows up to the next of them.
inline constexpr char kReferenceFollows = '\x01';
inline constexpr char kSuppliedFollows = '\x02';
inline constexpr char kPlainFollows = '\x03';

enum class HtmlBrackets : bool {
    kAsItalics,  // a bracket is not shown; what is between two is supplied
    kShown,      // like a letter
};

// Verses as HTML, which grows by pieces. Initialize with {brackets}. Its string is longer than the text, so that the
// size is not checked for each byte.
struct VersesHtml {
    HtmlBrackets brackets = HtmlBrackets::kAsItalics;
    std::string bytes{};  // the HTML and room behind it
    std::size_t size = 0;
    char face = kPlainFollows;  // the mark of what comes next
    char open = kPlainFollows;  // the mark of the element that is open
    char last = ' ';            // byte of the text
};

// Appends marked text with the letters of scripture: references in bold, supplied words in italics, a line end as <br>.
// Control characters other than tabs are left out.
void AppendHtml(VersesHtml& html, std::string_view marked);

// The HTML, in which every element is closed. `html` is empty afterwards.
std::string TakeHtml(VersesHtml& html);

// The HTML of one piece.
std::string HtmlOfVerses(std::string_view marked, HtmlBrackets brackets);

// Plain text in UTF-8, in which blanks count.
std::string HtmlOfNote(std::string_view utf8);

// What the clipboard format "HTML Format" wants to have: a description with the places of a document and of the
// `fragment` in it, in bytes, then the document. Without a zero at the end.
std::string ClipboardHtml(std::string_view fragment);
