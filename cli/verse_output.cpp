// Apart from the commands, which share it.
#include "cli/verse_output.h"

#include <nlohmann/json.hpp>

#include "cli/styled_text.h"
#include "cli/utf8.h"
#include "scripture/books.h"
#include "typeset/html_text.h"

using nlohmann::ordered_json;

static ordered_json PlacesOf(const StyledText& text, TextStyle style) {
    ordered_json places = ordered_json::array();
    for (const auto& [begin, end] : StretchesOf(text, style)) places.push_back({begin, end});
    return places;
}

ordered_json VerseObject(const Scripture& scripture, int verse, std::string_view marked, bool hasMarks) {
    const VerseRecord record = RecordOf(scripture.records, verse);
    const bool beginsParagraph = BeginsParagraph(marked);
    StyledText text;
    AppendStyled(text, marked.substr(beginsParagraph ? 1 : 0), ShownBrackets::kNo);
    ordered_json object = {
        {"kind", "verse"},
        {"reference", ReferenceText(scripture.records, verse, BookForm::kName)},
        {"index", verse},
        {"book", record.book},
        {"name", BookName(record.book)},
        {"chapter", record.chapter},
        {"verse", record.verse},
        {"paragraph", beginsParagraph},
        {"text", Utf8Of(text.letters)},
        {"supplied", PlacesOf(text, kSupplied)},
    };
    if (hasMarks) object["marks"] = PlacesOf(text, kKeyWord);
    return object;
}

ordered_json SpanObject(const VerseRecords& records, const VerseSpan& span) {
    return {{"first", span.first}, {"last", span.last}, {"name", SpanName(records, span)}};
}

std::string MarkedListLine(const VerseRecords& records, int verse, std::string_view marked) {
    std::string line(1, kReferenceFollows);
    line += ReferenceText(records, verse, BookForm::kAbbreviation);
    line += {kPlainFollows, ' '};
    if (BeginsParagraph(marked)) line += {kParagraphMark, ' '};
    line += marked.substr(BeginsParagraph(marked) ? 1 : 0);
    line += '\n';
    return line;
}
