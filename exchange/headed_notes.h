// Reading text files in which each note stands below a heading, the line that names its verse.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/placing.h"

struct NoteHeading {
    std::size_t line = 0;  // its place among the lines
    std::string where;     // what stands there for a verse
    VerseName verse;
    NoteMark mark{};
    bool isEnd = false;  // the end mark of the file; a text below it is none of the notes
};

// The headings of a file, in order.
struct HeadedLines {
    std::vector<std::string_view> lines;
    std::size_t first = 0;  // the first line behind the title
    std::vector<NoteHeading> headings;
    bool shallEnd = false;  // the title says that there is an end mark
};

// The heading that the end mark is.
NoteHeading EndMarkAt(std::size_t line);

// Adds the notes below the headings. `textOf` makes the text of a note of its lines. What stands before the first
// heading or behind the end mark is unplaced, and so is what has been cut off with a mark that should be there.
void PlaceHeaded(const ExchangeContext& context, const HeadedLines& file,
                 std::string (*textOf)(std::span<const std::string_view> lines), ExchangedNotes& notes);

// The lines with LF between them.
std::string JoinedLines(std::span<const std::string_view> lines);

// The name of a set for a file, and back: empty if no set can have it here.
std::string PortableName(const CodePage& page, std::string_view name);
std::string NameOfSet(const CodePage& page, std::string_view text);
