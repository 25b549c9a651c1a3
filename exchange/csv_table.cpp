#include "exchange/csv_table.h"

#include <algorithm>

// ---- Writing --------------------------------------------------------------------------------------------------------

void AppendQuotedCell(std::string_view cell, std::string& file) {
    file += '"';
    for (std::size_t quote = cell.find('"'); quote != std::string_view::npos; quote = cell.find('"')) {
        file.append(cell.substr(0, quote + 1)) += '"';
        cell.remove_prefix(quote + 1);
    }
    file.append(cell) += '"';
}

void AppendCell(std::string_view cell, std::string& file) {
    const bool isPlain =
        cell.find_first_of(",;\t\"\n") == std::string_view::npos && !cell.starts_with(' ') && !cell.ends_with(' ');
    if (isPlain)
        file.append(cell);
    else
        AppendQuotedCell(cell, file);
}

// ---- Reading --------------------------------------------------------------------------------------------------------

namespace {

struct CsvCursor {
    std::string_view text;
    std::size_t at = 0;
    std::size_t line = 1;
    char separator = ',';
};

}  // namespace

static bool IsAtEnd(const CsvCursor& cursor) {
    return cursor.at >= cursor.text.size();
}

// Blanks may stand before a quotation mark.
static bool BeginsQuoted(const CsvCursor& cursor) {
    const std::size_t first = cursor.text.find_first_not_of(' ', cursor.at);
    return first != std::string_view::npos && cursor.text[first] == '"';
}

// Reads up to the quotation mark that ends the cell. False if there is none.
static bool ReadQuoted(CsvCursor& cursor, std::string& cell) {
    cursor.at = cursor.text.find('"', cursor.at) + 1;
    for (;;) {
        const std::size_t quote = std::min(cursor.text.find('"', cursor.at), cursor.text.size());
        const std::string_view part = cursor.text.substr(cursor.at, quote - cursor.at);
        cell += part;
        cursor.line += static_cast<std::size_t>(std::ranges::count(part, '\n'));
        cursor.at = std::min(quote + 1, cursor.text.size());
        if (quote == cursor.text.size()) return false;
        if (IsAtEnd(cursor) || cursor.text[cursor.at] != '"') return true;
        cell += '"';
        ++cursor.at;
    }
}

static void ReadPlain(CsvCursor& cursor, std::string& cell) {
    const char ends[] = {cursor.separator, '\n'};
    const std::size_t end = std::min(cursor.text.find_first_of({ends, 2}, cursor.at), cursor.text.size());
    cell += cursor.text.substr(cursor.at, end - cursor.at);
    cursor.at = end;
}

static CsvRow ReadRow(CsvCursor& cursor) {
    CsvRow row{cursor.line, {}};
    for (;;) {
        std::string& cell = row.cells.emplace_back();
        if (BeginsQuoted(cursor) && !ReadQuoted(cursor, cell)) row.isUnclosed = true;
        ReadPlain(cursor, cell);
        if (IsAtEnd(cursor)) return row;
        const char end = cursor.text[cursor.at++];
        if (end == cursor.separator) continue;
        ++cursor.line;
        return row;
    }
}

static char SeparatorIn(std::string_view text) {
    char best = ',';
    std::size_t most = 0;
    for (const char separator : {',', ';', '\t'}) {
        CsvCursor cursor{text, 0, 1, separator};
        const std::size_t cells = ReadRow(cursor).cells.size();
        if (cells <= most) continue;
        most = cells;
        best = separator;
    }
    return best;
}

static bool IsEmpty(const CsvRow& row) {
    return std::ranges::all_of(row.cells, [](const std::string& cell) { return cell.empty(); });
}

std::vector<CsvRow> CsvRowsOf(std::string_view text) {
    static constexpr std::string_view kSeparatorLine = "sep=";
    CsvCursor cursor{text};
    const std::string_view line = text.substr(0, text.find('\n'));
    if (line.starts_with(kSeparatorLine) && line.size() == kSeparatorLine.size() + 1 && line.back() != '"') {
        cursor.separator = line.back();
        cursor.at = std::min(line.size() + 1, text.size());
        ++cursor.line;
    } else {
        cursor.separator = SeparatorIn(text);
    }
    std::vector<CsvRow> rows;
    while (!IsAtEnd(cursor)) {
        CsvRow row = ReadRow(cursor);
        if (!IsEmpty(row)) rows.push_back(std::move(row));
    }
    return rows;
}
