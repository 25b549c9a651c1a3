#include "exchange/text_notes.h"

#include <algorithm>

#include "exchange/file_text.h"
#include "exchange/headed_notes.h"

static constexpr std::string_view kTitle = "Notes: ";
static constexpr std::string_view kSign = "===";
static constexpr std::string_view kHeading = "=== ";
static constexpr std::string_view kEnd = "=== End ===";
static constexpr std::string_view kShallEnd = "The last line of this file is \"=== End ===\".";

// ---- Writing --------------------------------------------------------------------------------------------------------

static bool LooksLikeHeading(std::string_view line) {
    line.remove_prefix(std::min(line.find_first_not_of('\\'), line.size()));
    return line.starts_with(kSign);
}

static void AppendText(std::string_view text, std::string& file) {
    for (;;) {
        const std::size_t end = text.find('\n');
        const std::string_view line = text.substr(0, end);
        if (LooksLikeHeading(line)) file += '\\';
        file.append(line).append("\r\n");
        if (end == std::string_view::npos) break;
        text.remove_prefix(end + 1);
    }
    file += "\r\n";
}

std::string WriteTextNotes(const ExchangeContext& context, const ExchangedNotes& notes, const ExportOptions&) {
    std::string file;
    file.append(kTitle).append(PortableName(context.page, notes.setName)).append("\r\n");
    file.append(kShallEnd).append("\r\n\r\n");
    ExchangeSteps steps{context, notes.notes.size()};
    for (const ExchangedNote& note : notes.notes) {
        if (!GoesOn(steps)) return {};
        const PortableText text = PortableTextOf(context.page, note.note);
        file.append(kHeading).append(ReferenceText(context.scripture.records, note.verse, BookForm::kName));
        file.append(" ===");
        const std::string mark = MarkText({note.digest, text.isEscaped});
        if (!mark.empty()) file.append(" ").append(mark);
        file += "\r\n";
        AppendText(text.text, file);
    }
    return file.append(kEnd).append("\r\n");
}

// ---- Reading --------------------------------------------------------------------------------------------------------

static NoteHeading HeadingOf(const VerseRecords& records, std::string_view line, std::size_t place) {
    line.remove_prefix(kSign.size());
    const std::size_t end = line.find(kSign);
    const std::string_view where = Trimmed(line.substr(0, end));
    const std::string_view mark = end == std::string_view::npos ? "" : line.substr(end + kSign.size());
    return {place, std::string(where), VerseNamed(records, where), MarkOf(mark)};
}

// Without the blanks only if a verse is named: it may be a line that is drawn with such signs.
static bool IsHeading(const VerseRecords& records, std::string_view line) {
    if (line.starts_with(kHeading)) return true;
    if (!line.starts_with(kSign) || line.substr(kSign.size()).starts_with('=')) return false;
    return HeadingOf(records, line, 0).verse.problem != kNoVerseNamed;
}

static void FindHeadings(const VerseRecords& records, HeadedLines& file) {
    for (std::size_t place = file.first; place < file.lines.size(); ++place) {
        const std::string_view line = file.lines[place];
        if (file.shallEnd && line == kEnd)
            file.headings.push_back(EndMarkAt(place));
        else if (IsHeading(records, line))
            file.headings.push_back(HeadingOf(records, line, place));
    }
}

// Lines such as "Romans 8:28" or "Romans 8:28:".
static void FindLooseHeadings(const VerseRecords& records, HeadedLines& file) {
    static constexpr std::size_t kLongest = 40;
    for (std::size_t place = file.first; place < file.lines.size(); ++place) {
        const std::string_view line = Trimmed(file.lines[place]);
        const bool isFree = place == file.first || Trimmed(file.lines[place - 1]).empty();
        if (!isFree || line.size() > kLongest || line.find_first_of(":.") == std::string_view::npos) continue;
        const VerseName verse = VerseNamed(records, line);
        if (verse.problem != kNoVerseNamed) file.headings.push_back({place, std::string(line), verse, {}});
    }
}

static std::string TextOf(std::span<const std::string_view> lines) {
    if (!lines.empty() && lines.back().empty()) lines = lines.first(lines.size() - 1);
    std::string text;
    for (const std::string_view& line : lines) {
        if (&line != lines.data()) text += '\n';
        text += line.starts_with('\\') && LooksLikeHeading(line) ? line.substr(1) : line;
    }
    return text;
}

ExchangedNotes ReadTextNotes(const ExchangeContext& context, std::string_view bytes) {
    const std::string text = TextOfFile(context.page, bytes);
    ExchangedNotes notes;
    HeadedLines file{LinesOf(text), 0, {}, false};
    if (!file.lines.empty() && file.lines.front().starts_with(kTitle)) {
        notes.setName = NameOfSet(context.page, Trimmed(file.lines.front().substr(kTitle.size())));
        file.first = 1;
        file.shallEnd = file.lines.size() > 1 && Trimmed(file.lines[1]) == kShallEnd;
        if (file.shallEnd) file.first = 2;
    }
    FindHeadings(context.scripture.records, file);
    if (file.headings.empty()) FindLooseHeadings(context.scripture.records, file);
    PlaceHeaded(context, file, TextOf, notes);
    return notes;
}
