// Apart from the formats because two of them have headings.
#include "exchange/headed_notes.h"

#include <algorithm>

#include "exchange/file_text.h"
#include "notes/file_names.h"

static constexpr char kBeforeFirst[] = "This stands before the first verse.";
static constexpr char kBehindEnd[] = "This stands behind the end of the notes.";
static constexpr char kCut[] = "The file ends before its end mark. It may have been cut, so that notes are missing.";

NoteHeading EndMarkAt(std::size_t line) {
    return {line, "", {kNoVerse, kBehindEnd}, {}, true};
}

std::string JoinedLines(std::span<const std::string_view> lines) {
    std::string text;
    for (const std::string_view& line : lines) {
        if (&line != lines.data()) text += '\n';
        text += line;
    }
    return text;
}

static bool IsEmptyLine(std::string_view line) {
    return Trimmed(line).empty();
}

static void PlaceBeforeFirst(const ExchangeContext& context, const HeadedLines& file, ExchangedNotes& notes) {
    const std::size_t end = file.headings.empty() ? file.lines.size() : file.headings.front().line;
    std::size_t line = file.first;
    while (line < end && IsEmptyLine(file.lines[line])) ++line;
    if (line >= end) return;
    const std::span<const std::string_view> lines = std::span(file.lines).subspan(line, end - line);
    Place(context.page, {line + 1, "", {kNoVerse, kBeforeFirst}, {}, WithoutLayout({}, JoinedLines(lines))}, notes);
}

void PlaceHeaded(const ExchangeContext& context, const HeadedLines& file,
                 std::string (*textOf)(std::span<const std::string_view> lines), ExchangedNotes& notes) {
    PlaceBeforeFirst(context, file, notes);
    ExchangeSteps steps{context, file.headings.size()};
    for (const NoteHeading& heading : file.headings) {
        if (!GoesOn(steps)) return;
        const bool isLast = &heading == &file.headings.back();
        const std::size_t end = isLast ? file.lines.size() : (&heading + 1)->line;
        const std::size_t begin = heading.line + 1;
        const std::string text = textOf(std::span(file.lines).subspan(begin, end - begin));
        Place(context.page,
              {heading.line + 1, heading.where, heading.verse, heading.mark, WithoutLayout(heading.mark, text)}, notes);
    }
    const bool hasEnd = std::ranges::any_of(file.headings, &NoteHeading::isEnd);
    if (file.shallEnd && !hasEnd) notes.unplaced.push_back({file.lines.size(), "", kCut, ""});
    FinishPlacing(context.scripture.records, notes);
}

std::string PortableName(const CodePage& page, std::string_view name) {
    std::string text = Utf8Of(page.lettersOf(page.device, name));
    std::ranges::replace_if(
        text, [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
    return text;
}

std::string NameOfSet(const CodePage& page, std::string_view text) {
    std::string name;
    return page.bytesOf(page.device, LettersOfUtf8(text), name) && IsSetName(name) ? name : "";
}
