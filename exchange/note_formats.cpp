#include "exchange/note_formats.h"

#include "exchange/csv_notes.h"
#include "exchange/html_notes.h"
#include "exchange/html_reading.h"
#include "exchange/markdown_notes.h"
#include "exchange/text_notes.h"
#include "scripture/letters.h"

static constexpr NoteFormat kFormats[] = {
    {"Web page", ".html", "*.html;*.htm", true, WriteHtmlNotes, ReadHtmlNotes},
    {"Markdown", ".md", "*.md;*.markdown", false, WriteMarkdownNotes, ReadMarkdownNotes},
    {"Plain text", ".txt", "*.txt", false, WriteTextNotes, ReadTextNotes},
    {"Comma-separated values", ".csv", "*.csv;*.tsv", false, WriteCsvNotes, ReadCsvNotes},
};

std::span<const NoteFormat> NoteFormats() {
    return kFormats;
}

static bool EndsWithIgnoringCase(std::string_view text, std::string_view ending) {
    return text.size() >= ending.size() && EqualIgnoringCase(text.substr(text.size() - ending.size()), ending);
}

// Does one of the patterns "*.html;*.htm" fit?
static bool FitsPatterns(std::string_view fileName, std::string_view patterns) {
    for (;;) {
        const std::string_view ending = patterns.substr(1, patterns.find(';') - 1);
        if (EndsWithIgnoringCase(fileName, ending)) return true;
        const std::size_t next = patterns.find(';');
        if (next == std::string_view::npos) return false;
        patterns.remove_prefix(next + 1);
    }
}

const NoteFormat* FormatNamed(std::string_view fileName) {
    for (const NoteFormat& format : kFormats)
        if (FitsPatterns(fileName, format.patterns)) return &format;
    return nullptr;
}
