// Tables as comma-separated values.
#pragma once

#include <string>
#include <string_view>
#include <vector>

struct CsvRow {
    std::size_t line = 0;  // where it begins in the file, from 1
    std::vector<std::string> cells;
    bool isUnclosed = false;  // the file ends within quotation marks
};

// The rows of a text with lines that end in LF, without empty lines and a first line "sep=;". What parts the cells is
// that of comma, semicolon and tab which is most frequent in the first row.
std::vector<CsvRow> CsvRowsOf(std::string_view text);

// Appends a cell, in quotation marks if it needs them.
void AppendCell(std::string_view cell, std::string& file);

// Appends it in quotation marks.
void AppendQuotedCell(std::string_view cell, std::string& file);
