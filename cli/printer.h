// The output of a command: plain text, text with colours, or JSON.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>

#include "cli/styled_text.h"
#include "cli/surroundings.h"

struct Printer {
    const Surroundings& surroundings;
    bool json = false;
    bool colors = false;
    int width = 0;         // columns of a line; 0: lines are not broken
    std::string buffer{};  // not yet written
    Written written = Written::kAll;
};

// Adds text in UTF-8.
void Print(Printer& printer, std::string_view utf8);

// The same, but its lines are broken at blanks if the printer has a width.
void PrintText(Printer& printer, const std::string& utf8);

// Adds text of the scripture or of the program in its styles. Its lines are broken at blanks if the printer has a
// width.
void PrintStyled(Printer& printer, const StyledText& text);

// Adds text with the marks of verses (cli/styled_text.h) in its styles, or plain if the printer shows none.
void PrintMarked(Printer& printer, std::string_view marked, ShownBrackets brackets);

// Adds an object on a line of its own. Bytes that are not valid UTF-8 become U+FFFD.
void PrintObject(Printer& printer, const nlohmann::ordered_json& object);

// Writes what is left.
void Flush(Printer& printer);

// Is there nobody, or no place, to write to?
bool HasEnded(const Printer& printer);
